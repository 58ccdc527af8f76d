#include "CListCtrlEd.h"

#include "AfxApp.h"
#include "CComboBox.h"
#include "CDataExchange.h"
#include "CDialog.h"
#include "CEdit.h"
#include "DialogUser.h"
#include "Resource.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {
constexpr UINT kGridDialog = 9001;
constexpr UINT kGrid = 9002;
constexpr char kTemplate[] = R"(
9001 DIALOGEX 0, 0, 220, 140
STYLE DS_SETFONT | WS_POPUP | WS_CAPTION
CAPTION "Grid"
FONT 8, "MS Shell Dlg"
BEGIN
    CONTROL "", 9002, "SysListView32", LVS_REPORT | LVS_SINGLESEL | WS_BORDER | WS_TABSTOP, 7, 7, 200, 100
    DEFPUSHBUTTON "OK", 1, 150, 115, 50, 14
END
)";

// A dialog with a grid that notes what it is told of edits.
class GridDlg : public CDialog {
public:
    GridDlg() : CDialog(kGridDialog) {}
    CListCtrlEd grid;
    std::vector<attributeRow> rows;
    std::vector<std::wstring> edits;

protected:
    void DoDataExchange(CDataExchange* exchange) override {
        CDialog::DoDataExchange(exchange);
        DDX_Control(exchange, static_cast<int>(kGrid), grid);
    }
    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        grid.addColumns();
        for (const attributeRow& row : rows)
            grid.addRow(row);
        return TRUE;
    }
    void OnEdited(NMHDR* header, LRESULT* result) {
        *result = 0;
        const auto* const info = reinterpret_cast<const NMLVDISPINFO*>(header);
        edits.push_back(std::to_wstring(info->item.iItem) + L"=" + info->item.pszText);
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(GridDlg, CDialog)
    ON_NOTIFY(LVN_ENDLABELEDIT, kGrid, &GridDlg::OnEdited)
END_MESSAGE_MAP()

class Grid : public testing::Test {
protected:
    Grid() {
        AfxSetResourceText(kTemplate, std::strlen(kTemplate));
        dialog.rows = {{attributeRow::kText, L"Felirat", L"A1", L"", false, attributeRow::kPageField},
                       {attributeRow::kDropDown, L"Anyag", L"fa", L"acél;alumínium;fa", false, attributeRow::kUserParameter},
                       {attributeRow::kText, L"Kód", L"17", L"", true, attributeRow::kPageField},
                       {attributeRow::kDropDown, L"Megjegyzés", L"x", L"", false, attributeRow::kUserParameter}};
    }
    CWnd* editor() { return dialog.grid.GetDlgItem(IDC_IN_PLACE); }
    void press(UINT key) {
        MSG message;
        message.pWnd = editor();
        message.message = WM_KEYDOWN;
        message.wParam = key;
        ASSERT_NE(editor(), nullptr);
        EXPECT_TRUE(editor()->PreTranslateMessage(&message));
    }
    void run() {
        user.does(L"@ok");
        EXPECT_EQ(dialog.DoModal(), IDOK);
    }
    DialogUser user;
    GridDlg dialog;
};
} // namespace

TEST_F(Grid, has_a_column_of_names_and_one_of_values) {
    user.sees([&] {
        EXPECT_EQ(dialog.grid.columnTitle(0).text(), L"Paraméter Neve");
        EXPECT_EQ(dialog.grid.columnTitle(1).text(), L"Paraméter Értéke");
        EXPECT_EQ(dialog.grid.GetItemText(1, 0).text(), L"Anyag");
        EXPECT_EQ(dialog.grid.GetItemText(1, 1).text(), L"fa");
        CRect client;
        dialog.grid.GetClientRect(client);
        EXPECT_LE(dialog.grid.GetColumnWidth(0) + dialog.grid.GetColumnWidth(1), client.Width());
    });
    run();
}

TEST_F(Grid, a_text_cell_is_edited_by_a_script_line) {
    user.does(L"@cell 9002 0 1 \"B2\"");
    run();
    EXPECT_EQ(dialog.edits, std::vector<std::wstring>{L"0=B2"});
}

TEST_F(Grid, a_choice_cell_is_edited_by_a_script_line) {
    user.does(L"@cell 9002 1 1 \"alumínium\"");
    run();
    EXPECT_EQ(dialog.edits, std::vector<std::wstring>{L"1=alumínium"});
}

TEST_F(Grid, enter_keeps_the_new_text) {
    user.sees([&] {
        dialog.grid.showCellEditor(0, 1);
        ASSERT_NE(editor(), nullptr);
        CString before;
        editor()->GetWindowText(before);
        EXPECT_EQ(before.text(), L"A1");
        editor()->SetWindowText(L"C3");
        press(VK_RETURN);
        EXPECT_EQ(editor(), nullptr);
        EXPECT_EQ(dialog.grid.GetItemText(0, 1).text(), L"C3");
        EXPECT_EQ(dialog.grid.rowAt(0).value, L"C3");
    });
    run();
    EXPECT_EQ(dialog.edits, std::vector<std::wstring>{L"0=C3"});
}

