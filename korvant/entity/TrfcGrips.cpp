// Glyphs of the grips. Lengths follow the grip size s; a is 2.3 s, the height of the larger glyphs.
#include "TrfcGrips.h"

#include "AcEdAds.h"

#include <array>

namespace {

constexpr int kHover = 1;
constexpr int kHot = 2;
constexpr double kLargeGlyph = 2.3;
constexpr double kBentAngle = 1.7592918860102844; // radians: the two heads of a turning arrow
constexpr Adesk::UInt16 kOutlineColor = 9;

bool isLit(int mode) {
    return mode == kHover || mode == kHot;
}

Adesk::UInt16 variableColor(int mode) {
    const ACHAR* name = mode == kHover ? L"GRIPHOVER" : mode == kHot ? L"GRIPHOT" : L"GRIPCOLOR";
    resbuf value{};
    return acedGetVar(name, &value) == RTNORM ? static_cast<Adesk::UInt16>(value.resval.rint) : Adesk::UInt16{0};
}

template <std::size_t N> void drawFilled(AcGiCommonDraw* draw, AcGiGeometry& geometry, Adesk::UInt16 color, const std::array<AcGePoint3d, N>& corners) {
    draw->subEntityTraits().setColor(color);
    draw->subEntityTraits().setFillType(kAcGiFillAlways);
    geometry.polygon(static_cast<Adesk::UInt32>(N), corners.data());
}

template <std::size_t N> void drawOutline(AcGiCommonDraw* draw, AcGiGeometry& geometry, Adesk::UInt16 color, const std::array<AcGePoint3d, N>& corners) {
    draw->subEntityTraits().setFillType(kAcGiFillNever);
    draw->subEntityTraits().setColor(color);
    geometry.polygon(static_cast<Adesk::UInt32>(N), corners.data());
}

std::array<AcGePoint3d, 3> arrowHead(const AcGePoint3d& position, const AcGeVector3d& toward, double size) {
    AcGeVector3d direction = -toward.normal();
    const AcGePoint3d middle = position + direction * (size * 0.35);
    const AcGePoint3d tip = middle + direction * (size * 1.7);
    direction.rotateBy(kHalfPi, AcGeVector3d::kZAxis);
    return {tip, middle + direction * size, middle - direction * size};
}

void drawArrowHeads(AcGiCommonDraw* draw, AcGiGeometry& geometry, int mode, const AcGePoint3d& position, double size, const AcGeVector3d& first, const AcGeVector3d& second, bool outlined) {
    const Adesk::UInt16 color = variableColor(mode);
    for (const AcGeVector3d& direction : {first, second}) {
        const auto head = arrowHead(position, direction, size);
        drawFilled(draw, geometry, color, head);
        if (outlined)
            drawOutline(draw, geometry, 8, head);
    }
}

} // namespace

AcDbGripData* newGrip(const TrfcGripAppData& data, const AcGePoint3d& place) {
    auto* grip = new AcDbGripData;
    grip->setGripPoint(place);
    grip->setGripName(data.name.c_str());
    grip->setAppData(new TrfcGripAppData(data));
    grip->setAppDataFreeFunc([](void* appData) { delete static_cast<TrfcGripAppData*>(appData); });
    return grip;
}

void drawGripPlus(AcGiCommonDraw* draw, AcGiGeometry& geometry, int mode, const AcGePoint3d& position, double size) {
    const double w = size * kLargeGlyph / 3.0;
    const std::array<AcGeVector3d, 11> steps{AcGeVector3d(w, 0, 0), {0, -w, 0}, {-w, 0, 0}, {0, -w, 0}, {-w, 0, 0}, {0, w, 0},
                                             {-w, 0, 0},            {0, w, 0},  {w, 0, 0},  {0, w, 0},  {w, 0, 0}};
    std::array<AcGePoint3d, 12> corners;
    corners[0] = position + AcGeVector3d(w / 2.0, w / 2.0, 0.0);
    for (std::size_t i = 0; i < steps.size(); ++i)
        corners[i + 1] = corners[i] + steps[i];
    drawFilled(draw, geometry, isLit(mode) ? 0 : 92, corners);
}

void drawGripCircle(AcGiCommonDraw* draw, AcGiGeometry& geometry, int mode, const AcGePoint3d& position, double size) {
    draw->subEntityTraits().setColor(variableColor(mode));
    draw->subEntityTraits().setFillType(kAcGiFillAlways);
    geometry.circle(position, size, AcGeVector3d::kZAxis);
}

void drawGripLeftTriangles(AcGiCommonDraw* draw, AcGiGeometry& geometry, int mode, const AcGePoint3d& position, double size) {
    const double a = size * kLargeGlyph;
    const Adesk::UInt16 color = isLit(mode) ? 0 : 1;
    for (const double shift : {0.0, 0.7 * a}) {
        const AcGePoint3d base = position + AcGeVector3d(shift, -a / 2.0, 0.0);
        const std::array<AcGePoint3d, 3> triangle{base, base + AcGeVector3d(0.0, a, 0.0), position + AcGeVector3d(shift - 0.7 * a, 0.0, 0.0)};
        drawFilled(draw, geometry, color, triangle);
        drawOutline(draw, geometry, kOutlineColor, triangle);
    }
}

void drawGripArrowBent(AcGiCommonDraw* draw, AcGiGeometry& geometry, int mode, const AcGePoint3d& position, double size, const AcGeVector3d& direction) {
    AcGeVector3d left = direction, right = direction;
    left.rotateBy(kBentAngle, AcGeVector3d::kZAxis);
    right.rotateBy(-kBentAngle, AcGeVector3d::kZAxis);
    drawArrowHeads(draw, geometry, mode, position, size, left, right, !isLit(mode));
}

void drawGripArrow(AcGiCommonDraw* draw, AcGiGeometry& geometry, int mode, const AcGePoint3d& position, double size, const AcGeVector3d& direction) {
    drawArrowHeads(draw, geometry, mode, position, size, direction, -direction, !isLit(mode));
}

void drawGripBar(AcGiCommonDraw* draw, AcGiGeometry& geometry, int mode, const AcGePoint3d& position, double size) {
    const double a = size * kLargeGlyph;
    const Adesk::UInt16 color = isLit(mode) ? 0 : 1;
    const AcGePoint3d base = position + AcGeVector3d(-0.2 * a, -a / 2.0, 0.0);
    const AcGeVector3d half(0.3 * a, 0.0, 0.0), up(0.0, a, 0.0);
    const std::array<AcGePoint3d, 4> bar{base - half, base + half, base + half + up, base - half + up};
    drawFilled(draw, geometry, color, bar);
    drawOutline(draw, geometry, kOutlineColor, bar);
    const std::array<AcGePoint3d, 3> head{base + half, base + half + up, position + AcGeVector3d(0.7 * a, 0.0, 0.0)};
    drawFilled(draw, geometry, color, head);
    drawOutline(draw, geometry, kOutlineColor, head);
}
