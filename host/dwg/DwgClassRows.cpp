// The list of built-in classes that are modelled. A row is constant data of its own file; taking its
// address here is what makes the linker demand it.
#include "DwgClassRow.h"

#include <array>

extern const DwgClassRow kDwgArc;
extern const DwgClassRow kDwgAttribute;
extern const DwgClassRow kDwgAttributeDefinition;
extern const DwgClassRow kDwgBlockRecord;
extern const DwgClassRow kDwgCircle;
extern const DwgClassRow kDwgDictionary;
extern const DwgClassRow kDwgDictionaryWithDefault;
extern const DwgClassRow kDwgDimStyle;
extern const DwgClassRow kDwgEllipse;
extern const DwgClassRow kDwgHatch;
extern const DwgClassRow kDwgInsert;
extern const DwgClassRow kDwgView;
extern const DwgClassRow kDwgUcs;
extern const DwgClassRow kDwgVxRecord;
extern const DwgClassRow kDwgLayer;
extern const DwgClassRow kDwgLayout;
extern const DwgClassRow kDwgMlineStyle;
extern const DwgClassRow kDwgPlaceHolder;
extern const DwgClassRow kDwgLightPolyline;
extern const DwgClassRow kDwgLine;
extern const DwgClassRow kDwgLinetype;
extern const DwgClassRow kDwgMText;
extern const DwgClassRow kDwgBlockBegin;
extern const DwgClassRow kDwgBlockEnd;
extern const DwgClassRow kDwgSequenceEnd;
extern const DwgClassRow kDwgPoint;
extern const DwgClassRow kDwg2dPolyline;
extern const DwgClassRow kDwg3dPolyline;
extern const DwgClassRow kDwg2dVertex;
extern const DwgClassRow kDwg3dVertex;
extern const DwgClassRow kDwgRegisteredApp;
extern const DwgClassRow kDwgScale;
extern const DwgClassRow kDwgDictionaryVar;
extern const DwgClassRow kDwgSolid;
extern const DwgClassRow kDwgSpline;
extern const DwgClassRow kDwgBlockTable;
extern const DwgClassRow kDwgLayerTable;
extern const DwgClassRow kDwgTextStyleTable;
extern const DwgClassRow kDwgLinetypeTable;
extern const DwgClassRow kDwgViewTable;
extern const DwgClassRow kDwgUcsTable;
extern const DwgClassRow kDwgViewportTable;
extern const DwgClassRow kDwgRegAppTable;
extern const DwgClassRow kDwgDimStyleTable;
extern const DwgClassRow kDwgVxTable;
extern const DwgClassRow kDwgText;
extern const DwgClassRow kDwgTextStyle;
extern const DwgClassRow kDwgViewport;
extern const DwgClassRow kDwgXrecord;

namespace {
constexpr int kFirstClassNumber = 500;
struct Index {
    std::array<const DwgClassRow*, kFirstClassNumber> byType{};
    std::unordered_map<std::wstring, const DwgClassRow*> byName; // those found through the class section
    std::unordered_map<const AcRxClass*, const DwgClassRow*> byClass;
};
const Index& index() {
    static const Index made = [] {
        Index i;
        for (const DwgClassRow* row : dwgClassRows()) {
            if (row->type != 0)
                i.byType[static_cast<std::size_t>(row->type)] = row;
            else
                i.byName.emplace(row->desc()->name(), row);
            i.byClass.emplace(row->desc(), row);
        }
        // Some writers use fixed numbers for what others put in the class section.
        i.byType[0x50] = &kDwgPlaceHolder;
        i.byType[0x52] = &kDwgLayout;
        return i;
    }();
    return made;
}
} // namespace

const std::vector<const DwgClassRow*>& dwgClassRows() {
    static const std::vector<const DwgClassRow*> rows = {
        &kDwgArc, &kDwgAttribute, &kDwgAttributeDefinition, &kDwgBlockRecord, &kDwgCircle, &kDwgDictionary,
        &kDwgDictionaryWithDefault, &kDwgDimStyle, &kDwgEllipse, &kDwgHatch, &kDwgInsert, &kDwgView, &kDwgUcs,
        &kDwgVxRecord, &kDwgLayer, &kDwgLayout, &kDwgMlineStyle, &kDwgPlaceHolder, &kDwgLightPolyline, &kDwgLine,
        &kDwgLinetype, &kDwgMText, &kDwgBlockBegin, &kDwgBlockEnd, &kDwgSequenceEnd, &kDwgPoint, &kDwg2dPolyline,
        &kDwg3dPolyline, &kDwg2dVertex, &kDwg3dVertex, &kDwgRegisteredApp, &kDwgScale, &kDwgDictionaryVar,
        &kDwgSolid, &kDwgSpline, &kDwgBlockTable, &kDwgLayerTable, &kDwgTextStyleTable, &kDwgLinetypeTable,
        &kDwgViewTable, &kDwgUcsTable, &kDwgViewportTable, &kDwgRegAppTable, &kDwgDimStyleTable, &kDwgVxTable,
        &kDwgText, &kDwgTextStyle, &kDwgViewport, &kDwgXrecord,
    };
    return rows;
}
const DwgClassRow* dwgRowOfType(int type) {
    return type > 0 && type < kFirstClassNumber ? index().byType[static_cast<std::size_t>(type)] : nullptr;
}
const DwgClassRow* dwgRowOfClassName(const std::wstring& cppName) {
    const auto found = index().byName.find(cppName);
    return found == index().byName.end() ? nullptr : found->second;
}
const DwgClassRow* dwgRowOf(const AcRxClass* type) {
    const auto found = index().byClass.find(type);
    return found == index().byClass.end() ? nullptr : found->second;
}
