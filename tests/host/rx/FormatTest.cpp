#include "AcUtText.h"

#include <gtest/gtest.h>

#include <clocale>

TEST(Format, takes_wide_text_for_percent_s) {
    EXPECT_EQ(acFormat(L"<%s|%ls|%8s|%-8s|%.2s>", L"őű", L"abc", L"tábla", L"tábla", L"tábla"), L"<őű|abc|   tábla|tábla   |tá>");
}
TEST(Format, takes_narrow_text_for_percent_capital_s) {
    EXPECT_EQ(acFormat(L"%S-%hs", "abc", "\xF5"), L"abc-ő");
}
TEST(Format, shows_a_null_text_as_a_word) {
    const wchar_t* none = nullptr;
    EXPECT_EQ(acFormat(L"%s", none), L"(null)");
}
TEST(Format, writes_integers_of_every_size) {
    EXPECT_EQ(acFormat(L"%d %5d %05d %-5d| %+d %x %X %#X %u", -7, 42, 42, 42, 3, 255, 255, 255, 4000000000u),
              L"-7    42 00042 42   | +3 ff FF 0XFF 4000000000");
    EXPECT_EQ(acFormat(L"%lu %lld %I64d %hd", 123456789012UL, -1LL, 9000000000LL, 70000), L"123456789012 -1 9000000000 4464");
}
TEST(Format, writes_reals_with_width_and_precision) {
    EXPECT_EQ(acFormat(L"%f %.3f %8.2f %g %e", 0.5, 2.0, 3.14159, 0.0025, 1.0), L"0.500000 2.000     3.14 0.0025 1.000000e+00");
    EXPECT_EQ(acFormat(L"%*.*f", 8, 1, 2.25), L"     2.2");
}
TEST(Format, writes_a_wide_character_and_a_percent_sign) {
    EXPECT_EQ(acFormat(L"%c%c 100%%", L'ő', L'x'), L"őx 100%");
}
TEST(Format, keeps_an_unknown_directive_as_it_stands) {
    EXPECT_EQ(acFormat(L"%y %"), L"%y %");
}
TEST(Format, uses_a_point_whatever_the_locale) {
    const char* const set = std::setlocale(LC_ALL, "de_DE.UTF-8");
    EXPECT_EQ(acFormat(L"%.1f", 1.5), L"1.5");
    if (set != nullptr)
        std::setlocale(LC_ALL, "C");
}
TEST(Format, writes_numbers_longer_than_any_fixed_buffer) {
    EXPECT_EQ(acFormat(L"%.0f", 1.0e100).size(), 101u);
    EXPECT_EQ(acFormat(L"%200d", 1).size(), 200u);
}
TEST(Format, cuts_at_the_buffers_end_and_says_so) {
    wchar_t buffer[6];
    EXPECT_EQ(acutSPrintf(buffer, 6, L"%s", L"abcdefgh"), -1);
    EXPECT_STREQ(buffer, L"abcde");
    EXPECT_EQ(acutSPrintf(buffer, 6, L"%d", 12345), 5);
}
TEST(Print, goes_to_the_sink_until_it_is_taken_away) {
    std::wstring seen;
    AcPrintSink earlier = acSetPrintSink([&seen](std::wstring_view text) { seen += text; });
    acutPrintf(L"\n%s: %d", L"db", 3);
    acdbPrintf(L"!");
    acSetPrintSink(earlier);
    EXPECT_EQ(seen, L"\ndb: 3!");
}
