// Finds entities by their pictures: near a point, within a window, crossing it.
#pragma once

#include "AcDbDatabase.h"

// Entities of the current space that are shown and whose picture passes the pick box at the point, the
// nearest first; of equals the one drawn last first.
AcDbObjectIdArray edPickAll(const AcGePoint3d& at);
AcDbObjectId edPickOne(const AcGePoint3d& at); // null when there is none
// Entities whose whole picture lies in the window, or, crossing, any part of it.
AcDbObjectIdArray edPickWindow(const AcGePoint3d& a, const AcGePoint3d& b, bool crossing);
// Every entity of the current space; shown ones alone, or all.
AcDbObjectIdArray edAllEntities(bool shownOnly = false);
