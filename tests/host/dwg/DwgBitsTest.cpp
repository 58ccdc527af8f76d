// Bit codes, texts and checksums.
#include "DwgBits.h"
#include "DwgCrc.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
DwgBitReader readerOf(DwgBitWriter& writer, const DwgTextCodec* text = nullptr) {
    const std::vector<Adesk::UInt8>& bytes = writer.finish();
    return DwgBitReader(bytes.data(), bytes.size(), text);
}
} // namespace

TEST(DwgCrc, the_check_value_of_the_polynomial_comes_out) {
    const char* digits = "123456789";
    EXPECT_EQ(dwgCrc(0, reinterpret_cast<const std::uint8_t*>(digits), 9), 0xBB3D);
}

TEST(DwgBits, packed_shorts_come_back) {
    const int values[] = {0, 1, 255, 256, 257, -1, 32767, -32768};
    DwgBitWriter out;
    out.B(true); // so that nothing stands on a byte's edge
    for (const int v : values)
        out.BS(v);
    DwgBitReader in = readerOf(out);
    in.B();
    for (const int v : values)
        EXPECT_EQ(in.BS(), v);
    EXPECT_FALSE(in.failed());
}

TEST(DwgBits, packed_longs_and_doubles_come_back) {
    const int longs[] = {0, 1, 255, 256, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
    const double reals[] = {0.0, 1.0, -0.0, 0.1, -1e300, 5e-324};
    DwgBitWriter out;
    for (const int v : longs)
        out.BL(v);
    for (const double v : reals)
        out.BD(v);
    DwgBitReader in = readerOf(out);
    for (const int v : longs)
        EXPECT_EQ(in.BL(), v);
    for (const double v : reals) {
        const double got = in.BD();
        EXPECT_EQ(std::signbit(got), std::signbit(v));
        EXPECT_EQ(got, v);
    }
}

TEST(DwgBits, a_double_is_stored_as_the_difference_to_its_default) {
    const double pairs[][2] = {{1.5, 1.5}, {1.5, 1.5000000001}, {100.25, 100.5}, {3.0, -7.0}, {0.0, 1.0}};
    DwgBitWriter out;
    for (const auto& pair : pairs)
        out.DD(pair[0], pair[1]);
    EXPECT_LT(out.position(), 5U * 66U);
    DwgBitReader in = readerOf(out);
    for (const auto& pair : pairs)
        EXPECT_EQ(in.DD(pair[1]), pair[0]);
}

TEST(DwgBits, handles_keep_code_and_number) {
    DwgBitWriter out;
    out.H(5, 0);
    out.H(4, 0x2F);
    out.H(3, 0x123456789ABCDEF0);
    DwgBitReader in = readerOf(out);
    for (const auto& [code, value] : {std::pair<int, Adesk::UInt64>{5, 0}, {4, 0x2F}, {3, 0x123456789ABCDEF0}}) {
        const DwgHandleRef ref = in.H();
        EXPECT_EQ(ref.code, code);
        EXPECT_EQ(ref.value, value);
    }
}

TEST(DwgBits, relative_handles_count_from_the_object) {
    EXPECT_EQ((DwgHandleRef{6, 0}.absolute(0x20)), 0x21U);
    EXPECT_EQ((DwgHandleRef{8, 0}.absolute(0x20)), 0x1FU);
    EXPECT_EQ((DwgHandleRef{0xA, 5}.absolute(0x20)), 0x25U);
    EXPECT_EQ((DwgHandleRef{0xC, 5}.absolute(0x20)), 0x1BU);
    EXPECT_EQ((DwgHandleRef{4, 0x77}.absolute(0x20)), 0x77U);
}

TEST(DwgBits, modular_numbers_come_back) {
    const int numbers[] = {0, 1, -1, 63, 64, -64, 127, 128, 100000, -100000, 2000000000, -2000000000};
    DwgBitWriter out;
    for (const int v : numbers)
        out.MCsigned(v);
    out.MC(0x12345678);
    out.MS(0x7FFF);
    out.MS(0x8000);
    out.MS(20000000);
    DwgBitReader in = readerOf(out);
    for (const int v : numbers)
        EXPECT_EQ(in.MCsigned(), v);
    EXPECT_EQ(in.MC(), 0x12345678U);
    EXPECT_EQ(in.MS(), 0x7FFFU);
    EXPECT_EQ(in.MS(), 0x8000U);
    EXPECT_EQ(in.MS(), 20000000U);
}

TEST(DwgBits, reading_past_the_end_fails_and_gives_zeros) {
    const Adesk::UInt8 bytes[] = {0x00, 0xFF};
    DwgBitReader in(bytes, 2);
    in.RL();
    EXPECT_TRUE(in.failed());
    EXPECT_EQ(in.RD(), 0.0);
    EXPECT_EQ(in.TV(), L"");
    EXPECT_EQ(in.left(), 0U);
}

TEST(DwgBits, a_count_that_the_stream_cannot_hold_fails) {
    const Adesk::UInt8 bytes[8] = {};
    DwgBitReader in(bytes, 8);
    EXPECT_EQ(in.count(4, 16), 4U);
    EXPECT_EQ(in.count(5, 16), 0U);
    EXPECT_TRUE(in.failed());
    DwgBitReader negative(bytes, 8);
    EXPECT_EQ(negative.count(-1, 1), 0U);
    EXPECT_TRUE(negative.failed());
}

TEST(DwgBits, copied_bits_stand_where_they_are_put) {
    const Adesk::UInt8 bytes[] = {0xA5, 0x3C, 0x99, 0x01, 0xFE, 0x77};
    DwgBitWriter out;
    out.bits(5, 3);
    out.copyBits(bytes, 3, 45);
    DwgBitReader in = readerOf(out), source(bytes, sizeof bytes);
    in.setPosition(3);
    source.setPosition(3);
    for (int i = 3; i < 45; ++i)
        ASSERT_EQ(in.B(), source.B()) << i;
}

TEST(DwgBits, a_patched_number_changes_only_itself) {
    DwgBitWriter out;
    out.bits(3, 2);
    out.RL(0);
    out.RC(0xAA);
    out.alignToByte();
    out.patchRL(2, 0x01020304);
    DwgBitReader in = readerOf(out);
    EXPECT_EQ(in.bits(2), 3U);
    EXPECT_EQ(in.RL(), 0x01020304U);
    EXPECT_EQ(in.RC(), 0xAA);
}

TEST(DwgText, hungarian_letters_keep_their_byte_and_others_are_escaped) {
    const DwgTextCodec text(DwgTextCodec::kAnsi1250);
    const std::wstring words = L"\x151\x171\xE1rv\xEDzt\x171r\x151 \x3A9";
    const std::string bytes = text.encode(words);
    EXPECT_NE(bytes.find("\\U+03A9"), std::string::npos);
    EXPECT_EQ(bytes[0], '\xF5');
    EXPECT_EQ(text.decode(bytes), words);
}

TEST(DwgText, a_backslash_that_is_no_escape_stays) {
    const DwgTextCodec text(30);
    EXPECT_EQ(text.decode("\\U+12"), L"\\U+12");
    EXPECT_EQ(text.decode("a\\P\\U+0041b"), L"a\\PAb");
}

TEST(DwgText, a_character_beyond_16_bits_goes_as_a_pair) {
    const DwgTextCodec text(30);
    const std::wstring sign(1, static_cast<wchar_t>(0x1F6A7));
    EXPECT_EQ(text.encode(sign), "\\U+D83D\\U+DEA7");
    EXPECT_EQ(text.decode(text.encode(sign)), sign);
}
