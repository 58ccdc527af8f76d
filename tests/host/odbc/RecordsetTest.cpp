#include "OdbcTestSupport.h"

namespace {
class Recordset : public testing::Test {
protected:
    void SetUp() override {
        database.ExecuteSQL(L"CREATE TABLE T (ID NUMBER, NEV TEXT)");
        database.ExecuteSQL(L"INSERT INTO T VALUES (1,'a')");
        database.ExecuteSQL(L"INSERT INTO T (ID) VALUES (2)");
    }
    OpenDatabase database{newDatabase()};
};

TEST_F(Recordset, fields_arrive_by_name_and_number_with_their_tags) {
    CRecordset set(&database);
    EXPECT_FALSE(set.IsOpen());
    ASSERT_TRUE(set.Open(CRecordset::snapshot, L"SELECT * FROM T ORDER BY ID", CRecordset::readOnly));
    EXPECT_TRUE(set.IsOpen());
    EXPECT_FALSE(set.IsBOF());
    CDBVariant value;
    set.GetFieldValue(L"id", value);
    ASSERT_EQ(value.m_dwType, DBVT_DOUBLE);
    EXPECT_EQ(value.m_dblVal, 1.0);
    set.GetFieldValue(short{1}, value);
    ASSERT_EQ(value.m_dwType, DBVT_WSTRING);
    EXPECT_EQ(*value.m_pstringW, L"a");
    EXPECT_EQ(*value.m_pstring, L"a");
    CString text;
    set.GetFieldValue(L"ID", text);
    EXPECT_EQ(text, L"1");
    set.MoveNext();
    set.GetFieldValue(L"NEV", value);
    EXPECT_EQ(value.m_dwType, DBVT_NULL);
    set.GetFieldValue(L"NEV", text);
    EXPECT_TRUE(text.IsEmpty());
    set.MoveNext();
    EXPECT_TRUE(set.IsEOF());
    set.Close();
    EXPECT_FALSE(set.IsOpen());
}

TEST_F(Recordset, a_field_read_past_the_end_and_a_step_past_it_throw) {
    CRecordset set(&database);
    set.Open(CRecordset::snapshot, L"SELECT * FROM T WHERE ID=3", CRecordset::readOnly);
    EXPECT_TRUE(set.IsEOF());
    EXPECT_TRUE(set.IsBOF());
    CDBVariant value;
    CString text;
    refusal([&] { set.GetFieldValue(L"ID", value); });
    refusal([&] { set.GetFieldValue(short{0}, text); });
    refusal([&] { set.MoveNext(); });
    refusal([&] { set.MoveFirst(); });
}

TEST_F(Recordset, the_code_of_the_exception_tells_what_is_missing) {
    CRecordset set(&database);
    set.Open(CRecordset::snapshot, L"SELECT * FROM T", CRecordset::readOnly);
    const auto codeOf = [](const std::function<void()>& action) {
        try {
            action();
        } catch (CDBException* error) {
            const RETCODE code = error->m_nRetCode;
            error->Delete();
            return code;
        }
        return SQL_SUCCESS;
    };
    CDBVariant value;
    EXPECT_EQ(codeOf([&] { set.GetFieldValue(L"NINCS", value); }), AFX_SQL_ERROR_FIELD_NOT_FOUND);
    EXPECT_EQ(codeOf([&] { set.GetFieldValue(short{2}, value); }), AFX_SQL_ERROR_FIELD_NOT_FOUND);
    EXPECT_EQ(codeOf([&] { set.GetFieldValue(short{-1}, value); }), AFX_SQL_ERROR_FIELD_NOT_FOUND);
    set.MoveNext();
    set.MoveNext();
    EXPECT_EQ(codeOf([&] { set.GetFieldValue(L"ID", value); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
    EXPECT_EQ(codeOf([&] { set.MoveNext(); }), AFX_SQL_ERROR_NO_DATA_FOUND);
    EXPECT_EQ(codeOf([&] { database.ExecuteSQL(L"SELECT"); }), SQL_ERROR);
}

TEST_F(Recordset, rows_can_be_walked_both_ways) {
    CRecordset set(&database);
    set.Open(CRecordset::snapshot, L"SELECT * FROM T ORDER BY ID DESC", CRecordset::readOnly);
    CString text;
    set.MoveLast();
    set.GetFieldValue(L"ID", text);
    EXPECT_EQ(text, L"1");
    set.MovePrev();
    set.MovePrev();
    EXPECT_TRUE(set.IsBOF());
    refusal([&] { set.GetFieldValue(L"ID", text); });
    refusal([&] { set.MovePrev(); });
    set.MoveFirst();
    set.GetFieldValue(L"ID", text);
    EXPECT_EQ(text, L"2");
}

TEST_F(Recordset, a_snapshot_keeps_its_rows_while_the_table_changes) {
    CRecordset set(&database);
    set.Open(CRecordset::snapshot, L"SELECT * FROM T", CRecordset::readOnly);
    database.ExecuteSQL(L"UPDATE T SET ID=ID+10");
    database.ExecuteSQL(L"DELETE * FROM T WHERE ID=12");
    database.ExecuteSQL(L"DROP TABLE T");
    CString text;
    set.GetFieldValue(L"ID", text);
    EXPECT_EQ(text, L"1");
    set.MoveNext();
    EXPECT_FALSE(set.IsEOF());
}

TEST_F(Recordset, only_selects_in_open_databases_and_kept_rows_are_opened) {
    CRecordset set(&database);
    refusal([&] { set.Open(CRecordset::snapshot, L"DELETE * FROM T", CRecordset::readOnly); });
    EXPECT_EQ(rowsOf(database, L"SELECT * FROM T").size(), 2u);
    refusal([&] { set.Open(CRecordset::snapshot, nullptr, CRecordset::readOnly); });
    refusal([&] { set.Open(CRecordset::dynaset, L"SELECT * FROM T"); });
    refusal([&] { set.Open(CRecordset::dynamic, L"SELECT * FROM T"); });
    EXPECT_FALSE(set.IsOpen());
    set.Open(AFX_DB_USE_DEFAULT_TYPE, L"SELECT * FROM T");
    refusal([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, L"SELECT * FROM T"); });
    CDatabase closed;
    CRecordset without(&closed), nowhere;
    refusal([&] { without.Open(CRecordset::snapshot, L"SELECT * FROM T"); });
    refusal([&] { nowhere.Open(CRecordset::snapshot, L"SELECT * FROM T"); });
}

TEST_F(Recordset, closing_the_database_closes_its_recordsets) {
    CRecordset first(&database), second(&database);
    first.Open(CRecordset::snapshot, L"SELECT * FROM T");
    second.Open(CRecordset::snapshot, L"SELECT * FROM T");
    first.Close();
    database.Close();
    EXPECT_FALSE(second.IsOpen());
    EXPECT_TRUE(second.IsEOF());
    second.Close();
}

TEST(Variant, copies_own_what_they_hold) {
    CDBVariant text;
    text.m_pstringW = new CStringW(L"a");
    text.m_dwType = DBVT_WSTRING;
    CDBVariant copy(text);
    *text.m_pstringW = L"b";
    EXPECT_EQ(*copy.m_pstringW, L"a");
    CDBVariant number;
    number.m_dblVal = 1.5;
    number.m_dwType = DBVT_DOUBLE;
    copy = number;
    EXPECT_EQ(copy.m_dblVal, 1.5);
    copy = copy;
    copy.Clear();
    EXPECT_EQ(copy.m_dwType, DBVT_NULL);
}

TEST(DbException, its_text_is_cut_to_the_buffer) {
    auto* const error = new CDBException(SQL_ERROR, L"abcdef");
    wchar_t text[4] = {};
    UINT help = 5;
    EXPECT_TRUE(error->GetErrorMessage(text, 4, &help));
    EXPECT_STREQ(text, L"abc");
    EXPECT_EQ(help, 0u);
    EXPECT_FALSE(error->GetErrorMessage(nullptr, 0));
    error->Delete();
}
} // namespace
