// What the dialect means, and what it refuses.
#include "OdbcTestSupport.h"

namespace {
class SqlDialect : public testing::Test {
protected:
    void SetUp() override {
        run(L"CREATE TABLE T (ID NUMBER, NEV TEXT, [BY] NUMBER)");
        run(L"INSERT INTO T (ID,NEV,[BY]) VALUES (1,'Alma',2.500000)");
        run(L"INSERT INTO T (ID,NEV) VALUES (2,'őszi Út')");
        run(L"INSERT INTO T VALUES (3,NULL,-1)");
    }
    void run(const std::wstring& sql) { database.ExecuteSQL(sql.c_str()); }
    Rows rows(const std::wstring& sql) { return rowsOf(database, sql); }
    std::wstring refused(const std::wstring& sql) { return refusal(database, sql); }
    Rows ids(const std::wstring& condition) { return rows(L"SELECT ID FROM T WHERE " + condition); }
    std::wstring path = newDatabase();
    OpenDatabase database{path};
};

TEST_F(SqlDialect, names_do_not_tell_cases_apart_even_beyond_english) {
    run(L"CREATE TABLE ÚTVONAL (ÉRTÉK NUMBER)");
    run(L"insert into útvonal (érték) values (5)");
    EXPECT_EQ(rows(L"select [Érték] from [Útvonal]"), (Rows{{L"5"}}));
    EXPECT_EQ(rows(L"SeLeCt iD fRoM t WhErE nEv = 'Alma'"), (Rows{{L"1"}}));
}

TEST_F(SqlDialect, keywords_serve_as_column_names_bare_and_in_brackets) {
    EXPECT_EQ(rows(L"SELECT BY FROM T WHERE BY>-2.000000 AND BY<3.000000 ORDER BY BY"), (Rows{{L"-1"}, {L"2.5"}}));
    EXPECT_EQ(rows(L"SELECT [BY] FROM T WHERE ([BY]=2.500000)"), (Rows{{L"2.5"}}));
    run(L"CREATE TABLE [ORDER] ([SELECT] NUMBER, [FROM] TEXT, [two words] TEXT, rowid TEXT, oid NUMBER)");
    run(L"INSERT INTO [ORDER] ([SELECT],[FROM],[two words],rowid,oid) VALUES (1,'a','b','c',4)");
    EXPECT_EQ(rows(L"SELECT * FROM [ORDER]"), (Rows{{L"1", L"a", L"b", L"c", L"4"}}));
}

TEST_F(SqlDialect, texts_compare_without_regard_to_case) {
    EXPECT_EQ(ids(L"NEV='ALMA'"), (Rows{{L"1"}}));
    EXPECT_EQ(ids(L"NEV='ŐSZI út'"), (Rows{{L"2"}}));
    EXPECT_EQ(ids(L"NEV='oszi ut'"), Rows{});
    run(L"INSERT INTO T (ID,NEV) VALUES (4,'alma')");
    EXPECT_EQ(rows(L"SELECT DISTINCT NEV FROM T WHERE NEV IS NOT NULL").size(), 2u);
}

TEST_F(SqlDialect, a_doubled_apostrophe_is_one) {
    run(L"INSERT INTO T (ID,NEV) VALUES (4,'it''s')");
    EXPECT_EQ(rows(L"SELECT NEV FROM T WHERE ID=4"), (Rows{{L"it's"}}));
    run(L"INSERT INTO T (ID,NEV) VALUES (5,'''')");
    EXPECT_EQ(rows(L"SELECT ID FROM T WHERE NEV=''''"), (Rows{{L"5"}}));
    run(L"INSERT INTO T (ID,NEV) VALUES (6,\"it's \"\"quoted\"\"\")");
    EXPECT_EQ(rows(L"SELECT NEV FROM T WHERE ID=6"), (Rows{{L"it's \"quoted\""}}));
}

TEST_F(SqlDialect, a_stray_apostrophe_is_a_syntax_error) {
    for (const wchar_t* name : {L"O'Hara", L"a'b'c", L"'", L"x' AS 'y"})
        EXPECT_NE(refused(std::wstring(L"INSERT INTO T (ID,NEV) VALUES (4,'") + name + L"')").find(L"zintaktikai hiba"), std::wstring::npos);
    EXPECT_EQ(rows(L"SELECT * FROM T").size(), 3u);
}

TEST_F(SqlDialect, an_apostrophe_cannot_smuggle_in_a_second_statement) {
    refused(L"INSERT INTO T (ID,NEV) VALUES (4,'x'); DROP TABLE T");
    refused(L"INSERT INTO T (ID,NEV) VALUES (4,'x') DELETE * FROM T");
    refused(L"SELECT * FROM T; SELECT * FROM T");
    EXPECT_EQ(rows(L"SELECT * FROM T;").size(), 3u);
}

TEST_F(SqlDialect, doubles_come_back_to_the_last_bit) {
    for (const double value : {0.1, -650123.456789, 1.0 / 3, 123456789.123457, -0.000001, 1e-300, 1.7976931348623157e308, 0.0}) {
        run(L"DELETE * FROM T");
        run(acFormat(L"INSERT INTO T (ID) VALUES (%.17g)", value));
        CRecordset set(&database);
        set.Open(CRecordset::snapshot, L"SELECT ID FROM T", CRecordset::readOnly);
        CDBVariant got;
        set.GetFieldValue(L"ID", got);
        EXPECT_EQ(got.m_dblVal, value);
    }
}

TEST_F(SqlDialect, six_decimals_compare_as_doubles) {
    run(L"INSERT INTO T (ID,[BY]) VALUES (4,0.300000)");
    EXPECT_EQ(ids(L"[BY]=0.300000"), (Rows{{L"4"}}));
    EXPECT_EQ(ids(L"[BY]=0.3"), (Rows{{L"4"}}));
    EXPECT_EQ(ids(L"[BY]=3e-1"), (Rows{{L"4"}}));
    EXPECT_EQ(ids(L"[BY]=0.300001"), Rows{});
    EXPECT_EQ(ids(L"ID=4.000000"), (Rows{{L"4"}}));
}

TEST_F(SqlDialect, conditions_combine) {
    EXPECT_EQ(ids(L"ID=1 OR ID=3"), (Rows{{L"1"}, {L"3"}}));
    EXPECT_EQ(ids(L"NOT (ID=1 OR ID=3)"), (Rows{{L"2"}}));
    EXPECT_EQ(ids(L"ID=1 OR ID=2 AND NEV='Alma'"), (Rows{{L"1"}}));
    EXPECT_EQ(ids(L"(ID=1 OR ID=2) AND NEV='Alma'"), (Rows{{L"1"}}));
    EXPECT_EQ(ids(L"NEV IS NULL"), (Rows{{L"3"}}));
    EXPECT_EQ(ids(L"[BY] IS NOT NULL"), (Rows{{L"1"}, {L"3"}}));
    EXPECT_EQ(ids(L"ID BETWEEN 2 AND 3"), (Rows{{L"2"}, {L"3"}}));
    EXPECT_EQ(ids(L"ID NOT BETWEEN 2 AND 3"), (Rows{{L"1"}}));
    EXPECT_EQ(ids(L"ID IN (1, 3, 5)"), (Rows{{L"1"}, {L"3"}}));
    EXPECT_EQ(ids(L"NEV NOT IN ('alma')"), (Rows{{L"2"}}));
    EXPECT_EQ(ids(L"ID<>2 AND ID>=1 AND ID<=3"), (Rows{{L"1"}, {L"3"}}));
    EXPECT_EQ(ids(L"ID*2-1=5"), (Rows{{L"3"}}));
    EXPECT_EQ(ids(L"ID/2=0.5"), (Rows{{L"1"}}));
    EXPECT_EQ(ids(L"-ID=-2"), (Rows{{L"2"}}));
    EXPECT_EQ(ids(L"T.ID=2"), (Rows{{L"2"}}));
    EXPECT_EQ(ids(L"ID = NULL"), Rows{});
}

// The same words with other literals, so that the second is not the first one's answer.
TEST_F(SqlDialect, a_statement_of_a_known_shape_is_taken_with_its_own_literals) {
    EXPECT_EQ(ids(L"ID=1 AND NEV='Alma'"), (Rows{{L"1"}}));
    EXPECT_EQ(ids(L"ID=2 AND NEV='Alma'"), Rows{});
    EXPECT_EQ(ids(L"ID=2 AND NEV='őszi út'"), (Rows{{L"2"}}));
    EXPECT_EQ(ids(L"ID=-2"), Rows{});
    EXPECT_EQ(ids(L"[BY]=-1"), (Rows{{L"3"}}));
    EXPECT_EQ(ids(L"[BY] = - 1"), (Rows{{L"3"}}));
    EXPECT_EQ(ids(L"ID-1=0"), (Rows{{L"1"}}));
    EXPECT_EQ(ids(L"(ID)-1=1"), (Rows{{L"2"}}));
}

TEST_F(SqlDialect, a_table_made_again_forgets_the_statements_on_the_earlier_one) {
    EXPECT_EQ(ids(L"ID=1").size(), 1u);
    run(L"DROP TABLE T");
    run(L"CREATE TABLE T (NEV TEXT, ID NUMBER)");
    run(L"INSERT INTO T VALUES ('x',1)");
    EXPECT_EQ(rows(L"SELECT * FROM T WHERE ID=1"), (Rows{{L"x", L"1"}}));
    EXPECT_EQ(ids(L"ID=1"), (Rows{{L"1"}}));
    run(L"DROP TABLE T");
    refused(L"INSERT INTO T VALUES ('x',1)");
}

TEST_F(SqlDialect, results_are_named_by_column_alias_or_number) {
    CRecordset set(&database);
    set.Open(CRecordset::snapshot, L"SELECT nev, ID AS Azonosító, ID*2 FROM T", CRecordset::readOnly);
    std::vector<std::wstring> names;
    for (short i = 0; i < set.GetODBCFieldCount(); ++i) {
        CODBCFieldInfo info;
        set.GetODBCFieldInfo(i, info);
        names.push_back(info.m_strName.text());
    }
    EXPECT_EQ(names, (std::vector<std::wstring>{L"NEV", L"Azonosító", L"Expr1002"}));
}

TEST_F(SqlDialect, functions_over_all_rows) {
    EXPECT_EQ(rows(L"SELECT count(*) AS CNT, COUNT(NEV), Min(ID), MAX(NEV), SUM(ID), AVG(ID) FROM T"), (Rows{{L"3", L"2", L"1", L"őszi Út", L"6", L"2"}}));
    CRecordset set(&database);
    set.Open(CRecordset::snapshot, L"SELECT count(*) AS CNT FROM T", CRecordset::readOnly);
    CDBVariant value;
    set.GetFieldValue(L"cnt", value);
    ASSERT_EQ(value.m_dwType, DBVT_LONG);
    EXPECT_EQ(value.m_lVal, 3);
    refused(L"SELECT ID, MAX(ID) FROM T");
    refused(L"SELECT SUM(NEV) FROM T");
    refused(L"SELECT sqlite_version() FROM T");
    refused(L"SELECT ID FROM T WHERE MAX(ID)=3");
}

TEST_F(SqlDialect, an_unknown_table_or_column_is_refused_by_name) {
    EXPECT_NE(refused(L"SELECT * FROM NINCS").find(L"NINCS"), std::wstring::npos);
    EXPECT_NE(refused(L"SELECT * FROM sqlite_master").find(L"sqlite_master"), std::wstring::npos);
    for (const wchar_t* sql : {L"SELECT NINCS FROM T", L"SELECT [NINCS] FROM T", L"SELECT ID FROM T WHERE NINCS=1", L"SELECT ID FROM T WHERE [NINCS]='a'",
                               L"SELECT ID FROM T ORDER BY NINCS", L"INSERT INTO T (NINCS) VALUES (1)", L"UPDATE T SET NINCS=1", L"UPDATE T SET ID=NINCS",
                               L"DELETE * FROM T WHERE NINCS=1", L"SELECT MAX(NINCS) FROM T", L"SELECT `NINCS` FROM T"})
        EXPECT_NE(refused(sql).find(L"NINCS"), std::wstring::npos);
    for (const wchar_t* hidden : {L"rowid", L"oid", L"_rowid_", L"c0"})
        refused(std::wstring(L"SELECT ") + hidden + L" FROM T");
}

TEST_F(SqlDialect, a_text_of_255_characters_fits_and_one_more_is_refused) {
    run(L"INSERT INTO T (ID,NEV) VALUES (4,'" + std::wstring(255, L'ű') + L"')");
    EXPECT_NE(refused(L"INSERT INTO T (ID,NEV) VALUES (5,'" + std::wstring(256, L'a') + L"')").find(L"255"), std::wstring::npos);
    EXPECT_NE(refused(L"UPDATE T SET NEV='" + std::wstring(256, L'ű') + L"' WHERE ID=1").find(L"NEV"), std::wstring::npos);
    // A character beyond the basic plane takes two places of an Access field.
    refused(L"INSERT INTO T (ID,NEV) VALUES (5,'" + std::wstring(128, L'\U0001F6A6') + L"')");
    run(L"INSERT INTO T (ID,NEV) VALUES (5,'" + std::wstring(127, L'\U0001F6A6') + L"')");
    EXPECT_EQ(rows(L"SELECT * FROM T").size(), 5u);
    EXPECT_EQ(rows(L"SELECT NEV FROM T WHERE ID=1"), (Rows{{L"Alma"}}));
    run(L"CREATE TABLE S (A TEXT(3))");
    run(L"INSERT INTO S VALUES ('abc')");
    refused(L"INSERT INTO S VALUES ('abcd')");
}

TEST_F(SqlDialect, text_that_is_no_unicode_is_refused) {
    for (const wchar_t c : {static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0xDFFF), static_cast<wchar_t>(0x110000), static_cast<wchar_t>(-1)}) {
        refused(std::wstring(L"INSERT INTO T (ID,NEV) VALUES (4,'a") + c + L"')");
        refused(std::wstring(L"SELECT * FROM T WHERE NEV='") + c + L"'");
        refused(std::wstring(L"SELECT * FROM T WHERE [") + c + L"]=1");
        refused(std::wstring(L"SELECT ") + c + L" FROM T");
    }
    EXPECT_EQ(rows(L"SELECT * FROM T").size(), 3u);
}

