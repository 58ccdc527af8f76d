#include "CFont.h"

BOOL CFont::CreatePointFont(int tenths, LPCTSTR family) {
    if (tenths <= 0)
        return FALSE;
    mTenths = tenths;
    mFamily = family;
    mBold = false;
    return TRUE;
}

BOOL CFont::CreatePointFontBold(int tenths, LPCTSTR family) {
    const BOOL made = CreatePointFont(tenths, family);
    mBold = made != FALSE;
    return made;
}
