// A background, as OnCtlColor gives it to a control.
#pragma once

#include "WinTypes.h"

class CBrush {
public:
    CBrush() = default; // transparent
    explicit CBrush(COLORREF color) : mColor(color), mTransparent(false) {}
    BOOL CreateSolidBrush(COLORREF color) { mColor = color; mTransparent = false; return TRUE; }
    COLORREF color() const { return mColor; }
    bool isTransparent() const { return mTransparent; }

private:
    COLORREF mColor = 0;
    bool mTransparent = true;
};
constexpr UINT CTLCOLOR_MSGBOX = 0, CTLCOLOR_EDIT = 1, CTLCOLOR_LISTBOX = 2, CTLCOLOR_BTN = 3, CTLCOLOR_DLG = 4, CTLCOLOR_STATIC = 6;
