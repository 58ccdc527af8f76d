#include "CBitmap.h"
#include "SampleDialog.h"
#include "TestSupport.h"

#include <cstring>

namespace {
// A DIB of 2 by 2 pixels with a palette of two colours (index 0 red, 1 blue), rows from below.
std::string smallDib() {
    std::string dib(40 + 256 * 4 + 8, '\0');
    const auto put = [&](std::size_t at, std::uint32_t value) { std::memcpy(dib.data() + at, &value, 4); };
    put(0, 40);
    put(4, 2);
    put(8, 2);
    dib[12] = 1;
    dib[14] = 8;
    put(40, 0x00FF0000);
    put(44, 0x000000FF);
    dib[40 + 1024] = 0;     // lower left
    dib[40 + 1024 + 1] = 1; // lower right
    dib[40 + 1024 + 4] = 1; // upper left
    return dib;
}
} // namespace

TEST(Bitmap, a_dib_gives_its_pixels) {
    const std::string dib = smallDib();
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateFromDib(dib.data(), dib.size()));
    EXPECT_EQ(bitmap.GetSize(), CSize(2, 2));
    EXPECT_EQ(bitmap.GetPixel(0, 1), RGB(255, 0, 0));
    EXPECT_EQ(bitmap.GetPixel(1, 1), RGB(0, 0, 255));
    EXPECT_EQ(bitmap.GetPixel(0, 0), RGB(0, 0, 255));
}

TEST(Bitmap, junk_is_no_picture) {
    CBitmap bitmap;
    EXPECT_FALSE(bitmap.CreateFromDib("junk", 4));
    std::string dib = smallDib();
    for (std::size_t size = 0; size < dib.size(); size += 13)
        bitmap.CreateFromDib(dib.data(), size); // must not read past the end
    std::memset(dib.data() + 4, 0x7F, 8);
    EXPECT_FALSE(bitmap.CreateFromDib(dib.data(), dib.size()));
    EXPECT_EQ(bitmap.GetSize(), CSize());
    EXPECT_FALSE(bitmap.CreateBlank(0, 5, 0));
}

TEST(Bitmap, a_part_is_copied_stretched_and_copies_stay_apart) {
    const std::string dib = smallDib();
    CBitmap source, target;
    source.CreateFromDib(dib.data(), dib.size());
    ASSERT_TRUE(target.CreateBlank(20, 20, RGB(255, 255, 255)));
    const CBitmap before = target;
    ASSERT_TRUE(target.StretchFrom(CRect(0, 0, 10, 20), source, CRect(1, 1, 2, 2)));
    EXPECT_EQ(target.GetPixel(5, 5), RGB(0, 0, 255));
    EXPECT_EQ(target.GetPixel(15, 5), RGB(255, 255, 255));
    EXPECT_EQ(before.GetPixel(5, 5), RGB(255, 255, 255));
    EXPECT_FALSE(target.StretchFrom(CRect(), source, CRect(0, 0, 1, 1)));
}

TEST(Bitmap, a_file_is_written_and_read_back) {
    const std::wstring file = testTempDir() + L"\\folder.bmp";
    CBitmap bitmap, again;
    bitmap.CreateBlank(3, 5, RGB(10, 20, 30));
    ASSERT_TRUE(bitmap.SaveFile(file.c_str()));
    ASSERT_TRUE(again.LoadFile(file.c_str()));
    EXPECT_EQ(again.GetSize(), CSize(3, 5));
    EXPECT_EQ(again.GetPixel(1, 1), RGB(10, 20, 30));
    EXPECT_FALSE(again.LoadFile((file + L"x").c_str()));
}
