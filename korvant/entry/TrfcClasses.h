// Every custom class of the module, listed once: what loading registers, what unloading takes away, and what
// the commands know of the classes that stand in a drawing.
#pragma once

#include "AcRxArxApp.h"
#include "TrfcEntityFamily.h"

#include <span>

struct TrfcClassRow {
    AcRxClassRow type;
    int unloadStep;                 // the place in the order of unloading, from 1; 0 leaves the class's record behind
    const TrfcEntityFamily* family; // null for a class that stands in no drawing by itself
};
// In the order of registration, children before parents in places: the tree is completed afterwards.
std::span<const TrfcClassRow> trfcClasses();
// The same in the host's form.
std::span<const AcRxClassRow> trfcClassRows();

// What the host does with the rows at loading, for those who use the classes without it.
void registerTrfcClasses();
void registerTrfcFamilies();
// The classes with an unload step, in its order.
void removeTrfcClasses();
