// A road marking symbol: a library block that stands in the drawing by itself, with a state.
#pragma once

#include "TrfcBlock.h"
#include "TrfcOverlay.h"

enum TRFC_BLOCK_ENT_TYPE : Adesk::Int32 {
    kBlockEntExisting = 0,    // outline only
    kBlockEntPlanned = 1,     // in full
    kBlockEntToBeRemoved = 2, // outline with an overlay
};

class TrfcBlockEnt : public TrfcBlock {
public:
    ACRX_DECLARE_MEMBERS(TrfcBlockEnt);
    // The state comes from DOC_BLOCK_ENT_DEFAULT_TYPE; there is no overlay until setType is called.
    TrfcBlockEnt();
    explicit TrfcBlockEnt(const S_BLOCK_DESCRIPTOR& descriptor);
    TrfcBlockEnt(const S_BLOCK_DESCRIPTOR& descriptor, double scale);
    TrfcBlockEnt(const S_BLOCK_DESCRIPTOR& descriptor, const AcGePoint3d& position, double rotation, double scale);

    virtual void setType(TRFC_BLOCK_ENT_TYPE type);
    virtual void stateChanges(); // by the process-wide state change data
    virtual void setOverlayBlock(AcDbObjectId block);
    virtual void eraseOverlayBlock();
    Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t gsMarker, const AcGePoint3d& pick, const AcGePoint3d& last,
                                        const AcGeMatrix3d& viewTransform, AcGePoint3dArray& points, AcIntArray& geomIds) const override;
    // Replaces the symbol at its present place, turn and scale.
    void setBlock(const S_BLOCK_DESCRIPTOR& descriptor);
    TrfcBlockEnt* clone() const override { return TrfcBlockEnt::cast(TrfcBlock::clone()); } // the caller's
    void copyFromClone(const TrfcBlockEnt* other) { copyFrom(other); }                      // null does nothing
    // The dialog on a clone; the entity takes the clone on OK. True then.
    bool editProperties();

    TRFC_BLOCK_ENT_TYPE entType() const { return mEntType; }
    bool hasOverlay() const { return mOverlay.isOn(); }
    const AcDbBlockReference& overlay() const { return mOverlay.reference(); }

    void regen() override;
    using TrfcBlock::subWorldDraw;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

protected:
    bool subWorldDraw(AcGiWorldDraw* worldDraw) override;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;

private:
    void takeDefaultState();
    void fitOverlay();
    bool isOutline() const { return mEntType != kBlockEntPlanned; }

    TrfcOverlay mOverlay;
    TRFC_BLOCK_ENT_TYPE mEntType = kBlockEntExisting;
};
