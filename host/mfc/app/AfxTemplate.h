// Templates of the windows that the host makes itself.
#pragma once

#include "AfxMessages.h"
#include "resource/RcScript.h"

inline RcControl afxItem(const wchar_t* className, const std::wstring& text, int id, DWORD style, int x, int y, int w, int h) {
    RcControl control;
    control.className = className;
    control.text = text;
    control.id = id;
    control.style = WS_CHILD | WS_VISIBLE | style;
    control.x = x;
    control.y = y;
    control.w = w;
    control.h = h;
    return control;
}
inline RcDialog afxWindow(const std::wstring& caption, DWORD style, int w, int h) {
    RcDialog dialog;
    dialog.caption = caption;
    dialog.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | style;
    dialog.w = w;
    dialog.h = h;
    return dialog;
}
