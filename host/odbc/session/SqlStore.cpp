#include "session/SqlStore.h"

#include "AcUtText.h"
#include "store/StoreText.h"
#include "store/StoreValues.h"

#include <cstring>
#include <sqlite3.h>

namespace odbc {

const StoreRules kDatabaseRules{false, 0, 255, 64, ".!`[]", true};
const StoreRules kWorkbookRules{true, 65535, 256, 31, "\\/?*[]:'", false};

namespace {
constexpr std::size_t kMostPrepared = 256;
constexpr std::int64_t kSmallTable = 64; // rows that are faster read through than looked up
constexpr std::size_t kMostColumnName = 64;

// Texts compare without regard to case, as they do in Access.
int compareTexts(void*, int lengthA, const void* a, int lengthB, const void* b) {
    const std::string_view left(static_cast<const char*>(a), static_cast<std::size_t>(lengthA));
    const std::string_view right(static_cast<const char*>(b), static_cast<std::size_t>(lengthB));
    if (left == right)
        return 0;
    return acutWcsicmp(acFromUtf8(left).c_str(), acFromUtf8(right).c_str());
}

// A statement at rest holds no lock on its table.
struct ResetAtEnd {
    sqlite3_stmt* handle;
    ~ResetAtEnd() { sqlite3_reset(handle); }
};

void requireName(const std::string& name, std::size_t most, const char* forbidden, const char* what) {
    std::u16string units;
    const bool good = appendUtf16(name, units) && !units.empty() && units.size() <= most && units.front() != u' ' &&
                      name.find_first_of(forbidden) == std::string::npos;
    if (!good)
        throw StoreError(std::string("The name ") + name + " cannot be given to a " + what + ".");
}
} // namespace

void SqlStore::Closer::operator()(sqlite3* database) const {
    sqlite3_close_v2(database);
}
void SqlStore::Closer::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

SqlStore::SqlStore(const StoreRules& rules) : mRules(rules) {
    sqlite3* database = nullptr;
    const int opened = sqlite3_open_v2(":memory:", &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    mDatabase.reset(database);
    if (opened != SQLITE_OK || sqlite3_create_collation(database, "access", SQLITE_UTF8, nullptr, compareTexts) != SQLITE_OK)
        fail();
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_limit(database, SQLITE_LIMIT_ATTACHED, 0);
    run("PRAGMA secure_delete=OFF");
    run("PRAGMA temp_store=MEMORY");
    // One transaction, never ended: only the statements have to be undone when they fail.
    run("BEGIN");
}

SqlStore::~SqlStore() = default;

// ---- SQLite ------------------------------------------------------------------------------

void SqlStore::fail() const {
    throw StoreError(mDatabase == nullptr ? "There is not enough memory for the database." : std::string("The database fails: ") + sqlite3_errmsg(mDatabase.get()) + ".");
}

SqlStore::Handle SqlStore::prepare(const std::string& sql) const {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v3(mDatabase.get(), sql.c_str(), static_cast<int>(sql.size() + 1), SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK)
        fail();
    return Handle(statement);
}

void SqlStore::run(const std::string& sql) const {
    stepAll(prepare(sql).get());
}

void SqlStore::stepAll(sqlite3_stmt* handle) const {
    const ResetAtEnd reset{handle};
    int result = SQLITE_ROW;
    while (result == SQLITE_ROW)
        result = sqlite3_step(handle);
    if (result != SQLITE_DONE)
        fail();
}

// ---- tables ------------------------------------------------------------------------------

CatalogueTable& SqlStore::makeTable(const StoreTable& table) {
    mPrepared.clear();
    CatalogueTable& entry = mCatalogue.add(table);
    std::string columns;
    for (std::size_t i = 0; i < table.columns.size(); ++i)
        columns += (i > 0 ? ",c" : "c") + std::to_string(i) + " " + sqliteType(table.columns[i].kind);
    run("CREATE TABLE " + entry.sqlName + "(" + columns + ") STRICT");
    return entry;
}

void SqlStore::create(const StoreTable& table) {
    requireName(table.name, mRules.mostName, mRules.forbidden, "table");
    if (table.columns.size() > mRules.mostColumns)
        throw StoreError("The table " + table.name + " would have more than " + std::to_string(mRules.mostColumns) + " columns.");
    for (const StoreColumn& column : table.columns) {
        requireName(column.name, kMostColumnName, kDatabaseRules.forbidden, "column");
        if (!mRules.bytes && (column.kind == ColumnKind::Binary || column.kind == ColumnKind::Ole))
            throw StoreError("The column " + column.name + " would hold bytes, which a sheet cannot.");
    }
    makeTable(table);
    mChanged = true;
}

void SqlStore::drop(const std::string& key) {
    mPrepared.clear();
    run("DROP TABLE " + mCatalogue.find(key)->sqlName);
    mCatalogue.remove(key);
    mChanged = true;
}

void SqlStore::beginTable(const StoreTable& table) {
    mLoading = &makeTable(table);
    std::string parameters;
    for (std::size_t i = 0; i < table.columns.size(); ++i)
        parameters += i > 0 ? ",?" : "?";
    mLoad = prepare("INSERT INTO " + mLoading->sqlName + " VALUES(" + parameters + ")");
}

void SqlStore::row(std::span<const StoreCell> cells) {
    for (std::size_t i = 0; i < cells.size(); ++i)
        if (bindCell(mLoad.get(), static_cast<int>(i + 1), mLoading->table.columns[i], cells[i]) != SQLITE_OK)
            fail();
    stepAll(mLoad.get());
    ++mLoading->rows;
}

void SqlStore::endTable() {
    mLoad.reset();
    mLoading = nullptr;
}

void SqlStore::writeTo(TableSink& sink) const {
    for (const auto& entry : mCatalogue.tables()) {
        const std::vector<StoreColumn>& columns = entry->table.columns;
        const Handle handle = prepare("SELECT * FROM " + entry->sqlName + " ORDER BY rowid");
        std::vector<StoreCell> cells(columns.size());
        std::vector<DecimalText> decimals(columns.size());
        sink.beginTable(entry->table);
        int result = SQLITE_ROW;
        while ((result = sqlite3_step(handle.get())) == SQLITE_ROW) {
            for (std::size_t i = 0; i < columns.size(); ++i)
                cells[i] = readCell(handle.get(), static_cast<int>(i), columns[i], decimals[i]);
            sink.row(cells);
        }
        if (result != SQLITE_DONE)
            fail();
        sink.endTable();
    }
}

// ---- statements --------------------------------------------------------------------------

SqlStore::Prepared& SqlStore::prepared(std::wstring_view sql) {
    tokenize(sql, mTokens);
    mShape.clear();
    appendShape(mTokens, mShape);
    if (const auto known = mPrepared.find(mShape); known != mPrepared.end())
        return known->second;
    Prepared fresh;
    fresh.statement = translate(mTokens, mCatalogue);
    if (fresh.statement.sql.empty()) // CREATE and DROP hold sizes, which are no parameters
        return mUnkept = std::move(fresh);
    fresh.table = mCatalogue.find(fresh.statement.table);
    fresh.handle = prepare(fresh.statement.sql);
    if (mPrepared.size() >= kMostPrepared)
        mPrepared.clear();
    return mPrepared[mShape] = std::move(fresh);
}

void SqlStore::bindLiterals(Prepared& prepared) {
    mTexts.clear();
    mTexts.reserve(roomForTexts(mTokens));
    static const StoreColumn kPlain{};
    std::size_t literal = 0;
    for (const SqlToken& token : mTokens) {
        if (!isLiteral(token))
            continue;
        const int into = prepared.statement.literalColumns[literal++];
        const StoreColumn& column = into < 0 ? kPlain : prepared.table->table.columns[static_cast<std::size_t>(into)];
        const StoreCell cell = into < 0 ? comparedValue(token, mTexts) : valueFor(column, token, mTexts);
        if (bindCell(prepared.handle.get(), static_cast<int>(literal), column, cell) != SQLITE_OK)
            fail();
    }
}

void SqlStore::indexLookup(Prepared& prepared) {
    const int column = prepared.statement.lookupColumn;
    if (column < 0 || prepared.table->rows <= kSmallTable || prepared.table->indexed[static_cast<std::size_t>(column)])
        return;
    const std::string name = "c" + std::to_string(column);
    run("CREATE INDEX " + prepared.table->sqlName + name + " ON " + prepared.table->sqlName + "(" + name + ")");
    prepared.table->indexed[static_cast<std::size_t>(column)] = true;
}

void SqlStore::change(Prepared& prepared) {
    const bool inserts = prepared.statement.kind == SqlStatement::Kind::Insert;
    if (inserts && mRules.mostRows > 0 && prepared.table->rows >= mRules.mostRows)
        throw StoreError("The sheet " + prepared.table->table.name + " is full: it has " + std::to_string(mRules.mostRows + 1) + " rows.");
    bindLiterals(prepared);
    stepAll(prepared.handle.get());
    const int rows = sqlite3_changes(mDatabase.get());
    mChanged = mChanged || rows > 0;
    if (inserts)
        prepared.table->rows += rows;
    else if (prepared.statement.kind == SqlStatement::Kind::Delete)
        prepared.table->rows -= rows;
}

void SqlStore::execute(std::wstring_view sql, bool readOnly) {
    Prepared& statement = prepared(sql);
    const SqlStatement::Kind kind = statement.statement.kind;
    if (mRules.insertOnly && kind != SqlStatement::Kind::Create && kind != SqlStatement::Kind::Insert)
        throw StoreError("A workbook takes CREATE TABLE and INSERT INTO only.");
    if (readOnly && kind != SqlStatement::Kind::Select)
        throw StoreError("The database is open for reading only, or you have no right to change its file.");
    indexLookup(statement);
    switch (kind) {
    case SqlStatement::Kind::Create:
        create(statement.statement.created);
        break;
    case SqlStatement::Kind::Drop:
        drop(statement.statement.table);
        break;
    case SqlStatement::Kind::Select: // its rows are dropped
        bindLiterals(statement);
        stepAll(statement.handle.get());
        break;
    case SqlStatement::Kind::Insert:
    case SqlStatement::Kind::Update:
    case SqlStatement::Kind::Delete:
        change(statement);
        break;
    }
}

ResultSet SqlStore::query(std::wstring_view sql) {
    Prepared& statement = prepared(sql);
    if (statement.statement.kind != SqlStatement::Kind::Select)
        throw StoreError("The statement gives no rows: it is no SELECT.");
    if (mRules.insertOnly)
        throw StoreError("A workbook takes CREATE TABLE and INSERT INTO only.");
    indexLookup(statement);
    bindLiterals(statement);
    ResultSet result;
    result.columns = statement.statement.columns;
    const std::vector<StoreColumn>& sources = statement.statement.sources;
    DecimalText decimals;
    sqlite3_stmt* const handle = statement.handle.get();
    const ResetAtEnd reset{handle};
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(handle)) == SQLITE_ROW)
        for (std::size_t i = 0; i < sources.size(); ++i)
            result.add(readCell(handle, static_cast<int>(i), sources[i], decimals));
    if (step != SQLITE_DONE)
        fail();
    return result;
}

} // namespace odbc
