// A font for a control; copied by SetFont.
#pragma once

#include "CString.h"

class CFont {
public:
    // height: tenths of a point. A family that the machine lacks is replaced.
    BOOL CreatePointFont(int tenths, LPCTSTR family);
    BOOL CreatePointFontBold(int tenths, LPCTSTR family);
    int pointTenths() const { return mTenths; }
    const CString& family() const { return mFamily; }
    bool isBold() const { return mBold; }
    void DeleteObject() { mTenths = 0; }

private:
    CString mFamily;
    int mTenths = 0;
    bool mBold = false;
};
