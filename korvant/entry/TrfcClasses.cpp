#include "TrfcClasses.h"

#include "TrfcBlockChain.h"
#include "TrfcBlockEnt.h"
#include "TrfcLamp.h"
#include "TrfcPost.h"
#include "TrfcSignFamilies.h"
#include "TrfcTable.h"

#include <algorithm>
#include <vector>

namespace {
#define TRFC_TYPE(CLASS) {&CLASS::desc, &CLASS::rxInit}
// The marking's class stays behind on purpose: the unload has always left it, and hosts rely on what it
// removes and what it does not.
const TrfcClassRow kClasses[] = {
    {TRFC_TYPE(TrfcTable), 2, nullptr},      {TRFC_TYPE(TrfcBlockEnt), 0, &kMarkingFamily}, {TRFC_TYPE(TrfcLamp), 1, nullptr},
    {TRFC_TYPE(TrfcPost), 3, &kPostFamily},  {TRFC_TYPE(TrfcBlockChain), 6, nullptr},       {TRFC_TYPE(TrfcBlock), 7, nullptr},
    {TRFC_TYPE(TrfcTypedBlock), 5, nullptr}, {TRFC_TYPE(TrfcScalable), 4, nullptr},
};
#undef TRFC_TYPE
} // namespace

std::span<const TrfcClassRow> trfcClasses() {
    return kClasses;
}

std::span<const AcRxClassRow> trfcClassRows() {
    static const std::vector<AcRxClassRow> rows = [] {
        std::vector<AcRxClassRow> types;
        for (const TrfcClassRow& row : kClasses)
            types.push_back(row.type);
        return types;
    }();
    return rows;
}

void registerTrfcFamilies() {
    for (const TrfcClassRow& row : kClasses)
        if (row.family != nullptr)
            registerEntityFamily(row.type.desc(), row.family);
}

void registerTrfcClasses() {
    for (const TrfcClassRow& row : kClasses)
        row.type.rxInit();
    acrxBuildClassHierarchy();
    registerTrfcFamilies();
}

void removeTrfcClasses() {
    std::vector<TrfcClassRow> leaving(std::begin(kClasses), std::end(kClasses));
    std::erase_if(leaving, [](const TrfcClassRow& row) { return row.unloadStep == 0; });
    std::sort(leaving.begin(), leaving.end(), [](const TrfcClassRow& a, const TrfcClassRow& b) { return a.unloadStep < b.unloadStep; });
    for (const TrfcClassRow& row : leaving)
        deleteAcRxClass(row.type.desc());
}
