// A reference to a block definition: its place, its transform, its attributes.
#include "AcDbBlockReference.h"

#include "AcDbDatabase.h"
#include "CurveMath.h"
#include "DbFields.h"
#include "Listing.h"
#include "OsnapMath.h"
#include "ReadAccess.h"

HOST_RX_DEFINE(AcDbBlockReference, AcDbEntity, L"INSERT")
DB_FILE_FIELDS(AcDbBlockReference, AcDbEntity);

template <class Self, class Archive> void AcDbBlockReference::fields(Self& self, Archive& archive) {
    archive(self.mPosition, self.mRotation, self.mScale, self.mNormal);
    archive.hardPointer(self.mBlock);
    archive.hardOwners(self.mAttributes);
    archive.hardOwner(self.mSequenceEnd);
}

Acad::ErrorStatus AcDbBlockReference::setBlockTableRecord(AcDbObjectId block) {
    assertWriteEnabled();
    mBlock = block;
    return Acad::eOk;
}

// ---- transform
AcGeMatrix3d AcDbBlockReference::blockTransform() const {
    assertReadEnabled();
    const DbPlane plane(mNormal);
    const DbReadAccess<AcDbBlockTableRecord> block(mBlock);
    const AcGeVector3d base = block ? block->origin().asVector() : AcGeVector3d();
    const AcGeVector3d x = plane.direction(mRotation) * mScale.sx;
    const AcGeVector3d y = plane.normal.crossProduct(plane.direction(mRotation)) * mScale.sy;
    const AcGeVector3d z = plane.normal * mScale.sz;
    AcGeMatrix3d matrix;
    matrix.setCoordSystem(mPosition - x * base.x - y * base.y - z * base.z, x, y, z);
    return matrix;
}

namespace {
constexpr double kSquareness = 1e-8; // cosine of the angle between axes that still counts as square

bool square(const AcGeVector3d& a, const AcGeVector3d& b) {
    return std::abs(a.dotProduct(b)) <= kSquareness * a.length() * b.length();
}
double signOf(double v) { return v < 0.0 ? -1.0 : 1.0; }
} // namespace

Acad::ErrorStatus AcDbBlockReference::setBlockTransform(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    matrix.getCoordSystem(origin, x, y, z);
    if (!(x.length() > 0.0) || !(y.length() > 0.0) || !(z.length() > 0.0))
        return Acad::eInvalidInput;
    if (!square(x, y) || !square(y, z) || !square(x, z))
        return Acad::eCannotScaleNonUniformly;
    double sx = signOf(mScale.sx), sy = signOf(mScale.sy);
    const double sz = signOf(mScale.sz);
    const AcGeVector3d oldAlong = DbPlane(mNormal).direction(mRotation);
    if ((x.crossProduct(y).dotProduct(z) < 0.0) != (sx * sy * sz < 0.0)) // mirrored: the axis that keeps the turn
        (x.dotProduct(oldAlong) * sx >= 0.0 ? sy : sx) *= -1.0;
    const DbReadAccess<AcDbBlockTableRecord> block(mBlock);
    const AcGePoint3d position = matrix * (block ? block->origin() : AcGePoint3d());
    mNormal = z.normal() * sz;
    mRotation = DbPlane(mNormal).angleOf(x * sx);
    mScale = AcGeScale3d(sx * x.length(), sy * y.length(), sz * z.length());
    mPosition = position;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::subTransformBy(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    const Acad::ErrorStatus es = setBlockTransform(matrix * blockTransform());
    if (es != Acad::eOk || objectId().isNull()) // a copy's attributes are still the other reference's
        return es;
    for (const AcDbObjectId& id : mAttributes) {
        const AcDbObjectPointer<AcDbAttribute> attribute(id, AcDb::kForWrite, false, true); // it goes along, on whatever layer
        if (attribute)
            attribute->transformBy(matrix);
    }
    return Acad::eOk;
}

// ---- attributes
Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute) {
    assertWriteEnabled();
    if (attribute == nullptr)
        return Acad::eNullObjectPointer;
    if (database() == nullptr)
        return Acad::eNotInDatabase;
    if (!attribute->objectId().isNull())
        return Acad::eAlreadyInDb;
    attribute->setOwnerId(objectId()); // first: its layer is the owner's when it has none
    const Acad::ErrorStatus es = database()->addAcDbObject(id, attribute);
    if (es != Acad::eOk)
        return es;
    mAttributes.append(id);
    return Acad::eOk;
}

namespace {
class IdIterator final : public AcDbObjectIterator {
public:
    explicit IdIterator(const AcDbObjectIdArray& ids) : mIds(ids) { start(); }
    void start() override {
        mAt = 0;
        skipErased();
    }
    bool done() const override { return mAt >= mIds.length(); }
    void step() override {
        ++mAt;
        skipErased();
    }
    AcDbObjectId objectId() const override { return done() ? AcDbObjectId::kNull : mIds[mAt]; }

private:
    void skipErased() {
        while (!done() && mIds[mAt].isErased())
            ++mAt;
    }
    AcDbObjectIdArray mIds;
    int mAt = 0;
};
} // namespace

AcDbObjectIterator* AcDbBlockReference::attributeIterator() const {
    assertReadEnabled();
    return new IdIterator(mAttributes);
}

// ---- grips and listing
Acad::ErrorStatus AcDbBlockReference::subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t, const AcGePoint3d& pick,
                                                        const AcGePoint3d& last, const AcGeMatrix3d&,
                                                        AcGePoint3dArray& points, AcIntArray&) const {
    assertReadEnabled();
    if (mode == AcDb::kOsModeIns) {
        points.append(mPosition);
        return Acad::eOk;
    }
    const DbReadAccess<AcDbBlockTableRecord> block(mBlock);
    if (!block)
        return Acad::eOk;
    const AcGeMatrix3d toWorld = blockTransform(), toBlock = toWorld.inverse();
    AcGePoint3dArray inside;
    for (const AcDbObjectId& id : block->entityIds())
        if (const DbReadAccess<AcDbEntity> entity(id); entity && !entity->isKindOf(AcDbAttributeDefinition::desc()))
            entity->getOsnapPoints(mode, inside, toBlock * pick, toBlock * last);
    for (const AcGePoint3d& p : inside)
        points.append(toWorld * p);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::subGetGripPoints(AcGePoint3dArray& points, AcIntArray&, AcIntArray&) const {
    assertReadEnabled();
    points.append(mPosition);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::subMoveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset) {
    return indices.contains(0) ? AcDbBlockReference::subTransformBy(AcGeMatrix3d::translation(offset)) : Acad::eOk;
}

void AcDbBlockReference::subList() const {
    AcDbEntity::subList();
    if (const DbReadAccess<AcDbBlockTableRecord> block(mBlock); block)
        dbListText(L"block name", block->name().c_str());
    dbListPoint(L"at point", mPosition);
    dbListNumber(L"X scale factor", mScale.sx);
    dbListNumber(L"Y scale factor", mScale.sy);
    dbListNumber(L"Z scale factor", mScale.sz);
    dbListAngle(L"rotation angle", mRotation);
    for (const AcDbObjectId& id : mAttributes)
        if (const DbReadAccess<AcDbAttribute> attribute(id); attribute)
            dbListText(attribute->tagConst().c_str(), attribute->textStringConst());
    dbListNormal(mNormal);
}