TEST_F(SqlDialect, values_and_columns_must_pair) {
    refused(L"INSERT INTO T (ID,NEV) VALUES (4)");
    refused(L"INSERT INTO T (ID) VALUES (4,5)");
    refused(L"INSERT INTO T VALUES (4,'a')");
    refused(L"INSERT INTO T (ID,ID) VALUES (4,5)");
    refused(L"UPDATE T SET ID=4, ID=5");
}

TEST_F(SqlDialect, texts_and_numbers_meet_as_access_lets_them) {
    run(L"INSERT INTO T (ID,NEV) VALUES ('4',5)");
    run(L"INSERT INTO T (ID,NEV) VALUES (' 5',2.500000)");
    EXPECT_EQ(rows(L"SELECT ID,NEV FROM T WHERE ID>=4"), (Rows{{L"4", L"5"}, {L"5", L"2.5"}}));
    refused(L"INSERT INTO T (ID) VALUES ('alma')");
    refused(L"INSERT INTO T (ID) VALUES ('')");
    refused(L"SELECT * FROM T WHERE ID='4'");
    refused(L"SELECT * FROM T WHERE NEV=5");
    refused(L"SELECT * FROM T WHERE NEV+1=5");
    refused(L"SELECT * FROM T WHERE NEV");
}

