// A library symbol: measure, place, size, attributes, picture, grips, filing.
#include "SignsFixture.h"

#include "TrfcBlockEnt.h"
#include "TrfcFields.h"

namespace {
class Block : public SignsFixture {
protected:
    AcDbObjectId attributeBlock() {
        return makeBlock({new AcDbLine({0.0, 0.0, 0.0}, {0.0, 2.0, 0.0}), attribute(L"KM", L"12", {1.0, 1.0, 0.0}),
                          attribute(L"NEV", L"titok", {0.0, 0.5, 0.0}, true)});
    }
    static AcDbHatch* square() {
        auto* hatch = new AcDbHatch;
        AcDbHatch::Loop loop;
        loop.type = AcDbHatch::kPolyline;
        loop.vertices = {{-0.5, 0.0}, {0.5, 0.0}, {0.5, 1.0}, {-0.5, 1.0}};
        hatch->appendLoop(loop);
        hatch->setAssociative(true);
        return hatch;
    }
};
using Names = std::vector<std::wstring>;
} // namespace

TEST_F(Block, measures_its_symbol_and_stacks_upward) {
    const TrfcBlock block(descriptor(L"a.dwg", boxBlock(-1.0, -0.5, 2.0, 4.0)), {10.0, 20.0, 0.0}, 0.0, 2.0);
    EXPECT_DOUBLE_EQ(block.width(), 6.0);
    EXPECT_DOUBLE_EQ(block.height(), 8.0);
    EXPECT_EQ(block.direction(), 1);
    expectNear(block.topPoint(), {10.0, 28.0, 0.0});
    expectNear(block.centroid(), {10.0, 24.0, 0.0});
}

TEST_F(Block, a_symbol_below_its_insertion_point_stacks_downward) {
    const TrfcBlock block(descriptor(L"a.dwg", boxBlock(-1.0, -3.0, 1.0, 0.0)), {0.0, 0.0, 0.0}, 0.0, 2.0);
    EXPECT_EQ(block.direction(), -1);
    EXPECT_DOUBLE_EQ(block.height(), 6.0);
    expectNear(block.upVector(), {0.0, -1.0, 0.0});
    expectNear(block.topPoint(), {0.0, -6.0, 0.0});
}

TEST_F(Block, a_top_of_exactly_a_ten_thousandth_counts_as_upward) {
    const TrfcBlock up(descriptor(L"a.dwg", boxBlock(-1.0, -3.0, 1.0, 0.0001)), {}, 0.0, 1.0);
    EXPECT_EQ(up.direction(), 1);
    EXPECT_DOUBLE_EQ(up.height(), 0.0001);
    const TrfcBlock down(descriptor(L"a.dwg", boxBlock(-1.0, -3.0, 1.0, 0.00009)), {}, 0.0, 1.0);
    EXPECT_EQ(down.direction(), -1);
}

TEST_F(Block, attribute_definitions_do_not_count_in_its_size) {
    const TrfcBlock block(descriptor(L"a.dwg", makeBlock({new AcDbLine({0.0, 0.0, 0.0}, {1.0, 1.0, 0.0}), attribute(L"X", L"wide", {50.0, 50.0, 0.0})})), {}, 0.0, 1.0);
    EXPECT_DOUBLE_EQ(block.width(), 1.0);
    EXPECT_DOUBLE_EQ(block.height(), 1.0);
}

TEST_F(Block, a_default_block_goes_upward_and_has_no_definition) {
    const TrfcBlock block;
    EXPECT_EQ(block.direction(), 1);
    EXPECT_EQ(block.exchangeId(), 0u);
    EXPECT_TRUE(block.blockRef().blockTableRecord().isNull());
    EXPECT_DOUBLE_EQ(block.uniqueScaleFactor(), 1.0);
}

