// A hatched area: its loops, its pattern, its picture.
#include "AcDbEntities.h"

#include "AcUtText.h"
#include "DbFields.h"
#include "FillScope.h"
#include "HatchLoops.h"
#include "Listing.h"

HOST_RX_DEFINE(AcDbHatch, AcDbEntity, L"HATCH")
DB_FILE_FIELDS(AcDbHatch, AcDbEntity);

namespace {
template <class Archive, class E> void fileEdge(Archive& archive, E& e) {
    archive(e.kind, e.start, e.end, e.center, e.majorAxis, e.radius, e.ratio, e.startAngle, e.endAngle);
    archive(e.counterClockwise, e.degree, e.rational, e.periodic);
    archive.list(e.knots);
    archive.list(e.weights);
    archive.list(e.control);
}

template <class Archive, class L> void fileLoop(Archive& archive, L& loop) {
    archive(loop.type, loop.closed, loop.hasBulges);
    archive.list(loop.vertices);
    archive.list(loop.bulges);
    archive.list(loop.edges, [](auto& items, auto& edge) { fileEdge(items, edge); });
    archive.softPointers(loop.associated);
}

template <class Archive, class P> void filePatternLine(Archive& archive, P& line) {
    archive(line.angle, line.base, line.offset);
    archive.list(line.dashes);
}
} // namespace

template <class Self, class Archive> void AcDbHatch::fields(Self& self, Archive& archive) {
    archive.list(self.mLoops, [](auto& items, auto& loop) { fileLoop(items, loop); });
    archive.list(self.mPatternLines, [](auto& items, auto& line) { filePatternLine(items, line); });
    archive.list(self.mSeeds);
    archive(self.mPatternName, self.mSolid, self.mAssociative, self.mDouble, self.mPatternType, self.mPixelSize);
    archive(self.mElevation, self.mPatternAngle, self.mPatternScale, self.mStyle, self.mNormal);
}

