// A built-in database while it is open: its tables in SQLite, in memory, and the statements on them.
#pragma once

#include "sql/SqlTranslator.h"
#include "store/Catalogue.h"
#include "store/ResultSet.h"
#include "store/TableRules.h"

#include <memory>
#include <optional>
#include <sqlite3.h>
#include <unordered_map>

namespace odbc {

// What a kind of file holds and lets be done.
struct StoreRules {
    bool workbook;          // CREATE TABLE, INSERT and UPDATE are the only statements, as for the driver of workbooks
    std::size_t mostColumns;
    std::size_t mostName;   // UTF-16 units of a table's name
    const char* forbidden;  // characters that a table's name cannot have
    bool bytes;             // whether a column can hold bytes
    bool sorted;            // names stand in an index of the file: each character must have its weight
};
extern const StoreRules kDatabaseRules; // Access
extern const StoreRules kWorkbookRules; // one sheet a table, row one holds the column names

// As a TableSink it takes the tables of the file that is opened; they count as unchanged.
class SqlStore : public TableSink {
public:
    explicit SqlStore(const StoreRules& rules);
    ~SqlStore() override;
    SqlStore(const SqlStore&) = delete;
    SqlStore& operator=(const SqlStore&) = delete;

    void beginTable(const StoreTable& table) override;
    void row(std::span<const StoreCell> cells) override;
    void endTable() override;
    void incomplete(const std::string& why) override;

    // Called when the tables are loaded: the file is somebody else's, which is changed in places. What becomes of each of its rows is noted,
    // and no table is made or dropped.
    void trackChanges();
    void obey(const std::string& table, const TableRules& rules);
    void obey(const TableRelation& relation);
    // What became of a loaded table since; nothing where it is as it was.
    void changesOf(const std::string& table, ChangeSink& sink) const;
    // The last number that the table's counter gave; nothing where it has none.
    std::optional<std::int64_t> lastNumber(const std::string& table) const;

    bool hasFaults() const; // a table that is incomplete
    // A statement that fails changes nothing; the StoreError names it. whyReadOnly, where not empty, is thrown for one
    // that would change anything.
    void execute(std::wstring_view sql, const std::string& whyReadOnly = {});
    ResultSet query(std::wstring_view sql); // StoreError for anything but a SELECT
    bool changed() const { return mChanged; }
    // Every table with its rows, in the order of their making.
    void writeTo(TableSink& sink) const;

private:
    struct Closer {
        void operator()(sqlite3* database) const;
        void operator()(sqlite3_stmt* statement) const;
    };
    using Handle = std::unique_ptr<sqlite3_stmt, Closer>;
    struct Prepared {
        SqlStatement statement;
        CatalogueTable* table = nullptr;
        Handle handle;
    };

    void executeUnnamed(std::wstring_view sql, const std::string& whyReadOnly);
    ResultSet queryUnnamed(std::wstring_view sql);
    static void touch(void* store, int operation, const char* database, const char* table, sqlite3_int64 row);
    void requireRows(const CatalogueTable& table, const TableRules::Key& key);
    void addCounter(const CatalogueTable& table, const TableRules& rules);
    Prepared& prepared(std::wstring_view sql);
    Handle prepare(const std::string& sql) const;
    void run(const std::string& sql) const;
    [[noreturn]] void fail() const;
    void create(const StoreTable& table);
    CatalogueTable& makeTable(const StoreTable& table);
    void drop(const std::string& key);
    void indexLookup(Prepared& prepared);
    void bindLiterals(Prepared& prepared);
    void change(Prepared& prepared);
    void stepAll(sqlite3_stmt* handle) const;

    const StoreRules& mRules;
    std::unique_ptr<sqlite3, Closer> mDatabase;
    Catalogue mCatalogue;
    bool mChanged = false;
    bool mTracked = false;
    int mObeyed = 0; // keys and relations, which need names in SQLite
    // Statements by their shape: those that differ in nothing but literals are prepared once. They
    // name columns by place, so the first change of a table's columns empties the map.
    std::unordered_map<std::string, Prepared> mPrepared;
    Prepared mUnkept; // CREATE and DROP
    std::vector<SqlToken> mTokens; // of the statement at work, here so that their memory is used again
    std::string mShape;
    std::string mTexts;
    CatalogueTable* mLoading = nullptr;
    Handle mLoad;
};

} // namespace odbc
