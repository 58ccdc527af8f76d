// The picture of a post and its explosion.
#include "SignsFixture.h"

#include "TestSupport.h"
#include "TrfcDocSettings.h"

namespace {
class PostDraw : public SignsFixture {
protected:
    // Lines at the top level: the arm and the note; blocks draw inside instances.
    static std::vector<std::wstring> top(const std::vector<std::wstring>& lines, const std::wstring& word) {
        std::vector<std::wstring> found;
        for (const std::wstring& line : lines)
            if (line.starts_with(word))
                found.push_back(line);
        return found;
    }
    static std::size_t instances(TrfcPost& post) { return top(drawn(post), L"instance").size(); }
    static void setActive(TrfcPost& post, const std::wstring& name) { dragGrip(post, name, {0.001, 0.0, 0.0}); }
};
} // namespace

TEST_F(PostDraw, the_arm_runs_from_the_foots_rim_over_B_and_C_to_D) {
    auto post = newPost(1);
    const auto lines = top(drawn(*post), L"polyline");
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_TRUE(lines[0].starts_with(L"polyline (0,0.5,0) (0,10,0)")) << acToUtf8(lines[0]);
    EXPECT_TRUE(lines[1].starts_with(L"polyline (0,10,0) (6,16,0)")) << acToUtf8(lines[1]);
    EXPECT_TRUE(lines[2].starts_with(L"polyline (6,16,0) (6,20,0)")) << acToUtf8(lines[2]);
    EXPECT_EQ(instances(*post), 2u);
}

TEST_F(PostDraw, a_finished_post_without_signs_has_no_arm_but_explodes_into_three_lines) {
    auto post = newPost(0);
    EXPECT_TRUE(top(drawn(*post), L"polyline").empty());
    EXPECT_EQ(instances(*post), 1u);
    EXPECT_EQ(classNames(exploded(*post)), (std::vector<std::wstring>{L"AcDbCircle", L"AcDbLine", L"AcDbLine", L"AcDbLine"}));
}

TEST_F(PostDraw, the_phase_decides_how_much_of_the_arm_shows) {
    auto post = newPost(0);
    for (int phase = 1; phase <= 4; ++phase) {
        post->setPlacementPhase(phase);
        EXPECT_EQ(top(drawn(*post), L"polyline").size(), static_cast<std::size_t>(phase - 1)) << phase;
        EXPECT_EQ(instances(*post), 1u);
    }
}

TEST_F(PostDraw, without_a_text_there_is_no_note) {
    auto post = newPost(0);
    EXPECT_TRUE(top(drawn(*post), L"text").empty());
    post->postText().text = L"Tábla";
    const auto lines = drawn(*post);
    ASSERT_EQ(top(lines, L"text").size(), 1u);
    const auto leader = top(lines, L"polyline");
    ASSERT_EQ(leader.size(), 2u);
    EXPECT_TRUE(leader[0].starts_with(L"polyline (0.5,0,0) (5.5,0,0)")) << acToUtf8(leader[0]);
    EXPECT_NE(leader[0].find(L"color=1 "), std::wstring::npos);
    EXPECT_NE(leader[0].find(L"lw=35"), std::wstring::npos);
    EXPECT_NE(top(lines, L"text")[0].find(L"color=3 "), std::wstring::npos);
}

TEST_F(PostDraw, before_A_is_given_there_is_no_note) {
    auto post = newPost(0);
    post->postText().text = L"Tábla";
    post->setPlacementPhase(0);
    EXPECT_TRUE(top(drawn(*post), L"text").empty());
    post->setPlacementPhase(1);
    EXPECT_EQ(top(drawn(*post), L"text").size(), 1u);
}

TEST_F(PostDraw, the_notes_line_type_is_loaded_where_the_drawing_lacks_it) {
    acdbHostApplicationServices()->setSupportPath({acFromUtf8(testSourceDir() + "/install/support")});
    auto post = newPost(0);
    post->postText().text = L"Tábla";
    TrfcDocSettings::setDocString(DOC_ANNO_LINE_TYPE, L"DASHED");
    drawn(*post);
    AcDbLinetypeTable* table = nullptr;
    ASSERT_EQ(database().getLinetypeTable(table, AcDb::kForRead), Acad::eOk);
    EXPECT_TRUE(table->has(L"DASHED"));
    table->close();
    const auto parts = exploded(*post);
    EXPECT_EQ(parts[4]->linetypeName(), L"DASHED");
    EXPECT_EQ(parts[5]->linetypeName(), L"DASHED");
}

