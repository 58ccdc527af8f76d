// What the state change applies: which transitions are on for which kind of object. One process-wide
// instance keeps the choices as long as the module stays loaded.
#pragma once

#include <memory>

// The transitions of one kind of object: a column of the window.
struct TrfcStateColumn {
    bool plannedToExisting = false;
    bool existingToBeRemoved = false;
    bool toBeRemovedDeleted = false;
};
// Signs and lamps can be covered as well.
struct TrfcSignStateColumn : TrfcStateColumn {
    bool existingToCovered = false;
    bool coveredToExisting = false;
};

class TrfcStateChangeData {
public:
    virtual ~TrfcStateChangeData() = default;
    bool selectionOnly = false;
    bool confirmOnDelete = true;
    TrfcStateColumn post; // of posts and post pairs
    TrfcSignStateColumn sign;
    TrfcStateColumn marking;
    TrfcStateColumn crossing;
};

TrfcStateChangeData& stateChangeData();
// The new object becomes the process-wide one.
void setStateChangeData(std::unique_ptr<TrfcStateChangeData> data);
