// POLYLINE_2D, POLYLINE_3D and their vertices: Open Design description of DWG, chapters "POLYLINE (2D)
// (15)", "POLYLINE (3D) (16)", "VERTEX (2D) (10)", "VERTEX (3D) (11)", R2000 form.
#include "DwgClassRow.h"

namespace {
// First and last vertex and the end marker; see DwgInsert on the links between.
template <class Stream> void vertexLinks(Stream& s, AcDbObjectIdArray& vertices, AcDbObjectId& end) {
    AcDbObjectId first, last;
    if constexpr (!Stream::kReading)
        if (const std::vector<AcDbObjectId> live = dwgLiveIds(vertices); !live.empty()) {
            first = live.front();
            last = live.back();
        }
    s.H(4, first);
    s.H(4, last);
    s.H(3, end);
    if constexpr (Stream::kReading) {
        vertices.removeAll();
        vertices.append(first);
        vertices.append(last);
    }
}
} // namespace

template <> struct DbObjectAccess::DwgFields<AcDb2dPolyline> {
    template <class Stream> static void file(Stream& s, AcDb2dPolyline& line) {
        s.BS(line.mFlags);
        s.BS(line.mCurveType);
        s.BD(line.mStartWidth);
        s.BD(line.mEndWidth);
        s.BT(line.mThickness);
        s.BD(line.mElevation);
        s.BE(line.mNormal);
        vertexLinks(s, line.mVertices, line.mSequenceEnd);
    }
};
extern const DwgClassRow kDwg2dPolyline = dwgClassRow<AcDb2dPolyline>(0x0F);

template <> struct DbObjectAccess::DwgFields<AcDb3dPolyline> {
    template <class Stream> static void file(Stream& s, AcDb3dPolyline& line) {
        s.RC(line.mCurveFlags);
        s.RC(line.mFlags);
        vertexLinks(s, line.mVertices, line.mSequenceEnd);
    }
};
extern const DwgClassRow kDwg3dPolyline = dwgClassRow<AcDb3dPolyline>(0x10);

template <> struct DbObjectAccess::DwgFields<AcDb2dVertex> {
    template <class Stream> static void file(Stream& s, AcDb2dVertex& vertex) {
        int flags = vertex.flags();
        AcGePoint3d place = vertex.position();
        double start = vertex.startWidth(), end = vertex.endWidth(), bulge = vertex.bulge(), tangent = vertex.tangent();
        if (start == end && start > 0.0)
            start = -start; // a negative start width stands for both widths
        s.RC(flags);
        s.BD3(place);
        s.BD(start);
        if (start < 0.0)
            start = end = -start;
        else
            s.BD(end);
        s.BD(bulge);
        s.BD(tangent);
        if constexpr (Stream::kReading) {
            vertex.setFlags(flags);
            vertex.setPosition(place);
            vertex.setStartWidth(start);
            vertex.setEndWidth(end);
            vertex.setBulge(bulge);
            vertex.setTangent(tangent);
        }
    }
};
extern const DwgClassRow kDwg2dVertex = dwgClassRow<AcDb2dVertex>(0x0A);

template <> struct DbObjectAccess::DwgFields<AcDb3dPolylineVertex> {
    template <class Stream> static void file(Stream& s, AcDb3dPolylineVertex& vertex) {
        int flags = vertex.flags();
        AcGePoint3d place = vertex.position();
        s.RC(flags);
        s.BD3(place);
        if constexpr (Stream::kReading) {
            vertex.setFlags(flags);
            vertex.setPosition(place);
        }
    }
};
extern const DwgClassRow kDwg3dVertex = dwgClassRow<AcDb3dPolylineVertex>(0x0B);