TEST_F(Block, moves_and_turns_with_its_top) {
    TrfcBlock block(plate(L"a.dwg"), {}, 0.0, 2.0);
    block.offset({1.0, 2.0, 0.0});
    expectNear(block.topPoint(), {1.0, 4.0, 0.0});
    block.setPosition({5.0, 5.0, 0.0});
    block.rotateBy(kHalfPi);
    expectNear(block.upVector(), {-1.0, 0.0, 0.0});
    expectNear(block.topPoint(), {3.0, 5.0, 0.0});
    EXPECT_DOUBLE_EQ(block.rotation(), kHalfPi);
}

TEST_F(Block, a_full_turn_leaves_the_up_vector) {
    TrfcBlock block(plate(L"a.dwg"), {}, 0.3, 2.0);
    const AcGeVector3d before = block.upVector();
    block.rotateBy(kTwoPi);
    expectNear(block.upVector(), before);
}

TEST_F(Block, the_unique_scale_multiplies_the_scale) {
    TrfcBlock block(plate(L"a.dwg"), {}, 0.0, 1.0);
    block.setUniqueScaleFactor(1.5);
    EXPECT_DOUBLE_EQ(block.width(), 1.5);
    block.setScaleFactor(4.0);
    EXPECT_DOUBLE_EQ(block.blockRef().scaleFactors().sx, 6.0);
    EXPECT_DOUBLE_EQ(block.scaleFactor(), 6.0);
    EXPECT_DOUBLE_EQ(block.uniqueScaleFactor(), 1.5);
    EXPECT_DOUBLE_EQ(block.height(), 6.0);
    expectNear(block.topPoint(), {0.0, 6.0, 0.0});
}

TEST_F(Block, a_changed_unique_scale_replaces_the_earlier_one) {
    TrfcBlock block(plate(L"a.dwg"), {}, 0.0, 4.0);
    block.setUniqueScaleFactor(2.0);
    block.setUniqueScaleFactor(0.5);
    EXPECT_DOUBLE_EQ(block.scaleFactor(), 2.0);
    EXPECT_DOUBLE_EQ(block.width(), 2.0);
    EXPECT_DOUBLE_EQ(block.height(), 2.0);
    expectNear(block.topPoint(), {0.0, 2.0, 0.0});
}

TEST_F(Block, a_symbol_shrunk_to_nothing_comes_back_with_its_size) {
    for (const auto& [bottom, top, direction] : {std::tuple(0.0, 3.0, 1), std::tuple(-3.0, 0.0, -1)}) {
        TrfcBlock block(descriptor(L"a.dwg", boxBlock(-1.0, bottom, 1.0, top)), {5.0, 6.0, 0.0}, kHalfPi, 2.0);
        block.setScaleFactor(0.0);
        EXPECT_DOUBLE_EQ(block.height(), 0.0);
        block.setScaleFactor(4.0);
        EXPECT_DOUBLE_EQ(block.width(), 8.0);
        EXPECT_DOUBLE_EQ(block.height(), 12.0);
        EXPECT_EQ(block.direction(), direction);
        expectNear(block.position(), {5.0, 6.0, 0.0});
        expectNear(block.topPoint(), {5.0 - 12.0 * direction, 6.0, 0.0});
    }
}

TEST_F(Block, a_symbol_made_without_a_size_gets_one_later) {
    TrfcBlock block(plate(L"a.dwg"), {1.0, 1.0, 0.0}, 0.0, 0.0);
    block.setUniqueScaleFactor(2.0);
    block.setScaleFactor(3.0);
    EXPECT_DOUBLE_EQ(block.scaleFactor(), 6.0);
    EXPECT_DOUBLE_EQ(block.width(), 6.0);
    expectNear(block.topPoint(), {1.0, 7.0, 0.0});
}

TEST_F(Block, a_unique_scale_of_0_ends_with_the_next_scale) {
    TrfcBlock block(plate(L"a.dwg"), {}, 0.0, 3.0);
    block.setUniqueScaleFactor(0.0);
    block.setUniqueScaleFactor(2.0);
    block.setScaleFactor(3.0);
    EXPECT_DOUBLE_EQ(block.scaleFactor(), 6.0);
    EXPECT_DOUBLE_EQ(block.height(), 6.0);
}

