// Names and values of layers, colours, line types and line weights, as they are typed and shown.
#pragma once

#include "AcDbDatabase.h"
#include "AcUtText.h"

#include <optional>
#include <string>

// The name of a symbol table record; empty for a null or foreign id.
std::wstring edRecordName(AcDbObjectId id);
// The record of that name in the table of this drawing, or null.
template <class Table> AcDbObjectId edFindRecord(AcDbDatabase& db, const std::wstring& name) {
    AcDbObjectId id;
    const AcDbObjectPointer<Table> table(db.tableId(Table::desc()));
    if (table)
        table->getAt(name.c_str(), id);
    return id;
}
// Ids of a table's records that are not erased, by name.
AcDbObjectIdArray edRecordsByName(AcDbDatabase& db, const AcRxClass* tableClass);

// 1..255, red yellow green cyan blue magenta white, BYLAYER, BYBLOCK, r,g,b.
std::optional<AcCmColor> edParseColor(const std::wstring& text);
// BYLAYER, BYBLOCK, a number, or r,g,b.
std::wstring edColorName(const AcCmColor& color);

// The weight of the list that is nearest to 1/100 mm; -1 by layer, -2 by block, -3 default.
std::optional<AcDb::LineWeight> edNearestLineWeight(int hundredths);
// Millimetres, ByLayer, ByBlock or Default.
std::optional<AcDb::LineWeight> edParseLineWeight(const std::wstring& text);
std::wstring edLineWeightName(AcDb::LineWeight weight);

// What a listing calls the object: its DXF name, or the class's where it has none.
std::wstring edTypeName(const AcDbObject& object);
bool edIsOnLockedLayer(const AcDbEntity& entity);
// Names of table records for giRecord; empty for null ids.
GiNamer edNamer();
// Whether names of symbol tables may hold this text: no control characters and none of <>/\":;?*|,=`
bool edIsSymbolName(const std::wstring& name);
