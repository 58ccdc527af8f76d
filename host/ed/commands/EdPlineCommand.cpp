// PLINE: lines and arcs in one, with widths.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

#include "AcDbEntities.h"

#include <vector>

namespace {
constexpr double kBehind = 1.0e-6; // radians from straight back
double gWidth = 0.0; // of the last polyline, kept for the next

// A polyline as it is drawn; the drawing gets it whole at the end.
class Pline {
public:
    bool begin();
    void run();

private:
    enum class Step { kGoOn, kDone, kDropped };
    Step askLine();
    Step askArc();
    Step option(const EdReply& reply);
    bool askWidth(bool half);
    void addLine(const AcGePoint3d& p);
    void addArc(const AcGePoint3d& p, double bulge);
    bool arcByCenter();
    bool arcBySecond();
    bool arcByAngle();
    bool arcByDirection();
    double tangentAtEnd() const;
    double bulgeByTangent(const AcGePoint3d& to, double tangent) const;
    AcGePoint3d last() const { return {mVertices.back().point.x, mVertices.back().point.y, mElevation}; }
    void draw();

    std::vector<AcDbPolyline::Vertex> mVertices; // bulge and widths of the segment that begins there
    double mElevation = 0.0, mStartWidth = gWidth, mEndWidth = gWidth;
    bool mArc = false, mClosed = false;
};

bool Pline::begin() {
    AcGePoint3d p;
    if (!EdPrompt(L"Specify start point: ").point(p).ok())
        return false;
    mElevation = p.z;
    mVertices.push_back({edPoint2d(p), 0.0, 0.0, 0.0});
    edSay(L"Current line-width is " + edNumber(gWidth));
    return true;
}
void Pline::run() {
    for (;;) {
        const Step step = mArc ? askArc() : askLine();
        if (step == Step::kGoOn)
            continue;
        if (step == Step::kDone)
            draw();
        return;
    }
}
Pline::Step Pline::askLine() {
    AcGePoint3d p;
    const EdReply reply = EdPrompt(L"Specify next point or [Arc/Close/Halfwidth/Length/Undo/Width]: ", L"Arc Close Halfwidth Length Undo Width").base(last()).point(p);
    if (reply.ok()) {
        addLine(p);
        return Step::kGoOn;
    }
    if (reply.is(L"Length")) {
        double length = 0.0;
        if (!EdPrompt(L"Specify length of line: ").base(last()).distance(length).ok())
            return Step::kDone;
        const double angle = tangentAtEnd();
        addLine(last() + AcGeVector3d(std::cos(angle), std::sin(angle), 0.0) * length);
        return Step::kGoOn;
    }
    return option(reply);
}
Pline::Step Pline::askArc() {
    AcGePoint3d p;
    const EdReply reply = EdPrompt(L"Specify endpoint of arc or [Angle/CEnter/CLose/Direction/Halfwidth/Line/Second pt/Undo/Width]: ",
                                   L"Angle CEnter Close Direction Halfwidth Line Second Undo Width")
                              .base(last())
                              .point(p);
    bool drawn = true;
    if (reply.ok())
        addArc(p, bulgeByTangent(p, tangentAtEnd()));
    else if (reply.is(L"Angle"))
        drawn = arcByAngle();
    else if (reply.is(L"CEnter"))
        drawn = arcByCenter();
    else if (reply.is(L"Second"))
        drawn = arcBySecond();
    else if (reply.is(L"Direction"))
        drawn = arcByDirection();
    else
        return option(reply);
    return drawn ? Step::kGoOn : Step::kDone;
}
Pline::Step Pline::option(const EdReply& reply) {
    if (reply.none())
        return Step::kDone;
    if (reply.cancelled())
        return EdInputStack::instance().refused() ? Step::kDropped : Step::kDone;
    if (reply.is(L"Arc") || reply.is(L"Line")) {
        mArc = reply.is(L"Arc");
    } else if (reply.is(L"Close")) {
        mClosed = true;
        if (mVertices.size() > 2 && mVertices.back().point == mVertices.front().point) {
            mVertices.pop_back(); // it is closed already
            return Step::kDone;
        }
        mVertices.back().bulge = mArc ? bulgeByTangent({mVertices.front().point.x, mVertices.front().point.y, mElevation}, tangentAtEnd()) : 0.0;
        mVertices.back().startWidth = mStartWidth;
        mVertices.back().endWidth = mEndWidth;
        return Step::kDone;
    } else if (reply.is(L"Undo")) {
        if (mVertices.size() > 1)
            mVertices.pop_back();
        else
            acutPrintf(L"All segments already undone.\n");
        edSetLastPoint(last());
    } else if (!askWidth(reply.is(L"Halfwidth"))) {
        return Step::kDone;
    }
    return Step::kGoOn;
}
bool Pline::askWidth(bool half) {
    const double factor = half ? 2.0 : 1.0;
    const std::wstring what = half ? L"half-width" : L"width";
    double start = mStartWidth / factor, end = 0.0;
    if (EdPrompt(L"Specify starting " + what + L" <" + edNumber(start) + L">: ").noNegative().distance(start).cancelled())
        return false;
    end = start;
    if (EdPrompt(L"Specify ending " + what + L" <" + edNumber(end) + L">: ").noNegative().distance(end).cancelled())
        return false;
    mStartWidth = start * factor;
    mEndWidth = end * factor;
    return true;
}
void Pline::addLine(const AcGePoint3d& p) {
    addArc(p, 0.0);
}
void Pline::addArc(const AcGePoint3d& p, double bulge) {
    AcDbPolyline::Vertex& from = mVertices.back();
    from.bulge = bulge;
    from.startWidth = mStartWidth;
    from.endWidth = mEndWidth;
    gWidth = mStartWidth = mEndWidth; // what follows goes on with the ending width
    mVertices.push_back({edPoint2d(p), 0.0, 0.0, 0.0});
}
// Direction in which the last segment ends; along X before the first.
double Pline::tangentAtEnd() const {
    if (mVertices.size() < 2)
        return 0.0;
    const AcDbPolyline::Vertex& from = mVertices[mVertices.size() - 2];
    const AcGeVector2d chord = mVertices.back().point - from.point;
    return chord.angle() + 2.0 * std::atan(from.bulge);
}
// The bulge of the arc that leaves the last point along the tangent and reaches `to`: half of the
// angle between tangent and chord is a quarter of its sweep.
double Pline::bulgeByTangent(const AcGePoint3d& to, double tangent) const {
    const AcGeVector2d chord = edPoint2d(to) - mVertices.back().point;
    double half = std::remainder(chord.angle() - tangent, kTwoPi);
    if (std::abs(half) > kPi - kBehind)
        return 1.0; // no tangent arc leads straight back; a half turn is the nearest that does
    return std::tan(half / 2.0);
}
bool Pline::arcByAngle() {
    double sweep = 0.0;
    AcGePoint3d end;
    if (!EdPrompt(L"Specify included angle: ").base(last()).angle(sweep).ok() || !EdPrompt(L"Specify endpoint of arc: ").base(last()).point(end).ok())
        return false;
    addArc(end, std::tan(sweep / 4.0));
    return true;
}
bool Pline::arcByDirection() {
    double tangent = 0.0;
    AcGePoint3d end;
    if (!EdPrompt(L"Specify the tangent direction from the start point of arc: ").base(last()).angle(tangent).ok() ||
        !EdPrompt(L"Specify endpoint of the arc: ").base(last()).point(end).ok())
        return false;
    addArc(end, bulgeByTangent(end, tangent));
    return true;
}
// Counter-clockwise about the centre, to the ray through the given end.
bool Pline::arcByCenter() {
    AcGePoint3d center, end;
    if (!EdPrompt(L"Specify center point of arc: ").base(last()).point(center).ok() || !EdPrompt(L"Specify endpoint of arc: ").base(center).point(end).ok())
        return false;
    const AcGePoint3d from = last();
    const double a0 = AcGeVector2d(from.x - center.x, from.y - center.y).angle(), a1 = AcGeVector2d(end.x - center.x, end.y - center.y).angle();
    const double sweep = a1 > a0 ? a1 - a0 : a1 - a0 + kTwoPi, radius = from.distanceTo(center);
    addArc({center.x + radius * std::cos(a1), center.y + radius * std::sin(a1), mElevation}, std::tan(sweep / 4.0));
    return true;
}
bool Pline::arcBySecond() {
    AcGePoint3d second, end;
    if (!EdPrompt(L"Specify second point on arc: ").base(last()).point(second).ok() || !EdPrompt(L"Specify end point of arc: ").base(second).point(end).ok())
        return false;
    // The angle at the second point sees the chord under the rest of the half turn.
    const AcGeVector3d a = last() - second, b = end - second;
    const double inscribed = a.angleTo(b);
    const double quarter = (kPi - inscribed) / 2.0;
    addArc(end, a.crossProduct(b).z < 0.0 ? std::tan(quarter) : -std::tan(quarter));
    return true;
}
void Pline::draw() {
    if (mVertices.size() < 2)
        return;
    auto line = std::make_unique<AcDbPolyline>(static_cast<unsigned>(mVertices.size()));
    for (unsigned i = 0; i < mVertices.size(); ++i)
        line->addVertexAt(i, mVertices[i].point, mVertices[i].bulge, mVertices[i].startWidth, mVertices[i].endWidth);
    line->setClosed(mClosed);
    line->setElevation(mElevation);
    edDraw(std::move(line));
}
} // namespace

void edCmdPline() {
    Pline pline;
    if (pline.begin())
        pline.run();
}
