// One row a built-in class that is modelled: its record type and its field list.
#pragma once

#include "DwgFieldStreams.h"

struct DwgClassRow {
    int type = 0;                     // 0: found through the class section
    const wchar_t* dxfName = L"";     // for the class section, when type is 0
    bool isEntity = false;
    bool keepsBits = false;           // the record stays with the object, which models a part of it
    AcRxClass* (*desc)() = nullptr;
    std::unique_ptr<AcDbObject> (*make)() = nullptr;
    void (*read)(DwgIn&, AcDbObject&) = nullptr;
    void (*write)(DwgOut&, AcDbObject&) = nullptr;
};

template <class T> DwgClassRow dwgClassRow(int type, const wchar_t* dxfName = L"") {
    DwgClassRow row;
    row.type = type;
    row.dxfName = dxfName;
    row.isEntity = std::is_base_of_v<AcDbEntity, T>;
    row.desc = &T::desc;
    row.make = []() -> std::unique_ptr<AcDbObject> { return std::make_unique<T>(); };
    row.read = [](DwgIn& in, AcDbObject& object) { DbObjectAccess::DwgFields<T>::file(in, static_cast<T&>(object)); };
    row.write = [](DwgOut& out, AcDbObject& object) { DbObjectAccess::DwgFields<T>::file(out, static_cast<T&>(object)); };
    return row;
}

// Every row; a class without one does not link.
const std::vector<const DwgClassRow*>& dwgClassRows();
const DwgClassRow* dwgRowOfType(int type);
const DwgClassRow* dwgRowOfClassName(const std::wstring& cppName); // rows of the class section
// The row of an object's class itself, not of a parent; null when the class has none.
const DwgClassRow* dwgRowOf(const AcRxClass* type);
