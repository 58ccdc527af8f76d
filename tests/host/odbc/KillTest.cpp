// The file is the old one or the new one, whole, whatever ends the program that writes it.
#include "OdbcTestSupport.h"

#include "AcPath.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {
constexpr int kRows = 1500;
using Clock = std::chrono::steady_clock;

void makeTable(const std::wstring& path) {
    OpenDatabase database(path);
    database.ExecuteSQL(L"CREATE TABLE T (ID NUMBER, NEV TEXT, VERSION NUMBER)");
    for (int i = 0; i < kRows; ++i)
        database.ExecuteSQL(acFormat(L"INSERT INTO T VALUES (%d,'the name of row number %d',0)", i, i).c_str());
    database.Close();
}

void nextVersion(CDatabase& database, int version) {
    database.ExecuteSQL(acFormat(L"UPDATE T SET VERSION=%d", version).c_str());
}

// The version that every row has; -1 where the file is not whole.
int versionOf(const std::wstring& path) {
    try {
        CDatabase database;
        database.Open(nullptr, FALSE, TRUE, accessConnect(path).c_str());
        const Rows versions = rowsOf(database, L"SELECT DISTINCT VERSION FROM T"), count = rowsOf(database, L"SELECT count(*) FROM T");
        return versions.size() == 1 && count[0][0] == acFormat(L"%d", kRows) ? acWtoi(versions[0][0].c_str()) : -1;
    } catch (CDBException* error) {
        ADD_FAILURE() << acToUtf8(error->m_strError.text());
        error->Delete();
        return -1;
    }
}

std::ptrdiff_t filesBeside(const std::wstring& path) {
    return std::distance(std::filesystem::directory_iterator(std::filesystem::path(acFileSystemPath(path)).parent_path()), {});
}

// Gives the next version to the file in a process that is killed `delay` after Close began.
void killDuringClose(const std::wstring& path, int version, std::chrono::microseconds delay) {
    int closing[2];
    ASSERT_EQ(::pipe(closing), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        CDatabase database;
        database.Open(nullptr, FALSE, FALSE, accessConnect(path).c_str());
        nextVersion(database, version);
        if (::write(closing[1], "c", 1) == 1)
            database.Close();
        ::_exit(0);
    }
    char byte = 0;
    EXPECT_EQ(::read(closing[0], &byte, 1), 1);
    std::this_thread::sleep_for(delay);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(closing[0]);
    ::close(closing[1]);
}

// KORVANT_KILLS sets how often.
TEST(Kill, at_any_moment_of_closing_leaves_the_old_file_or_the_new_one) {
    const char* const wanted = std::getenv("KORVANT_KILLS");
    const int kills = wanted != nullptr ? std::atoi(wanted) : 1000;
    const std::wstring path = newDatabase();
    makeTable(path);
    Clock::duration usual;
    {
        OpenDatabase database(path);
        nextVersion(database, 1);
        const Clock::time_point start = Clock::now();
        database.Close();
        usual = Clock::now() - start;
    }
    std::mt19937 random(4711);
    std::uniform_int_distribution<std::int64_t> delays(0, std::chrono::duration_cast<std::chrono::microseconds>(usual).count() * 2);
    int version = 1, oldOnes = 0;
    for (int i = 0; i < kills; ++i) {
        const std::string before = fileBytes(path);
        killDuringClose(path, version + 1, std::chrono::microseconds(delays(random)));
        if (fileBytes(path) == before) {
            ++oldOnes;
            continue;
        }
        ASSERT_EQ(versionOf(path), version + 1) << "after kill " << i;
        ASSERT_EQ(violations(path), "") << "after kill " << i;
        ++version;
    }
    std::printf("%d kills within %lld us of closing: %d left the old file, %d the new one\n", kills, static_cast<long long>(delays.max()), oldOnes, version - 1);
    EXPECT_EQ(versionOf(path), version);
    OpenDatabase clears(path);
    EXPECT_EQ(filesBeside(path), 1);
}

TEST(FullDisk, while_closing_throws_and_keeps_every_byte_of_the_old_file) {
    const std::wstring path = newDatabase();
    makeTable(path);
    const std::string before = fileBytes(path);
    for (const std::size_t room : {std::size_t{0}, std::size_t{1}, std::size_t{4096}, before.size() / 2, before.size() - 1}) {
        const pid_t child = ::fork();
        if (child == 0) {
            CDatabase database;
            database.Open(nullptr, FALSE, FALSE, accessConnect(path).c_str());
            nextVersion(database, 2);
            ::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit{room, room};
            ::setrlimit(RLIMIT_FSIZE, &limit);
            int status = 0;
            try {
                database.Close();
            } catch (CDBException* error) {
                const std::wstring text = error->m_strError.text();
                status = text.find(L"a.mdb\"") != std::wstring::npos && text.find(L".tmp") == std::wstring::npos ? 1 : 2;
                error->Delete();
            }
            ::_exit(status);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), 1) << room;
        EXPECT_EQ(fileBytes(path), before) << room;
        EXPECT_EQ(filesBeside(path), 1) << room;
    }
    EXPECT_EQ(versionOf(path), 0);
}
} // namespace
