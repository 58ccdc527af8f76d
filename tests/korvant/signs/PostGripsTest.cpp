// The grips of a post: where they stand, what drags and clicks do.
#include "SignsFixture.h"

#include "TrfcPostPages.h"

#include <map>

namespace {
class PostGrips : public SignsFixture {
protected:
    std::unique_ptr<TrfcPost> lampPost() {
        auto post = newPost(1);
        post->lampChain(post->addLampChain({5.0, 0.0, 0.0})).appendBlockDownward(newLamp());
        return post;
    }
    void show(TrfcPost& post, int scale) const {
        setScale(scale);
        post.setScale(scale);
    }
    // Clicks a grip of a resident post.
    AcDbGripOperations::ReturnStatus click(AcDbObjectId id, const std::wstring& name, int which = 0) {
        AcDbObjectPointer<TrfcPost> post(id);
        const Grips grips(*post.object());
        post.close();
        for (int i = 0;; ++i) {
            const auto* data = static_cast<const TrfcGripAppData*>(grips.at(i)->appData());
            if (data->name == name && which-- == 0)
                return grips.at(i)->hotGripFunc()(grips.at(i), id, 0);
        }
    }
    // A whole drag: the move, then the end or the abort.
    void drag(AcDbObjectId id, const std::wstring& name, const AcGeVector3d& by, AcDbGripOperations::GripStatus status) {
        AcDbObjectPointer<TrfcPost> post(id, AcDb::kForWrite);
        const Grips grips(*post.object());
        AcDbVoidPtrArray data;
        data.append(grips.find(name)->appData());
        post->moveGripPointsAt(data, by, 0);
        post.close();
        grips.find(name)->gripOpStatFunc()(grips.find(name), id, status);
    }
};
using Names = std::vector<std::wstring>;
constexpr auto kEnd = AcDbGripOperations::kGripEnd;
constexpr auto kAbort = AcDbGripOperations::kGripAbort;
} // namespace

// ---- which and where -----------------------------------------------------------------------------------

TEST_F(PostGrips, a_post_with_everything_offers_all_in_order) {
    auto post = lampPost();
    post->postText().text = L"Tábla";
    const Grips grips(*post);
    EXPECT_EQ(grips.names(), (Names{L"grip1", L"grip6", L"grip7", L"grip2", L"grip3", L"grip4", L"grip5", L"gripTables", L"gripPostProps", L"gripAddLamp",
                                    L"gripLampRot", L"gripLampEd"}));
    const std::pair<const wchar_t*, AcGePoint3d> places[] = {
        {L"grip1", {0.0, 0.0, 0.0}},       {L"grip6", {5.5, 0.0, 0.0}},  {L"grip7", {5.5, -1.2, 0.0}},       {L"grip2", {0.0, 10.0, 0.0}},
        {L"grip3", {3.0, 13.0, 0.0}},      {L"grip4", {6.0, 16.0, 0.0}}, {L"grip5", {6.0, 20.0, 0.0}},       {L"gripTables", {6.0, 24.0, 0.0}},
        {L"gripPostProps", {0.0, 11.2, 0.0}}, {L"gripAddLamp", {0.0, -1.2, 0.0}}, {L"gripLampRot", {2.8, 0.0, 0.0}}, {L"gripLampEd", {0.5, 1.2, 0.0}},
    };
    for (const auto& [name, place] : places)
        expectNear(grips.find(name)->gripPoint(), place, acToUtf8(name).c_str());
    expectNear(grips.dataOf(L"grip2").vector, {0.0, -10.0, 0.0});
    expectNear(grips.dataOf(L"grip3").vector, {0.0, 10.0, 0.0});
    expectNear(grips.dataOf(L"gripAddLamp").point, {0.0, -1.2, 0.0});
    expectNear(grips.dataOf(L"gripLampRot").vector, {-1.0, 0.0, 0.0});
    EXPECT_EQ(grips.dataOf(L"gripLampEd").index, 0);
}