TEST_F(Block, the_box_of_a_hanging_turned_symbol_runs_along_its_direction) {
    const TrfcBlock block(descriptor(L"a.dwg", boxBlock(-0.5, -3.0, 0.5, 0.0)), {}, kHalfPi, 1.0);
    AcGePoint3dArray corners;
    block.getBoundingBox(corners);
    ASSERT_EQ(corners.length(), 4);
    const AcGeVector3d half = block.upVector().perpVector() * 0.5, up = block.upVector() * 3.0;
    expectNear(block.upVector(), {1.0, 0.0, 0.0});
    expectNear(corners[0], AcGePoint3d::kOrigin + half);
    expectNear(corners[1], AcGePoint3d::kOrigin - half);
    expectNear(corners[2], AcGePoint3d::kOrigin - half + up);
    expectNear(corners[3], AcGePoint3d::kOrigin + half + up);
}

TEST_F(Block, the_bounding_box_has_four_corners_about_the_symbol) {
    const TrfcBlock block(plate(L"a.dwg"), {1.0, 0.0, 0.0}, 0.0, 2.0);
    AcGePoint3dArray corners;
    EXPECT_EQ(block.getBoundingBox(corners), Acad::eOk);
    ASSERT_EQ(corners.length(), 4);
    expectNear(corners[0], {0.0, 0.0, 0.0});
    expectNear(corners[1], {2.0, 0.0, 0.0});
    expectNear(corners[2], {2.0, 2.0, 0.0});
    expectNear(corners[3], {0.0, 2.0, 0.0});
}

// ---- attributes and parameters ----------------------------------------------------------------------

TEST_F(Block, makes_an_attribute_for_each_definition_in_order) {
    const TrfcBlock block(descriptor(L"a.dwg", attributeBlock()), {10.0, 0.0, 0.0}, 0.0, 2.0);
    ASSERT_EQ(block.attributeCount(), 2);
    EXPECT_EQ(block.attributeAt(0)->tagConst(), L"KM");
    EXPECT_STREQ(block.attributeAt(0)->textStringConst(), L"12");
    expectNear(block.attributeAt(0)->position(), {12.0, 2.0, 0.0});
    EXPECT_TRUE(block.attributeAt(1)->isInvisible());
}

TEST_F(Block, an_attribute_follows_the_symbol_and_keeps_its_value) {
    TrfcBlock block(descriptor(L"a.dwg", attributeBlock()), {}, 0.0, 1.0);
    block.setAttributeText(0, L"99");
    block.setPosition({3.0, 0.0, 0.0});
    block.setRotation(kHalfPi);
    block.setScaleFactor(2.0);
    EXPECT_STREQ(block.attributeAt(0)->textStringConst(), L"99");
    expectNear(block.attributeAt(0)->position(), {1.0, 2.0, 0.0});
    block.rotateBy(kTwoPi);
    expectNear(block.attributeAt(0)->position(), {1.0, 2.0, 0.0});
}

TEST_F(Block, a_centred_attribute_stands_where_its_definition_stands_in_the_symbol) {
    auto* centred = attribute(L"KM", L"12", {0.0, 1.0, 0.0});
    centred->setHorizontalMode(AcDb::kTextCenter);
    centred->setVerticalMode(AcDb::kTextVertMid);
    centred->setAlignmentPoint({0.0, 1.0, 0.0});
    TrfcBlock block(descriptor(L"a.dwg", makeBlock({centred})), {10.0, 0.0, 0.0}, 0.0, 2.0);
    const AcDbAttribute& made = *block.attributeAt(0);
    EXPECT_EQ(made.horizontalMode(), AcDb::kTextCenter);
    EXPECT_EQ(made.verticalMode(), AcDb::kTextVertMid);
    expectNear(made.alignmentPoint(), {10.0, 2.0, 0.0});
    block.setPosition({20.0, 5.0, 0.0});
    expectNear(block.attributeAt(0)->alignmentPoint(), {20.0, 7.0, 0.0});
}

