// Measures what is drawn: straight from the drawable, without keeping a picture, or from a list.
#include "GiCurve.h"
#include "GiDrawContext.h"
#include "text/GiTextLayout.h"

namespace {
class ExtentsContext final : public GiDrawContext {
public:
    explicit ExtentsContext(const std::function<bool(AcGiDrawable&)>& accept)
        : GiDrawContext(false, kAcGiForExtents, 0.0), mAccept(accept) {}
    const AcDbExtents& extents() const { return mExtents; }

protected:
    void emitPolyline(GiPoints&& points) override { addAll(points); }
    void emitPolygon(GiPoints&& points) override { addAll(points); }
    void emitArc(const GiArc& arc) override { giAddArcExtents(arc, mExtents); }
    void emitFill(GiFill&& fill) override {
        for (const auto& loop : fill.loops)
            addAll(loop);
    }
    void emitText(const AcGePoint3d& position, const AcGeVector3d& xAxis, const AcGeVector3d& yAxis, const ACHAR* text,
                  const AcGiTextStyle& style) override {
        giAddTextExtents(giLayText(text, style, position, xAxis, yAxis), mExtents);
    }
    void emitShared(AcGiDrawable& drawable) override {
        const GiTraits before = traits();
        drawInPlace(drawable);
        traits() = before;
    }
    bool accepts(AcGiDrawable& drawable) const override { return !mAccept || mAccept(drawable); }

private:
    template <class Points> void addAll(const Points& points) {
        for (const AcGePoint3d& p : points)
            mExtents.addPoint(p);
    }
    const std::function<bool(AcGiDrawable&)>& mAccept;
    AcDbExtents mExtents;
};

struct ShapeMeasurer {
    const AcGeMatrix3d& transform;
    AcDbExtents& extents;

    template <class Points> void addAll(const Points& points) {
        for (const AcGePoint3d& p : points)
            extents.addPoint(transform * p);
    }
    void operator()(const GiPolyline& s) { addAll(s.points); }
    void operator()(const GiPolygon& s) { addAll(s.points); }
    void operator()(const GiArc& s) { giAddArcExtents(giTransformed(s, transform), extents); }
    void operator()(const GiFill& s) {
        for (const auto& loop : s.loops)
            addAll(loop);
    }
    void operator()(const GiText& s) { giAddTextExtents(giLayText(s, transform), extents); }
    void operator()(const GiInstance& s) {
        const AcGeMatrix3d inner = transform * s.transform();
        for (const GiPrimitive& primitive : s.picture->primitives)
            std::visit(ShapeMeasurer{inner, extents}, primitive.shape);
    }
};
} // namespace

AcDbExtents giExtentsOf(AcGiDrawable& drawable, const std::function<bool(AcGiDrawable&)>& accept) {
    ExtentsContext context(accept);
    context.drawTop(drawable, nullptr);
    return context.extents();
}

AcDbExtents giExtentsOf(const GiDisplayList& list) {
    AcDbExtents extents;
    const AcGeMatrix3d identity;
    for (const GiPrimitive& primitive : list.primitives)
        std::visit(ShapeMeasurer{identity, extents}, primitive.shape);
    return extents;
}
