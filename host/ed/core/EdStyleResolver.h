// What layers and line types of a drawing look like, for painting and picking; and their names, for listings.
#pragma once

#include "AcDbDatabase.h"

#include <unordered_map>

// Answers are kept, since a regeneration asks for the same few layers again and again: one resolver
// serves one regeneration.
class EdStyleResolver : public GiStyleResolver {
public:
    explicit EdStyleResolver(AcDbDatabase& db);
    bool isVisible(AcDbObjectId layer) const override { return !look(layer).off && !look(layer).frozen; }
    bool isFrozen(AcDbObjectId layer) const override { return look(layer).frozen; }
    bool isPlottable(AcDbObjectId layer) const override { return isVisible(layer) && look(layer).plottable; }
    bool isLayerZero(AcDbObjectId layer) const override { return layer.isNull() || layer == mLayerZero; }
    AcCmEntityColor layerColor(AcDbObjectId layer) const override { return look(layer).color; }
    AcDb::LineWeight layerLineWeight(AcDbObjectId layer) const override { return look(layer).weight; }
    AcDbObjectId layerLineType(AcDbObjectId layer) const override { return look(layer).lineType; }
    bool isByLayerLineType(AcDbObjectId lineType) const override { return lineType.isNull() || lineType == mByLayer; }
    bool isByBlockLineType(AcDbObjectId lineType) const override { return lineType == mByBlock; }
    std::vector<double> dashes(AcDbObjectId lineType) const override;
    double lineTypeScale() const override { return mLineTypeScale; }
    bool isLocked(AcDbObjectId layer) const { return look(layer).locked; }

private:
    struct Look {
        AcCmEntityColor color = AcCmEntityColor::fromIndex(7);
        AcDb::LineWeight weight = AcDb::kLnWtByLwDefault;
        AcDbObjectId lineType;
        bool off = false, frozen = false, plottable = true, locked = false;
    };
    const Look& look(AcDbObjectId layer) const;
    AcDbObjectId mLayerZero, mByLayer, mByBlock;
    double mLineTypeScale = 1.0;
    mutable std::unordered_map<AcDbObjectId, Look> mLooks;
    mutable std::unordered_map<AcDbObjectId, std::vector<double>> mDashes;
};
// Names of table records for giRecord; empty for null ids.
GiNamer edNamer();
