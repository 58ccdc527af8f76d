// A row of tabs over a framed area; what the area shows is the parent's business.
#pragma once

#include "CWnd.h"

class CTabCtrl : public CWnd {
public:
    BOOL Create(DWORD style, const CRect& rect, CWnd* parent, UINT id);
    int InsertItem(int index, LPCTSTR text);
    BOOL DeleteItem(int index);
    BOOL DeleteAllItems();
    int GetItemCount() const;
    CString itemText(int index) const;
    int GetCurSel() const;
    int SetCurSel(int index); // the earlier one; sends no notification
    // larger FALSE: from the control's rectangle to the area that a page may fill; TRUE: back.
    void AdjustRect(BOOL larger, CRect* rect) const;

    DECLARE_MESSAGE_MAP()
};
