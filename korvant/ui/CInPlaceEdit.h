// The field that opens over a cell of CListCtrlEd. It ends with Enter, Escape or when it loses the
// focus, tells the list with LVN_ENDLABELEDIT and then deletes itself.
#pragma once

#include "CEdit.h"

class CListCtrl;

class CInPlaceEdit : public CEdit {
public:
    // Made with new; belongs to nobody once open() has succeeded.
    CInPlaceEdit(int row, int column, LPCTSTR text);
    BOOL open(const CRect& cell, CListCtrl& list);
    // keep: tell the new text; otherwise tell that the edit was given up.
    void finish(bool keep);
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    void OnKillFocus(CWnd* newFocus);
    void PostNcDestroy() override;
    DECLARE_MESSAGE_MAP()

private:
    int mRow, mColumn;
    CString mText;
    bool mEnded = false;
};
