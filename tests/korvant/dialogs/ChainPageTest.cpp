#include "PostDialogTest.h"

#include "AcUtText.h"
#include "IndividualTable.h"
#include "TrfcDocSettings.h"
#include "checkSignOrder.h"

#include <filesystem>

namespace {
using Titles = std::vector<std::wstring>;
constexpr int kTables = 1, kFirstLamp = 2;

class ChainPage : public PostDialog {
protected:
    // "Új tábla" with the choice of a sign by folder and title.
    void addsTable(const std::wstring& folder, const std::wstring& title) {
        user.does(L"@click 232").does(L"@select 300 \"" + folder + L"\"").does(L"@select 301 \"" + title + L"\"").does(L"@ok");
    }
    // Puts the post into the drawing, runs the check of the sign order, and tells whether its window stays with a fault.
    bool isReportedByTheCheck() {
        AcDbObjectPointer<AcDbBlockTableRecord> space(drawing.modelSpaceId(), AcDb::kForWrite);
        AcDbObjectId id;
        TrfcPost* const added = post.release();
        EXPECT_EQ(space->appendAcDbEntity(id, added), Acad::eOk);
        added->close();
        space.close();
        EXPECT_TRUE(checkSignOrder());
        const bool reported = AfxIsDialogOpen();
        AfxCancelAllDialogs();
        return reported;
    }
    void addsLamp() { user.does(L"@click \"Új lámpa\"").does(L"@select 300 \"Sárga\"").does(L"@select 301 0").does(L"@ok"); }
    static AcDbExtents extentsOf(const AcDbEntity& entity) {
        AcDbExtents extents;
        EXPECT_EQ(entity.getGeomExtents(extents), Acad::eOk);
        return extents;
    }
};
std::wstring individualName(const AcGePoint3d& foot) {
    return acFormat(L"%.2f_%.2f_Korvant.dwg", foot.x, foot.y);
}
} // namespace

TEST_F(ChainPage, without_a_selection_every_control_that_needs_a_block_is_disabled) {
    addTable(L"Jelzés\\A-010.dwg");
    user.sees([&] {
        for (const int id : {IDC_CHAIN_UP, IDC_CHAIN_DOWN, IDC_CHAIN_DELETE, IDC_TYPE_COMBO, IDC_UNIQUE_SCALE, IDC_COMPLEMENTARY, IDC_PATH_TREE, IDC_ATTRIBUTE_LIST})
            EXPECT_FALSE(isEnabled(id)) << id;
        for (const int id : {IDC_CHAIN_ADD_TABLE, IDC_CHAIN_ADD_LAMP, IDC_UNIQUE_TABLE})
            EXPECT_TRUE(isEnabled(id)) << id;
        EXPECT_EQ(selectedType(), CB_ERR);
        EXPECT_EQ(textOf(IDC_UNIQUE_SCALE), L"");
        EXPECT_EQ(pathTree(), L"");
        EXPECT_EQ(grid().GetItemCount(), 0);
    });
    runPage(kTables);
}

TEST_F(ChainPage, a_click_on_a_plate_shows_its_properties) {
    addTable(L"Jelzés\\B-020.dwg");
    addTable(L"Jelzés\\A-010.dwg");
    post->signChain().setBlockType(0, kBlockPlanned);
    post->signChain().setBlockUniqueScale(0, 1.5);
    user.sees([&] {
        clickBlock(0);
        EXPECT_EQ(chainPage().selectedIndex(), 0);
        EXPECT_EQ(pathTree(), L"Jelzés/B-020.dwg");
        EXPECT_EQ(selectedType(), 1);
        EXPECT_EQ(textOf(IDC_UNIQUE_SCALE), L"1.500");
        EXPECT_EQ(gridValue(L"FELIRAT"), L"-");
        EXPECT_EQ(gridValue(L"Fólia"), L"I.");
        EXPECT_TRUE(isEnabled(IDC_COMPLEMENTARY));
        EXPECT_FALSE(isChecked(IDC_COMPLEMENTARY));
        EXPECT_EQ(preview().selected(), 0);
    });
    runPage(kTables);
}

