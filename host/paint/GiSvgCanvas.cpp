#include "GiSvgCanvas.h"

#include <charconv>

namespace {
constexpr double kThinnest = 1.0e-3; // of an ellipse, its axes' ratio; the format takes a thinner one for a line
// Of one piece of an arc. The ends of a half turn would leave its centre open, and rounded ends of a
// wide piece move it.
constexpr double kWidestArc = 2.0 * std::numbers::pi / 3.0;
constexpr int kPlaces = 2;

void addNumber(std::string& text, double value, int places = kPlaces) {
    char digits[352]; // the longest double without an exponent
    char* end = std::to_chars(std::begin(digits), std::end(digits), value, std::chars_format::fixed, places).ptr;
    while (end[-1] == '0')
        --end;
    if (end[-1] == '.')
        --end;
    const std::string_view number(digits, static_cast<std::size_t>(end - digits));
    text += number == "-0" ? "0" : number;
}
std::string numberText(double value, int places = kPlaces) {
    std::string text;
    addNumber(text, value, places);
    return text;
}
std::string colorText(Adesk::UInt32 rgb) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4)
        text += kDigits[(rgb >> shift) & 0xFU];
    return text;
}
std::string attribute(const char* name, const std::string& value) {
    return ' ' + std::string(name) + "=\"" + value + '"';
}
std::string box(double left, double top, double right, double bottom) {
    return attribute("x", numberText(left)) + attribute("y", numberText(top)) +
           attribute("width", numberText(right - left)) + attribute("height", numberText(bottom - top));
}

// The perpendicular axes of the ellipse that the arc lies on.
struct Axes {
    double longer, shorter, turn; // turn: of the longer one, radians
};
Axes axesOf(const GiOutlineArc& arc) {
    const AcGeVector2d &u = arc.major, &v = arc.minor;
    const double t =
        0.5 * std::atan2(2.0 * (u.x * v.x + u.y * v.y), u.x * u.x + u.y * u.y - v.x * v.x - v.y * v.y); // farthest out
    const AcGeVector2d longer = u * std::cos(t) + v * std::sin(t), shorter = v * std::cos(t) - u * std::sin(t);
    return {longer.length(), shorter.length(), std::atan2(longer.y, longer.x)};
}

struct PathPen {
    std::string& text;
    const GiOutline& outline;
    void point(char command, const AcGePoint2d& p) {
        text += command;
        addNumber(text, p.x);
        text += ' ';
        addNumber(text, p.y);
    }
    void moveTo(const AcGePoint2d& p) { point('M', p); }
    void lineTo(const AcGePoint2d& p) { point('L', p); }
    void close() { text += 'Z'; }
    void arcTo(const GiOutlineArc& arc) {
        const Axes axes = axesOf(arc);
        if (axes.shorter < axes.longer * kThinnest)
            return chords(arc);
        const bool round = axes.longer - axes.shorter < axes.longer * 1.0e-6;
        const bool clockwise =
            (arc.major.x * arc.minor.y - arc.major.y * arc.minor.x > 0.0) == (arc.end > arc.start); // Y runs down
        std::string start = "A" + numberText(axes.longer) + ' ' + numberText(axes.shorter) + ' ' +
                            (round ? std::string("0") : numberText(axes.turn * 180.0 / std::numbers::pi, 4)) + " 0 " +
                            (clockwise ? "1 " : "0 ");
        giSplitArc(arc, kWidestArc, [&](double, double to) {
            const AcGePoint2d p = arc.at(to);
            text += start;
            addNumber(text, p.x);
            text += ' ';
            addNumber(text, p.y);
        });
    }
    void chords(const GiOutlineArc& arc) {
        for (std::size_t i = arc.first + 1; i <= arc.last; ++i)
            lineTo(outline.points[i % outline.points.size()]);
    }
};
void addPath(std::string& text, const GiOutline& outline) {
    PathPen pen{text, outline};
    giWalkOutline(outline, pen);
}
} // namespace

GiSvgCanvas::GiSvgCanvas(double widthMm, double heightMm, double unitsPerMm)
    : mText("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\"") {
    mText += attribute("width", numberText(widthMm) + "mm") + attribute("height", numberText(heightMm) + "mm") +
             attribute("viewBox", "0 0 " + numberText(widthMm * unitsPerMm) + ' ' + numberText(heightMm * unitsPerMm)) +
             attribute("fill-rule", "evenodd") + ">\n";
}

std::string GiSvgCanvas::finish() {
    closeGroup();
    mText += mClipped ? "</g>\n</svg>\n" : "</svg>\n";
    return std::move(mText);
}

void GiSvgCanvas::closePath() {
    if (mPathOpen)
        mText += "\"/>\n";
    mPathOpen = false;
}

void GiSvgCanvas::closeGroup() {
    closePath();
    if (!mLook.empty())
        mText += "</g>\n";
    mLook.clear();
}

void GiSvgCanvas::useGroup(const std::string& look) {
    if (look == mLook)
        return;
    closeGroup();
    mText += "<g" + look + ">\n";
    mLook = look;
}

void GiSvgCanvas::fillRect(double left, double top, double right, double bottom, Adesk::UInt32 rgb) {
    closeGroup();
    mText += "<rect" + box(left, top, right, bottom) + attribute("fill", colorText(rgb)) + "/>\n";
}

void GiSvgCanvas::clip(double left, double top, double right, double bottom) {
    closeGroup();
    mText += "<clipPath id=\"sheet\"><rect" + box(left, top, right, bottom) +
             "/></clipPath>\n<g clip-path=\"url(#sheet)\">\n";
    mClipped = true;
}

void GiSvgCanvas::stroke(const GiOutline& outline, const GiPen& pen) {
    useGroup(attribute("fill", "none") + attribute("stroke", colorText(pen.rgb)) +
             attribute("stroke-width", numberText(pen.width)));
    if (!mPathOpen)
        mText += "<path d=\"";
    mPathOpen = true;
    addPath(mText, outline);
}

// Each area a path of its own: by the even-odd rule, two in one path would punch holes into each other.
void GiSvgCanvas::fill(const std::vector<GiOutline>& outlines, Adesk::UInt32 rgb, double edge) {
    std::string look = attribute("fill", colorText(rgb));
    if (edge > 0.0)
        look += attribute("stroke", colorText(rgb)) + attribute("stroke-width", numberText(edge));
    useGroup(look);
    mText += "<path d=\"";
    for (const GiOutline& outline : outlines)
        addPath(mText, outline);
    mText += "\"/>\n";
}
