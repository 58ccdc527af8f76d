// Points on splines: non-uniform rational curves by control points, and curves through fit points.
#pragma once

#include "AcGe.h"

#include <vector>

// A curve of B-splines. Weights may be missing (all one). Planar curves leave z zero.
struct DbNurbs {
    int degree = 3;
    const std::vector<double>& knots;
    const std::vector<AcGePoint3d>& control;
    const std::vector<double>& weights;

    // False where the counts do not fit or the knots decrease: such data came from a damaged file.
    bool isValid() const;
    double startParameter() const { return knots[static_cast<std::size_t>(degree)]; }
    double endParameter() const { return knots[control.size()]; }
    AcGePoint3d at(double t) const; // by de Boor's rule
};
// Points on the curve, the chords between them within the deviation (0 takes 1/1000 of the curve's size).
std::vector<AcGePoint3d> dbSampleNurbs(const DbNurbs& curve, double deviation);

// The cubic curve through the points, with chord lengths as parameters, as its tangents at the points. A zero
// end tangent leaves that end straight.
std::vector<AcGeVector3d> dbFitTangents(const std::vector<AcGePoint3d>& points, const AcGeVector3d& start,
                                        const AcGeVector3d& end);
std::vector<AcGePoint3d> dbSampleFit(const std::vector<AcGePoint3d>& points, const AcGeVector3d& start,
                                     const AcGeVector3d& end, double deviation);