TEST_F(ChainPage, a_click_beside_the_plates_takes_the_selection_away) {
    addTable(L"Jelzés\\B-020.dwg");
    user.sees([&] {
        clickBlock(0);
        preview().clickAt({-1000.0, 0.0, 0.0});
        EXPECT_EQ(chainPage().selectedIndex(), -1);
        EXPECT_FALSE(isEnabled(IDC_CHAIN_DELETE));
    });
    runPage(kTables);
}

TEST_F(ChainPage, a_script_line_selects_a_plate_by_its_index) {
    addTable(L"Jelzés\\B-020.dwg");
    addTable(L"Jelzés\\A-010.dwg");
    user.does(L"@select 217 1");
    user.sees([&] { EXPECT_EQ(chainPage().selectedIndex(), 1); });
    runPage(kTables);
}

TEST_F(ChainPage, the_topmost_sign_cannot_be_made_complementary) {
    addTable(L"Jelzés\\B-020.dwg");
    addTable(L"Jelzés\\A-010.dwg");
    user.does(L"@select 217 1");
    user.sees([&] {
        EXPECT_FALSE(isEnabled(IDC_COMPLEMENTARY));
        EXPECT_FALSE(isChecked(IDC_COMPLEMENTARY));
    });
    runPage(kTables);
}

TEST_F(ChainPage, the_check_box_makes_a_sign_complementary_to_the_one_above) {
    addTable(L"Jelzés\\B-020.dwg");
    addTable(L"Jelzés\\A-010.dwg");
    user.does(L"@select 217 0").does(L"@check 237 on");
    user.sees([&] { EXPECT_TRUE(isChecked(IDC_COMPLEMENTARY)); });
    runPage(kTables);
    EXPECT_EQ(table(0).complIndex(), 1);
    EXPECT_FALSE(table(1).isComplementary());
}

TEST_F(ChainPage, the_check_box_makes_a_complementary_sign_a_main_one_again) {
    addTable(L"Jelzés\\B-020.dwg");
    addTable(L"Jelzés\\A-010.dwg");
    user.does(L"@select 217 0").does(L"@check 237 on").does(L"@check 237 off");
    runPage(kTables);
    EXPECT_FALSE(table(0).isComplementary());
}

TEST_F(ChainPage, up_and_down_move_the_selected_sign_and_the_selection_with_it) {
    addTable(L"Jelzés\\C-030.dwg");
    addTable(L"Jelzés\\B-020.dwg");
    addTable(L"Jelzés\\A-010.dwg");
    user.does(L"@select 217 0").does(L"@click \"Fel\"");
    user.sees([&] {
        EXPECT_EQ(tables(), (Titles{L"B-020", L"C-030", L"A-010"}));
        EXPECT_EQ(chainPage().selectedIndex(), 1);
        EXPECT_EQ(pathTree(), L"Jelzés/C-030.dwg");
        EXPECT_EQ(preview().selected(), 1);
    });
    user.does(L"@click \"Le\"");
    runPage(kTables);
    EXPECT_EQ(tables(), (Titles{L"C-030", L"B-020", L"A-010"}));
}

TEST_F(ChainPage, a_move_past_the_end_changes_nothing) {
    addTable(L"Jelzés\\B-020.dwg");
    addTable(L"Jelzés\\A-010.dwg");
    user.does(L"@select 217 1").does(L"@click 230");
    user.sees([&] { EXPECT_EQ(chainPage().selectedIndex(), 1); });
    user.does(L"@select 217 0").does(L"@click 231");
    user.sees([&] { EXPECT_EQ(chainPage().selectedIndex(), 0); });
    runPage(kTables);
    EXPECT_EQ(tables(), (Titles{L"B-020", L"A-010"}));
}

