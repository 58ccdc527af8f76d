// The grips of a post: where they stand, what a drag and a click do.
#include "TrfcPost.h"

#include "TrfcDocSettings.h"
#include "TrfcPostDialogs.h"
#include "TrfcPostGripHooks.h"
#include "TrfcPostGripNames.h"

using TrfcDocSettings::getDocDouble;
using TrfcDocSettings::getDocDoubleIn;

// ---- the grips ----------------------------------------------------------------------------------
namespace {
// What a grip has besides its place and data.
enum GripPart : unsigned {
    kStatus = 1,
    kGlyph = 2,
    kHot = 4,
    kNoRubberBand = 8,
    kNoKeywords = 16,
    kCommand = kGlyph | kHot | kNoRubberBand,
};

void addGrip(AcDbGripDataPtrArray& grips, const TrfcGripAppData& data, const AcGePoint3d& place, unsigned parts) {
    AcDbGripData* const grip = newGrip(data, place);
    if ((parts & kStatus) != 0)
        grip->setGripOpStatFunc(postGripStatus);
    if ((parts & kGlyph) != 0)
        grip->setWorldDraw(postGripDraw);
    if ((parts & kHot) != 0)
        grip->setHotGripFunc(postGripHot);
    grip->setRubberBandLineDisabled((parts & kNoRubberBand) != 0);
    grip->setAreModeKeywordsDisabled((parts & kNoKeywords) != 0);
    grips.append(grip);
}
} // namespace

Acad::ErrorStatus TrfcPost::subGetGripPoints(AcDbGripDataPtrArray& grips, double, int, const AcGeVector3d&, int) const {
    assertReadEnabled();
    const AcGeVector3d g = (mPointB - mPointA).normal() * (mBasePointD * 1.2);
    const auto plain = [](const ACHAR* name) { return TrfcGripAppData(name); };
    const bool hasSigns = mSignChain.size() > 0;

    addGrip(grips, plain(kGripMove), mPointA, kStatus);
    if (!mPostText.text.empty()) {
        addGrip(grips, plain(kGripNote), mPointE, kStatus);
        addGrip(grips, plain(kGripResetNote), mPointE - g, kCommand | kNoKeywords);
    }
    if (hasSigns) {
        addGrip(grips, TrfcGripAppData(kGripTurn, -mVectorAB), mPointB, kStatus | kGlyph);
        if (mHasBend) {
            addGrip(grips, TrfcGripAppData(kGripArmLength, mVectorAB), mPointB + (mPointC - mPointB) / 2.0, kStatus | kGlyph);
            addGrip(grips, plain(kGripBend), mPointC, kStatus);
        }
        addGrip(grips, plain(kGripArmEnd), mPointD, kStatus);
        addGrip(grips, plain(kGripTables), mSignChain.ptTop(), kCommand | kNoKeywords);
    }
    addGrip(grips, plain(kGripPostProps), (hasSigns ? mPointB : mPointA) + g, kCommand);
    addGrip(grips, TrfcGripAppData(kGripAddLamp, mPointA - g, AcGeVector3d()), mPointA - g, kStatus | kGlyph | kNoRubberBand | kNoKeywords);
    for (int i = 0; i < lampChainCount(); ++i) {
        const TrfcBlockChain& chain = lampChain(i);
        const AcGePoint3d bottom = chain.ptBottom();
        const AcGePoint3d beyond = bottom + (bottom - chain.ptTop()).normal() * (mBasePointD * 0.3);
        addGrip(grips, TrfcGripAppData(kGripLampRot, beyond, chain.axis(), i), beyond, kStatus | kGlyph);
        const AcGePoint3d beside = chain.downCount() == 0 ? chain.position() - g : chain.position() + g;
        addGrip(grips, TrfcGripAppData(kGripLampEd, AcGePoint3d(), AcGeVector3d(), i), beside, kCommand);
    }
    return Acad::eOk;
}

// ---- drags ----------------------------------------------------------------------------------------

