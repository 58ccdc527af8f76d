#include "CImageList.h"
#include "CStatic.h"
#include "SampleDialog.h"

#include "AfxApp.h"
#include "core/AfxWindow.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QTreeWidget>
#include <chrono>

namespace {
// Runs the check with the sample dialog open.
struct Controls : testing::Test {
    void SetUp() override { useResources(kSampleResources); }
    void with(const std::function<void(SampleDialog&)>& check) {
        DialogScript user({L"check", L"@cancel"});
        SampleDialog dialog;
        user.look(L"check", [&] { check(dialog); });
        dialog.DoModal();
        EXPECT_TRUE(user.refusals.empty());
    }
};
} // namespace

TEST_F(Controls, a_list_keeps_texts_data_and_widths) {
    with([](SampleDialog& d) {
        EXPECT_EQ(d.list.GetColumnWidth(0), 120);
        EXPECT_EQ(d.list.InsertItem(1, L"új"), 1);
        EXPECT_EQ(d.list.GetItemCount(), 4);
        EXPECT_STREQ(d.list.GetItemText(2, 1), L"érték 1");
        EXPECT_EQ(d.list.GetItemData(2), 101u);
        EXPECT_EQ(d.list.FindItemText(L"új"), 1);
        EXPECT_TRUE(d.list.DeleteItem(0));
        EXPECT_STREQ(d.list.GetItemText(0, 0), L"új");
        EXPECT_FALSE(d.list.SetItemText(9, 0, L"x"));
        EXPECT_STREQ(d.list.GetItemText(9, 9), L"");
        EXPECT_EQ(d.list.GetItemData(-1), 0u);
        d.list.DeleteAllItems();
        EXPECT_EQ(d.list.GetItemCount(), 0);
    });
}

