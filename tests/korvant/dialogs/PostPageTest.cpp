#include "PostDialogTest.h"

#include "TrfcAppSettings.h"

namespace {
using PostPage = PostDialog;
constexpr int kGeneral = 0;
} // namespace

TEST_F(PostPage, shows_the_posts_fields_then_the_foots_attributes_then_the_librarys) {
    post->postText().text = L"km 12";
    post->postData().material = L"acél";
    post->postData().height = 3.5;
    user.sees([&] {
        ASSERT_EQ(grid().GetItemCount(), 5);
        EXPECT_EQ(grid().GetItemText(0, 0).text(), L"Felirat");
        EXPECT_EQ(grid().GetItemText(0, 1).text(), L"km 12");
        EXPECT_EQ(grid().GetItemText(1, 0).text(), L"Anyag");
        EXPECT_EQ(grid().GetItemText(1, 1).text(), L"acél");
        EXPECT_EQ(grid().GetItemText(2, 0).text(), L"Magasság");
        EXPECT_EQ(grid().GetItemText(2, 1).text(), L"3.50");
        EXPECT_EQ(grid().GetItemText(3, 0).text(), L"AZON");
        EXPECT_EQ(grid().GetItemText(3, 1).text(), L"17");
        EXPECT_EQ(grid().GetItemText(4, 0).text(), L"Talaj");
        EXPECT_EQ(grid().GetItemText(4, 1).text(), L"beton");
        EXPECT_EQ(pathTree(), L"Oszlopok/Jelzőoszlop.dwg");
        EXPECT_EQ(selectedType(), 0);
        EXPECT_TRUE(isChecked(IDC_FOLLOW_ROTATION));
    });
    runPage(kGeneral);
}

TEST_F(PostPage, edits_of_its_fields_reach_the_post_at_once) {
    user.does(L"@cell 204 0 1 \"M1\"").does(L"@cell 204 1 1 \"alumínium\"").does(L"@cell 204 2 1 \"2,75\"");
    user.sees([&] {
        EXPECT_EQ(post->postText().text, L"M1");
        EXPECT_EQ(post->postData().material, L"alumínium");
        EXPECT_DOUBLE_EQ(post->postData().height, 2.75);
        EXPECT_EQ(gridValue(L"Magasság"), L"2.75");
    });
    runPage(kGeneral);
}

TEST_F(PostPage, a_height_that_is_no_number_is_not_taken) {
    post->postData().height = 3.0;
    user.does(L"@cell 204 2 1 \"magas\"");
    user.sees([&] { EXPECT_EQ(gridValue(L"Magasság"), L"3.00"); });
    runPage(kGeneral);
    EXPECT_DOUBLE_EQ(post->postData().height, 3.0);
}

TEST_F(PostPage, edits_of_attributes_and_parameters_reach_the_foot) {
    user.does(L"@cell 204 3 1 \"18\"").does(L"@cell 204 4 1 \"agyag\"");
    runPage(kGeneral);
    EXPECT_STREQ(post->baseBlock().attributeAt(0)->textStringConst(), L"18");
    EXPECT_STREQ(post->baseBlock().getUserParam(L"Talaj"), L"agyag");
}

TEST_F(PostPage, a_chosen_foot_replaces_the_symbol) {
    user.does(L"@click \"Oszlop kiválasztása\"").does(L"@select 300 \"Oszlopok\"").does(L"@select 301 \"Vaskos\"").does(L"@ok");
    user.sees([&] { EXPECT_EQ(pathTree(), L"Oszlopok/Vaskos.dwg"); });
    runPage(kGeneral);
    EXPECT_STREQ(post->baseBlock().descriptor().blockFile, L"Oszlopok\\Vaskos.dwg");
}

TEST_F(PostPage, a_cancelled_choice_keeps_the_foot) {
    user.does(L"@click 342").does(L"@cancel");
    runPage(kGeneral);
    EXPECT_STREQ(post->baseBlock().descriptor().blockFile, L"Oszlopok\\Jelzőoszlop.dwg");
}

TEST_F(PostPage, the_state_changes_the_foots_file) {
    user.does(L"@select 212 \"Tervezett\"");
    user.sees([&] { EXPECT_EQ(pathTree(), L"Oszlopok/$Jelzőoszlop.dwg"); });
    runPage(kGeneral);
    EXPECT_EQ(post->postData().postType, 1);
}

TEST_F(PostPage, the_check_box_says_whether_lamps_turn_with_the_post) {
    user.does(L"@check 240 off");
    runPage(kGeneral);
    EXPECT_FALSE(post->lampsFollowRotation());
}

TEST_F(PostPage, the_view_is_four_and_a_half_feet_high_about_the_foot) {
    user.sees([&] {
        CRect client;
        preview().GetClientRect(client);
        const AcGePoint2d center = preview().toModel(client.CenterPoint());
        EXPECT_NEAR(center.x, 100.0, preview().pixelSize());
        EXPECT_NEAR(center.y, 200.0, preview().pixelSize());
        EXPECT_NEAR(preview().pixelSize() * client.Height(), 0.004 * 500.0 * 4.5, preview().pixelSize());
    });
    runPage(kGeneral);
}

TEST_F(PostPage, a_multiline_attribute_of_the_foot_shows_its_contents_and_takes_a_text) {
    library.add(L"Oszlop\\Oszlopok\\Feliratos.dwg", "disk 0.5\nmattdef MEGJ első\n");
    post->setBaseBlock(loadBlockTemplate(TrfcAppSettings::getAppString(APP_POSTS_BASE_PATH), L"Oszlopok\\Feliratos.dwg"));
    user.sees([&] { EXPECT_EQ(gridValue(L"MEGJ"), L"első"); });
    user.does(L"@cell 204 3 1 \"második\"");
    runPage(kGeneral);
    EXPECT_STREQ(post->baseBlock().attributeAt(0)->textStringConst(), L"második");
}

TEST_F(PostPage, a_parameter_that_no_list_names_is_not_shown_and_stays) {
    library.add(L"Oszlop\\attributes.xml", "");
    post->baseBlock().setUserParam(L"Talaj", L"agyag");
    user.sees([&] {
        EXPECT_EQ(gridValue(L"Talaj"), L"(nincs)");
        EXPECT_EQ(grid().GetItemCount(), 4);
    });
    runPage(kGeneral);
    EXPECT_STREQ(post->baseBlock().getUserParam(L"Talaj"), L"agyag");
}

TEST_F(PostPage, a_default_that_is_only_shown_is_not_written_to_the_foot) {
    user.sees([&] { EXPECT_EQ(gridValue(L"Talaj"), L"beton"); });
    runPage(kGeneral);
    EXPECT_STREQ(post->baseBlock().getUserParam(L"Talaj"), L"");
}

TEST_F(PostPage, a_chosen_foot_takes_the_form_of_the_posts_state) {
    post->setPostType(1);
    user.does(L"@click 342").does(L"@select 300 \"Oszlopok\"").does(L"@select 301 \"Jelzőoszlop\"").does(L"@ok");
    runPage(kGeneral);
    EXPECT_EQ(post->postData().postType, 1);
    EXPECT_STREQ(post->baseBlock().descriptor().blockFile, L"Oszlopok\\$Jelzőoszlop.dwg");
}
