// A field of text, of one line or (ES_MULTILINE) several.
#pragma once

#include "CWnd.h"

class CEdit : public CWnd {
public:
    BOOL Create(DWORD style, const CRect& rect, CWnd* parent, UINT id);
    void SetSel(int start, int end); // 0, -1 is everything; -1, 0 is nothing
    void GetSel(int& start, int& end) const;
    void ReplaceSel(LPCTSTR text);
    void SetReadOnly(BOOL readOnly = TRUE);
    void SetLimitText(UINT characters);
    int GetLineCount() const;
    BOOL GetModify() const; // changed by the user since the last SetWindowText or SetModify
    void SetModify(BOOL modified = TRUE);

    DECLARE_MESSAGE_MAP()
};
