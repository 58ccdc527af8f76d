#include "BlockThumbnails.h"

#include "AfxDialogDriver.h"
#include "TextLibrary.h"

#include <gtest/gtest.h>

namespace {
class Thumbnails : public testing::Test {
protected:
    Thumbnails() { AfxInitToolkit(true); }
    std::wstring mask() const { return library.path(L"Táblák\\*.dwg"); }
    TextLibrary library;
};
} // namespace

TEST_F(Thumbnails, of_small_previews_in_the_smallest_view_are_24_by_20) {
    library.add(L"Táblák\\a.dwg", "preview 40 30 ff0000");
    EXPECT_EQ(blockThumbnailSize(mask(), 0), CSize(24, 20));
}

TEST_F(Thumbnails, grow_with_the_view_size) {
    library.add(L"Táblák\\a.dwg", "box 1 1");
    EXPECT_EQ(blockThumbnailSize(mask(), 1), CSize(36, 30));
    EXPECT_EQ(blockThumbnailSize(mask(), 2), CSize(48, 40));
    EXPECT_EQ(blockThumbnailSize(mask(), 3), CSize(60, 50));
    EXPECT_EQ(blockThumbnailSize(mask(), 4), CSize(72, 60));
}

TEST_F(Thumbnails, take_the_largest_preview_of_the_folder) {
    library.add(L"Táblák\\a.dwg", "preview 200 80 ff0000");
    library.add(L"Táblák\\b.dwg", "preview 120 160 ff0000");
    EXPECT_EQ(blockThumbnailSize(mask(), 3), CSize(120, 160));
}

TEST_F(Thumbnails, leave_companion_drawings_out) {
    library.add(L"Táblák\\$a.dwg", "preview 40 30 ff0000");
    library.add(L"Táblák\\$$a.dwg", "preview 40 30 ff0000");
    EXPECT_TRUE(blockThumbnails(mask(), CSize(24, 20)).empty());
}

TEST_F(Thumbnails, bear_the_files_title_in_the_order_of_the_folder) {
    library.add(L"Táblák\\b.2.dwg", "box 1 1");
    library.add(L"Táblák\\a.dwg", "box 1 1");
    library.add(L"Táblák\\attributes.xml", "<AttributeList/>");
    const std::vector<BlockThumbnail> thumbnails = blockThumbnails(mask(), CSize(24, 20));
    ASSERT_EQ(thumbnails.size(), 2u);
    EXPECT_EQ(thumbnails[0].title, L"a");
    EXPECT_EQ(thumbnails[1].title, L"b.2");
}

TEST_F(Thumbnails, show_the_preview_without_its_side_margins) {
    library.add(L"Táblák\\a.dwg", "preview 100 50 ff0000 sides 0000ff");
    const std::vector<BlockThumbnail> thumbnails = blockThumbnails(mask(), CSize(60, 50));
    ASSERT_EQ(thumbnails.size(), 1u);
    EXPECT_EQ(thumbnails[0].picture.GetSize(), CSize(60, 50));
    for (const int x : {0, 30, 59})
        for (const int y : {0, 25, 49})
            EXPECT_EQ(thumbnails[0].picture.GetPixel(x, y), RGB(255, 0, 0)) << x << "," << y;
}

TEST_F(Thumbnails, of_a_drawing_without_a_preview_are_blank) {
    library.add(L"Táblák\\a.dwg", "box 1 1");
    const std::vector<BlockThumbnail> thumbnails = blockThumbnails(mask(), CSize(24, 20));
    ASSERT_EQ(thumbnails.size(), 1u);
    EXPECT_EQ(thumbnails[0].picture.GetSize(), CSize(24, 20));
    EXPECT_EQ(thumbnails[0].picture.GetPixel(12, 10), RGB(255, 255, 255));
}

TEST_F(Thumbnails, of_an_absent_folder_are_none) {
    EXPECT_TRUE(blockThumbnails(mask(), CSize(24, 20)).empty());
    EXPECT_EQ(blockThumbnailSize(mask(), 0), CSize(24, 20));
}
