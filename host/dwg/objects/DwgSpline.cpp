// SPLINE: Open Design description of DWG, chapter "SPLINE (36)", R2000 form: by control points, or by the
// points it passes through.
#include "DwgClassRow.h"

template <> struct DbObjectAccess::DwgFields<AcDbSpline> {
    enum Scenario { kControl = 1, kFit = 2 };

    template <class Stream> static void file(Stream& s, AcDbSpline& spline) {
        int scenario = spline.mControl.empty() && !spline.mFit.empty() ? kFit : kControl;
        s.BL(scenario);
        s.BL(spline.mDegree);
        if (scenario == kFit)
            fit(s, spline);
        else if (scenario == kControl)
            control(s, spline);
        else if constexpr (Stream::kReading)
            s.fail();
    }

    template <class Stream> static void fit(Stream& s, AcDbSpline& spline) {
        s.BD(spline.mFitTolerance);
        s.BD3(spline.mStartTangent);
        s.BD3(spline.mEndTangent);
        auto count = static_cast<Adesk::Int32>(spline.mFit.size());
        s.BL(count);
        s.sized(spline.mFit, count, 6);
        for (AcGePoint3d& p : spline.mFit)
            s.BD3(p);
    }

    template <class Stream> static void control(Stream& s, AcDbSpline& spline) {
        s.B(spline.mRational);
        s.B(spline.mClosed);
        s.B(spline.mPeriodic);
        s.BD(spline.mKnotTolerance);
        s.BD(spline.mControlTolerance);
        auto knots = static_cast<Adesk::Int32>(spline.mKnots.size());
        auto points = static_cast<Adesk::Int32>(spline.mControl.size());
        bool weighted = spline.mWeights.size() == spline.mControl.size() && !spline.mWeights.empty();
        s.BL(knots);
        s.BL(points);
        s.B(weighted);
        s.sized(spline.mKnots, knots, 2);
        s.sized(spline.mControl, points, 6);
        if constexpr (Stream::kReading)
            spline.mWeights.resize(weighted ? spline.mControl.size() : 0);
        for (double& knot : spline.mKnots)
            s.BD(knot);
        for (std::size_t i = 0; i < spline.mControl.size(); ++i) {
            s.BD3(spline.mControl[i]);
            if (weighted)
                s.BD(spline.mWeights[i]);
        }
    }
};
extern const DwgClassRow kDwgSpline = dwgClassRow<AcDbSpline>(0x24);