TEST_F(SqlDialect, what_is_no_number_is_no_value) {
    for (const wchar_t* value : {L"nan", L"-nan", L"inf", L"-inf", L"1e999", L"1,5", L"", L"ID", L"'a"})
        refused(std::wstring(L"INSERT INTO T (ID) VALUES (") + value + L")");
}

TEST_F(SqlDialect, only_statements_of_the_dialect_are_run) {
    for (const wchar_t* sql : {L"", L";", L"   ", L"PRAGMA page_size", L"ATTACH DATABASE 'x' AS y", L"VACUUM INTO 'x'", L"BEGIN", L"COMMIT", L"ROLLBACK",
                               L"CREATE VIEW V AS SELECT 1", L"CREATE INDEX I ON T (ID)", L"ALTER TABLE T ADD X NUMBER", L"REPLACE INTO T VALUES (1,'',1)",
                               L"INSERT OR IGNORE INTO T VALUES (1,'',1)", L"SELECT * FROM T UNION SELECT * FROM T", L"SELECT * FROM T LIMIT 1",
                               L"SELECT * FROM T, T", L"SELECT 1", L"SELECT FROM T", L"SELECT * FROM", L"SELECT * T", L"DELETE T", L"UPDATE T ID=1",
                               L"DROP T", L"CREATE TABLE X", L"CREATE TABLE X ()", L"CREATE TABLE X (A)", L"CREATE TABLE X (A NUMBER,)", L"SELECT [ID FROM T",
                               L"SELECT ID FROM T WHERE", L"SELECT ID FROM T WHERE (ID=1", L"SELECT ID FROM T WHERE ID=1)", L"SELECT ID FROM T ORDER ID",
                               L"SELECT ID FROM T -- all", L"SELECT ID /* all */ FROM T", L"SELECT ID FROM T WHERE ID ! 1", L"SELECT ID FROM T WHERE ID=?"})
        refused(sql);
}

