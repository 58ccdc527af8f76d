// The grips of a post: where they stand, what a drag and a click do.
#include "TrfcPost.h"

#include "TrfcDocSettings.h"
#include "TrfcEntityFamily.h"
#include "TrfcPostGripNames.h"
#include "TrfcPostPages.h"

using TrfcDocSettings::getDocDouble;
using TrfcDocSettings::getDocDoubleIn;

// ---- the grips ----------------------------------------------------------------------------------

// The command grips stand beside the points, a little more than the foot's size away.
AcGeVector3d TrfcPost::gripOffset() const {
    return (mPointB - mPointA).normal() * (mBasePointD * 1.2);
}

std::span<const TrfcGripGroup<TrfcPost>> TrfcPost::gripGroups() {
    using Row = TrfcGripRow<TrfcPost>;
    using Place = TrfcGripPlace;
    using Data = TrfcGripAppData;
    using Vector = AcGeVector3d;
    static constexpr auto hasNote = [](const TrfcPost& p) { return !p.mNote.isEmpty(); };
    static constexpr auto hasSigns = [](const TrfcPost& p) { return p.mSignChain.size() > 0; };
    static constexpr auto hasBentArm = [](const TrfcPost& p) { return hasSigns(p) && p.mHasBend; };
    static constexpr unsigned kCommand = kGripNoRubberBand;

    static const Row kPostRows[] = {
        {.name = kGripMove, .place = [](const TrfcPost& p, int) { return Place{p.mPointA}; }, .parts = kGripStatus,
         .drag = [](TrfcPost& p, const Data&, const Vector& v) { p.moveAllScales(v); }},
        {.name = kGripNote, .place = [](const TrfcPost& p, int) { return Place{p.mNote.anchor}; }, .parts = kGripStatus, .shown = hasNote,
         .drag = [](TrfcPost& p, const Data&, const Vector& v) { p.moveNote(p.mNote.anchor + v); }},
        {.name = kGripResetNote, .place = [](const TrfcPost& p, int) { return Place{p.mNote.anchor - p.gripOffset()}; }, .parts = kCommand | kGripNoKeywords,
         .glyph = gripGlyph<drawGripLeftTriangles>, .shown = hasNote, .click = [](TrfcPost& p, const Data&) { p.resetAnnotation(); }},
        {.name = kGripTurn, .place = [](const TrfcPost& p, int) { return Place{p.mPointB, -p.mVectorAB}; }, .parts = kGripStatus,
         .glyph = gripGlyph<drawGripArrowBent>, .shown = hasSigns, .drag = [](TrfcPost& p, const Data&, const Vector& v) { p.turnPost(v); }},
        {.name = kGripArmLength, .place = [](const TrfcPost& p, int) { return Place{p.mPointB + (p.mPointC - p.mPointB) / 2.0, p.mVectorAB}; },
         .parts = kGripStatus, .glyph = gripGlyph<drawGripArrow>, .shown = hasBentArm,
         .drag = [](TrfcPost& p, const Data&, const Vector& v) { p.moveArmLength(v); }},
        {.name = kGripBend, .place = [](const TrfcPost& p, int) { return Place{p.mPointC}; }, .parts = kGripStatus, .shown = hasBentArm,
         .drag = [](TrfcPost& p, const Data&, const Vector& v) { p.moveBend(v); }},
        {.name = kGripArmEnd, .place = [](const TrfcPost& p, int) { return Place{p.mPointD}; }, .parts = kGripStatus, .shown = hasSigns,
         .drag = [](TrfcPost& p, const Data&, const Vector& v) { p.setPointD(p.mPointD + v, true); }},
        {.name = kGripTables, .place = [](const TrfcPost& p, int) { return Place{p.mSignChain.ptTop()}; }, .parts = kCommand | kGripNoKeywords,
         .glyph = gripGlyph<drawGripBar>, .shown = hasSigns, .click = [](TrfcPost& p, const Data&) { p.editProperties(kPostPageTables); }},
        {.name = kGripPostProps, .place = [](const TrfcPost& p, int) { return Place{(hasSigns(p) ? p.mPointB : p.mPointA) + p.gripOffset()}; },
         .parts = kCommand, .glyph = gripGlyph<drawGripBar>, .click = [](TrfcPost& p, const Data&) { p.editProperties(kPostPageGeneral); }},
        {.name = kGripAddLamp, .place = [](const TrfcPost& p, int) { return Place{p.mPointA - p.gripOffset()}; },
         .parts = kGripStatus | kGripNoRubberBand | kGripNoKeywords, .glyph = gripGlyph<drawGripPlus>,
         .drag = [](TrfcPost& p, const Data& grip, const Vector& v) { p.mLampDragPoint = grip.point + v; },
         .drop = [](TrfcPost& p, const Data&) { p.addLampFromGrip(); }},
    };
    static const Row kLampRows[] = {
        {.name = kGripLampRot, .place = [](const TrfcPost& p, int i) { return p.lampTurnPlace(i); }, .parts = kGripStatus,
         .glyph = gripGlyph<drawGripArrowBent>, .drag = [](TrfcPost& p, const Data& grip, const Vector& v) { p.turnLamp(grip, v); }},
        {.name = kGripLampEd, .place = [](const TrfcPost& p, int i) { return p.lampEditPlace(i); }, .parts = kCommand,
         .glyph = gripGlyph<drawGripBar>, .click = [](TrfcPost& p, const Data& grip) { p.editProperties(kPostPageFirstLamp + grip.index); }},
    };
    static const TrfcGripGroup<TrfcPost> kGroups[] = {{kPostRows}, {kLampRows, [](const TrfcPost& p) { return p.mLampChains.count(); }}};
    return kGroups;
}

// Beyond the outer end of the lamps.
TrfcGripPlace TrfcPost::lampTurnPlace(int lamp) const {
    const TrfcBlockChain& chain = lampChain(lamp);
    const AcGePoint3d bottom = chain.ptBottom();
    return {bottom + (bottom - chain.ptTop()).normal() * (mBasePointD * 0.3), chain.axis()};
}

TrfcGripPlace TrfcPost::lampEditPlace(int lamp) const {
    const TrfcBlockChain& chain = lampChain(lamp);
    return {chain.downCount() == 0 ? chain.position() - gripOffset() : chain.position() + gripOffset()};
}

Acad::ErrorStatus TrfcPost::subGetGripPoints(AcDbGripDataPtrArray& grips, double, int, const AcGeVector3d&, int) const {
    assertReadEnabled();
    TrfcGripTable<TrfcPost>::append(*this, grips);
    return Acad::eOk;
}

// ---- drags ----------------------------------------------------------------------------------------

Acad::ErrorStatus TrfcPost::subMoveGripPointsAt(const AcDbVoidPtrArray& gripAppData, const AcGeVector3d& vector, int) {
    assertWriteEnabled();
    TrfcGripTable<TrfcPost>::move(*this, gripAppData, vector);
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
    if (editClone(*copy, kPostPageFirstLamp + lamp))
        copyFromClone(copy.get());
}
