// Objects of classes that nobody knows.
#include "DbObjectAccess.h"

HOST_RX_DEFINE(AcDbProxyEntity, AcDbEntity, L"ACAD_PROXY_ENTITY")
HOST_RX_DEFINE(AcDbProxyObject, AcDbObject, L"ACAD_PROXY_OBJECT")

namespace {
DbProxyPlayer gPlayer = nullptr;
}
void dbSetProxyPlayer(DbProxyPlayer player) {
    gPlayer = player;
}

std::wstring AcDbProxyEntity::originalClassName() const {
    return mName;
}
// The record itself is filed with every object that has one; here follows only what it was called.
Acad::ErrorStatus AcDbProxyEntity::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbEntity::dwgOutFields(filer);
    return filer->writeString(mName.c_str());
}
Acad::ErrorStatus AcDbProxyEntity::dwgInFields(AcDbDwgFiler* filer) {
    AcDbEntity::dwgInFields(filer);
    return filer->readString(mName);
}
bool AcDbProxyEntity::subWorldDraw(AcGiWorldDraw* worldDraw) {
    const AcDbObjectImpData* const data = DbObjectAccess::dataIfAny(*this);
    if (gPlayer != nullptr && data != nullptr && !data->proxyGraphics.empty())
        gPlayer(data->proxyGraphics, database(), *worldDraw);
    return true;
}
Acad::ErrorStatus AcDbProxyObject::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbObject::dwgOutFields(filer);
    return filer->writeString(mName.c_str());
}
Acad::ErrorStatus AcDbProxyObject::dwgInFields(AcDbDwgFiler* filer) {
    AcDbObject::dwgInFields(filer);
    return filer->readString(mName);
}
