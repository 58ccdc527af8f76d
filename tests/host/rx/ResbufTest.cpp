#include "adsdef.h"

#include <gtest/gtest.h>

TEST(ResultBuffer, a_chain_is_built_from_pairs) {
    const ads_point p = {1.0, 2.0, 3.0};
    const ads_name name = {77, 0};
    resbuf* const chain = acutBuildList(70, 1, 340, name, 1, L"fájl", 40, 2.5, 10, p, 90, 100000, 0);
    ASSERT_NE(chain, nullptr);
    const resbuf* item = chain;
    EXPECT_EQ(item->resval.rint, 1);
    item = item->rbnext;
    EXPECT_EQ(item->resval.rlname[0], 77);
    item = item->rbnext;
    EXPECT_STREQ(item->resval.rstring, L"fájl");
    item = item->rbnext;
    EXPECT_DOUBLE_EQ(item->resval.rreal, 2.5);
    item = item->rbnext;
    EXPECT_DOUBLE_EQ(item->resval.rpoint[2], 3.0);
    item = item->rbnext;
    EXPECT_EQ(item->resval.rlong, 100000);
    EXPECT_EQ(item->rbnext, nullptr);
    acutRelRb(chain);
}
TEST(ResultBuffer, zero_is_a_texts_code_when_it_comes_first) {
    resbuf* const chain = acutBuildList(0, L"LINE", 8, L"layer", 0);
    ASSERT_NE(chain, nullptr);
    EXPECT_STREQ(chain->resval.rstring, L"LINE");
    EXPECT_STREQ(chain->rbnext->resval.rstring, L"layer");
    acutRelRb(chain);
}
TEST(ResultBuffer, an_unknown_type_makes_no_chain) {
    EXPECT_EQ(acutBuildList(70, 1, 888, 2, 0), nullptr);
    EXPECT_EQ(acutNewRb(888), nullptr);
}
TEST(ResultBuffer, a_copy_owns_its_texts_and_bytes) {
    char bytes[] = {1, 2, 3};
    const ads_binary binary = {3, bytes};
    resbuf* const chain = acutBuildList(1004, &binary, 1000, L"x", RTLB, RTLE, 0);
    resbuf* const copy = acutCopyRb(chain);
    EXPECT_NE(copy->resval.rbinary.buf, chain->resval.rbinary.buf);
    acutRelRb(chain);
    EXPECT_EQ(copy->resval.rbinary.buf[2], 3);
    EXPECT_STREQ(copy->rbnext->resval.rstring, L"x");
    EXPECT_EQ(copy->rbnext->rbnext->rbnext->restype, RTLE);
    acutRelRb(copy);
    EXPECT_EQ(acutCopyRb(nullptr), nullptr);
}
