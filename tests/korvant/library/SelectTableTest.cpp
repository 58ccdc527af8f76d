#include "CSelectTableDlg.h"

#include "AfxApp.h"
#include "DialogUser.h"
#include "Resource.h"
#include "TestSupport.h"
#include "TextLibrary.h"
#include "TrfcAppSettings.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {
class SelectTable : public testing::Test {
protected:
    SelectTable() {
        setenv("KORVANT_LOCALAPPDATA", testTempPath().c_str(), 1);
        TrfcAppSettings::setAppInt(BLOCK_VIEW_SIZE, 2);
        library.add(L"Táblák\\Tiltó\\C-001.dwg", "preview 100 50 ff0000");
        library.add(L"Táblák\\Tiltó\\C-002.dwg", "preview 100 50 00ff00");
        library.add(L"Táblák\\a.dwg", "box 1 1");
    }
    CTreeCtrl& tree(CSelectTableDlg& dialog) { return static_cast<CTreeCtrl&>(*dialog.GetDlgItem(IDC_LIBRARY_TREE)); }
    CListCtrl& list(CSelectTableDlg& dialog) { return static_cast<CListCtrl&>(*dialog.GetDlgItem(IDC_LIBRARY_LIST)); }
    bool canConfirm(CSelectTableDlg& dialog) { return dialog.GetDlgItem(IDOK)->IsWindowEnabled() != FALSE; }
    std::vector<std::wstring> topFolders(CSelectTableDlg& dialog) {
        std::vector<std::wstring> names;
        for (HTREEITEM item = tree(dialog).GetRootItem(); item != nullptr; item = tree(dialog).GetNextSiblingItem(item))
            names.push_back(tree(dialog).GetItemText(item).text());
        return names;
    }
    DialogUser user;
    TextLibrary library;
};
} // namespace

TEST_F(SelectTable, gives_the_path_below_the_root_with_the_subfolder_in_front) {
    CSelectTableDlg dialog(library.root());
    user.sees([&] {
        CString title;
        dialog.GetWindowText(title);
        EXPECT_EQ(title.text(), L"Korvant - Blokk kiválasztása");
        EXPECT_FALSE(canConfirm(dialog));
    });
    user.does(L"@select 300 \"Táblák\\Tiltó\"").does(L"@select 301 \"C-002\"");
    user.sees([&] { EXPECT_TRUE(canConfirm(dialog)); });
    user.does(L"@ok");
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.selectedPath(), L"Táblák\\Tiltó\\C-002.dwg");
}

TEST_F(SelectTable, a_cancel_gives_an_empty_path) {
    CSelectTableDlg dialog(library.root());
    user.does(L"@select 300 \"Táblák\\Tiltó\"").does(L"@select 301 0").does(L"@cancel");
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.selectedPath(), L"");
}

TEST_F(SelectTable, begins_in_the_folder_of_the_last_choice) {
    {
        CSelectTableDlg dialog(library.root());
        user.does(L"@select 300 \"Táblák\\Tiltó\"").does(L"@select 301 0").does(L"@ok");
        dialog.DoModal();
    }
    CSelectTableDlg again(library.root());
    user.sees([&] {
        const HTREEITEM item = tree(again).GetSelectedItem();
        ASSERT_NE(item, nullptr);
        EXPECT_EQ(tree(again).GetItemText(item).text(), L"Tiltó");
        EXPECT_EQ(list(again).GetItemCount(), 2);
        EXPECT_FALSE(canConfirm(again));
    });
    user.does(L"@select 301 1").does(L"@ok");
    again.DoModal();
    EXPECT_EQ(again.selectedPath(), L"Táblák\\Tiltó\\C-002.dwg");
}

TEST_F(SelectTable, an_absent_root_leaves_the_tree_empty_and_ok_disabled) {
    CSelectTableDlg dialog(library.path(L"nincs"));
    user.sees([&] {
        EXPECT_EQ(tree(dialog).GetCount(), 0u);
        EXPECT_FALSE(canConfirm(dialog));
    });
    user.does(L"@cancel");
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.selectedPath(), L"");
}

TEST_F(SelectTable, skips_the_folder_named_exactly_temp) {
    library.addFolder(L"Temp");
    library.addFolder(L"TEMP2");
    CSelectTableDlg dialog(library.root());
    user.sees([&] { EXPECT_EQ(topFolders(dialog), (std::vector<std::wstring>{L"TEMP2", L"Táblák"})); });
    user.does(L"@cancel");
    dialog.DoModal();
}

TEST_F(SelectTable, shows_a_folder_named_temp_in_capitals) {
    library.addFolder(L"TEMP");
    CSelectTableDlg dialog(library.root());
    user.sees([&] { EXPECT_EQ(topFolders(dialog), (std::vector<std::wstring>{L"TEMP", L"Táblák"})); });
    user.does(L"@cancel");
    dialog.DoModal();
}

TEST_F(SelectTable, expands_a_single_top_folder) {
    CSelectTableDlg dialog(library.root());
    user.sees([&] { EXPECT_NE(tree(dialog).GetItemState(tree(dialog).GetRootItem(), TVIS_EXPANDED) & TVIS_EXPANDED, 0u); });
    user.does(L"@cancel");
    dialog.DoModal();
}

