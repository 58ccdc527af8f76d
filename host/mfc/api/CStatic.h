// A label, a picture or an empty place for something drawn.
#pragma once

#include "CWnd.h"

class CBitmap;

class CStatic : public CWnd {
public:
    BOOL Create(LPCTSTR text, DWORD style, const CRect& rect, CWnd* parent, UINT id = 0xFFFF);
    void SetBitmap(const CBitmap* bitmap); // copied; null shows the text again

    DECLARE_MESSAGE_MAP()
};
