// SOLID: Open Design description of DWG, chapter "SOLID (31)". The corners share one elevation.
#include "DwgClassRow.h"
#include "DwgPlane.h"

template <> struct DbObjectAccess::DwgFields<AcDbSolid> {
    template <class Stream> static void file(Stream& s, AcDbSolid& solid) {
        s.BT(solid.mThickness);
        AcGePoint3d corners[4];
        for (int i = 0; i < 4; ++i)
            corners[i] = dwgToPlane(solid.mPoints[i], solid.mNormal);
        double elevation = corners[0].z;
        s.BD(elevation);
        for (AcGePoint3d& corner : corners) {
            AcGePoint2d flat(corner.x, corner.y);
            s.RD2(flat);
            corner.set(flat.x, flat.y, elevation);
        }
        s.BE(solid.mNormal);
        if constexpr (Stream::kReading)
            for (int i = 0; i < 4; ++i)
                solid.mPoints[i] = dwgToWorld(corners[i], solid.mNormal);
    }
};
extern const DwgClassRow kDwgSolid = dwgClassRow<AcDbSolid>(0x1F);