TEST_F(Block, another_library_block_brings_its_own_attributes) {
    TrfcBlock block(descriptor(L"a.dwg", attributeBlock()), {}, 0.0, 1.0);
    block.setAttributeText(0, L"99");
    block.init(descriptor(L"b.dwg", makeBlock({attribute(L"T", L"1")})), {}, 0.0, 1.0);
    ASSERT_EQ(block.attributeCount(), 1);
    EXPECT_EQ(block.attributeAt(0)->tagConst(), L"T");
    EXPECT_STREQ(block.attributeAt(0)->textStringConst(), L"1");
}

TEST_F(Block, setting_by_tag_reaches_every_attribute_of_exactly_that_tag) {
    TrfcBlock block(descriptor(L"a.dwg", makeBlock({attribute(L"T", L"1"), attribute(L"t", L"2"), attribute(L"T", L"3")})), {}, 0.0, 1.0);
    block.setAttributeText(L"T", L"x");
    EXPECT_STREQ(block.attributeAt(0)->textStringConst(), L"x");
    EXPECT_STREQ(block.attributeAt(1)->textStringConst(), L"2");
    EXPECT_STREQ(block.attributeAt(2)->textStringConst(), L"x");
}

TEST_F(Block, knows_a_multiline_attribute) {
    auto* multiline = attribute(L"T", L"1");
    multiline->convertIntoMTextAttributeDefinition();
    EXPECT_TRUE(TrfcBlock(descriptor(L"a.dwg", makeBlock({multiline})), {}, 0.0, 1.0).hasMTextAttribute());
    EXPECT_FALSE(TrfcBlock(descriptor(L"a.dwg", attributeBlock()), {}, 0.0, 1.0).hasMTextAttribute());
}

TEST_F(Block, an_absent_parameter_reads_as_empty_text) {
    TrfcBlock block;
    EXPECT_STREQ(block.getUserParam(L"Gyártó"), L"");
    block.setUserParam(L"Gyártó", L"A");
    block.setUserParam(L"Gyártó", L"B");
    EXPECT_STREQ(block.getUserParam(L"Gyártó"), L"B");
    EXPECT_EQ(block.userParams().size(), 1u);
}

// ---- picture --------------------------------------------------------------------------------------------

TEST_F(Block, draws_its_reference_and_its_visible_attributes) {
    TrfcBlock block(descriptor(L"a.dwg", attributeBlock()), {}, 0.0, 1.0);
    const auto lines = drawn(block);
    EXPECT_EQ(linesWith(lines, L"instance").size(), 1u);
    const auto texts = linesWith(lines, L"text");
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_NE(texts[0].find(L"\"12\""), std::wstring::npos);
}

TEST_F(Block, while_dragging_only_line_work_shows) {
    TrfcBlock block(descriptor(L"a.dwg", makeBlock({square(), new AcDbLine({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}), new AcDbCircle({}, {0.0, 0.0, 1.0}, 1.0),
                                                    new AcDbText({}, L"szöveg", {}, 1.0)})), {}, 0.0, 1.0);
    const auto lines = drawn(block, true);
    EXPECT_EQ(linesWith(lines, L"polyline").size(), 1u);
    EXPECT_EQ(linesWith(lines, L"circle").size(), 1u);
    EXPECT_EQ(lines.size(), 2u);
}

namespace {
// Draws with the three flags.
class Flagged : public AcDbEntity {
public:
    Flagged(TrfcBlock& block, bool gray, bool white, bool outline) : mBlock(block), mGray(gray), mWhite(white), mOutline(outline) {}

protected:
    bool subWorldDraw(AcGiWorldDraw* worldDraw) override { return mBlock.subWorldDraw(worldDraw, mGray, mWhite, mOutline); }

private:
    TrfcBlock& mBlock;
    bool mGray, mWhite, mOutline;
};
template <class T> T* colored(T* entity, int index) {
    entity->setColorIndex(static_cast<Adesk::UInt16>(index));
    return entity;
}
bool allHave(const Names& lines, const std::wstring& text) {
    for (const std::wstring& line : lines)
        if (line.find(text) == std::wstring::npos)
            return false;
    return !lines.empty();
}
} // namespace

