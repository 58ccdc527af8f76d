#include "PostDialogTest.h"

#include "CTabCtrl.h"
#include "CEditPostDlg.h"

namespace {
using PropertyPages = PostDialog;

std::vector<std::wstring> tabTitles(CWnd& dialog) {
    auto& tab = static_cast<CTabCtrl&>(*dialog.GetDlgItem(IDC_PROPERTIES_TAB));
    std::vector<std::wstring> titles;
    for (int i = 0; i < tab.GetItemCount(); ++i)
        titles.push_back(tab.itemText(i).text());
    return titles;
}

// A key as the program offers it: to the focused control, then to the windows around it.
void pressOn(CWnd& focused, CWnd& window, UINT key) {
    MSG message;
    message.pWnd = &focused;
    message.message = WM_KEYDOWN;
    message.wParam = key;
    for (CWnd* at = &focused; at != nullptr; at = at->GetParent())
        if (at->PreTranslateMessage(&message))
            return;
    FAIL() << "the key was not taken by " << window.GetDlgCtrlID();
}
} // namespace

TEST_F(PropertyPages, a_post_has_a_general_page_one_of_signs_and_one_for_each_lamp_chain) {
    post->addLampChain({90.0, 200.0, 0.0});
    post->addLampChain({110.0, 200.0, 0.0});
    CPostPropertiesDlg& dialog = open(0);
    user.sees([&] {
        EXPECT_EQ(tabTitles(dialog), (std::vector<std::wstring>{L"Általános", L"Táblák", L"Lámpa 1", L"Lámpa 2"}));
        CString title;
        dialog.GetWindowText(title);
        EXPECT_EQ(title.text(), L"Korvant - Jelzőoszlop tulajdonságok");
        EXPECT_NE(dynamic_cast<CEditPostDlg*>(dialog.visiblePage()), nullptr);
    });
    user.does(L"@tab \"Lámpa 2\"");
    user.sees([&] { EXPECT_NE(dynamic_cast<CEditBlockChainDlg*>(dialog.visiblePage()), nullptr); });
    user.does(L"@ok");
    EXPECT_EQ(run(), IDOK);
}

TEST_F(PropertyPages, the_window_opens_at_the_page_asked_for) {
    post->addLampChain({90.0, 200.0, 0.0});
    CPostPropertiesDlg& dialog = open(2);
    user.sees([&] { EXPECT_EQ(static_cast<CTabCtrl&>(*dialog.GetDlgItem(IDC_PROPERTIES_TAB)).GetCurSel(), 2); });
    user.does(L"@click 234").does(L"@select 300 \"Sárga\"").does(L"@select 301 0").does(L"@ok").does(L"@ok");
    EXPECT_EQ(run(), IDOK);
    EXPECT_EQ(post->lampChain(0).size(), 1);
}

TEST_F(PropertyPages, a_page_out_of_range_opens_the_nearest) {
    for (const auto& [asked, opened] : {std::pair(-3, 0), std::pair(9, 1)}) {
        CPostPropertiesDlg& dialog = open(asked);
        user.sees([&dialog, page = opened] { EXPECT_EQ(static_cast<CTabCtrl&>(*dialog.GetDlgItem(IDC_PROPERTIES_TAB)).GetCurSel(), page); });
        user.does(L"@ok");
        EXPECT_EQ(run(), IDOK);
    }
}

TEST_F(PropertyPages, a_page_lies_inside_the_tabs_area) {
    CPostPropertiesDlg& dialog = open(1);
    user.sees([&] {
        CRect page, area;
        auto& tab = static_cast<CTabCtrl&>(*dialog.GetDlgItem(IDC_PROPERTIES_TAB));
        tab.GetWindowRect(area);
        dialog.visiblePage()->GetWindowRect(page);
        EXPECT_GE(page.left, area.left);
        EXPECT_GT(page.top, area.top);
        EXPECT_LE(page.right, area.right);
        EXPECT_LE(page.bottom, area.bottom);
        CRect list;
        control(IDC_ATTRIBUTE_LIST).GetWindowRect(list);
        EXPECT_LE(list.right, page.right);
        EXPECT_LE(list.bottom, page.bottom);
    });
    user.does(L"@ok");
    run();
}

TEST_F(PropertyPages, a_change_of_tab_takes_what_is_still_being_typed) {
    open(0);
    user.sees([&] {
        grid().showCellEditor(0, 1);
        grid().GetDlgItem(IDC_IN_PLACE)->SetWindowText(L"km 3");
    });
    user.does(L"@tab \"Táblák\"").does(L"@ok");
    run();
    EXPECT_EQ(post->postText().text, L"km 3");
}

TEST_F(PropertyPages, escape_on_a_page_cancels_the_window) {
    CPostPropertiesDlg& dialog = open(0);
    user.sees([&] { pressOn(grid(), dialog, VK_ESCAPE); });
    EXPECT_EQ(run(), IDCANCEL);
    user.takeRefusals(); // the window asked for a line once more, and there is none
}

TEST_F(PropertyPages, enter_on_a_page_confirms_the_window) {
    CPostPropertiesDlg& dialog = open(0);
    user.sees([&] { pressOn(grid(), dialog, VK_RETURN); });
    EXPECT_EQ(run(), IDOK);
    user.takeRefusals(); // the window asked for a line once more, and there is none
}

TEST_F(PropertyPages, the_help_button_opens_the_topic_of_its_page) {
    open(0);
    user.does(L"@click \"?\"");
    user.sees([&] { EXPECT_TRUE(hasLineWith(user.printed(), L"Súgó: Post_General.html")); });
    user.does(L"@tab \"Táblák\"").does(L"@click 260");
    user.sees([&] { EXPECT_TRUE(hasLineWith(user.printed(), L"Súgó: Post_Tables.html")); });
    user.does(L"@ok");
    run();
}

TEST_F(PropertyPages, cancelling_after_any_number_of_moves_leaves_the_post_as_it_was) {
    addTable(L"Jelzés\\C-030.dwg");
    addTable(L"Jelzés\\B-020.dwg");
    addTable(L"Jelzés\\A-010.dwg");
    const auto before = tables();
    user.does(L"@select 217 0").does(L"@click 230").does(L"@click 230").does(L"@click 235").does(L"@cancel");
    EXPECT_FALSE(post->editProperties(1));
    EXPECT_EQ(tables(), before);
}

TEST_F(PropertyPages, ok_gives_the_post_what_was_edited) {
    addTable(L"Jelzés\\B-020.dwg");
    addTable(L"Jelzés\\A-010.dwg");
    user.does(L"@select 217 0").does(L"@click 230").does(L"@ok");
    EXPECT_TRUE(post->editProperties(1));
    EXPECT_EQ(tables(), (std::vector<std::wstring>{L"A-010", L"B-020"}));
}
