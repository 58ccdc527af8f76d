// The post's points and what hangs on them; changes of scale, moves and turns; copies.
#include "TrfcPost.h"

#include "AcDbDatabase.h"
#include "TrfcDocSettings.h"
#include "TrfcEntityFamily.h"
#include "stateStep.h"

#include <algorithm>

using TrfcDocSettings::getDocDouble;
using TrfcDocSettings::getDocDoubleIn;
using TrfcDocSettings::getDocInt;

ACRX_DXF_DEFINE_MEMBERS(TrfcPost, TrfcScalable, AcDb::kDHL_1021, AcDb::kMReleaseCurrent, 0, L"Korvant Oszlop",
                        L"TRFCSIGNARXAPP |Product Desc: Traffic Sign Custom Entity |Company: Tessaron Ltd "
                        L"|WEB Address:")

// The setting is in degrees, as its dialog and file say; the field in radians.
double TrfcPost::defaultBendAngle() {
    return getDocDouble(DOC_POST_ALPHA0) * kPi / 180.0;
}

TrfcPost::TrfcPost() : mBendAngle(defaultBendAngle()) {
    readSizes();
}

TrfcPost::TrfcPost(const S_BLOCK_DESCRIPTOR& foot, const AcGePoint3d& position, double rotation, double scale)
    : mBendAngle(defaultBendAngle()), mFoot(foot, {position, rotation, scale}) {
    readSizes();
}

TrfcPost::~TrfcPost() = default;

void TrfcPost::readSizes() {
    mBasePointD = getDocDoubleIn(DOC_BASEPOINTD, L"wcs");
    mAnnoHeight = getDocDoubleIn(DOC_ANNO_HEIGHT, L"wcs");
}

// ---- placement ------------------------------------------------------------------------------

void TrfcPost::setPlacementPhase(int phase) {
    assertWriteEnabled();
    mPlacementPhase = phase;
}

void TrfcPost::raisePhase(int phase) {
    mPlacementPhase = std::max(mPlacementPhase, phase);
}

void TrfcPost::setPointA(const AcGePoint3d& point) {
    assertWriteEnabled();
    mPointA = point;
    setPostType(getDocInt(DOC_POST_DEFAULT_TYPE));
    raisePhase(1);
    baseBlock().setPosition(mPointA);
}

// Text and foot take the angle of the post against +Y.
void TrfcPost::updateRotation() {
    mRotation = -mVectorAB.angleTo(AcGeVector3d::kYAxis, AcGeVector3d::kZAxis);
}

void TrfcPost::setPointB(const AcGePoint3d& point) {
    assertWriteEnabled();
    mPointB = point;
    mVectorAB = mPointB - mPointA;
    const double minAB = getDocDoubleIn(DOC_POST_MIN_AB, L"wcs");
    if (mVectorAB.length() < minAB) {
        mVectorAB = unitAB() * minAB;
        mPointB = mPointA + mVectorAB;
    }
    updateRotation();
    mSignChain.setRotation(mRotation);
    baseBlock().setRotation(mRotation);
    raisePhase(2);
}

void TrfcPost::setPointC(const AcGePoint3d& point) {
    assertWriteEnabled();
    mPointC = point;
    mHasBend = !(mPointC == mPointB);
    mBendAngle = mHasBend ? mVectorAB.angleTo(mPointC - mPointB) : defaultBendAngle();
    raisePhase(3);
}

void TrfcPost::setPointD(const AcGePoint3d& point, bool constrain) {
    assertWriteEnabled();
    mPointD = point;
    if (constrain) {
        const AcGeLine3d axis(mPointA, mVectorAB);
        const double distance = axis.distanceTo(mPointD);
        mHasBend = radius() < distance && canBend();
        if (mHasBend) {
            bendTowardsD(distance);
        } else {
            mPointD = axis.closestPointTo(mPointD);
            mPointC = mPointB;
        }
        keepArmForward();
    }
    mSignChain.setPosition(mPointD);
    raisePhase(4);
}

