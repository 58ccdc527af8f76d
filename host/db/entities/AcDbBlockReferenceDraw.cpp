// The picture of a block reference: the block's under its transform, and its own attributes'.
#include "AcDbBlockReference.h"

#include "AcDbDatabase.h"
#include "ReadAccess.h"

namespace {
// Puts the traits back when it ends.
class TraitsKeeper {
public:
    explicit TraitsKeeper(AcGiSubEntityTraits& traits)
        : mTraits(traits), mColor(traits.trueColor()), mLayer(traits.layerId()), mLineType(traits.lineTypeId()),
          mScale(traits.lineTypeScale()), mWeight(traits.lineWeight()) {}
    ~TraitsKeeper() {
        mTraits.setTrueColor(mColor);
        mTraits.setLayer(mLayer);
        mTraits.setLineType(mLineType);
        mTraits.setLineTypeScale(mScale);
        mTraits.setLineWeight(mWeight);
    }
    TraitsKeeper(const TraitsKeeper&) = delete;
    TraitsKeeper& operator=(const TraitsKeeper&) = delete;

private:
    AcGiSubEntityTraits& mTraits;
    AcCmEntityColor mColor;
    AcDbObjectId mLayer, mLineType;
    double mScale;
    AcDb::LineWeight mWeight;
};

// What was given to the reference goes to the traits, so that what the block leaves to its reference takes it;
// what was not is left as the owner of the drawing set it: a reference held by a custom entity then
// shows in that entity's own properties.
void giveTraits(const AcDbBlockReference& reference, AcGiSubEntityTraits& traits) {
    const GiTraits own = reference.startTraits();
    const bool resident = !reference.objectId().isNull();
    const AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    const auto given = [&](AcDbObjectId id, AcDbObjectId none) { return resident || (!id.isNull() && id != none); };
    if (given(own.layer, database != nullptr ? database->layerZero() : AcDbObjectId::kNull))
        traits.setLayer(own.layer);
    if (given(own.lineType, database != nullptr ? database->byLayerLinetype() : AcDbObjectId::kNull))
        traits.setLineType(own.lineType);
    if (resident || !own.color.isByLayer())
        traits.setTrueColor(own.color);
    if (resident || own.lineWeight != AcDb::kLnWtByLayer)
        traits.setLineWeight(own.lineWeight);
    if (resident || own.lineTypeScale != 1.0)
        traits.setLineTypeScale(own.lineTypeScale);
}

// An attribute stands beside the block's picture, yet what it leaves to its block is the reference's, whose
// properties the traits hold now.
bool drawAttribute(AcDbAttribute& attribute, AcGiWorldDraw& worldDraw) {
    if (attribute.isInvisible() || attribute.visibility() == AcDb::kInvisible)
        return true;
    AcGiSubEntityTraits& traits = worldDraw.subEntityTraits();
    const TraitsKeeper keeper(traits);
    const GiTraits own = attribute.startTraits();
    const AcDbDatabase* database = attribute.database();
    traits.setLayer(own.layer);
    traits.setLineTypeScale(own.lineTypeScale);
    if (!own.color.isByBlock())
        traits.setTrueColor(own.color);
    if (own.lineWeight != AcDb::kLnWtByBlock)
        traits.setLineWeight(own.lineWeight);
    if (database == nullptr || own.lineType != database->byBlockLinetype())
        traits.setLineType(own.lineType);
    return attribute.worldDraw(&worldDraw);
}

bool drawBlock(const AcDbBlockReference& reference, AcGiWorldDraw& worldDraw) {
    const DbReadAccess<AcDbBlockTableRecord> block(reference.blockTableRecord());
    if (!block)
        return true;
    AcGiGeometry& geometry = worldDraw.geometry();
    if (geometry.pushModelTransform(reference.blockTransform()))
        return false;
    const bool broken = geometry.draw(block.get());
    return !geometry.popModelTransform() && !broken;
}
} // namespace

bool AcDbBlockReference::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    const TraitsKeeper keeper(worldDraw->subEntityTraits());
    giveTraits(*this, worldDraw->subEntityTraits());
    if (!drawBlock(*this, *worldDraw))
        return false;
    if (objectId().isNull()) // a copy's attributes are still the other reference's
        return true;
    for (const AcDbObjectId& id : mAttributes)
        if (const DbReadAccess<AcDbAttribute> attribute(id); attribute && !drawAttribute(*attribute.get(), *worldDraw))
            return false;
    return true;
}

Acad::ErrorStatus AcDbBlockReference::subGetGeomExtents(AcDbExtents& extents) const {
    assertReadEnabled();
    if (mBlock.isNull())
        return Acad::eInvalidExtents;
    return AcDbEntity::subGetGeomExtents(extents);
}
