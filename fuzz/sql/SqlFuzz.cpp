// Any text as statements, one a line, on a small database: each is run or refused with a sentence, and
// what the tables hold afterwards can be read and handed on.
#include "AcUtText.h"
#include "session/SqlStore.h"

#include <cstdint>
#include <cstdlib>

namespace {
class CheckingSink : public odbc::TableSink {
public:
    void beginTable(const odbc::StoreTable& table) override { mColumns = table.columns; }
    void row(std::span<const odbc::StoreCell> cells) override {
        if (cells.size() != mColumns.size())
            std::abort();
        for (std::size_t i = 0; i < cells.size(); ++i) // 255 characters are at most 765 bytes
            if (mColumns[i].kind == odbc::ColumnKind::Text && cells[i].bytes.size() > 3u * mColumns[i].size)
                std::abort();
    }
    void endTable() override {}

private:
    std::vector<odbc::StoreColumn> mColumns;
};

void run(odbc::SqlStore& store, const std::wstring& sql) {
    try {
        store.execute(sql);
    } catch (const odbc::StoreError&) {
        // refused, as most of these are
    }
    try {
        const odbc::ResultSet rows = store.query(sql);
        for (std::size_t r = 0; r < rows.rows(); ++r)
            for (std::size_t c = 0; c < rows.columns.size(); ++c)
                rows.cell(r, c);
    } catch (const odbc::StoreError&) {
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    odbc::SqlStore store(odbc::kDatabaseRules);
    store.execute(L"CREATE TABLE T (ID NUMBER, NEV TEXT, [BY] NUMBER, B YESNO, C CURRENCY, L LONG, D DATETIME)");
    store.execute(L"INSERT INTO T VALUES (1,'a',2.5,TRUE,1.5,7,'2001-02-03')");
    store.execute(L"INSERT INTO T (ID) VALUES (2)");
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (std::size_t at = 0; at <= size;) {
        const std::size_t end = std::min(text.find('\n', at), size);
        run(store, acFromUtf8(text.substr(at, end - at)));
        at = end + 1;
    }
    CheckingSink sink;
    store.writeTo(sink);
    return 0;
}
