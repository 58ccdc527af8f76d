// Points of flat entities stand in the coordinate system of their normal in files, in world
// coordinates in objects.
#pragma once

#include "AcGe.h"

inline bool dwgIsFlatNormal(const AcGeVector3d& normal) {
    return normal.x == 0.0 && normal.y == 0.0 && normal.z > 0.0;
}
inline AcGePoint3d dwgToPlane(const AcGePoint3d& world, const AcGeVector3d& normal) {
    return dwgIsFlatNormal(normal) ? world : AcGeMatrix3d::worldToPlane(normal) * world;
}
inline AcGePoint3d dwgToWorld(const AcGePoint3d& plane, const AcGeVector3d& normal) {
    return dwgIsFlatNormal(normal) ? plane : AcGeMatrix3d::planeToWorld(normal) * plane;
}