TEST_F(ChainPage, a_new_sign_sinks_to_its_place_by_file_name) {
    addTable(L"Jelzés\\D-040.dwg");
    addTable(L"Jelzés\\B-020.dwg");
    addTable(L"Jelzés\\A-010.dwg");
    addsTable(L"Jelzés", L"C-030");
    user.sees([&] {
        EXPECT_EQ(chainPage().selectedIndex(), 1);
        EXPECT_EQ(pathTree(), L"Jelzés/C-030.dwg");
    });
    runPage(kTables);
    EXPECT_EQ(tables(), (Titles{L"D-040", L"C-030", L"B-020", L"A-010"}));
    bool inOrder = false;
    post->signChain().checkTableOrder(&inOrder);
    EXPECT_TRUE(inOrder);
}

TEST_F(ChainPage, a_new_sign_stays_on_top_where_the_automatic_order_is_off) {
    TrfcDocSettings::setDocInt(DOC_AUTO_ORDER_TABLES, 0);
    addTable(L"Jelzés\\A-010.dwg");
    addsTable(L"Jelzés", L"D-040");
    runPage(kTables);
    EXPECT_EQ(tables(), (Titles{L"A-010", L"D-040"}));
}

TEST_F(ChainPage, signs_that_were_added_without_automatic_order_are_reported_by_the_check) {
    TrfcDocSettings::setDocInt(DOC_AUTO_ORDER_TABLES, 0);
    addsTable(L"Jelzés", L"A-010");
    addsTable(L"Jelzés", L"D-040");
    runPage(kTables);
    EXPECT_TRUE(isReportedByTheCheck());
}

TEST_F(ChainPage, signs_that_were_added_with_automatic_order_pass_the_check) {
    addsTable(L"Jelzés", L"A-010");
    addsTable(L"Jelzés", L"D-040");
    runPage(kTables);
    user.does(L"@ok"); // the box that says that there is nothing
    EXPECT_FALSE(isReportedByTheCheck());
}

TEST_F(ChainPage, a_sign_of_the_supplementary_folder_lands_below_its_main_sign_and_complements_it) {
    addTable(L"Jelzés\\B-020.dwg");
    addTable(L"Jelzés\\A-010.dwg");
    addsTable(L"Kiegészítő", L"H-001");
    user.sees([&] { EXPECT_TRUE(isChecked(IDC_COMPLEMENTARY)); });
    runPage(kTables);
    EXPECT_EQ(tables(), (Titles{L"H-001", L"B-020", L"A-010"}));
    EXPECT_EQ(table(0).complIndex(), 1);
}

TEST_F(ChainPage, a_supplementary_sign_is_complementary_from_the_start_and_belongs_to_the_main_sign_added_next) {
    addsTable(L"Kiegészítő", L"P-001");
    user.sees([&] {
        EXPECT_TRUE(table(0).isComplementary());
        EXPECT_FALSE(isEnabled(IDC_COMPLEMENTARY));
    });
    addsTable(L"Jelzés", L"A-010");
    runPage(kTables);
    EXPECT_EQ(tables(), (Titles{L"P-001", L"A-010"}));
    EXPECT_EQ(table(0).complIndex(), 1);
    EXPECT_FALSE(table(1).isComplementary());
}

TEST_F(ChainPage, two_supplementary_signs_wait_for_the_same_main_sign) {
    addsTable(L"Kiegészítő", L"P-001");
    addsTable(L"Kiegészítő", L"H-001");
    addsTable(L"Jelzés", L"A-010");
    runPage(kTables);
    EXPECT_EQ(tables(), (Titles{L"P-001", L"H-001", L"A-010"}));
    EXPECT_EQ(table(0).complIndex(), 2);
    EXPECT_EQ(table(1).complIndex(), 2);
}

