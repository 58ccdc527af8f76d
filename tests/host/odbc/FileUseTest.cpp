// Files in use: by this program, by another one, in Access, and on file systems that cannot lock.
#include "OdbcTestSupport.h"

#include "AcFileUse.h"
#include "AcPath.h"
#include "WinFiles.h"

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
int gLockError = 0;             // what the file system answers to locks; 0: it locks
bool gExclusiveForReading = false; // an exclusive lock was asked of a descriptor that only reads: EBADF on NFS
std::string gWatched;           // whose openings are counted
int gOpened = 0;
} // namespace

// These stand before the system's own ones, also for the libraries.
extern "C" int flock(int descriptor, int operation) noexcept {
    if ((operation & LOCK_EX) != 0 && (::fcntl(descriptor, F_GETFL) & O_ACCMODE) == O_RDONLY)
        gExclusiveForReading = true;
    if (gLockError != 0) {
        errno = gLockError;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_flock, descriptor, operation));
}

extern "C" int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const int mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, int) : 0;
    va_end(arguments);
    if (!gWatched.empty() && gWatched == path)
        ++gOpened;
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

namespace {
std::string file(const std::wstring& path) {
    return acFileSystemPath(path);
}

std::wstring made(int rows = 3) {
    const std::wstring path = newDatabase();
    OpenDatabase database(path);
    database.ExecuteSQL(L"CREATE TABLE T (ID NUMBER)");
    for (int i = 0; i < rows; ++i)
        database.ExecuteSQL(acFormat(L"INSERT INTO T VALUES (%d)", i).c_str());
    database.Close();
    return path;
}

std::wstring opened(const std::wstring& path, bool readOnly) { // empty where it opens, else what is said
    CDatabase database;
    try {
        database.Open(nullptr, FALSE, readOnly ? TRUE : FALSE, accessConnect(path).c_str());
    } catch (CDBException* error) {
        const std::wstring text = error->m_strError.text();
        error->Delete();
        return text;
    }
    return {};
}

void expectKept(const std::wstring& path) {
    const std::wstring other = path + L".other";
    writeFile(other, "x");
    const std::string before = fileBytes(path);
    SetLastError(0);
    EXPECT_FALSE(DeleteFileW(path.c_str()));
    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    EXPECT_FALSE(CopyFileW(other.c_str(), path.c_str(), FALSE));
    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    EXPECT_FALSE(MoveFileW(path.c_str(), (path + L".moved").c_str()));
    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    EXPECT_EQ(fileBytes(path), before);
    EXPECT_TRUE(DeleteFileW(other.c_str()));
}
} // namespace

TEST(FileUse, a_database_that_this_program_has_open_is_neither_deleted_replaced_nor_moved) {
    const std::wstring path = made();
    {
        OpenDatabase database(path);
        expectKept(path);
        database.Close();
    }
    EXPECT_TRUE(DeleteFileW(path.c_str()));
}

TEST(FileUse, nor_is_one_that_another_program_has_open_even_for_reading) {
    const std::wstring path = made();
    int ready[2], done[2];
    ASSERT_EQ(::pipe(ready), 0);
    ASSERT_EQ(::pipe(done), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        CDatabase database;
        database.Open(nullptr, FALSE, TRUE, accessConnect(path).c_str());
        char byte = 'x';
        const bool told = ::write(ready[1], &byte, 1) == 1 && ::read(done[0], &byte, 1) == 1;
        ::_exit(told ? 0 : 1);
    }
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    expectKept(path);
    EXPECT_FALSE(opened(path, false).empty()); // nor changed
    EXPECT_EQ(opened(path, true), L"");        // but read
    ASSERT_EQ(::write(done[1], &byte, 1), 1);
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(DeleteFileW(path.c_str()));
    for (const int end : {ready[0], ready[1], done[0], done[1]})
        ::close(end);
}

TEST(FileUse, readers_do_not_exclude_each_other_but_a_writer) {
    const std::wstring path = made();
    CDatabase first, second;
    first.Open(nullptr, FALSE, TRUE, accessConnect(path).c_str());
    second.Open(nullptr, FALSE, TRUE, accessConnect(path).c_str());
    EXPECT_EQ(rowsOf(first, L"SELECT * FROM T").size(), 3u);
    EXPECT_EQ(rowsOf(second, L"SELECT * FROM T").size(), 3u);
    EXPECT_NE(opened(path, false).find(L"használatban"), std::wstring::npos);
    first.Close();
    second.Close();
    OpenDatabase writer(path);
    EXPECT_NE(opened(path, true).find(L"használatban"), std::wstring::npos);
}

