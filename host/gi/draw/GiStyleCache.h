// Resolves traits to styles, asking the resolver once about each layer and line type: a drawing
// has tens of layers and hundreds of thousands of primitives.
#pragma once

#include "AcGiReceivers.h"

#include <unordered_map>

// What the primitives of a picture inherit from the reference that shows it; outside any
// reference, the look of by-block things that lie loose in the drawing.
struct GiInherited {
    AcDbObjectId layer;
    AcCmEntityColor color = AcCmEntityColor::fromIndex(AcCmEntityColor::kACIforeground);
    AcDbObjectId lineType; // never by layer or by block
    double lineTypeScale = 1.0;
    int lineWeight = AcDb::kLnWtByLwDefault;
    bool inside = false; // a reference
};

class GiStyleCache {
public:
    explicit GiStyleCache(const GiStyleResolver& resolver);
    // What a reference with these traits hands down; colour, weight and line type resolved.
    GiInherited handDown(const GiTraits& traits, const GiInherited& from);
    // Null when the layer is off or frozen. The reference is good until the next call.
    const GiStyle* style(const GiTraits& traits, const GiInherited& from, AcDbObjectId owner);
    // True when a reference on that layer hides even its parts on other layers.
    bool hidesAll(const GiTraits& traits, const GiInherited& from);

private:
    struct Layer {
        bool visible, frozen, zero;
        AcCmEntityColor color;
        int lineWeight;
        AcDbObjectId lineType;
    };
    struct LineType {
        bool byLayer, byBlock;
        std::vector<double> dashes;
    };
    const Layer& layerOf(AcDbObjectId id);
    const LineType& lineTypeOf(AcDbObjectId id);
    AcDbObjectId layerFor(const GiTraits& traits, const GiInherited& from);
    void setDashes(AcDbObjectId lineType, double scale);

    const GiStyleResolver& mResolver;
    const double mDrawingScale;
    const int mDefaultWeight;
    std::unordered_map<AcDbObjectId, Layer> mLayers;
    std::unordered_map<AcDbObjectId, LineType> mLineTypes;
    GiStyle mStyle;
    AcDbObjectId mDashesOf; // line type and scale of the dashes in mStyle
    double mDashesScale = 0.0;
};
