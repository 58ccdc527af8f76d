// Databases that Access made, read by us and by others.
#include "GenuineFiles.h"

#include "JetTestSupport.h"
#include "TestSupport.h"
#include "rules/JetCheck.h"

#include <algorithm>

using namespace jettest;

namespace {
std::vector<std::string> blocks(const std::string& lines) { // of jet-peer.mjs, a table each
    std::vector<std::string> tables;
    for (std::size_t at = 0; at < lines.size();) {
        const std::size_t next = std::min(lines.find("\ntable ", at), lines.size() - 1) + 1;
        tables.push_back(lines.substr(at, next - at));
        at = next;
    }
    std::sort(tables.begin(), tables.end());
    return tables;
}
} // namespace

TEST(Genuine, every_file_is_read_and_another_reader_finds_the_same_values) {
    SKIP_WITHOUT_GENUINE_FILES();
    std::size_t old = 0;
    for (const GenuineFile& file : genuineFiles()) {
        SCOPED_TRACE(file.name);
        old += file.jet3 ? 1 : 0;
        std::string ours;
        std::vector<std::pair<std::string, std::size_t>> counts;
        std::vector<Table> tables = read(file.path);
        for (const Table& table : tables) {
            counts.emplace_back(table.shape.name, table.rows.size());
            ours += peerLines(table);
        }
        std::sort(counts.begin(), counts.end());
        EXPECT_EQ(counts, file.tables);
        int status = -1;
        const std::string others = runProgram("node " + testSourceDir() + "/tests/host/odbc/jet-peer.mjs " + file.path + " 2>&1", &status);
        // That reader leaves rows out that moved to another page; mdbtools finds them.
        if (file.name.find("overflow") != std::string::npos) {
            const std::string rows = runProgram("mdb-export -H " + file.path + " Table1");
            EXPECT_EQ(std::count(rows.begin(), rows.end(), '\n'), 7);
        } else if (!tables.empty()) {
            EXPECT_EQ(status, 0) << others;
            EXPECT_EQ(blocks(ours), blocks(others));
        }
    }
    EXPECT_GE(old, 3u); // some of them are of Access 97
}

TEST(Genuine, the_checker_has_nothing_against_them) {
    SKIP_WITHOUT_GENUINE_FILES();
    for (const GenuineFile& file : genuineFiles())
        if (!file.jet3) {
            SCOPED_TRACE(file.name);
            for (const odbc::JetViolation& violation : odbc::checkJet(file.path))
                ADD_FAILURE() << "page " << violation.page << ": " << violation.text;
        }
}