TEST_F(Grid, escape_gives_the_edit_up) {
    user.sees([&] {
        dialog.grid.showCellEditor(0, 1);
        ASSERT_NE(editor(), nullptr);
        editor()->SetWindowText(L"C3");
        press(VK_ESCAPE);
        EXPECT_EQ(editor(), nullptr);
        EXPECT_EQ(dialog.grid.GetItemText(0, 1).text(), L"A1");
    });
    run();
    EXPECT_TRUE(dialog.edits.empty());
}

TEST_F(Grid, leaving_the_field_keeps_the_new_text) {
    user.sees([&] {
        dialog.grid.showCellEditor(0, 1);
        ASSERT_NE(editor(), nullptr);
        editor()->SetWindowText(L"C3");
        dialog.GetDlgItem(IDOK)->SetFocus();
        AfxPumpMessages();
        EXPECT_EQ(editor(), nullptr);
    });
    run();
    EXPECT_EQ(dialog.edits, std::vector<std::wstring>{L"0=C3"});
}

TEST_F(Grid, opening_another_cell_keeps_the_text_of_the_first) {
    user.sees([&] {
        dialog.grid.showCellEditor(0, 1);
        ASSERT_NE(editor(), nullptr);
        editor()->SetWindowText(L"C3");
        dialog.grid.showCellEditor(1, 1);
        press(VK_ESCAPE);
    });
    run();
    EXPECT_EQ(dialog.edits, std::vector<std::wstring>{L"0=C3"});
}

TEST_F(Grid, a_choice_offers_the_values_between_semicolons_and_selects_the_present_one) {
    user.sees([&] {
        dialog.grid.showCellEditor(1, 1);
        auto* const choice = dynamic_cast<CComboBox*>(editor());
        ASSERT_NE(choice, nullptr);
        ASSERT_EQ(choice->GetCount(), 3);
        CString text;
        choice->GetLBText(0, text);
        EXPECT_EQ(text.text(), L"acél");
        EXPECT_EQ(choice->GetCurSel(), 2);
        choice->SetCurSel(0);
        press(VK_RETURN);
    });
    run();
    EXPECT_EQ(dialog.edits, std::vector<std::wstring>{L"1=acél"});
}

TEST_F(Grid, a_value_that_is_none_of_the_choices_stays_when_nothing_is_chosen) {
    dialog.rows[1].value = L"műanyag";
    user.sees([&] {
        EXPECT_EQ(dialog.grid.GetItemText(1, 1).text(), L"műanyag");
        dialog.grid.showCellEditor(1, 1);
        auto* const choice = dynamic_cast<CComboBox*>(editor());
        ASSERT_NE(choice, nullptr);
        EXPECT_EQ(choice->GetCurSel(), CB_ERR);
        press(VK_RETURN);
        EXPECT_EQ(dialog.grid.GetItemText(1, 1).text(), L"műanyag");
    });
    run();
}

TEST_F(Grid, a_choice_without_values_takes_any_text) {
    user.does(L"@cell 9002 3 1 \"bármi\"");
    run();
    EXPECT_EQ(dialog.edits, std::vector<std::wstring>{L"3=bármi"});
}

TEST_F(Grid, a_read_only_row_opens_no_editor) {
    user.sees([&] {
        dialog.grid.showCellEditor(2, 1);
        EXPECT_EQ(editor(), nullptr);
    });
    run();
}

TEST_F(Grid, a_cell_outside_the_rows_or_in_the_names_opens_no_editor) {
    user.sees([&] {
        dialog.grid.showCellEditor(0, 0);
        dialog.grid.showCellEditor(-1, 1);
        dialog.grid.showCellEditor(4, 1);
        EXPECT_EQ(editor(), nullptr);
    });
    run();
}

TEST_F(Grid, the_editor_lies_inside_its_cell_and_the_list) {
    user.sees([&] {
        dialog.grid.showCellEditor(0, 1);
        ASSERT_NE(editor(), nullptr);
        CRect place, list, cell;
        editor()->GetWindowRect(place);
        dialog.grid.ScreenToClient(&place);
        dialog.grid.GetClientRect(list);
        dialog.grid.GetSubItemRect(0, 1, LVIR_BOUNDS, cell);
        EXPECT_EQ(place.left, cell.left + 4);
        EXPECT_EQ(place.top, cell.top);
        EXPECT_EQ(place.right, cell.right + 1); // four from the left, three off the width
        EXPECT_EQ(place.bottom, cell.bottom);
        press(VK_ESCAPE);
        dialog.grid.SetColumnWidth(1, 2 * list.Width());
        dialog.grid.showCellEditor(0, 1);
        ASSERT_NE(editor(), nullptr);
        editor()->GetWindowRect(place);
        dialog.grid.ScreenToClient(&place);
        EXPECT_EQ(place.right, list.right);
        press(VK_ESCAPE);
    });
    run();
}

TEST_F(Grid, removing_the_rows_drops_an_open_edit) {
    user.sees([&] {
        dialog.grid.showCellEditor(0, 1);
        ASSERT_NE(editor(), nullptr);
        editor()->SetWindowText(L"C3");
        dialog.grid.removeRows();
        EXPECT_EQ(editor(), nullptr);
        EXPECT_EQ(dialog.grid.GetItemCount(), 0);
    });
    run();
    EXPECT_TRUE(dialog.edits.empty());
}