TEST_F(Block, white_turns_line_work_light_grey_and_the_rest_to_the_lightest) {
    TrfcBlock block(descriptor(L"a.dwg", makeBlock({colored(square(), 1), colored(new AcDbLine({}, {1.0, 0.0, 0.0}), 5)})), {}, 0.0, 1.0);
    Flagged white(block, false, true, false);
    const auto lines = drawn(white);
    EXPECT_TRUE(allHave(linesWith(lines, L"fill"), L"color=255"));
    EXPECT_TRUE(allHave(linesWith(lines, L"polyline"), L"color=252"));
}

TEST_F(Block, grey_follows_the_level_of_each_part) {
    TrfcBlock block(descriptor(L"a.dwg", makeBlock({colored(square(), 1), colored(new AcDbLine({}, {1.0, 0.0, 0.0}), 2)})), {}, 0.0, 1.0);
    Flagged gray(block, true, false, false);
    const auto lines = drawn(gray);
    EXPECT_TRUE(allHave(linesWith(lines, L"fill"), L"color=252"));
    EXPECT_TRUE(allHave(linesWith(lines, L"polyline"), L"color=254"));
}

TEST_F(Block, white_comes_on_top_of_grey) {
    // Yellow: white alone or last gives 252, grey last would make 254 of that.
    TrfcBlock block(descriptor(L"a.dwg", makeBlock({colored(new AcDbLine({}, {1.0, 0.0, 0.0}), 2)})), {}, 0.0, 1.0);
    Flagged both(block, true, true, false);
    EXPECT_TRUE(allHave(drawn(both), L"color=252"));
}

TEST_F(Block, attributes_fade_with_the_symbol) {
    TrfcBlock block(descriptor(L"a.dwg", makeBlock({colored(attribute(L"KM", L"12"), 2)})), {}, 0.0, 1.0);
    Flagged gray(block, true, false, false), white(block, false, true, false);
    EXPECT_TRUE(allHave(linesWith(drawn(block), L"text"), L"color=2 "));
    EXPECT_TRUE(allHave(linesWith(drawn(gray), L"text"), L"color=254 "));
    EXPECT_TRUE(allHave(linesWith(drawn(white), L"text"), L"color=255 "));
}

TEST_F(Block, attributes_show_in_a_drag_and_in_an_outline) {
    TrfcBlock block(descriptor(L"a.dwg", attributeBlock()), {}, 0.0, 1.0);
    Flagged outline(block, false, false, true);
    EXPECT_EQ(linesWith(drawn(block, true), L"text").size(), 1u);
    EXPECT_EQ(linesWith(drawn(outline), L"text").size(), 1u);
}

namespace {
// Draws a block and then a line of its own, which shows what the block left in the traits.
class LineAfter : public AcDbEntity {
public:
    LineAfter(TrfcBlock& block, bool outline) : mBlock(block), mOutline(outline) { setColorIndex(6); }

protected:
    bool subWorldDraw(AcGiWorldDraw* worldDraw) override {
        mBlock.subWorldDraw(worldDraw, false, true, mOutline);
        const AcGePoint3d points[] = {{7.0, 7.0, 0.0}, {8.0, 8.0, 0.0}};
        return worldDraw->geometry().polyline(2, points);
    }

private:
    TrfcBlock& mBlock;
    bool mOutline;
};
} // namespace

TEST_F(Block, its_colours_do_not_reach_what_is_drawn_after_it) {
    TrfcBlock block(descriptor(L"a.dwg", makeBlock({colored(new AcDbLine({}, {1.0, 0.0, 0.0}), 5), colored(attribute(L"KM", L"12"), 2)})), {}, 0.0, 1.0);
    for (const bool outline : {false, true}) {
        LineAfter after(block, outline);
        EXPECT_NE(drawn(after).back().find(L"color=6 "), std::wstring::npos) << acToUtf8(drawn(after).back());
    }
}

