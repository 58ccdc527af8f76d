#include "store/StoreTable.h"

namespace odbc {

void TableSink::incomplete(const std::string& why) {
    throw StoreError(why);
}

} // namespace odbc
