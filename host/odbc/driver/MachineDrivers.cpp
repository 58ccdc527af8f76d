#include "driver/MachineDrivers.h"

#include "store/StoreDates.h"
#include "store/StoreText.h"

// Last: these define types and constants by macro. The API's own (OdbcTypes.h) must not be seen here.
#include <sql.h>
#include <sqlext.h>

#include <odbcinst.h>

namespace odbc {

namespace {
SQLCHAR* odbcText(const std::string& text) {
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

// What the driver says of its last fault.
[[noreturn]] void failWith(SQLSMALLINT handleType, SQLHANDLE handle) {
    SQLCHAR state[6] = {}, message[1024] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(SQLGetDiagRec(handleType, handle, 1, state, &native, message, sizeof message, &length)))
        throw MachineError("A meghajtó hibát jelez, de okát nem mondja.", {});
    // "[maker][part]text": what stands in brackets is the origin.
    std::string text = reinterpret_cast<const char*>(message), origin;
    while (!text.empty() && text.front() == '[' && text.find(']') != std::string::npos) {
        const std::size_t end = text.find(']') + 1;
        origin += text.substr(0, end);
        text.erase(0, end);
    }
    throw MachineError(text.empty() ? "A meghajtó hibát jelez, de okát nem mondja." : text,
                       std::string("State:") + reinterpret_cast<const char*>(state) + ",Native:" + std::to_string(native) + ",Origin:" + origin);
}

template <SQLSMALLINT kType> class Handle {
public:
    explicit Handle(SQLHANDLE parent) {
        if (!SQL_SUCCEEDED(SQLAllocHandle(kType, parent, &mHandle)))
            throw MachineError("A gép meghajtókezelője hibát jelez.", {});
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { SQLFreeHandle(kType, mHandle); }
    SQLHANDLE get() const { return mHandle; }
    void check(SQLRETURN result) const {
        if (!SQL_SUCCEEDED(result))
            failWith(kType, mHandle);
    }

private:
    SQLHANDLE mHandle = SQL_NULL_HANDLE;
};
using Statement = Handle<SQL_HANDLE_STMT>;

class Environment {
public:
    Environment() : mHandle(SQL_NULL_HANDLE) {
        SQLSetEnvAttr(mHandle.get(), SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0); // NOLINT: as the API wants it
    }
    SQLHANDLE get() const { return mHandle.get(); }

private:
    Handle<SQL_HANDLE_ENV> mHandle;
};

std::string utf8Of(std::wstring_view sql) {
    std::string text;
    if (!appendUtf8(sql, text))
        throw StoreError("Az utasításban nem Unicode karakter áll.");
    return text;
}

std::int16_t oldTypeOf(SQLSMALLINT type) {
    switch (type) {
    case SQL_TYPE_DATE:
        return SQL_DATE;
    case SQL_TYPE_TIME:
        return SQL_TIME;
    case SQL_TYPE_TIMESTAMP:
        return SQL_TIMESTAMP;
    default:
        return type;
    }
}

enum class Form : std::uint8_t { Integer, Real, Date, Bytes, Text };
Form formOf(std::int16_t type) {
    switch (type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
        return Form::Integer;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return Form::Real;
    case SQL_DATE:
    case SQL_TIME:
    case SQL_TIMESTAMP:
        return Form::Date;
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
        return Form::Bytes;
    default:
        return Form::Text;
    }
}

// A field of any length, piece by piece. False for an empty one.
bool getLong(const Statement& statement, SQLUSMALLINT column, SQLSMALLINT form, std::string& value) {
    char piece[4096];
    value.clear();
    for (;;) {
        SQLLEN length = 0;
        const SQLRETURN result = SQLGetData(statement.get(), column, form, piece, sizeof piece, &length);
        if (result == SQL_NO_DATA)
            return true;
        statement.check(result);
        if (length == SQL_NULL_DATA)
            return false;
        const std::size_t room = sizeof piece - (form == SQL_C_CHAR ? 1 : 0);
        const bool cut = length == SQL_NO_TOTAL || static_cast<std::size_t>(length) > room;
        value.append(piece, cut ? room : static_cast<std::size_t>(length));
        if (!cut || result == SQL_SUCCESS)
            return true;
    }
}

template <class T> bool getPlain(const Statement& statement, SQLUSMALLINT column, SQLSMALLINT form, T& value) {
    SQLLEN length = 0;
    statement.check(SQLGetData(statement.get(), column, form, &value, sizeof value, &length));
    return length != SQL_NULL_DATA;
}

StoreCell getDate(const Statement& statement, SQLUSMALLINT column) {
    SQL_TIMESTAMP_STRUCT stamp{};
    if (!getPlain(statement, column, SQL_C_TYPE_TIMESTAMP, stamp))
        return StoreCell::null();
    const std::optional<double> days = daysOf({stamp.year, stamp.month, stamp.day, stamp.hour, stamp.minute, stamp.second});
    return days ? StoreCell::of(*days) : StoreCell::null();
}

StoreCell getCell(const Statement& statement, SQLUSMALLINT column, Form form, std::string& text) {
    switch (form) {
    case Form::Integer: {
        SQLINTEGER value = 0;
        return getPlain(statement, column, SQL_C_SLONG, value) ? StoreCell::of(std::int64_t{value}) : StoreCell::null();
    }
    case Form::Real: {
        SQLDOUBLE value = 0;
        return getPlain(statement, column, SQL_C_DOUBLE, value) ? StoreCell::of(value) : StoreCell::null();
    }
    case Form::Date:
        return getDate(statement, column);
    case Form::Bytes:
        return getLong(statement, column, SQL_C_BINARY, text) ? StoreCell::blob(text) : StoreCell::null();
    case Form::Text:
        return getLong(statement, column, SQL_C_CHAR, text) ? StoreCell::text(text) : StoreCell::null();
    }
    return StoreCell::null();
}

ResultColumn describe(const Statement& statement, SQLUSMALLINT column) {
    SQLCHAR name[512] = {};
    SQLSMALLINT length = 0, type = 0, scale = 0, nullable = 0;
    SQLULEN size = 0;
    statement.check(SQLDescribeCol(statement.get(), column, name, sizeof name, &length, &type, &size, &scale, &nullable));
    return {reinterpret_cast<const char*>(name), oldTypeOf(type), static_cast<std::uint32_t>(size), scale, nullable};
}

class MachineSession : public Session {
public:
    MachineSession(const std::string& connect, bool readOnly) : mConnection(mEnvironment.get()) {
        if (readOnly)
            SQLSetConnectAttr(mConnection.get(), SQL_ATTR_ACCESS_MODE, reinterpret_cast<SQLPOINTER>(SQL_MODE_READ_ONLY), 0); // NOLINT
        SQLCHAR completed[1024];
        SQLSMALLINT length = 0;
        mConnection.check(SQLDriverConnect(mConnection.get(), nullptr, odbcText(connect), SQL_NTS, completed, sizeof completed, &length, SQL_DRIVER_NOPROMPT));
    }
    ~MachineSession() override { SQLDisconnect(mConnection.get()); }

    void execute(std::wstring_view sql) override {
        const Statement statement(mConnection.get());
        run(statement, sql);
    }

    ResultSet query(std::wstring_view sql) override {
        const Statement statement(mConnection.get());
        run(statement, sql);
        SQLSMALLINT count = 0;
        statement.check(SQLNumResultCols(statement.get(), &count));
        if (count == 0)
            throw StoreError("Az utasítás nem ad sorokat: nem SELECT.");
        ResultSet result;
        std::vector<Form> forms;
        for (SQLSMALLINT i = 1; i <= count; ++i) {
            result.columns.push_back(describe(statement, static_cast<SQLUSMALLINT>(i)));
            forms.push_back(formOf(result.columns.back().sqlType));
        }
        std::string text;
        for (;;) {
            const SQLRETURN fetched = SQLFetch(statement.get());
            if (fetched == SQL_NO_DATA)
                return result;
            statement.check(fetched);
            for (std::size_t i = 0; i < forms.size(); ++i)
                result.add(getCell(statement, static_cast<SQLUSMALLINT>(i + 1), forms[i], text));
        }
    }

    void close() override {}

private:
    void run(const Statement& statement, std::wstring_view sql) {
        const std::string text = utf8Of(sql);
        const SQLRETURN result = SQLExecDirect(statement.get(), odbcText(text), SQL_NTS);
        if (result != SQL_NO_DATA) // an UPDATE or DELETE that met no row
            statement.check(result);
    }

    Environment mEnvironment;
    Handle<SQL_HANDLE_DBC> mConnection;
};
} // namespace

std::vector<std::string> machineDrivers() {
    char names[16384] = {};
    WORD used = 0;
    if (!SQLGetInstalledDrivers(names, sizeof names, &used))
        return {}; // a machine without a list
    std::vector<std::string> result;
    for (const char* name = names; *name != 0 && name < names + sizeof names; name += result.back().size() + 1)
        result.emplace_back(name);
    return result;
}

std::unique_ptr<Session> openMachineSession(const std::string& connect, bool readOnly) {
    return std::make_unique<MachineSession>(connect, readOnly);
}

} // namespace odbc
