// One well-filled example of every entity that stands by itself.
#pragma once

#include "AcDbBlockReference.h"

#include <functional>
#include <memory>

struct EntitySample {
    const wchar_t* name; // of the class
    std::function<std::unique_ptr<AcDbEntity>()> make;
    bool mirrors = true;        // a mirrored one looks like the mirror's picture
    bool takesUnequal = true;   // takes a scale that differs by axis
    double tolerance = 1e-8;    // of its measured extents
};
std::vector<EntitySample> entitySamples();
