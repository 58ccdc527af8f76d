// The post: placement of its points, states, changes of scale, moves and turns.
#include "SignsFixture.h"

#include "AcEdAds.h"
#include "AcEdCommandStack.h"
#include "DialogUser.h"
#include "TrfcDocSettings.h"
#include "TrfcStateChangeData.h"

namespace {
class Post : public SignsFixture {
protected:
    static double footRadius(const TrfcPost& post) { return post.baseBlock().width() / 2.0 / post.baseBlock().scaleFactor(); }
};
constexpr double kTol = 1e-12;
} // namespace

TEST_F(Post, is_made_by_default_with_the_drawings_settings) {
    const TrfcPost post;
    EXPECT_EQ(post.placementPhase(), 0);
    EXPECT_DOUBLE_EQ(post.armRatio(), 0.5);
    EXPECT_DOUBLE_EQ(post.basePointD(), 1.0);
    EXPECT_DOUBLE_EQ(post.annoHeight(), 1.25);
    EXPECT_TRUE(post.hasBend());
    EXPECT_TRUE(post.lampsFollowRotation());
    EXPECT_EQ(post.lampChainCount(), 0);
    EXPECT_EQ(post.exchangeId(), 0u);
    expectNear(post.vectorAB(), AcGeVector3d());
}

TEST_F(Post, its_second_constructor_makes_the_foot_and_nothing_else) {
    const S_BLOCK_DESCRIPTOR foot = plate(L"a.dwg");
    const TrfcPost post(foot, {3.0, 4.0, 0.0}, kHalfPi, 2.0);
    expectNear(post.baseBlock().position(), {3.0, 4.0, 0.0});
    EXPECT_DOUBLE_EQ(post.baseBlock().rotation(), kHalfPi);
    EXPECT_DOUBLE_EQ(post.baseBlock().scaleFactor(), 2.0);
    EXPECT_EQ(post.baseBlock().descriptor().blockId, foot.blockId);
    expectNear(post.pointA(), {0.0, 0.0, 0.0});
    EXPECT_DOUBLE_EQ(post.basePointD(), 1.0);
    EXPECT_EQ(post.placementPhase(), 0);
    EXPECT_DOUBLE_EQ(post.rotation(), 0.0);
}

TEST_F(Post, the_bend_setting_of_45_degrees_bends_the_arm_by_45_degrees) {
    EXPECT_NEAR(TrfcPost().bendAngle(), kPi / 4.0, kTol);
    const auto post = newPost();
    EXPECT_NEAR((post->pointB() - post->pointA()).angleTo(post->pointC() - post->pointB()), kPi / 4.0, 1e-9);
}

TEST_F(Post, point_A_takes_the_default_state_and_the_foot) {
    set(DOC_POST_DEFAULT_TYPE, L"1");
    TrfcPost post;
    post.setBaseBlock(loadBlockTemplate(TrfcAppSettings::getAppString(APP_POSTS_BASE_PATH), L"Oszlopok\\Jelzőoszlop.dwg"));
    post.setPointA({7.0, 8.0, 0.0});
    EXPECT_EQ(post.postData().postType, 1);
    EXPECT_STREQ(post.baseBlock().descriptor().blockFile, L"Oszlopok\\$Jelzőoszlop.dwg");
    expectNear(post.baseBlock().position(), {7.0, 8.0, 0.0});
    EXPECT_EQ(post.placementPhase(), 1);
}

TEST_F(Post, point_B_nearer_than_the_minimum_is_pushed_out) {
    TrfcPost post;
    post.setPointB({2.0, 0.0, 0.0});
    expectNear(post.pointB(), {5.0, 0.0, 0.0});
    expectNear(post.vectorAB(), AcGeVector3d(5.0, 0.0, 0.0));
    EXPECT_NEAR(post.rotation(), -kHalfPi, kTol);
    EXPECT_NEAR(post.baseBlock().rotation(), -kHalfPi, kTol);
    EXPECT_NEAR(std::remainder(post.signChain().rotation() + kHalfPi, kTwoPi), 0.0, kTol);
    EXPECT_EQ(post.placementPhase(), 2);
}

TEST_F(Post, point_B_on_A_is_survived) {
    TrfcPost post;
    post.setPointB(post.pointA());
    EXPECT_EQ(post.placementPhase(), 2);
    expectNear(post.pointB(), post.pointA());
}

