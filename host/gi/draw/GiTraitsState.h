// The one implementation of traits that all receivers share: a value with setters.
#pragma once

#include "AcGiReceivers.h"

class GiTraitsState final : public AcGiSubEntityTraits {
public:
    GiTraits value;

    void setColor(Adesk::UInt16 index) override { value.color.setColorIndex(index); }
    void setTrueColor(const AcCmEntityColor& color) override { value.color = color; }
    void setLayer(AcDbObjectId layer) override { value.layer = layer; }
    void setLineType(AcDbObjectId linetype) override { value.lineType = linetype; }
    void setLineTypeScale(double scale) override { value.lineTypeScale = scale; }
    void setLineWeight(AcDb::LineWeight weight) override { value.lineWeight = weight; }
    void setFillType(AcGiFillType fill) override { value.fill = fill; }
    void setThickness(double thickness) override { value.thickness = thickness; }
    Adesk::UInt16 color() const override { return value.color.colorIndex(); }
    AcCmEntityColor trueColor() const override { return value.color; }
    AcDbObjectId layerId() const override { return value.layer; }
    AcDbObjectId lineTypeId() const override { return value.lineType; }
    double lineTypeScale() const override { return value.lineTypeScale; }
    AcDb::LineWeight lineWeight() const override { return value.lineWeight; }
    AcGiFillType fillType() const override { return value.fill; }
    double thickness() const override { return value.thickness; }
};
