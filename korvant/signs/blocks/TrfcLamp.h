// A lamp on a post.
#pragma once

#include "TrfcTypedBlock.h"

class TrfcLamp : public TrfcTypedBlock {
public:
    ACRX_DECLARE_MEMBERS(TrfcLamp);
    TrfcLamp();
    // Sizes from the settings.
    TrfcLamp(const S_BLOCK_DESCRIPTOR& descriptor, const AcGePoint3d& position, double rotation);
    explicit TrfcLamp(const S_BLOCK_DESCRIPTOR& descriptor);

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
};
