// MTEXT: Open Design description of DWG, chapter "MTEXT (44)", R2000 form. World coordinates.
#include "DwgClassRow.h"

template <> struct DbObjectAccess::DwgFields<AcDbMText> {
    template <class Stream> static void file(Stream& s, AcDbMText& text) {
        s.BD3(text.mLocation);
        s.BD3(text.mNormal);
        s.BD3(text.mDirection);
        s.BD(text.mWidth);
        s.BD(text.mTextHeight);
        s.BS(text.mAttachment);
        s.BS(text.mDrawingDirection);
        s.BD(text.mExtentsHeight);
        s.BD(text.mExtentsWidth);
        s.TV(text.mContents);
        s.BS(text.mSpacingStyle);
        s.BD(text.mLineSpacing);
        bool unknown = false; // 0 in every drawing seen
        s.B(unknown);
        s.style(text.mStyle);
    }
};
extern const DwgClassRow kDwgMText = dwgClassRow<AcDbMText>(0x2C);
