// Walks a display list through its instances and hands flat primitives to a sink.
#include "GiCurve.h"
#include "GiCurveSink.h"
#include "GiStyleCache.h"
#include "text/GiTextLayout.h"

#include <algorithm>

namespace {
bool apart(const AcDbExtents& a, const AcDbExtents& b) {
    const AcGePoint3d aLow = a.minPoint(), aHigh = a.maxPoint(), bLow = b.minPoint(), bHigh = b.maxPoint();
    return aHigh.x < bLow.x || bHigh.x < aLow.x || aHigh.y < bLow.y || bHigh.y < aLow.y;
}

class Flattener {
public:
    Flattener(const GiStyleResolver& resolver, double deviation, GiPainterSink& sink, GiCurveSink* curveSink, const AcDbExtents* window)
        : mStyles(resolver), mDeviation(deviation), mSink(sink), mCurveSink(curveSink),
          mWindow(window != nullptr && window->isValid() ? window : nullptr) {}

    struct Place {
        const AcGeMatrix3d& transform;
        const GiInherited& inherited;
        AcDbObjectId owner; // null at the top level, where each primitive names its own
    };
    void walk(const GiDisplayList& list, const Place& place) {
        for (const GiPrimitive& primitive : list.primitives)
            std::visit([&](const auto& shape) { draw(shape, primitive, place); }, primitive.shape);
    }

private:
    const GiStyle* styleOf(const GiPrimitive& primitive, const Place& place) {
        return mStyles.style(primitive.traits, place.inherited, ownerOf(primitive, place));
    }
    static AcDbObjectId ownerOf(const GiPrimitive& primitive, const Place& place) {
        return place.owner.isNull() ? primitive.owner : place.owner;
    }
    template <class Points> const std::vector<AcGePoint3d>& placed(const Points& points, const Place& place) {
        mPoints.clear();
        for (const AcGePoint3d& p : points)
            mPoints.push_back(place.transform * p);
        return mPoints;
    }
    bool outside(const std::vector<AcGePoint3d>& points) const {
        if (mWindow == nullptr)
            return false;
        AcDbExtents box;
        for (const AcGePoint3d& p : points)
            box.addPoint(p);
        return apart(box, *mWindow);
    }
    void stroke(const std::vector<AcGePoint3d>& points, bool closed, const GiStyle& style) {
        if (!outside(points))
            mSink.stroke(points, closed, style);
    }
    // Fills the outline, or strokes it closed, as the fill type says.
    void area(const std::vector<AcGePoint3d>& ring, const GiPrimitive& primitive, const GiStyle& style) {
        if (primitive.traits.fill == kAcGiFillNever)
            return stroke(ring, true, style);
        if (ring.size() < 3 || outside(ring))
            return;
        mLoops.assign(1, ring);
        mSink.fill(mLoops, style);
    }