TEST_F(SqlDialect, brackets_without_end_are_refused_before_the_stack_is_full) {
    refused(L"SELECT ID FROM T WHERE " + std::wstring(100000, L'(') + L"ID=1" + std::wstring(100000, L')'));
    std::wstring negations, signs;
    for (int i = 0; i < 50000; ++i) {
        negations += L"NOT ";
        signs += L"- ";
    }
    refused(L"SELECT ID FROM T WHERE " + negations + L"ID=1");
    refused(L"SELECT ID FROM T WHERE ID=" + signs + L"ID");
}

TEST_F(SqlDialect, a_table_or_column_that_stands_is_not_made_again) {
    EXPECT_NE(refused(L"CREATE TABLE t (X NUMBER)").find(L"létezik"), std::wstring::npos);
    refused(L"CREATE TABLE X (A NUMBER, a TEXT)");
    refused(L"CREATE TABLE X (A ÁBRA)");
    refused(L"CREATE TABLE X (A TEXT(256))");
    refused(L"CREATE TABLE X (A TEXT(0))");
    refused(L"CREATE TABLE [" + std::wstring(65, L'a') + L"] (A NUMBER)");
    refused(L"CREATE TABLE [a.b] (A NUMBER)");
    refused(L"CREATE TABLE [] (A NUMBER)");
    std::wstring columns = L"C0 NUMBER";
    for (int i = 1; i < 256; ++i)
        columns += acFormat(L", C%d NUMBER", i);
    refused(L"CREATE TABLE X (" + columns + L")");
    run(L"CREATE TABLE X (A NUMBER)");
}

