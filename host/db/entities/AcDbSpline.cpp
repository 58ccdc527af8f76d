// A spline curve, by control points or by fit points.
#include "AcDbEntities.h"

#include "DbFields.h"
#include "Listing.h"
#include "OsnapMath.h"
#include "SplineMath.h"

#include <algorithm>

HOST_RX_DEFINE(AcDbSpline, AcDbCurve, L"SPLINE")
DB_FILE_FIELDS(AcDbSpline, AcDbCurve);

template <class Self, class Archive> void AcDbSpline::fields(Self& self, Archive& archive) {
    archive(self.mDegree, self.mRational, self.mClosed, self.mPeriodic);
    archive.list(self.mKnots);
    archive.list(self.mControl);
    archive.list(self.mWeights);
    archive.list(self.mFit);
    archive(self.mStartTangent, self.mEndTangent, self.mFitTolerance, self.mKnotTolerance, self.mControlTolerance);
}

std::vector<AcGePoint3d> AcDbSpline::sample(double deviation) const {
    assertReadEnabled();
    if (mControl.empty())
        return dbSampleFit(mFit, mStartTangent, mEndTangent, deviation);
    static const std::vector<double> kNone;
    return dbSampleNurbs({mDegree, mKnots, mControl, mRational ? mWeights : kNone}, deviation);
}

namespace {
// A measured curve is sampled finer than a drawn one: its chords fall short of it.
double deviationFor(const AcGiWorldDraw& worldDraw, const std::vector<AcGePoint3d>& points) {
    if (worldDraw.regenType() != kAcGiForExtents || points.empty())
        return worldDraw.deviation();
    double size = 0.0;
    for (const AcGePoint3d& p : points)
        size = std::max(size, p.distanceTo(points.front()));
    return std::max(size * 1e-7, 1e-12);
}
} // namespace

bool AcDbSpline::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    const std::vector<AcGePoint3d> points = sample(deviationFor(*worldDraw, mControl.empty() ? mFit : mControl));
    return points.size() < 2 ||
           !worldDraw->geometry().polyline(static_cast<Adesk::UInt32>(points.size()), points.data());
}

Acad::ErrorStatus AcDbSpline::subTransformBy(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    for (AcGePoint3d& p : mControl)
        p.transformBy(matrix);
    for (AcGePoint3d& p : mFit)
        p.transformBy(matrix);
    mStartTangent.transformBy(matrix);
    mEndTangent.transformBy(matrix);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t, const AcGePoint3d& pick,
                                                const AcGePoint3d& last, const AcGeMatrix3d&, AcGePoint3dArray& points,
                                                AcIntArray&) const {
    assertReadEnabled();
    const std::vector<AcGePoint3d> curve = sample(0.0);
    if (curve.size() < 2)
        return Acad::eOk;
    if (mode == AcDb::kOsModeEnd && !mClosed && !mPeriodic) {
        points.append(curve.front());
        points.append(curve.back());
    }
    if (mode != AcDb::kOsModeNear)
        return Acad::eOk;
    const DbSnap snap{mode, pick, last, points};
    const int first = points.length();
    for (std::size_t i = 1; i < curve.size(); ++i)
        dbSnapLine(snap, curve[i - 1], curve[i]);
    dbKeepNearest(snap, first);
    return Acad::eOk;
}

// The control points where the curve has them, else the fit points.
Acad::ErrorStatus AcDbSpline::subGetGripPoints(AcGePoint3dArray& points, AcIntArray&, AcIntArray&) const {
    assertReadEnabled();
    for (const AcGePoint3d& p : mControl.empty() ? mFit : mControl)
        points.append(p);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::subMoveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset) {
    assertWriteEnabled();
    std::vector<AcGePoint3d>& moved = mControl.empty() ? mFit : mControl;
    for (const int i : indices)
        if (i >= 0 && i < static_cast<int>(moved.size()))
            moved[static_cast<std::size_t>(i)] += offset;
    if (!mControl.empty())
        mFit.clear(); // the curve no longer runs through them
    return Acad::eOk;
}

void AcDbSpline::subList() const {
    AcDbCurve::subList();
    dbListNumber(L"order", mDegree + 1);
    dbListText(L"properties", mClosed ? L"Closed" : mRational ? L"Rational" : L"Non-rational");
    for (const AcGePoint3d& p : mControl)
        dbListPoint(L"control point", p);
    for (const AcGePoint3d& p : mFit)
        dbListPoint(L"fit point", p);
}
