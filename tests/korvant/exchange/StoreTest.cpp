// The exchange database through the real drivers: what is created and written comes back as written.
#include "../app/AppFixture.h"
#include "biff/BiffReader.h"
#include "schema.h"

#include <filesystem>

using namespace exchange;

namespace {
// The sheets of a workbook: name, headings, and the texts of the cells.
class Sheets : public odbc::TableSink {
public:
    explicit Sheets(const std::string& path) { odbc::readBiff(path, *this); }
    void beginTable(const odbc::StoreTable& table) override {
        names.push_back(table.name);
        headings.emplace_back();
        for (const auto& column : table.columns)
            headings.back() += column.name + " ";
        rows.emplace_back();
    }
    void row(std::span<const odbc::StoreCell> cells) override {
        std::string text;
        for (const auto& cell : cells)
            text += cell.type == odbc::StoreCell::Type::Real ? std::to_string(cell.real) + "|" : std::string(cell.bytes) + "|";
        rows.back().push_back(text);
    }
    void endTable() override {}
    std::vector<std::string> names, headings;
    std::vector<std::vector<std::string>> rows;
};

class ExchangeStore : public AppFixture {
protected:
    ExchangeStore() {
        TrfcDocSettings::setDocString(DOC_SCALE_LIST, L"200/500");
        TrfcDocSettings::setDocDouble(DOC_BASEPOINTD, 0.0035);
        TrfcDocSettings::setDocString(DOC_POST_DEFAULT_DWG, L"Oszlopok\\őr ű.dwg");
        TrfcDocSettings::setDocInt(DOC_ANNO_LINE_WEIGHT, -3);
    }
    // A new database and its twin, both connected.
    void create() {
        configureNewDatabase(findAccessDriver(), mMdb);
        ASSERT_TRUE(openMdb(mdb, findAccessDriver(), mMdb));
        ASSERT_TRUE(openXls(xls, findExcelDriver(), twinPath(mMdb)));
        createTables(mdb, xls);
    }
    void reopen() {
        mdb.Close();
        xls.Close();
        configureExistingDatabase(findAccessDriver());
        ASSERT_TRUE(openMdb(mdb, findAccessDriver(), mMdb));
    }
    void execute(const std::wstring& statement) { mdb.ExecuteSQL(statement.c_str()); }
    // The message of the fault that the call throws; empty where it throws none.
    template <class Call> static std::string faultOf(Call call) {
        try {
            call();
        } catch (CDBException* fault) {
            const std::string text = acToUtf8(fault->m_strError.GetString());
            fault->Delete();
            return text.empty() ? "(no text)" : text;
        }
        return {};
    }
    std::string mFolder = testTempPath();
    std::wstring mMdb = acFromUtf8(mFolder) + L"\\leltár.mdb";
    CDatabase mdb, xls;
};
} // namespace

TEST_F(ExchangeStore, both_drivers_are_found_by_a_part_of_their_names) {
    EXPECT_NE(findAccessDriver().find(L"*.mdb"), std::wstring::npos);
    EXPECT_NE(findExcelDriver().find(L"Excel"), std::wstring::npos);
}

TEST_F(ExchangeStore, the_settings_come_back_in_their_order) {
    create();
    reopen();
    CRecordset rows(&mdb);
    openRows(rows, L"SELECT * FROM SETTINGS");
    std::vector<std::wstring> read;
    for (; !rows.IsEOF(); rows.MoveNext())
        read.push_back(L"INSERT INTO SETTINGS (NEV,ERTEK) VALUES ('" + textField(rows, L"NEV") + L"', '" + textField(rows, L"ERTEK") + L"')");
    EXPECT_EQ(read, settingsStatements());
    EXPECT_EQ(read.size(), 29u);
}

TEST_F(ExchangeStore, the_twin_has_the_same_tables_and_settings) {
    create();
    reopen();
    const Sheets sheets(mFolder + "/leltár.xls");
    ASSERT_EQ(sheets.names.size(), tables().size());
    for (std::size_t i = 0; i < tables().size(); ++i) {
        EXPECT_EQ(sheets.names[i], acToUtf8(tables()[i].name));
        EXPECT_EQ(sheets.rows[i].size(), i == 0 ? 29u : 0u);
        std::string columns; // "(A NUMBER, B TEXT)" without the types
        const std::string create = acToUtf8(tables()[i].create);
        for (std::size_t at = create.find('(') + 1; at < create.size();) {
            const std::size_t end = create.find(' ', at);
            columns += create.substr(at, end - at) + " ";
            const std::size_t comma = create.find(", ", end);
            at = comma == std::string::npos ? create.size() : comma + 2;
        }
        EXPECT_EQ(sheets.headings[i], columns);
    }
    EXPECT_EQ(sheets.rows[0][0], "VERSION|11.0.0|");
    EXPECT_EQ(sheets.rows[0][3], "BASEPOINTD|0.003500|");
    EXPECT_EQ(sheets.rows[0][9], "POST_DEFAULT_DWG|Oszlopok\\őr ű.dwg|");
}

