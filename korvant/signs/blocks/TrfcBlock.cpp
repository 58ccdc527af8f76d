// A library symbol: measure, place, turn and size.
#include "TrfcBlock.h"

#include "AcDbDatabase.h"
#include "AcUtText.h"
#include "TrfcMirror.h"

#include <cmath>

ACRX_DXF_DEFINE_MEMBERS(TrfcBlock, AcDbEntity, AcDb::kDHL_1021, AcDb::kMReleaseCurrent, 0, L"Korvant Blokk",
                        L"TRFCSIGNARXAPP |Product Desc:     Traffic Block Custom Entity, abstract class")

namespace {
constexpr double kLowestTop = 0.0001; // a symbol whose top lies lower hangs below its insertion point

AcGeVector3d turned(const AcGeVector3d& vector, double angle) {
    AcGeVector3d result = vector;
    return result.rotateBy(angle, AcGeVector3d::kZAxis);
}
} // namespace

TrfcBlock::TrfcBlock() = default;
TrfcBlock::~TrfcBlock() = default;

TrfcBlock::TrfcBlock(const S_BLOCK_DESCRIPTOR& descriptor, const AcGePoint3d& position, double rotation, double scale) {
    TrfcBlock::init(descriptor, position, rotation, scale);
}

void TrfcBlock::init(const S_BLOCK_DESCRIPTOR& descriptor, const AcGePoint3d& position, double rotation, double scale) {
    assertWriteEnabled();
    mDescriptor = descriptor;
    mBlockRef.setBlockTableRecord(descriptor.blockId);
    measure();
    mBlockRef.setPosition(position);
    mBlockRef.setRotation(rotation);
    updateUp();
    mBlockRef.setScaleFactors(trfcUniformScale(scale));
    mHeight *= std::abs(scale);
    mWidth *= std::abs(scale);
    updateTop();
    makeAttributes();
}

// Of the reference at the origin, unscaled and unturned. A block without extents measures 0.
void TrfcBlock::measure() {
    mBlockRef.setPosition(AcGePoint3d::kOrigin);
    mBlockRef.setScaleFactors(AcGeScale3d(1.0));
    mBlockRef.setRotation(0.0);
    AcDbExtents extents;
    if (mBlockRef.getGeomExtents(extents) != Acad::eOk)
        extents = AcDbExtents();
    mWidth = extents.maxPoint().x - extents.minPoint().x;
    mHeight = extents.maxPoint().y;
    mDirection = 1;
    if (mHeight < kLowestTop) {
        mHeight = 0.0 - extents.minPoint().y;
        mDirection = -1;
    }
}

// A size of 0, which a setting may have, leaves nothing that could be multiplied.
void TrfcBlock::measureAgain() {
    const AcGePoint3d at = mBlockRef.position();
    const double turn = mBlockRef.rotation();
    measure();
    mBlockRef.setPosition(at);
    mBlockRef.setRotation(turn);
    updateUp();
}

void TrfcBlock::updateUp() {
    mUpVector = turned(AcGeVector3d::kYAxis, mBlockRef.rotation()) * mDirection;
}

// ---- place ------------------------------------------------------------------------------

AcGePoint3d TrfcBlock::position() const {
    assertReadEnabled();
    return mBlockRef.position();
}

AcGePoint3d TrfcBlock::centroid() const {
    assertReadEnabled();
    return mBlockRef.position() + mUpVector * (mHeight / 2.0);
}

double TrfcBlock::rotation() const {
    assertReadEnabled();
    return mBlockRef.rotation();
}

void TrfcBlock::setRotation(double radians) {
    assertWriteEnabled();
    mBlockRef.setRotation(radians);
    updateUp();
    updateTop();
    regen();
}

void TrfcBlock::rotateBy(double radians) {
    setRotation(rotation() + radians);
}

void TrfcBlock::setPosition(const AcGePoint3d& point) {
    offset(point - position());
}

void TrfcBlock::offset(const AcGeVector3d& vector) {
    assertWriteEnabled();
    mBlockRef.setPosition(mBlockRef.position() + vector);
    mTopPoint += vector;
    regen();
}

// ---- size -------------------------------------------------------------------------------

double TrfcBlock::scaleFactor() const {
    assertReadEnabled();
    return mBlockRef.scaleFactors().sx;
}

double TrfcBlock::mirrorSign() const {
    return trfcMirrorSign(mBlockRef);
}

double TrfcBlock::uniqueScaleFactor() const {
    assertReadEnabled();
    return mUniqueScale;
}

void TrfcBlock::setScaleFactor(double factor) {
    assertWriteEnabled();
    const double oldScale = scaleFactor(), newScale = factor * mUniqueScale * mirrorSign();
    if (newScale != oldScale) {
        if (oldScale == 0.0)
            measureAgain();
        mBlockRef.setScaleFactors(trfcUniformScale(newScale));
        resize(oldScale == 0.0 ? newScale : newScale / oldScale);
    }
    regen();
}

void TrfcBlock::setReferenceScale(double factor) {
    assertWriteEnabled();
    mBlockRef.setScaleFactors(trfcUniformScale(factor * mirrorSign()));
}

void TrfcBlock::setUniqueScaleFactor(double factor) {
    assertWriteEnabled();
    if (factor != mUniqueScale) {
        // From 0 there is no way back but through the next setScaleFactor, which knows the size of the kind.
        const double ratio = mUniqueScale != 0.0 ? factor / mUniqueScale : 0.0;
        mBlockRef.setScaleFactors(trfcUniformScale(scaleFactor() * ratio));
        mUniqueScale = factor;
        resize(ratio);
    }
    regen();
}

void TrfcBlock::resize(double ratio) {
    mWidth *= ratio;
    mHeight *= ratio;
    updateTop();
}

Acad::ErrorStatus TrfcBlock::getBoundingBox(AcGePoint3dArray& corners) const {
    assertReadEnabled();
    const AcGePoint3d at = mBlockRef.position();
    const AcGeVector3d half = mUpVector.perpVector() * (mWidth / 2.0);
    const AcGeVector3d up = mUpVector * mHeight;
    for (const AcGePoint3d& corner : {at + half, at - half, at - half + up, at + half + up})
        corners.append(corner);
    return Acad::eOk;
}

Acad::ErrorStatus TrfcBlock::subTransformBy(const AcGeMatrix3d& matrix) {
    return PlusTransformBy(matrix);
}

// Width, height and direction stay: a matrix that is not uniform is not accounted for.
Acad::ErrorStatus TrfcBlock::PlusTransformBy(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    mUpVector.transformBy(matrix);
    mTopPoint.transformBy(matrix);
    const Acad::ErrorStatus es = mBlockRef.transformBy(matrix);
    trfcLayMirrorOnWidth(mBlockRef);
    for (const auto& attribute : mAttributes)
        attribute->transformBy(matrix);
    return es;
}

Acad::ErrorStatus TrfcBlock::subGetGeomExtents(AcDbExtents& extents) const {
    assertReadEnabled();
    return mBlockRef.getGeomExtents(extents);
}

// ---- parameters -------------------------------------------------------------------------

void TrfcBlock::setUserParam(const ACHAR* key, const ACHAR* value) {
    assertWriteEnabled();
    mUserParams[key] = value;
}

const ACHAR* TrfcBlock::getUserParam(const ACHAR* key) const {
    assertReadEnabled();
    const auto found = mUserParams.find(key);
    return found != mUserParams.end() ? found->second.c_str() : L"";
}

void TrfcBlock::setExchangeId(Adesk::UInt32 id) {
    assertWriteEnabled();
    mExchangeId = id;
}
