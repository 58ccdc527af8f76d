#include "CString.h"
#include "SampleDialog.h"

TEST(CStringTest, strings_come_from_the_table) {
    useResources(kSampleResources);
    CString s;
    EXPECT_TRUE(s.LoadString(103));
    EXPECT_STREQ(s, L"Az alapértelmezett beállítások mentése sikeres!");
    EXPECT_FALSE(s.LoadString(9999));
    EXPECT_TRUE(s.IsEmpty());
    s.Format(119u, L"x.ini", 4);
    EXPECT_STREQ(s, L"(A 'x.ini' fájl)\n4");
}