TEST_F(ChainPage, the_folder_of_supplementary_signs_counts_anywhere_in_the_path_and_only_when_it_is_set) {
    library.add(L"Tábla\\Régi Kiegészítő táblák\\X-001.dwg", "box 1 0.5\n");
    addTable(L"Jelzés\\A-010.dwg");
    addsTable(L"Régi Kiegészítő táblák", L"X-001");
    user.sees([&] {
        EXPECT_EQ(table(0).complIndex(), 1);
        TrfcAppSettings::setAppString(APP_TABLES_COMPL_DIR, L"");
    });
    addsTable(L"Kiegészítő", L"H-001");
    runPage(kTables);
    EXPECT_EQ(tables(), (Titles{L"H-001", L"X-001", L"A-010"})); // below the group as a whole
    EXPECT_FALSE(table(0).isComplementary());
    EXPECT_EQ(table(1).complIndex(), 2);
}

TEST_F(ChainPage, a_block_without_a_state_leaves_state_size_and_check_box_empty) {
    post->signChain().appendBlockUpward(new TrfcBlock(loadBlockTemplate(TrfcAppSettings::getAppString(APP_TABLES_BASE_PATH), L"Jelzés\\A-010.dwg"), {}, 0.0, 1.0));
    addTable(L"Jelzés\\B-020.dwg");
    user.does(L"@select 217 0");
    user.sees([&] {
        EXPECT_EQ(selectedType(), CB_ERR);
        EXPECT_FALSE(isEnabled(IDC_TYPE_COMBO));
        EXPECT_EQ(textOf(IDC_UNIQUE_SCALE), L"");
        EXPECT_FALSE(isEnabled(IDC_COMPLEMENTARY));
        EXPECT_TRUE(isEnabled(IDC_CHAIN_UP));
        EXPECT_EQ(pathTree(), L"Jelzés/A-010.dwg");
    });
    runPage(kTables);
}

TEST_F(ChainPage, an_empty_choice_adds_nothing) {
    user.does(L"@click 232").does(L"@cancel").does(L"@click 234").does(L"@cancel");
    runPage(kTables);
    EXPECT_TRUE(tables().empty());
}

TEST_F(ChainPage, a_block_with_a_multiline_attribute_is_refused) {
    addsTable(L"Jelzés", L"Többsoros");
    runPage(kTables);
    EXPECT_TRUE(tables().empty());
    EXPECT_TRUE(hasLineWith(user.printed(), L"Többsoros attribútumdefiníciót tartalmazó blokkot nem lehet beszúrni!"));
}

TEST_F(ChainPage, a_new_lamp_hangs_from_the_chain_and_is_selected_as_its_last_block) {
    addTable(L"Jelzés\\A-010.dwg");
    for (const int place : {1, 2}) {
        addsLamp();
        user.sees([&, place] {
            EXPECT_EQ(chainPage().selectedIndex(), place);
            EXPECT_FALSE(isEnabled(IDC_COMPLEMENTARY));
        });
    }
    runPage(kTables);
    EXPECT_EQ(tables(), (Titles{L"A-010", L"Villogó", L"Villogó"}));
    const TrfcBlockChain& chain = post->signChain();
    EXPECT_EQ(chain.upCount(), 1);
    const AcDbExtents lamps = extentsOf(chain.getAt(1)->blockRef());
    EXPECT_NEAR(lamps.maxPoint().y, chain.position().y, 1e-9);
    EXPECT_LT(extentsOf(chain.getAt(2)->blockRef()).maxPoint().y, lamps.minPoint().y + 1e-9);
}

TEST_F(ChainPage, the_lamps_of_an_arm_lead_away_from_the_foot_and_a_cover_lies_on_its_lamp) {
    post->addLampChain({120.0, 200.0, 0.0}); // to the right of the foot
    addsLamp();
    addsLamp();
    user.does(L"@select 212 \"Letakart\"");
    runPage(kFirstLamp);
    const TrfcBlockChain& chain = post->lampChain(0);
    ASSERT_EQ(chain.size(), 2);
    const AcDbExtents inner = extentsOf(chain.getAt(0)->blockRef()), outer = extentsOf(chain.getAt(1)->blockRef());
    EXPECT_NEAR(inner.minPoint().x, chain.position().x, 1e-9);
    EXPECT_NEAR(outer.minPoint().x, inner.maxPoint().x, 1e-9);
    EXPECT_GT(chain.position().x, post->pointA().x);
    const auto* const covered = TrfcTypedBlock::cast(chain.getAt(1));
    ASSERT_TRUE(covered->hasOverlay());
    const AcDbExtents cover = extentsOf(covered->overlay());
    EXPECT_LT(cover.minPoint().distanceTo(outer.minPoint()), 1e-9);
    EXPECT_LT(cover.maxPoint().distanceTo(outer.maxPoint()), 1e-9);
}

