// CIRCLE, ARC, ELLIPSE.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

#include "AcDbEntities.h"

namespace {
double gCircleRadius = 0.0; // of the last circle, offered as the default

double angleOf(const AcGePoint3d& from, const AcGePoint3d& to) {
    return AcGeVector2d(to.x - from.x, to.y - from.y).angle();
}
// The middle of the circle through three points; nothing where they lie in line.
std::optional<AcGePoint3d> circleThrough(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& c) {
    const double bx = b.x - a.x, by = b.y - a.y, cx = c.x - a.x, cy = c.y - a.y;
    const double twice = 2.0 * (bx * cy - by * cx);
    const double size = std::abs(bx) + std::abs(by) + std::abs(cx) + std::abs(cy);
    if (std::abs(twice) <= 1.0e-12 * size * size)
        return std::nullopt;
    const double bb = bx * bx + by * by, cc = cx * cx + cy * cy;
    return AcGePoint3d(a.x + (cy * bb - by * cc) / twice, a.y + (bx * cc - cx * bb) / twice, a.z);
}
void drawArc(const AcGePoint3d& center, double radius, double from, double to) {
    if (radius > 0.0)
        edDraw(std::make_unique<AcDbArc>(center, radius, from, to));
    else
        edFail(L"An arc of no radius cannot be drawn.");
}
// The rest of an arc whose centre and start are known.
void finishFromCenter(const AcGePoint3d& center, const AcGePoint3d& start) {
    AcGePoint3d end;
    const double radius = center.distanceTo(start), from = angleOf(center, start);
    const EdReply reply = EdPrompt(L"Specify end point of arc or [Angle/chord Length]: ", L"Angle Length").base(center).point(end);
    if (reply.ok())
        return drawArc(center, radius, from, angleOf(center, end));
    if (reply.is(L"Angle")) {
        double sweep = 0.0;
        if (EdPrompt(L"Specify included angle: ").base(center).angle(sweep).ok() && sweep != 0.0)
            sweep > 0.0 ? drawArc(center, radius, from, from + sweep) : drawArc(center, radius, from + sweep, from);
    } else if (reply.is(L"Length")) {
        double chord = 0.0;
        if (!EdPrompt(L"Specify length of chord: ").noZero().distance(chord).ok())
            return;
        if (std::abs(chord) > 2.0 * radius)
            return edFail(L"The chord is longer than the diameter.");
        const double sweep = 2.0 * std::asin(std::abs(chord) / 2.0 / radius);
        drawArc(center, radius, from, from + (chord > 0.0 ? sweep : kTwoPi - sweep));
    }
}
void throughThreePoints(const AcGePoint3d& start, const AcGePoint3d& second, const AcGePoint3d& end) {
    const auto center = circleThrough(start, second, end);
    if (!center)
        return edFail(L"The three points lie in line.");
    const bool left = (second - start).crossProduct(end - second).z > 0.0;
    const AcGePoint3d& from = left ? start : end;
    const AcGePoint3d& to = left ? end : start;
    drawArc(*center, center->distanceTo(start), angleOf(*center, from), angleOf(*center, to));
}
// Centre from start, end and the angle between them, counter-clockwise.
void finishFromEnds(const AcGePoint3d& start) {
    AcGePoint3d end;
    double sweep = 0.0, radius = 0.0;
    if (!EdPrompt(L"Specify end point of arc: ").base(start).point(end).ok())
        return;
    AcGePoint3d center;
    const EdReply reply = EdPrompt(L"Specify center point of arc or [Angle/Radius]: ", L"Angle Radius").base(start).point(center);
    if (reply.ok())
        return drawArc(center, center.distanceTo(start), angleOf(center, start), angleOf(center, end));
    const double chord = start.distanceTo(end);
    if (reply.is(L"Radius")) {
        if (!EdPrompt(L"Specify radius of arc: ").noZero().distance(radius).ok())
            return;
        if (2.0 * std::abs(radius) < chord)
            return edFail(L"The radius is too small for these points.");
        sweep = 2.0 * std::asin(chord / 2.0 / std::abs(radius));
        sweep = radius > 0.0 ? sweep : kTwoPi - sweep;
    } else if (!reply.is(L"Angle") || !EdPrompt(L"Specify included angle: ").angle(sweep).ok() || sweep == 0.0) {
        return;
    }
    const AcGeVector3d half = (end - start) * 0.5;
    const AcGePoint3d middle = start + half + half.perpVector() * (1.0 / std::tan(sweep / 2.0));
    radius = middle.distanceTo(start);
    sweep > 0.0 ? drawArc(middle, radius, angleOf(middle, start), angleOf(middle, end))
                : drawArc(middle, radius, angleOf(middle, end), angleOf(middle, start));
}
} // namespace