TEST_F(Controls, a_list_tells_its_selection) {
    with([](SampleDialog& d) {
        EXPECT_EQ(d.list.GetNextItem(-1, LVNI_SELECTED), -1);
        d.list.SetItemState(1, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        EXPECT_EQ(d.list.GetNextItem(-1, LVNI_SELECTED), 1);
        POSITION position = d.list.GetFirstSelectedItemPosition();
        EXPECT_EQ(d.list.GetNextSelectedItem(position), 1);
        EXPECT_EQ(position, 0);
        d.list.SetItemState(2, LVIS_SELECTED, LVIS_SELECTED);
        EXPECT_EQ(d.list.GetSelectedCount(), 1u) << "one row at a time";
        EXPECT_EQ(d.count("selected 1 data 101"), 1);
        d.list.SetItemState(-1, 0, LVIS_SELECTED);
        EXPECT_EQ(d.list.GetSelectedCount(), 0u);
    });
}

TEST_F(Controls, emptying_a_list_is_no_change_of_selection) {
    with([](SampleDialog& d) {
        d.list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
        d.events.clear();
        d.list.DeleteAllItems();
        EXPECT_TRUE(d.events.empty());
    });
}

TEST_F(Controls, a_cell_is_found_by_its_place) {
    with([](SampleDialog& d) {
        CRect row, cell;
        ASSERT_TRUE(d.list.GetItemRect(1, row));
        ASSERT_TRUE(d.list.GetSubItemRect(1, 1, LVIR_BOUNDS, cell));
        EXPECT_EQ(cell.Width(), 100);
        EXPECT_EQ(cell.left, row.left + 120);
        EXPECT_GT(row.top, 10) << "the header stands above the rows";
        LVHITTESTINFO hit;
        hit.pt = cell.CenterPoint();
        EXPECT_EQ(d.list.SubItemHitTest(&hit), 1);
        EXPECT_EQ(hit.iSubItem, 1);
        hit.pt = CPoint(5, 2);
        EXPECT_EQ(d.list.SubItemHitTest(&hit), -1) << "the header is no row";
        EXPECT_FALSE(d.list.GetItemRect(9, row));
    });
}

TEST_F(Controls, a_label_wider_than_its_tree_is_reached_by_scrolling) {
    with([](SampleDialog& d) {
        auto* const tree = afxWidget<QTreeWidget>(d.tree);
        AfxPumpMessages();
        EXPECT_EQ(tree->horizontalScrollBar()->maximum(), 0);
        EXPECT_EQ(tree->header()->sectionSize(0), tree->viewport()->width());
        d.tree.InsertItem(L"Egy olyan hosszú nevű fájl, amelynek a neve nem fér el a fa szélességében.dwg");
        AfxPumpMessages();
        EXPECT_GT(tree->horizontalScrollBar()->maximum(), 0);
    });
}

TEST_F(Controls, a_tree_is_walked_by_its_items) {
    with([](SampleDialog& d) {
        HTREEITEM top = d.tree.GetRootItem();
        EXPECT_STREQ(d.tree.GetItemText(top), L"Rajz");
        HTREEITEM child = d.tree.GetChildItem(top);
        EXPECT_STREQ(d.tree.GetItemText(d.tree.GetNextSiblingItem(child)), L"Tábla");
        EXPECT_EQ(d.tree.GetParentItem(child), top);
        EXPECT_EQ(d.tree.GetParentItem(top), nullptr);
        EXPECT_STREQ(d.tree.GetItemText(d.tree.GetNextSiblingItem(top)), L"Alkalmazás");
        EXPECT_EQ(d.tree.GetCount(), 4u);
        d.tree.SetItemData(child, 77);
        EXPECT_EQ(d.tree.GetItemData(child), 77u);
        EXPECT_TRUE(d.tree.Expand(top, TVE_EXPAND));
        EXPECT_FALSE(d.tree.Expand(top, TVE_EXPAND));
        EXPECT_EQ(d.tree.GetItemState(top, TVIS_EXPANDED), TVIS_EXPANDED);
        d.tree.SelectItem(child);
        EXPECT_EQ(d.tree.GetSelectedItem(), child);
        EXPECT_EQ(d.count("tree Oszlop"), 1);
        d.tree.DeleteItem(top);
        EXPECT_EQ(d.tree.GetCount(), 1u);
    });
}

TEST_F(Controls, a_combo_keeps_its_choice_while_entries_come_and_go) {
    with([](SampleDialog& d) {
        auto* combo = static_cast<CComboBox*>(d.GetDlgItem(IDC_TYPE));
        combo->SetCurSel(1);
        combo->InsertString(0, L"Letakart");
        EXPECT_EQ(combo->GetCurSel(), 2);
        combo->DeleteString(0);
        EXPECT_EQ(combo->GetCurSel(), 1);
        EXPECT_EQ(combo->FindStringExact(-1, L"TERVEZETT"), 1);
        EXPECT_EQ(combo->FindString(0, L"Meg"), 2);
        EXPECT_EQ(combo->FindStringExact(-1, L"Terv"), CB_ERR);
        EXPECT_EQ(combo->SelectString(-1, L"Megsz"), 2);
        EXPECT_EQ(combo->SetCurSel(99), CB_ERR);
        combo->SetItemData(0, 5);
        EXPECT_EQ(combo->GetItemData(0), 5u);
        CString text;
        EXPECT_EQ(combo->GetLBText(9, text), CB_ERR);
        combo->ResetContent();
        EXPECT_EQ(combo->GetCount(), 0);
        EXPECT_EQ(combo->AddString(L"x"), 0);
        EXPECT_EQ(combo->GetCurSel(), CB_ERR) << "adding selects nothing";
        auto* free = static_cast<CComboBox*>(d.GetDlgItem(IDC_FREE));
        free->SetWindowText(L"szabad");
        free->AddString(L"egy");
        free->GetWindowText(text);
        EXPECT_STREQ(text, L"szabad");
    });
}

TEST_F(Controls, fields_take_selection_limit_and_several_lines) {
    with([](SampleDialog& d) {
        d.nameEdit.SetWindowText(L"abcdef");
        d.nameEdit.SetSel(1, 3);
        d.nameEdit.ReplaceSel(L"X");
        CString text;
        d.nameEdit.GetWindowText(text);
        EXPECT_STREQ(text, L"aXdef");
        d.SetDlgItemText(IDC_MULTI, L"első\r\nmásodik");
        EXPECT_EQ(static_cast<CEdit*>(d.GetDlgItem(IDC_MULTI))->GetLineCount(), 2);
        d.GetDlgItemText(IDC_MULTI, text);
        EXPECT_STREQ(text, L"első\r\nmásodik");
        d.SetDlgItemInt(IDC_NAME, -12);
        EXPECT_EQ(d.GetDlgItemInt(IDC_NAME), -12);
        d.SetDlgItemText(IDC_NAME, L"x");
        EXPECT_EQ(d.GetDlgItemInt(IDC_NAME), 0);
    });
}

TEST_F(Controls, options_of_a_group_exclude_each_other) {
    with([](SampleDialog& d) {
        d.CheckRadioButton(IDC_FIRST, IDC_THIRD, IDC_THIRD);
        EXPECT_FALSE(d.IsDlgButtonChecked(IDC_SECOND));
        EXPECT_TRUE(d.IsDlgButtonChecked(IDC_THIRD));
        d.CheckDlgButton(IDC_THIRD, BST_UNCHECKED);
        EXPECT_FALSE(d.IsDlgButtonChecked(IDC_THIRD)) << "the program may clear all";
    });
}

TEST_F(Controls, a_progress_bar_stays_in_its_range) {
    with([](SampleDialog& d) {
        EXPECT_EQ(d.bar.SetPos(150), 0);
        EXPECT_EQ(d.bar.SetPos(999), 150);
        EXPECT_EQ(d.bar.GetPos(), 200);
        EXPECT_EQ(d.bar.SetStep(30), 10);
        d.bar.SetPos(190);
        d.bar.StepIt();
        EXPECT_EQ(d.bar.GetPos(), 20);
        d.bar.SetRange32(5, 5);
        d.bar.SetPos(5);
    });
}

TEST_F(Controls, tabs_are_added_and_give_their_page_area) {
    with([](SampleDialog& d) {
        EXPECT_EQ(d.tabs.InsertItem(2, L"Lámpa 1"), 2);
        EXPECT_EQ(d.tabs.SetCurSel(2), 0);
        EXPECT_EQ(d.tabs.GetCurSel(), 2);
        EXPECT_STREQ(d.tabs.itemText(2), L"Lámpa 1");
        CRect whole, page;
        d.tabs.GetClientRect(&whole);
        page = whole;
        d.tabs.AdjustRect(FALSE, &page);
        EXPECT_GT(page.top, 15);
        EXPECT_LT(page.right, whole.right);
        d.tabs.AdjustRect(TRUE, &page);
        EXPECT_EQ(page, whole);
        EXPECT_TRUE(d.tabs.DeleteItem(2));
        EXPECT_FALSE(d.tabs.DeleteItem(7));
        EXPECT_EQ(d.tabs.GetItemCount(), 2);
    });
}

TEST_F(Controls, a_control_made_by_the_program_is_found_and_destroyed) {
    with([](SampleDialog& d) {
        CEdit edit;
        ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(10, 10, 60, 30), &d, 7777));
        EXPECT_EQ(d.GetDlgItem(7777), &edit);
        EXPECT_FALSE(edit.Create(WS_CHILD, CRect(0, 0, 1, 1), &d, 7778)) << "it has a window";
        edit.DestroyWindow();
        EXPECT_EQ(d.GetDlgItem(7777), nullptr);
        EXPECT_FALSE(edit.IsWindow());
    });
}

