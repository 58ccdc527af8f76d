#include "applyStateChange.h"

#include "AcEdAds.h"
#include "TrfcDrawingUtils.h"
#include "TrfcEntityFamily.h"
#include "TrfcStateChangeData.h"

namespace {
// The objects that the change is for: all of them, or those that the user selects.
class Chosen {
public:
    explicit Chosen(bool selectionOnly) : mSelectionOnly(selectionOnly) {
        if (mSelectionOnly)
            mHasSet = acedSSGet(nullptr, nullptr, nullptr, nullptr, mSet) == RTNORM;
    }
    ~Chosen() {
        if (mHasSet)
            acedSSFree(mSet);
    }
    Chosen(const Chosen&) = delete;
    Chosen& operator=(const Chosen&) = delete;

    bool has(const AcDbEntity& entity) const {
        if (!mSelectionOnly)
            return true;
        ads_name name;
        return mHasSet && acdbGetAdsName(name, entity.objectId()) == Acad::eOk && acedSSMemb(name, mSet) == RTNORM;
    }

private:
    bool mSelectionOnly;
    bool mHasSet = false; // a cancelled selection leaves none, and no object is chosen
    ads_name mSet = {};
};
} // namespace

void applyStateChange() {
    const Chosen chosen(stateChangeData().selectionOnly);
    walkModelSpace(AcDb::kForWrite, [&chosen](AcDbEntity& entity) {
        const TrfcEntityFamily* family = familyOf(entity);
        if (family != nullptr && chosen.has(entity))
            family->changeState(entity);
        return true;
    });
}
