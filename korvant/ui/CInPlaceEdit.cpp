#include "CInPlaceEdit.h"

#include "CListCtrl.h"
#include "InPlaceNotify.h"
#include "Resource.h"

BEGIN_MESSAGE_MAP(CInPlaceEdit, CEdit)
    ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

CInPlaceEdit::CInPlaceEdit(int row, int column, LPCTSTR text) : mRow(row), mColumn(column), mText(text) {}

BOOL CInPlaceEdit::open(const CRect& cell, CListCtrl& list) {
    if (!Create(WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL, cell, &list, IDC_IN_PLACE))
        return FALSE;
    SetWindowText(mText);
    SetSel(0, -1);
    BringWindowToTop();
    SetFocus();
    return TRUE;
}

void CInPlaceEdit::finish(bool keep) {
    // Destroying the field takes the focus from it, which would end the edit a second time.
    if (mEnded)
        return;
    mEnded = true;
    CString text;
    GetWindowText(text);
    notifyCellEdited(*this, mRow, mColumn, keep ? &text : nullptr);
    DestroyWindow();
}

BOOL CInPlaceEdit::PreTranslateMessage(MSG* message) {
    if (message->message != WM_KEYDOWN || (message->wParam != VK_RETURN && message->wParam != VK_ESCAPE))
        return CEdit::PreTranslateMessage(message);
    finish(message->wParam == VK_RETURN);
    return TRUE;
}

void CInPlaceEdit::OnKillFocus(CWnd*) { finish(true); }

void CInPlaceEdit::PostNcDestroy() { delete this; }