TEST_F(Controls, calls_without_a_window_do_nothing) {
    CListCtrl list;
    CTreeCtrl tree;
    CComboBox combo;
    CEdit edit;
    CTabCtrl tabs;
    EXPECT_EQ(list.InsertItem(0, L"x"), -1);
    EXPECT_EQ(list.GetItemCount(), 0);
    EXPECT_EQ(tree.InsertItem(L"x"), nullptr);
    EXPECT_EQ(combo.AddString(L"x"), CB_ERR);
    EXPECT_EQ(tabs.InsertItem(0, L"x"), -1);
    edit.SetWindowText(L"x");
    CString text(L"old");
    edit.GetWindowText(text);
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_FALSE(edit.DestroyWindow());
    EXPECT_FALSE(edit.EnableWindow());
}

TEST_F(Controls, pictures_are_masked_and_shown_in_lists) {
    AfxInitToolkit(true);
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.LoadBitmap(900));
    EXPECT_EQ(bitmap.GetSize(), CSize(4, 2));
    EXPECT_EQ(bitmap.GetPixel(0, 0), RGB(255, 0, 0));
    EXPECT_FALSE(CBitmap().LoadBitmap(901));
    CImageList images;
    EXPECT_EQ(images.Add(&bitmap, RGB(255, 255, 255)), -1) << "not created yet";
    ASSERT_TRUE(images.Create(2, 2, ILC_COLOR16 | ILC_MASK, 0, 2));
    EXPECT_EQ(images.Add(&bitmap, RGB(255, 255, 255)), 0);
    EXPECT_EQ(images.GetImageCount(), 2) << "a strip is cut";
    with([&](SampleDialog& d) {
        EXPECT_EQ(d.list.SetImageList(&images, LVSIL_SMALL), nullptr);
        EXPECT_EQ(d.list.GetImageList(LVSIL_SMALL), &images);
        EXPECT_TRUE(d.list.SetItem(0, 1, LVIF_IMAGE, nullptr, 1, 0, 0, 0));
        d.tree.SetImageList(&images);
        d.tree.SetItemImage(d.tree.GetRootItem(), 0, 1);
        int image = -1, selected = -1;
        d.tree.GetItemImage(d.tree.GetRootItem(), image, selected);
        EXPECT_EQ(image, 0);
        EXPECT_EQ(selected, 1);
    });
}

