// What a CDatabase talks to: one open database, whatever lies behind it.
#pragma once

#include "store/ResultSet.h"

#include <string_view>

namespace odbc {

// Every fault is a StoreError. Statements are wide text as the caller has it.
class Session {
public:
    virtual ~Session() = default; // without close: what was changed is lost
    virtual void execute(std::wstring_view sql) = 0;
    virtual ResultSet query(std::wstring_view sql) = 0;
    // Keeps what was changed; the session takes no more calls.
    virtual void close() = 0;
};

} // namespace odbc
