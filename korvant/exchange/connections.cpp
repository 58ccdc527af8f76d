// The drivers of the exchange database, its connections and the access to its rows.
#include "schema.h"

#include "AcUtText.h"
#include "OdbcInst.h"
#include "WinLibrary.h"

namespace exchange {

namespace {
constexpr WORD kNamesSize = 2000; // characters of the drivers' list

std::wstring findDriver(std::wstring_view part) {
    wchar_t names[kNamesSize] = {};
    WORD used = 0;
    if (!SQLGetInstalledDrivers(names, kNamesSize, &used))
        return {};
    for (const wchar_t* name = names; *name != 0; name += std::wstring_view(name).size() + 1)
        if (std::wstring_view(name).find(part) != std::wstring_view::npos)
            return name;
    return {};
}

// Looked up at run time, so that the module loads where the library of the drivers is missing.
void configure(const std::wstring& driver, const std::wstring& attributes) {
    using Configure = BOOL (*)(HWND, WORD, LPCWSTR, LPCWSTR);
    HMODULE library = LoadLibraryW(L"odbccp32.dll");
    if (library == nullptr)
        return;
    // By way of the type that any function pointer may be cast to and from.
    if (const auto call = reinterpret_cast<Configure>(reinterpret_cast<void (*)()>(GetProcAddress(library, "SQLConfigDataSourceW"))))
        call(nullptr, ODBC_ADD_DSN, driver.c_str(), attributes.c_str());
    FreeLibrary(library);
}

BOOL open(CDatabase& database, const std::wstring& connection) {
    constexpr BOOL kExclusive = FALSE, kReadOnly = FALSE, kCursorLibrary = TRUE;
    return database.Open(nullptr, kExclusive, kReadOnly, connection.c_str(), kCursorLibrary);
}
} // namespace

std::wstring findExcelDriver() { return findDriver(L"Excel"); }
std::wstring findAccessDriver() { return findDriver(L"*.mdb"); }

void configureNewDatabase(const std::wstring& accessDriver, const std::wstring& mdbPath) {
    configure(accessDriver, acFormat(L"CREATE_DB=\"%s\" General", mdbPath.c_str()));
}
void configureExistingDatabase(const std::wstring& accessDriver) { configure(accessDriver, L"General"); }

BOOL openMdb(CDatabase& database, const std::wstring& accessDriver, const std::wstring& mdbPath) {
    return open(database, acFormat(L"ODBC;DRIVER={%s};DSN='';READONLY=FALSE;DBQ=%s", accessDriver.c_str(), mdbPath.c_str()));
}
BOOL openXls(CDatabase& database, const std::wstring& excelDriver, const std::wstring& xlsPath) {
    return open(database, acFormat(L"ODBC;DRIVER={%s};DSN='';FIRSTROWHASNAMES=1;READONLY=FALSE;DBQ=%s", excelDriver.c_str(), xlsPath.c_str()));
}

void createTables(CDatabase& mdb, CDatabase& xls) {
    const auto both = [&](const std::wstring& statement) {
        mdb.ExecuteSQL(statement.c_str());
        xls.ExecuteSQL(statement.c_str());
    };
    for (const Table& table : tables()) {
        both(table.create);
        if (&table == &tables().front()) // SETTINGS is filled before the other tables come
            for (const std::wstring& statement : settingsStatements())
                both(statement);
    }
}

void openRows(CRecordset& rows, const std::wstring& select) { rows.Open(CRecordset::snapshot, select.c_str(), CRecordset::readOnly); }

double realField(const CRecordset& rows, const ACHAR* name) {
    CDBVariant value;
    rows.GetFieldValue(name, value);
    switch (value.m_dwType) {
    case DBVT_DOUBLE: return value.m_dblVal;
    case DBVT_SINGLE: return value.m_fltVal;
    case DBVT_LONG: return value.m_lVal; // a count, or a column that another program made
    case DBVT_SHORT: return value.m_iVal;
    case DBVT_UCHAR: return value.m_chVal;
    case DBVT_BOOL: return value.m_boolVal;
    case DBVT_STRING:
    case DBVT_WSTRING: return acWtof(value.m_pstringW->GetString());
    default: return 0;
    }
}

int integerField(const CRecordset& rows, const ACHAR* name) {
    const double value = realField(rows, name);
    // Outside of the range a cast has no meaning; a damaged database may hold anything.
    return value > -2147483649.0 && value < 2147483648.0 ? static_cast<int>(value) : 0;
}

std::wstring textField(const CRecordset& rows, const ACHAR* name) {
    CDBVariant value;
    rows.GetFieldValue(name, value);
    switch (value.m_dwType) {
    case DBVT_NULL: return {};
    case DBVT_STRING:
    case DBVT_WSTRING: return value.m_pstringW->text();
    default: break; // a column that another program made
    }
    CString text;
    rows.GetFieldValue(name, text);
    return text.text();
}

} // namespace exchange