TEST_F(ChainPage, deleting_the_last_block_selects_the_one_before) {
    addTable(L"Jelzés\\B-020.dwg");
    addTable(L"Jelzés\\A-010.dwg");
    user.does(L"@select 217 1").does(L"@click \"Törlés\"");
    user.sees([&] {
        EXPECT_EQ(chainPage().selectedIndex(), 0);
        EXPECT_EQ(pathTree(), L"Jelzés/B-020.dwg");
    });
    user.does(L"@click 235");
    user.sees([&] {
        EXPECT_EQ(chainPage().selectedIndex(), -1);
        EXPECT_FALSE(isEnabled(IDC_CHAIN_DELETE));
        EXPECT_EQ(grid().GetItemCount(), 0);
    });
    runPage(kTables);
    EXPECT_TRUE(tables().empty());
}

TEST_F(ChainPage, deleting_a_block_selects_the_one_that_takes_its_place) {
    addTable(L"Jelzés\\B-020.dwg");
    addTable(L"Jelzés\\A-010.dwg");
    user.does(L"@select 217 0").does(L"@click 235");
    user.sees([&] { EXPECT_EQ(pathTree(), L"Jelzés/A-010.dwg"); });
    runPage(kTables);
    EXPECT_EQ(tables(), (Titles{L"A-010"}));
}

TEST_F(ChainPage, the_state_of_the_selected_sign_follows_the_drop_down) {
    addTable(L"Jelzés\\A-010.dwg");
    user.does(L"@select 217 0").does(L"@select 212 \"Letakart\"");
    runPage(kTables);
    EXPECT_EQ(table(0).blockType(), kBlockCovered);
    EXPECT_TRUE(table(0).hasOverlay());
}

TEST_F(ChainPage, the_scale_factor_follows_the_field) {
    addTable(L"Jelzés\\A-010.dwg");
    user.does(L"@select 217 0").does(L"@set 236 \"1,25\"");
    runPage(kTables);
    EXPECT_DOUBLE_EQ(table(0).uniqueScaleFactor(), 1.25);
}

TEST_F(ChainPage, a_scale_factor_of_zero_or_no_number_is_not_taken) {
    addTable(L"Jelzés\\A-010.dwg");
    user.does(L"@select 217 0").does(L"@set 236 \"0\"").does(L"@set 236 \"-2\"").does(L"@set 236 \"kettő\"");
    runPage(kTables);
    EXPECT_DOUBLE_EQ(table(0).uniqueScaleFactor(), 1.0);
}

TEST_F(ChainPage, the_grid_writes_attributes_and_parameters_at_once) {
    addTable(L"Jelzés\\A-010.dwg");
    user.does(L"@select 217 0").does(L"@cell 204 0 1 \"60\"").does(L"@cell 204 1 1 \"II.\"");
    user.sees([&] {
        EXPECT_STREQ(table(0).attributeAt(0)->textStringConst(), L"60");
        EXPECT_STREQ(table(0).getUserParam(L"Fólia"), L"II.");
    });
    runPage(kTables);
}

TEST_F(ChainPage, what_is_being_typed_belongs_to_the_block_that_was_selected) {
    addTable(L"Jelzés\\B-020.dwg");
    addTable(L"Jelzés\\A-010.dwg");
    user.sees([&] {
        clickBlock(0);
        grid().showCellEditor(0, 1);
        grid().GetDlgItem(IDC_IN_PLACE)->SetWindowText(L"40");
        clickBlock(1);
    });
    runPage(kTables);
    EXPECT_STREQ(table(0).attributeAt(0)->textStringConst(), L"40");
    EXPECT_STREQ(table(1).attributeAt(0)->textStringConst(), L"-");
}