TEST_F(Block, an_outline_is_line_work_in_its_own_colours) {
    TrfcBlock block(descriptor(L"a.dwg", makeBlock({colored(square(), 1), colored(new AcDbLine({}, {1.0, 0.0, 0.0}), 5)})), {}, 0.0, 1.0);
    Flagged outline(block, false, false, true);
    const auto lines = drawn(outline);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NE(lines[0].find(L"color=5"), std::wstring::npos);
}

TEST_F(Block, explodes_without_definitions_and_invisible_attributes_and_frees_its_hatches) {
    const TrfcBlock block(descriptor(L"a.dwg", makeBlock({square(), attribute(L"KM", L"12"), attribute(L"NEV", L"titok", {}, true)})), {}, 0.0, 1.0);
    const auto parts = exploded(block);
    EXPECT_EQ(classNames(parts), (Names{L"AcDbHatch", L"AcDbText"}));
    EXPECT_FALSE(AcDbHatch::cast(parts[0].get())->associative());
    EXPECT_STREQ(AcDbText::cast(parts[1].get())->textStringConst(), L"12");
}

TEST_F(Block, an_explosion_fades_and_can_leave_line_work_alone) {
    const TrfcBlock block(descriptor(L"a.dwg", makeBlock({colored(square(), 1), colored(new AcDbLine({}, {1.0, 0.0, 0.0}), 2), colored(attribute(L"KM", L"12"), 2)})), {}, 0.0, 1.0);
    const auto parts = [&block](bool gray, bool white, bool outline) {
        AcDbVoidPtrArray raw;
        EXPECT_EQ(block.PlusExplode(raw, gray, white, outline), Acad::eOk);
        std::vector<std::wstring> found;
        for (void* item : raw) {
            const std::unique_ptr<AcDbEntity> part(static_cast<AcDbEntity*>(item));
            found.push_back(acFormat(L"%s %d", part->isA()->name(), part->colorIndex()));
        }
        return found;
    };
    EXPECT_EQ(parts(false, false, false), (Names{L"AcDbHatch 1", L"AcDbLine 2", L"AcDbText 2"}));
    EXPECT_EQ(parts(true, false, false), (Names{L"AcDbHatch 252", L"AcDbLine 254", L"AcDbText 254"}));
    EXPECT_EQ(parts(false, true, false), (Names{L"AcDbHatch 255", L"AcDbLine 252", L"AcDbText 255"}));
    EXPECT_EQ(parts(false, false, true), (Names{L"AcDbLine 2", L"AcDbText 2"}));
}

TEST_F(Block, a_transformation_takes_reference_top_and_attributes_along) {
    TrfcBlock block(descriptor(L"a.dwg", attributeBlock()), {}, 0.0, 1.0);
    block.transformBy(AcGeMatrix3d::rotation(kHalfPi, AcGeVector3d::kZAxis));
    expectNear(block.topPoint(), {-2.0, 0.0, 0.0});
    expectNear(block.upVector(), {-1.0, 0.0, 0.0});
    expectNear(block.attributeAt(0)->position(), {-1.0, 1.0, 0.0});
    EXPECT_DOUBLE_EQ(block.height(), 2.0);
}

// ---- grips -----------------------------------------------------------------------------------------------

TEST_F(Block, offers_three_grips_in_order) {
    const TrfcBlock block(plate(L"a.dwg"), {1.0, 1.0, 0.0}, 0.0, 2.0);
    const Grips grips(block);
    EXPECT_EQ(grips.names(), (Names{L"grip1", L"grip2", L"grip3"}));
    expectNear(grips.at(0)->gripPoint(), {1.0, 1.0, 0.0});
    expectNear(grips.at(1)->gripPoint(), {1.0, 3.0, 0.0});
    expectNear(grips.at(2)->gripPoint(), {1.0, 2.0, 0.0});
    expectNear(grips.dataOf(L"grip2").vector, {0.0, -1.0, 0.0});
}

