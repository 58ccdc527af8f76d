// What layers and line types of a drawing look like, for the painter. Reads the records as they stand,
// open or not; made for one regeneration.
#pragma once

#include "AcDbDatabase.h"
#include "AcGiReceivers.h"

class DbStyleResolver : public GiStyleResolver {
public:
    explicit DbStyleResolver(const AcDbDatabase& db) : mDb(db) {}
    bool isVisible(AcDbObjectId layer) const override;
    bool isFrozen(AcDbObjectId layer) const override;
    bool isPlottable(AcDbObjectId layer) const override;
    bool isLayerZero(AcDbObjectId layer) const override;
    AcCmEntityColor layerColor(AcDbObjectId layer) const override;
    AcDb::LineWeight layerLineWeight(AcDbObjectId layer) const override;
    AcDbObjectId layerLineType(AcDbObjectId layer) const override;
    bool isByLayerLineType(AcDbObjectId lineType) const override;
    bool isByBlockLineType(AcDbObjectId lineType) const override;
    std::vector<double> dashes(AcDbObjectId lineType) const override;
    double lineTypeScale() const override;

private:
    // The record behind an id; layer "0" for a null or strange one.
    const AcDbLayerTableRecord* layerOf(AcDbObjectId layer) const;
    const AcDbDatabase& mDb;
};
