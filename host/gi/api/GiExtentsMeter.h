// The box of many pictures, measured one after the other.
#pragma once

#include "AcGiReceivers.h"

#include <unordered_map>

// Exact as giExtentsOf. A shared picture under a transform is gone through only where its box reaches
// beyond what has been measured already, so ten thousand repetitions cost little more than their boxes.
class GiExtentsMeter {
public:
    // The pictures that the list shares must outlive the meter: keep the builder that made it.
    void add(const GiDisplayList& list);
    void add(const AcDbExtents& box) { mTotal.addExt(box); }
    // Whether nothing in the box could make the extents larger.
    bool covers(const AcDbExtents& box) const;
    const AcDbExtents& extents() const { return mTotal; }

private:
    friend struct GiShapeMeasurer;
    using Boxes = std::unordered_map<const GiDisplayList*, AcDbExtents>;
    AcDbExtents mTotal;
    Boxes mBoxes; // of shared pictures, in their own coordinates
};