void edCmdCircle() {
    AcGePoint3d center, a, b, c;
    const EdReply start = EdPrompt(L"Specify center point for circle or [3P/2P]: ", L"3P 2P").point(center);
    double radius = 0.0;
    if (start.is(L"2P")) {
        if (!EdPrompt(L"Specify first end point of circle's diameter: ").point(a).ok() || !EdPrompt(L"Specify second end point of circle's diameter: ").base(a).point(b).ok())
            return;
        center = a + (b - a) * 0.5;
        radius = a.distanceTo(b) / 2.0;
    } else if (start.is(L"3P")) {
        if (!EdPrompt(L"Specify first point on circle: ").point(a).ok() || !EdPrompt(L"Specify second point on circle: ").point(b).ok() ||
            !EdPrompt(L"Specify third point on circle: ").point(c).ok())
            return;
        const auto through = circleThrough(a, b, c);
        if (!through)
            return edFail(L"The three points lie in line.");
        center = *through;
        radius = center.distanceTo(a);
    } else if (!start.ok()) {
        return;
    } else {
        const std::wstring offered = gCircleRadius > 0.0 ? L" <" + edNumber(gCircleRadius) + L">: " : L": ";
        EdReply reply = EdPrompt(L"Specify radius of circle or [Diameter]" + offered, L"Diameter").base(center).noZero().noNegative().distance(radius);
        if (reply.is(L"Diameter")) {
            reply = EdPrompt(L"Specify diameter of circle: ").base(center).noZero().noNegative().distance(radius);
            radius /= 2.0;
        } else if (reply.none() && gCircleRadius > 0.0) {
            radius = gCircleRadius;
            reply.status = EdStatus::kNormal;
        }
        if (!reply.ok())
            return;
    }
    if (radius <= 0.0)
        return edFail(L"A circle of no radius cannot be drawn.");
    gCircleRadius = radius;
    edDraw(std::make_unique<AcDbCircle>(center, AcGeVector3d::kZAxis, radius));
}

void edCmdArc() {
    AcGePoint3d start, second, end;
    const EdReply first = EdPrompt(L"Specify start point of arc or [Center]: ", L"Center").point(start);
    if (first.is(L"Center")) {
        AcGePoint3d center;
        if (EdPrompt(L"Specify center point of arc: ").point(center).ok() && EdPrompt(L"Specify start point of arc: ").base(center).point(start).ok())
            finishFromCenter(center, start);
        return;
    }
    if (!first.ok())
        return;
    const EdReply next = EdPrompt(L"Specify second point of arc or [Center/End]: ", L"Center End").base(start).point(second);
    if (next.is(L"Center")) {
        if (EdPrompt(L"Specify center point of arc: ").base(start).point(second).ok())
            finishFromCenter(second, start);
    } else if (next.is(L"End")) {
        finishFromEnds(start);
    } else if (next.ok() && EdPrompt(L"Specify end point of arc: ").base(second).point(end).ok()) {
        throughThreePoints(start, second, end);
    }
}

void edCmdEllipse() {
    AcGePoint3d center, end;
    const EdReply first = EdPrompt(L"Specify axis endpoint of ellipse or [Center]: ", L"Center").point(center);
    AcGeVector3d axis;
    if (first.is(L"Center")) {
        if (!EdPrompt(L"Specify center of ellipse: ").point(center).ok() || !EdPrompt(L"Specify endpoint of axis: ").base(center).point(end).ok())
            return;
        axis = end - center;
    } else {
        if (!first.ok() || !EdPrompt(L"Specify other endpoint of axis: ").base(center).point(end).ok())
            return;
        axis = (end - center) * 0.5;
        center = center + axis;
    }
    double other = 0.0;
    if (!EdPrompt(L"Specify distance to other axis: ").base(center).noZero().noNegative().distance(other).ok())
        return;
    if (axis.isZeroLength())
        return edFail(L"An ellipse needs an axis.");
    double ratio = other / axis.length();
    if (ratio > 1.0) { // the stored axis is the longer one
        axis = axis.perpVector().normal() * other;
        ratio = 1.0 / ratio;
    }
    edDraw(std::make_unique<AcDbEllipse>(center, AcGeVector3d::kZAxis, axis, ratio));
}
