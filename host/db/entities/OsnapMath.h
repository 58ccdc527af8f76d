// Object snap points of lines and arcs, from which the entities put theirs together.
#pragma once

#include "AcDbEntity.h"
#include "CurveMath.h"

struct DbSnap {
    AcDb::OsnapMode mode;
    const AcGePoint3d& pick;
    const AcGePoint3d& last; // the point from which perpendiculars and tangents come
    AcGePoint3dArray& points;
};
void dbSnapLine(const DbSnap& snap, const AcGePoint3d& from, const AcGePoint3d& to);
// Circles, arcs and elliptic arcs. Ends and middle only where the curve is open.
void dbSnapEllipse(const DbSnap& snap, const DbEllipse& curve);
// A point that is an insertion point or a node.
void dbSnapPoint(const DbSnap& snap, AcDb::OsnapMode kind, const AcGePoint3d& point);
// Of the candidates appended since `first`, keeps the one nearest to the pick point: near and
// perpendicular points of a chain are those of one of its parts.
void dbKeepNearest(const DbSnap& snap, int first);
