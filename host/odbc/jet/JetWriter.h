// Makes a Jet 4 database (.mdb) from nothing, in one pass over the rows.
#pragma once

#include "JetPageStore.h"
#include "store/StoreTable.h"

#include <memory>

namespace odbc {

namespace jet {
// Page 0 of every file that JetWriter makes.
PageBytes headerPage();
} // namespace jet

// The file at `path` (UTF-8) is created or emptied at once and is a database only after finish();
// whoever replaces a user's file writes beside it, syncs and renames. A writer that is destroyed
// without finish() leaves an unusable file behind. Tables come one after the other; every fault
// (a limit of the format, a full disk) is a StoreError with one sentence, after which the writer
// takes no more calls.
class JetWriter : public TableSink {
public:
    explicit JetWriter(const std::string& path);
    // Into an empty file that somebody else opened and closes.
    JetWriter(int descriptor, const std::string& name);
    ~JetWriter() override;
    JetWriter(const JetWriter&) = delete;
    JetWriter& operator=(const JetWriter&) = delete;

    void beginTable(const StoreTable& table) override;
    void row(std::span<const StoreCell> cells) override;
    void endTable() override;
    // Writes the catalogue and closes the file. Not synced to the disk.
    void finish();

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace odbc
