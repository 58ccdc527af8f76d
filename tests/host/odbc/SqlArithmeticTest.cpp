// Reckoning with columns of whole numbers: Access divides them as reals.
#include "OdbcTestSupport.h"

namespace {
class SqlArithmetic : public testing::Test {
protected:
    void SetUp() override {
        database.ExecuteSQL(L"CREATE TABLE N (ID NUMBER, L LONG, S SHORT, Y BYTE, C CURRENCY, V NUMBER, TWO LONG)");
        database.ExecuteSQL(L"INSERT INTO N VALUES (1,5,5,5,5,5,2)");
        database.ExecuteSQL(L"INSERT INTO N VALUES (2,-5,-5,2,-5,-5,2)");
    }
    std::wstring value(const std::wstring& expression) {
        const Rows rows = rowsOf(database, L"SELECT " + expression + L" FROM N WHERE ID=1");
        return rows.size() == 1 && rows[0].size() == 1 ? rows[0][0] : L"?";
    }
    std::wstring path = newDatabase();
    OpenDatabase database{path};
};
} // namespace

TEST_F(SqlArithmetic, the_quotient_of_whole_numbers_is_real_in_every_kind_of_column) {
    for (const wchar_t* const column : {L"L", L"S", L"Y", L"C", L"V"}) {
        EXPECT_EQ(value(std::wstring(column) + L"/2"), L"2.5") << acToUtf8(column);
        EXPECT_EQ(value(std::wstring(column) + L"/TWO"), L"2.5") << acToUtf8(column) << ": no literal lends its kind";
        EXPECT_EQ(value(std::wstring(L"TWO/") + column), L"0.4") << acToUtf8(column);
        EXPECT_EQ(value(std::wstring(L"12/") + column), L"2.4") << acToUtf8(column);
        EXPECT_EQ(value(std::wstring(column) + L"/" + column), L"1") << acToUtf8(column);
    }
    EXPECT_EQ(value(L"-L/2"), L"-2.5");
    EXPECT_EQ(value(L"L/4/2"), L"0.625");
    EXPECT_EQ(value(L"1/2"), L"0.5");
    EXPECT_EQ(value(L"COUNT(*)"), L"1");
}

TEST_F(SqlArithmetic, conditions_and_updates_divide_the_same_way) {
    EXPECT_EQ(rowsOf(database, L"SELECT ID FROM N WHERE L/TWO=2.5"), (Rows{{L"1"}}));
    EXPECT_EQ(rowsOf(database, L"SELECT ID FROM N WHERE L/TWO=2"), Rows{});
    EXPECT_EQ(rowsOf(database, L"SELECT ID FROM N WHERE S/TWO<-2"), (Rows{{L"2"}}));
    database.ExecuteSQL(L"UPDATE N SET V=L/TWO");
    EXPECT_EQ(rowsOf(database, L"SELECT V FROM N"), (Rows{{L"2.5"}, {L"-2.5"}}));
}

TEST_F(SqlArithmetic, products_come_before_sums_and_minus_goes_from_left_to_right) {
    EXPECT_EQ(value(L"L+2*3"), L"11");
    EXPECT_EQ(value(L"(L+2)*3"), L"21");
    EXPECT_EQ(value(L"L-2-1"), L"2");
    EXPECT_EQ(value(L"L-(2-1)"), L"4");
    EXPECT_EQ(value(L"L/2*2"), L"5");
    EXPECT_EQ(value(L"-L-1"), L"-6");
    EXPECT_EQ(value(L"L- -1"), L"6");
}
