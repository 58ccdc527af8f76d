// ELLIPSE: Open Design description of DWG, chapter "ELLIPSE (35)". All in world coordinates.
#include "DwgClassRow.h"

template <> struct DbObjectAccess::DwgFields<AcDbEllipse> {
    template <class Stream> static void file(Stream& s, AcDbEllipse& ellipse) {
        s.BD3(ellipse.mCenter);
        s.BD3(ellipse.mMajorAxis);
        s.BD3(ellipse.mNormal);
        s.BD(ellipse.mRatio);
        s.BD(ellipse.mStartParam);
        s.BD(ellipse.mEndParam);
    }
};
extern const DwgClassRow kDwgEllipse = dwgClassRow<AcDbEllipse>(0x23);