TEST_F(ChainPage, ok_takes_what_is_still_being_typed) {
    addTable(L"Jelzés\\B-020.dwg");
    user.sees([&] {
        clickBlock(0);
        grid().showCellEditor(0, 1);
        grid().GetDlgItem(IDC_IN_PLACE)->SetWindowText(L"40");
    });
    runPage(kTables);
    EXPECT_STREQ(table(0).attributeAt(0)->textStringConst(), L"40");
}

// ---- individual signs
TEST_F(ChainPage, an_individual_sign_lives_in_the_library_under_the_posts_coordinates) {
    library.add(L"Ideiglenes\\saját.dwg", "box 2 1\n");
    user.willChooseFile(library.path(L"Ideiglenes\\saját.dwg"));
    user.does(L"@click \"Tallóz\"");
    user.sees([&] { EXPECT_EQ(pathTree(), L"Egyedi/100.00_200.00_Korvant.dwg"); });
    runPage(kTables);
    EXPECT_EQ(tables(), (Titles{L"100.00_200.00_Korvant"}));
    EXPECT_EQ(library.contentOf(L"Tábla\\Egyedi\\100.00_200.00_Korvant.dwg"), "box 2 1\n");
}

TEST_F(ChainPage, the_same_individual_sign_twice_overwrites_the_library_file) {
    library.add(L"Ideiglenes\\egy.dwg", "box 2 1\n");
    library.add(L"Ideiglenes\\kettő.dwg", "box 3 1.5\n");
    user.willChooseFile(library.path(L"Ideiglenes\\egy.dwg"));
    user.willChooseFile(library.path(L"Ideiglenes\\kettő.dwg"));
    user.does(L"@click 238").does(L"@click 238");
    runPage(kTables);
    EXPECT_EQ(post->signChain().size(), 2);
    EXPECT_EQ(library.contentOf(L"Tábla\\Egyedi\\100.00_200.00_Korvant.dwg"), "box 3 1.5\n");
}

TEST_F(ChainPage, a_cancelled_file_choice_adds_nothing) {
    user.willChooseFile(L"");
    user.does(L"@click 238");
    runPage(kTables);
    EXPECT_TRUE(tables().empty());
}

TEST_F(ChainPage, an_individual_sign_takes_its_place_by_file_name_too) {
    addTable(L"Jelzés\\A-010.dwg");
    library.add(L"Ideiglenes\\saját.dwg", "box 2 1\n");
    user.willChooseFile(library.path(L"Ideiglenes\\saját.dwg"));
    user.does(L"@click 238");
    runPage(kTables);
    EXPECT_EQ(tables(), (Titles{L"A-010", L"100.00_200.00_Korvant"})); // "Egyedi\..." comes before "Jelzés\..."
}

TEST_F(ChainPage, an_individual_sign_is_named_by_coordinates_of_two_decimals) {
    EXPECT_EQ(individualTablePath({-1.5, 0.0, 7.0}), L"Egyedi\\-1.50_0.00_Korvant.dwg");
    EXPECT_EQ(individualTablePath({651234.567, 240000.25, 0.0}), L"Egyedi\\651234.57_240000.25_Korvant.dwg");
}

TEST_F(ChainPage, a_file_that_cannot_be_read_is_told_and_makes_no_individual_sign) {
    user.does(L"@ok"); // the message
    EXPECT_FALSE(storeIndividualTable(library.path(L"Ideiglenes\\nincs.dwg"), L"Egyedi\\x.dwg"));
    EXPECT_TRUE(hasLineWith(user.printed(), L"ERROR (es == Acad::eOk, EditBlockChainDlg): eFileNotFound"));
    EXPECT_EQ(library.contentOf(L"Tábla\\Egyedi\\x.dwg"), "");
}

