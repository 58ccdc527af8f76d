#include "PostDialogTest.h"

#include "AfxApp.h"
#include "CBlockPropertiesDlg.h"
#include "CTabCtrl.h"
#include "TrfcAppSettings.h"
#include "TrfcBlockEnt.h"

namespace {
class BlockPage : public PostDialog {
protected:
    BlockPage() {
        library.add(L"Burkolat\\Nyilak\\Egyenes.dwg", "box 0.5 5\nattdef HOSSZ 5\n");
        library.add(L"Burkolat\\Nyilak\\attributes.xml",
                    "<AttributeList><Attribute><Name>Kivitel</Name><DefaultValue>A</DefaultValue><ValueList>A;B</ValueList></Attribute></AttributeList>");
    }
    std::unique_ptr<TrfcBlockEnt> marking(const ACHAR* folderKey, const std::wstring& file) {
        return std::make_unique<TrfcBlockEnt>(loadBlockTemplate(TrfcAppSettings::getAppString(folderKey), file));
    }
    std::unique_ptr<TrfcBlockEnt> newMarking() { return marking(APP_SYMBOL_BASE_PATH, L"TrfcBlockDefault.dwg"); }
    std::unique_ptr<TrfcBlockEnt> arrow() { return marking(APP_BLOCK_BASE_PATH, L"Nyilak\\Egyenes.dwg"); }
};
} // namespace

TEST_F(BlockPage, a_marking_without_a_symbol_begins_with_the_choice_of_one) {
    const auto block = newMarking();
    user.does(L"@select 300 \"Nyilak\"").does(L"@select 301 \"Egyenes\"").does(L"@ok").does(L"@ok");
    EXPECT_TRUE(block->editProperties());
    EXPECT_STREQ(block->descriptor().blockFile, L"Nyilak\\Egyenes.dwg");
}

TEST_F(BlockPage, without_a_choice_the_default_symbol_stays) {
    const auto block = newMarking();
    user.does(L"@cancel").does(L"@ok");
    EXPECT_TRUE(block->editProperties());
    EXPECT_STREQ(block->descriptor().blockFile, L"TrfcBlockDefault.dwg");
}

TEST_F(BlockPage, a_marking_with_a_symbol_opens_at_its_properties) {
    const auto block = arrow();
    CBlockPropertiesDlg dialog(*block);
    user.sees([&] {
        CString title;
        dialog.GetWindowText(title);
        EXPECT_EQ(title.text(), L"Korvant - Burkolati jel tulajdonságok");
        auto& tab = static_cast<CTabCtrl&>(*dialog.GetDlgItem(IDC_PROPERTIES_TAB));
        ASSERT_EQ(tab.GetItemCount(), 1);
        EXPECT_EQ(tab.itemText(0).text(), L"Burkolati jel");
        auto& list = static_cast<CListCtrlEd&>(*dialog.visiblePage()->GetDlgItem(IDC_ATTRIBUTE_LIST));
        ASSERT_EQ(list.GetItemCount(), 2);
        EXPECT_EQ(list.GetItemText(0, 0).text(), L"HOSSZ");
        EXPECT_EQ(list.GetItemText(1, 1).text(), L"A");
    });
    user.does(L"@click \"?\"");
    user.sees([&] { EXPECT_TRUE(hasLineWith(user.printed(), L"Súgó: Block_Properties.html")); });
    user.does(L"@ok");
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

TEST_F(BlockPage, the_state_follows_the_drop_down) {
    const auto block = arrow();
    user.does(L"@select 212 \"Megszüntetendő\"").does(L"@ok");
    EXPECT_TRUE(block->editProperties());
    EXPECT_EQ(block->entType(), kBlockEntToBeRemoved);
    EXPECT_TRUE(block->hasOverlay());
}

TEST_F(BlockPage, the_grid_writes_attributes_and_parameters) {
    const auto block = arrow();
    user.does(L"@cell 204 0 1 \"7\"").does(L"@cell 204 1 1 \"B\"").does(L"@ok");
    EXPECT_TRUE(block->editProperties());
    EXPECT_STREQ(block->attributeAt(0)->textStringConst(), L"7");
    EXPECT_STREQ(block->getUserParam(L"Kivitel"), L"B");
}

TEST_F(BlockPage, a_cancel_leaves_the_marking_as_it_was) {
    const auto block = arrow();
    user.does(L"@select 212 \"Megszüntetendő\"").does(L"@cell 204 0 1 \"7\"").does(L"@cancel");
    EXPECT_FALSE(block->editProperties());
    EXPECT_EQ(block->entType(), kBlockEntExisting);
    EXPECT_STREQ(block->attributeAt(0)->textStringConst(), L"5");
}