// An arm that leaves B straight on or straight back never comes to D's distance from the post's axis.
bool TrfcPost::canBend() const {
    constexpr double kLeastSine = 1e-9;
    return std::abs(std::sin(mBendAngle)) > kLeastSine;
}

// C on the line at the bend angle from B, on D's side and at D's distance from the post's axis.
void TrfcPost::bendTowardsD(double distance) {
    const double angleToD = mVectorAB.angleTo(mPointD - mPointB, AcGeVector3d::kZAxis);
    double bend = mBendAngle;
    if ((kPi - angleToD) * bend < 0.0)
        bend = -bend;
    AcGeVector3d direction = unitAB();
    direction.rotateBy(bend, AcGeVector3d::kZAxis);
    mPointC = mPointB + direction * (distance / std::sin(kPi - std::abs(bend)));
}

// An arm too short, or pointing back along the post, becomes the shortest one along the post.
void TrfcPost::keepArmForward() {
    const double minCD = getDocDoubleIn(DOC_POST_MIN_CD, L"wcs");
    const AcGeVector3d cd = mPointD - mPointC;
    const bool forward = (mVectorAB + cd).length() >= (mVectorAB - cd).length();
    if (cd.length() < minCD || !forward)
        mPointD = mPointC + unitAB() * minCD;
}

void TrfcPost::setLampsFollowRotation(bool follow) {
    assertWriteEnabled();
    mLampsFollowRotation = follow;
}

void TrfcPost::setExchangeId(Adesk::UInt32 id) {
    assertWriteEnabled();
    mExchangeId = id;
}

// ---- foot -------------------------------------------------------------------------------------

void TrfcPost::setPostType(int type) {
    assertWriteEnabled();
    if (type == mPostData.postType)
        return;
    mPostData.postType = type;
    mFoot.showState(type, footPlace());
}

void TrfcPost::setBaseBlock(const S_BLOCK_DESCRIPTOR& foot) {
    assertWriteEnabled();
    const int type = mPostData.postType;
    mPostData.postType = 0;
    baseBlock().init(foot, mPointA, mRotation, mBasePointD);
    setPostType(type);
}

// ---- note ---------------------------------------------------------------------------------------

void TrfcPost::setPointE(const AcGePoint3d& point) {
    assertWriteEnabled();
    mNote.setAnchor(noteFrame(), point);
}

// On the side of the arm, at right angles to the post.
void TrfcPost::resetAnnotation() {
    assertWriteEnabled();
    AcGeVector3d side = unitAB();
    side.rotateBy(isArmRight() ? -kHalfPi : kHalfPi, AcGeVector3d::kZAxis);
    mNote.resetAnchor(noteFrame(), side);
}

// ---- lamps --------------------------------------------------------------------------------------

int TrfcPost::addLampChain(const AcGePoint3d& point) {
    assertWriteEnabled();
    const AcGeVector3d towardsFoot = (mPointA - point).normal();
    return mLampChains.add(mPointA - towardsFoot * radius(), towardsFoot, kPostLampChain);
}

void TrfcPost::hangLamp(TrfcBlockChain& chain) const {
    chain.setPosition(mPointA - chain.axis().normal() * radius());
}

// ---- all scales -----------------------------------------------------------------------------------

TrfcPost::Arm TrfcPost::arm() const {
    return {mPointB - mPointA, mPointC - mPointB, mPointD - mPointC, mNote.anchor - mPointA};
}

void TrfcPost::setArm(const Arm& arm) {
    mPointB = mPointA + arm.ab;
    mPointC = mPointB + arm.bc;
    mPointD = mPointC + arm.cd;
    mNote.anchor = mPointA + arm.ae;
}

void TrfcPost::rotateScale(double angle) {
    Arm turned = arm();
    for (AcGeVector3d* vector : {&mVectorAB, &turned.ab, &turned.bc, &turned.cd, &turned.ae})
        vector->rotateBy(angle, AcGeVector3d::kZAxis);
    setArm(turned);
    mRotation += angle;
}

