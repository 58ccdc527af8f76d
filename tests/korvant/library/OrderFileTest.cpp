#include "orderFile.h"

#include "TextLibrary.h"
#include "xmlParser.h"

#include <gtest/gtest.h>

namespace {
constexpr char kOrders[] = "<Libraries><Library folder=\"C:\\t\\a\\\">"
                           "<Block><Name>one</Name></Block><Block><Name>two</Name></Block><Block><Name>three</Name></Block>"
                           "</Library><Library folder=\"C:\\t\\b\\\"><Block><Name>k&amp;l</Name></Block></Library></Libraries>";

class OrderFile : public testing::Test {
protected:
    OrderFile() { library.add(L"orders.xml", kOrders); }
    std::wstring file() const { return library.path(L"orders.xml"); }
    std::wstring name(int libraryIndex, int block) const {
        const XmlDocNode root = openDocument(file(), L"Libraries");
        const ACHAR* const text = root.childByNameAt(L"Library", libraryIndex).childByNameAt(L"Block", block).childByName(L"Name").textAt(0);
        return text != nullptr ? text : L"";
    }
    TextLibrary library;
};
} // namespace

TEST_F(OrderFile, exchanges_a_row_with_one_before_it) {
    EXPECT_TRUE(swapInOrderFile(file(), L"C:\\t\\a\\*.dwg", 2, 1));
    EXPECT_EQ(name(0, 0), L"one");
    EXPECT_EQ(name(0, 1), L"three");
    EXPECT_EQ(name(0, 2), L"two");
    EXPECT_EQ(name(1, 0), L"k&l");
}

TEST_F(OrderFile, exchanges_a_row_with_one_behind_it) {
    EXPECT_TRUE(swapInOrderFile(file(), L"C:\\t\\a\\*.dwg", 0, -2));
    EXPECT_EQ(name(0, 0), L"three");
    EXPECT_EQ(name(0, 2), L"one");
}

TEST_F(OrderFile, stays_as_it_is_for_a_row_out_of_range) {
    EXPECT_FALSE(swapInOrderFile(file(), L"C:\\t\\a\\*.dwg", 0, 1));
    EXPECT_FALSE(swapInOrderFile(file(), L"C:\\t\\a\\*.dwg", 2, -1));
    EXPECT_FALSE(swapInOrderFile(file(), L"C:\\t\\a\\*.dwg", 3, 1));
    EXPECT_EQ(library.contentOf(L"orders.xml"), kOrders);
}

TEST_F(OrderFile, stays_as_it_is_for_another_folder) {
    EXPECT_FALSE(swapInOrderFile(file(), L"C:\\t\\c\\*.dwg", 1, 1));
    EXPECT_EQ(library.contentOf(L"orders.xml"), kOrders);
}

TEST_F(OrderFile, is_not_made_where_it_is_absent) {
    EXPECT_FALSE(swapInOrderFile(library.path(L"none.xml"), L"C:\\t\\a\\*.dwg", 1, 1));
    EXPECT_EQ(library.contentOf(L"none.xml"), "");
}
