// What the state change applies: which transitions are on for which kind of object. One process-wide
// instance keeps the choices as long as the module stays loaded.
#pragma once

#include <memory>

class TrfcStateChangeData {
public:
    virtual ~TrfcStateChangeData() = default;
    bool selectionOnly = false;
    bool confirmOnDelete = true;
    bool postPlannedToExisting = false;
    bool postExistingToBeRemoved = false;
    bool postToBeRemovedDeleted = false;
    bool signPlannedToExisting = false; // signs and lamps
    bool signExistingToBeRemoved = false;
    bool signToBeRemovedDeleted = false;
    bool signExistingToCovered = false;
    bool signCoveredToExisting = false;
    bool markingPlannedToExisting = false;
    bool markingExistingToBeRemoved = false;
    bool markingToBeRemovedDeleted = false;
    bool crossingPlannedToExisting = false;
    bool crossingExistingToBeRemoved = false;
    bool crossingToBeRemovedDeleted = false;
};

TrfcStateChangeData& stateChangeData();
// The new object becomes the process-wide one.
void setStateChangeData(std::unique_ptr<TrfcStateChangeData> data);
