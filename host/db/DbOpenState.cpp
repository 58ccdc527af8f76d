#include "DbOpenState.h"

#include "DbDatabaseData.h"

#include "AcFault.h"

namespace {
bool readBreach(std::wstring& text) {
    try {
        throw;
    } catch (const AcDbOpenRuleBreach& breach) {
        text = acadErrorStatusText(breach.status);
        return true;
    } catch (...) {
        return false; // some other reader's
    }
}
const bool kRegistered = [] {
    acAddFaultReader(readBreach);
    return true;
}();
} // namespace

int dbCloseOpenObjects(AcDbDatabase& db) {
    int count = 0;
    for (AcDbStub& stub : DbObjectAccess::data(db).stubs) {
        const int openings = stub.readers + (stub.writer ? 1 : 0);
        stub.readers = 0;
        stub.writer = stub.modified = false;
        count += openings;
    }
    gDbOpenObjects -= count;
    return count;
}
