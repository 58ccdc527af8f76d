// Every statement that exchanging programs send, on the tables they send it to.
#include "ExchangeTables.h"
#include "OdbcTestSupport.h"

namespace {
class ExchangeStatements : public testing::Test {
protected:
    void SetUp() override {
        for (const ExchangeTable& table : exchangeTables())
            database.ExecuteSQL(table.create);
    }
    void run(const wchar_t* sql) { database.ExecuteSQL(sql); }
    Rows rows(const wchar_t* sql) { return rowsOf(database, sql); }
    // A row of numbers from `first` on, and texts t1, t2 ...; the statement as it is built from columns.
    void insertRow(const ExchangeTable& table, int first) {
        CRecordset set(&database);
        set.Open(CRecordset::snapshot, (std::wstring(L"SELECT * FROM ") + table.name).c_str(), CRecordset::readOnly);
        std::wstring names, values;
        for (short i = 0; i < set.GetODBCFieldCount(); ++i) {
            CODBCFieldInfo info;
            set.GetODBCFieldInfo(i, info);
            names += (names.empty() ? L"" : L",") + (L"[" + info.m_strName.text() + L"]");
            values += values.empty() ? L"" : L",";
            values += info.m_nSQLType == SQL_DOUBLE ? acFormat(L"%f", first + i / 8.0) : acFormat(L"'t%d'", static_cast<int>(i));
        }
        database.ExecuteSQL((std::wstring(L"INSERT INTO [") + table.name + L"] (" + names + L") VALUES (" + values + L")").c_str());
    }
    std::wstring path = newDatabase();
    OpenDatabase database{path};
};

TEST_F(ExchangeStatements, every_table_is_made_filled_counted_and_comes_back_from_the_file) {
    for (const ExchangeTable& table : exchangeTables())
        for (int i = 0; i < 3; ++i)
            insertRow(table, i);
    std::vector<Rows> before;
    for (const ExchangeTable& table : exchangeTables()) {
        before.push_back(rows((std::wstring(L"SELECT * FROM ") + table.name).c_str()));
        ASSERT_EQ(before.back().size(), 3u);
        EXPECT_EQ(before.back()[0].size(), table.columns) << acToUtf8(table.name);
    }
    database.Close();
    EXPECT_EQ(violations(path), "");
    OpenDatabase again(path);
    for (std::size_t i = 0; i < exchangeTables().size(); ++i) {
        const std::wstring name = exchangeTables()[i].name;
        EXPECT_EQ(rowsOf(again, L"SELECT * FROM " + name), before[i]);
        EXPECT_EQ(rowsOf(again, L"SELECT count(*) AS CNT FROM " + name), (Rows{{L"3"}}));
    }
}

TEST_F(ExchangeStatements, columns_come_in_their_order_as_doubles_and_texts_of_255) {
    CRecordset set(&database);
    set.Open(2, L"SELECT * FROM KORVANT_OBJ", 4);
    EXPECT_EQ(set.GetODBCFieldCount(), 18);
    CODBCFieldInfo info;
    set.GetODBCFieldInfo(6, info);
    EXPECT_EQ(info.m_strName, L"BY");
    EXPECT_EQ(info.m_nSQLType, SQL_DOUBLE);
    set.GetODBCFieldInfo(L"obj_tip", info);
    EXPECT_EQ(info.m_nSQLType, SQL_WVARCHAR);
    EXPECT_EQ(info.m_nPrecision, 255u);
}

TEST_F(ExchangeStatements, settings_take_a_literal_row_each) {
    run(L"INSERT INTO SETTINGS (NEV,ERTEK) VALUES ('VERSION', '11.0.0')");
    run(L"INSERT INTO SETTINGS (NEV,ERTEK) VALUES ('CROSSWALK_DEFAULT_TYPE', '2')");
    run(L"INSERT INTO SETTINGS (NEV,ERTEK) VALUES ('ANNO_LINE_TYPE', 'Árvíztűrő \\ tükörfúrógép')");
    EXPECT_EQ(rows(L"SELECT * FROM SETTINGS"),
              (Rows{{L"VERSION", L"11.0.0"}, {L"CROSSWALK_DEFAULT_TYPE", L"2"}, {L"ANNO_LINE_TYPE", L"Árvíztűrő \\ tükörfúrógép"}}));
}

TEST_F(ExchangeStatements, rows_inside_strict_bounds_are_selected_with_columns_called_as_keywords) {
    run(L"INSERT INTO [KORVANT_OBJ] ([ID],[AX],[AY],[BX],[BY]) VALUES (1,10.000000,-20.500000,1.000000,-2.000000)");
    run(L"INSERT INTO [KORVANT_OBJ] ([ID],[AX],[AY]) VALUES (2,0.000000,-20.500000)");
    EXPECT_EQ(rows(L"SELECT * FROM KORVANT_OBJ WHERE (AX>0.000000 AND AX<11.000000 AND AY>-21.000000 AND AY<-20.000000)").size(), 1u);
    EXPECT_EQ(rows(L"SELECT * FROM KORVANT_OBJ WHERE (AX>-999999999.000000 AND AX<999999999.000000 AND AY>-999999999.000000 AND AY<999999999.000000)").size(), 2u);
    for (const wchar_t* table : {L"BLOKK", L"OSZLOP"})
        EXPECT_TRUE(rows((std::wstring(L"SELECT * FROM ") + table + L" WHERE (PX>1.000000 AND PX<2.000000 AND PY>-1.500000 AND PY<0.000000)").c_str()).empty());
    EXPECT_TRUE(rows(L"SELECT * FROM GYALOGATKELO WHERE (AX>0.000000 AND AX<1.000000 AND AY>0.000000 AND AY<1.000000)").empty());
    run(L"INSERT INTO [ZEBRA] ([ID],[BX],[BY]) VALUES (1,1.500000,-1.500000)");
    EXPECT_EQ(rows(L"SELECT * FROM ZEBRA WHERE (BX>1.000000 AND BX<2.000000 AND BY>-2.000000 AND BY<-1.000000)").size(), 1u);
    EXPECT_TRUE(rows(L"SELECT * FROM ZEBRA WHERE (BX>1.500000 AND BX<2.000000 AND BY>-2.000000 AND BY<-1.000000)").empty());
}

TEST_F(ExchangeStatements, deletions_take_the_rows_of_one_key_or_all) {
    struct Deletion {
        const wchar_t* table;
        const wchar_t* key;
    };
    const Deletion deletions[] = {
        {L"KORVANT_OBJ", L"ID"},           {L"KORVANT_OBJ_SCALE", L"OBJ_ID"},
        {L"BLOKK_ATTRIBUTUM", L"BLOKK_ID"}, {L"BLOKK_FELIRAT", L"BLOKK_ID"},
        {L"BLOKK", L"ID"},                 {L"OSZLOP", L"ID"},
        {L"OSZLOP_ATTRIBUTUM", L"OSZLOP_ID"}, {L"OSZLOP_FELIRAT", L"OSZLOP_ID"},
        {L"FELIRAT", L"TABLA_ID"},         {L"ATTRIBUTUM", L"TABLA_ID"},
        {L"TABLA", L"ID"},                 {L"GYALOGATKELO_PONTOK", L"GYALOGATKELO_ID"},
        {L"GYALOGATKELO_ELEMEK", L"GYALOGATKELO_ID"}, {L"GYALOGATKELO", L"ID"},
    };
    for (const auto& [table, key] : deletions) {
        const std::wstring name = table;
        for (int id = 1; id <= 3; ++id)
            database.ExecuteSQL(acFormat(L"INSERT INTO [%s] ([%s]) VALUES (%d)", table, key, id).c_str());
        database.ExecuteSQL(acFormat(L"DELETE * FROM %s WHERE (%s=%d)", table, key, 2).c_str());
        EXPECT_EQ(rowsOf(database, L"SELECT " + std::wstring(key) + L" FROM " + name), (Rows{{L"1"}, {L"3"}})) << acToUtf8(name);
    }
    for (const wchar_t* table : {L"KORVANT_OBJ", L"KORVANT_OBJ_SCALE", L"BLOKK_ATTRIBUTUM", L"BLOKK_FELIRAT", L"BLOKK", L"OSZLOP", L"OSZLOP_ATTRIBUTUM",
                                 L"OSZLOP_FELIRAT", L"FELIRAT", L"ATTRIBUTUM", L"TABLA", L"ZEBRA", L"ZEBRA_ELEMEK", L"ZEBRA_PONTOK"}) {
        database.ExecuteSQL((std::wstring(L"DELETE * FROM ") + table).c_str());
        EXPECT_TRUE(rowsOf(database, std::wstring(L"SELECT * FROM ") + table).empty());
    }
    EXPECT_EQ(rows(L"SELECT * FROM GYALOGATKELO").size(), 2u);
}

TEST_F(ExchangeStatements, the_highest_key_is_a_double_and_empty_in_an_empty_table) {
    for (const wchar_t* table : {L"KORVANT_OBJ", L"OSZLOP", L"OSZLOP_ATTRIBUTUM", L"OSZLOP_FELIRAT", L"TABLA", L"BLOKK", L"ATTRIBUTUM", L"FELIRAT",
                                 L"BLOKK_ATTRIBUTUM", L"ZEBRA", L"ZEBRA_ELEMEK", L"ZEBRA_PONTOK", L"GYALOGATKELO", L"GYALOGATKELO_ELEMEK",
                                 L"GYALOGATKELO_PONTOK"}) {
        const std::wstring sql = std::wstring(L"SELECT MAX(ID) AS MID FROM ") + table;
        CDBVariant value;
        CRecordset empty(&database);
        empty.Open(CRecordset::snapshot, sql.c_str(), CRecordset::readOnly);
        ASSERT_FALSE(empty.IsEOF());
        empty.GetFieldValue(L"MID", value);
        EXPECT_EQ(value.m_dwType, DBVT_NULL);
        for (const int id : {4, 17, 9})
            database.ExecuteSQL(acFormat(L"INSERT INTO [%s] ([ID]) VALUES (%d)", table, id).c_str());
        CRecordset filled(&database);
        filled.Open(CRecordset::snapshot, sql.c_str(), CRecordset::readOnly);
        filled.GetFieldValue(L"MID", value);
        ASSERT_EQ(value.m_dwType, DBVT_DOUBLE);
        EXPECT_EQ(value.m_dblVal, 17.0);
    }
}

TEST_F(ExchangeStatements, distinct_scales_and_the_order_of_rows) {
    for (const int scale : {1000, 500, 1000, 200, 500})
        database.ExecuteSQL(acFormat(L"INSERT INTO [KORVANT_OBJ_SCALE] ([ID],[OBJ_ID],[LEPTEK]) VALUES (1,%d,%d)", scale, scale).c_str());
    EXPECT_EQ(rows(L"SELECT DISTINCT LEPTEK FROM KORVANT_OBJ_SCALE").size(), 3u);
    EXPECT_EQ(rows(L"SELECT * FROM KORVANT_OBJ_SCALE WHERE OBJ_ID=500").size(), 2u);

    run(L"INSERT INTO [OSZLOP] ([OBJ_ID],[OSZLOP_SZAM]) VALUES (7,2)");
    run(L"INSERT INTO [OSZLOP] ([OBJ_ID],[OSZLOP_SZAM]) VALUES (7,1)");
    const Rows posts = rows(L"SELECT * FROM OSZLOP WHERE OBJ_ID=7 ORDER BY OSZLOP_SZAM");
    ASSERT_EQ(posts.size(), 2u);
    EXPECT_EQ(posts[0][2], L"1");
    EXPECT_EQ(rows(L"SELECT * FROM OSZLOP WHERE OBJ_ID=7").size(), 2u);

    for (const auto& [group, number] : {std::pair(2, 1), {1, 10}, {1, 2}, {2, 0}})
        database.ExecuteSQL(acFormat(L"INSERT INTO [TABLA] ([OBJ_ID],[CSOPORT],[SORSZAM]) VALUES (7,%d,%d)", group, number).c_str());
    const Rows plates = rows(L"SELECT * FROM TABLA WHERE OBJ_ID=7 ORDER BY CSOPORT, SORSZAM");
    Rows order;
    for (const auto& plate : plates)
        order.push_back({plate[3], plate[4]});
    EXPECT_EQ(order, (Rows{{L"1", L"2"}, {L"1", L"10"}, {L"2", L"0"}, {L"2", L"1"}}));

    for (const int id : {30, 2, 11})
        database.ExecuteSQL(acFormat(L"INSERT INTO [ZEBRA_PONTOK] ([ID],[ELEM_ID]) VALUES (%d,5)", id).c_str());
    const Rows points = rows(L"SELECT * FROM ZEBRA_PONTOK WHERE ELEM_ID=5 ORDER BY ID");
    ASSERT_EQ(points.size(), 3u);
    EXPECT_EQ(points[2][0], L"30");
}

TEST_F(ExchangeStatements, rows_of_one_owner_are_found_in_every_table) {
    struct Link {
        const wchar_t* table;
        const wchar_t* key;
    };
    for (const auto& [table, key] : {Link{L"TABLA", L"OBJ_ID"}, {L"FELIRAT", L"TABLA_ID"}, {L"ATTRIBUTUM", L"TABLA_ID"}, {L"BLOKK_FELIRAT", L"BLOKK_ID"},
                                     {L"BLOKK_ATTRIBUTUM", L"BLOKK_ID"}, {L"OSZLOP_ATTRIBUTUM", L"OSZLOP_ID"}, {L"OSZLOP_FELIRAT", L"OSZLOP_ID"},
                                     {L"KORVANT_OBJ_SCALE", L"OBJ_ID"}, {L"ZEBRA", L"ID"}, {L"GYALOGATKELO_PONTOK", L"GYALOGATKELO_ID"}}) {
        for (int i = 0; i < 200; ++i) // enough for an index to be made on the way
            database.ExecuteSQL(acFormat(L"INSERT INTO [%s] ([%s]) VALUES (%d)", table, key, i / 2).c_str());
        for (const int owner : {0, 42, 99, 100})
            EXPECT_EQ(rowsOf(database, acFormat(L"SELECT * FROM %s WHERE %s=%d", table, key, owner)).size(), owner == 100 ? 0u : 2u) << acToUtf8(table);
        EXPECT_EQ(rowsOf(database, acFormat(L"SELECT * FROM %s WHERE (%s=%d)", table, key, 7)).size(), 2u);
    }
}

TEST_F(ExchangeStatements, a_coinciding_post_is_noted_by_both_its_keys) {
    run(L"INSERT INTO [OSZLOP] ([ID],[OBJ_ID],[OSZLOP_SZAM]) VALUES (1,5,1)");
    run(L"INSERT INTO [OSZLOP] ([ID],[OBJ_ID],[OSZLOP_SZAM]) VALUES (2,5,2)");
    run(L"UPDATE OSZLOP SET OSZLOPEGYEZES=3, OSZLOPE_SZAM=1 WHERE OBJ_ID=5 AND OSZLOP_SZAM=2");
    EXPECT_EQ(rows(L"SELECT ID,OSZLOPEGYEZES,OSZLOPE_SZAM FROM OSZLOP"), (Rows{{L"1", L"-", L"-"}, {L"2", L"3", L"1"}}));
}

// The rows are found again by their own numbers, as six decimals write them.
TEST_F(ExchangeStatements, keys_are_changed_in_rows_found_by_keys_and_six_decimals) {
    struct Change {
        const wchar_t* insert;
        const wchar_t* select;
        const wchar_t* update;
        std::size_t changed;
    };
    const Change changes[] = {
        {L"INSERT INTO [KORVANT_OBJ] ([ID],[KULSO_ID],[AX]) VALUES (1,2,0.100000)", L"SELECT ID, KULSO_ID, AX FROM KORVANT_OBJ",
         L"UPDATE KORVANT_OBJ SET ID=11, KULSO_ID=12 WHERE ID=1 AND AX=0.100000", 2},
        {L"INSERT INTO [KORVANT_OBJ_SCALE] ([ID],[OBJ_ID],[E0X],[LEPTEK]) VALUES (1,2,-650123.456789,500)",
         L"SELECT ID, OBJ_ID, E0X, LEPTEK FROM KORVANT_OBJ_SCALE",
         L"UPDATE KORVANT_OBJ_SCALE SET ID=11, OBJ_ID=12 WHERE ID=1 AND OBJ_ID=2 AND E0X=-650123.456789 AND LEPTEK=500.000000", 2},
        {L"INSERT INTO [OSZLOP] ([ID],[OBJ_ID],[OSZLOP_SZAM],[OSZLOPEGYEZES],[OSZLOPE_SZAM],[PX]) VALUES (1,2,1,4,5,650000.123457)",
         L"SELECT * FROM OSZLOP",
         L"UPDATE OSZLOP SET ID=11, OBJ_ID=12, OSZLOP_SZAM=13, OSZLOPEGYEZES=14, OSZLOPE_SZAM=15 WHERE ID=1 AND OBJ_ID=2 AND OSZLOP_SZAM=1 AND "
         L"OSZLOPEGYEZES=4 AND OSZLOPE_SZAM=5 AND PX=650000.123457",
         5},
        {L"INSERT INTO [TABLA] ([ID],[OBJ_ID],[CSOPORT],[SORSZAM],[PX]) VALUES (1,2,3,4,0.333333)", L"SELECT * FROM TABLA",
         L"UPDATE TABLA SET ID=11, OBJ_ID=12, CSOPORT=13, SORSZAM=14, KIEG_SORSZAM=0 WHERE ID=1 AND OBJ_ID=2 AND CSOPORT=3 AND SORSZAM=4 AND PX=0.333333", 4},
        {L"INSERT INTO [BLOKK] ([ID],[KULSO_ID],[PX]) VALUES (1,0,0.000000)", L"SELECT * FROM BLOKK",
         L"UPDATE BLOKK SET ID=11, KULSO_ID=0 WHERE ID=1 AND PX=0.000000", 1},
        {L"INSERT INTO [FELIRAT] ([ID],[TABLA_ID],[PX]) VALUES (1,2,1.500000)", L"SELECT * FROM FELIRAT",
         L"UPDATE FELIRAT SET ID=11, TABLA_ID=12 WHERE ID=1 AND TABLA_ID=2 AND PX=1.500000", 2},
        {L"INSERT INTO [OSZLOP_FELIRAT] ([ID],[OSZLOP_ID],[FX]) VALUES (1,2,1.500000)", L"SELECT * FROM OSZLOP_FELIRAT",
         L"UPDATE OSZLOP_FELIRAT SET ID=11, OSZLOP_ID=12 WHERE ID=1 AND OSZLOP_ID=2 AND FX=1.500000", 2},
        {L"INSERT INTO [ATTRIBUTUM] ([ID],[TABLA_ID],[ERTEK]) VALUES (1,2,'fényvisszaverő')", L"SELECT * FROM ATTRIBUTUM",
         L"UPDATE ATTRIBUTUM SET ID=11, TABLA_ID=12 WHERE ID=1 AND TABLA_ID=2 AND ERTEK='fényvisszaverő'", 2},
        {L"INSERT INTO [BLOKK_ATTRIBUTUM] ([ID],[BLOKK_ID],[ERTEK]) VALUES (1,2,'')", L"SELECT * FROM BLOKK_ATTRIBUTUM",
         L"UPDATE BLOKK_ATTRIBUTUM SET ID=11, BLOKK_ID=12 WHERE ID=1 AND BLOKK_ID=2 AND ERTEK=''", 2},
        {L"INSERT INTO [OSZLOP_ATTRIBUTUM] ([ID],[OSZLOP_ID],[ERTEK]) VALUES (1,2,'a')", L"SELECT * FROM OSZLOP_ATTRIBUTUM",
         L"UPDATE OSZLOP_ATTRIBUTUM SET ID=11, OSZLOP_ID=12 WHERE ID=1 AND OSZLOP_ID=2 AND ERTEK='a'", 2},
        {L"INSERT INTO [BLOKK_FELIRAT] ([ID],[BLOKK_ID]) VALUES (1,2)", L"SELECT * FROM BLOKK_FELIRAT",
         L"UPDATE BLOKK_FELIRAT SET ID=11, BLOKK_ID=12 WHERE ID=1 AND BLOKK_ID=2", 2},
        {L"INSERT INTO [ZEBRA] ([ID]) VALUES (1)", L"SELECT * FROM ZEBRA", L"UPDATE ZEBRA SET ID=11 WHERE ID=1", 1},
        {L"INSERT INTO [ZEBRA_ELEMEK] ([ID],[ZEBRA_ID]) VALUES (1,2)", L"SELECT * FROM ZEBRA_ELEMEK",
         L"UPDATE ZEBRA_ELEMEK SET ID=11, ZEBRA_ID=12 WHERE ID=1 AND ZEBRA_ID=2", 2},
        {L"INSERT INTO [ZEBRA_PONTOK] ([ID],[ELEM_ID]) VALUES (1,2)", L"SELECT * FROM ZEBRA_PONTOK",
         L"UPDATE ZEBRA_PONTOK SET ID=11, ELEM_ID=12 WHERE ID=1 AND ELEM_ID=2", 2},
        {L"INSERT INTO [GYALOGATKELO] ([ID]) VALUES (1)", L"SELECT * FROM GYALOGATKELO", L"UPDATE GYALOGATKELO SET ID=11 WHERE ID=1", 1},
        {L"INSERT INTO [GYALOGATKELO_ELEMEK] ([ID],[GYALOGATKELO_ID]) VALUES (1,2)", L"SELECT * FROM GYALOGATKELO_ELEMEK",
         L"UPDATE GYALOGATKELO_ELEMEK SET ID=11, GYALOGATKELO_ID=12 WHERE ID=1 AND GYALOGATKELO_ID=2", 2},
        {L"INSERT INTO [GYALOGATKELO_PONTOK] ([ID],[ELEM_ID],[GYALOGATKELO_ID]) VALUES (1,2,3)", L"SELECT * FROM GYALOGATKELO_PONTOK",
         L"UPDATE GYALOGATKELO_PONTOK SET ID=11, ELEM_ID=12, GYALOGATKELO_ID=13 WHERE ID=1 AND ELEM_ID=2 AND GYALOGATKELO_ID=3", 3},
    };
    for (const Change& change : changes) {
        run(change.insert);
        run(change.update);
        const Rows after = rows(change.select);
        ASSERT_EQ(after.size(), 1u);
        std::size_t changed = 0;
        for (const std::wstring& field : after[0])
            changed += field.size() == 2 && field[0] == L'1' ? 1 : 0;
        EXPECT_EQ(changed, change.changed) << acToUtf8(change.update);
    }
}

TEST_F(ExchangeStatements, an_absent_column_of_a_filled_table_is_refused_when_it_is_read) {
    run(L"INSERT INTO [GYALOGATKELO_ELEMEK] ([ID]) VALUES (1)");
    CRecordset set(&database);
    set.Open(CRecordset::snapshot, L"SELECT * FROM GYALOGATKELO_ELEMEK", CRecordset::readOnly);
    CDBVariant value;
    EXPECT_NE(refusal([&] { set.GetFieldValue(L"HANDLE", value); }).find(L"HANDLE"), std::wstring::npos);
}

TEST_F(ExchangeStatements, tables_are_dropped_and_made_again) {
    for (const wchar_t* sql : {L"DROP TABLE GYALOGATKELO", L"DROP TABLE GYALOGATKELO_ELEMEK", L"DROP TABLE GYALOGATKELO_PONTOK"})
        run(sql);
    EXPECT_NE(refusal(database, L"SELECT count(*) AS CNT FROM GYALOGATKELO").find(L"GYALOGATKELO"), std::wstring::npos);
    run(L"CREATE TABLE GYALOGATKELO (ID NUMBER, HANDLE TEXT, KIHELY_TIP TEXT, HOSSZ NUMBER, SZELESSEG NUMBER, AX NUMBER, AY NUMBER, BX NUMBER, BY NUMBER, "
        L"CX NUMBER, CY NUMBER, EX NUMBER, EY NUMBER, ELFORG NUMBER, RETEG TEXT, TERULET NUMBER, KULSO_ID NUMBER, KEREKPAROS TEXT)");
    CRecordset set(&database);
    set.Open(CRecordset::snapshot, L"SELECT * FROM GYALOGATKELO", CRecordset::readOnly);
    EXPECT_EQ(set.GetODBCFieldCount(), 18);
}
} // namespace
