// The symbol that a state lays across a block.
#include "TrfcOverlay.h"

#include "TrfcDrawingUtils.h"
#include "TrfcMirror.h"

void TrfcOverlay::turnOn(AcDbObjectId symbol) {
    mReference.setBlockTableRecord(symbol);
    mIsOn = true;
}

void TrfcOverlay::fit(const AcGePoint3d& position, double width, double height, double rotation) {
    if (!mIsOn)
        return;
    mReference.setPosition(position);
    mReference.setScaleFactors(AcGeScale3d(width, height, 1.0));
    mReference.setRotation(rotation);
}

void TrfcOverlay::draw(AcGiWorldDraw* worldDraw) {
    if (!mIsOn)
        return;
    saveTraits(worldDraw);
    mReference.worldDraw(worldDraw);
    restoreTraits(worldDraw);
}

void TrfcOverlay::explode(AcDbVoidPtrArray& entities) const {
    if (mIsOn)
        mReference.explode(entities);
}

void TrfcOverlay::transformBy(const AcGeMatrix3d& matrix) {
    if (!mIsOn)
        return;
    mReference.transformBy(matrix);
    trfcLayMirrorOnWidth(mReference);
}

void TrfcOverlay::dwgOutFields(AcDbDwgFiler* filer) const {
    filer->writeBool(mIsOn);
    if (!mIsOn)
        return;
    const AcDbFilerNest nest(filer, L"AcDbBlockReference");
    mReference.dwgOutFields(filer);
}

void TrfcOverlay::dwgInFields(AcDbDwgFiler* filer) {
    filer->readBool(&mIsOn);
    if (mIsOn)
        mReference.dwgInFields(filer);
}
