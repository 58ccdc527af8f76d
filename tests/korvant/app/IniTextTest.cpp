// Values with any letters in files of a single-byte code page.
#include "TrfcIniText.h"

#include "AcUtText.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

TEST(IniText, what_the_code_page_holds_stays_as_it_is) {
    for (const wchar_t* text : {L"", L"C:\\Táblák\\Őrült ű", L"mi?", L"a < b > c", L"U+0041", L"inner blanks stay"})
        EXPECT_EQ(toIniText(text), text);
}

TEST(IniText, a_foreign_letter_stands_as_its_code) {
    EXPECT_EQ(toIniText(L"D:\\Αθ"), L"D:\\<U+0391><U+03B8>");
    EXPECT_EQ(toIniText(L"\U0001F600"), L"<U+1F600>");
    EXPECT_EQ(toIniText(L"line\nbreak\x1A"), L"line<U+000A>break<U+001A>");
    EXPECT_EQ(toIniText(L"end "), L"end<U+0020>"); // a line's end is trimmed
}

TEST(IniText, what_is_no_code_is_plain_text) {
    for (const wchar_t* text : {L"<U+", L"<U+>", L"<U+0041", L"<U+00g1>", L"<U+D800>", L"<U+110000>", L"<U+0000041>", L"<U+0>", L"<u+0041>"})
        EXPECT_EQ(fromIniText(text), text);
    EXPECT_EQ(fromIniText(L"a<U+0041>b<U+41>c"), L"aAbAc");
}

RC_GTEST_PROP(IniText, any_text_comes_back_and_fits_the_code_page, ()) {
    const auto letter = rc::gen::oneOf(rc::gen::inRange(1, 0x250), rc::gen::inRange(1, 0xD800), rc::gen::inRange(0xE000, 0x110000),
                                       rc::gen::elementOf(std::vector<int>{'<', 'U', '+', '>', '0', '4', '1', ' ', '?'}));
    std::wstring value;
    for (const int code : *rc::gen::container<std::vector<int>>(letter))
        value += static_cast<wchar_t>(code);
    const std::wstring text = toIniText(value);
    RC_ASSERT(acFromAnsi(acToAnsi(text)) == text);
    RC_ASSERT(text.empty() || text.back() != L' ');
    RC_ASSERT(fromIniText(text) == value);
}
