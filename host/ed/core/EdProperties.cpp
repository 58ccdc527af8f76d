#include "EdProperties.h"

#include "DbObjectAccess.h"
#include "input/EdParse.h"

#include <algorithm>
#include <cstdlib>

namespace {
constexpr const wchar_t* kColorNames[] = {L"BYBLOCK", L"RED", L"YELLOW", L"GREEN", L"CYAN", L"BLUE", L"MAGENTA", L"WHITE"};
constexpr int kWeights[] = {0, 5, 9, 13, 15, 18, 20, 25, 30, 35, 40, 50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
} // namespace

std::wstring edRecordName(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbSymbolTableRecord> record(id);
    return record ? record->name() : L"";
}
AcDbObjectIdArray edRecordsByName(AcDbDatabase& db, const AcRxClass* tableClass) {
    AcDbObjectIdArray ids;
    const AcDbObjectPointer<AcDbSymbolTable> table(db.tableId(tableClass));
    if (!table)
        return ids;
    std::vector<std::pair<std::wstring, AcDbObjectId>> found;
    for (const AcDbObjectId id : table->recordIds())
        if (!id.isErased())
            found.emplace_back(edRecordName(id), id);
    std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return acutWcsicmp(a.first.c_str(), b.first.c_str()) < 0; });
    for (const auto& pair : found)
        ids.append(pair.second);
    return ids;
}

std::optional<AcCmColor> edParseColor(const std::wstring& text) {
    if (edSameWord(text, L"BYLAYER"))
        return AcCmColor(AcCmEntityColor::fromIndex(256));
    for (int i = 0; i < 8; ++i)
        if (edSameWord(text, kColorNames[i]))
            return AcCmColor(AcCmEntityColor::fromIndex(i));
    if (const auto index = edParseInt(text))
        return *index >= 1 && *index <= 255 ? std::optional<AcCmColor>(AcCmEntityColor::fromIndex(*index)) : std::nullopt;
    const auto parts = edSplitAt(text, L',');
    if (parts.size() != 3)
        return std::nullopt;
    Adesk::UInt8 rgb[3];
    for (std::size_t i = 0; i < 3; ++i) {
        const auto part = edParseInt(edTrim(parts[i]));
        if (!part || *part < 0 || *part > 255)
            return std::nullopt;
        rgb[i] = static_cast<Adesk::UInt8>(*part);
    }
    return AcCmColor(rgb[0], rgb[1], rgb[2]);
}
std::wstring edColorName(const AcCmColor& color) {
    if (color.isByLayer())
        return L"BYLAYER";
    if (color.isByBlock())
        return L"BYBLOCK";
    if (color.isByColor())
        return acFormat(L"%d,%d,%d", color.red(), color.green(), color.blue());
    return std::to_wstring(color.colorIndex());
}

std::optional<AcDb::LineWeight> edNearestLineWeight(int hundredths) {
    if (hundredths < 0)
        return hundredths >= -3 ? std::optional(static_cast<AcDb::LineWeight>(hundredths)) : std::nullopt;
    if (hundredths > 211)
        return std::nullopt;
    const int* best = kWeights;
    for (const int& weight : kWeights)
        if (std::abs(weight - hundredths) < std::abs(*best - hundredths))
            best = &weight;
    return static_cast<AcDb::LineWeight>(*best);
}
std::optional<AcDb::LineWeight> edParseLineWeight(const std::wstring& text) {
    if (edSameWord(text, L"BYLAYER"))
        return AcDb::kLnWtByLayer;
    if (edSameWord(text, L"BYBLOCK"))
        return AcDb::kLnWtByBlock;
    if (edSameWord(text, L"DEFAULT"))
        return AcDb::kLnWtByLwDefault;
    const auto mm = edParseReal(text);
    if (!mm || *mm < 0.0 || *mm > 2.11)
        return std::nullopt;
    return edNearestLineWeight(static_cast<int>(*mm * 100.0 + 0.5));
}
std::wstring edLineWeightName(AcDb::LineWeight weight) {
    if (weight == AcDb::kLnWtByLayer)
        return L"ByLayer";
    if (weight == AcDb::kLnWtByBlock)
        return L"ByBlock";
    if (weight == AcDb::kLnWtByLwDefault)
        return L"Default";
    return acFormat(L"%.2f", static_cast<int>(weight) / 100.0);
}

std::wstring edTypeName(const AcDbObject& object) {
    if (object.isKindOf(AcDbProxyEntity::desc()))
        return static_cast<const AcDbProxyEntity&>(object).originalClassName();
    const AcRxClass* const type = object.isA();
    return type->dxfName() != nullptr ? type->dxfName() : type->name();
}
bool edIsOnLockedLayer(const AcDbEntity& entity) {
    return DbObjectAccess::isOnLockedLayer(entity);
}
GiNamer edNamer() {
    return [](AcDbObjectId id) { return edRecordName(id); };
}
bool edIsSymbolName(const std::wstring& name) {
    if (name.empty() || name.size() > 255)
        return false;
    return std::none_of(name.begin(), name.end(), [](wchar_t c) { return c < 0x20 || std::wstring_view(L"<>/\\\":;?*|,=`").find(c) != std::wstring_view::npos; });
}