TEST_F(PostDraw, the_note_runs_along_its_shelf_on_a_turned_post) {
    auto post = newPost(0);
    post->postText().text = L"Tábla";
    post->rotateAllScales(kHalfPi);
    const auto text = top(drawn(*post), L"text");
    ASSERT_EQ(text.size(), 1u);
    EXPECT_NE(text[0].find(L"direction=(0,1,0)"), std::wstring::npos) << acToUtf8(text[0]);
    const auto parts = exploded(*post);
    ASSERT_EQ(parts.size(), 7u);
    EXPECT_NEAR(std::remainder(AcDbText::cast(parts[6].get())->rotation() - kHalfPi, kTwoPi), 0.0, 1e-9);
}

TEST_F(PostDraw, the_notes_traits_do_not_reach_the_foot) {
    auto post = newPost(0);
    post->setColorIndex(6);
    post->postText().text = L"Tábla";
    const auto feet = top(drawn(*post), L"instance");
    ASSERT_EQ(feet.size(), 1u);
    EXPECT_NE(feet[0].find(L"color=6 "), std::wstring::npos) << acToUtf8(feet[0]);
    EXPECT_NE(feet[0].find(L"lw=-1"), std::wstring::npos);
}

TEST_F(PostDraw, dragging_a_new_lamp_shows_an_arrow_at_the_foot_and_nothing_else) {
    auto post = newPost(1);
    post->setColorIndex(6);
    post->addLampChain({0.0, -5.0, 0.0});
    post->lampChain(0).appendBlockDownward(newLamp());
    dragGrip(*post, L"gripAddLamp", {5.0, 1.2, 0.0});
    const auto lines = drawn(*post);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_TRUE(lines[0].starts_with(L"polygon (1.366025404,-0.5,0) (0.5,0,0) (1.366025404,0.5,0) color=255")) << acToUtf8(lines[0]);
    EXPECT_NE(lines[0].find(L"filled"), std::wstring::npos);
    post->clearActiveGrip();
    for (const auto& line : top(drawn(*post), L"polyline"))
        EXPECT_NE(line.find(L"color=6 "), std::wstring::npos);
}

namespace {
// Draws a post and then a line of its own, which shows what the post left in the traits.
class LineAfterPost : public AcDbEntity {
public:
    explicit LineAfterPost(TrfcPost& post) : mPost(post) { setColorIndex(6); }

protected:
    bool subWorldDraw(AcGiWorldDraw* worldDraw) override {
        mPost.worldDraw(worldDraw);
        const AcGePoint3d points[] = {{7.0, 7.0, 0.0}, {8.0, 8.0, 0.0}};
        return worldDraw->geometry().polyline(2, points);
    }

private:
    TrfcPost& mPost;
};
} // namespace

TEST_F(PostDraw, the_arrows_colour_and_fill_do_not_reach_what_is_drawn_after_it) {
    auto post = newPost(1);
    dragGrip(*post, L"gripAddLamp", {5.0, 1.2, 0.0});
    LineAfterPost after(*post);
    const auto lines = drawn(after);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_NE(lines[0].find(L"color=255 "), std::wstring::npos);
    EXPECT_NE(lines[1].find(L"color=6 "), std::wstring::npos) << acToUtf8(lines[1]);
    EXPECT_EQ(lines[1].find(L"filled"), std::wstring::npos);
}

TEST_F(PostDraw, turning_a_lamp_shows_that_lamp_alone) {
    auto post = newPost(1);
    for (const AcGePoint3d& at : {AcGePoint3d(5.0, 0.0, 0.0), AcGePoint3d(-5.0, 0.0, 0.0)})
        post->lampChain(post->addLampChain(at)).appendBlockDownward(newLamp());
    setActive(*post, L"gripLampRot");
    const auto lines = drawn(*post);
    EXPECT_EQ(top(lines, L"instance").size(), 1u);
    EXPECT_TRUE(top(lines, L"polyline").empty());
}

TEST_F(PostDraw, moving_shows_everything_and_reshaping_leaves_the_lamps_out) {
    auto post = newPost(1);
    post->lampChain(post->addLampChain({5.0, 0.0, 0.0})).appendBlockDownward(newLamp());
    for (const wchar_t* whole : {L"grip1", L"grip2"}) {
        setActive(*post, whole);
        EXPECT_EQ(instances(*post), 3u) << acToUtf8(whole);
    }
    setActive(*post, L"grip5");
    EXPECT_EQ(instances(*post), 2u);
}

TEST_F(PostDraw, explodes_in_the_order_foot_arm_note_signs_lamps) {
    auto post = newPost(1);
    post->postText().text = L"Tábla";
    post->lampChain(post->addLampChain({5.0, 0.0, 0.0})).appendBlockDownward(newLamp());
    EXPECT_EQ(classNames(exploded(*post)), (std::vector<std::wstring>{L"AcDbCircle", L"AcDbLine", L"AcDbLine", L"AcDbLine", L"AcDbLine", L"AcDbLine", L"AcDbText",
                                                                      L"AcDbPolyline", L"AcDbPolyline"}));
}