TEST_F(Block, only_its_third_grip_is_a_command_and_the_second_has_an_arrow) {
    const TrfcBlock block(plate(L"a.dwg"), {1.0, 1.0, 0.0}, 0.0, 2.0);
    const Grips grips(block);
    for (int i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(grips.at(i)->gripOpStatFunc(), nullptr);
        EXPECT_EQ(grips.at(i)->hotGripFunc() != nullptr, i == 2);
        EXPECT_EQ(grips.at(i)->bitFlags(), i == 2 ? 2u : 0u); // the rubber band is off
    }
    EXPECT_EQ(grips.at(0)->worldDraw(), nullptr);
    const auto glyphOf = [&](int i) {
        GiDisplayListBuilder builder;
        EXPECT_TRUE(grips.at(i)->worldDraw()(grips.at(i), &builder.worldDraw(), AcDbObjectId(), AcDbGripOperations::kWarmGrip, nullptr, 0.5));
        return giRecord(builder.list(), GiNamer());
    };
    GiDisplayListBuilder arrow, bar;
    drawGripArrowBent(&arrow.worldDraw(), arrow.worldDraw().geometry(), 0, {1.0, 3.0, 0.0}, 0.5, {0.0, -1.0, 0.0});
    drawGripBar(&bar.worldDraw(), bar.worldDraw().geometry(), 0, {1.0, 2.0, 0.0}, 0.5);
    EXPECT_EQ(glyphOf(1), giRecord(arrow.list(), GiNamer()));
    EXPECT_EQ(glyphOf(2), giRecord(bar.list(), GiNamer()));
}

TEST_F(Block, grip1_moves_and_grip2_turns) {
    TrfcBlock block(plate(L"a.dwg"), {}, 0.0, 2.0);
    dragGrip(block, L"grip1", {5.0, 0.0, 0.0});
    expectNear(block.position(), {5.0, 0.0, 0.0});
    dragGrip(block, L"grip2", {2.0, -2.0, 0.0}); // the top to the right of the position
    expectNear(block.upVector(), {1.0, 0.0, 0.0});
    const double before = block.rotation();
    dragGrip(block, L"grip2", block.position() - block.topPoint()); // onto the position: no direction
    EXPECT_DOUBLE_EQ(block.rotation(), before);
}

// ---- filing ------------------------------------------------------------------------------------------------

namespace {
void fill(AcDbDeepCloneFiler& memory, const TrfcBlock& block) {
    block.dwgOutFields(&memory);
    memory.seek(0, AcDb::kSeekFromStart);
}
} // namespace

TEST_F(Block, comes_back_from_memory_unchanged) {
    TrfcBlock block(descriptor(L"mappa\\a.dwg", attributeBlock()), {3.0, 4.0, 0.0}, 0.7, 2.0);
    block.setUniqueScaleFactor(1.25);
    block.setAttributeText(L"KM", L"77");
    block.setAttributeText(L"NEV", L"rejtett");
    block.setUserParam(L"Gyártó", L"Kft");
    block.setExchangeId(12);
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    fill(memory, block);
    TrfcBlock copy;
    ASSERT_EQ(copy.dwgInFields(&memory), Acad::eOk);
    EXPECT_EQ(filed(copy), filed(block));
    EXPECT_STREQ(copy.descriptor().blockKey, L"mappa_a.dwg");
    EXPECT_EQ(copy.descriptor().blockId, block.descriptor().blockId);
    EXPECT_STREQ(copy.attributeAt(1)->textStringConst(), L"rejtett");
    EXPECT_TRUE(copy.attributeAt(1)->isInvisible());
    expectNear(copy.attributeAt(0)->position(), block.attributeAt(0)->position());
}

TEST_F(Block, reading_into_a_filled_block_replaces_its_content) {
    TrfcBlock block(descriptor(L"a.dwg", attributeBlock()), {}, 0.0, 1.0);
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    fill(memory, block);
    TrfcBlock target(descriptor(L"b.dwg", makeBlock({attribute(L"T", L"1")})), {}, 0.0, 1.0);
    target.setUserParam(L"régi", L"x");
    ASSERT_EQ(target.dwgInFields(&memory), Acad::eOk);
    EXPECT_EQ(filed(target), filed(block));
}

