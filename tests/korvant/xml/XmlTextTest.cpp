// Text pieces of an element, changed in place.
#include "xmlParser.h"

#include <gtest/gtest.h>

TEST(XmlText, a_piece_is_replaced_and_one_behind_the_last_is_appended) {
    XmlDocNode a = parseDocument(L"<a>one<b/>two</a>", L"a");
    a.setTextAt(0, L"first");
    EXPECT_STREQ(a.textAt(0), L"first");
    EXPECT_STREQ(a.textAt(1), L"two");
    a.setTextAt(2, L"three");
    EXPECT_STREQ(a.textAt(2), L"three");
    EXPECT_EQ(a.textAt(3), nullptr);
}

TEST(XmlText, what_lies_further_off_is_left_alone) {
    XmlDocNode a = parseDocument(L"<a>one</a>", L"a");
    a.setTextAt(2, L"gap");
    a.setTextAt(-1, L"before");
    EXPECT_STREQ(a.textAt(0), L"one");
    EXPECT_EQ(a.textAt(1), nullptr);
    XmlDocNode none;
    none.setTextAt(0, L"nothing");
    EXPECT_EQ(none.textAt(0), nullptr);
}
