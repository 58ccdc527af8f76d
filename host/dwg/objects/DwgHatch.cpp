// HATCH: Open Design description of DWG, chapter "HATCH", R2000 form.
#include "DwgClassRow.h"

template <> struct DbObjectAccess::DwgFields<AcDbHatch> {
    using Loop = AcDbHatch::Loop;
    using Edge = AcDbHatch::Edge;
    static constexpr std::size_t kLeastLoopBits = 6, kLeastEdgeBits = 16, kPointBits = 128;

    template <class Stream> static void file(Stream& s, AcDbHatch& hatch) {
        s.BD(hatch.mElevation);
        s.BD3(hatch.mNormal);
        s.TV(hatch.mPatternName);
        s.B(hatch.mSolid);
        s.B(hatch.mAssociative);
        auto loops = static_cast<Adesk::Int32>(hatch.mLoops.size());
        s.BL(loops);
        s.sized(hatch.mLoops, loops, kLeastLoopBits);
        bool derived = false;
        for (Loop& l : hatch.mLoops) {
            loop(s, l);
            derived = derived || (l.type & AcDbHatch::kDerived) != 0;
        }
        s.BS(hatch.mStyle);
        s.BS(hatch.mPatternType);
        if (!hatch.mSolid)
            pattern(s, hatch);
        if (derived)
            s.BD(hatch.mPixelSize);
        auto seeds = static_cast<Adesk::Int32>(hatch.mSeeds.size());
        s.BL(seeds);
        s.sized(hatch.mSeeds, seeds, kPointBits);
        for (AcGePoint2d& seed : hatch.mSeeds)
            s.RD2(seed);
        for (Loop& l : hatch.mLoops)
            for (AcDbObjectId& source : l.associated)
                s.H(4, source);
    }

    template <class Stream> static void loop(Stream& s, Loop& loop) {
        s.BL(loop.type);
        if ((loop.type & AcDbHatch::kPolyline) != 0) {
            polylineLoop(s, loop);
        } else {
            auto edges = static_cast<Adesk::Int32>(loop.edges.size());
            s.BL(edges);
            s.sized(loop.edges, edges, kLeastEdgeBits);
            for (Edge& e : loop.edges)
                edge(s, e);
        }
        auto sources = static_cast<Adesk::Int32>(loop.associated.length());
        s.BL(sources);
        if constexpr (Stream::kReading)
            loop.associated.setLogicalLength(static_cast<int>(s.handles().count(sources, 8)));
    }

    template <class Stream> static void polylineLoop(Stream& s, Loop& loop) {
        s.B(loop.hasBulges);
        s.B(loop.closed);
        auto points = static_cast<Adesk::Int32>(loop.vertices.size());
        s.BL(points);
        s.sized(loop.vertices, points, kPointBits);
        if (loop.hasBulges)
            loop.bulges.resize(loop.vertices.size());
        for (std::size_t i = 0; i < loop.vertices.size(); ++i) {
            s.RD2(loop.vertices[i]);
            if (loop.hasBulges)
                s.BD(loop.bulges[i]);
        }
    }

    template <class Stream> static void edge(Stream& s, Edge& edge) {
        s.enumRC(edge.kind, Edge::kSpline);
        switch (edge.kind) {
        case Edge::kLine:
            s.RD2(edge.start);
            s.RD2(edge.end);
            return;
        case Edge::kCircArc:
            s.RD2(edge.center);
            s.BD(edge.radius);
            s.BD(edge.startAngle);
            s.BD(edge.endAngle);
            s.B(edge.counterClockwise);
            return;
        case Edge::kEllArc:
            s.RD2(edge.center);
            s.RD2(edge.majorAxis); // the end of the long axis, seen from the centre
            s.BD(edge.ratio);
            s.BD(edge.startAngle);
            s.BD(edge.endAngle);
            s.B(edge.counterClockwise);
            return;
        case Edge::kSpline:
            splineEdge(s, edge);
            return;
        }
        if constexpr (Stream::kReading)
            s.fail(); // no kind of edge
    }

    template <class Stream> static void splineEdge(Stream& s, Edge& edge) {
        s.BL(edge.degree);
        s.B(edge.rational);
        s.B(edge.periodic);
        auto knots = static_cast<Adesk::Int32>(edge.knots.size());
        auto points = static_cast<Adesk::Int32>(edge.control.size());
        s.BL(knots);
        s.BL(points);
        s.sized(edge.knots, knots, 2);
        s.sized(edge.control, points, kPointBits);
        if (edge.rational)
            edge.weights.resize(edge.control.size());
        for (double& knot : edge.knots)
            s.BD(knot);
        for (std::size_t i = 0; i < edge.control.size(); ++i) {
            s.RD2(edge.control[i]);
            if (edge.rational)
                s.BD(edge.weights[i]);
        }
    }

    template <class Stream> static void pattern(Stream& s, AcDbHatch& hatch) {
        s.BD(hatch.mPatternAngle);
        s.BD(hatch.mPatternScale);
        s.B(hatch.mDouble);
        auto lines = static_cast<Adesk::Int32>(hatch.mPatternLines.size());
        s.BS(lines);
        s.sized(hatch.mPatternLines, lines, 12);
        for (AcDbHatch::PatternLine& line : hatch.mPatternLines) {
            s.BD(line.angle);
            s.BD2(line.base);
            s.BD2(line.offset);
            auto dashes = static_cast<Adesk::Int32>(line.dashes.size());
            s.BS(dashes);
            s.sized(line.dashes, dashes, 2);
            for (double& dash : line.dashes)
                s.BD(dash);
        }
    }
};
extern const DwgClassRow kDwgHatch = dwgClassRow<AcDbHatch>(0x4E);
