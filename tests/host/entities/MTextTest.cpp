// Paragraph texts: format codes, wrapping, attachment, explode.
#include "EntityTestSupport.h"
#include "entities/MTextLayout.h"

#include <algorithm>

namespace {
std::vector<std::wstring> lines(const wchar_t* contents) {
    return dbMTextParagraphs(contents);
}
using Lines = std::vector<std::wstring>;

class MTextTest : public DrawingTest {
protected:
    AcDbMText text;
    MTextTest() {
        text.setTextHeight(3.0);
        text.setLocation({100, 50, 0});
    }
    AcDbExtents box(int attachment, const wchar_t* contents = L"HH\\PHH") {
        text.setContents(contents);
        text.setAttachment(attachment);
        return extentsOf(text);
    }
};
} // namespace

TEST(MTextCodes, paragraphs_end_at_p_and_at_line_ends) {
    EXPECT_EQ(lines(L"one\\Ptwo\nthree^Jfour"), (Lines{L"one", L"two", L"three", L"four"}));
    EXPECT_EQ(lines(L""), (Lines{L""}));
    EXPECT_EQ(lines(L"one\r\n"), (Lines{L"one", L""}));
}
TEST(MTextCodes, formats_with_an_argument_vanish_up_to_the_semicolon) {
    EXPECT_EQ(lines(L"{\\fArial|b0|i0;A}\\H2.5x;B\\C1;C\\W0.8;D\\T1.1;E\\A1;F\\pxqc;G\\Q15;H"), (Lines{L"ABCDEFGH"}));
}
TEST(MTextCodes, lines_under_and_over_vanish) {
    EXPECT_EQ(lines(L"\\Lunder\\l \\Oover\\o \\Kthrough\\k"), (Lines{L"under over through"}));
}
TEST(MTextCodes, a_soft_blank_does_not_break) {
    EXPECT_EQ(lines(L"a\\~b"), (Lines{L"a\u00A0b"}));
}
TEST(MTextCodes, stacks_stand_on_one_line) {
    EXPECT_EQ(lines(L"1\\S1/2; x\\S+1^-2;y\\S3#4;"), (Lines{L"11/2 x+1/-2y3/4"}));
    EXPECT_EQ(lines(L"m\\S2^ ;"), (Lines{L"m2"}));
    EXPECT_EQ(lines(L"m\\S^ 2;"), (Lines{L"m2"}));
    EXPECT_EQ(lines(L"\\Splain;"), (Lines{L"plain"}));
}
TEST(MTextCodes, escaped_signs_stand_for_themselves) {
    EXPECT_EQ(lines(L"\\\\ \\{ \\}"), (Lines{L"\\ { }"}));
    EXPECT_EQ(lines(L"a^ b ^Ic"), (Lines{L"a^b  c"}));
}
TEST(MTextCodes, numbered_characters) {
    EXPECT_EQ(lines(L"\\U+0150ra"), (Lines{L"Őra"}));
    EXPECT_EQ(lines(L"\\U+01"), (Lines{L"\\U+01"}));
    EXPECT_EQ(lines(L"\\U+00GG"), (Lines{L"\\U+00GG"}));
}
TEST(MTextCodes, control_codes_of_texts_count_too) {
    EXPECT_EQ(lines(L"90%%d"), (Lines{L"90°"}));
}
TEST(MTextCodes, a_content_that_breaks_off_within_a_code_ends_there) {
    EXPECT_EQ(lines(L"A\\"), (Lines{L"A"}));
    EXPECT_EQ(lines(L"A\\fArial"), (Lines{L"A"}));
    EXPECT_EQ(lines(L"A\\S1/2"), (Lines{L"A1/2"}));
    EXPECT_EQ(lines(L"A^"), (Lines{L"A^"}));
    EXPECT_EQ(lines(L"{A"), (Lines{L"A"}));
}
TEST(MTextCodes, an_unknown_code_is_shown_as_written) {
    EXPECT_EQ(lines(L"C:\\Zfolder"), (Lines{L"C:\\Zfolder"}));
}