TEST_F(SqlDialect, columns_of_every_type_take_what_access_converts) {
    run(L"CREATE TABLE K (B YESNO, Y BYTE, S SHORT, L LONG, C CURRENCY, F SINGLE, D DATETIME, M MEMO, G GUID, N DECIMAL(10,3))");
    run(L"INSERT INTO K VALUES (TRUE,255,-32768,2147483647,12.34567,0.1,'2001-02-03 04:05:06','" + std::wstring(1000, L'm') +
        L"','{01234567-89AB-CDEF-0123-456789ABCDEF}',1234567.8916)");
    EXPECT_EQ(rows(L"SELECT B,Y,S,L,C,F,D,G,N FROM K"),
              (Rows{{L"1", L"255", L"-32768", L"2147483647", L"12.3457", L"0.1", L"2001-02-03 04:05:06", L"{01234567-89AB-CDEF-0123-456789ABCDEF}", L"1234567.892"}}));
    EXPECT_EQ(rows(L"SELECT L FROM K WHERE B AND C=12.3457 AND B=TRUE AND N>1234567.89"), (Rows{{L"2147483647"}}));
    for (const wchar_t* bad : {L"Y) VALUES (256)", L"Y) VALUES (-1)", L"S) VALUES (32768)", L"L) VALUES (2147483648)", L"F) VALUES (1e39)", L"C) VALUES (1e15)",
                               L"D) VALUES ('tegnap')", L"D) VALUES ('2001-02-30')", L"G) VALUES ('x')", L"N) VALUES (12345678)"})
        refused(std::wstring(L"INSERT INTO K (") + bad);
    run(L"INSERT INTO K (B,L) VALUES (NULL,2.5)");
    EXPECT_EQ(rows(L"SELECT B,L FROM K WHERE Y IS NULL"), (Rows{{L"0", L"2"}}));
    database.Close();
    OpenDatabase again(path);
    EXPECT_EQ(rowsOf(again, L"SELECT B,Y,S,L,C,F,D,G,N FROM K WHERE Y=255"),
              (Rows{{L"1", L"255", L"-32768", L"2147483647", L"12.3457", L"0.1", L"2001-02-03 04:05:06", L"{01234567-89AB-CDEF-0123-456789ABCDEF}", L"1234567.892"}}));
    EXPECT_EQ(rowsOf(again, L"SELECT M FROM K WHERE Y=255"), (Rows{{std::wstring(1000, L'm')}}));
}

