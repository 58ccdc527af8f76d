// The drop-down that opens over a cell of CListCtrlEd whose value is chosen from a list. It ends
// like CInPlaceEdit: Enter, Escape or loss of the focus, LVN_ENDLABELEDIT, its own deletion.
#pragma once

#include "CComboBox.h"

class CListCtrl;

class CInPlaceDropDown : public CComboBox {
public:
    // valueList: the choices joined by ";"; with none of them any text may be typed.
    CInPlaceDropDown(int row, int column, LPCTSTR text, LPCTSTR valueList);
    BOOL open(const CRect& cell, CListCtrl& list);
    // keep: tell the chosen text; where nothing was chosen, the text stays what it was.
    void finish(bool keep);
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    void OnKillFocus(CWnd* newFocus);
    void PostNcDestroy() override;
    DECLARE_MESSAGE_MAP()

private:
    void addValues();
    CString chosenText() const;
    int mRow, mColumn;
    CString mText, mValueList;
    bool mEnded = false;
};