    void draw(const GiPolyline& shape, const GiPrimitive& primitive, const Place& place) {
        if (const GiStyle* style = styleOf(primitive, place))
            stroke(placed(shape.points, place), false, *style);
    }
    void draw(const GiPolygon& shape, const GiPrimitive& primitive, const Place& place) {
        if (const GiStyle* style = styleOf(primitive, place))
            area(placed(shape.points, place), primitive, *style);
    }
    void draw(const GiArc& shape, const GiPrimitive& primitive, const Place& place) {
        const GiStyle* style = styleOf(primitive, place);
        if (style == nullptr)
            return;
        mPoints.clear();
        const GiArc arc = giTransformed(shape, place.transform);
        giAppendArcChords(arc, mDeviation, mPoints);
        if (mCurveSink != nullptr)
            curve(arc, primitive, *style);
        else if (giArcIsClosed(shape))
            area(mPoints, primitive, *style);
        else
            stroke(mPoints, false, *style);
    }
    // mPoints are the arc's chords.
    void curve(const GiArc& arc, const GiPrimitive& primitive, const GiStyle& style) {
        const std::size_t count = mPoints.size() - (giArcEndsInItsCenter(arc) ? 1 : 0);
        mArcs.assign(1, {0, 0, arc.isFullTurn() ? count : count - 1, arc.center, arc.major, arc.minor, arc.start, arc.end});
        if (outside(mPoints))
            return;
        const bool closed = giArcIsClosed(arc);
        if (!closed || primitive.traits.fill == kAcGiFillNever)
            return mCurveSink->strokeCurved(mPoints, closed, mArcs, style);
        mLoops.assign(1, mPoints);
        mCurveSink->fillCurved(mLoops, mArcs, style);
    }
    void draw(const GiFill& shape, const GiPrimitive& primitive, const Place& place) {
        const GiStyle* style = styleOf(primitive, place);
        if (style == nullptr)
            return;
        mLoops = shape.loops;
        bool anyInside = mWindow == nullptr;
        for (auto& loop : mLoops) {
            for (AcGePoint3d& p : loop)
                p = place.transform * p;
            anyInside = anyInside || !outside(loop);
        }
        if (anyInside)
            mSink.fill(mLoops, *style);
    }
    // A glyph at a time: letters that touch must not punch holes into each other.
    void draw(const GiText& shape, const GiPrimitive& primitive, const Place& place) {
        const GiStyle* style = styleOf(primitive, place);
        if (style == nullptr || isFarOff(shape, place))
            return;
        GiStyle letters = *style;
        letters.isText = true;
        for (const GiPlacedGlyph& glyph : giLayText(shape, place.transform).glyphs) {
            mLoops.clear();
            giFlattenGlyph(glyph, mDeviation, mLoops);
            if (!mLoops.empty() && !outside(mLoops.front()))
                mSink.fill(mLoops, letters);
        }
    }
    // A rough test that spares setting the text: no letter is farther from the start than this.
    bool isFarOff(const GiText& text, const Place& place) const {
        if (mWindow == nullptr)
            return false;
        constexpr double kWidestLetter = 8.0; // heights; slant and overhang included
        const AcGiTextStyle& style = text.style();
        const double stretch = std::max(1.0, std::abs(style.widthFactor)) + std::abs(std::tan(style.obliqueAngle));
        const AcGeVector3d x = place.transform * text.xAxis, y = place.transform * text.yAxis;
        const double reach = kWidestLetter * static_cast<double>(text.text().size() + 1) * style.height * stretch * (x.length() + y.length());
        const AcGePoint3d at = place.transform * text.position;
        const AcGeVector3d away(reach, reach, reach);
        return apart(AcDbExtents(at - away, at + away), *mWindow);
    }
    void draw(const GiInstance& shape, const GiPrimitive& primitive, const Place& place) {
        if (mStyles.hidesAll(primitive.traits, place.inherited))
            return;
        const AcGeMatrix3d inner = place.transform * shape.transform();
        if (mWindow != nullptr && isOutside(*shape.picture, inner))
            return;
        const GiInherited inherited = mStyles.handDown(primitive.traits, place.inherited);
        walk(*shape.picture, {inner, inherited, ownerOf(primitive, place)});
    }
    bool isOutside(const GiDisplayList& picture, const AcGeMatrix3d& transform) {
        auto found = mBoxes.find(&picture);
        if (found == mBoxes.end())
            found = mBoxes.emplace(&picture, giExtentsOf(picture)).first;
        AcDbExtents box = found->second;
        if (!box.isValid())
            return true;
        box.transformBy(transform);
        return apart(box, *mWindow);
    }

    GiStyleCache mStyles;
    double mDeviation;
    GiPainterSink& mSink;
    GiCurveSink* mCurveSink; // the same sink, where it draws curves
    const AcDbExtents* mWindow;
    std::unordered_map<const GiDisplayList*, AcDbExtents> mBoxes;
    std::vector<AcGePoint3d> mPoints; // kept between primitives to spare allocations
    AcGiFillLoops mLoops;
    GiArcRuns mArcs;
};

void flatten(const GiDisplayList& list, Flattener flattener) {
    const AcGeMatrix3d identity;
    const GiInherited loose;
    flattener.walk(list, {identity, loose, {}});
}
} // namespace

void giFlatten(const GiDisplayList& list, const GiStyleResolver& resolver, double deviation, GiPainterSink& sink,
               const AcDbExtents* window) {
    flatten(list, Flattener(resolver, deviation, sink, nullptr, window));
}

void giFlatten(const GiDisplayList& list, const GiStyleResolver& resolver, double deviation, GiCurveSink& sink,
               const AcDbExtents* window) {
    flatten(list, Flattener(resolver, deviation, sink, &sink, window));
}
