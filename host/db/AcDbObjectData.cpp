// Extended data, extension dictionary and reactors of an object.
#include "AcDbDictionary.h"
#include "DbDatabaseData.h"
#include "DbOpenState.h"

#include "AcUtText.h"

#include <string>

namespace {
constexpr short kApplicationCode = 1001;

bool isApplication(const resbuf* item) {
    return item->restype == kApplicationCode;
}
// The last item of the application that begins at `item`.
resbuf* lastOf(resbuf* item) {
    while (item->rbnext != nullptr && !isApplication(item->rbnext))
        item = item->rbnext;
    return item;
}
// Takes the named application's stretch out of the chain and returns it, ended by null.
resbuf* detach(resbuf** chain, const ACHAR* application) {
    for (resbuf** link = chain; *link != nullptr;) {
        resbuf* const first = *link;
        resbuf* const last = lastOf(first);
        if (isApplication(first) && acutWcsicmp(first->resval.rstring, application) == 0) {
            *link = last->rbnext;
            last->rbnext = nullptr;
            return first;
        }
        link = &last->rbnext;
    }
    return nullptr;
}
void append(resbuf** chain, resbuf* items) {
    while (*chain != nullptr)
        chain = &(*chain)->rbnext;
    *chain = items;
}
} // namespace

resbuf* AcDbObject::xData(const ACHAR* application) const {
    assertReadEnabled();
    if (mData == nullptr || mData->xdata == nullptr)
        return nullptr;
    resbuf* all = acutCopyRb(mData->xdata);
    if (application == nullptr)
        return all;
    resbuf* const wanted = detach(&all, application);
    acutRelRb(all);
    return wanted;
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* chain) {
    if (chain == nullptr || chain->restype != kApplicationCode)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    resbuf* rest = acutCopyRb(chain);
    AcDbObjectImpData& data = DbObjectAccess::data(*this);
    while (rest != nullptr) {
        resbuf* const first = rest;
        resbuf* const last = lastOf(first);
        rest = last->rbnext;
        last->rbnext = nullptr;
        acutRelRb(detach(&data.xdata, first->resval.rstring));
        if (first->rbnext == nullptr) // the name alone removes the application's data
            acutRelRb(first);
        else
            append(&data.xdata, first);
    }
    return Acad::eOk;
}

AcDbObjectId AcDbObject::extensionDictionary() const {
    return mData == nullptr ? AcDbObjectId::kNull : mData->extensionDictionary;
}
Acad::ErrorStatus AcDbObject::createExtensionDictionary() {
    if (database() == nullptr)
        return Acad::eNotInDatabase;
    assertWriteEnabled();
    AcDbObjectId& id = DbObjectAccess::data(*this).extensionDictionary;
    if (!id.isNull() && !id.isErased())
        return Acad::eAlreadyInDb;
    auto* const dictionary = new AcDbDictionary;
    dictionary->setTreatElementsAsHard(true);
    const Acad::ErrorStatus es = DbObjectAccess::adopt(*database(), *dictionary, mId, id);
    dictionary->close();
    return es;
}

void AcDbObject::addPersistentReactor(AcDbObjectId reactor) {
    assertWriteEnabled();
    AcDbObjectIdArray& reactors = DbObjectAccess::data(*this).reactors;
    if (!reactors.contains(reactor))
        reactors.append(reactor);
}
void AcDbObject::removePersistentReactor(AcDbObjectId reactor) {
    assertWriteEnabled();
    AcDbObjectIdArray& reactors = DbObjectAccess::data(*this).reactors;
    int index = 0;
    if (reactors.find(reactor, index))
        reactors.removeAt(index);
}
AcDbObjectIdArray AcDbObject::persistentReactors() const {
    return mData == nullptr ? AcDbObjectIdArray() : mData->reactors;
}
