// POINT: Open Design description of DWG, chapter "POINT (27)".
#include "DwgClassRow.h"

template <> struct DbObjectAccess::DwgFields<AcDbPoint> {
    template <class Stream> static void file(Stream& s, AcDbPoint& point) {
        s.BD3(point.mPosition);
        s.BT(point.mThickness);
        s.BE(point.mNormal);
        s.BD(point.mEcsRotation);
    }
};
extern const DwgClassRow kDwgPoint = dwgClassRow<AcDbPoint>(0x1B);