TEST_F(MTextTest, wraps_at_blanks_so_that_no_line_is_wider_than_its_width) {
    text.setContents(L"several words that do not fit on one line");
    text.setWidth(30.0);
    const Lines wrapped = text.plainLines();
    ASSERT_GT(wrapped.size(), 2u);
    std::wstring joined;
    for (const std::wstring& line : wrapped) {
        AcDbText measured({0, 0, 0}, line.c_str(), AcDbObjectId(), 3.0);
        EXPECT_LE(extentsOf(measured).maxPoint().x, 30.0);
        joined += (joined.empty() ? L"" : L" ") + line;
    }
    EXPECT_EQ(joined, text.contentsText());
}

TEST_F(MTextTest, a_word_wider_than_the_width_stands_alone) {
    text.setContents(L"a Wordlongerthanallthewidth b");
    text.setWidth(10.0);
    EXPECT_EQ(text.plainLines(), (Lines{L"a", L"Wordlongerthanallthewidth", L"b"}));
}

TEST_F(MTextTest, without_a_width_is_not_wrapped) {
    text.setContents(L"several words that would not fit on any line of such a width");
    EXPECT_EQ(text.plainLines().size(), 1u);
}

TEST_F(MTextTest, top_left_hangs_from_its_location) {
    const AcDbExtents b = box(1);
    EXPECT_NEAR(b.maxPoint().y, 50, 1e-6); // capitals reach the height
    EXPECT_GE(b.minPoint().x, 100);
    EXPECT_NEAR(b.minPoint().y, 50 - 3 - 5, 1e-6); // a line pitch of five thirds of the height
}

TEST_F(MTextTest, the_middle_attachment_lies_evenly_about_its_location) {
    const AcDbExtents b = box(5);
    EXPECT_NEAR((b.minPoint().y + b.maxPoint().y) / 2, 50, 1e-6);
    EXPECT_NEAR((b.minPoint().x + b.maxPoint().x) / 2, 100, 0.5); // by pen widths, not by ink
}

TEST_F(MTextTest, bottom_right_stands_left_of_and_on_its_location) {
    const AcDbExtents b = box(9);
    EXPECT_LE(b.maxPoint().x, 100);
    EXPECT_NEAR(b.minPoint().y, 50, 1e-6);
}

TEST_F(MTextTest, line_spacing_multiplies_the_pitch) {
    text.setLineSpacingFactor(2.0);
    EXPECT_NEAR(box(1).minPoint().y, 50 - 3 - 10, 1e-6);
}

TEST_F(MTextTest, an_empty_line_keeps_its_room) {
    EXPECT_NEAR(box(1, L"HH\\P\\PHH").minPoint().y, 50 - 3 - 10, 1e-6);
    EXPECT_EQ(pictureOf(text).primitives.size(), 2u);
}

TEST_F(MTextTest, turns_with_its_direction) {
    text.setRotation(kHalfPi);
    EXPECT_NEAR(text.rotation(), kHalfPi, 1e-12);
    const AcDbExtents b = box(1);
    EXPECT_NEAR(b.minPoint().x, 100, 1e-6);
    EXPECT_GE(b.minPoint().y, 50);
}

TEST_F(MTextTest, mirrored_stays_legible_in_the_mirrored_place) {
    const AcDbExtents before = box(1);
    ASSERT_EQ(text.transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {1, 0, 0})), Acad::eOk);
    EXPECT_EQ(text.attachment(), 3);
    EXPECT_NEAR(text.rotation(), 0, 1e-12);
    const AcDbExtents after = extentsOf(text);
    EXPECT_NEAR(after.maxPoint().y, before.maxPoint().y, 1e-9);
    EXPECT_LE(after.maxPoint().x, -100);
    ASSERT_EQ(text.transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {0, 1, 0})), Acad::eOk);
    EXPECT_EQ(text.attachment(), 9);
}

TEST_F(MTextTest, explodes_to_a_text_a_line_in_the_same_place) {
    text.setContents(L"one\\P\\Ptwo");
    text.setAttachment(5);
    text.setRotation(0.4);
    text.setColorIndex(2);
    const Exploded pieces(text);
    ASSERT_EQ(pieces.size(), 2u);
    AcDbExtents all;
    for (std::size_t i = 0; i < 2; ++i) {
        ASSERT_NE(pieces.as<AcDbText>(i), nullptr);
        EXPECT_EQ(pieces[i].colorIndex(), 2);
        all.addExt(extentsOf(pieces[i]));
    }
    EXPECT_STREQ(pieces.as<AcDbText>(1)->textStringConst(), L"two");
    const AcDbExtents own = extentsOf(text);
    expectBox(all, own.minPoint(), own.maxPoint());
}
