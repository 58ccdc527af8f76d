#include "CInPlaceDropDown.h"

#include "CListCtrl.h"
#include "InPlaceNotify.h"
#include "Resource.h"

BEGIN_MESSAGE_MAP(CInPlaceDropDown, CComboBox)
    ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

CInPlaceDropDown::CInPlaceDropDown(int row, int column, LPCTSTR text, LPCTSTR valueList)
    : mRow(row), mColumn(column), mText(text), mValueList(valueList) {}

BOOL CInPlaceDropDown::open(const CRect& cell, CListCtrl& list) {
    const DWORD kind = mValueList.IsEmpty() ? CBS_DROPDOWN : CBS_DROPDOWNLIST;
    if (!Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL | kind, cell, &list, IDC_IN_PLACE))
        return FALSE;
    addValues();
    BringWindowToTop();
    SetFocus();
    return TRUE;
}

void CInPlaceDropDown::addValues() {
    int start = 0;
    for (CString value = mValueList.Tokenize(L";", start); start != -1; value = mValueList.Tokenize(L";", start)) {
        const int index = AddString(value);
        // FindStringExact knows no upper and lower case, but values may differ in nothing else.
        if (value == mText)
            SetCurSel(index);
    }
    if (mValueList.IsEmpty())
        SetWindowText(mText);
}

CString CInPlaceDropDown::chosenText() const {
    CString text;
    if (mValueList.IsEmpty()) {
        GetWindowText(text);
        return text;
    }
    const int index = GetCurSel();
    // A stored value that is none of the choices is kept until the user takes one of them.
    if (index == CB_ERR)
        return mText;
    GetLBText(index, text);
    return text;
}

void CInPlaceDropDown::finish(bool keep) {
    if (mEnded)
        return;
    mEnded = true;
    const CString text = chosenText();
    notifyCellEdited(*this, mRow, mColumn, keep ? &text : nullptr);
    DestroyWindow();
}

BOOL CInPlaceDropDown::PreTranslateMessage(MSG* message) {
    if (message->message != WM_KEYDOWN || (message->wParam != VK_RETURN && message->wParam != VK_ESCAPE))
        return CComboBox::PreTranslateMessage(message);
    finish(message->wParam == VK_RETURN);
    return TRUE;
}

void CInPlaceDropDown::OnKillFocus(CWnd*) {
    // The opened list of choices takes the focus while the user looks through it.
    if (!GetDroppedState())
        finish(true);
}

void CInPlaceDropDown::PostNcDestroy() { delete this; }
