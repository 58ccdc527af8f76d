// Editing in a list's cells, the way a program of this API does it: a field made over the cell, which
// ends with Enter, Escape or the loss of the focus and tells the list.
#include "SampleDialog.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace {
class CellEdit : public CEdit {
public:
    CellEdit(int row, int column) : mRow(row), mColumn(column) {}

protected:
    BOOL PreTranslateMessage(MSG* message) override {
        if (message->message != WM_KEYDOWN || (message->wParam != VK_RETURN && message->wParam != VK_ESCAPE))
            return FALSE;
        finish(message->wParam == VK_RETURN);
        return TRUE;
    }
    void OnKillFocus(CWnd* to) {
        CEdit::OnKillFocus(to);
        finish(true);
    }
    void PostNcDestroy() override { delete this; }
    DECLARE_MESSAGE_MAP()

private:
    void finish(bool keep) {
        if (mHasEnded)
            return;
        mHasEnded = true;
        CString text;
        GetWindowText(text);
        NMLVDISPINFO notice;
        notice.hdr.code = LVN_ENDLABELEDIT;
        notice.item.iItem = mRow;
        notice.item.iSubItem = mColumn;
        notice.item.pszText = keep ? text.GetBuffer() : nullptr;
        GetParent()->GetParent()->SendMessage(WM_NOTIFY, static_cast<WPARAM>(GetParent()->GetDlgCtrlID()), reinterpret_cast<LPARAM>(&notice));
        DestroyWindow();
    }
    int mRow, mColumn;
    bool mHasEnded = false;
};
BEGIN_MESSAGE_MAP(CellEdit, CEdit)
    ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

class GridDialog : public SampleDialog {
public:
    std::vector<std::wstring> edits;

protected:
    void OnCell(NMHDR* header, LRESULT*) {
        const auto* click = reinterpret_cast<NMITEMACTIVATE*>(header);
        CRect rect;
        if (click->iSubItem != 1 || !list.GetSubItemRect(click->iItem, 1, LVIR_BOUNDS, rect))
            return;
        auto* edit = new CellEdit(click->iItem, 1);
        edit->Create(WS_CHILD | WS_VISIBLE | WS_BORDER, rect, &list, 9000);
        edit->SetWindowText(list.GetItemText(click->iItem, 1));
        edit->SetFocus();
    }
    void OnEdited(NMHDR* header, LRESULT*) {
        const auto* notice = reinterpret_cast<NMLVDISPINFO*>(header);
        edits.push_back(notice->item.pszText == nullptr ? L"given up" : notice->item.pszText);
        if (notice->item.pszText != nullptr)
            list.SetItemText(notice->item.iItem, notice->item.iSubItem, notice->item.pszText);
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(GridDialog, SampleDialog)
    ON_NOTIFY(NM_CLICK, IDC_LIST, &GridDialog::OnCell)
    ON_NOTIFY(LVN_ENDLABELEDIT, IDC_LIST, &GridDialog::OnEdited)
END_MESSAGE_MAP()

void pressKey(int key) {
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(QApplication::focusWidget(), &down);
}
} // namespace

TEST(InPlace, a_cell_line_types_into_the_field_and_ends_it_with_enter) {
    useResources(kSampleResources);
    DialogScript user({L"@cell 1013 2 1 \"acél\"", L"@show", L"@cell 1013 0 1 \"fa\"", L"@ok"});
    GridDialog dialog;
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(user.refusals.empty());
    EXPECT_EQ(dialog.edits, (std::vector<std::wstring>{L"acél", L"fa"}));
    EXPECT_TRUE(holds(user.printed, L"2: név 2 | acél"));
}

TEST(InPlace, escape_gives_up_and_leaves_the_dialog_open) {
    useResources(kSampleResources);
    DialogScript user({L"escape", L"@cancel"});
    GridDialog dialog;
    user.look(L"escape", [&] {
        AfxApplyDialogLine(L"@cell 1013 9 9 \"\""); // refused: only to settle the focus
        NMITEMACTIVATE click;
        click.hdr.code = NM_CLICK;
        click.iItem = 1;
        click.iSubItem = 1;
        dialog.SendMessage(WM_NOTIFY, IDC_LIST, reinterpret_cast<LPARAM>(&click));
        pressKey(Qt::Key_Escape);
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.edits, std::vector<std::wstring>{L"given up"});
    EXPECT_EQ(dialog.count("cancel"), 1) << "Escape ended the field alone";
}

TEST(InPlace, the_loss_of_the_focus_keeps_the_text) {
    useResources(kSampleResources);
    DialogScript user({L"open", L"@click 1010", L"@cancel"});
    GridDialog dialog;
    user.look(L"open", [&] {
        NMITEMACTIVATE click;
        click.hdr.code = NM_CLICK;
        click.iItem = 1;
        click.iSubItem = 1;
        dialog.SendMessage(WM_NOTIFY, IDC_LIST, reinterpret_cast<LPARAM>(&click));
    });
    dialog.DoModal();
    EXPECT_EQ(dialog.edits, std::vector<std::wstring>{L"érték 1"});
}
