// Boundary loops of hatches: their pieces, chords, area, and the pattern lines between them.
#pragma once

#include "AcDbEntities.h"
#include "CurveMath.h"

#include <functional>

using DbRing = std::vector<AcGePoint2d>; // closed by itself
using DbRings = std::vector<DbRing>;

// An edge that is an arc, as a counter-clockwise curve in the plane.
struct DbHatchArc {
    DbEllipse curve;
    bool backwards = false; // the loop walks it from its end
    AcGePoint3d from() const { return curve.at(backwards ? curve.end : curve.start); }
    AcGePoint3d to() const { return curve.at(backwards ? curve.start : curve.end); }
};
DbHatchArc dbHatchArc(const AcDbHatch::Edge& edge);
AcDbHatch::Edge dbHatchEdge(const DbHatchArc& arc, AcDbHatch::Edge::Kind kind);
DbHatchArc dbBulgedArc(const AcGePoint2d& from, const AcGePoint2d& to, double bulge);
std::vector<AcGePoint3d> dbSampleEdge(const AcDbHatch::Edge& spline, double deviation);

// What walks along a loop. Points are in the plane, z zero.
class DbLoopVisitor {
public:
    virtual ~DbLoopVisitor() = default;
    virtual void line(const AcGePoint2d& from, const AcGePoint2d& to) = 0;
    virtual void arc(const DbHatchArc& arc) = 0;
    virtual void spline(const AcDbHatch::Edge& edge) = 0;
};
void dbWalkLoop(const AcDbHatch::Loop& loop, DbLoopVisitor& visitor);

// Loops as chords within the deviation; 0 takes 1/1000 of the hatch's size.
double dbHatchDeviation(const std::vector<AcDbHatch::Loop>& loops);
DbRings dbFlattenLoops(const std::vector<AcDbHatch::Loop>& loops, double deviation);
AcDbExtents dbRingsBox(const DbRings& rings);

// Area by the even-odd rule. Lines, arcs and elliptic arcs count exactly while no loop crosses itself or
// another one; where they do, the chords are measured.
double dbHatchArea(const std::vector<AcDbHatch::Loop>& loops);
// The even-odd area of rings that may cross.
double dbEvenOddArea(const DbRings& rings);
bool dbRingsCross(const DbRings& rings);

// Calls `dash` for each dash of the pattern between the rings; a dot has two equal ends. False, with nothing
// called, when there would be more than anybody could tell apart.
using DbDashVisitor = std::function<void(const AcGePoint2d&, const AcGePoint2d&)>;
bool dbForEachDash(const DbRings& rings, const std::vector<AcDbHatch::PatternLine>& lines, const DbDashVisitor& dash);
