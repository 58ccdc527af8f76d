// Polylines in their plane: the vertices with which light and heavy polylines draw, snap, measure and
// explode alike.
#pragma once

#include "AcDbEntities.h"
#include "CurveMath.h"
#include "OsnapMath.h"

// A polyline as it is seen; widths resolved.
struct DbPolylineShape {
    const std::vector<AcDbPolyline::Vertex>& vertices;
    bool closed = false;
    double constantWidth = 0.0; // over all segments when above zero
    double elevation = 0.0;
    AcGeVector3d normal;

    std::size_t segmentCount() const {
        const std::size_t n = vertices.size();
        return n < 2 ? 0 : closed ? n : n - 1;
    }
    const AcDbPolyline::Vertex& vertex(std::size_t i) const { return vertices[i % vertices.size()]; }
    bool isStraight(std::size_t i) const {
        return dbIsStraight(vertex(i).point, vertex(i + 1).point, vertex(i).bulge);
    }
    double startWidth(std::size_t i) const { return constantWidth > 0.0 ? constantWidth : vertex(i).startWidth; }
    double endWidth(std::size_t i) const { return constantWidth > 0.0 ? constantWidth : vertex(i).endWidth; }
    bool hasWidth() const;
    bool hasBulges() const;
};

// Draws the polyline; false when the drawing was broken off.
bool dbDrawPolyline(const DbPolylineShape& shape, AcGiWorldDraw& worldDraw);
// The bands of a polyline with widths.
bool dbDrawBands(const DbPolylineShape& shape, AcGiWorldDraw& worldDraw);
// Segment i as the arc it is, counter-clockwise about the normal.
DbEllipse dbSegmentArc(const DbPolylineShape& shape, const DbPlane& plane, std::size_t i);
void dbSnapPolyline(const DbSnap& snap, const DbPolylineShape& shape);
// Lines and arcs with the properties of `source`, without widths.
void dbExplodePolyline(const DbPolylineShape& shape, const AcDbEntity& source, AcDbVoidPtrArray& entities);
// Area inside the polyline, closed by a line where it is open; a segment's arc counts exactly.
double dbPolylineArea(const DbPolylineShape& shape);
double dbPolylineLength(const DbPolylineShape& shape);