TEST_F(Post, point_C_decides_the_bend) {
    TrfcPost post;
    post.setPointB({0.0, 10.0, 0.0});
    post.setPointC({-5.0, 10.0, 0.0});
    EXPECT_TRUE(post.hasBend());
    EXPECT_NEAR(post.bendAngle(), kHalfPi, kTol);
    post.setPointC(post.pointB());
    EXPECT_FALSE(post.hasBend());
    EXPECT_NEAR(post.bendAngle(), kPi / 4.0, kTol);
    EXPECT_EQ(post.placementPhase(), 3);
}

TEST_F(Post, the_bend_at_C_is_unsigned) {
    for (const double x : {-5.0, 5.0}) {
        TrfcPost post;
        post.setPointB({0.0, 10.0, 0.0});
        post.setPointC({x, 15.0, 0.0});
        EXPECT_NEAR(post.bendAngle(), kPi / 4.0, kTol) << x;
    }
}

TEST_F(Post, a_phase_once_reached_does_not_fall_back) {
    auto post = newPost();
    post->setPointA({0.0, 0.0, 0.0});
    post->setPointB({0.0, 12.0, 0.0});
    post->setPointC({1.0, 13.0, 0.0});
    post->setPointD({5.0, 30.0, 0.0}, false);
    EXPECT_EQ(post->placementPhase(), 5);
}

TEST_F(Post, point_D_gives_C_on_its_side_at_its_distance) {
    TrfcPost post;
    post.setPointB({0.0, 10.0, 0.0});
    post.setPointD({6.0, 20.0, 0.0}, true);
    expectNear(post.pointC(), {6.0, 16.0, 0.0});
    expectNear(post.pointD(), {6.0, 20.0, 0.0});
    EXPECT_TRUE(post.hasBend());
    expectNear(post.signChain().position(), {6.0, 20.0, 0.0});
    post.setPointD({-6.0, 20.0, 0.0}, true);
    expectNear(post.pointC(), {-6.0, 16.0, 0.0});
    EXPECT_EQ(post.placementPhase(), 4);
}

TEST_F(Post, a_D_within_the_foots_radius_of_the_axis_lies_on_it) {
    TrfcPost post;
    post.setPointB({0.0, 10.0, 0.0});
    post.setPointD({0.5, 20.0, 0.0}, true);
    EXPECT_FALSE(post.hasBend());
    expectNear(post.pointD(), {0.0, 20.0, 0.0});
    expectNear(post.pointC(), post.pointB());
}

TEST_F(Post, without_a_bend_angle_the_arm_stays_on_the_axis) {
    for (const wchar_t* degrees : {L"0.0", L"180.0", L"-180.0"}) {
        set(DOC_POST_ALPHA0, degrees);
        TrfcPost post;
        post.setPointB({0.0, 10.0, 0.0});
        post.setPointD({6.0, 20.0, 0.0}, true);
        EXPECT_FALSE(post.hasBend());
        expectNear(post.pointC(), post.pointB());
        expectNear(post.pointD(), {0.0, 20.0, 0.0});
    }
}

TEST_F(Post, a_negative_bend_angle_bends_to_D_all_the_same) {
    set(DOC_POST_ALPHA0, L"-45.0");
    for (const double x : {-6.0, 6.0}) {
        TrfcPost post;
        post.setPointB({0.0, 10.0, 0.0});
        post.setPointD({x, 20.0, 0.0}, true);
        expectNear(post.pointC(), {x, 16.0, 0.0});
    }
}

TEST_F(Post, a_D_back_along_the_post_becomes_the_shortest_arm) {
    TrfcPost post;
    post.setPointB({0.0, 10.0, 0.0});
    post.setPointD({6.0, 2.0, 0.0}, true);
    expectNear(post.pointC(), {6.0, 16.0, 0.0});
    expectNear(post.pointD(), {6.0, 19.0, 0.0});
}

TEST_F(Post, a_D_too_near_to_C_becomes_the_shortest_arm) {
    TrfcPost post;
    post.setPointB({0.0, 10.0, 0.0});
    post.setPointD({6.0, 17.0, 0.0}, true);
    expectNear(post.pointD(), {6.0, 19.0, 0.0});
}

