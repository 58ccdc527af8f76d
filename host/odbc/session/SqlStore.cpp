#include "session/SqlStore.h"

#include "AcUtText.h"
#include "jet/JetCollation.h"
#include "store/StoreText.h"
#include "store/StoreValues.h"

#include <algorithm>
#include <cstring>

namespace odbc {

const StoreRules kDatabaseRules{false, 255, 64, ".!`[]", true, true};
const StoreRules kWorkbookRules{true, 256, 31, "\\/?*[]:'", false, false};

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

// The statement as a message shows it.
std::string shownStatement(std::wstring_view sql) {
    constexpr std::size_t kMost = 160;
    return acToUtf8(sql.substr(0, kMost)) + (sql.size() > kMost ? "..." : "");
}

void requireUsable(const CatalogueTable& table, SqlStatement::Kind kind) {
    if (!table.fault.empty())
        throw StoreError(table.fault);
    if (kind != SqlStatement::Kind::Select && !table.unchangeable.empty())
        throw StoreError(table.unchangeable);
}

[[noreturn]] void refuseShape() {
    throw StoreError("Az adatbázist más program készítette: tábla nem hozható létre és nem törölhető benne, csak a sorai módosíthatók.");
}

void requireName(const std::string& name, std::size_t most, const char* forbidden, const char* what) {
    std::u16string units;
    const bool good = appendUtf16(name, units) && !units.empty() && units.size() <= most && units.front() != u' ' &&
                      name.find_first_of(forbidden) == std::string::npos;
    if (!good)
        throw StoreError(std::string("Ez a név nem adható (") + what + "): " + name + ".");
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
    if (mDatabase != nullptr && sqlite3_extended_errcode(mDatabase.get()) == SQLITE_CONSTRAINT_UNIQUE)
        throw StoreError("Ez a kulcs már szerepel a táblában.");
    throw StoreError(mDatabase == nullptr ? "Nincs elég memória az adatbázishoz." : std::string("Az adatbázis hibát jelez: ") + sqlite3_errmsg(mDatabase.get()) + ".");
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
    requireName(table.name, mRules.mostName, mRules.forbidden, "tábla");
    if (mRules.sorted && !jet::isSortable(table.name))
        throw StoreError("Ez a név nem adható táblának, mert olyan karakter van benne, amelynek nincs helye az Access rendezésében: " + table.name + ".");
    if (table.columns.size() > mRules.mostColumns)
        throw StoreError("A táblának (" + table.name + ") " + std::to_string(mRules.mostColumns) + " oszlopnál több nem lehet.");
    for (const StoreColumn& column : table.columns) {
        requireName(column.name, kMostColumnName, kDatabaseRules.forbidden, "oszlop");
        if (!mRules.bytes && (column.kind == ColumnKind::Binary || column.kind == ColumnKind::Ole))
            throw StoreError("Munkalap nem tárolhat bájtokat, az oszlop ilyen lenne: " + column.name + ".");
    }
    if (mTracked)
        refuseShape();
    makeTable(table);
    mChanged = true;
}

void SqlStore::drop(const std::string& key) {
    if (mTracked)
        refuseShape();
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

void SqlStore::incomplete(const std::string& why) {
    mLoading->fault = why;
}

void SqlStore::endTable() {
    mLoading->loaded = mLoading->rows;
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

// ---- databases of others -----------------------------------------------------------------

void SqlStore::trackChanges() {
    mTracked = true;
    run("CREATE TABLE counters(t INTEGER PRIMARY KEY, last INTEGER)");
    for (const auto& entry : mCatalogue.tables())
        entry->touched.resize(static_cast<std::size_t>(entry->loaded));
    sqlite3_update_hook(mDatabase.get(), touch, this);
}

// A row that was deleted may leave its number to a new one, so an insertion counts too.
void SqlStore::touch(void* store, int, const char*, const char* table, sqlite3_int64 row) {
    auto& self = *static_cast<SqlStore*>(store);
    for (const auto& entry : self.mCatalogue.tables())
        if (entry->sqlName == table && row >= 1 && row <= entry->loaded)
            entry->touched[static_cast<std::size_t>(row - 1)] = true;
}

bool SqlStore::hasFaults() const {
    return std::any_of(mCatalogue.tables().begin(), mCatalogue.tables().end(), [](const auto& entry) { return !entry->fault.empty(); });
}

void SqlStore::requireRows(const CatalogueTable& table, const TableRules::Key& key) {
    std::string empty, list;
    for (const int column : key.columns) {
        empty += (empty.empty() ? "" : " OR ") + std::string("NEW.c") + std::to_string(column) + " IS NULL";
        list += (list.empty() ? "" : ",") + std::string("c") + std::to_string(column);
    }
    const std::string name = "k" + std::to_string(++mObeyed) + "_";
    if (key.required)
        for (const char* when : {"INSERT", "UPDATE"})
            run("CREATE TRIGGER " + name + when + " BEFORE " + when + " ON " + table.sqlName + " WHEN " + empty +
                " BEGIN SELECT RAISE(ABORT,'a kulcs üres lenne'); END");
    if (key.unique)
        run("CREATE UNIQUE INDEX " + name + " ON " + table.sqlName + "(" + list + ")");
}

void SqlStore::addCounter(const CatalogueTable& table, const TableRules& rules) {
    const std::string number = table.sqlName.substr(1), column = "c" + std::to_string(rules.counter), of = " FROM counters WHERE t=" + number;
    run("INSERT INTO counters VALUES(" + number + "," + std::to_string(rules.lastNumber) + ")");
    run("CREATE TRIGGER " + table.sqlName + "_next AFTER INSERT ON " + table.sqlName + " WHEN NEW." + column +
        " IS NULL BEGIN UPDATE counters SET last=last+1 WHERE t=" + number + "; UPDATE " + table.sqlName + " SET " + column + "=(SELECT last" + of +
        ") WHERE rowid=NEW.rowid; END");
    run("CREATE TRIGGER " + table.sqlName + "_given AFTER INSERT ON " + table.sqlName + " WHEN NEW." + column + " > (SELECT last" + of +
        ") BEGIN UPDATE counters SET last=NEW." + column + " WHERE t=" + number + "; END");
}

void SqlStore::obey(const std::string& table, const TableRules& rules) {
    CatalogueTable* entry = mCatalogue.find(foldedName(table));
    if (entry == nullptr || !entry->fault.empty())
        return;
    entry->unchangeable = rules.unchangeable;
    if (!rules.sorted.empty())
        entry->sorted.resize(entry->table.columns.size());
    for (const int column : rules.sorted)
        entry->sorted[static_cast<std::size_t>(column)] = true;
    try {
        for (TableRules::Key key : rules.keys) {
            // The counter fills itself behind the row.
            if (key.required)
                std::erase(key.columns, key.columns.size() == 1 ? rules.counter : -1);
            if (key.columns.empty())
                key = {key.name, {rules.counter}, key.unique, false};
            requireRows(*entry, key);
        }
        if (rules.counter >= 0)
            addCounter(*entry, rules);
    } catch (const StoreError&) {
        entry->unchangeable = "A tábla sorai nem tartják be a tábla kulcsait, ezért nem módosítható: " + table + ".";
    }
}

void SqlStore::obey(const TableRelation& relation) {
    CatalogueTable* parent = mCatalogue.find(foldedName(relation.parent));
    CatalogueTable* child = mCatalogue.find(foldedName(relation.child));
    if (parent == nullptr || child == nullptr)
        return;
    std::string given, pairs, old, moved, set, parents, children;
    for (std::size_t i = 0; i < relation.parentColumns.size(); ++i) {
        const int p = parent->column(foldedName(relation.parentColumns[i])), c = child->column(foldedName(relation.childColumns[i]));
        if (p < 0 || c < 0) {
            parent->unchangeable = child->unchangeable = "A kapcsolat (" + relation.name + ") nem létező oszlopot nevez meg, ezért a tábla nem módosítható: " + relation.child + ".";
            return;
        }
        const std::string pc = "c" + std::to_string(p), cc = "c" + std::to_string(c), glue = i == 0 ? "" : " AND ";
        given += glue + "NEW." + cc + " IS NOT NULL";
        pairs += glue + pc + "=NEW." + cc;
        old += glue + cc + "=OLD." + pc;
        moved += (i == 0 ? "" : " OR ") + std::string("OLD.") + pc + " IS NOT NEW." + pc;
        set += (i == 0 ? "" : ",") + cc + "=NEW." + pc;
        parents += (i == 0 ? "" : ",") + pc;
        children += (i == 0 ? "" : ",") + cc;
    }
    const std::string name = "r" + std::to_string(++mObeyed) + "_";
    const auto fault = [&] {
        std::string quoted;
        for (const char c : relation.name)
            quoted.append(c == '\'' ? 2 : 1, c);
        return " BEGIN SELECT RAISE(ABORT,'sérülne a kapcsolat (" + quoted + ")'); END";
    }();
    run("CREATE INDEX " + name + "p ON " + parent->sqlName + "(" + parents + ")");
    run("CREATE INDEX " + name + "c ON " + child->sqlName + "(" + children + ")");
    for (const char* when : {"INSERT", "UPDATE"})
        run("CREATE TRIGGER " + name + when + " AFTER " + when + " ON " + child->sqlName + " WHEN " + given + " AND NOT EXISTS (SELECT 1 FROM " +
            parent->sqlName + " WHERE " + pairs + ")" + fault);
    const std::string has = " AND EXISTS (SELECT 1 FROM " + child->sqlName + " WHERE " + old + ")";
    run("CREATE TRIGGER " + name + "d AFTER DELETE ON " + parent->sqlName + " WHEN 1" + has +
        (relation.cascadeDeletes ? " BEGIN DELETE FROM " + child->sqlName + " WHERE " + old + "; END" : fault));
    run("CREATE TRIGGER " + name + "u AFTER UPDATE ON " + parent->sqlName + " WHEN (" + moved + ")" + has +
        (relation.cascadeUpdates ? " BEGIN UPDATE " + child->sqlName + " SET " + set + " WHERE " + old + "; END" : fault));
    // What one of them does to the other reaches it: both must be changeable.
    for (CatalogueTable* one : {parent, child})
        for (const CatalogueTable* other : {parent, child})
            if (one->unchangeable.empty())
                one->unchangeable = !other->fault.empty() ? other->fault : other->unchangeable;
}

void SqlStore::changesOf(const std::string& table, ChangeSink& sink) const {
    const CatalogueTable* entry = mCatalogue.find(foldedName(table));
    if (entry == nullptr || entry->loaded < 0)
        return;
    const std::vector<StoreColumn>& columns = entry->table.columns;
    const Handle handle = prepare("SELECT *, rowid FROM " + entry->sqlName + " ORDER BY rowid");
    std::vector<StoreCell> cells(columns.size());
    std::vector<DecimalText> decimals(columns.size());
    std::int64_t next = 1; // the loaded row that is looked for
    int result = SQLITE_ROW;
    while ((result = sqlite3_step(handle.get())) == SQLITE_ROW) {
        const std::int64_t row = sqlite3_column_int64(handle.get(), static_cast<int>(columns.size()));
        for (; next < row && next <= entry->loaded; ++next)
            sink.removed(static_cast<std::size_t>(next - 1));
        next = std::max(next, row + 1);
        if (row <= entry->loaded && !entry->touched[static_cast<std::size_t>(row - 1)])
            continue;
        for (std::size_t i = 0; i < columns.size(); ++i)
            cells[i] = readCell(handle.get(), static_cast<int>(i), columns[i], decimals[i]);
        if (row <= entry->loaded)
            sink.replaced(static_cast<std::size_t>(row - 1), cells);
        else
            sink.added(cells);
    }
    if (result != SQLITE_DONE)
        fail();
    for (; next <= entry->loaded; ++next)
        sink.removed(static_cast<std::size_t>(next - 1));
}

std::optional<std::int64_t> SqlStore::lastNumber(const std::string& table) const {
    const CatalogueTable* entry = mCatalogue.find(foldedName(table));
    if (entry == nullptr)
        return std::nullopt;
    const Handle handle = prepare("SELECT last FROM counters WHERE t=" + entry->sqlName.substr(1));
    if (sqlite3_step(handle.get()) != SQLITE_ROW)
        return std::nullopt;
    return sqlite3_column_int64(handle.get(), 0);
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
    if (fresh.statement.sql.empty()) { // CREATE and DROP hold sizes, which are no parameters
        if (const CatalogueTable* dropped = mCatalogue.find(fresh.statement.table); dropped != nullptr && fresh.statement.kind == SqlStatement::Kind::Drop)
            requireUsable(*dropped, fresh.statement.kind);
        return mUnkept = std::move(fresh);
    }
    fresh.table = mCatalogue.find(fresh.statement.table);
    requireUsable(*fresh.table, fresh.statement.kind);
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
        if (into >= 0 && !prepared.table->sorted.empty() && prepared.table->sorted[static_cast<std::size_t>(into)] &&
            cell.type == StoreCell::Type::Text && !jet::isSortable(cell.bytes))
            throw StoreError("Az oszlop (" + column.name + ") indexében nincs ismert helye a szöveg egyik karakterének: " + std::string(cell.bytes) + ".");
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
    bindLiterals(prepared);
    stepAll(prepared.handle.get());
    const int rows = sqlite3_changes(mDatabase.get());
    mChanged = mChanged || rows > 0;
    if (inserts)
        prepared.table->rows += rows;
    else if (prepared.statement.kind == SqlStatement::Kind::Delete)
        prepared.table->rows -= rows;
}

void SqlStore::execute(std::wstring_view sql, const std::string& whyReadOnly) {
    try {
        executeUnnamed(sql, whyReadOnly);
    } catch (const StoreError& error) {
        throw StoreError(std::string(error.what()) + " Az utasítás: " + shownStatement(sql));
    }
}

ResultSet SqlStore::query(std::wstring_view sql) {
    try {
        return queryUnnamed(sql);
    } catch (const StoreError& error) {
        throw StoreError(std::string(error.what()) + " Az utasítás: " + shownStatement(sql));
    }
}

void SqlStore::executeUnnamed(std::wstring_view sql, const std::string& whyReadOnly) {
    Prepared& statement = prepared(sql);
    const SqlStatement::Kind kind = statement.statement.kind;
    if (mRules.workbook && kind != SqlStatement::Kind::Create && kind != SqlStatement::Kind::Insert && kind != SqlStatement::Kind::Update)
        throw StoreError("A munkafüzet csak CREATE TABLE, INSERT INTO és UPDATE utasítást fogad.");
    if (!whyReadOnly.empty() && kind != SqlStatement::Kind::Select)
        throw StoreError(whyReadOnly);
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

ResultSet SqlStore::queryUnnamed(std::wstring_view sql) {
    Prepared& statement = prepared(sql);
    if (statement.statement.kind != SqlStatement::Kind::Select)
        throw StoreError("Az utasítás nem ad sorokat: nem SELECT.");
    if (mRules.workbook)
        throw StoreError("A munkafüzet csak CREATE TABLE, INSERT INTO és UPDATE utasítást fogad.");
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
