// Annotation scales, drawing variables, and the reactors of a scale change.
#include "AcDbAnnotationScale.h"

#include "DbDatabaseData.h"
#include "DbFieldFiling.h"
#include "DbScaleList.h"

#include <algorithm>
#include <cmath>

HOST_RX_DEFINE_ABSTRACT(AcDbObjectContext, AcRxObject)
HOST_RX_DEFINE(AcDbAnnotationScale, AcDbObjectContext, nullptr)
HOST_RX_DEFINE_ABSTRACT(AcDbObjectContextCollection, AcRxObject)
HOST_RX_DEFINE(AcDbScale, AcDbObject, L"SCALE")
HOST_RX_DEFINE(AcDbDictionaryVar, AcDbObject, L"DICTIONARYVAR")

Acad::ErrorStatus AcDbAnnotationScale::getName(std::wstring& name) const {
    name = mName;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAnnotationScale::setName(const std::wstring& name) {
    if (name.empty())
        return Acad::eInvalidInput;
    mName = name;
    return Acad::eOk;
}
std::wstring AcDbAnnotationScale::collectionName() const {
    return acdbAnnotationScaleCollectionName;
}
Acad::ErrorStatus AcDbAnnotationScale::getPaperUnits(double& units) const {
    units = mPaper;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAnnotationScale::setPaperUnits(double units) {
    if (!(units > 0.0) || !std::isfinite(units))
        return Acad::eInvalidInput;
    mPaper = units;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAnnotationScale::getDrawingUnits(double& units) const {
    units = mDrawing;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAnnotationScale::setDrawingUnits(double units) {
    if (!(units > 0.0) || !std::isfinite(units))
        return Acad::eInvalidInput;
    mDrawing = units;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAnnotationScale::getScale(double& scale) const {
    scale = mPaper / mDrawing;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAnnotationScale::copyFrom(const AcRxObject* other) {
    const AcDbAnnotationScale* const scale = AcDbAnnotationScale::cast(other);
    if (scale == nullptr)
        return Acad::eNotThatKindOfClass;
    mName = scale->mName;
    mPaper = scale->mPaper;
    mDrawing = scale->mDrawing;
    mObject = scale->mObject;
    return Acad::eOk;
}

// ---- file objects --------------------------------------------------------------------
Acad::ErrorStatus AcDbScale::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbObject::dwgOutFields(filer);
    DbFieldsOut out(*filer);
    out.text(mName), out.value(mPaper), out.value(mDrawing), out.value(mUnitScale);
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbScale::dwgInFields(AcDbDwgFiler* filer) {
    AcDbObject::dwgInFields(filer);
    DbFieldsIn in(*filer);
    in.text(mName), in.value(mPaper), in.value(mDrawing), in.value(mUnitScale);
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbDictionaryVar::setValue(const ACHAR* value) {
    assertWriteEnabled();
    mValue = value != nullptr ? value : L"";
    return Acad::eOk;
}
Acad::ErrorStatus AcDbDictionaryVar::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbObject::dwgOutFields(filer);
    DbFieldsOut out(*filer);
    out.value(mSchema), out.text(mValue);
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbDictionaryVar::dwgInFields(AcDbDwgFiler* filer) {
    AcDbObject::dwgInFields(filer);
    DbFieldsIn in(*filer);
    in.value(mSchema), in.text(mValue);
    return filer->filerStatus();
}

// ---- the drawing's current scale -------------------------------------------------------
namespace {
std::vector<AcDbAnnotationScaleReactor*>& reactors() {
    static std::vector<AcDbAnnotationScaleReactor*> theReactors;
    return theReactors;
}
constexpr const ACHAR* kCurrentScale = L"CANNOSCALE";
} // namespace

const std::vector<AcDbAnnotationScaleReactor*>& dbScaleReactors() {
    return reactors();
}
void acdbAddAnnotationScaleReactor(AcDbAnnotationScaleReactor* reactor) {
    if (reactor != nullptr && std::find(reactors().begin(), reactors().end(), reactor) == reactors().end())
        reactors().push_back(reactor);
}
void acdbRemoveAnnotationScaleReactor(AcDbAnnotationScaleReactor* reactor) {
    std::erase(reactors(), reactor);
}

AcDbObjectContextManager* AcDbDatabase::objectContextManager() const {
    return mData->contexts.get();
}
AcDbAnnotationScale* AcDbDatabase::cannoscale() const {
    const std::wstring name = dbDrawingVariable(*this, kCurrentScale);
    AcDbObjectContextCollection* const list = mData->contexts->contextCollection(acdbAnnotationScaleCollectionName);
    if (AcDbAnnotationScale* const known = AcDbAnnotationScale::cast(list->getContext(name)))
        return known;
    auto* const oneToOne = new AcDbAnnotationScale; // a drawing without the variable, or with a name it lost
    oneToOne->setName(L"1:1");
    return oneToOne;
}
Acad::ErrorStatus AcDbDatabase::setCannoscale(const AcDbAnnotationScale* scale) {
    if (scale == nullptr)
        return Acad::eNullPtr;
    std::wstring name;
    scale->getName(name);
    AcDbObjectContextCollection* const list = mData->contexts->contextCollection(acdbAnnotationScaleCollectionName);
    const std::unique_ptr<AcDbObjectContext> known(list->getContext(name));
    if (known == nullptr)
        return Acad::eKeyNotFound;
    known->getName(name); // the list's spelling
    dbSetDrawingVariable(*this, kCurrentScale, name);
    AcDbObjectId viewport;
    if (AcDbObjectPointer<AcDbViewportTable> table(tableId(AcDbViewportTable::desc())); table)
        table->getAt(L"*Active", viewport);
    const std::vector<AcDbAnnotationScaleReactor*> now = reactors(); // one may remove itself
    for (AcDbAnnotationScaleReactor* const reactor : now)
        reactor->annotationScaleChanged(this, viewport, AcDbAnnotationScale::cast(known.get()), false);
    return Acad::eOk;
}