TEST_F(Post, a_D_without_constraint_stands_where_it_is_put) {
    TrfcPost post;
    post.setPointB({0.0, 10.0, 0.0});
    post.setPointC({1.0, 11.0, 0.0});
    post.setPointD({1.0, 11.1, 0.0}, false);
    expectNear(post.pointC(), {1.0, 11.0, 0.0});
    expectNear(post.pointD(), {1.0, 11.1, 0.0});
    expectNear(post.signChain().position(), {1.0, 11.1, 0.0});
}

// ---- the foot's file ----------------------------------------------------------------------------------

TEST_F(Post, the_state_chooses_the_foots_file) {
    auto post = newPost();
    post->setPostType(1);
    EXPECT_STREQ(post->baseBlock().descriptor().blockFile, L"Oszlopok\\$Jelzőoszlop.dwg");
    EXPECT_DOUBLE_EQ(footRadius(*post), 0.6);
    post->setPostType(2);
    EXPECT_STREQ(post->baseBlock().descriptor().blockFile, L"Oszlopok\\$$Jelzőoszlop.dwg");
    post->setPostType(0);
    EXPECT_STREQ(post->baseBlock().descriptor().blockFile, L"Oszlopok\\Jelzőoszlop.dwg");
    EXPECT_DOUBLE_EQ(footRadius(*post), 0.5);
}

TEST_F(Post, a_foot_without_a_form_for_the_state_keeps_the_plain_file) {
    auto post = newPost();
    post->setPostType(2);
    post->setBaseBlock(loadBlockTemplate(TrfcAppSettings::getAppString(APP_POSTS_BASE_PATH), L"Oszlopok\\Egyszerű.dwg"));
    EXPECT_EQ(post->postData().postType, 2);
    EXPECT_STREQ(post->baseBlock().descriptor().blockFile, L"Oszlopok\\Egyszerű.dwg");
    expectNear(post->baseBlock().position(), post->pointA());
}

TEST_F(Post, a_chosen_foot_takes_the_form_of_the_state) {
    auto post = newPost();
    post->setPostType(1);
    post->setBaseBlock(loadBlockTemplate(TrfcAppSettings::getAppString(APP_POSTS_BASE_PATH), L"Oszlopok\\Jelzőoszlop.dwg"));
    EXPECT_EQ(post->postData().postType, 1);
    EXPECT_STREQ(post->baseBlock().descriptor().blockFile, L"Oszlopok\\$Jelzőoszlop.dwg");
}

TEST_F(Post, the_same_state_again_leaves_the_foot_alone) {
    auto post = newPost();
    post->baseBlock().setUserParam(L"k", L"v");
    const AcDbObjectId block = post->baseBlock().descriptor().blockId;
    post->setPostType(0);
    EXPECT_EQ(post->baseBlock().descriptor().blockId, block);
}

TEST_F(Post, a_state_without_a_mark_takes_the_plain_file_and_is_kept) {
    auto post = newPost();
    post->setPostType(1);
    post->setPostType(7);
    EXPECT_EQ(post->postData().postType, 7);
    EXPECT_STREQ(post->baseBlock().descriptor().blockFile, L"Oszlopok\\Jelzőoszlop.dwg");
}

TEST_F(Post, a_foot_at_the_librarys_root_has_its_forms_there) {
    library.add(L"Oszlop\\Magas.dwg", "disk 0.5\n");
    library.add(L"Oszlop\\$Magas.dwg", "disk 0.6\n");
    auto post = newPost();
    post->setBaseBlock(loadBlockTemplate(TrfcAppSettings::getAppString(APP_POSTS_BASE_PATH), L"Magas.dwg"));
    post->setPostType(1);
    EXPECT_STREQ(post->baseBlock().descriptor().blockFile, L"$Magas.dwg");
    EXPECT_DOUBLE_EQ(footRadius(*post), 0.6);
}

// ---- changes of scale -----------------------------------------------------------------------------------

TEST_F(Post, a_new_scale_grows_the_arm_about_the_foot) {
    auto post = newPost();
    setScale(1000);
    post->setScale(1000);
    expectNear(post->pointA(), {0.0, 0.0, 0.0});
    expectNear(post->pointB(), {0.0, 20.0, 0.0});
    expectNear(post->pointC(), {12.0, 32.0, 0.0});
    expectNear(post->pointD(), {12.0, 40.0, 0.0});
    expectNear(post->pointE(), {11.0, 0.0, 0.0});
    expectNear(post->vectorAB(), AcGeVector3d(0.0, 20.0, 0.0));
    EXPECT_EQ(post->placementPhase(), 5);
}