TEST_F(PostGrips, hooks_and_flags_follow_the_kind_of_grip) {
    auto post = lampPost();
    post->postText().text = L"Tábla";
    const Grips grips(*post);
    struct Row {
        const wchar_t* name;
        bool status, glyph, hot, noRubberBand, noKeywords;
    };
    const Row rows[] = {
        {L"grip1", true, false, false, false, false},        {L"grip6", true, false, false, false, false},    {L"grip7", false, true, true, true, true},
        {L"grip2", true, true, false, false, false},         {L"grip3", true, true, false, false, false},     {L"grip4", true, false, false, false, false},
        {L"grip5", true, false, false, false, false},        {L"gripTables", false, true, true, true, true},  {L"gripPostProps", false, true, true, true, false},
        {L"gripAddLamp", true, true, false, true, true},     {L"gripLampRot", true, true, false, false, false}, {L"gripLampEd", false, true, true, true, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(acToUtf8(row.name));
        const AcDbGripData* grip = grips.find(row.name);
        EXPECT_EQ(grip->gripOpStatFunc() != nullptr, row.status);
        EXPECT_EQ(grip->worldDraw() != nullptr, row.glyph);
        EXPECT_EQ(grip->hotGripFunc() != nullptr, row.hot);
        EXPECT_EQ(grip->isRubberBandLineDisabled(), row.noRubberBand);
        EXPECT_EQ(grip->areModeKeywordsDisabled(), row.noKeywords);
        EXPECT_EQ(grip->bitFlags(), (row.noRubberBand ? 2u : 0u) | (row.noKeywords ? 4u : 0u));
    }
}

TEST_F(PostGrips, a_post_without_signs_offers_few) {
    auto post = newPost(0);
    EXPECT_EQ(Grips(*post).names(), (Names{L"grip1", L"gripPostProps", L"gripAddLamp"}));
    expectNear(Grips(*post).find(L"gripPostProps")->gripPoint(), {0.0, 1.2, 0.0});
    post->postText().text = L"Tábla";
    post->addLampChain({5.0, 0.0, 0.0});
    post->addLampChain({-5.0, 0.0, 0.0});
    EXPECT_EQ(Grips(*post).names(), (Names{L"grip1", L"grip6", L"grip7", L"gripPostProps", L"gripAddLamp", L"gripLampRot", L"gripLampEd", L"gripLampRot", L"gripLampEd"}));
}

TEST_F(PostGrips, an_arm_without_bend_has_no_grips_of_the_bend) {
    auto post = newPost(1);
    post->setPointD({0.1, 20.0, 0.0}, true);
    const Grips grips(*post);
    EXPECT_EQ(grips.find(L"grip3"), nullptr);
    EXPECT_EQ(grips.find(L"grip4"), nullptr);
    EXPECT_NE(grips.find(L"grip5"), nullptr);
}

TEST_F(PostGrips, an_empty_lamp_chain_has_its_edit_grip_on_the_other_side) {
    auto post = newPost(0);
    post->addLampChain({5.0, 0.0, 0.0});
    expectNear(Grips(*post).find(L"gripLampEd")->gripPoint(), {0.5, -1.2, 0.0});
    expectNear(Grips(*post).find(L"gripLampRot")->gripPoint(), {0.5, 0.0, 0.0});
}

// ---- drags ----------------------------------------------------------------------------------------------

TEST_F(PostGrips, grip1_moves_the_post_in_every_scale) {
    auto post = newPost(1);
    show(*post, 1000);
    dragGrip(*post, L"grip5", {0.0, 10.0, 0.0}); // of 1:1000 alone
    show(*post, 500);
    dragGrip(*post, L"grip1", {1.0, 2.0, 0.0});
    expectNear(post->pointA(), {1.0, 2.0, 0.0});
    EXPECT_EQ(post->recordedScales(), (std::vector<int>{500, 1000}));
    show(*post, 1000);
    expectNear(post->pointB(), {1.0, 22.0, 0.0});
    expectNear(post->pointD(), {13.0, 52.0, 0.0});
}

TEST_F(PostGrips, grip2_turns_the_post_and_keeps_its_lengths) {
    auto post = newPost(1);
    dragGrip(*post, L"grip2", {20.0, -10.0, 0.0});
    expectNear(post->pointB(), {10.0, 0.0, 0.0});
    expectNear(post->pointD(), {20.0, -6.0, 0.0});
    EXPECT_NEAR(std::remainder(post->rotation() + kHalfPi, kTwoPi), 0.0, 1e-12);
    expectLaidWithoutGap(post->signChain());
}

TEST_F(PostGrips, grip2_dragged_onto_A_does_nothing) {
    auto post = newPost(1);
    const auto before = filed(*post);
    dragGrip(*post, L"grip2", {0.0, -10.0, 0.0});
    EXPECT_EQ(filed(*post), before);
}

TEST_F(PostGrips, grip2_turns_the_post_in_every_scale) {
    auto post = newPost(1);
    show(*post, 1000);
    dragGrip(*post, L"grip5", {0.0, 10.0, 0.0}); // of 1:1000 alone
    show(*post, 500);
    dragGrip(*post, L"grip2", {-10.0, -10.0, 0.0}); // a quarter turn to the left
    EXPECT_EQ(post->recordedScales(), (std::vector<int>{500, 1000}));
    show(*post, 1000);
    expectNear(post->pointA(), {0.0, 0.0, 0.0});
    expectNear(post->pointB(), {-20.0, 0.0, 0.0});
    expectNear(post->pointD(), {-50.0, 12.0, 0.0});
    expectNear(post->signChain().position(), post->pointD());
    expectLaidWithoutGap(post->signChain());
}

TEST_F(PostGrips, the_grips_of_the_arm_and_the_note_leave_the_other_scales_alone) {
    for (const wchar_t* const name : {L"grip3", L"grip4", L"grip5", L"grip6"}) {
        SCOPED_TRACE(acToUtf8(name));
        setScale(500);
        auto post = newPost(1);
        post->postText().text = L"Tábla";
        show(*post, 1000);
        const AcGePoint3d points[] = {post->pointB(), post->pointC(), post->pointD(), post->pointE()};
        show(*post, 500);
        dragGrip(*post, name, {1.0, 1.5, 0.0});
        EXPECT_EQ(post->recordedScales(), (std::vector<int>{500, 1000}));
        show(*post, 1000);
        const AcGePoint3d after[] = {post->pointB(), post->pointC(), post->pointD(), post->pointE()};
        for (int i = 0; i < 4; ++i)
            expectNear(after[i], points[i]);
    }
}

TEST_F(PostGrips, a_plain_transformation_drops_what_the_grips_keep) {
    for (const AcGeMatrix3d& matrix : {AcGeMatrix3d::translation({1.0, 2.0, 0.0}), AcGeMatrix3d::rotation(kHalfPi, AcGeVector3d::kZAxis, AcGePoint3d::kOrigin),
                                       AcGeMatrix3d::scaling(2.0, AcGePoint3d::kOrigin)}) {
        setScale(500);
        auto post = newPost(1);
        show(*post, 1000);
        dragGrip(*post, L"grip5", {0.0, 10.0, 0.0}); // of 1:1000 alone
        show(*post, 500);
        post->transformBy(matrix);
        EXPECT_TRUE(post->recordedScales().empty());
        const AcGePoint3d a = post->pointA();
        const AcGeVector3d armAt500 = post->pointD() - a;
        show(*post, 1000);
        expectNear(post->pointA(), a);
        expectNear(post->pointD() - a, armAt500 * 2.0); // derived anew: the drag at 1:1000 is gone
    }
}

TEST_F(PostGrips, a_drag_by_nothing_changes_nothing) {
    for (const wchar_t* const name : {L"grip1", L"grip2", L"grip3", L"grip4", L"grip5", L"grip6", L"gripLampRot"}) {
        SCOPED_TRACE(acToUtf8(name));
        auto post = lampPost();
        post->postText().text = L"Tábla";
        dragGrip(*post, L"grip3", {0.0, 3.0, 0.0}); // so that armRatio is the one of the lengths
        const AcGePoint3d points[] = {post->pointA(), post->pointB(), post->pointC(), post->pointD(), post->pointE(), post->lampChain(0).position()};
        dragGrip(*post, name, {0.0, 0.0, 0.0});
        const AcGePoint3d after[] = {post->pointA(), post->pointB(), post->pointC(), post->pointD(), post->pointE(), post->lampChain(0).position()};
        for (int i = 0; i < 6; ++i)
            expectNear(after[i], points[i]);
    }
}

// ---- drags onto an anchor, posts without a direction

TEST_F(PostGrips, grip4_dragged_onto_B_takes_the_bend_away) {
    auto post = newPost(1);
    dragGrip(*post, L"grip4", {-6.0, -6.0, 0.0});
    EXPECT_FALSE(post->hasBend());
    expectNear(post->pointC(), post->pointB());
    expectNear(post->pointD(), {0.0, 14.0, 0.0});
}

TEST_F(PostGrips, grip5_dragged_onto_B_leaves_the_shortest_arm_along_the_post) {
    auto post = newPost(1);
    dragGrip(*post, L"grip5", {-6.0, -10.0, 0.0});
    EXPECT_FALSE(post->hasBend());
    expectNear(post->pointC(), {0.0, 10.0, 0.0});
    expectNear(post->pointD(), {0.0, 13.0, 0.0});
}

TEST_F(PostGrips, grip6_dragged_onto_A_does_nothing) {
    auto post = newPost(1);
    post->postText().text = L"Tábla";
    const auto before = filed(*post);
    dragGrip(*post, L"grip6", post->pointA() - post->pointE());
    EXPECT_EQ(filed(*post), before);
}

TEST_F(PostGrips, a_post_whose_B_lies_on_A_survives_every_drag) {
    TrfcPost post;
    post.setBaseBlock(loadBlockTemplate(TrfcAppSettings::getAppString(APP_POSTS_BASE_PATH), L"Oszlopok\\Jelzőoszlop.dwg"));
    post.setPointA({1.0, 2.0, 0.0});
    post.setPointB({1.0, 2.0, 0.0});
    post.setPointD({6.0, 8.0, 0.0}, true);
    post.signChain().appendBlockUpward(newTable(L"a.dwg"));
    post.lampChain(post.addLampChain({5.0, 2.0, 0.0})).appendBlockDownward(newLamp());
    post.postText().text = L"Tábla";
    for (const std::wstring& name : Grips(post).names()) {
        dragGrip(post, name, {1.0, 1.0, 0.0});
        post.clearActiveGrip();
    }
    for (const std::wstring& line : filed(post))
        EXPECT_EQ(line.find(L"nan"), std::wstring::npos) << acToUtf8(line);
}

TEST_F(PostGrips, grip3_slides_the_arm_along_the_post) {
    auto post = newPost(1);
    dragGrip(*post, L"grip3", {3.0, 0.0, 0.0}); // along BC this is 3 down the post
    expectNear(post->pointB(), {0.0, 7.0, 0.0});
    expectNear(post->pointC(), {6.0, 13.0, 0.0});
    expectNear(post->pointD(), {6.0, 20.0, 0.0});
    expectNear(post->vectorAB(), AcGeVector3d(0.0, 7.0, 0.0));
    EXPECT_NEAR(post->armRatio(), 7.0 / 14.0, 1e-12);
}

TEST_F(PostGrips, grip3_pushes_D_ahead_when_the_arm_would_grow_too_short) {
    auto post = newPost(1);
    dragGrip(*post, L"grip3", {0.0, 3.0, 0.0});
    expectNear(post->pointC(), {6.0, 19.0, 0.0});
    expectNear(post->pointD(), {6.0, 22.0, 0.0});
    expectNear(post->signChain().position(), {6.0, 22.0, 0.0});
    EXPECT_NEAR(post->armRatio(), 13.0 / 16.0, 1e-12);
}

TEST_F(PostGrips, grip3_dragged_past_A_leaves_the_minimum_length) {
    auto post = newPost(1);
    dragGrip(*post, L"grip3", {0.0, -25.0, 0.0});
    expectNear(post->pointB(), {0.0, 5.0, 0.0});
    dragGrip(*post, L"grip3", {0.0, -1.0, 0.0});
    expectNear(post->pointB(), {0.0, 5.0, 0.0});
}

TEST_F(PostGrips, grip4_moves_the_bend_with_the_signs) {
    auto post = newPost(1);
    dragGrip(*post, L"grip4", {2.0, 0.0, 0.0});
    expectNear(post->pointC(), {8.0, 16.0, 0.0});
    expectNear(post->pointD(), {8.0, 20.0, 0.0});
    EXPECT_NEAR(post->bendAngle(), std::atan2(8.0, 6.0), 1e-12);
    expectNear(post->signChain().position(), {8.0, 20.0, 0.0});
    expectLaidWithoutGap(post->signChain());
}

TEST_F(PostGrips, grip4_near_the_axis_takes_the_bend_away_and_keeps_CD) {
    auto post = newPost(1);
    dragGrip(*post, L"grip4", {-5.5, 0.0, 0.0});
    EXPECT_FALSE(post->hasBend());
    expectNear(post->pointC(), {0.0, 10.0, 0.0});
    expectNear(post->pointD(), {0.0, 14.0, 0.0});
    EXPECT_NEAR(post->bendAngle(), kPi / 4.0, 1e-12);
    expectNear(post->signChain().position(), {0.0, 14.0, 0.0});
}

TEST_F(PostGrips, grip5_moves_D_under_its_constraints) {
    auto post = newPost(1);
    dragGrip(*post, L"grip5", {0.0, -3.0, 0.0});
    expectNear(post->pointD(), {6.0, 19.0, 0.0});
}

TEST_F(PostGrips, grip6_moves_the_note) {
    auto post = newPost(1);
    post->postText().text = L"Tábla";
    dragGrip(*post, L"grip6", {0.0, 4.0, 0.0});
    expectNear(post->pointE(), {5.5, 4.0, 0.0});
}

TEST_F(PostGrips, a_lamp_turns_about_the_foot) {
    auto post = newPost(0);
    post->addLampChain({5.0, 0.0, 0.0});
    dragGrip(*post, L"gripLampRot", {-0.5, 3.0, 0.0});
    expectNear(post->lampChain(0).axis(), {0.0, -1.0, 0.0});
    expectNear(post->lampChain(0).position(), {0.0, 0.5, 0.0});
}

TEST_F(PostGrips, a_lamp_dragged_onto_A_stays) {
    auto post = newPost(0);
    post->addLampChain({5.0, 0.0, 0.0});
    dragGrip(*post, L"gripLampRot", {-0.5, 0.0, 0.0});
    expectNear(post->lampChain(0).position(), {0.5, 0.0, 0.0});
}

TEST_F(PostGrips, each_call_of_a_lamp_drag_turns_by_the_angle_from_where_the_drag_began) {
    auto post = newPost(0);
    post->addLampChain({5.0, 0.0, 0.0});
    const Grips grips(*post);
    AcDbVoidPtrArray data;
    data.append(grips.find(L"gripLampRot")->appData());
    for (int i = 0; i < 2; ++i)
        post->moveGripPointsAt(data, {-0.5, 3.0, 0.0}, 0);
    expectNear(post->lampChain(0).axis(), {1.0, 0.0, 0.0}); // twice a quarter turn
    expectNear(post->lampChain(0).position(), {0.0, 0.5, 0.0});
}

TEST_F(PostGrips, the_dragged_grip_is_known_until_the_drag_ends) {
    const AcDbObjectId id = resident(newPost(1));
    for (const auto status : {kEnd, kAbort}) {
        AcDbObjectPointer<TrfcPost> post(id, AcDb::kForWrite);
        dragGrip(*post.object(), L"grip5", {0.0, 1.0, 0.0});
        ASSERT_NE(post->activeGrip(), nullptr);
        EXPECT_EQ(post->activeGrip()->name, L"grip5");
        const Grips grips(*post.object());
        post.close();
        grips.find(L"grip5")->gripOpStatFunc()(grips.find(L"grip5"), id, status);
        const AcDbObjectPointer<TrfcPost> after(id);
        EXPECT_EQ(after->activeGrip(), nullptr);
    }
}

// ---- lamps and dialogs ------------------------------------------------------------------------------------

TEST_F(PostGrips, a_dragged_out_lamp_is_added_when_its_dialog_is_confirmed) {
    const AcDbObjectId id = resident(newPost(1));
    int page = -1;
    dialogAnswers().post = [&](TrfcPost& clone, int opened) {
        page = opened;
        EXPECT_EQ(clone.lampChainCount(), 1);
        return true;
    };
    drag(id, L"gripAddLamp", {5.0, 1.2, 0.0}, kEnd);
    EXPECT_EQ(page, 2);
    const AcDbObjectPointer<TrfcPost> post(id);
    ASSERT_EQ(post->lampChainCount(), 1);
    expectNear(post->lampChain(0).position(), {0.5, 0.0, 0.0});
}

TEST_F(PostGrips, cancelling_the_lamp_dialog_adds_nothing) {
    const AcDbObjectId id = resident(newPost(1));
    dialogAnswers().post = [](TrfcPost&, int) { return false; };
    drag(id, L"gripAddLamp", {5.0, 1.2, 0.0}, kEnd);
    const AcDbObjectPointer<TrfcPost> post(id);
    EXPECT_EQ(post->lampChainCount(), 0);
}

TEST_F(PostGrips, an_aborted_lamp_drag_opens_no_dialog) {
    const AcDbObjectId id = resident(newPost(1));
    dialogAnswers().post = [](TrfcPost&, int) {
        ADD_FAILURE() << "a dialog was opened";
        return true;
    };
    drag(id, L"gripAddLamp", {5.0, 1.2, 0.0}, kAbort);
    drag(id, L"gripAddLamp", {0.0, 1.2, 0.0}, kEnd); // onto A
}

TEST_F(PostGrips, a_click_without_a_drag_opens_no_dialog_for_a_post_at_the_old_drag_point) {
    const AcDbObjectId id = resident(newPost(1)); // A at the origin, where the drag point is at first
    dialogAnswers().post = [](TrfcPost&, int) {
        ADD_FAILURE() << "a dialog was opened";
        return true;
    };
    AcDbObjectPointer<TrfcPost> post(id);
    const Grips grips(*post.object());
    post.close();
    grips.find(L"gripAddLamp")->gripOpStatFunc()(grips.find(L"gripAddLamp"), id, kEnd);
}

TEST_F(PostGrips, a_click_after_an_aborted_drag_adds_the_lamp_where_that_drag_ended) {
    const AcDbObjectId id = resident(newPost(1));
    drag(id, L"gripAddLamp", {5.0, 1.2, 0.0}, kAbort);
    dialogAnswers().post = [](TrfcPost&, int) { return true; };
    AcDbObjectPointer<TrfcPost> post(id);
    const Grips grips(*post.object());
    post.close();
    grips.find(L"gripAddLamp")->gripOpStatFunc()(grips.find(L"gripAddLamp"), id, kEnd);
    const AcDbObjectPointer<TrfcPost> after(id);
    ASSERT_EQ(after->lampChainCount(), 1);
    expectNear(after->lampChain(0).position(), {0.5, 0.0, 0.0});
}

TEST_F(PostGrips, command_grips_open_the_dialog_at_their_page) {
    const AcDbObjectId id = [&] {
        auto post = lampPost();
        post->lampChain(post->addLampChain({-5.0, 0.0, 0.0})).appendBlockDownward(newLamp());
        return resident(std::move(post));
    }();
    std::vector<int> pages;
    dialogAnswers().post = [&](TrfcPost& clone, int page) {
        pages.push_back(page);
        clone.postText().text = acFormat(L"%d", page);
        return page != 1; // the sign dialog is cancelled
    };
    EXPECT_EQ(click(id, L"gripPostProps"), 3);
    click(id, L"gripLampEd", 0);
    click(id, L"gripLampEd", 1);
    click(id, L"gripTables");
    EXPECT_EQ(pages, (std::vector<int>{0, 2, 3, 1}));
    const AcDbObjectPointer<TrfcPost> post(id);
    EXPECT_EQ(post->postText().text, L"3");
    EXPECT_TRUE(post->isGraphicsModified());
}

TEST_F(PostGrips, grip7_puts_the_note_back) {
    auto made = newPost(1);
    made->postText().text = L"Tábla";
    made->setPointE({50.0, 50.0, 0.0});
    const AcDbObjectId id = resident(std::move(made));
    click(id, L"grip7");
    const AcDbObjectPointer<TrfcPost> post(id);
    expectNear(post->pointE(), {5.5, 0.0, 0.0});
}

TEST_F(PostGrips, each_grip_has_its_glyph_along_its_direction) {
    auto post = lampPost();
    post->postText().text = L"Tábla";
    const Grips grips(*post);
    using Glyph = std::function<void(AcGiWorldDraw&, const AcGePoint3d&)>;
    const auto arrow = [](void (*draw)(AcGiCommonDraw*, AcGiGeometry&, int, const AcGePoint3d&, double, const AcGeVector3d&), const AcGeVector3d& along) {
        return Glyph([draw, along](AcGiWorldDraw& world, const AcGePoint3d& at) { draw(&world, world.geometry(), 0, at, 0.5, along); });
    };
    const auto plain = [](void (*draw)(AcGiCommonDraw*, AcGiGeometry&, int, const AcGePoint3d&, double)) {
        return Glyph([draw](AcGiWorldDraw& world, const AcGePoint3d& at) { draw(&world, world.geometry(), 0, at, 0.5); });
    };
    const std::map<std::wstring, Glyph> glyphs = {
        {L"grip7", plain(drawGripLeftTriangles)},
        {L"grip2", arrow(drawGripArrowBent, {0.0, -10.0, 0.0})},
        {L"grip3", arrow(drawGripArrow, {0.0, 10.0, 0.0})},
        {L"gripTables", plain(drawGripBar)},
        {L"gripPostProps", plain(drawGripBar)},
        {L"gripAddLamp", plain(drawGripPlus)},
        {L"gripLampRot", arrow(drawGripArrowBent, {-1.0, 0.0, 0.0})},
        {L"gripLampEd", plain(drawGripBar)},
    };
    const auto listed = [](const std::function<void(AcGiWorldDraw&)>& draw) {
        GiDisplayListBuilder builder;
        draw(builder.worldDraw());
        return giRecord(builder.list(), GiNamer());
    };
    for (const std::wstring& name : grips.names()) {
        SCOPED_TRACE(acToUtf8(name));
        AcDbGripData* const grip = grips.find(name);
        const auto glyph = glyphs.find(name);
        ASSERT_EQ(grip->worldDraw() != nullptr, glyph != glyphs.end());
        if (glyph == glyphs.end())
            continue;
        const auto actual = listed([grip](AcGiWorldDraw& world) {
            EXPECT_TRUE(grip->worldDraw()(grip, &world, AcDbObjectId(), AcDbGripOperations::kWarmGrip, nullptr, 0.5));
        });
        EXPECT_FALSE(actual.empty());
        EXPECT_EQ(actual, listed([&](AcGiWorldDraw& world) { glyph->second(world, grip->gripPoint()); }));
    }
}
