// A sign plate: its sizes and the main sign it complements.
#include "TrfcTable.h"

#include "TrfcDocSettings.h"
#include "TrfcFields.h"

using TrfcDocSettings::getDocDoubleIn;

ACRX_DXF_DEFINE_MEMBERS(TrfcTable, TrfcTypedBlock, AcDb::kDHL_1021, AcDb::kMReleaseCurrent, 0, L"TrfcTable",
                        L"TRFCSIGNARXAPP |Product Desc: Traffic Post Table Custom Entity |Company: Tessaron Ltd |WEB Address:")

TrfcTable::TrfcTable() = default;

TrfcTable::TrfcTable(const S_BLOCK_DESCRIPTOR& descriptor, const AcGePoint3d& position, double rotation)
    : TrfcTypedBlock(descriptor, position, rotation, getDocDoubleIn(DOC_EXISTING_TABLE_D, L"wcs"), getDocDoubleIn(DOC_PLANNED_TABLE_D, L"wcs")) {}

TrfcTable::TrfcTable(const S_BLOCK_DESCRIPTOR& descriptor, double existing, double planned) : TrfcTypedBlock(descriptor, existing, planned) {}

TrfcTable::TrfcTable(const S_BLOCK_DESCRIPTOR& descriptor) : TrfcTable(descriptor, AcGePoint3d::kOrigin, 0.0) {}

void TrfcTable::setComplIndex(Adesk::Int16 index) {
    assertWriteEnabled();
    mComplIndex = index;
}

Acad::ErrorStatus TrfcTable::dwgOutFields(AcDbDwgFiler* filer) const {
    TrfcTypedBlock::dwgOutFields(filer);
    filer->writeUInt32(kTrfcFileVersion);
    filer->writeInt16(mComplIndex);
    return filer->filerStatus();
}

// A plate of the first version has no section of its own: it is a main sign.
Acad::ErrorStatus TrfcTable::dwgInFields(AcDbDwgFiler* filer) {
    const Acad::ErrorStatus es = TrfcTypedBlock::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    mComplIndex = -1;
    if (filedVersion() < 2)
        return filer->filerStatus();
    Adesk::UInt32 version = 0;
    const Acad::ErrorStatus versionStatus = trfcReadVersion(*filer, version);
    if (versionStatus != Acad::eOk)
        return versionStatus;
    filer->readInt16(&mComplIndex);
    return filer->filerStatus();
}