TEST_F(Post, sizes_follow_the_scale) {
    auto post = newPost();
    const int lamp = post->addLampChain({5.0, 0.0, 0.0});
    post->lampChain(lamp).appendBlockDownward(newLamp());
    setScale(1000);
    post->setScale(1000);
    EXPECT_DOUBLE_EQ(post->basePointD(), 2.0);
    EXPECT_DOUBLE_EQ(post->annoHeight(), 2.5);
    EXPECT_DOUBLE_EQ(post->baseBlock().scaleFactor(), 2.0);
    EXPECT_DOUBLE_EQ(post->signChain()[0]->scaleFactor(), 8.0);
    expectNear(post->signChain().position(), post->pointD());
    expectLaidWithoutGap(post->signChain());
    EXPECT_DOUBLE_EQ(post->lampChain(lamp)[0]->scaleFactor(), 4.0);
    expectNear(post->lampChain(lamp).position(), {1.0, 0.0, 0.0});
}

TEST_F(Post, there_and_back_gives_the_same_record) {
    auto post = newPost();
    const AcGePoint3d b = post->pointB(), d = post->pointD(), e = post->pointE();
    const double bend = post->bendAngle();
    setScale(300);
    post->setScale(300);
    setScale(500);
    post->setScale(500);
    EXPECT_EQ(b.y, post->pointB().y);
    EXPECT_EQ(d.x, post->pointD().x);
    EXPECT_EQ(e.x, post->pointE().x);
    EXPECT_EQ(bend, post->bendAngle());
    expectNear(post->signChain().position(), d);
}

namespace {
void visitScale(SignsFixture&, TrfcPost& post, int scale) {
    TrfcDocSettings::setDocInt(DOC_CURRENT_SCALE, scale);
    post.setScale(scale);
}
} // namespace

TEST_F(Post, a_move_in_all_scales_keeps_the_records) {
    auto post = newPost();
    post->addLampChain({5.0, 0.0, 0.0});
    visitScale(*this, *post, 1000);
    visitScale(*this, *post, 500);
    post->moveAllScales({100.0, 0.0, 0.0});
    expectNear(post->pointA(), {100.0, 0.0, 0.0});
    expectNear(post->pointD(), {106.0, 20.0, 0.0});
    expectNear(post->pointE(), {105.5, 0.0, 0.0});
    expectNear(post->signChain().position(), {106.0, 20.0, 0.0});
    expectNear(post->baseBlock().position(), {100.0, 0.0, 0.0});
    expectNear(post->lampChain(0).position(), {100.5, 0.0, 0.0});
    EXPECT_EQ(post->currentScale(), 500);
    expectLaidWithoutGap(post->signChain());
    visitScale(*this, *post, 1000);
    expectNear(post->pointA(), {100.0, 0.0, 0.0});
    expectNear(post->pointD(), {112.0, 40.0, 0.0});
}

TEST_F(Post, a_turn_in_all_scales_keeps_the_records) {
    auto post = newPost();
    visitScale(*this, *post, 1000);
    visitScale(*this, *post, 500);
    post->rotateAllScales(kHalfPi);
    expectNear(post->pointB(), {-10.0, 0.0, 0.0});
    expectNear(post->pointD(), {-20.0, 6.0, 0.0});
    EXPECT_NEAR(post->rotation(), kHalfPi, kTol);
    EXPECT_NEAR(post->baseBlock().rotation(), kHalfPi, kTol);
    expectNear(post->signChain().ptTop(), {-28.0, 6.0, 0.0});
    visitScale(*this, *post, 1000);
    expectNear(post->pointB(), {-20.0, 0.0, 0.0});
    EXPECT_NEAR(post->rotation(), kHalfPi, kTol);
}

TEST_F(Post, a_turn_takes_the_bend_the_note_and_the_direction_along) {
    auto post = newPost();
    post->rotateAllScales(kHalfPi);
    expectNear(post->pointA(), {0.0, 0.0, 0.0});
    expectNear(post->pointC(), {-16.0, 6.0, 0.0});
    expectNear(post->pointE(), {0.0, 5.5, 0.0});
    expectNear(post->vectorAB(), AcGeVector3d(-10.0, 0.0, 0.0));
}

