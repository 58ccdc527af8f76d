// Measures what is drawn: straight from the drawable, without keeping a picture, or from a list.
#include "GiCurve.h"
#include "GiDrawContext.h"
#include "GiExtentsMeter.h"
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

bool isWithin(const AcGePoint3d& p, const AcDbExtents& box) {
    const AcGePoint3d lower = box.minPoint(), upper = box.maxPoint();
    return p.x >= lower.x && p.y >= lower.y && p.z >= lower.z && p.x <= upper.x && p.y <= upper.y && p.z <= upper.z;
}
bool isWithin(const AcDbExtents& inner, const AcDbExtents& outer) {
    return !inner.isValid() || (outer.isValid() && isWithin(inner.minPoint(), outer) && isWithin(inner.maxPoint(), outer));
}
} // namespace

struct GiShapeMeasurer {
    const AcGeMatrix3d& transform;
    AcDbExtents& extents;
    GiExtentsMeter::Boxes& boxes;

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
        AcDbExtents box = boxOf(*s.picture);
        box.transformBy(inner);
        if (isWithin(box, extents))
            return;
        for (const GiPrimitive& primitive : s.picture->primitives)
            std::visit(GiShapeMeasurer{inner, extents, boxes}, primitive.shape);
    }
    AcDbExtents boxOf(const GiDisplayList& picture) {
        if (const auto known = boxes.find(&picture); known != boxes.end())
            return known->second;
        AcDbExtents box;
        const AcGeMatrix3d identity;
        for (const GiPrimitive& primitive : picture.primitives)
            std::visit(GiShapeMeasurer{identity, box, boxes}, primitive.shape);
        return boxes[&picture] = box;
    }
};

AcDbExtents giExtentsOf(AcGiDrawable& drawable, const std::function<bool(AcGiDrawable&)>& accept) {
    ExtentsContext context(accept);
    context.drawTop(drawable, nullptr);
    return context.extents();
}

void GiExtentsMeter::add(const GiDisplayList& list) {
    const AcGeMatrix3d identity;
    for (const GiPrimitive& primitive : list.primitives)
        std::visit(GiShapeMeasurer{identity, mTotal, mBoxes}, primitive.shape);
}
bool GiExtentsMeter::covers(const AcDbExtents& box) const {
    return isWithin(box, mTotal);
}

AcDbExtents giExtentsOf(const GiDisplayList& list) {
    GiExtentsMeter meter;
    meter.add(list);
    return meter.extents();
}
