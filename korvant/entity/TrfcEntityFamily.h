// What the commands need to know of each class that stands in a drawing: its property dialog and its state
// step. Registered by class when the module loads, so that a command asks the object and knows no class, and
// an entity opens a dialog of a part above it.
#pragma once

#include "AcDbEntity.h"

struct TrfcEntityFamily {
    // Shows the property dialog on the clone at that page, which the dialog changes; true when it ended with OK.
    bool (*edit)(AcDbEntity& clone, int page);
    int commandPage; // the page that the edit command opens
    // Takes the object, open for write, one step by the process-wide state change data.
    void (*changeState)(AcDbEntity& entity);
};

// The class must stay registered in the runtime tree as long as its objects are asked for; a second
// registration replaces the first. The family is the caller's and outlives the module's stay.
void registerEntityFamily(const AcRxClass* type, const TrfcEntityFamily* family);
// Of the entity's class or the nearest class above it that has one; null for a stranger.
const TrfcEntityFamily* familyOf(const AcDbEntity& entity);

// The dialog of the clone's class; false on Cancel, and where the class has none.
bool editClone(AcDbEntity& clone, int page);
// The dialog on a clone of the entity, which is open for write and takes the clone's content on OK. True then.
bool editOnClone(AcDbEntity& entity, int page);
