// The picture of a post. The same drawing serves as feedback: the placement phase and the grip
// being dragged decide what shows.
#include "TrfcPost.h"

#include "TrfcDrawingUtils.h"
#include "TrfcPostGripNames.h"

bool TrfcPost::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    saveTraits(worldDraw);
    const bool dragsNewLamp = isDragging(kGripAddLamp);
    if (dragsNewLamp)
        drawLampArrow(worldDraw);
    if (!dragsNewLamp && !isDragging(kGripLampRot)) {
        drawArm(worldDraw);
        restoreTraits(worldDraw);
        if (mPlacementPhase >= 1 && !mPostText.text.empty())
            drawAnnotation(worldDraw);
        mBaseBlock->worldDraw(worldDraw);
        mSignChain.worldDraw(worldDraw);
    }
    drawLamps(worldDraw);
    return true;
}

bool TrfcPost::isDragging(const ACHAR* grip) const {
    return mActiveGrip && mActiveGrip->name == grip;
}

// A filled arrow head at the rim, pointing at the foot from where the new lamp is dragged.
void TrfcPost::drawLampArrow(AcGiWorldDraw* worldDraw) const {
    AcGiSubEntityTraits& traits = worldDraw->subEntityTraits();
    const AcGiFillType fill = traits.fillType();
    AcGeVector3d towardsFoot = (mPointA - mLampDragPoint).normal();
    const AcGePoint3d tip = mPointA - towardsFoot * radius();
    towardsFoot.rotateBy(-kPi / 6.0, AcGeVector3d::kZAxis);
    const AcGePoint3d first = tip - towardsFoot * (radius() * 2.0);
    towardsFoot.rotateBy(kPi / 3.0, AcGeVector3d::kZAxis);
    const AcGePoint3d second = tip - towardsFoot * (radius() * 2.0);
    const AcGePoint3d corners[] = {first, tip, second};
    traits.setColor(255);
    traits.setFillType(kAcGiFillAlways);
    worldDraw->geometry().polygon(3, corners);
    traits.setFillType(fill);
    restoreTraits(worldDraw);
}

// From the foot's rim. A finished post without signs has none.
void TrfcPost::drawArm(AcGiWorldDraw* worldDraw) const {
    if (mSignChain.size() == 0 && mPlacementPhase > 4)
        return;
    const AcGePoint3d points[] = {rimTowards(mPointB), mPointB, mPointC, mPointD};
    for (int i = 0; i < 3; ++i)
        if (mPlacementPhase >= i + 2)
            worldDraw->geometry().polyline(2, points + i);
}

// While a lamp's grip is dragged only that lamp shows; moving or turning the post shows all.
void TrfcPost::drawLamps(AcGiWorldDraw* worldDraw) const {
    const bool all = !mActiveGrip || mActiveGrip->name == kGripMove || mActiveGrip->name == kGripTurn;
    for (int i = 0; i < lampChainCount(); ++i)
        if (all || mActiveGrip->index == i)
            lampChain(i).worldDraw(worldDraw);
}

// ---- explosion ------------------------------------------------------------------------------------

// The picture of a finished post; the arm comes whatever the phase and the chain.
Acad::ErrorStatus TrfcPost::subExplode(AcDbVoidPtrArray& entities) const {
    assertReadEnabled();
    AcDbVoidPtrArray parts;
    mBaseBlock->explode(parts);
    explodeArm(parts);
    if (!mPostText.text.empty())
        explodeAnnotation(parts);
    mSignChain.explode(parts);
    for (const auto& chain : mLampChains)
        chain->explode(parts);
    applyOwnerProperties(parts, layerName().c_str(), color(), lineWeight(), linetypeName().c_str());
    entities.append(parts);
    return Acad::eOk;
}

void TrfcPost::explodeArm(AcDbVoidPtrArray& entities) const {
    const AcGePoint3d points[] = {rimTowards(mPointB), mPointB, mPointC, mPointD};
    for (int i = 0; i < 3; ++i) {
        auto* line = new AcDbLine(points[i], points[i + 1]);
        copyDisplayProperties(this, line);
        entities.append(line);
    }
}
