// A reference to a block definition, with its attributes.
#pragma once

#include "AcDbEntities.h"

class AcDbObjectIterator {
public:
    virtual ~AcDbObjectIterator() = default;
    virtual void start() = 0;
    virtual bool done() const = 0;
    virtual void step() = 0;
    virtual AcDbObjectId objectId() const = 0;
};

class AcDbBlockReference : public AcDbEntity {
public:
    ACDB_ENTITY_COMMON(AcDbBlockReference);
    AcDbBlockReference() = default;
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block) : mPosition(position), mBlock(block) {}
    ACDB_FIELD(AcGePoint3d, position, setPosition, mPosition, {});
    ACDB_FIELD(double, rotation, setRotation, mRotation, 0.0); // radians
    ACDB_FIELD(AcGeScale3d, scaleFactors, setScaleFactors, mScale, {});
    ACDB_NORMAL;
    AcDbObjectId blockTableRecord() const { return mBlock; }
    Acad::ErrorStatus setBlockTableRecord(AcDbObjectId block);
    // From the block's coordinates to world: position, normal, turn, scale and the block's base point.
    AcGeMatrix3d blockTransform() const;
    Acad::ErrorStatus setBlockTransform(const AcGeMatrix3d& matrix);
    // The attribute joins the reference; it stands in the database when the reference does.
    Acad::ErrorStatus appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute);
    AcDbObjectIterator* attributeIterator() const; // the caller's
    const AcDbObjectIdArray& attributeIds() const { return mAttributes; }
protected:
    // Copies of the block's entities in world coordinates; attribute definitions stay among them. A
    // block of non-uniform scale is exploded where each entity can take the matrix.
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
private:
    AcDbObjectId mBlock, mSequenceEnd;
    AcDbObjectIdArray mAttributes;
};
// Begin and end markers of a block definition, as files keep them.
class AcDbBlockBegin : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockBegin);
};
class AcDbBlockEnd : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockEnd);
};
