// A lamp: a typed block with the lamps' sizes.
#include "TrfcLamp.h"

#include "TrfcDocSettings.h"
#include "TrfcFields.h"

using TrfcDocSettings::getDocDoubleIn;

ACRX_DXF_DEFINE_MEMBERS(TrfcLamp, TrfcTypedBlock, AcDb::kDHL_1021, AcDb::kMReleaseCurrent, 0, L"TrfcLamp",
                        L"TRFCSIGNARXAPP |Product Desc: Traffic Lamp Custom Entity |Company: Tessaron Ltd |WEB Address:")

TrfcLamp::TrfcLamp() = default;

TrfcLamp::TrfcLamp(const S_BLOCK_DESCRIPTOR& descriptor, const AcGePoint3d& position, double rotation)
    : TrfcTypedBlock(descriptor, position, rotation, getDocDoubleIn(DOC_EXISTING_LAMP_D, L"wcs"), getDocDoubleIn(DOC_PLANNED_LAMP_D, L"wcs")) {}

TrfcLamp::TrfcLamp(const S_BLOCK_DESCRIPTOR& descriptor) : TrfcLamp(descriptor, AcGePoint3d::kOrigin, 0.0) {}

Acad::ErrorStatus TrfcLamp::dwgOutFields(AcDbDwgFiler* filer) const {
    TrfcTypedBlock::dwgOutFields(filer);
    filer->writeUInt32(kTrfcFileVersion);
    return filer->filerStatus();
}

Acad::ErrorStatus TrfcLamp::dwgInFields(AcDbDwgFiler* filer) {
    const Acad::ErrorStatus es = TrfcTypedBlock::dwgInFields(filer);
    if (es != Acad::eOk || filedVersion() < 2)
        return es;
    Adesk::UInt32 version = 0;
    const Acad::ErrorStatus versionStatus = trfcReadVersion(*filer, version);
    return versionStatus != Acad::eOk ? versionStatus : filer->filerStatus();
}
