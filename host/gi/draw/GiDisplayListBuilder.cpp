// Builds display lists; a shareable drawable is drawn into a list of its own once and repeated.
#include "GiDrawContext.h"

#include <unordered_map>
#include <utility>

GiInstance::GiInstance(std::shared_ptr<const GiDisplayList> shared, const AcGeMatrix3d& matrix)
    : picture(std::move(shared)) {
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column)
            rows[row][column] = matrix.entry[row][column];
}

AcGeMatrix3d GiInstance::transform() const {
    AcGeMatrix3d matrix;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column)
            matrix.entry[row][column] = rows[row][column];
    return matrix;
}

struct GiDisplayListBuilder::Impl final : GiDrawContext {
    using GiDrawContext::GiDrawContext;

    GiDisplayList list;
    AcDbObjectId owner;
    GiDisplayList* target = &list;
    // By address: a drawable that stays in memory for the regeneration keeps its place.
    std::unordered_map<const AcGiDrawable*, std::shared_ptr<const GiDisplayList>> pictures;

    template <class Shape> void append(Shape&& shape) {
        target->primitives.push_back({std::forward<Shape>(shape), traits(), owner});
    }
    void emitPolyline(GiPoints&& points) override { append(GiPolyline{std::move(points)}); }
    void emitPolygon(GiPoints&& points) override { append(GiPolygon{std::move(points)}); }
    void emitArc(const GiArc& arc) override { append(arc); }
    void emitFill(GiFill&& fill) override { append(std::move(fill)); }
    void emitText(const AcGePoint3d& position, const AcGeVector3d& xAxis, const AcGeVector3d& yAxis, const ACHAR* text,
                  const AcGiTextStyle& style) override {
        append(GiText{position, xAxis, yAxis, std::make_shared<const GiTextContent>(GiTextContent{text, style})});
    }
    void emitShared(AcGiDrawable& drawable) override {
        const std::shared_ptr<const GiDisplayList> picture = pictureOf(drawable);
        if (!picture->primitives.empty())
            append(GiInstance(picture, transform()));
    }

    std::shared_ptr<const GiDisplayList> pictureOf(AcGiDrawable& drawable) {
        const auto found = pictures.find(&drawable);
        if (found != pictures.end())
            return found->second;
        const auto picture = std::make_shared<GiDisplayList>();
        drawAlone(drawable, *picture);
        picture->primitives.shrink_to_fit();
        pictures.emplace(&drawable, picture);
        return picture;
    }

    // The picture depends on nothing of the place where it is drawn first.
    void drawAlone(AcGiDrawable& drawable, GiDisplayList& into) {
        GiDisplayList* const outer = std::exchange(target, &into);
        const AcDbObjectId outerOwner = std::exchange(owner, AcDbObjectId());
        const GiTraits outerTraits = std::exchange(traits(), GiTraits());
        std::vector<AcGeMatrix3d> outerTransforms = std::exchange(transforms(), std::vector<AcGeMatrix3d>(1));
        drawInPlace(drawable);
        transforms() = std::move(outerTransforms);
        traits() = outerTraits;
        owner = outerOwner;
        target = outer;
    }

    void add(AcGiDrawable& drawable, const GiTraits* start) {
        const AcDbObjectId before = std::exchange(owner, drawable.id());
        drawTop(drawable, start);
        owner = before;
    }
};

GiDisplayListBuilder::GiDisplayListBuilder(bool dragging, AcGiRegenType type, double deviation)
    : mImpl(std::make_unique<Impl>(dragging, type, deviation)) {}
GiDisplayListBuilder::~GiDisplayListBuilder() = default;

AcGiWorldDraw& GiDisplayListBuilder::worldDraw() { return mImpl->worldDraw(); }
AcGiViewportDraw& GiDisplayListBuilder::viewportDraw() { return mImpl->viewportDraw(); }
void GiDisplayListBuilder::add(AcGiDrawable& drawable) { mImpl->add(drawable, nullptr); }
void GiDisplayListBuilder::add(AcGiDrawable& drawable, const GiTraits& start) { mImpl->add(drawable, &start); }
GiDisplayList& GiDisplayListBuilder::list() { return mImpl->list; }
GiDisplayList GiDisplayListBuilder::take() { return std::exchange(mImpl->list, GiDisplayList()); }
