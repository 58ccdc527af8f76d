// Closed loops for a hatch from the objects that bound it.
#pragma once

#include "AcDbEntities.h"

#include <vector>

// Each closed object is a loop; lines, arcs and open polylines that meet end to end make loops together.
// What closes no area is left out.
std::vector<AcDbHatch::Loop> edHatchLoops(const AcDbObjectIdArray& ids);
