// Turns the calls of a drawable into primitives in the receiver's coordinates.
#include "GiDrawContext.h"

#include "GiCurve.h"

#include <algorithm>

namespace {
// Deeper than any drawing made by hand; a file made to harm must not exhaust the stack.
constexpr std::size_t kDeepestNesting = 200;
constexpr bool kGoOn = false; // what a geometry operation answers when nothing was broken off

bool isIdentity(const AcGeMatrix3d& m) {
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column)
            if (m.entry[row][column] != (row == column ? 1.0 : 0.0))
                return false;
    return true;
}
// Drawings from elsewhere hold numbers that are none, and one of them would spoil the extents of all.
bool isSound(const AcGePoint3d& p) { return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z); }
bool isSound(const AcGeVector3d& v) { return isSound(AcGePoint3d(v.x, v.y, v.z)); }
template <class Points> bool areSound(const Points& points) {
    return std::ranges::all_of(points, [](const AcGePoint3d& p) { return isSound(p); });
}
bool isSound(const GiArc& arc) {
    return isSound(arc.center) && isSound(arc.major) && isSound(arc.minor) && std::isfinite(arc.start) && std::isfinite(arc.end);
}
} // namespace

GiDrawContext::GiDrawContext(bool dragging, AcGiRegenType type, double deviation)
    : mTransforms(1), mDragging(dragging), mType(type), mDeviation(deviation) {}

void GiDrawContext::drawTop(AcGiDrawable& drawable, const GiTraits* start) {
    const GiTraits before = traits();
    traits() = {};
    const bool visible = (drawable.setAttributes(&mTraits) & AcGiDrawable::kDrawableIsInvisible) == 0;
    if (start != nullptr)
        traits() = *start;
    if (visible && accepts(drawable))
        drawInPlace(drawable);
    traits() = before;
}

bool GiDrawContext::isBeingDrawn(const AcGiDrawable& drawable) const {
    return std::ranges::find(mBeingDrawn, &drawable) != mBeingDrawn.end();
}

void GiDrawContext::drawInPlace(AcGiDrawable& drawable) {
    if (isBeingDrawn(drawable) || mBeingDrawn.size() >= kDeepestNesting)
        return;
    const std::size_t depth = mTransforms.size();
    mBeingDrawn.push_back(&drawable);
    if (!drawable.worldDraw(&mWorldDraw))
        drawable.viewportDraw(&mViewportDraw);
    mBeingDrawn.pop_back();
    // A drawable that forgot to pop must not displace all that is drawn after it.
    if (mTransforms.size() > depth)
        mTransforms.resize(depth);
}

bool GiDrawContext::draw(AcGiDrawable* drawable) {
    if (drawable == nullptr || !accepts(*drawable) || isBeingDrawn(*drawable))
        return kGoOn;
    if (drawable->isShareable()) {
        emitShared(*drawable);
        return kGoOn;
    }
    const GiTraits before = traits();
    // No entity has these among its properties, so they would leak into its parts.
    traits().fill = kAcGiFillNever;
    traits().thickness = 0.0;
    if ((drawable->setAttributes(&mTraits) & AcGiDrawable::kDrawableIsInvisible) == 0)
        drawInPlace(*drawable);
    traits() = before;
    return kGoOn;
}

bool GiDrawContext::pushModelTransform(const AcGeMatrix3d& matrix) {
    mTransforms.push_back(mTransforms.back() * matrix);
    return kGoOn;
}

bool GiDrawContext::popModelTransform() {
    if (mTransforms.size() > 1)
        mTransforms.pop_back();
    return kGoOn;
}

GiPoints GiDrawContext::placed(Adesk::UInt32 count, const AcGePoint3d* points) const {
    GiPoints result(points, count);
    if (!isIdentity(transform()))
        for (AcGePoint3d& p : result)
            p = transform() * p;
    return result;
}

bool GiDrawContext::polyline(Adesk::UInt32 count, const AcGePoint3d* points, const AcGeVector3d*) {
    if (GiPoints line = placed(count, points); !line.empty() && areSound(line))
        emitPolyline(std::move(line));
    return kGoOn;
}

bool GiDrawContext::polygon(Adesk::UInt32 count, const AcGePoint3d* points) {
    if (GiPoints ring = placed(count, points); !ring.empty() && areSound(ring))
        emitPolygon(std::move(ring));
    return kGoOn;
}

bool GiDrawContext::circle(const AcGePoint3d& center, double radius, const AcGeVector3d& normal) {
    const AcGeVector3d start = AcGeMatrix3d::planeToWorld(normal) * AcGeVector3d(1.0, 0.0, 0.0);
    return circularArc(center, radius, normal, start, kTwoPi, kAcGiArcSimple);
}

bool GiDrawContext::circularArc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
                                const AcGeVector3d& startVector, double sweep, AcGiArcType type) {
    // A clockwise sweep is the same arc, counter-clockwise about the opposite normal.
    const AcGeVector3d up = sweep < 0.0 ? -normal : normal;
    const AcGeVector3d major = startVector.normal() * radius;
    const AcGeVector3d minor = up.normal().crossProduct(startVector.normal()) * radius;
    return arc({center, major, minor, 0.0, std::min(std::abs(sweep), kTwoPi), type});
}

bool GiDrawContext::ellipticalArc(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& majorAxis,
                                  double radiusRatio, double startParam, double endParam) {
    const AcGeVector3d minor = normal.normal().crossProduct(majorAxis) * radiusRatio;
    double sweep = std::fmod(endParam - startParam, kTwoPi);
    if (sweep < 0.0)
        sweep += kTwoPi;
    if (sweep == 0.0 || endParam - startParam >= kTwoPi) // equal parameters are a whole turn
        sweep = kTwoPi;
    const double start = std::fmod(startParam, kTwoPi);
    return arc({center, majorAxis, minor, start, start + sweep, kAcGiArcSimple});
}

bool GiDrawContext::arc(const GiArc& shape) {
    const GiArc result = giTransformed(shape, transform());
    if (isSound(result))
        emitArc(result);
    return kGoOn;
}

bool GiDrawContext::filledLoops(const AcGiFillLoops& loops) {
    GiFill fill{loops};
    if (!isIdentity(transform()))
        for (auto& loop : fill.loops)
            for (AcGePoint3d& p : loop)
                p = transform() * p;
    std::erase_if(fill.loops, [](const auto& loop) { return loop.size() < 3 || !areSound(loop); });
    if (!fill.loops.empty())
        emitFill(std::move(fill));
    return kGoOn;
}

bool GiDrawContext::text(const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction,
                         const ACHAR* text, const AcGiTextStyle& style) {
    if (text == nullptr || *text == L'\0')
        return kGoOn;
    const AcGeVector3d xAxis = direction.normal();
    const AcGeVector3d yAxis = normal.normal().crossProduct(xAxis);
    const AcGePoint3d start = transform() * position;
    const AcGeVector3d x = transform() * xAxis, y = transform() * yAxis;
    const bool sound = isSound(start) && isSound(x) && isSound(y) && std::isfinite(style.height) &&
                       std::isfinite(style.widthFactor) && std::isfinite(style.obliqueAngle);
    if (sound)
        emitText(start, x, y, text, style);
    return kGoOn;
}