TEST_F(Post, what_is_not_in_a_scale_record_is_shared_by_all_scales) {
    auto post = newPost();
    visitScale(*this, *post, 1000);
    post->postText().text = L"új";
    post->postData().height = 4.0;
    post->setLampsFollowRotation(false);
    post->addLampChain({50.0, 0.0, 0.0});
    post->signChain().deleteBlock(0);
    visitScale(*this, *post, 500);
    EXPECT_EQ(post->postText().text, L"új");
    EXPECT_DOUBLE_EQ(post->postData().height, 4.0);
    EXPECT_FALSE(post->lampsFollowRotation());
    EXPECT_EQ(post->lampChainCount(), 1);
    EXPECT_EQ(post->signChain().size(), 1);
    EXPECT_DOUBLE_EQ(post->armRatio(), 0.5);
}

TEST_F(Post, a_turn_by_nothing_does_nothing) {
    auto post = newPost();
    const auto before = filed(*post);
    post->rotateAllScales(0.0);
    EXPECT_EQ(filed(*post), before);
}

TEST_F(Post, lamps_turn_with_the_post_only_when_they_follow_it) {
    auto post = newPost();
    post->addLampChain({5.0, 0.0, 0.0});
    post->rotateAllScales(kHalfPi);
    expectNear(post->lampChain(0).position(), {0.0, 0.5, 0.0});
    expectNear(post->lampChain(0).axis(), {0.0, -1.0, 0.0});
    post->setLampsFollowRotation(false);
    post->rotateAllScales(kHalfPi);
    expectNear(post->lampChain(0).position(), {0.0, 0.5, 0.0});
    expectNear(post->pointB(), {0.0, -10.0, 0.0});
}

TEST_F(Post, a_transformation_takes_everything_along) {
    auto post = newPost();
    post->addLampChain({5.0, 0.0, 0.0});
    post->transformBy(AcGeMatrix3d::translation({1.0, 1.0, 0.0}) * AcGeMatrix3d::rotation(kHalfPi, AcGeVector3d::kZAxis));
    expectNear(post->pointA(), {1.0, 1.0, 0.0});
    expectNear(post->pointD(), {-19.0, 7.0, 0.0});
    expectNear(post->vectorAB(), AcGeVector3d(-10.0, 0.0, 0.0));
    EXPECT_NEAR(std::remainder(post->rotation() - kHalfPi, kTwoPi), 0.0, kTol);
    expectNear(post->baseBlock().position(), {1.0, 1.0, 0.0});
    expectNear(post->signChain().position(), post->pointD());
    expectLaidWithoutGap(post->signChain());
    expectNear(post->lampChain(0).position(), {1.0, 1.5, 0.0});
}

TEST_F(Post, a_lamp_chain_hangs_on_the_rim_towards_its_point) {
    auto post = newPost();
    EXPECT_EQ(post->addLampChain({5.0, 0.0, 0.0}), 0);
    EXPECT_EQ(post->addLampChain({0.0, -5.0, 0.0}), 1);
    expectNear(post->lampChain(0).position(), {0.5, 0.0, 0.0});
    expectNear(post->lampChain(0).axis(), {-1.0, 0.0, 0.0});
    expectNear(post->lampChain(1).position(), {0.0, -0.5, 0.0});
    EXPECT_EQ(post->lampChain(1).chainType(), kPostLampChain);
}

// ---- queries -------------------------------------------------------------------------------------------

TEST_F(Post, snaps_at_its_ends_alone) {
    const auto post = newPost();
    AcGePoint3dArray points;
    EXPECT_EQ(post->getOsnapPoints(AcDb::kOsModeEnd, points), Acad::eOk);
    EXPECT_EQ(post->getOsnapPoints(AcDb::kOsModeCen, points), Acad::eOk);
    EXPECT_EQ(post->getOsnapPoints(AcDb::kOsModeMid, points), Acad::eOk);
    ASSERT_EQ(points.length(), 2);
    expectNear(points[0], post->pointD());
    expectNear(points[1], post->pointA());
}

TEST_F(Post, its_extents_leave_signs_lamps_and_note_out) {
    auto post = newPost();
    post->postText().text = L"hosszú felirat";
    AcDbExtents extents;
    EXPECT_EQ(post->getGeomExtents(extents), Acad::eOk);
    expectNear(extents.minPoint(), {-0.5, 0.0, 0.0});
    expectNear(extents.maxPoint(), {6.0, 20.0, 0.0});
}

