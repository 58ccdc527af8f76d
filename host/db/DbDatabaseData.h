// What a database holds.
#pragma once

#include "DbObjectAccess.h"
#include "DbUndoLog.h"

#include "AcDbStub.h"

#include <deque>
#include <unordered_map>

struct AcDbDatabaseImpData {
    explicit AcDbDatabaseImpData(AcDbDatabase& db) : undo(db) {}

    std::deque<AcDbStub> stubs; // a deque: ids point to them
    std::unordered_map<Adesk::UInt64, AcDbStub*> byHandle;
    Adesk::UInt64 handseed = 1; // the next handle
    std::vector<std::pair<const AcRxClass*, AcDbObjectId>> tables;
    AcDbObjectId namedObjects;
    AcDbObjectId modelSpace, paperSpace, layerZero, byLayer, byBlock, continuous, standardStyle, normalPlotStyle;
    std::map<std::wstring, DbHeaderValue> header;
    std::vector<DbFileClass> classes;
    std::wstring filename, lastError;
    std::vector<Adesk::UInt8> thumbnail;
    std::unique_ptr<AcDbObjectContextManager> contexts;
    DbUndoLog undo;
    bool loading = false, changed = false;
    // A layer is or was locked. Until then an opening for write, which every edit begins with, need not ask.
    bool hadLockedLayer = false;
    void noteLock(const AcDbObject& object); // of a layer that has come or changed

    AcDbStub& newStub(AcDbDatabase& db, Adesk::UInt64 handle);
    void deleteObjects();
};

// Opens an object for write by force while host code restores it; the open state returns after.
class DbForcedWrite {
public:
    explicit DbForcedWrite(AcDbStub& stub) : mStub(stub), mWriter(stub.writer) { stub.writer = true; }
    ~DbForcedWrite() { mStub.writer = mWriter; }
    DbForcedWrite(const DbForcedWrite&) = delete;
    DbForcedWrite& operator=(const DbForcedWrite&) = delete;

private:
    AcDbStub& mStub;
    bool mWriter;
};
