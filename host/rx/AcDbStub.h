// The database's record of one object: what an id points to. It stands in the lowest layer so
// that ids can answer for themselves; only host/db makes and changes stubs.
#pragma once

#include "AcDbObjectId.h"

class AcDbObject;

class AcDbStub {
public:
    AcDbObject* object = nullptr; // null: the id is only pointed to
    AcDbDatabase* database = nullptr;
    Adesk::UInt64 handle = 0;
    Adesk::UInt32 undoTick = 0;   // the undo tick in which the state was filed last
    Adesk::UInt16 readers = 0;
    bool writer = false;
    bool erased = false;
    bool modified = false;        // changed during the present opening
};