Acad::ErrorStatus TrfcPost::subMoveGripPointsAt(const AcDbVoidPtrArray& gripAppData, const AcGeVector3d& vector, int) {
    assertWriteEnabled();
    if (gripAppData.isEmpty() || gripAppData.first() == nullptr)
        return Acad::eOk;
    mActiveGrip = *static_cast<const TrfcGripAppData*>(gripAppData.first());
    const std::wstring& name = mActiveGrip->name;
    if (name == kGripMove)
        moveAllScales(vector);
    else if (name == kGripTurn)
        turnPost(vector);
    else if (name == kGripArmLength)
        moveArmLength(vector);
    else if (name == kGripBend)
        moveBend(vector);
    else if (name == kGripArmEnd)
        setPointD(mPointD + vector, true);
    else if (name == kGripNote)
        moveNote(mPointE + vector);
    else if (name == kGripAddLamp)
        mLampDragPoint = mActiveGrip->point + vector;
    else if (name == kGripLampRot)
        turnLamp(*mActiveGrip, vector);
    return Acad::eOk;
}

void TrfcPost::turnPost(const AcGeVector3d& vector) {
    const AcGePoint3d newB = mPointB + vector;
    if (!newB.isEqualTo(mPointA))
        rotateAllScales(mVectorAB.angleTo(newB - mPointA, AcGeVector3d::kZAxis));
}

// The arm slides along the post; the drag counts along the direction of BC. A post whose B lies on A has
// nothing to slide along.
void TrfcPost::moveArmLength(const AcGeVector3d& vector) {
    if (mVectorAB.length() == 0.0)
        return;
    const AcGeVector3d ab = mPointB - mPointA, bc = mPointC - mPointB;
    const double minAB = getDocDoubleIn(DOC_POST_MIN_AB, L"wcs");
    const AcGeVector3d along = vector.project(mVectorAB.perpVector(), bc);
    double length = (ab + along).length();
    const bool crossedA = along.length() > ab.length() && along.length() > length;
    if (crossedA)
        length = minAB;
    setLengthAB(length, minAB);
}

void TrfcPost::setLengthAB(double length, double minAB) {
    const double minCD = getDocDoubleIn(DOC_POST_MIN_CD, L"wcs");
    const AcGeVector3d ab = (mPointB - mPointA).normal() * std::max(length, minAB);
    const AcGeVector3d bc = mPointC - mPointB;
    mPointB = mPointA + ab;
    mPointC = mPointB + bc;
    mVectorAB = ab;
    const AcGeVector3d cd = mPointD - mPointC;
    const bool turnedBack = (cd - mVectorAB).length() > (cd + mVectorAB).length();
    if (turnedBack || cd.length() < minCD) {
        mPointD = mPointC + unitAB() * minCD;
        mSignChain.setPosition(mPointD);
    }
    mArmRatio = mVectorAB.length() / (mVectorAB.length() + (mPointD - mPointC).length());
}

void TrfcPost::moveBend(const AcGeVector3d& vector) {
    const AcGePoint3d oldD = mPointD;
    const AcGeVector3d cd = mPointD - mPointC;
    mHasBend = radius() < AcGeLine3d(mPointA, mPointB).distanceTo(mPointC + vector);
    if (mHasBend) {
        mPointC += vector;
        mPointD += vector;
        mBendAngle = mVectorAB.angleTo(mPointC - mPointB);
    } else {
        mPointC = mPointB;
        mPointD = mPointC + cd;
        mBendAngle = defaultBendAngle();
    }
    mSignChain.offset(mPointD - oldD);
}

// On A there is no direction towards which the note could stand on the rim.
void TrfcPost::moveNote(const AcGePoint3d& point) {
    if (!point.isEqualTo(mPointA))
        setPointE(point);
}

// The angle counts from the axis the chain had when the drag began.
void TrfcPost::turnLamp(const TrfcGripAppData& grip, const AcGeVector3d& vector) {
    const AcGeVector3d outward = grip.point + vector - mPointA;
    if (!(outward.length() > 0.0) || grip.index < 0 || grip.index >= lampChainCount())
        return;
    TrfcBlockChain& chain = lampChain(grip.index);
    chain.rotateBy((-grip.vector).angleTo(outward, AcGeVector3d::kZAxis));
    chain.setPosition(mPointA + outward.normal() * radius());
}

void TrfcPost::addLampFromGrip() {
    assertWriteEnabled();
    if (mPointA == mLampDragPoint)
        return;
    const std::unique_ptr<TrfcPost> copy(clone());
    if (copy == nullptr)
        return;
    const int lamp = copy->addLampChain(mLampDragPoint);
    if (editPostProperties(*copy, kPostPageFirstLamp + lamp))
        copyFromClone(copy.get());
}
