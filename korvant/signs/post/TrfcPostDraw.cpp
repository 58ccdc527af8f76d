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
        drawChainArrow(worldDraw, rimTowards(mLampDragPoint), mPointA - mLampDragPoint, radius());
    if (!dragsNewLamp && !isDragging(kGripLampRot)) {
        drawArm(worldDraw);
        restoreTraits(worldDraw);
        if (mPlacementPhase >= 1 && !mNote.isEmpty())
            mNote.draw(worldDraw, noteFrame());
        baseBlock().worldDraw(worldDraw);
        mSignChain.worldDraw(worldDraw);
    }
    mLampChains.draw(worldDraw, activeGrip(), {kGripMove, kGripTurn}); // moving or turning the post shows all
    return true;
}

bool TrfcPost::isDragging(const ACHAR* grip) const {
    return mActiveGrip && mActiveGrip->name == grip;
}

AcGePoint3d TrfcPost::rimTowards(const AcGePoint3d& point) const {
    return mPointA + (point - mPointA).normal() * radius();
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

// ---- explosion ------------------------------------------------------------------------------------

// The picture of a finished post; the arm comes whatever the phase and the chain.
Acad::ErrorStatus TrfcPost::subExplode(AcDbVoidPtrArray& entities) const {
    assertReadEnabled();
    AcDbVoidPtrArray parts;
    baseBlock().explode(parts);
    explodeArm(parts);
    if (!mNote.isEmpty())
        mNote.explode(*this, noteFrame(), parts);
    mSignChain.explode(parts);
    mLampChains.explode(parts);
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
