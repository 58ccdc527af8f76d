#include "applyStateChange.h"

#include "AcEdAds.h"
#include "TrfcBlockEnt.h"
#include "TrfcDrawingUtils.h"
#include "TrfcPost.h"
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

template <class Object> void changeState(AcDbEntity& entity) {
    static_cast<Object&>(entity).stateChanges();
}

// The classes that have a state, in the order of their tests. The post pair and the crossing join here; the
// stripes of earlier crossings, which are no class of their own, are to be tested beside them.
struct StatefulClass {
    AcRxClass* (*desc)();
    void (*change)(AcDbEntity& entity);
};
constexpr StatefulClass kStatefulClasses[] = {
    {&TrfcPost::desc, &changeState<TrfcPost>},
    {&TrfcBlockEnt::desc, &changeState<TrfcBlockEnt>},
};
} // namespace

void applyStateChange() {
    const Chosen chosen(stateChangeData().selectionOnly);
    walkModelSpace(AcDb::kForWrite, [&chosen](AcDbEntity& entity) {
        for (const StatefulClass& stateful : kStatefulClasses)
            if (entity.isKindOf(stateful.desc())) {
                if (chosen.has(entity))
                    stateful.change(entity);
                break;
            }
        return true;
    });
}
