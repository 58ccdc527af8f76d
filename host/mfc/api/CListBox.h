// A plain list of texts, one selected.
#pragma once

#include "CWnd.h"

constexpr int LB_ERR = -1;

class CListBox : public CWnd {
public:
    BOOL Create(DWORD style, const CRect& rect, CWnd* parent, UINT id);
    int AddString(LPCTSTR text);
    int DeleteString(UINT index);
    void ResetContent();
    int GetCount() const;
    int GetCurSel() const;
    int SetCurSel(int index);
    int GetText(int index, CString& text) const;
    int SetItemData(int index, DWORD_PTR data);
    DWORD_PTR GetItemData(int index) const;

    DECLARE_MESSAGE_MAP()
};
