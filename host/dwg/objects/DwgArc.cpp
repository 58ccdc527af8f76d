// ARC: Open Design description of DWG, chapter "ARC (17)".
#include "DwgClassRow.h"
#include "DwgPlane.h"

template <> struct DbObjectAccess::DwgFields<AcDbArc> {
    template <class Stream> static void file(Stream& s, AcDbArc& arc) {
        AcGePoint3d center = dwgToPlane(arc.mCenter, arc.mNormal);
        s.BD3(center);
        s.BD(arc.mRadius);
        s.BT(arc.mThickness);
        s.BE(arc.mNormal);
        s.BD(arc.mStartAngle);
        s.BD(arc.mEndAngle);
        if constexpr (Stream::kReading)
            arc.mCenter = dwgToWorld(center, arc.mNormal);
    }
};
extern const DwgClassRow kDwgArc = dwgClassRow<AcDbArc>(0x11);