void TrfcPost::rotateAllScales(double angle) {
    assertWriteEnabled();
    if (angle == 0.0)
        return;
    inAllScales([this, angle] { rotateScale(angle); });
    if (mLampsFollowRotation)
        for (const auto& chain : mLampChains) {
            chain->rotateBy(angle);
            hangLamp(*chain);
        }
    mSignChain.repos(mPointD, mRotation);
    baseBlock().setRotation(mRotation);
}

void TrfcPost::moveAllScales(const AcGeVector3d& vector) {
    assertWriteEnabled();
    inAllScales([this, &vector] {
        for (AcGePoint3d* point : {&mPointA, &mPointB, &mPointC, &mPointD, &mNote.anchor})
            *point += vector;
    });
    mSignChain.offset(vector);
    baseBlock().setPosition(mPointA);
    mLampChains.offset(vector);
}

// A stays where it is in every scale: the arm grows about the foot.
void TrfcPost::createNewScale(int oldScale, int newScale) {
    assertWriteEnabled();
    // A post read while the drawing's own scale was none has nothing to reckon from: its fields stand as they are.
    const double factor = oldScale > 0 ? static_cast<double>(newScale) / static_cast<double>(oldScale) : 1.0;
    Arm scaled = arm();
    for (AcGeVector3d* vector : {&mVectorAB, &scaled.ab, &scaled.bc, &scaled.cd, &scaled.ae})
        *vector *= factor;
    setArm(scaled);
}

void TrfcPost::geometryChanged() {
    assertWriteEnabled();
    readSizes();
    baseBlock().setReferenceScale(mBasePointD);
    if (!(mSignChain.position() == mPointD))
        mSignChain.setPosition(mPointD);
    mSignChain.regen();
    for (const auto& chain : mLampChains) {
        chain->regen();
        hangLamp(*chain);
    }
}

Acad::ErrorStatus TrfcPost::subTransformBy(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    TrfcScalable::subTransformBy(matrix);
    for (AcGePoint3d* point : {&mPointA, &mPointB, &mPointC, &mPointD, &mNote.anchor})
        point->transformBy(matrix);
    baseBlock().transformBy(matrix);
    mVectorAB.transformBy(matrix);
    mSignChain.transformBy(matrix);
    mLampChains.transformBy(matrix);
    updateRotation();
    return Acad::eOk;
}

// ---- dialogs ----------------------------------------------------------------------------------------

bool TrfcPost::editProperties(int page) {
    return editOnClone(*this, page);
}

// ---- state --------------------------------------------------------------------------------------------

// One step from the state the post is in, after its signs and lamps have taken theirs.
void TrfcPost::stateChanges() {
    assertWriteEnabled();
    mSignChain.stateChanges();
    mLampChains.stateChanges();
    switch (stateStep(stateChangeData().post, mPostData.postType)) {
    case TrfcStateStep::toExisting:
        setPostType(kStateExisting);
        break;
    case TrfcStateStep::toBeRemoved:
        setPostType(kStateToBeRemoved);
        break;
    case TrfcStateStep::deletion:
        if (confirmDeletion(*this, L"Biztosan törölni akarja a kiemelt oszlopot és összes tábláját/lámpáját?"))
            erasePost();
        break;
    case TrfcStateStep::none:
        break;
    }
}

void TrfcPost::erasePost() {
    erase(true);
}

// ---- queries --------------------------------------------------------------------------------------------

Acad::ErrorStatus TrfcPost::subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t, const AcGePoint3d&, const AcGePoint3d&, const AcGeMatrix3d&,
                                              AcGePoint3dArray& points, AcIntArray&) const {
    assertReadEnabled();
    if (mode == AcDb::kOsModeEnd)
        points.append(mPointD);
    else if (mode == AcDb::kOsModeCen)
        points.append(mPointA);
    return Acad::eOk;
}

// Signs, lamps and note are left out: a zoom to the post shows where it stands.
Acad::ErrorStatus TrfcPost::subGetGeomExtents(AcDbExtents& extents) const {
    assertReadEnabled();
    extents = AcDbExtents();
    extents.addPoint(mPointA);
    extents.addPoint(mPointD);
    AcDbExtents foot;
    if (baseBlock().getGeomExtents(foot) == Acad::eOk)
        extents.addExt(foot);
    return Acad::eOk;
}
