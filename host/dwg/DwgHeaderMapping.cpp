// One value a row; what the file packs in one number stands apart in the database.
#include "DwgHeaderMapping.h"

#include "DwgCommonData.h"

namespace {
// Open Design description of DWG, "Header variables": bits of the number that begins with CELWEIGHT. Two
// of them are set when the variable is off.
struct Packed {
    const wchar_t* name;
    Adesk::Int32 mask;
    int shift;
    bool inverted;
};
constexpr Packed kPacked[] = {
    {L"ENDCAPS", 0x0060, 5, false}, {L"JOINSTYLE", 0x0180, 7, false}, {L"LWDISPLAY", 0x0200, 9, true}, {L"XEDIT", 0x0400, 10, true},
    {L"EXTNAMES", 0x0800, 11, false}, {L"PSTYLEMODE", 0x2000, 13, false}, {L"OLESTARTUP", 0x4000, 14, false},
};
constexpr Adesk::Int32 kWeightMask = 0x1F;

DbHeaderValue intValue(Adesk::Int64 number) {
    DbHeaderValue value;
    value.integer = number;
    return value;
}
DbHeaderValue valueOf(DwgVarType type, const DwgVarValue& from, const DwgIdSource& ids) {
    DbHeaderValue value;
    switch (type) {
    case DwgVarType::kBit:
    case DwgVarType::kShort:
    case DwgVarType::kLong:
    case DwgVarType::kColor:
    case DwgVarType::kFlags: return intValue(from.integer);
    case DwgVarType::kReal:
    case DwgVarType::kTime:
        value.kind = DbHeaderValue::kDouble;
        value.real = from.real;
        break;
    case DwgVarType::kPoint:
    case DwgVarType::kPoint2:
        value.kind = DbHeaderValue::kPoint;
        value.point = from.point;
        break;
    case DwgVarType::kText:
        value.kind = DbHeaderValue::kText;
        value.text = from.text;
        break;
    case DwgVarType::kSeed:
    case DwgVarType::kOwner:
    case DwgVarType::kPointer:
    case DwgVarType::kPlotStyle:
        value.kind = DbHeaderValue::kHandle;
        value.id = ids.id(from.handle);
        break;
    }
    return value;
}
// These point to what the database knows by itself.
bool isStructural(const DwgVarRow& row) {
    const std::wstring name = row.name;
    return row.type == DwgVarType::kSeed || row.type == DwgVarType::kOwner || name.rfind(L"DICTIONARY_", 0) == 0 || name.rfind(L"BLOCK_", 0) == 0 ||
           name.rfind(L"LTYPE_", 0) == 0;
}
void takeValue(DwgVarValue& to, DwgVarType type, const DbHeaderValue& from) {
    switch (type) {
    case DwgVarType::kBit:
    case DwgVarType::kShort:
    case DwgVarType::kLong:
    case DwgVarType::kFlags: to.integer = static_cast<Adesk::Int32>(from.integer); break;
    case DwgVarType::kColor: to.integer = from.integer >= 0 && from.integer <= 257 ? static_cast<Adesk::Int32>(from.integer) : 256; break;
    case DwgVarType::kReal:
    case DwgVarType::kTime: to.real = from.real; break;
    case DwgVarType::kPoint:
    case DwgVarType::kPoint2: to.point = from.point; break;
    case DwgVarType::kText: to.text = from.text; break;
    case DwgVarType::kSeed:
    case DwgVarType::kOwner:
    case DwgVarType::kPointer:
    case DwgVarType::kPlotStyle: to.handle = from.id.isErased() ? 0 : static_cast<Adesk::UInt64>(from.id.handle()); break;
    }
}
Adesk::UInt64 entryOf(AcDbDatabase& db, const wchar_t* name) {
    auto* named = AcDbDictionary::cast(DbObjectAccess::peek(db.namedObjectsDictionaryId()));
    if (named == nullptr)
        return 0;
    const auto found = DbObjectAccess::entries(*named).find(name);
    return found == DbObjectAccess::entries(*named).end() || found->second.isErased() ? 0 : static_cast<Adesk::UInt64>(found->second.handle());
}
} // namespace