// ---- content
Acad::ErrorStatus AcDbHatch::appendLoop(const Loop& loop) {
    assertWriteEnabled();
    if (loop.edges.empty() && loop.vertices.size() < 2)
        return Acad::eInvalidInput;
    mLoops.push_back(loop);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::appendLoop(Adesk::Int32 type, const AcGePoint2dArray& vertices,
                                        const AcGeDoubleArray& bulges) {
    if (!bulges.isEmpty() && bulges.length() != vertices.length())
        return Acad::eInvalidInput;
    Loop loop;
    loop.type = type | kPolyline;
    loop.vertices.assign(vertices.begin(), vertices.end());
    loop.bulges.assign(bulges.begin(), bulges.end());
    if (loop.vertices.size() > 2 && loop.vertices.front() == loop.vertices.back()) {
        loop.vertices.pop_back();
        if (!loop.bulges.empty())
            loop.bulges.pop_back();
    }
    for (const double bulge : loop.bulges)
        loop.hasBulges = loop.hasBulges || bulge != 0.0;
    return appendLoop(loop);
}

Acad::ErrorStatus AcDbHatch::evaluateHatch(bool) {
    assertWriteEnabled();
    return mLoops.empty() ? Acad::eInvalidInput : Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setSolid() {
    assertWriteEnabled();
    mPatternName = L"SOLID";
    mPatternLines.clear();
    mPatternType = kPreDefined;
    mSolid = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setPattern(HatchPatternType type, const ACHAR* name) {
    if (name == nullptr || acutWcsicmp(name, L"SOLID") != 0)
        return Acad::eInvalidInput;
    setSolid();
    mPatternType = static_cast<Adesk::Int16>(type);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setPattern(const ACHAR* name, double scale, double angle,
                                        const std::vector<PatternLine>& lines) {
    assertWriteEnabled();
    if (name == nullptr || !(scale > 0.0) || lines.empty())
        return Acad::eInvalidInput;
    mPatternName = name;
    mPatternScale = scale, mPatternAngle = angle;
    mPatternLines = lines;
    mSolid = false;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setAssociative(bool associative) {
    assertWriteEnabled();
    mAssociative = associative;
    if (!associative)
        for (Loop& loop : mLoops)
            loop.associated.removeAll();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::getArea(double& area) const {
    assertReadEnabled();
    if (mLoops.empty())
        return Acad::eInvalidInput;
    area = dbHatchArea(mLoops);
    return Acad::eOk;
}

// ---- picture
namespace {
// Draws the boundary with the curves it is made of.
class OutlineDrawer : public DbLoopVisitor {
public:
    OutlineDrawer(AcGiGeometry& geometry, const AcDbHatch& hatch)
        : mGeometry(geometry), mPlane(hatch.normal()), mElevation(hatch.elevation()) {}
    void line(const AcGePoint2d& from, const AcGePoint2d& to) override {
        const AcGePoint3d ends[2] = {mPlane.point(from, mElevation), mPlane.point(to, mElevation)};
        mGeometry.polyline(2, ends);
    }
    void arc(const DbHatchArc& arc) override {
        const DbEllipse& c = arc.curve;
        const double longer = c.major.length();
        const double ratio = longer > 0.0 ? c.minor.length() / longer : 1.0;
        mGeometry.ellipticalArc(mPlane.point({c.center.x, c.center.y}, mElevation), mPlane.normal,
                                mPlane.x * c.major.x + mPlane.y * c.major.y, ratio, c.start, c.end);
    }
    void spline(const AcDbHatch::Edge& edge) override {
        std::vector<AcGePoint3d> points = dbSampleEdge(edge, 0.0);
        for (AcGePoint3d& p : points)
            p = mPlane.point({p.x, p.y}, mElevation);
        mGeometry.polyline(static_cast<Adesk::UInt32>(points.size()), points.data());
    }

private:
    AcGiGeometry& mGeometry;
    DbPlane mPlane;
    double mElevation;
};

// A loop that goes once round a circle or an ellipse, in one piece or several.
class WholeCurve : public DbLoopVisitor {
public:
    explicit WholeCurve(const AcDbHatch::Loop& loop) { dbWalkLoop(loop, *this); }
    bool found() const { return mWhole && std::abs(std::abs(mSweep) - kTwoPi) < 1.0e-6; }
    const DbEllipse& curve() const { return mCurve; }
    void line(const AcGePoint2d& from, const AcGePoint2d& to) override { mWhole = mWhole && isSame(from.distanceTo(to)); }
    void arc(const DbHatchArc& arc) override {
        const DbEllipse& c = arc.curve;
        if (mSweep == 0.0) {
            mCurve = c;
            mEnd = arc.from();
        }
        mWhole = mWhole && isSame(c.center.distanceTo(mCurve.center)) && isSame((c.major - mCurve.major).length()) &&
                 isSame((c.minor - mCurve.minor).length()) && isSame(arc.from().distanceTo(mEnd));
        mEnd = arc.to();
        mSweep += (c.end - c.start) * (arc.backwards ? -1.0 : 1.0);
    }
    void spline(const AcDbHatch::Edge&) override { mWhole = false; }

private:
    bool isSame(double distance) const { return distance <= mCurve.major.length() * 1.0e-6; }
    DbEllipse mCurve;
    AcGePoint3d mEnd;
    double mSweep = 0.0;
    bool mWhole = true;
};

// Plates are discs more often than not. As a curve, a disc is round at any size at which it is shown.
bool fillWhole(const DbEllipse& curve, const AcDbHatch& hatch, AcGiWorldDraw& worldDraw) {
    const DbFillScope filled(worldDraw.subEntityTraits());
    const DbPlane plane(hatch.normal());
    const AcGePoint3d center = plane.point({curve.center.x, curve.center.y}, hatch.elevation());
    if (curve.isCircular())
        return !worldDraw.geometry().circle(center, curve.major.length(), plane.normal);
    return !worldDraw.geometry().ellipticalArc(center, plane.normal, plane.x * curve.major.x + plane.y * curve.major.y,
                                               curve.minor.length() / curve.major.length(), 0.0, kTwoPi);
}

bool fill(const DbRings& rings, const AcDbHatch& hatch, AcGiGeometry& geometry) {
    const DbPlane plane(hatch.normal());
    AcGiFillLoops loops(rings.size());
    for (std::size_t i = 0; i < rings.size(); ++i) {
        loops[i].reserve(rings[i].size());
        for (const AcGePoint2d& p : rings[i])
            loops[i].push_back(plane.point(p, hatch.elevation()));
    }
    return loops.empty() || !geometry.filledLoops(loops);
}
} // namespace

bool AcDbHatch::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    AcGiGeometry& geometry = worldDraw->geometry();
    if (worldDraw->regenType() == kAcGiForExtents) { // the chords of a filled arc would fall short of it
        OutlineDrawer outline(geometry, *this);
        for (const Loop& loop : mLoops)
            dbWalkLoop(loop, outline);
        return true;
    }
    if (mSolid && mLoops.size() == 1)
        if (const WholeCurve whole(mLoops.front()); whole.found())
            return fillWhole(whole.curve(), *this, *worldDraw);
    const DbRings rings = dbFlattenLoops(mLoops, worldDraw->deviation());
    if (mSolid)
        return fill(rings, *this, geometry);
    const DbPlane plane(mNormal);
    bool broken = false;
    const bool drawn = dbForEachDash(rings, mPatternLines, [&](const AcGePoint2d& from, const AcGePoint2d& to) {
        const AcGePoint3d ends[2] = {plane.point(from, mElevation), plane.point(to, mElevation)};
        broken = broken || geometry.polyline(2, ends);
    });
    return drawn ? !broken : fill(rings, *this, geometry); // lines that dense are a grey area to the eye
}

Acad::ErrorStatus AcDbHatch::subExplode(AcDbVoidPtrArray& entities) const {
    assertReadEnabled();
    if (mSolid)
        return Acad::eCannotExplodeEntity;
    const DbPlane plane(mNormal);
    const bool told = dbForEachDash(dbFlattenLoops(mLoops, 0.0), mPatternLines, [&](const AcGePoint2d& a, const AcGePoint2d& b) {
        const AcGePoint3d from = plane.point(a, mElevation), to = plane.point(b, mElevation);
        AcDbEntity* piece = nullptr;
        if (a.x == b.x && a.y == b.y)
            piece = new AcDbPoint(from);
        else
            piece = new AcDbLine(from, to);
        piece->setPropertiesFrom(this);
        entities.append(piece);
    });
    return told ? Acad::eOk : Acad::eCannotExplodeEntity;
}

Acad::ErrorStatus AcDbHatch::subGetOsnapPoints(AcDb::OsnapMode, std::intptr_t, const AcGePoint3d&, const AcGePoint3d&,
                                               const AcGeMatrix3d&, AcGePoint3dArray&, AcIntArray&) const {
    assertReadEnabled();
    return Acad::eOk; // snapping goes to the boundary objects, not to the filling
}

// One grip, in the middle of the loops' box; it moves the hatch.
Acad::ErrorStatus AcDbHatch::subGetGripPoints(AcGePoint3dArray& points, AcIntArray&, AcIntArray&) const {
    assertReadEnabled();
    const AcDbExtents box = dbRingsBox(dbFlattenLoops(mLoops, 0.0));
    if (!box.isValid())
        return Acad::eInvalidExtents;
    const AcGePoint3d middle = box.minPoint() + (box.maxPoint() - box.minPoint()) * 0.5;
    points.append(DbPlane(mNormal).point({middle.x, middle.y}, mElevation));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::subMoveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset) {
    return indices.contains(0) ? AcDbHatch::subTransformBy(AcGeMatrix3d::translation(offset)) : Acad::eOk;
}

void AcDbHatch::subList() const {
    AcDbEntity::subList();
    dbListText(L"pattern", mPatternName.c_str());
    dbListNumber(L"scale", mPatternScale);
    dbListAngle(L"angle", mPatternAngle);
    dbListText(L"associative", mAssociative ? L"Yes" : L"No");
    dbListNumber(L"elevation", mElevation);
    if (!mLoops.empty())
        dbListNumber(L"area", dbHatchArea(mLoops));
    dbListNormal(mNormal);
}
