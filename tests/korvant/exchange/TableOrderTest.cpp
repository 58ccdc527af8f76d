// In which order a new database is filled: a reader of a broken export finds the settings first.
#include "../app/AppFixture.h"
#include "biff/BiffReader.h"
#include "schema.h"

#include <map>

using namespace exchange;

namespace {
// The sheets of a workbook with their numbers of rows.
class RowCounts : public odbc::TableSink {
public:
    explicit RowCounts(const std::string& path) { odbc::readBiff(path, *this); }
    void beginTable(const odbc::StoreTable& table) override { mCount = &counts[acFromUtf8(table.name)]; }
    void row(std::span<const odbc::StoreCell>) override { ++*mCount; }
    void endTable() override {}
    std::map<std::wstring, int> counts;

private:
    int* mCount = nullptr;
};

class TableOrder : public AppFixture {
protected:
    TableOrder() {
        configureNewDatabase(findAccessDriver(), mMdb);
        EXPECT_TRUE(openMdb(mdb, findAccessDriver(), mMdb));
        EXPECT_TRUE(openXls(xls, findExcelDriver(), twinPath(mMdb)));
    }
    static int countIn(CDatabase& database, const std::wstring& table) {
        CRecordset rows(&database);
        openRows(rows, L"SELECT count(*) AS CNT FROM " + table);
        return integerField(rows, L"CNT");
    }
    // The workbook as it is when it is closed.
    std::map<std::wstring, int> twin() {
        xls.Close();
        return RowCounts(mFolder + "/leltár.xls").counts;
    }
    static bool has(CDatabase& database, const std::wstring& table) {
        try {
            countIn(database, table);
        } catch (CDBException* fault) {
            fault->Delete();
            return false;
        }
        return true;
    }
    // The table stands already, so that the filling ends there.
    static void occupy(CDatabase& database, const std::wstring& table) { database.ExecuteSQL((L"CREATE TABLE " + table + L" (X NUMBER)").c_str()); }
    bool fillingFails() {
        try {
            createTables(mdb, xls);
        } catch (CDBException* fault) {
            fault->Delete();
            return true;
        }
        return false;
    }
    const std::string mFolder = testTempPath();
    const std::wstring mMdb = acFromUtf8(mFolder) + L"\\leltár.mdb";
    CDatabase mdb, xls;
};
} // namespace

TEST_F(TableOrder, SETTINGS_is_full_in_both_before_the_next_table_is_made) {
    occupy(mdb, tables()[1].name);
    EXPECT_TRUE(fillingFails());
    EXPECT_EQ(countIn(mdb, L"SETTINGS"), 29);
    EXPECT_EQ(twin(), (std::map<std::wstring, int>{{L"SETTINGS", 29}}));
    for (std::size_t i = 2; i < tables().size(); ++i)
        EXPECT_FALSE(has(mdb, tables()[i].name)) << i;
}

TEST_F(TableOrder, a_table_is_made_in_the_database_before_the_twin) {
    occupy(xls, tables()[5].name);
    EXPECT_TRUE(fillingFails());
    EXPECT_TRUE(has(mdb, tables()[5].name));
    EXPECT_FALSE(has(mdb, tables()[6].name));
}

TEST_F(TableOrder, the_other_tables_stay_empty) {
    EXPECT_FALSE(fillingFails());
    std::map<std::wstring, int> expected;
    for (const Table& table : tables()) {
        expected[table.name] = expected.empty() ? 29 : 0;
        EXPECT_EQ(countIn(mdb, table.name), expected[table.name]) << acToUtf8(table.name);
    }
    EXPECT_EQ(twin(), expected);
}
