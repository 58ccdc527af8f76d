// Placing posts and road markings, from the prompts to the drawing.
#include "SignsFixture.h"

#include "DialogUser.h"
#include "TrfcBlockJig.h"
#include "TrfcPostJig.h"
#include "Typist.h"

namespace {
class Placement : public SignsFixture {
protected:
    AcEdJig::DragStatus placePost(std::deque<std::wstring> answers) {
        Typist typist(std::move(answers));
        TrfcPostJig jig;
        const auto status = jig.run(std::make_unique<TrfcPost>());
        prompts = typist.prompts;
        EXPECT_TRUE(typist.lines.empty());
        return status;
    }
    AcEdJig::DragStatus placeMarking(std::deque<std::wstring> answers) {
        Typist typist(std::move(answers));
        TrfcBlockJig jig;
        const auto status = jig.run(std::make_unique<TrfcBlockEnt>());
        prompts = typist.prompts;
        EXPECT_TRUE(typist.lines.empty());
        return status;
    }
    AcDbObjectIdArray placed() {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(database().modelSpaceId());
        return space->entityIds();
    }
    void confirmEverything() {
        dialogAnswers().post = [this](TrfcPost& clone, int page) {
            EXPECT_EQ(page, 1);
            EXPECT_EQ(clone.placementPhase(), 4);
            clone.signChain().appendBlockUpward(newTable(L"a.dwg"));
            return true;
        };
        dialogAnswers().blockEnt = [](TrfcBlockEnt&) { return true; };
    }

    std::vector<std::wstring> prompts;
    DialogUser resources; // for the texts of the prompts
};
} // namespace

TEST_F(Placement, three_points_and_the_sign_dialog_make_a_post) {
    confirmEverything();
    EXPECT_EQ(placePost({L"1,1", L"1,11", L"7,21"}), AcEdJig::kNormal);
    ASSERT_EQ(placed().length(), 1);
    const AcDbObjectPointer<TrfcPost> post(placed()[0]);
    ASSERT_TRUE(post);
    expectNear(post->pointA(), {1.0, 1.0, 0.0});
    expectNear(post->pointB(), {1.0, 11.0, 0.0});
    expectNear(post->pointC(), {7.0, 17.0, 0.0});
    expectNear(post->pointD(), {7.0, 21.0, 0.0});
    expectNear(post->pointE(), {6.5, 1.0, 0.0});
    EXPECT_EQ(post->placementPhase(), 5);
    EXPECT_EQ(post->signChain().size(), 1);
    ASSERT_EQ(prompts.size(), 3u);
    EXPECT_NE(prompts[0].find(L"Adja meg a beillesztési pontot (A):"), std::wstring::npos);
    EXPECT_NE(prompts[1].find(L"Adja meg az oszlop elforgatását (B):"), std::wstring::npos);
    EXPECT_NE(prompts[2].find(L"Adja meg a táblák beillesztési pontját (D):"), std::wstring::npos);
}

TEST_F(Placement, a_point_equal_to_the_last_sampled_one_counts_all_the_same) {
    confirmEverything();
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(placePost({L"6,20", L"6,30", L"6,40"}), AcEdJig::kNormal);
    EXPECT_EQ(placePost({L"6,40", L"6,50", L"6,60"}), AcEdJig::kNormal);
    ASSERT_EQ(placed().length(), 3);
    const AcDbObjectPointer<TrfcPost> post(placed()[2]);
    expectNear(post->pointA(), {6.0, 40.0, 0.0});
}

TEST_F(Placement, Enter_at_the_first_prompt_ends_without_a_post) {
    confirmEverything();
    EXPECT_EQ(placePost({L""}), AcEdJig::kNull);
    EXPECT_EQ(placed().length(), 0);
}

TEST_F(Placement, a_cancel_at_any_point_leaves_nothing) {
    confirmEverything();
    EXPECT_EQ(placePost({}), AcEdJig::kCancel);
    EXPECT_EQ(placePost({L"1,1"}), AcEdJig::kCancel);
    EXPECT_EQ(placePost({L"1,1", L"1,11"}), AcEdJig::kCancel);
    EXPECT_EQ(placed().length(), 0);
}