TEST_F(SelectTable, a_chosen_folder_opens) {
    library.addFolder(L"Lámpák"); // two top folders: neither is open at first
    CSelectTableDlg dialog(library.root());
    user.sees([&] {
        const HTREEITEM item = tree(dialog).GetNextSiblingItem(tree(dialog).GetRootItem());
        ASSERT_EQ(tree(dialog).GetItemText(item).text(), L"Táblák");
        EXPECT_EQ(tree(dialog).GetItemState(item, TVIS_EXPANDED) & TVIS_EXPANDED, 0u);
        tree(dialog).SelectItem(item);
        EXPECT_NE(tree(dialog).GetItemState(item, TVIS_EXPANDED) & TVIS_EXPANDED, 0u);
        EXPECT_EQ(list(dialog).GetBkColor(), RGB(255, 255, 255));
    });
    user.does(L"@cancel");
    dialog.DoModal();
}

TEST_F(SelectTable, a_folder_of_companion_drawings_only_shows_an_empty_list) {
    library.add(L"Csak\\$a.dwg", "preview 100 50 ff0000");
    CSelectTableDlg dialog(library.root());
    user.does(L"@select 300 \"Csak\"");
    user.sees([&] { EXPECT_EQ(list(dialog).GetItemCount(), 0); });
    user.does(L"@cancel");
    dialog.DoModal();
}

TEST_F(SelectTable, a_folders_own_bitmaps_become_its_icons) {
    library.addBitmap(L"Lámpák\\folder.bmp", 18, 22, 0x0000FF);
    library.addBitmap(L"Lámpák\\folder_open.bmp", 18, 22, 0x00FF00);
    CSelectTableDlg dialog(library.root());
    user.sees([&] {
        int closed = -1, open = -1;
        HTREEITEM item = tree(dialog).GetRootItem();
        ASSERT_EQ(tree(dialog).GetItemText(item).text(), L"Lámpák");
        tree(dialog).GetItemImage(item, closed, open);
        EXPECT_EQ(closed, 2);
        EXPECT_EQ(open, 3);
        item = tree(dialog).GetNextSiblingItem(item);
        tree(dialog).GetItemImage(item, closed, open);
        EXPECT_EQ(closed, 0);
        EXPECT_EQ(open, 1);
    });
    user.does(L"@cancel");
    dialog.DoModal();
}

TEST_F(SelectTable, thumbnails_of_the_smallest_view_are_24_by_20) {
    TrfcAppSettings::setAppInt(BLOCK_VIEW_SIZE, 0);
    CSelectTableDlg dialog(library.root());
    user.does(L"@select 300 \"Táblák\"");
    user.sees([&] {
        ASSERT_NE(list(dialog).GetImageList(LVSIL_NORMAL), nullptr);
        EXPECT_EQ(list(dialog).GetImageList(LVSIL_NORMAL)->GetIconSize(), CSize(24, 20));
    });
    user.does(L"@cancel");
    dialog.DoModal();
}

TEST_F(SelectTable, another_folder_begins_without_a_choice) {
    CSelectTableDlg dialog(library.root());
    user.does(L"@select 300 \"Táblák\\Tiltó\"").does(L"@select 301 0").does(L"@select 300 \"Táblák\"");
    user.sees([&] { EXPECT_FALSE(canConfirm(dialog)); });
    user.does(L"@cancel");
    dialog.DoModal();
}

TEST_F(SelectTable, keeps_its_place_between_two_selections) {
    CRect first, second;
    {
        CSelectTableDlg dialog(library.root());
        user.sees([&] {
            dialog.GetWindowRect(first);
            dialog.MoveWindow(5, 20, first.Width() + 10, first.Height() + 40); // still on the screen
            dialog.GetWindowRect(first);
        });
        user.does(L"@cancel");
        dialog.DoModal();
    }
    CSelectTableDlg again(library.root());
    user.sees([&] { again.GetWindowRect(second); });
    user.does(L"@cancel");
    again.DoModal();
    EXPECT_EQ(second.Size(), first.Size());
    EXPECT_EQ(second.TopLeft(), first.TopLeft());
}

TEST_F(SelectTable, the_list_grows_with_the_window) {
    CSelectTableDlg dialog(library.root());
    user.sees([&] {
        CRect before, after, window;
        list(dialog).GetWindowRect(before);
        dialog.GetWindowRect(window);
        dialog.MoveWindow(window.left, window.top, window.Width() + 100, window.Height() + 50);
        AfxPumpMessages();
        list(dialog).GetWindowRect(after);
        EXPECT_EQ(after.Width(), before.Width() + 100);
        EXPECT_EQ(after.Height(), before.Height() + 50);
    });
    user.does(L"@cancel");
    dialog.DoModal();
}

TEST_F(SelectTable, its_order_file_lies_in_the_users_folder) {
    CSelectTableDlg dialog(library.root());
    EXPECT_EQ(dialog.orderFilePath(), TrfcAppSettings::perUserFolder() + L"orders.xml");
}
