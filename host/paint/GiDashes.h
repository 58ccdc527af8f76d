// Cuts a polyline into the dashes of a line type.
#pragma once

#include "AcGe.h"

#include <functional>
#include <vector>

// A piece that is drawn: its points, and where it begins and ends along the line, counted in the line's points
// (2.5 lies in the middle between points 2 and 3).
using GiDashVisitor = std::function<void(const std::vector<AcGePoint2d>& piece, double from, double to)>;

// Calls `dash` for each piece that is drawn, in order; a dot is a piece of two equal points. pattern:
// dashes positive, gaps negative, dots 0, in the points' units. The line begins and ends with a dash,
// lengthened or shortened alike at both ends, so that corners stay closed. False, with nothing called,
// where the line is better drawn whole: no gaps in the pattern, shorter than one pattern, or
// more than a hundred thousand pieces.
bool giCutDashes(const std::vector<AcGePoint2d>& points, bool closed, const std::vector<double>& pattern,
                 const GiDashVisitor& dash);
