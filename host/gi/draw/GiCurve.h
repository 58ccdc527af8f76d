// Chords and exact boxes of circles, arcs and elliptic arcs.
#pragma once

#include "AcGiReceivers.h"

// Appends the points of the arc from start to end, chords no farther than the deviation from it. A
// full turn does not repeat its first point.
void giAppendArcChords(const GiArc& arc, double deviation, std::vector<AcGePoint3d>& points);
// Whether the drawn outline closes: full turns, sectors and chord segments.
bool giArcIsClosed(const GiArc& arc);
// Whether its outline runs over the centre, which then follows the chords.
bool giArcEndsInItsCenter(const GiArc& arc);
// Adds the exact box of what is drawn of it.
void giAddArcExtents(const GiArc& arc, AcDbExtents& extents);
GiArc giTransformed(const GiArc& arc, const AcGeMatrix3d& transform);