const std::vector<DwgTableRow>& dwgTableRows() {
    static const std::vector<DwgTableRow> rows = {
        {L"BLOCK_CONTROL", &AcDbBlockTable::desc},   {L"LAYER_CONTROL", &AcDbLayerTable::desc}, {L"STYLE_CONTROL", &AcDbTextStyleTable::desc},
        {L"LTYPE_CONTROL", &AcDbLinetypeTable::desc}, {L"VIEW_CONTROL", &AcDbViewTable::desc},  {L"UCS_CONTROL", &AcDbUCSTable::desc},
        {L"VPORT_CONTROL", &AcDbViewportTable::desc}, {L"APPID_CONTROL", &AcDbRegAppTable::desc}, {L"DIMSTYLE_CONTROL", &AcDbDimStyleTable::desc},
        {L"VX_CONTROL", &AcDbVXTable::desc},
    };
    return rows;
}

void dwgHeaderToDatabase(const DwgHeaderVars& vars, const DwgFile& file, const DwgIdSource& ids) {
    std::map<std::wstring, DbHeaderValue>& header = DbObjectAccess::header(ids.database());
    const std::vector<DwgVarRow>& rows = DwgHeaderVars::rows();
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (!isStructural(rows[i]) && rows[i].type != DwgVarType::kFlags)
            header[rows[i].name] = valueOf(rows[i].type, vars.at(static_cast<int>(i)), ids);
    const Adesk::Int32 flags = vars[L"FLAGS"].integer;
    header[L"FLAGS"] = intValue(flags);
    for (const Packed& packed : kPacked)
        header[packed.name] = intValue(((flags & packed.mask) >> packed.shift) ^ (packed.inverted ? 1 : 0));
    header[L"CELWEIGHT"] = intValue(dwgLineWeight(static_cast<unsigned>(flags & kWeightMask)));
    header[L"MEASUREMENT"] = intValue(file.measurement());
    header[L"DWGCODEPAGE"] = intValue(file.codePage());
}

void dwgHeaderFromDatabase(AcDbDatabase& db, DwgHeaderVars& vars) {
    const std::map<std::wstring, DbHeaderValue>& header = DbObjectAccess::header(db);
    const std::vector<DwgVarRow>& rows = DwgHeaderVars::rows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto known = header.find(rows[i].name);
        if (known != header.end())
            takeValue(vars.at(static_cast<int>(i)), rows[i].type, known->second);
    }
    Adesk::Int32& flags = vars[L"FLAGS"].integer;
    for (const Packed& packed : kPacked)
        if (const auto known = header.find(packed.name); known != header.end())
            flags = (flags & ~packed.mask) | (((static_cast<Adesk::Int32>(known->second.integer) ^ (packed.inverted ? 1 : 0)) << packed.shift) & packed.mask);
    flags = (flags & ~kWeightMask) | static_cast<Adesk::Int32>(dwgLineWeightNumber(db.celweight()));
    vars[L"HANDSEED"].handle = db.handseed();
    for (const DwgTableRow& table : dwgTableRows())
        vars[table.variable].handle = db.tableId(table.desc()).handle();
    vars[L"DICTIONARY_NAMED"].handle = db.namedObjectsDictionaryId().handle();
    vars[L"DICTIONARY_GROUP"].handle = entryOf(db, L"ACAD_GROUP");
    vars[L"DICTIONARY_MLINESTYLE"].handle = entryOf(db, L"ACAD_MLINESTYLE");
    vars[L"DICTIONARY_LAYOUT"].handle = entryOf(db, L"ACAD_LAYOUT");
    vars[L"DICTIONARY_PLOTSETTINGS"].handle = entryOf(db, L"ACAD_PLOTSETTINGS");
    vars[L"DICTIONARY_PLOTSTYLENAME"].handle = entryOf(db, L"ACAD_PLOTSTYLENAME");
    vars[L"BLOCK_PAPER_SPACE"].handle = db.paperSpaceId().handle();
    vars[L"BLOCK_MODEL_SPACE"].handle = db.modelSpaceId().handle();
    vars[L"LTYPE_BYLAYER"].handle = db.byLayerLinetype().handle();
    vars[L"LTYPE_BYBLOCK"].handle = db.byBlockLinetype().handle();
    vars[L"LTYPE_CONTINUOUS"].handle = db.continuousLinetype().handle();
}