TEST_F(PostDraw, what_a_block_leaves_to_its_owner_comes_out_in_the_posts_properties) {
    AcDbLayerTable* layers = nullptr;
    database().getLayerTable(layers, AcDb::kForWrite);
    auto* layer = new AcDbLayerTableRecord;
    layer->setName(L"KRESZ");
    layers->add(layer);
    layer->close();
    layers->close();
    auto* byBlock = new AcDbLine({}, {0.0, 1.0, 0.0});
    byBlock->setColorIndex(0);
    byBlock->setLineWeight(AcDb::kLnWtByBlock);
    byBlock->setLinetype(database().byBlockLinetype());
    auto* red = new AcDbLine({}, {0.5, 1.0, 0.0});
    red->setColorIndex(1);
    auto post = newPost(0);
    post->setLayer(L"KRESZ");
    post->setColorIndex(6);
    post->setLineWeight(AcDb::kLnWt050);
    post->signChain().appendBlockUpward(new TrfcTable(descriptor(L"a.dwg", makeBlock({byBlock, red}))));
    const auto parts = exploded(*post);
    ASSERT_EQ(parts.size(), 6u);
    for (const auto& part : parts)
        EXPECT_EQ(part->layerName(), L"KRESZ");
    EXPECT_EQ(parts[1]->colorIndex(), 6);
    EXPECT_EQ(parts[4]->colorIndex(), 6);
    EXPECT_EQ(parts[4]->lineWeight(), AcDb::kLnWt050);
    EXPECT_EQ(parts[4]->linetypeName(), post->linetypeName());
    EXPECT_EQ(parts[5]->colorIndex(), 1);
}

TEST_F(PostDraw, the_exploded_note_has_the_notes_properties) {
    auto post = newPost(0);
    post->setColorIndex(6);
    post->postText().text = L"Tábla";
    const auto parts = exploded(*post);
    ASSERT_EQ(parts.size(), 7u);
    EXPECT_EQ(parts[4]->colorIndex(), 1);
    EXPECT_EQ(parts[4]->lineWeight(), AcDb::kLnWt035);
    const auto* text = AcDbText::cast(parts[6].get());
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->colorIndex(), 3);
    EXPECT_DOUBLE_EQ(text->height(), 1.25);
    EXPECT_STREQ(text->textStringConst(), L"Tábla");
    expectNear(text->position(), post->textPosition());
}

// ---- the note's geometry ---------------------------------------------------------------------------------

TEST_F(PostDraw, the_note_goes_to_the_side_of_the_arm) {
    auto post = newPost(0);
    EXPECT_TRUE(post->isArmRight());
    expectNear(post->pointE(), {5.5, 0.0, 0.0});
    EXPECT_TRUE(post->isTextRight());
    post->setPointD({-6.0, 20.0, 0.0}, true);
    post->resetAnnotation();
    EXPECT_FALSE(post->isArmRight());
    expectNear(post->pointE(), {-5.5, 0.0, 0.0});
    EXPECT_FALSE(post->isTextRight());
}

TEST_F(PostDraw, an_anchor_inside_the_foot_goes_to_its_rim) {
    auto post = newPost(0);
    post->setPointE({0.2, 0.0, 0.0});
    expectNear(post->pointE(), {0.5, 0.0, 0.0});
    post->setPointE({0.0, 0.5, 0.0});
    expectNear(post->pointE(), {0.0, 0.5, 0.0});
    post->setPointE({3.0, 4.0, 0.0});
    expectNear(post->pointE(), {3.0, 4.0, 0.0});
    expectNear(post->leaderStart(), {0.3, 0.4, 0.0});
}

TEST_F(PostDraw, the_shelf_is_as_long_as_the_text_and_runs_away_from_the_post) {
    auto post = newPost(0);
    post->postText().text = L"Tábla";
    const double width = post->textWidth();
    EXPECT_GT(width, 1.25);
    expectNear(post->textVector(), AcGeVector3d(width, 0.0, 0.0));
    expectNear(post->textPosition(), {5.5, 0.25, 0.0});
    post->setPointE({-5.5, 0.0, 0.0});
    expectNear(post->textVector(), AcGeVector3d(-width, 0.0, 0.0));
    expectNear(post->textPosition(), {-5.5 - width, 0.25, 0.0});
}

TEST_F(PostDraw, a_change_of_scale_multiplies_AE_while_the_shelf_follows_the_settings) {
    auto post = newPost(0);
    post->postText().text = L"Tábla";
    const double width = post->textWidth();
    setScale(1000);
    post->setScale(1000);
    expectNear(post->pointE(), {11.0, 0.0, 0.0});
    EXPECT_NEAR(post->textWidth(), 2.0 * width, 1e-6);
    TrfcDocSettings::setDocDouble(DOC_ANNO_HEIGHT, 0.005);
    post->geometryChanged();
    expectNear(post->pointE(), {11.0, 0.0, 0.0});
    EXPECT_NEAR(post->textWidth(), 4.0 * width, 1e-6);
}
