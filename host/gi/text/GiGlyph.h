// The outline of one character, in units in which a capital H is 1 high. Never changes once made.
#pragma once

#include "AcGe.h"

#include <vector>

// A line (degree 1), or a quadratic or cubic Bezier curve from the end of the one before.
struct GiGlyphSegment {
    int degree = 1;
    AcGePoint2d control1, control2; // the first alone for a quadratic one
    AcGePoint2d end;
};
struct GiGlyphContour {
    AcGePoint2d start;
    std::vector<GiGlyphSegment> segments;
};
struct GiGlyph {
    std::vector<GiGlyphContour> contours;
    AcGePoint2d low, high; // a box that holds all curves with their control points
    double advance = 0.0;
};
