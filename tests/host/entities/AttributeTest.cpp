// Attribute definitions and attributes.
#include "EntityTestSupport.h"

#include "AcUtText.h"

namespace {
class AttributeTest : public DrawingTest {
protected:
    AcDbAttributeDefinition definition;
    AcDbAttribute attribute;
    AttributeTest() {
        definition.setTag(L"NUMBER");
        definition.setTextString(L"12");
        definition.setHeight(2.0);
        definition.setPosition({1, 2, 0});
        definition.setInvisible(true);
        definition.setPreset(true);
    }
};
} // namespace

TEST_F(AttributeTest, takes_its_definition_carried_through_the_blocks_transform) {
    definition.setWidthFactor(0.7);
    const AcGeMatrix3d matrix = AcGeMatrix3d::translation({100, 0, 0}) * AcGeMatrix3d::rotation(kHalfPi, {0, 0, 1}) * AcGeMatrix3d::scaling(3.0);
    ASSERT_EQ(attribute.setAttributeFromBlock(&definition, matrix), Acad::eOk);
    EXPECT_EQ(attribute.tagConst(), L"NUMBER");
    EXPECT_STREQ(attribute.textStringConst(), L"12");
    expectPoint(attribute.position(), {94, 3, 0});
    EXPECT_NEAR(attribute.height(), 6, 1e-12);
    EXPECT_NEAR(attribute.rotation(), kHalfPi, 1e-12);
    EXPECT_EQ(attribute.widthFactor(), 0.7);
    EXPECT_TRUE(attribute.isInvisible());
    EXPECT_FALSE(attribute.isConstant());
    EXPECT_EQ(attribute.textStyle(), db.textStyleStandard());
}

TEST_F(AttributeTest, an_aligned_definition_brings_its_alignment_point_along) {
    definition.setHorizontalMode(AcDb::kTextCenter);
    definition.setVerticalMode(AcDb::kTextVertMid);
    definition.setAlignmentPoint({5, 5, 0});
    ASSERT_EQ(attribute.setAttributeFromBlock(&definition, AcGeMatrix3d::translation({10, 0, 0})), Acad::eOk);
    attribute.setTextString(L"12345");
    ASSERT_EQ(attribute.adjustAlignment(&db), Acad::eOk);
    expectPoint(attribute.alignmentPoint(), {15, 5, 0});
    const AcDbExtents box = extentsOf(attribute);
    EXPECT_NEAR((box.minPoint().x + box.maxPoint().x) / 2, 15, 1e-9);
}

TEST_F(AttributeTest, set_anew_follows_the_block_and_forgets_nothing_but_its_text) {
    ASSERT_EQ(attribute.setAttributeFromBlock(&definition, AcGeMatrix3d::scaling(3.0)), Acad::eOk);
    attribute.setTextString(L"99");
    ASSERT_EQ(attribute.setAttributeFromBlock(&definition, AcGeMatrix3d()), Acad::eOk);
    EXPECT_NEAR(attribute.height(), 2, 1e-12);
    EXPECT_STREQ(attribute.textStringConst(), L"12");
}

TEST_F(AttributeTest, without_a_definition_is_an_error) {
    EXPECT_EQ(attribute.setAttributeFromBlock(nullptr, AcGeMatrix3d()), Acad::eNullObjectPointer);
}

TEST_F(AttributeTest, of_a_multiline_definition_is_a_paragraph) {
    definition.setTextString(L"one\\Ptwo");
    definition.convertIntoMTextAttributeDefinition();
    ASSERT_EQ(attribute.setAttributeFromBlock(&definition, AcGeMatrix3d::scaling(2.0)), Acad::eOk);
    ASSERT_TRUE(attribute.isMTextAttribute());
    EXPECT_EQ(pictureOf(attribute).primitives.size(), 2u);
    const std::unique_ptr<AcDbMText> paragraph(attribute.getMTextAttribute());
    ASSERT_NE(paragraph, nullptr);
    EXPECT_EQ(paragraph->contentsText(), L"one\\Ptwo");
    EXPECT_NEAR(paragraph->textHeight(), 4, 1e-12);
    expectPoint(paragraph->location(), {2, 4, 0});
    definition.convertIntoMTextAttributeDefinition(false);
    ASSERT_EQ(attribute.setAttributeFromBlock(&definition, AcGeMatrix3d()), Acad::eOk);
    EXPECT_FALSE(attribute.isMTextAttribute());
    EXPECT_EQ(attribute.getMTextAttribute(), nullptr);
}

TEST_F(AttributeTest, the_text_of_a_multiline_one_is_its_paragraphs) {
    definition.convertIntoMTextAttributeDefinition();
    attribute.setAttributeFromBlock(&definition, AcGeMatrix3d());
    attribute.setTextString(L"a\\Pb\\Pc");
    EXPECT_EQ(pictureOf(attribute).primitives.size(), 3u);
    AcDbMText other;
    other.setContents(L"x\\Py");
    other.setTextHeight(1.0);
    attribute.setMTextAttribute(&other);
    EXPECT_STREQ(attribute.textStringConst(), L"x\\Py");
    EXPECT_EQ(pictureOf(attribute).primitives.size(), 2u);
}

TEST_F(AttributeTest, its_tag_is_a_copy_for_the_caller) {
    attribute.setTag(L"T");
    ACHAR* tag = attribute.tag();
    EXPECT_STREQ(tag, L"T");
    acutDelString(tag);
    EXPECT_EQ(attribute.setTag(nullptr), Acad::eNullPtr);
}

TEST_F(AttributeTest, flags_are_kept_one_by_one) {
    definition.setConstant(true);
    definition.setVerifiable(true);
    definition.setInvisible(false);
    EXPECT_TRUE(definition.isConstant() && definition.isVerifiable() && definition.isPreset());
    EXPECT_FALSE(definition.isInvisible());
    attribute.setAttributeFromBlock(&definition, AcGeMatrix3d());
    EXPECT_TRUE(attribute.isConstant());
    EXPECT_FALSE(attribute.isInvisible());
}

TEST_F(AttributeTest, a_definition_by_itself_shows_its_tag) {
    const GiDisplayList picture = pictureOf(definition);
    ASSERT_EQ(picture.primitives.size(), 1u);
    EXPECT_EQ(std::get<GiText>(picture.primitives[0].shape).text(), L"NUMBER");
}
