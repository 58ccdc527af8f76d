// Header values: the current properties of a drawing under their variables' names.
#include "AcDbDatabase.h"

#include "DbDatabaseData.h"

namespace {
// Values are few and asked for now and then, so a search by name is quick enough.
const DbHeaderValue* find(const AcDbDatabaseImpData& data, const ACHAR* name) {
    const auto found = data.header.find(name);
    return found == data.header.end() ? nullptr : &found->second;
}
DbHeaderValue& change(AcDbDatabaseImpData& data, const ACHAR* name, DbHeaderValue::Kind kind) {
    data.undo.recordHeader();
    data.changed = true;
    DbHeaderValue& value = data.header[name];
    value.kind = kind;
    return value;
}
double realOf(const AcDbDatabaseImpData& data, const ACHAR* name, double missing) {
    const DbHeaderValue* const value = find(data, name);
    return value != nullptr ? value->real : missing;
}
AcDbObjectId idOf(const AcDbDatabaseImpData& data, const ACHAR* name, AcDbObjectId missing) {
    const DbHeaderValue* const value = find(data, name);
    return value != nullptr && value->id.isValid() && !value->id.isErased() ? value->id : missing;
}
Acad::ErrorStatus setReal(AcDbDatabaseImpData& data, const ACHAR* name, double value) {
    if (!(value > 0.0))
        return Acad::eInvalidInput;
    change(data, name, DbHeaderValue::kDouble).real = value;
    return Acad::eOk;
}
Acad::ErrorStatus setId(AcDbDatabaseImpData& data, const ACHAR* name, AcDbObjectId id, const AcRxClass* type) {
    const AcDbObject* const object = DbObjectAccess::peek(id);
    if (object == nullptr || !object->isKindOf(type) || id.isErased())
        return Acad::eInvalidInput;
    change(data, name, DbHeaderValue::kHandle).id = id;
    return Acad::eOk;
}
constexpr Adesk::Int64 kTrueColor = 0xC2000000; // above it a colour's red, green and blue
} // namespace

Adesk::Int16 AcDbDatabase::measurement() const {
    const DbHeaderValue* const value = find(*mData, L"MEASUREMENT");
    return value == nullptr ? Adesk::Int16{1} : static_cast<Adesk::Int16>(value->integer);
}
Acad::ErrorStatus AcDbDatabase::setMeasurement(Adesk::Int16 value) {
    if (value != 0 && value != 1)
        return Acad::eInvalidInput;
    change(*mData, L"MEASUREMENT", DbHeaderValue::kInt).integer = value;
    return Acad::eOk;
}
AcDbObjectId AcDbDatabase::clayer() const {
    return idOf(*mData, L"CLAYER", mData->layerZero);
}
Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId id) {
    return setId(*mData, L"CLAYER", id, AcDbLayerTableRecord::desc());
}
AcDbObjectId AcDbDatabase::celtype() const {
    return idOf(*mData, L"CELTYPE", mData->byLayer);
}
Acad::ErrorStatus AcDbDatabase::setCeltype(AcDbObjectId id) {
    return setId(*mData, L"CELTYPE", id, AcDbLinetypeTableRecord::desc());
}
AcCmColor AcDbDatabase::cecolor() const {
    const DbHeaderValue* const value = find(*mData, L"CECOLOR");
    AcCmColor color;
    if (value != nullptr && value->integer >= kTrueColor)
        color.setRGB(static_cast<Adesk::UInt8>(value->integer >> 16), static_cast<Adesk::UInt8>(value->integer >> 8),
                     static_cast<Adesk::UInt8>(value->integer));
    else if (value != nullptr)
        color.setColorIndex(static_cast<Adesk::UInt16>(value->integer));
    return color;
}
Acad::ErrorStatus AcDbDatabase::setCecolor(const AcCmColor& color) {
    change(*mData, L"CECOLOR", DbHeaderValue::kInt).integer =
        color.isByColor() ? kTrueColor | color.red() << 16 | color.green() << 8 | color.blue() : color.colorIndex();
    return Acad::eOk;
}
double AcDbDatabase::celtscale() const {
    return realOf(*mData, L"CELTSCALE", 1.0);
}
Acad::ErrorStatus AcDbDatabase::setCeltscale(double value) {
    return setReal(*mData, L"CELTSCALE", value);
}
AcDb::LineWeight AcDbDatabase::celweight() const {
    const DbHeaderValue* const value = find(*mData, L"CELWEIGHT");
    return value == nullptr ? AcDb::kLnWtByLayer : static_cast<AcDb::LineWeight>(value->integer);
}
Acad::ErrorStatus AcDbDatabase::setCelweight(AcDb::LineWeight weight) {
    change(*mData, L"CELWEIGHT", DbHeaderValue::kInt).integer = weight;
    return Acad::eOk;
}
AcDbObjectId AcDbDatabase::textstyle() const {
    return idOf(*mData, L"TEXTSTYLE", mData->standardStyle);
}
Acad::ErrorStatus AcDbDatabase::setTextstyle(AcDbObjectId id) {
    return setId(*mData, L"TEXTSTYLE", id, AcDbTextStyleTableRecord::desc());
}
double AcDbDatabase::textsize() const {
    return realOf(*mData, L"TEXTSIZE", 2.5);
}
Acad::ErrorStatus AcDbDatabase::setTextsize(double value) {
    return setReal(*mData, L"TEXTSIZE", value);
}
double AcDbDatabase::ltscale() const {
    return realOf(*mData, L"LTSCALE", 1.0);
}
Acad::ErrorStatus AcDbDatabase::setLtscale(double value) {
    return setReal(*mData, L"LTSCALE", value);
}
AcGePoint3d AcDbDatabase::insbase() const {
    const DbHeaderValue* const value = find(*mData, L"INSBASE");
    return value == nullptr ? AcGePoint3d() : value->point;
}
Acad::ErrorStatus AcDbDatabase::setInsbase(const AcGePoint3d& p) {
    change(*mData, L"INSBASE", DbHeaderValue::kPoint).point = p;
    return Acad::eOk;
}
