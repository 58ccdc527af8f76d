// What the display list and the extents measurer have in common: traits, the stack of model
// transforms, nested drawables. A receiver overrides the five `emit` operations, which get
// coordinates of the list they build, with all transforms applied.
#pragma once

#include "GiTraitsState.h"

class GiDrawContext : public AcGiGeometry {
public:
    GiDrawContext(bool dragging, AcGiRegenType type, double deviation);
    GiDrawContext(const GiDrawContext&) = delete;
    GiDrawContext& operator=(const GiDrawContext&) = delete;

    AcGiWorldDraw& worldDraw() { return mWorldDraw; }
    AcGiViewportDraw& viewportDraw() { return mViewportDraw; }
    GiTraits& traits() { return mTraits.value; }
    const AcGeMatrix3d& transform() const { return mTransforms.back(); }
    // Draws at the top level: with the drawable's own traits, or with the given ones.
    void drawTop(AcGiDrawable& drawable, const GiTraits* start);

    bool polyline(Adesk::UInt32 count, const AcGePoint3d* points, const AcGeVector3d* normal) override;
    bool polygon(Adesk::UInt32 count, const AcGePoint3d* points) override;
    bool circle(const AcGePoint3d& center, double radius, const AcGeVector3d& normal) override;
    bool circularArc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
                     const AcGeVector3d& startVector, double sweep, AcGiArcType type) override;
    bool ellipticalArc(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& majorAxis,
                       double radiusRatio, double startParam, double endParam) override;
    bool filledLoops(const AcGiFillLoops& loops) override;
    bool text(const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction, const ACHAR* text,
              const AcGiTextStyle& style) override;
    bool draw(AcGiDrawable* drawable) override;
    bool pushModelTransform(const AcGeMatrix3d& matrix) override;
    bool popModelTransform() override;

protected:
    virtual void emitPolyline(GiPoints&& points) = 0;
    virtual void emitPolygon(GiPoints&& points) = 0;
    virtual void emitArc(const GiArc& arc) = 0;
    virtual void emitFill(GiFill&& fill) = 0;
    virtual void emitText(const AcGePoint3d& position, const AcGeVector3d& xAxis, const AcGeVector3d& yAxis,
                          const ACHAR* text, const AcGiTextStyle& style) = 0;
    // A shareable drawable in place, with the traits and transform set now.
    virtual void emitShared(AcGiDrawable& drawable) { drawInPlace(drawable); }
    virtual bool accepts(AcGiDrawable&) const { return true; }

    // The drawable's worldDraw with the traits as they stand, kept from entering itself.
    void drawInPlace(AcGiDrawable& drawable);
    bool isBeingDrawn(const AcGiDrawable& drawable) const;
    std::vector<AcGeMatrix3d>& transforms() { return mTransforms; }

private:
    struct WorldDraw final : AcGiWorldDraw {
        explicit WorldDraw(GiDrawContext& owner) : context(owner) {}
        AcGiSubEntityTraits& subEntityTraits() const override { return context.mTraits; }
        AcGiRegenType regenType() const override { return context.mType; }
        bool regenAbort() const override { return false; }
        bool isDragging() const override { return context.mDragging; }
        double deviation() const override { return context.mDeviation; }
        AcGiWorldGeometry& geometry() const override { return context; }
        GiDrawContext& context;
    };
    struct ViewportDraw final : AcGiViewportDraw {
        explicit ViewportDraw(GiDrawContext& owner) : context(owner) {}
        AcGiSubEntityTraits& subEntityTraits() const override { return context.mTraits; }
        AcGiRegenType regenType() const override { return context.mType; }
        bool regenAbort() const override { return false; }
        bool isDragging() const override { return context.mDragging; }
        double deviation() const override { return context.mDeviation; }
        AcGiViewportGeometry& geometry() const override { return context; }
        GiDrawContext& context;
    };
    bool arc(const GiArc& shape); // in model coordinates
    GiPoints placed(Adesk::UInt32 count, const AcGePoint3d* points) const;

    GiTraitsState mTraits;
    std::vector<AcGeMatrix3d> mTransforms;
    std::vector<const AcGiDrawable*> mBeingDrawn;
    bool mDragging;
    AcGiRegenType mType;
    double mDeviation;
    WorldDraw mWorldDraw{*this};
    ViewportDraw mViewportDraw{*this};
};