TEST_F(Controls, a_list_gives_back_pictures_states_and_data) {
    with([](SampleDialog& d) {
        d.list.SetItem(1, 1, LVIF_IMAGE, nullptr, 2, 0, 0, 0);
        d.list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
        LVITEM item;
        item.mask = LVIF_IMAGE | LVIF_STATE | LVIF_PARAM;
        item.stateMask = LVIS_SELECTED;
        item.iItem = 1;
        item.iSubItem = 1;
        ASSERT_TRUE(d.list.GetItem(&item));
        EXPECT_EQ(item.iImage, 2);
        EXPECT_EQ(item.state, LVIS_SELECTED);
        EXPECT_EQ(item.lParam, 101);
        item.iSubItem = 0;
        ASSERT_TRUE(d.list.GetItem(&item));
        EXPECT_EQ(item.iImage, -1) << "a cell without a picture";
        item.iItem = 99;
        EXPECT_FALSE(d.list.GetItem(&item));
    });
}

TEST_F(Controls, rows_appended_while_the_window_lives_have_their_places_at_once) {
    with([](SampleDialog& d) {
        for (int i = 0; i < 300; ++i) {
            d.list.InsertItem(d.list.GetItemCount(), L"sor");
            AfxPumpMessages();
        }
        const int last = d.list.GetItemCount() - 1;
        CRect row, client;
        ASSERT_TRUE(d.list.EnsureVisible(last, FALSE));
        ASSERT_TRUE(d.list.GetItemRect(last, row));
        d.list.GetClientRect(client);
        EXPECT_GT(row.Height(), 0);
        EXPECT_LE(row.bottom, client.bottom);
        EXPECT_GT(row.bottom, client.bottom - 3 * row.Height());
        EXPECT_EQ(d.list.HitTest(row.CenterPoint()), last);
        d.list.InsertItem(0, L"első");
        AfxPumpMessages();
        ASSERT_TRUE(d.list.EnsureVisible(0, FALSE));
        EXPECT_EQ(d.list.GetTopIndex(), 0);
    });
}

TEST_F(Controls, appending_many_rows_while_the_window_lives_stays_quick) {
    with([](SampleDialog& d) {
        const auto rowsInTime = [&d](int rows) {
            const auto start = std::chrono::steady_clock::now();
            for (int i = 0; i < rows; ++i) {
                d.list.InsertItem(d.list.GetItemCount(), L"sor");
                AfxPumpMessages();
            }
            return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        };
        const double few = rowsInTime(1000), many = rowsInTime(4000);
        EXPECT_LT(many, 20.0 * few + 1.0) << "four times the rows must not cost sixteen times and more";
    });
}
