// A block with a planning state and the overlay of that state.
#include "TrfcTypedBlock.h"

#include "ExplodedParts.h"
#include "TrfcDocSettings.h"
#include "TrfcFields.h"

ACRX_DXF_DEFINE_MEMBERS(TrfcTypedBlock, TrfcBlock, AcDb::kDHL_1021, AcDb::kMReleaseCurrent, 0, L"TrfcTypedBlock",
                        L"TRFCSIGNARXAPP |Product Desc: Traffic Post Table Custom Entity |Company: Tessaron Ltd |WEB Address:")

TrfcTypedBlock::TrfcTypedBlock() = default;

// The state is stored without its size and overlay; setType applies them when the block joins a chain.
TrfcTypedBlock::TrfcTypedBlock(const S_BLOCK_DESCRIPTOR& descriptor, const AcGePoint3d& position, double rotation, double existing, double planned)
    : TrfcBlock(descriptor, position, rotation, existing), mExistingScale(existing), mPlannedScale(planned),
      mBlockType(static_cast<TRFC_BLOCK_TYPE>(TrfcDocSettings::getDocInt(DOC_BLOCK_DEFAULT_TYPE))) {}

TrfcTypedBlock::TrfcTypedBlock(const S_BLOCK_DESCRIPTOR& descriptor, double existing, double planned)
    : TrfcTypedBlock(descriptor, AcGePoint3d::kOrigin, 0.0, existing, planned) {}

void TrfcTypedBlock::setScales(double existing, double planned) {
    assertWriteEnabled();
    mExistingScale = existing;
    mPlannedScale = planned;
}

void TrfcTypedBlock::setType(TRFC_BLOCK_TYPE type) {
    assertWriteEnabled();
    if (type == kBlockExisting || type == kBlockPlanned) {
        setScaleFactor(type == kBlockPlanned ? mPlannedScale : mExistingScale);
        eraseOverlayBlock();
    } else if (type == kBlockToBeRemoved || type == kBlockCovered) {
        setScaleFactor(mExistingScale);
        if (type != mBlockType) {
            eraseOverlayBlock();
            setOverlayBlock(builtInBlockId(type == kBlockCovered ? kTableCovered : kTableEliminate));
        }
    }
    mBlockType = type;
}

// ---- overlay: a drawing of unit size, stretched over the symbol ---------------------------

void TrfcTypedBlock::setOverlayBlock(AcDbObjectId block) {
    assertWriteEnabled();
    mOverlay.turnOn(block);
    fitOverlay();
}

void TrfcTypedBlock::eraseOverlayBlock() {
    assertWriteEnabled();
    mOverlay.turnOff();
}

void TrfcTypedBlock::fitOverlay() {
    mOverlay.fit(position(), mirrorSign() * width(), height(), rotation());
}

void TrfcTypedBlock::regen() {
    TrfcBlock::regen();
    fitOverlay();
}

Acad::ErrorStatus TrfcTypedBlock::subTransformBy(const AcGeMatrix3d& matrix) {
    const Acad::ErrorStatus es = TrfcBlock::subTransformBy(matrix);
    mOverlay.transformBy(matrix);
    return es;
}

// ---- picture ------------------------------------------------------------------------------

// Only existing signs and those to be removed fade.
TrfcTypedBlock::Fading TrfcTypedBlock::fading() const {
    if (mBlockType != kBlockExisting && mBlockType != kBlockToBeRemoved)
        return {false, false};
    if (TrfcDocSettings::getDocInt(DOC_USE_OTHER_COLOR_TABLES) == 0)
        return {false, false};
    return {TrfcDocSettings::getDocInt(DOC_USE_GRAYSCALE_TABLES) != 0, TrfcDocSettings::getDocInt(DOC_USE_WHITESCALE_TABLES) != 0};
}

bool TrfcTypedBlock::subWorldDraw(AcGiWorldDraw* worldDraw) {
    const Fading fade = fading();
    TrfcBlock::subWorldDraw(worldDraw, fade.gray, fade.white, false);
    mOverlay.draw(worldDraw);
    return true;
}

Acad::ErrorStatus TrfcTypedBlock::subExplode(AcDbVoidPtrArray& entities) const {
    const Fading fade = fading();
    PlusExplode(entities, fade.gray, fade.white, false);
    mOverlay.explode(entities);
    return Acad::eOk;
}

// ---- filing: the overlay stands between two fields and is filed whole, so both ways by hand ----

Acad::ErrorStatus TrfcTypedBlock::dwgOutFields(AcDbDwgFiler* filer) const {
    TrfcBlock::dwgOutFields(filer);
    filer->writeUInt32(kTrfcFileVersion);
    mOverlay.dwgOutFields(filer);
    filer->writeUInt16(static_cast<Adesk::UInt16>(mBlockType));
    filer->writeDouble(mExistingScale);
    filer->writeDouble(mPlannedScale);
    return filer->filerStatus();
}

Acad::ErrorStatus TrfcTypedBlock::dwgInFields(AcDbDwgFiler* filer) {
    const Acad::ErrorStatus es = TrfcBlock::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    const Acad::ErrorStatus versionStatus = trfcReadVersion(*filer, mFiledVersion);
    if (versionStatus != Acad::eOk || mFiledVersion == 0)
        return versionStatus != Acad::eOk ? versionStatus : filer->filerStatus();
    mOverlay.dwgInFields(filer);
    fitOverlay();
    mBlockType = static_cast<TRFC_BLOCK_TYPE>(TrfcUnsignedKind::readShort(*filer));
    filer->readDouble(&mExistingScale);
    filer->readDouble(&mPlannedScale);
    return filer->filerStatus();
}
