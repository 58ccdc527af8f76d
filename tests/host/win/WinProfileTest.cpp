#include "WinProfile.h"
#include "WinTestSupport.h"

#include <gtest/gtest.h>

namespace {
struct Profile : testing::Test {
    std::string path = testTempPath() + "/profile.ini";
    std::wstring host = acFromUtf8(path);
    std::wstring get(const wchar_t* section, const wchar_t* key) { return winProfileString(section, key, L"none", host.c_str()); }
};
} // namespace

TEST_F(Profile, keeps_values_by_section_without_regard_to_case) {
    EXPECT_EQ(get(L"A", L"x"), L"none");
    EXPECT_TRUE(WritePrivateProfileStringW(L"A", L"x", L"első", host.c_str()));
    EXPECT_TRUE(WritePrivateProfileStringW(L"B", L"x", L"2", host.c_str()));
    EXPECT_TRUE(WritePrivateProfileStringW(L"A", L"y", L"a=b", host.c_str()));
    EXPECT_EQ(get(L"a", L"X"), L"első");
    EXPECT_EQ(get(L"A", L"y"), L"a=b");
    EXPECT_EQ(get(L"B", L"y"), L"none");
    EXPECT_EQ(GetPrivateProfileIntW(L"B", L"x", 7, host.c_str()), 2u);
    EXPECT_EQ(GetPrivateProfileIntW(L"B", L"z", 7, host.c_str()), 7u);
}

TEST_F(Profile, keeps_lines_it_does_not_understand) {
    writeBytes(path, "; head\r\n[A]\r\nx=1\r\nnonsense\r\n[B]\r\nx=2\r\n");
    EXPECT_TRUE(WritePrivateProfileStringW(L"A", L"x", L"9", host.c_str()));
    EXPECT_EQ(readBytes(path), "\xEF\xBB\xBF; head\r\n[A]\r\nx=9\r\nnonsense\r\n[B]\r\nx=2\r\n");
}

TEST_F(Profile, removes_keys_and_sections) {
    WritePrivateProfileStringW(L"A", L"x", L"1", host.c_str());
    WritePrivateProfileStringW(L"A", L"y", L"2", host.c_str());
    WritePrivateProfileStringW(L"B", L"x", L"3", host.c_str());
    WritePrivateProfileStringW(L"A", L"x", nullptr, host.c_str());
    EXPECT_EQ(get(L"A", L"x"), L"none");
    WritePrivateProfileStringW(L"A", nullptr, nullptr, host.c_str());
    EXPECT_EQ(get(L"A", L"y"), L"none");
    EXPECT_EQ(get(L"B", L"x"), L"3");
}

TEST_F(Profile, a_value_stays_on_one_line_and_in_the_buffer) {
    WritePrivateProfileStringW(L"A", L"x", L"one\ntwo", host.c_str());
    wchar_t buffer[5];
    EXPECT_EQ(GetPrivateProfileStringW(L"A", L"x", L"", buffer, 5, host.c_str()), 4u);
    EXPECT_STREQ(buffer, L"one ");
}

TEST_F(Profile, a_place_that_cannot_be_written_gives_false) {
    EXPECT_FALSE(WritePrivateProfileStringW(L"A", L"x", L"1", L"\\none\\none\\p.ini"));
}