TEST_F(ExchangeStore, columns_are_doubles_and_texts) {
    create();
    for (const Table& table : tables()) {
        CRecordset rows(&mdb);
        openRows(rows, std::wstring(L"SELECT * FROM ") + table.name);
        for (short i = 0; i < rows.GetODBCFieldCount(); ++i) {
            CODBCFieldInfo info;
            rows.GetODBCFieldInfo(i, info);
            const bool number = table.create.find(std::wstring(info.m_strName.GetString()) + L" NUMBER") != std::wstring::npos;
            EXPECT_EQ(info.m_nSQLType, number ? SQL_DOUBLE : SQL_WVARCHAR) << acToUtf8(info.m_strName.GetString());
        }
    }
}

TEST_F(ExchangeStore, what_a_statement_leaves_out_is_empty_and_reads_as_0) {
    create();
    execute(L"INSERT INTO [KORVANT_OBJ] ([ID],[OBJ_TIP],[AX],[AY],[BX],[BY]) VALUES (1,'portál'," + realValue(650123.4567891) + L"," + realValue(-0.5) + L",1.000000,2.000000)");
    reopen();
    CRecordset rows(&mdb);
    openRows(rows, L"SELECT * FROM KORVANT_OBJ");
    ASSERT_FALSE(rows.IsEOF());
    for (const wchar_t* name : {L"CX", L"CY", L"DX", L"DY", L"KULSO_ID", L"HANDLE", L"RETEG"}) {
        CDBVariant value;
        rows.GetFieldValue(name, value);
        EXPECT_EQ(value.m_dwType, DBVT_NULL);
        EXPECT_EQ(integerField(rows, name), 0);
        EXPECT_EQ(textField(rows, name), L"");
    }
    EXPECT_EQ(textField(rows, L"OBJ_TIP"), L"portál");
    EXPECT_EQ(realField(rows, L"AX"), 650123.456789);
    EXPECT_EQ(integerField(rows, L"AX"), 650123);
    EXPECT_EQ(integerField(rows, L"AY"), 0); // cut toward zero
    EXPECT_EQ(realField(rows, L"BY"), 2.0);
    rows.MoveNext();
    EXPECT_NE(faultOf([&] { integerField(rows, L"ID"); }), "");
    EXPECT_NE(faultOf([&] { realField(rows, L"NINCS"); }), "");
}

TEST_F(ExchangeStore, a_text_with_an_apostrophe_breaks_its_statement) {
    create();
    const std::wstring statement = L"INSERT INTO [BLOKK] ([ID],[RETEG]) VALUES (1," + textValue(L"O'Connell út") + L")";
    EXPECT_NE(faultOf([&] { execute(statement); }), "");
    CRecordset rows(&mdb);
    openRows(rows, L"SELECT count(*) AS CNT FROM BLOKK");
    EXPECT_EQ(integerField(rows, L"CNT"), 0);
}

TEST_F(ExchangeStore, ids_may_repeat) {
    create();
    execute(L"INSERT INTO [KORVANT_OBJ_SCALE] ([ID],[OBJ_ID],[LEPTEK]) VALUES (1,1,200)");
    execute(L"INSERT INTO [KORVANT_OBJ_SCALE] ([ID],[OBJ_ID],[LEPTEK]) VALUES (1,2,500)");
    reopen();
    CRecordset rows(&mdb);
    openRows(rows, L"SELECT * FROM KORVANT_OBJ_SCALE");
    int sum = 0;
    for (; !rows.IsEOF(); rows.MoveNext())
        sum += integerField(rows, L"ID") * integerField(rows, L"LEPTEK");
    EXPECT_EQ(sum, 700);
}

TEST_F(ExchangeStore, a_database_that_is_not_there_cannot_be_opened) {
    configureExistingDatabase(findAccessDriver());
    EXPECT_NE(faultOf([&] { openMdb(mdb, findAccessDriver(), mMdb); }), "");
    EXPECT_FALSE(mdb.IsOpen());
    EXPECT_FALSE(std::filesystem::exists(mFolder + "/leltár.mdb"));
}
