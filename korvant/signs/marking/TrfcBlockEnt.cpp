// A road marking symbol with its state.
#include "TrfcBlockEnt.h"

#include "TrfcDocSettings.h"
#include "TrfcEntityFamily.h"
#include "TrfcFields.h"
#include "stateStep.h"

ACRX_DXF_DEFINE_MEMBERS(TrfcBlockEnt, TrfcBlock, AcDb::kDHL_1021, AcDb::kMReleaseCurrent, 0, L"Korvant Blokk",
                        L"TRFCSIGNARXAPP |Product Desc: Traffic Block Custom Entity |Company: Tessaron Ltd |WEB Address:")

TrfcBlockEnt::TrfcBlockEnt() {
    takeDefaultState();
}

TrfcBlockEnt::TrfcBlockEnt(const S_BLOCK_DESCRIPTOR& descriptor) : TrfcBlockEnt(descriptor, 1.0) {}

TrfcBlockEnt::TrfcBlockEnt(const S_BLOCK_DESCRIPTOR& descriptor, double scale) : TrfcBlockEnt(descriptor, AcGePoint3d::kOrigin, 0.0, scale) {}

TrfcBlockEnt::TrfcBlockEnt(const S_BLOCK_DESCRIPTOR& descriptor, const AcGePoint3d& position, double rotation, double scale)
    : TrfcBlock(descriptor, position, rotation, scale) {
    takeDefaultState();
}

// A new marking has the state and no overlay until setType is called again.
void TrfcBlockEnt::takeDefaultState() {
    TrfcBlockEnt::setType(static_cast<TRFC_BLOCK_ENT_TYPE>(TrfcDocSettings::getDocInt(DOC_BLOCK_ENT_DEFAULT_TYPE)));
    mOverlay.turnOff();
}

// ---- state ------------------------------------------------------------------------------------

// The size does not change with the state, unlike a sign's.
void TrfcBlockEnt::setType(TRFC_BLOCK_ENT_TYPE type) {
    assertWriteEnabled();
    if (type == kBlockEntToBeRemoved)
        setOverlayBlock(builtInBlockId(kTableEliminate));
    else if (type == kBlockEntExisting || type == kBlockEntPlanned)
        eraseOverlayBlock();
    mEntType = type;
}

// One step from the state the marking is in.
void TrfcBlockEnt::stateChanges() {
    assertWriteEnabled();
    switch (stateStep(stateChangeData().marking, mEntType)) {
    case TrfcStateStep::toExisting:
        setType(kBlockEntExisting);
        break;
    case TrfcStateStep::toBeRemoved:
        setType(kBlockEntToBeRemoved);
        break;
    case TrfcStateStep::deletion:
        if (confirmDeletion(*this, L"Biztosan törölni akarja a kiemelt burkolati jelet?"))
            erase(true);
        break;
    case TrfcStateStep::none:
        break;
    }
}

void TrfcBlockEnt::setBlock(const S_BLOCK_DESCRIPTOR& descriptor) {
    assertWriteEnabled();
    init(descriptor, position(), rotation(), scaleFactor());
    setType(mEntType);
}

// ---- overlay ------------------------------------------------------------------------------------

void TrfcBlockEnt::setOverlayBlock(AcDbObjectId block) {
    assertWriteEnabled();
    mOverlay.turnOn(block);
    fitOverlay();
}

void TrfcBlockEnt::eraseOverlayBlock() {
    assertWriteEnabled();
    mOverlay.turnOff();
}

// Twice the short side at most, so that the overlay keeps a sane proportion on long and on tall symbols. A
// marking hangs below its insertion point, so its top point is its foot, and the overlay stands on that.
void TrfcBlockEnt::fitOverlay() {
    const double w = width(), h = height(), side = mirrorSign();
    if (w / h > 2.0)
        mOverlay.fit(topPoint(), side * h * 2.0, h, rotation());
    else if (w / h < 0.5)
        mOverlay.fit(topPoint() - upVector().normal() * (h / 2.0 - w), side * w, w * 2.0, rotation());
    else
        mOverlay.fit(topPoint(), side * w, h, rotation());
}

void TrfcBlockEnt::regen() {
    TrfcBlock::regen();
    fitOverlay();
}

Acad::ErrorStatus TrfcBlockEnt::subTransformBy(const AcGeMatrix3d& matrix) {
    PlusTransformBy(matrix);
    mOverlay.transformBy(matrix);
    return Acad::eOk;
}

// ---- picture --------------------------------------------------------------------------------------

bool TrfcBlockEnt::subWorldDraw(AcGiWorldDraw* worldDraw) {
    TrfcBlock::subWorldDraw(worldDraw, false, false, isOutline());
    mOverlay.draw(worldDraw);
    return true;
}

Acad::ErrorStatus TrfcBlockEnt::subExplode(AcDbVoidPtrArray& entities) const {
    PlusExplode(entities, false, false, isOutline());
    mOverlay.explode(entities);
    return Acad::eOk;
}

Acad::ErrorStatus TrfcBlockEnt::subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t, const AcGePoint3d&, const AcGePoint3d&, const AcGeMatrix3d&,
                                                  AcGePoint3dArray& points, AcIntArray&) const {
    assertReadEnabled();
    if (mode == AcDb::kOsModeEnd)
        points.append(position());
    return Acad::eOk;
}

// ---- dialog ---------------------------------------------------------------------------------------

bool TrfcBlockEnt::editProperties() {
    return editOnClone(*this, 0);
}

// ---- filing: a drawing entity, so the one block that files the fields of an entity ------------------

Acad::ErrorStatus TrfcBlockEnt::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbEntity::dwgOutFields(filer);
    TrfcBlock::dwgOutFields(filer);
    filer->writeUInt32(kTrfcFileVersion);
    mOverlay.dwgOutFields(filer);
    filer->writeUInt16(static_cast<Adesk::UInt16>(mEntType));
    return filer->filerStatus();
}

// Before version 6 a marking had neither state nor overlay: the state stays what the constructor gave.
Acad::ErrorStatus TrfcBlockEnt::dwgInFields(AcDbDwgFiler* filer) {
    AcDbEntity::dwgInFields(filer);
    Acad::ErrorStatus es = TrfcBlock::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    Adesk::UInt32 version = 0;
    es = trfcReadVersion(*filer, version);
    if (es != Acad::eOk || version < 6)
        return es != Acad::eOk ? es : filer->filerStatus();
    mOverlay.dwgInFields(filer);
    fitOverlay();
    mEntType = static_cast<TRFC_BLOCK_ENT_TYPE>(TrfcUnsignedKind::readShort(*filer));
    return filer->filerStatus();
}
