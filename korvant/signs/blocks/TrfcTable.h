// A sign plate.
#pragma once

#include "TrfcTypedBlock.h"

class TrfcTable : public TrfcTypedBlock {
public:
    ACRX_DECLARE_MEMBERS(TrfcTable);
    TrfcTable();
    // Sizes from the settings.
    TrfcTable(const S_BLOCK_DESCRIPTOR& descriptor, const AcGePoint3d& position, double rotation);
    TrfcTable(const S_BLOCK_DESCRIPTOR& descriptor, double existing, double planned);
    explicit TrfcTable(const S_BLOCK_DESCRIPTOR& descriptor);

    // Index in the upward list of the main sign this plate complements; below 0 for a main sign.
    Adesk::Int16 complIndex() const { return mComplIndex; }
    void setComplIndex(Adesk::Int16 index);
    bool isComplementary() const { return mComplIndex >= 0; }

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    Adesk::Int16 mComplIndex = -1;
};