TEST_F(Placement, a_cancelled_dialog_leaves_nothing) {
    EXPECT_EQ(placePost({L"1,1", L"1,11", L"7,21"}), AcEdJig::kNormal);
    EXPECT_EQ(placed().length(), 0);
}

TEST_F(Placement, a_post_is_placed_with_the_substitute_of_a_missing_foot) {
    confirmEverything();
    TrfcDocSettings::setDocString(DOC_POST_DEFAULT_DWG, L"Oszlopok\\Nincs.dwg");
    EXPECT_EQ(placePost({L"1,1", L"1,11", L"7,21"}), AcEdJig::kNormal);
    ASSERT_EQ(placed().length(), 1);
    const AcDbObjectPointer<TrfcPost> post(placed()[0]);
    EXPECT_FALSE(post->baseBlock().descriptor().blockId.isNull());
    EXPECT_STREQ(post->baseBlock().descriptor().blockFile, L"Oszlopok\\Nincs.dwg");
}

TEST_F(Placement, a_foot_with_a_multiline_attribute_is_refused) {
    confirmEverything();
    library.add(L"Oszlop\\Oszlopok\\Jelzőoszlop.dwg", "disk 0.5\nmattdef T x\n");
    EXPECT_EQ(placePost({}), AcEdJig::kCancel);
    EXPECT_TRUE(prompts.empty());
    EXPECT_NE(resources.printed().find(L"Többsoros attribútumdefiníciót tartalmazó blokkot nem lehet beszúrni!\n"), std::wstring::npos);
}

TEST_F(Placement, a_D_near_the_axis_gives_a_post_without_a_bend) {
    confirmEverything();
    EXPECT_EQ(placePost({L"0,0", L"0,10", L"0.4,20"}), AcEdJig::kNormal);
    ASSERT_EQ(placed().length(), 1);
    const AcDbObjectPointer<TrfcPost> post(placed()[0]);
    EXPECT_FALSE(post->hasBend());
    expectNear(post->pointD(), {0.0, 20.0, 0.0});
}

namespace {
// Notes what each sample of the drag gave and what it made the post show.
class WatchedJig : public TrfcPostJig {
public:
    DragStatus sampler() override {
        statuses.push_back(TrfcPostJig::sampler());
        controls.push_back(userInputControls());
        cursors.push_back(specialCursorType());
        return statuses.back();
    }
    bool update() override {
        const bool updated = TrfcPostJig::update();
        phases.push_back(TrfcPost::cast(entity())->placementPhase());
        int segments = 0;
        for (const std::wstring& line : drawn(*entity()))
            segments += line.starts_with(L"polyline") ? 1 : 0;
        armSegments.push_back(segments);
        return updated;
    }
    std::vector<DragStatus> statuses;
    std::vector<int> controls, cursors, phases, armSegments;
};
} // namespace

TEST_F(Placement, the_arm_shows_as_soon_as_the_cursor_moves_behind_the_second_point) {
    const Typist typist({L"1,1", L"1,11", L"7,21"});
    WatchedJig jig;
    EXPECT_EQ(jig.run(std::make_unique<TrfcPost>()), AcEdJig::kNormal);
    EXPECT_EQ(jig.phases, (std::vector<int>{1, 2, 4}));
    EXPECT_EQ(jig.armSegments, (std::vector<int>{0, 1, 3}));
}

TEST_F(Placement, a_sample_where_the_cursor_rested_is_no_change_whatever_the_stage) {
    const Typist typist({L"3,3", L"3,3", L"3,3", L"8,8", L"8,20", L"8,20"});
    WatchedJig first, second;
    first.run(std::make_unique<TrfcPost>());
    second.run(std::make_unique<TrfcPost>());
    EXPECT_EQ(first.statuses[1], AcEdJig::kNoChange);
    EXPECT_EQ(first.statuses[2], AcEdJig::kNoChange);
    EXPECT_EQ(second.statuses, (std::vector<AcEdJig::DragStatus>{AcEdJig::kNormal, AcEdJig::kNormal, AcEdJig::kNoChange}));
}

