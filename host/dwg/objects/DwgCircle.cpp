// CIRCLE: Open Design description of DWG, chapter "CIRCLE (18)".
#include "DwgClassRow.h"
#include "DwgPlane.h"

template <> struct DbObjectAccess::DwgFields<AcDbCircle> {
    template <class Stream> static void file(Stream& s, AcDbCircle& circle) {
        AcGePoint3d center = dwgToPlane(circle.mCenter, circle.mNormal);
        s.BD3(center);
        s.BD(circle.mRadius);
        s.BT(circle.mThickness);
        s.BE(circle.mNormal);
        if constexpr (Stream::kReading)
            circle.mCenter = dwgToWorld(center, circle.mNormal);
    }
};
extern const DwgClassRow kDwgCircle = dwgClassRow<AcDbCircle>(0x12);