TEST_F(SqlDialect, an_update_reckons_with_the_old_values) {
    run(L"UPDATE T SET ID=ID*10+1, [BY]=ID WHERE ID>1");
    EXPECT_EQ(rows(L"SELECT ID,[BY] FROM T"), (Rows{{L"1", L"2.5"}, {L"21", L"2"}, {L"31", L"3"}}));
    refused(L"UPDATE T SET NEV=ID");
    run(L"UPDATE T SET NEV=NULL, [BY]=NULL");
    EXPECT_EQ(rows(L"SELECT NEV,[BY] FROM T WHERE ID=1"), (Rows{{L"-", L"-"}}));
}
} // namespace

TEST(SqlStatements, statements_of_another_meaning_never_share_a_plan) {
    const std::wstring path = newDatabase();
    OpenDatabase database(path);
    database.ExecuteSQL(L"CREATE TABLE T (ID NUMBER, IDl NUMBER, [A=] NUMBER)");
    database.ExecuteSQL(L"INSERT INTO T VALUES (1,2,3)");
    EXPECT_EQ(rowsOf(database, L"SELECT ID FROM T WHERE ID<=1").size(), 1u);
    refusal(database, L"SELECT ID FROM T WHERE IDl 1");
    EXPECT_EQ(rowsOf(database, L"SELECT ID FROM T WHERE ID>=1").size(), 1u);
    refusal(database, L"SELECT ID FROM T WHERE IDg 1");
    EXPECT_EQ(rowsOf(database, L"SELECT ID FROM T WHERE [A=]=3").size(), 1u);
    refusal(database, L"SELECT ID FROM T WHERE [A]==3");
}

TEST(SqlStatements, a_yes_no_column_that_is_left_out_is_false_at_once) {
    const std::wstring path = newDatabase();
    OpenDatabase database(path);
    database.ExecuteSQL(L"CREATE TABLE T (ID NUMBER, B YESNO)");
    database.ExecuteSQL(L"INSERT INTO T (ID) VALUES (1)");
    EXPECT_EQ(rowsOf(database, L"SELECT * FROM T WHERE B=FALSE"), (Rows{{L"1", L"0"}}));
}

TEST(SqlStatements, a_table_name_without_a_place_in_the_file_s_order_is_refused_when_it_is_made) {
    const std::wstring path = newDatabase();
    {
        OpenDatabase database(path);
        database.ExecuteSQL(L"CREATE TABLE JO (ID NUMBER)");
        for (const wchar_t* name : {L"m²", L"a³", L"a–b", L"§5", L"ß", L"„idézet”", L"ж"})
            refusal(database, std::wstring(L"CREATE TABLE [") + name + L"] (ID NUMBER)");
        database.ExecuteSQL(L"CREATE TABLE Árvíztűrő_2 ([m²] NUMBER)"); // columns stand in no order
        database.Close();
    }
    EXPECT_EQ(violations(path), "");
    OpenDatabase again(path);
    rowsOf(again, L"SELECT [m²] FROM Árvíztűrő_2");
    rowsOf(again, L"SELECT * FROM JO");
}

TEST(SqlStatements, an_error_names_its_statement) {
    const std::wstring path = newDatabase();
    OpenDatabase database(path);
    database.ExecuteSQL(L"CREATE TABLE T (ID NUMBER)");
    EXPECT_NE(refusal(database, L"INSERT INTO T VALUES ('a')").find(L"INSERT INTO T VALUES ('a')"), std::wstring::npos);
    EXPECT_NE(refusal([&] { rowsOf(database, L"SELECT X FROM T"); }).find(L"SELECT X FROM T"), std::wstring::npos);
    const std::wstring text = refusal(database, L"INSERT INTO T VALUES ('" + std::wstring(5000, L'a') + L"')");
    EXPECT_LT(text.size(), 400u); // and not all of a long one
}
