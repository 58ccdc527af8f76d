#include "classes/DbFaults.h"

#include "AcUtText.h"
#include "driver/MachineDrivers.h"

#include <new>

namespace odbc {

void throwDb(RETCODE code, const char* text) {
    throw new CDBException(code, acFromUtf8(text));
}

void throwCaught(RETCODE code) {
    try {
        throw;
    } catch (const MachineError& error) {
        throw new CDBException(code, acFromUtf8(error.what()), acFromUtf8(error.origin));
    } catch (const StoreError& error) {
        throw new CDBException(code, acFromUtf8(error.what()));
    } catch (const std::bad_alloc&) {
        throw new CDBException(code, L"Nincs elég memória az adatbázishoz.");
    } catch (const std::exception& error) {
        throw new CDBException(code, acFromUtf8(error.what()));
    }
}

} // namespace odbc