TEST_F(Block, files_its_reference_and_nothing_of_an_entity_of_its_own) {
    const TrfcBlock block(plate(L"a.dwg"), {}, 0.0, 1.0);
    AcDbRecordingFiler filer;
    block.dwgOutFields(&filer);
    EXPECT_EQ(filer.lines().front(), L"writeUInt32 7");
}

namespace {
// A record as the version wrote it; the block reference between comes from the block itself.
void writeEarlier(AcDbDwgFiler& filer, const TrfcBlock& block, Adesk::UInt32 version) {
    filer.writeUInt32(version);
    block.blockRef().dwgOutFields(&filer);
    filer.writePoint3d({1.0, 2.0, 0.0});
    filer.writeDouble(0.5);
    filer.writeScale3d(AcGeScale3d(2.0));
    for (const wchar_t* text : {L"mappa_a.dwg", L"mappa\\a.dwg", L"12 26/01/01 10:00:00"})
        filer.writeString(text);
    filer.writeDouble(3.0);
    filer.writeDouble(4.0);
    if (version >= 6)
        filer.writeDouble(1.5);
    if (version >= 2)
        filer.writeInt16(-1);
    filer.writeVector3d({0.0, -1.0, 0.0});
    filer.writePoint3d({1.0, -2.0, 0.0});
    if (version >= 3) {
        filer.writeInt32(1);
        filer.writeString(L"Gyártó");
        filer.writeString(L"Kft");
    }
    filer.writeInt32(0);
    if (version >= 4)
        filer.writeUInt32(33);
}
} // namespace

TEST_F(Block, reads_every_earlier_version) {
    const TrfcBlock source(plate(L"a.dwg"), {}, 0.0, 1.0);
    for (Adesk::UInt32 version = 1; version <= 7; ++version) {
        SCOPED_TRACE(version);
        AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
        writeEarlier(memory, source, version);
        memory.seek(0, AcDb::kSeekFromStart);
        TrfcBlock block;
        ASSERT_EQ(block.dwgInFields(&memory), Acad::eOk);
        expectNear(block.position(), {1.0, 2.0, 0.0});
        EXPECT_DOUBLE_EQ(block.width(), 3.0);
        EXPECT_DOUBLE_EQ(block.height(), 4.0);
        expectNear(block.topPoint(), {1.0, -2.0, 0.0});
        EXPECT_DOUBLE_EQ(block.uniqueScaleFactor(), version >= 6 ? 1.5 : 1.0);
        EXPECT_EQ(block.direction(), version >= 2 ? -1 : 1);
        EXPECT_EQ(block.userParams().size(), version >= 3 ? 1u : 0u);
        EXPECT_EQ(block.exchangeId(), version >= 4 ? 33u : 0u);
    }
}

TEST_F(Block, a_file_without_a_unique_scale_takes_the_one_of_the_target_away) {
    const TrfcBlock source(plate(L"a.dwg"), {}, 0.0, 1.0);
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    writeEarlier(memory, source, 5);
    memory.seek(0, AcDb::kSeekFromStart);
    TrfcBlock block(plate(L"b.dwg"), {}, 0.0, 1.0);
    block.setUniqueScaleFactor(2.0);
    ASSERT_EQ(block.dwgInFields(&memory), Acad::eOk);
    EXPECT_DOUBLE_EQ(block.uniqueScaleFactor(), 1.0);
}

TEST_F(Block, a_later_version_asks_for_a_proxy_and_version_0_holds_nothing) {
    for (const Adesk::UInt32 version : {8u, 0u}) {
        AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
        memory.writeUInt32(version);
        memory.seek(0, AcDb::kSeekFromStart);
        TrfcBlock block;
        EXPECT_EQ(block.dwgInFields(&memory), version == 8 ? Acad::eMakeMeProxy : Acad::eOk);
    }
}