TEST_F(Post, its_extents_reach_from_A_to_D_even_without_a_foot) {
    TrfcPost post;
    post.setPointB({0.0, 10.0, 0.0});
    post.setPointD({6.0, 20.0, 0.0}, true);
    AcDbExtents extents;
    EXPECT_EQ(post.getGeomExtents(extents), Acad::eOk);
    expectNear(extents.minPoint(), {0.0, 0.0, 0.0});
    expectNear(extents.maxPoint(), {6.0, 20.0, 0.0});
}

// ---- state ---------------------------------------------------------------------------------------------

TEST_F(Post, moves_on_by_one_step_and_takes_signs_and_lamps_along) {
    TrfcStateChangeData& change = stateChangeData();
    change.post.plannedToExisting = change.post.existingToBeRemoved = change.sign.existingToBeRemoved = true;
    auto post = newPost(1);
    post->addLampChain({5.0, 0.0, 0.0});
    post->lampChain(0).appendBlockDownward(newLamp());
    post->setPostType(1);
    post->stateChanges();
    EXPECT_EQ(post->postData().postType, 0);
    EXPECT_STREQ(post->baseBlock().descriptor().blockFile, L"Oszlopok\\Jelzőoszlop.dwg");
    EXPECT_EQ(TrfcTypedBlock::cast(post->signChain()[0])->blockType(), kBlockToBeRemoved);
    EXPECT_EQ(TrfcTypedBlock::cast(post->lampChain(0)[0])->blockType(), kBlockToBeRemoved);
    post->stateChanges();
    EXPECT_EQ(post->postData().postType, 2);
}

TEST_F(Post, is_erased_at_once_without_confirmation) {
    stateChangeData().post.toBeRemovedDeleted = true;
    stateChangeData().confirmOnDelete = false;
    auto made = newPost();
    made->setPostType(2);
    const AcDbObjectId id = resident(std::move(made));
    {
        const AcDbObjectPointer<TrfcPost> post(id, AcDb::kForWrite);
        post->stateChanges();
    }
    EXPECT_TRUE(id.isErased());
}

TEST_F(Post, is_erased_only_when_the_question_is_answered_with_OK) {
    stateChangeData().post.toBeRemovedDeleted = true;
    auto made = newPost();
    made->setPostType(2);
    const AcDbObjectId id = resident(std::move(made));
    DialogUser user;
    user.does(L"@cancel").does(L"@ok");
    for (const bool erased : {false, true}) {
        {
            const AcDbObjectPointer<TrfcPost> post(id, AcDb::kForWrite);
            post->stateChanges();
            EXPECT_FALSE(post->isHighlighted());
        }
        EXPECT_EQ(id.isErased(), erased);
    }
    EXPECT_NE(user.printed().find(L"Biztosan törölni akarja a kiemelt oszlopot és összes tábláját/lámpáját?"), std::wstring::npos);
}

namespace {
// Stands in for the host's zoom and keeps the corners it was given.
std::vector<std::wstring>& zoomCorners() {
    static std::vector<std::wstring> corners;
    return corners;
}
void takeZoom() {
    ACHAR corner[133];
    for (int i = 0; i < 2; ++i)
        if (acedGetString(1, L"", corner) == RTNORM)
            zoomCorners().emplace_back(corner);
}
} // namespace

TEST_F(Post, the_view_goes_to_what_a_question_is_about) {
    stateChangeData().post.toBeRemovedDeleted = stateChangeData().sign.toBeRemovedDeleted = true;
    zoomCorners().clear();
    ASSERT_EQ(acedRegCmds()->addCommand(L"TEST", L"ZOOM", L"ZOOM", 0, takeZoom), Acad::eOk);
    auto post = newPost(1);
    post->setPostType(2);
    post->signChain().setBlockType(0, kBlockToBeRemoved);
    DialogUser user;
    user.sees([] { EXPECT_EQ(zoomCorners(), (std::vector<std::wstring>{L"4.000000,20.000000", L"8.000000,24.000000"})); }).does(L"@cancel");
    user.sees([] { EXPECT_EQ(zoomCorners().size(), 4u); }).does(L"@cancel");
    post->stateChanges();
    acedRegCmds()->removeGroup(L"TEST");
    ASSERT_EQ(zoomCorners().size(), 4u);
    EXPECT_EQ(zoomCorners()[3], L"6.000000,20.000000"); // of the post: its signs are left out
}