TEST_F(ChainPage, a_bare_name_is_looked_for_in_the_folder_of_temporary_signs_with_the_ending_of_drawings) {
    library.add(L"Ideiglenes\\saját.dwg", "box 2 1\n");
    user.willChooseFile(L"saját");
    user.does(L"@click 238");
    runPage(kTables);
    EXPECT_EQ(tables(), (Titles{L"100.00_200.00_Korvant"}));
    EXPECT_EQ(library.contentOf(L"Tábla\\Egyedi\\100.00_200.00_Korvant.dwg"), "box 2 1\n");
}

TEST_F(ChainPage, a_file_that_is_no_drawing_is_told_and_adds_nothing) {
    library.add(L"Ideiglenes\\levél.dwg", "junk\n");
    user.willChooseFile(library.path(L"Ideiglenes\\levél.dwg"));
    user.does(L"@click 238").sees([&] { EXPECT_TRUE(hasLineWith(user.printed(), L"es == Acad::eOk, EditBlockChainDlg")); }).does(L"@ok");
    runPage(kTables);
    EXPECT_TRUE(tables().empty());
    EXPECT_EQ(library.contentOf(L"Tábla\\Egyedi\\100.00_200.00_Korvant.dwg"), "");
}

TEST_F(ChainPage, an_individual_sign_with_a_multiline_attribute_is_refused_like_any_other) {
    library.add(L"Ideiglenes\\saját.dwg", "box 2 1\nmattdef MEGJ x\n");
    user.willChooseFile(library.path(L"Ideiglenes\\saját.dwg"));
    user.does(L"@click 238");
    runPage(kTables);
    EXPECT_TRUE(tables().empty());
    EXPECT_TRUE(hasLineWith(user.printed(), L"Többsoros attribútumdefiníciót tartalmazó blokkot nem lehet beszúrni!"));
}

TEST_F(ChainPage, two_posts_have_individual_signs_of_their_own) {
    library.add(L"Ideiglenes\\egy.dwg", "box 2 1\n");
    library.add(L"Ideiglenes\\kettő.dwg", "box 3 1.5\n");
    user.willChooseFile(library.path(L"Ideiglenes\\egy.dwg"));
    user.does(L"@click 238");
    runPage(kTables);
    post->setPointA({-12.345, 7.0, 0.0});
    user.willChooseFile(library.path(L"Ideiglenes\\kettő.dwg"));
    user.does(L"@click 238");
    runPage(kTables);
    EXPECT_EQ(library.contentOf(L"Tábla\\Egyedi\\100.00_200.00_Korvant.dwg"), "box 2 1\n");
    EXPECT_EQ(library.contentOf(L"Tábla\\Egyedi\\" + individualName(post->pointA())), "box 3 1.5\n");
}

// ---- the mouse over the preview
TEST_F(ChainPage, the_plate_under_the_mouse_lights_up) {
    addTable(L"Jelzés\\B-020.dwg");
    addTable(L"Jelzés\\A-010.dwg");
    user.sees([&] {
        preview().moveTo(post->signChain().getAt(1)->centroid());
        EXPECT_EQ(preview().hovered(), 1);
        preview().moveTo({-1000.0, 0.0, 0.0});
        EXPECT_EQ(preview().hovered(), -1);
    });
    runPage(kTables);
}

TEST_F(ChainPage, where_outlines_overlap_the_later_block_is_under_the_mouse) {
    addTable(L"Jelzés\\B-020.dwg");
    addTable(L"Jelzés\\A-010.dwg");
    post->signChain().getAt(1)->setPosition(post->signChain().getAt(0)->position());
    user.sees([&] { EXPECT_EQ(preview().blockAt(post->signChain().getAt(0)->centroid()), 1); });
    runPage(kTables);
}

TEST_F(ChainPage, an_empty_chain_has_nothing_under_the_mouse) {
    user.sees([&] {
        preview().moveTo(post->pointD());
        EXPECT_EQ(preview().hovered(), -1);
    });
    runPage(kTables);
}
