// Texts: the ink box, alignment, mirrored and slanted letters, styles.
#include "EntityTestSupport.h"

#include "AcUtText.h"

namespace {
class TextTest : public DrawingTest {
protected:
    AcDbText text{{0, 0, 0}, L"Hg", AcDbObjectId(), 10.0, 0.0};
    // The ink box of the text as it would stand at the origin.
    GiTextOutline outline(const wchar_t* what = L"Hg", double height = 10.0) {
        AcGiTextStyle style = standardStyle();
        style.height = height;
        return giTextOutline(what, style);
    }
    AcGiTextStyle standardStyle() {
        const AcDbObjectPointer<AcDbTextStyleTableRecord> record(db.textStyleStandard());
        return record->giStyle();
    }
    void align(AcDb::TextHorzMode horizontal, AcDb::TextVertMode vertical, const AcGePoint3d& at) {
        text.setHorizontalMode(horizontal);
        text.setVerticalMode(vertical);
        text.setAlignmentPoint(at);
        ASSERT_EQ(text.adjustAlignment(&db), Acad::eOk);
    }
};
} // namespace

TEST_F(TextTest, extents_are_its_ink) {
    const GiTextOutline ink = outline();
    text.setPosition({5, 7, 0});
    expectBox(extentsOf(text), {5 + ink.minPoint.x, 7 + ink.minPoint.y, 0}, {5 + ink.maxPoint.x, 7 + ink.maxPoint.y, 0});
}

TEST_F(TextTest, extents_of_a_text_turned_by_a_quarter_are_its_ink_turned) {
    const GiTextOutline ink = outline();
    text.setRotation(kHalfPi);
    expectBox(extentsOf(text), {-ink.maxPoint.y, ink.minPoint.x, 0}, {-ink.minPoint.y, ink.maxPoint.x, 0});
}

TEST_F(TextTest, a_width_factor_stretches_the_ink) {
    const double before = extentsOf(text).maxPoint().x;
    text.setWidthFactor(2.0);
    EXPECT_NEAR(extentsOf(text).maxPoint().x, 2.0 * before, 1e-9);
}

TEST_F(TextTest, control_codes_are_drawn_as_their_characters) {
    text.setTextString(L"90%%d");
    const AcDbExtents coded = extentsOf(text);
    text.setTextString(L"90°");
    const AcDbExtents plain = extentsOf(text);
    expectBox(coded, plain.minPoint(), plain.maxPoint(), 1e-12);
    EXPECT_STREQ(text.textStringConst(), L"90°");
}

TEST_F(TextTest, without_characters_has_no_extents) {
    text.setTextString(nullptr);
    AcDbExtents extents;
    EXPECT_EQ(text.getGeomExtents(extents), Acad::eInvalidExtents);
    EXPECT_STREQ(text.textStringConst(), L"");
}

TEST_F(TextTest, a_null_style_reads_as_the_working_drawings_standard) {
    EXPECT_EQ(text.textStyle(), db.textStyleStandard());
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_TRUE(text.textStyle().isNull());
    EXPECT_TRUE(extentsOf(text).isValid()) << "drawn all the same";
    acdbHostApplicationServices()->setWorkingDatabase(&db);
}

TEST_F(TextTest, without_a_height_takes_that_of_its_style) {
    {
        const AcDbObjectPointer<AcDbTextStyleTableRecord> record(db.textStyleStandard(), AcDb::kForWrite);
        record->setTextSize(4.0);
    }
    const AcDbText plain({0, 0, 0}, L"H");
    EXPECT_NEAR(extentsOf(plain).maxPoint().y, outline(L"H", 4.0).maxPoint.y, 1e-9);
}

TEST_F(TextTest, left_on_the_base_line_stays_where_it_stands) {
    text.setPosition({3, 4, 0});
    text.setAlignmentPoint({99, 99, 0});
    ASSERT_EQ(text.adjustAlignment(&db), Acad::eOk);
    expectPoint(text.position(), {3, 4, 0});
}

TEST_F(TextTest, right_ends_at_its_alignment_point) {
    align(AcDb::kTextRight, AcDb::kTextBase, {100, 50, 0});
    EXPECT_NEAR(extentsOf(text).maxPoint().x, 100, 1e-9);
    EXPECT_NEAR(text.position().y, 50, 1e-9);
}

TEST_F(TextTest, centred_ink_lies_evenly_about_its_point) {
    align(AcDb::kTextCenter, AcDb::kTextBase, {100, 50, 0});
    const AcDbExtents box = extentsOf(text);
    EXPECT_NEAR((box.minPoint().x + box.maxPoint().x) / 2, 100, 1e-9);
}