TEST_F(Placement, no_stage_has_limits_keywords_or_a_cursor_of_its_own) {
    const Typist typist({L"1,1", L"1,11", L"7,21"});
    WatchedJig jig;
    jig.run(std::make_unique<TrfcPost>());
    EXPECT_EQ(jig.controls, (std::vector<int>{0, 0, 0}));
    EXPECT_EQ(jig.cursors, (std::vector<int>{0, 0, 0}));
    EXPECT_STREQ(jig.keywordList(), L"");
    EXPECT_EQ(jig.dimData(1.0), nullptr);
    EXPECT_EQ(jig.setDimValue(nullptr, 1.0), Acad::eOk);
}

TEST_F(Placement, the_minimum_lengths_hold_during_the_drag_in_paper_measure) {
    confirmEverything();
    setScale(1000); // 0.01 of the sheet is 10 here, 0.006 is 6
    EXPECT_EQ(placePost({L"0,0", L"0,1", L"4,3"}), AcEdJig::kNormal);
    ASSERT_EQ(placed().length(), 1);
    const AcDbObjectPointer<TrfcPost> post(placed()[0]);
    expectNear(post->pointB(), {0.0, 10.0, 0.0});
    expectNear(post->pointC(), {4.0, 14.0, 0.0});
    expectNear(post->pointD(), {4.0, 20.0, 0.0});
    EXPECT_DOUBLE_EQ(post->baseBlock().scaleFactor(), 2.0);
}

// ---- road markings -----------------------------------------------------------------------------------------

TEST_F(Placement, a_point_an_angle_and_the_dialog_make_a_marking) {
    confirmEverything();
    EXPECT_EQ(placeMarking({L"3,4", L"180"}), AcEdJig::kNormal);
    ASSERT_EQ(placed().length(), 1);
    const AcDbObjectPointer<TrfcBlockEnt> marking(placed()[0]);
    expectNear(marking->position(), {3.0, 4.0, 0.0});
    expectNear(marking->upVector(), {-1.0, 0.0, 0.0}); // the angle is the way up
    ASSERT_EQ(prompts.size(), 2u);
    EXPECT_NE(prompts[0].find(L"Adja meg a beillesztési pontot:"), std::wstring::npos);
    EXPECT_NE(prompts[1].find(L"Adja meg a blokk elforgatását <"), std::wstring::npos);
}

TEST_F(Placement, Enter_at_the_angle_repeats_the_last_turn) {
    confirmEverything();
    placeMarking({L"3,4", L"180"});
    EXPECT_EQ(placeMarking({L"30,4", L""}), AcEdJig::kNormal);
    ASSERT_EQ(placed().length(), 2);
    const AcDbObjectPointer<TrfcBlockEnt> marking(placed()[1]);
    expectNear(marking->upVector(), {-1.0, 0.0, 0.0});
    EXPECT_NE(prompts[1].find(L"<1.570796>"), std::wstring::npos) << acToUtf8(prompts[1]);
}

TEST_F(Placement, a_hanging_marking_points_its_symbol_along_the_angle) {
    confirmEverything();
    library.add(L"Jelek\\TrfcBlockDefault.dwg", "box 1 -1\n");
    EXPECT_EQ(placeMarking({L"0,0", L"0"}), AcEdJig::kNormal);
    ASSERT_EQ(placed().length(), 1);
    const AcDbObjectPointer<TrfcBlockEnt> marking(placed()[0]);
    expectNear(marking->upVector(), {1.0, 0.0, 0.0});
}

TEST_F(Placement, a_cancelled_marking_leaves_nothing) {
    EXPECT_EQ(placeMarking({L"3,4", L"90"}), AcEdJig::kNormal);
    EXPECT_EQ(placeMarking({L"3,4"}), AcEdJig::kCancel);
    EXPECT_EQ(placeMarking({L""}), AcEdJig::kNull);
    EXPECT_EQ(placed().length(), 0);
}
