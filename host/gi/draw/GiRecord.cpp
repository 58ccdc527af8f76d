// Lists what is drawn as text, one line a primitive.
#include "AcGiReceivers.h"
#include "AcUtText.h"

#include <charconv>

namespace {
constexpr double kDegrees = 180.0 / kPi;

// At most nine decimals, no trailing zeros, no minus before zero.
std::wstring number(double value) {
    char buffer[400];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 9).ptr;
    std::wstring text(buffer, end);
    if (text.find(L'.') != std::wstring::npos) {
        text.erase(text.find_last_not_of(L'0') + 1);
        if (text.back() == L'.')
            text.pop_back();
    }
    return text == L"-0" ? L"0" : text;
}
std::wstring triple(double x, double y, double z) {
    return L"(" + number(x) + L"," + number(y) + L"," + number(z) + L")";
}
std::wstring triple(const AcGePoint3d& p) { return triple(p.x, p.y, p.z); }
std::wstring triple(const AcGeVector3d& v) { return triple(v.x, v.y, v.z); }

template <class Points> std::wstring pointList(const Points& points) {
    std::wstring text;
    for (const AcGePoint3d& p : points)
        text += L" " + triple(p);
    return text;
}

std::wstring normalSuffix(const AcGeVector3d& normal) {
    return normal.isEqualTo({0.0, 0.0, 1.0}) ? std::wstring() : L" normal=" + triple(normal);
}

bool isCircular(const GiArc& arc) {
    const double size = arc.major.length();
    return std::abs(size - arc.minor.length()) <= 1.0e-9 * size &&
           std::abs(arc.major.dotProduct(arc.minor)) <= 1.0e-9 * size * size;
}

std::wstring shapeText(const GiPolyline& s) { return L"polyline" + pointList(s.points); }
std::wstring shapeText(const GiPolygon& s) { return L"polygon" + pointList(s.points); }
std::wstring shapeText(const GiFill& s) {
    std::wstring text = L"fill";
    for (std::size_t i = 0; i < s.loops.size(); ++i)
        text += (i > 0 ? L" |" : L"") + pointList(s.loops[i]);
    return text;
}
std::wstring ellipseText(const GiArc& s) {
    std::wstring text = L"ellipse " + triple(s.center) + L" major=" + triple(s.major) + L" minor=" + triple(s.minor);
    if (!s.isFullTurn())
        text += L" start=" + number(s.start * kDegrees) + L" end=" + number(s.end * kDegrees);
    return text;
}
std::wstring shapeText(const GiArc& s) {
    if (!isCircular(s))
        return ellipseText(s);
    const AcGeVector3d normal = s.major.crossProduct(s.minor).normal();
    std::wstring text = (s.isFullTurn() ? L"circle " : L"arc ") + triple(s.center) + L" radius=" + number(s.major.length());
    if (!s.isFullTurn()) {
        // Measured in the plane of the normal, as an arc entity states its angles.
        const AcGeVector3d from = AcGeMatrix3d::worldToPlane(normal) * (s.at(s.start) - s.center);
        const double start = AcGeVector2d(from.x, from.y).angle();
        text += L" start=" + number(start * kDegrees) + L" end=" + number((start + s.end - s.start) * kDegrees);
    }
    text += s.type == kAcGiArcSector ? L" sector" : s.type == kAcGiArcChord ? L" chord" : L"";
    return text + normalSuffix(normal);
}
std::wstring shapeText(const GiText& s) {
    std::wstring text = L"text " + triple(s.position) + L" \"" + s.text() + L"\" height=" + number(s.height());
    text += L" direction=" + triple(s.direction());
    if (s.style().widthFactor != 1.0)
        text += L" width=" + number(s.style().widthFactor);
    if (s.style().obliqueAngle != 0.0)
        text += L" oblique=" + number(s.style().obliqueAngle * kDegrees);
    text += s.style().backward ? L" backward" : L"";
    text += s.style().upsideDown ? L" upsidedown" : L"";
    return text + L" font=" + s.style().fontName + normalSuffix(s.normal());
}
std::wstring shapeText(const GiInstance& s) {
    const auto column = [&](int c) { return triple(s.rows[0][c], s.rows[1][c], s.rows[2][c]); };
    return L"instance at=" + column(3) + L" x=" + column(0) + L" y=" + column(1) + L" z=" + column(2);
}

std::wstring nameOf(const GiNamer& namer, AcDbObjectId id, const wchar_t* otherwise) {
    const std::wstring name = namer ? namer(id) : std::wstring();
    return name.empty() || id.isNull() ? std::wstring(otherwise) : name;
}

std::wstring traitsText(const GiTraits& traits, const GiNamer& namer) {
    const AcCmEntityColor& c = traits.color;
    std::wstring text = L" color=";
    if (c.isByColor())
        text += L"rgb(" + std::to_wstring(c.red()) + L"," + std::to_wstring(c.green()) + L"," + std::to_wstring(c.blue()) + L")";
    else
        text += std::to_wstring(c.colorIndex());
    text += L" layer=" + nameOf(namer, traits.layer, L"0");
    text += L" ltype=" + nameOf(namer, traits.lineType, L"ByLayer");
    text += L" lw=" + std::to_wstring(static_cast<int>(traits.lineWeight));
    if (traits.lineTypeScale != 1.0)
        text += L" ltscale=" + number(traits.lineTypeScale);
    if (traits.fill == kAcGiFillAlways)
        text += L" filled";
    if (traits.thickness != 0.0)
        text += L" thickness=" + number(traits.thickness);
    return text;
}

void recordList(const GiDisplayList& list, const GiNamer& namer, const std::wstring& indent, std::vector<std::wstring>& lines) {
    for (const GiPrimitive& primitive : list.primitives) {
        const std::wstring shape = std::visit([](const auto& s) { return shapeText(s); }, primitive.shape);
        lines.push_back(indent + shape + traitsText(primitive.traits, namer));
        if (const auto* instance = std::get_if<GiInstance>(&primitive.shape))
            recordList(*instance->picture, namer, indent + L"  ", lines);
    }
}
} // namespace

std::vector<std::wstring> giRecord(const GiDisplayList& list, const GiNamer& namer) {
    std::vector<std::wstring> lines;
    recordList(list, namer, {}, lines);
    return lines;
}

std::vector<std::wstring> giRecord(AcGiDrawable& drawable, const GiNamer& namer, bool dragging) {
    GiDisplayListBuilder builder(dragging);
    builder.add(drawable);
    return giRecord(builder.list(), namer);
}

std::vector<std::wstring> giRecord(AcGiDrawable& drawable, const GiNamer& namer, bool dragging, const GiTraits& start) {
    GiDisplayListBuilder builder(dragging);
    builder.add(drawable, start);
    return giRecord(builder.list(), namer);
}
