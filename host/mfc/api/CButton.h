// A push button, check box, option button or group box.
#pragma once

#include "CWnd.h"

class CBitmap;

constexpr int BST_UNCHECKED = 0, BST_CHECKED = 1;

class CButton : public CWnd {
public:
    BOOL Create(LPCTSTR text, DWORD style, const CRect& rect, CWnd* parent, UINT id);
    int GetCheck() const;
    void SetCheck(int check); // sends no notification
    void SetBitmap(const CBitmap* bitmap);

    DECLARE_MESSAGE_MAP()
};
