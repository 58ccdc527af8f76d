// A block with a planning state: the state chooses the drawn size, and two of the states lay an
// overlay symbol across it.
#pragma once

#include "TrfcBlock.h"
#include "TrfcOverlay.h"

// State of a sign, of a lamp and of a post. Other numbers are stored as they come.
enum TRFC_BLOCK_TYPE : Adesk::Int32 {
    kBlockExisting = 0,
    kBlockPlanned = 1,
    kBlockToBeRemoved = 2,
    kBlockCovered = 3,
};

class TrfcTypedBlock : public TrfcBlock {
public:
    ACRX_DECLARE_MEMBERS(TrfcTypedBlock);
    TrfcTypedBlock();
    // existing and planned: scale factors of the symbol in drawing units. The state comes from
    // DOC_BLOCK_DEFAULT_TYPE; the size is the existing one, and there is no overlay, until setType runs.
    TrfcTypedBlock(const S_BLOCK_DESCRIPTOR& descriptor, const AcGePoint3d& position, double rotation, double existing, double planned);
    TrfcTypedBlock(const S_BLOCK_DESCRIPTOR& descriptor, double existing, double planned);

    // Applies the state's size even when the state stays; the overlay is looked up on a change only.
    virtual void setType(TRFC_BLOCK_TYPE type);
    virtual void setOverlayBlock(AcDbObjectId block);
    virtual void eraseOverlayBlock();

    TRFC_BLOCK_TYPE blockType() const { return mBlockType; }
    bool hasOverlay() const { return mOverlay.isOn(); }
    const AcDbBlockReference& overlay() const { return mOverlay.reference(); }
    double existingScale() const { return mExistingScale; }
    double plannedScale() const { return mPlannedScale; }
    // For setType to apply.
    void setScales(double existing, double planned);

    void regen() override;
    using TrfcBlock::subWorldDraw;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

protected:
    bool subWorldDraw(AcGiWorldDraw* worldDraw) override;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;
    Adesk::UInt32 filedVersion() const { return mFiledVersion; }

private:
    struct Fading { bool gray, white; };
    Fading fading() const;
    void fitOverlay();

    TrfcOverlay mOverlay;
    double mExistingScale = 1.0;
    double mPlannedScale = 1.0;
    TRFC_BLOCK_TYPE mBlockType = kBlockExisting;
    Adesk::UInt32 mFiledVersion = 0; // tells the derived classes whether a section of theirs follows
};
