// Drawables, a style resolver and a sink for the tests of drawing.
#pragma once

#include "AcGiReceivers.h"

#include <functional>
#include <map>
#include <set>

// Ids that name nothing; the layers and line types of these tests.
inline AcDbObjectId testId(std::intptr_t number) {
    AcDbObjectId id;
    id.setFromOldId(number * 16);
    return id;
}
inline const AcDbObjectId kLayerZero = testId(1), kLayerRed = testId(2), kLayerBlue = testId(3), kLayerOff = testId(4),
                          kLayerFrozen = testId(5);
inline const AcDbObjectId kByLayerType = testId(11), kByBlockType = testId(12), kContinuous = testId(13),
                          kDashed = testId(14), kDotted = testId(15);

using DrawFunction = std::function<void(AcGiWorldDraw&)>;

// Draws what the function draws, with traits set beforehand by another.
class TestDrawable : public AcGiDrawable {
public:
    explicit TestDrawable(DrawFunction draw, bool shareable = false) : mDraw(std::move(draw)), mShareable(shareable) {}
    bool isShareable() const override { return mShareable; }
    AcDbObjectId id() const override { return own; }
    int drawn = 0;
    AcDbObjectId own;
    Adesk::UInt32 flags = kDrawableNone;
    std::function<void(AcGiSubEntityTraits&)> attributes;

protected:
    bool subWorldDraw(AcGiWorldDraw* worldDraw) override {
        ++drawn;
        mDraw(*worldDraw);
        return true;
    }
    Adesk::UInt32 subSetAttributes(AcGiSubEntityTraits* traits) override {
        if (attributes)
            attributes(*traits);
        return flags;
    }

private:
    DrawFunction mDraw;
    bool mShareable;
};

class TestResolver : public GiStyleResolver {
public:
    bool isVisible(AcDbObjectId layer) const override { return layer != kLayerOff && layer != kLayerFrozen; }
    bool isFrozen(AcDbObjectId layer) const override { return layer == kLayerFrozen; }
    bool isPlottable(AcDbObjectId layer) const override { return isVisible(layer) && layer != unplotted; }
    bool isLayerZero(AcDbObjectId layer) const override { return layer.isNull() || layer == kLayerZero; }
    AcCmEntityColor layerColor(AcDbObjectId layer) const override {
        return AcCmEntityColor::fromIndex(layer == kLayerRed ? 1 : layer == kLayerBlue ? 5 : 7);
    }
    AcDb::LineWeight layerLineWeight(AcDbObjectId layer) const override {
        return layer == kLayerRed ? AcDb::kLnWt050 : AcDb::kLnWtByLwDefault;
    }
    AcDbObjectId layerLineType(AcDbObjectId layer) const override { return layer == kLayerRed ? kDashed : kContinuous; }
    bool isByLayerLineType(AcDbObjectId type) const override { return type == kByLayerType; }
    bool isByBlockLineType(AcDbObjectId type) const override { return type == kByBlockType; }
    std::vector<double> dashes(AcDbObjectId type) const override {
        ++asked;
        if (type == kDashed)
            return {2.0, -1.0};
        return type == kDotted ? std::vector<double>{0.0, -1.0} : std::vector<double>{};
    }
    double lineTypeScale() const override { return drawingScale; }
    double drawingScale = 1.0;
    AcDbObjectId unplotted = testId(99);
    mutable int asked = 0;
};

struct CollectedShape {
    AcGiFillLoops loops;
    bool filled = false, closed = false;
    GiStyle style;
};
class TestSink : public GiPainterSink {
public:
    void stroke(const std::vector<AcGePoint3d>& points, bool closed, const GiStyle& style) override {
        shapes.push_back({{points}, false, closed, style});
    }
    void fill(const AcGiFillLoops& loops, const GiStyle& style) override { shapes.push_back({loops, true, true, style}); }
    std::vector<CollectedShape> shapes;
    AcDbExtents extents() const {
        AcDbExtents box;
        for (const CollectedShape& shape : shapes)
            for (const auto& loop : shape.loops)
                for (const AcGePoint3d& p : loop)
                    box.addPoint(p);
        return box;
    }
};

inline void drawLine(AcGiWorldDraw& worldDraw, const AcGePoint3d& a, const AcGePoint3d& b) {
    const AcGePoint3d points[] = {a, b};
    worldDraw.geometry().polyline(2, points);
}
inline TestSink flattened(const GiDisplayList& list, const TestResolver& resolver = {}, double deviation = 0.01) {
    TestSink sink;
    giFlatten(list, resolver, deviation, sink);
    return sink;
}
inline GiDisplayList drawnList(AcGiDrawable& drawable, const GiTraits& start = {}) {
    GiDisplayListBuilder builder;
    builder.add(drawable, start);
    return builder.take();
}
