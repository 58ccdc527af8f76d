// A drop-down list, with a field of text where the style is CBS_DROPDOWN.
#pragma once

#include "CWnd.h"

constexpr int CB_ERR = -1;

class CComboBox : public CWnd {
public:
    BOOL Create(DWORD style, const CRect& rect, CWnd* parent, UINT id);
    int AddString(LPCTSTR text); // the new index
    int InsertString(int index, LPCTSTR text);
    int DeleteString(UINT index);
    void ResetContent();
    int GetCount() const;
    int GetCurSel() const;    // CB_ERR where nothing is selected
    int SetCurSel(int index); // -1 clears; sends no notification
    int GetLBText(int index, CString& text) const;
    int GetLBTextLen(int index) const;
    int FindString(int after, LPCTSTR prefix) const;
    int FindStringExact(int after, LPCTSTR text) const; // without regard to case
    int SelectString(int after, LPCTSTR prefix);
    int SetItemData(int index, DWORD_PTR data);
    DWORD_PTR GetItemData(int index) const;
    // A coloured square before the entry's text, for colour lists.
    void setItemSwatch(int index, COLORREF color);
    void ShowDropDown(BOOL show = TRUE);
    BOOL GetDroppedState() const;

    DECLARE_MESSAGE_MAP()
};
