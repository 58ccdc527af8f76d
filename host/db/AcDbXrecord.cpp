// Xrecords.
#include "AcDbDictionary.h"

#include "DbResbufFiling.h"

HOST_RX_DEFINE(AcDbXrecord, AcDbObject, L"XRECORD")

AcDbXrecord::~AcDbXrecord() {
    acutRelRb(mChain);
}
Acad::ErrorStatus AcDbXrecord::rbChain(resbuf** chain, AcDbDatabase*) const {
    assertReadEnabled();
    *chain = acutCopyRb(mChain);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf& chain, AcDbDatabase*) {
    assertWriteEnabled();
    resbuf* const copy = acutCopyRb(&chain); // first: the chain may be the stored one
    acutRelRb(mChain);
    mChain = copy;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbXrecord::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbObject::dwgOutFields(filer);
    filer->writeInt16(static_cast<Adesk::Int16>(mMergeStyle));
    dbWriteChain(*filer, mChain);
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbXrecord::dwgInFields(AcDbDwgFiler* filer) {
    AcDbObject::dwgInFields(filer);
    Adesk::Int16 style = 0;
    filer->readInt16(&style);
    mMergeStyle = static_cast<AcDb::DuplicateRecordCloning>(style);
    acutRelRb(mChain);
    mChain = dbReadChain(*filer);
    return filer->filerStatus();
}