TEST(FileUse, a_database_that_access_has_open_is_in_use) {
    const std::wstring path = made();
    const std::string lock = file(path).substr(0, file(path).size() - 4) + ".LDB";
    writeFile(acFromUtf8(lock), "who");
    expectKept(path);
    EXPECT_NE(opened(path, false).find(L"használatban"), std::wstring::npos);
    EXPECT_EQ(opened(path, true), L"");
    std::filesystem::remove(lock);
    OpenDatabase database(path);
    database.ExecuteSQL(L"DELETE * FROM T");
    const std::string before = fileBytes(path);
    writeFile(acFromUtf8(lock), "who"); // it came while the file was open here
    EXPECT_NE(refusal([&] { database.Close(); }).find(L"használatban"), std::wstring::npos);
    EXPECT_EQ(fileBytes(path), before);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(std::filesystem::path(file(path)).parent_path()), {}), 2);
}

TEST(FileUse, what_another_program_did_to_the_file_meanwhile_is_noticed_and_stays) {
    for (const bool exchanged : {true, false}) {
        const std::wstring path = made();
        OpenDatabase database(path);
        database.ExecuteSQL(L"DELETE * FROM T");
        std::string theirs = fileBytes(path);
        theirs.back() = 'x';
        if (exchanged) {
            writeFile(path + L".new", theirs);
            std::filesystem::rename(file(path) + ".new", file(path));
        } else {
            writeFile(path, theirs);
        }
        const std::wstring text = refusal([&] { database.Close(); });
        EXPECT_NE(text.find(L"másik program megváltoztatta"), std::wstring::npos) << acToUtf8(text);
        EXPECT_EQ(text.find(L'\n'), std::wstring::npos);
        EXPECT_EQ(fileBytes(path), theirs);
    }
}

TEST(FileUse, a_workbook_that_another_program_made_meanwhile_stays) {
    const std::wstring path = testTempDir() + L"\\a.xls";
    OpenDatabase database(path, excelConnect(path));
    database.ExecuteSQL(L"CREATE TABLE T (ID NUMBER)");
    writeFile(path, "theirs");
    EXPECT_NE(refusal([&] { database.Close(); }).find(L"másik program megváltoztatta"), std::wstring::npos);
    EXPECT_EQ(fileBytes(path), "theirs");
}

TEST(FileUse, a_file_system_that_cannot_lock_keeps_nobody_out) {
    const std::wstring path = made();
    for (const int error : {EBADF, ENOLCK, EOPNOTSUPP, EINVAL}) {
        gLockError = error;
        EXPECT_EQ(opened(path, false), L"") << error;
        OpenDatabase database(path);
        database.ExecuteSQL(L"INSERT INTO T VALUES (7)");
        database.Close();
        gLockError = 0;
    }
    EXPECT_EQ(opened(path, false), L"");
    gLockError = EWOULDBLOCK;
    EXPECT_NE(opened(path, false).find(L"használatban"), std::wstring::npos);
    gLockError = 0;
    OpenDatabase database(path);
    EXPECT_EQ(rowsOf(database, L"SELECT * FROM T").size(), 7u);
}

TEST(FileUse, the_locked_descriptor_is_the_one_that_reads_and_may_write) {
    const std::wstring path = made();
    const std::wstring workbook = testTempDir() + L"\\b.xls";
    {
        OpenDatabase database(workbook, excelConnect(workbook));
        database.ExecuteSQL(L"CREATE TABLE T (ID NUMBER)");
        database.Close();
    }
    for (const auto& [one, connect] : {std::pair(path, accessConnect(path)), std::pair(workbook, excelConnect(workbook))}) {
        gExclusiveForReading = false;
        gWatched = file(one);
        gOpened = 0;
        OpenDatabase database(one, connect);
        database.ExecuteSQL(L"INSERT INTO T VALUES (7)");
        database.Close();
        EXPECT_EQ(gOpened, 1);
        EXPECT_FALSE(gExclusiveForReading);
        gWatched.clear();
    }
}

TEST(FileUse, the_owner_of_a_replaced_file_stays_its_owner) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root gives files away";
    const std::wstring path = made();
    ASSERT_EQ(::chown(file(path).c_str(), 4321, 1234), 0);
    ASSERT_EQ(::chmod(file(path).c_str(), 0664), 0);
    {
        OpenDatabase database(path);
        database.ExecuteSQL(L"DELETE * FROM T");
        database.Close();
    }
    struct stat status {};
    ASSERT_EQ(::stat(file(path).c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 4321u);
    EXPECT_EQ(status.st_gid, 1234u);
    EXPECT_EQ(status.st_mode & 07777, 0664u);
}
