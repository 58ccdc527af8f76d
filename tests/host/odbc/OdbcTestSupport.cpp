#include "OdbcTestSupport.h"

#include "AcPath.h"
#include "rules/JetCheck.h"

#include <fstream>
#include <iterator>
#include <memory>

std::wstring accessConnect(const std::wstring& path) {
    return L"ODBC;DRIVER={Access Driver (*.mdb)};DSN='';READONLY=FALSE;DBQ=" + path;
}

std::wstring excelConnect(const std::wstring& path) {
    return L"ODBC;DRIVER={Excel Driver (*.xls)};DSN='';FIRSTROWHASNAMES=1;READONLY=FALSE;DBQ=" + path;
}

std::wstring newDatabase(const std::wstring& folder, const std::wstring& name) {
    const std::wstring path = folder + L"\\" + name;
    EXPECT_TRUE(SQLConfigDataSource(nullptr, ODBC_ADD_DSN, L"Access Driver (*.mdb)", (L"CREATE_DB=\"" + path + L"\" General").c_str()));
    return path;
}

OpenDatabase::OpenDatabase(const std::wstring&, const std::wstring& connect) {
    try {
        EXPECT_TRUE(Open(nullptr, FALSE, FALSE, connect.c_str(), TRUE));
    } catch (CDBException* error) {
        ADD_FAILURE() << acToUtf8(error->m_strError.text());
        error->Delete();
    }
}

std::wstring refusal(const std::function<void()>& action) {
    try {
        action();
    } catch (CDBException* error) {
        const std::wstring text = error->m_strError.text();
        error->Delete();
        EXPECT_FALSE(text.empty());
        return text;
    }
    ADD_FAILURE() << "nothing was thrown";
    return {};
}

std::wstring refusal(CDatabase& database, const std::wstring& sql) {
    SCOPED_TRACE(acToUtf8(sql));
    return refusal([&] { database.ExecuteSQL(sql.c_str()); });
}

Rows rowsOf(CDatabase& database, const std::wstring& sql) {
    Rows rows;
    CRecordset set(&database);
    set.Open(CRecordset::snapshot, sql.c_str(), CRecordset::readOnly);
    for (; !set.IsEOF(); set.MoveNext()) {
        rows.emplace_back();
        for (short i = 0; i < set.GetODBCFieldCount(); ++i) {
            CDBVariant value;
            CString text;
            set.GetFieldValue(i, value);
            set.GetFieldValue(i, text);
            rows.back().push_back(value.m_dwType == DBVT_NULL ? L"-" : text.text());
        }
    }
    return rows;
}

std::string violations(const std::wstring& path) {
    std::string text;
    for (const odbc::JetViolation& violation : odbc::checkJet(acFileSystemPath(path)))
        text += "page " + std::to_string(violation.page) + ": " + violation.text + "\n";
    return text;
}

std::string fileBytes(const std::wstring& path) {
    std::ifstream file(acFileSystemPath(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::wstring& path, const std::string& bytes) {
    std::ofstream file(acFileSystemPath(path), std::ios::binary);
    file << bytes;
    EXPECT_TRUE(file.flush().good());
}

std::string printed(const std::string& command) {
    // As a user's shell has it: isql reads letters by the locale and dies without a home folder.
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(::popen(("export LC_ALL=C.UTF-8 HOME=\"${HOME:-/}\"; " + command + " 2>/dev/null").c_str(), "r"), ::pclose);
    std::string text;
    char piece[4096];
    for (std::size_t count = 0; (count = std::fread(piece, 1, sizeof piece, pipe.get())) > 0;)
        text.append(piece, count);
    return text;
}
