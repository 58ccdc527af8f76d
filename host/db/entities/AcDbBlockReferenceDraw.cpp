// The picture of a block reference: the block's under its transform, and its own attributes'.
#include "AcDbBlockReference.h"

#include "AcDbDatabase.h"
#include "ReadAccess.h"

namespace {
// What was given to the reference goes to the traits, so that what the block leaves to its reference takes it;
// what was not is left as the owner of the drawing set it: a reference held by a custom entity then
// shows in that entity's own properties.
class ReferenceTraits {
public:
    ReferenceTraits(const AcDbBlockReference& reference, AcGiSubEntityTraits& traits)
        : mTraits(traits), mColor(traits.trueColor()), mLayer(traits.layerId()), mLineType(traits.lineTypeId()),
          mScale(traits.lineTypeScale()), mWeight(traits.lineWeight()) {
        const GiTraits own = reference.startTraits();
        const bool resident = !reference.objectId().isNull();
        const AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
        const auto given = [&](AcDbObjectId id, AcDbObjectId none) { return resident || (!id.isNull() && id != none); };
        if (given(own.layer, database != nullptr ? database->layerZero() : AcDbObjectId::kNull))
            mTraits.setLayer(own.layer);
        if (given(own.lineType, database != nullptr ? database->byLayerLinetype() : AcDbObjectId::kNull))
            mTraits.setLineType(own.lineType);
        if (resident || !own.color.isByLayer())
            mTraits.setTrueColor(own.color);
        if (resident || own.lineWeight != AcDb::kLnWtByLayer)
            mTraits.setLineWeight(own.lineWeight);
        if (resident || own.lineTypeScale != 1.0)
            mTraits.setLineTypeScale(own.lineTypeScale);
    }
    ~ReferenceTraits() {
        mTraits.setTrueColor(mColor);
        mTraits.setLayer(mLayer);
        mTraits.setLineType(mLineType);
        mTraits.setLineTypeScale(mScale);
        mTraits.setLineWeight(mWeight);
    }
    ReferenceTraits(const ReferenceTraits&) = delete;
    ReferenceTraits& operator=(const ReferenceTraits&) = delete;

private:
    AcGiSubEntityTraits& mTraits;
    AcCmEntityColor mColor;
    AcDbObjectId mLayer, mLineType;
    double mScale;
    AcDb::LineWeight mWeight;
};

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
    const ReferenceTraits traits(*this, worldDraw->subEntityTraits());
    if (!drawBlock(*this, *worldDraw))
        return false;
    if (objectId().isNull()) // a copy's attributes are still the other reference's
        return true;
    for (const AcDbObjectId& id : mAttributes) {
        const DbReadAccess<AcDbAttribute> attribute(id);
        if (attribute && !attribute->isInvisible() && worldDraw->geometry().draw(attribute.get()))
            return false;
    }
    return true;
}

Acad::ErrorStatus AcDbBlockReference::subGetGeomExtents(AcDbExtents& extents) const {
    assertReadEnabled();
    if (mBlock.isNull())
        return Acad::eInvalidExtents;
    return AcDbEntity::subGetGeomExtents(extents);
}
