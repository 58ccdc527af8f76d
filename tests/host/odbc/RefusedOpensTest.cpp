// A database that is refused leaves no descriptor open: a program that tries often must not run out of them.
#include "OdbcTestSupport.h"
#include "OpenDescriptors.h"

namespace {
void refuseOpen(const std::wstring& connect) {
    CDatabase database;
    refusal([&] { database.Open(nullptr, FALSE, FALSE, connect.c_str()); });
    EXPECT_FALSE(database.IsOpen());
}
// The descriptors that a hundred refusals leave behind, after the first one: what a library keeps for good
// at its first use is no leak.
std::ptrdiff_t leftBy(const std::function<void()>& refused) {
    refused();
    const std::ptrdiff_t before = openDescriptors();
    for (int i = 0; i < 100; ++i)
        refused();
    return openDescriptors() - before;
}
} // namespace

TEST(RefusedOpens, a_file_that_is_in_use_leaves_no_descriptor) {
    const std::wstring path = newDatabase();
    const OpenDatabase holder(path);
    EXPECT_EQ(leftBy([&] { refuseOpen(accessConnect(path)); }), 0);
}

TEST(RefusedOpens, a_damaged_file_leaves_no_descriptor) {
    const std::wstring folder = testTempDir(), mdb = folder + L"\\a.mdb", xls = folder + L"\\a.xls";
    for (const std::string& bytes : {std::string(), std::string("x"), std::string(8192, '\0'), std::string(100000, 'j')}) {
        writeFile(mdb, bytes);
        writeFile(xls, bytes);
        EXPECT_EQ(leftBy([&] { refuseOpen(accessConnect(mdb)); }), 0);
        EXPECT_EQ(leftBy([&] { refuseOpen(excelConnect(xls)); }), 0);
    }
    const std::wstring whole = newDatabase(folder, L"b.mdb");
    const std::string bytes = fileBytes(whole);
    writeFile(whole, bytes.substr(0, bytes.size() / 2));
    EXPECT_EQ(leftBy([&] { refuseOpen(accessConnect(whole)); }), 0);
}

TEST(RefusedOpens, what_is_no_file_leaves_no_descriptor) {
    const std::wstring folder = testTempDir();
    for (const std::wstring& path : {folder, folder + L"\\absent.mdb", std::wstring(L"/dev/null")})
        EXPECT_EQ(leftBy([&] { refuseOpen(accessConnect(path)); }), 0) << acToUtf8(path);
}

TEST(RefusedOpens, a_refused_statement_and_a_closed_database_leave_no_descriptor) {
    const std::wstring path = newDatabase();
    EXPECT_EQ(leftBy([&] {
                  OpenDatabase database(path);
                  refusal(database, L"SELECT * FROM NINCS");
                  database.Close();
              }),
              0);
}