TEST_F(TextTest, in_the_middle_lies_evenly_both_ways) {
    align(AcDb::kTextMid, AcDb::kTextBase, {100, 50, 0});
    const AcDbExtents box = extentsOf(text);
    EXPECT_NEAR((box.minPoint().x + box.maxPoint().x) / 2, 100, 1e-9);
    EXPECT_NEAR((box.minPoint().y + box.maxPoint().y) / 2, 50, 1e-9);
}

TEST_F(TextTest, hung_from_its_top_has_its_capitals_there) {
    align(AcDb::kTextLeft, AcDb::kTextTop, {0, 50, 0});
    EXPECT_NEAR(text.position().y, 40, 1e-9);
    align(AcDb::kTextLeft, AcDb::kTextVertMid, {0, 50, 0});
    EXPECT_NEAR(text.position().y, 45, 1e-9);
}

TEST_F(TextTest, on_its_bottom_stands_with_the_tails_of_its_letters) {
    align(AcDb::kTextLeft, AcDb::kTextBottom, {0, 50, 0});
    EXPECT_NEAR(extentsOf(text).minPoint().y, 50, 1e-9); // "Hg" has a tail
    const double base = text.position().y;
    text.setTextString(L"HH");
    align(AcDb::kTextLeft, AcDb::kTextBottom, {0, 50, 0});
    EXPECT_NEAR(text.position().y, base, 1e-9) << "the base line does not jump with the letters";
}

TEST_F(TextTest, alignment_follows_the_turn) {
    text.setRotation(kHalfPi);
    align(AcDb::kTextRight, AcDb::kTextBase, {100, 50, 0});
    EXPECT_NEAR(extentsOf(text).maxPoint().y, 50, 1e-9);
    EXPECT_NEAR(text.position().x, 100, 1e-9);
}

TEST_F(TextTest, fitted_between_two_points_keeps_its_height) {
    text.setPosition({0, 0, 0});
    align(AcDb::kTextFit, AcDb::kTextBase, {0, 60, 0});
    EXPECT_NEAR(text.rotation(), kHalfPi, 1e-12);
    EXPECT_NEAR(text.height(), 10, 1e-12);
    EXPECT_NEAR(extentsOf(text).maxPoint().y, 60, 1e-9);
}

TEST_F(TextTest, aligned_between_two_points_keeps_its_proportions) {
    text.setPosition({0, 0, 0});
    align(AcDb::kTextAlign, AcDb::kTextBase, {60, 0, 0});
    EXPECT_NEAR(text.widthFactor(), 1, 1e-12);
    EXPECT_NEAR(extentsOf(text).maxPoint().x, 60, 1e-9);
}

TEST_F(TextTest, mirrored_left_to_right_is_set_backward_and_keeps_its_turn) {
    ASSERT_EQ(text.transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {1, 0, 0})), Acad::eOk);
    EXPECT_TRUE(text.isMirroredInX());
    EXPECT_FALSE(text.isMirroredInY());
    EXPECT_NEAR(text.rotation(), 0, 1e-12);
    ASSERT_EQ(text.transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {1, 0, 0})), Acad::eOk);
    EXPECT_FALSE(text.isMirroredInX());
}

TEST_F(TextTest, mirrored_top_to_bottom_is_set_upside_down) {
    ASSERT_EQ(text.transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {0, 1, 0})), Acad::eOk);
    EXPECT_TRUE(text.isMirroredInY());
    EXPECT_NEAR(text.rotation(), 0, 1e-12);
}

TEST_F(TextTest, a_turn_and_a_growth_leave_the_width_factor_exactly) {
    text.setWidthFactor(0.85);
    ASSERT_EQ(text.transformBy(AcGeMatrix3d::rotation(0.3, {0, 0, 1}) * AcGeMatrix3d::scaling(2.5)), Acad::eOk);
    EXPECT_EQ(text.widthFactor(), 0.85);
    EXPECT_NEAR(text.height(), 25, 1e-12);
    EXPECT_NEAR(text.rotation(), 0.3, 1e-12);
    EXPECT_EQ(text.oblique(), 0.0);
}

TEST_F(TextTest, stretched_along_its_line_changes_its_width_factor) {
    ASSERT_EQ(text.transformBy(AcGeMatrix3d::scaling(AcGeScale3d(3, 1, 1))), Acad::eOk);
    EXPECT_NEAR(text.widthFactor(), 3, 1e-12);
    EXPECT_NEAR(text.height(), 10, 1e-12);
}

TEST_F(TextTest, cannot_be_exploded) {
    EXPECT_EQ(Exploded(text).status, Acad::eCannotExplodeEntity);
}

TEST_F(TextTest, its_text_is_a_copy_for_the_caller) {
    ACHAR* copy = text.textString();
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy, L"Hg");
    EXPECT_NE(copy, text.textStringConst());
    acutDelString(copy);
}
