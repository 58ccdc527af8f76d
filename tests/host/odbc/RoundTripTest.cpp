// What is in the tables when a database is closed is there when it is opened again.
#include "OdbcTestSupport.h"

#include "AcPath.h"
#include "jet/JetReader.h"
#include "jet/JetWriter.h"

#include <cmath>
#include <limits>
#include <map>
#include <rapidcheck/gtest.h>

namespace {
using odbc::ColumnKind;
using odbc::StoreCell;
using odbc::StoreColumn;
using odbc::StoreTable;

struct Change {
    enum class Kind { Insert, Update, Delete, Reopen } kind;
    int id;
    double number;
    std::wstring text;
};

std::wstring quoted(const std::wstring& text) {
    std::wstring result = L"'";
    for (const wchar_t c : text)
        result.append(c == L'\'' ? 2 : 1, c);
    return result + L"'";
}

rc::Gen<std::wstring> texts() {
    const auto letters = rc::gen::element(L'a', L'Z', L'ő', L'Ű', L' ', L'\'', L'"', L'[', L'\\', L';', L'\t', L'漢', L'\U0001F6A6');
    return rc::gen::container<std::wstring>(letters);
}

rc::Gen<Change> changes() {
    return rc::gen::construct<Change>(
        rc::gen::weightedElement<Change::Kind>({{8, Change::Kind::Insert}, {4, Change::Kind::Update}, {3, Change::Kind::Delete}, {1, Change::Kind::Reopen}}),
        rc::gen::inRange(0, 6), rc::gen::arbitrary<double>(), texts());
}

// Fields by id; ids repeat, as nothing forbids it.
using Model = std::multimap<int, std::pair<double, std::wstring>>;

Model modelOf(CDatabase& database) {
    Model model;
    CRecordset set(&database);
    set.Open(CRecordset::snapshot, L"SELECT * FROM T", CRecordset::readOnly);
    for (; !set.IsEOF(); set.MoveNext()) {
        CDBVariant id, number, text;
        set.GetFieldValue(L"ID", id);
        set.GetFieldValue(L"N", number);
        set.GetFieldValue(L"S", text);
        model.emplace(static_cast<int>(id.m_dblVal), std::pair(number.m_dblVal, text.m_pstringW->text()));
    }
    return model;
}

void applyToModel(Model& model, const Change& change) {
    switch (change.kind) {
    case Change::Kind::Insert:
        model.emplace(change.id, std::pair(change.number, change.text));
        break;
    case Change::Kind::Update:
        for (auto [at, end] = model.equal_range(change.id); at != end; ++at)
            at->second = {change.number, change.text};
        break;
    case Change::Kind::Delete:
        model.erase(change.id);
        break;
    case Change::Kind::Reopen:
        break;
    }
}

std::wstring statementOf(const Change& change) {
    const std::wstring number = acFormat(L"%.17g", change.number), text = quoted(change.text.substr(0, 120));
    switch (change.kind) {
    case Change::Kind::Insert:
        return acFormat(L"INSERT INTO T (ID,N,S) VALUES (%d,", change.id) + number + L"," + text + L")";
    case Change::Kind::Update:
        return L"UPDATE T SET N=" + number + L", S=" + text + acFormat(L" WHERE ID=%d", change.id);
    default:
        return acFormat(L"DELETE * FROM T WHERE (ID=%d)", change.id);
    }
}

RC_GTEST_PROP(RoundTrip, any_sequence_of_changes_gives_the_rows_of_a_plain_map, ()) {
    static const std::wstring folder = testTempDir();
    static int count = 0;
    const std::wstring path = newDatabase(folder, acFormat(L"%d.mdb", ++count));
    CDatabase database;
    database.Open(nullptr, FALSE, FALSE, accessConnect(path).c_str());
    database.ExecuteSQL(L"CREATE TABLE T (ID NUMBER, N NUMBER, S TEXT)");
    Model model;
    const auto sequence = *rc::gen::container<std::vector<Change>>(changes());
    for (Change change : sequence) {
        change.text.resize(std::min<std::size_t>(change.text.size(), 120));
        applyToModel(model, change);
        if (change.kind == Change::Kind::Reopen) {
            database.Close();
            database.Open(nullptr, FALSE, FALSE, accessConnect(path).c_str());
        } else {
            database.ExecuteSQL(statementOf(change).c_str());
        }
    }
    database.Close();
    RC_ASSERT(violations(path) == "");
    database.Open(nullptr, FALSE, FALSE, accessConnect(path).c_str());
    Model found = modelOf(database);
    // Rows of one id have no order.
    const auto sorted = [](const Model& rows) {
        std::vector<std::pair<int, std::pair<double, std::wstring>>> list(rows.begin(), rows.end());
        std::sort(list.begin(), list.end());
        return list;
    };
    RC_ASSERT(sorted(found) == sorted(model));
}

// Keeps what it is given.
struct Recorder : odbc::TableSink {
    struct Cell {
        StoreCell::Type type;
        std::int64_t integer;
        double real;
        std::string bytes;
        friend bool operator==(const Cell&, const Cell&) = default;
    };
    std::map<std::string, StoreTable> tables;
    std::map<std::string, std::vector<std::vector<Cell>>> rows;
    std::string current;
    void beginTable(const StoreTable& table) override {
        current = table.name;
        tables[current] = table;
        rows[current];
    }
    void row(std::span<const StoreCell> cells) override {
        auto& kept = rows[current].emplace_back();
        for (const StoreCell& cell : cells)
            kept.push_back({cell.type, cell.integer, cell.real, std::string(cell.bytes)});
    }
    void endTable() override {}
};

Recorder recorded(const std::wstring& path) {
    Recorder recorder;
    odbc::readJet(acFileSystemPath(path), recorder);
    return recorder;
}

// A database as others make them: every type, empty fields, names with blanks and capitals.
void writeForeign(const std::wstring& path) {
    odbc::JetWriter writer(acFileSystemPath(path));
    const StoreTable all{"Minden Típus",
                         {{"Bool", ColumnKind::Bool, 0, 0, 0},
                          {"Byte", ColumnKind::Byte, 0, 0, 0},
                          {"Short", ColumnKind::Short, 0, 0, 0},
                          {"Long", ColumnKind::Long, 0, 0, 0},
                          {"Currency", ColumnKind::Currency, 0, 0, 0},
                          {"Single", ColumnKind::Single, 0, 0, 0},
                          {"Double", ColumnKind::Double, 0, 0, 0},
                          {"Date", ColumnKind::Date, 0, 0, 0},
                          {"Binary", ColumnKind::Binary, 20, 0, 0},
                          {"Szöveg", ColumnKind::Text, 50, 0, 0},
                          {"Ole", ColumnKind::Ole, 0, 0, 0},
                          {"Memo", ColumnKind::Memo, 0, 0, 0},
                          {"Guid", ColumnKind::Guid, 0, 0, 0},
                          {"Numeric", ColumnKind::Numeric, 0, 20, 6}}};
    const std::string ole(20000, '\x7F'), memo(70000, 'm');
    writer.beginTable(all);
    const StoreCell full[] = {StoreCell::of(std::int64_t{1}),
                              StoreCell::of(std::int64_t{255}),
                              StoreCell::of(std::int64_t{-32768}),
                              StoreCell::of(std::int64_t{-2147483647}),
                              StoreCell::text("922337203685477.5807"),
                              StoreCell::of(static_cast<double>(0.1F)),
                              StoreCell::of(-0.1),
                              StoreCell::of(36925.5),
                              StoreCell::blob(std::string_view("\0\x01\xFF", 3)),
                              StoreCell::text("Árvíztűrő"),
                              StoreCell::blob(ole),
                              StoreCell::text(memo),
                              StoreCell::text("{01234567-89AB-CDEF-0123-456789ABCDEF}"),
                              StoreCell::text("-12345678901234.567890")};
    writer.row(full);
    StoreCell empty[14];
    empty[0] = StoreCell::of(std::int64_t{0});
    writer.row(empty);
    StoreCell cents[14];
    cents[0] = StoreCell::of(std::int64_t{0});
    cents[4] = StoreCell::text("-12.3450");
    cents[6] = StoreCell::of(-0.0);
    cents[7] = StoreCell::of(std::numeric_limits<double>::infinity());
    cents[9] = StoreCell::text("");
    cents[13] = StoreCell::text("1.500000");
    writer.row(cents);
    writer.endTable();
    writer.beginTable({"Üres", {{"A", ColumnKind::Double, 0, 0, 0}}});
    writer.endTable();
    writer.beginTable({"Bits", {{"A", ColumnKind::Double, 0, 0, 0}}});
    const StoreCell nan[] = {StoreCell::of(std::numeric_limits<double>::quiet_NaN())};
    writer.row(nan);
    writer.endTable();
    writer.beginTable({"Other", {{"A", ColumnKind::Double, 0, 0, 0}}});
    writer.endTable();
    writer.finish();
}

TEST(Foreign, tables_of_every_type_survive_a_change_in_another_one) {
    const std::wstring path = testTempDir() + L"\\foreign.mdb";
    writeForeign(path);
    const Recorder before = recorded(path);
    OpenDatabase database(path);
    database.ExecuteSQL(L"INSERT INTO Other (A) VALUES (1.5)");
    database.ExecuteSQL(L"CREATE TABLE Fresh (A NUMBER)");
    database.Close();
    EXPECT_EQ(violations(path), "");
    const Recorder after = recorded(path);
    EXPECT_EQ(after.tables.size(), 5u);
    for (const char* name : {"Minden Típus", "Üres"}) {
        EXPECT_EQ(after.tables.at(name), before.tables.at(name));
        EXPECT_EQ(after.rows.at(name), before.rows.at(name)) << name;
    }
    ASSERT_EQ(after.rows.at("Other").size(), 1u);
    EXPECT_TRUE(std::signbit(after.rows.at("Minden Típus")[2][6].real));
    EXPECT_TRUE(std::isnan(after.rows.at("Bits")[0][0].real));
    ASSERT_EQ(before.tables.size(), 4u);
}

TEST(Foreign, fields_of_every_type_have_their_codes_and_values) {
    const std::wstring path = testTempDir() + L"\\foreign.mdb";
    writeForeign(path);
    OpenDatabase database(path);
    CRecordset set(&database);
    set.Open(CRecordset::snapshot, L"SELECT * FROM [minden típus]", CRecordset::readOnly);
    const SWORD types[] = {SQL_BIT,       SQL_TINYINT,   SQL_SMALLINT,      SQL_INTEGER,    SQL_NUMERIC,       SQL_REAL, SQL_DOUBLE,
                           SQL_TIMESTAMP, SQL_VARBINARY, SQL_WVARCHAR, SQL_LONGVARBINARY, SQL_WLONGVARCHAR, SQL_GUID, SQL_NUMERIC};
    const DWORD tags[] = {DBVT_BOOL,   DBVT_UCHAR, DBVT_SHORT,  DBVT_LONG,   DBVT_WSTRING, DBVT_SINGLE,  DBVT_DOUBLE,
                          DBVT_DATE,   DBVT_BINARY, DBVT_WSTRING, DBVT_BINARY, DBVT_WSTRING, DBVT_WSTRING, DBVT_WSTRING};
    ASSERT_EQ(set.GetODBCFieldCount(), 14);
    for (short i = 0; i < 14; ++i) {
        CODBCFieldInfo info;
        CDBVariant value;
        set.GetODBCFieldInfo(i, info);
        set.GetFieldValue(i, value);
        EXPECT_EQ(info.m_nSQLType, types[i]) << i;
        EXPECT_EQ(value.m_dwType, tags[i]) << i;
    }
    CDBVariant value;
    set.GetFieldValue(L"Currency", value);
    EXPECT_EQ(*value.m_pstringW, L"922337203685477.5807");
    set.GetFieldValue(L"Date", value);
    EXPECT_EQ(value.m_pdate->year, 2001);
    EXPECT_EQ(value.m_pdate->month, 2);
    EXPECT_EQ(value.m_pdate->day, 3);
    EXPECT_EQ(value.m_pdate->hour, 12);
    set.GetFieldValue(L"Ole", value);
    EXPECT_EQ(value.m_pbinary->m_dwDataLength, 20000u);
    set.GetFieldValue(L"Numeric", value);
    EXPECT_EQ(*value.m_pstringW, L"-12345678901234.567890");
    set.GetFieldValue(L"Bool", value);
    EXPECT_EQ(value.m_boolVal, TRUE);
    set.MoveNext();
    for (short i = 1; i < 14; ++i) {
        set.GetFieldValue(i, value);
        EXPECT_EQ(value.m_dwType, DBVT_NULL) << i;
    }
}
} // namespace
