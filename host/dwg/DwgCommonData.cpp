// Open Design description of DWG, chapters "Common entity data", "Common entity handle data" and "Common
// object data", the parts that hold for R2000.
#include "DwgCommonData.h"

#include <array>

namespace {
constexpr int kFirstClassNumber = 500;

struct TypeName {
    int type;
    bool entity;
    const wchar_t* name;
};
constexpr TypeName kTypes[] = {
    {0x01, true, L"TEXT"}, {0x02, true, L"ATTRIB"}, {0x03, true, L"ATTDEF"}, {0x04, true, L"BLOCK"}, {0x05, true, L"ENDBLK"},
    {0x06, true, L"SEQEND"}, {0x07, true, L"INSERT"}, {0x08, true, L"MINSERT"}, {0x0A, true, L"VERTEX_2D"}, {0x0B, true, L"VERTEX_3D"},
    {0x0C, true, L"VERTEX_MESH"}, {0x0D, true, L"VERTEX_PFACE"}, {0x0E, true, L"VERTEX_PFACE_FACE"}, {0x0F, true, L"POLYLINE_2D"},
    {0x10, true, L"POLYLINE_3D"}, {0x11, true, L"ARC"}, {0x12, true, L"CIRCLE"}, {0x13, true, L"LINE"}, {0x14, true, L"DIMENSION_ORDINATE"},
    {0x15, true, L"DIMENSION_LINEAR"}, {0x16, true, L"DIMENSION_ALIGNED"}, {0x17, true, L"DIMENSION_ANG3PT"}, {0x18, true, L"DIMENSION_ANG2LN"},
    {0x19, true, L"DIMENSION_RADIUS"}, {0x1A, true, L"DIMENSION_DIAMETER"}, {0x1B, true, L"POINT"}, {0x1C, true, L"3DFACE"},
    {0x1D, true, L"POLYLINE_PFACE"}, {0x1E, true, L"POLYLINE_MESH"}, {0x1F, true, L"SOLID"}, {0x20, true, L"TRACE"}, {0x21, true, L"SHAPE"},
    {0x22, true, L"VIEWPORT"}, {0x23, true, L"ELLIPSE"}, {0x24, true, L"SPLINE"}, {0x25, true, L"REGION"}, {0x26, true, L"3DSOLID"},
    {0x27, true, L"BODY"}, {0x28, true, L"RAY"}, {0x29, true, L"XLINE"}, {0x2A, false, L"DICTIONARY"}, {0x2B, true, L"OLEFRAME"},
    {0x2C, true, L"MTEXT"}, {0x2D, true, L"LEADER"}, {0x2E, true, L"TOLERANCE"}, {0x2F, true, L"MLINE"}, {0x30, false, L"BLOCK_CONTROL"},
    {0x31, false, L"BLOCK_HEADER"}, {0x32, false, L"LAYER_CONTROL"}, {0x33, false, L"LAYER"}, {0x34, false, L"STYLE_CONTROL"},
    {0x35, false, L"STYLE"}, {0x38, false, L"LTYPE_CONTROL"}, {0x39, false, L"LTYPE"}, {0x3C, false, L"VIEW_CONTROL"}, {0x3D, false, L"VIEW"},
    {0x3E, false, L"UCS_CONTROL"}, {0x3F, false, L"UCS"}, {0x40, false, L"VPORT_CONTROL"}, {0x41, false, L"VPORT"},
    {0x42, false, L"APPID_CONTROL"}, {0x43, false, L"APPID"}, {0x44, false, L"DIMSTYLE_CONTROL"}, {0x45, false, L"DIMSTYLE"},
    {0x46, false, L"VX_CONTROL"}, {0x47, false, L"VX_TABLE_RECORD"}, {0x48, false, L"GROUP"}, {0x49, false, L"MLINESTYLE"},
    {0x4A, true, L"OLE2FRAME"}, {0x4B, false, L"DUMMY"}, {0x4C, false, L"LONG_TRANSACTION"}, {0x4D, true, L"LWPOLYLINE"},
    {0x4E, true, L"HATCH"}, {0x4F, false, L"XRECORD"}, {0x50, false, L"ACDBPLACEHOLDER"}, {0x51, false, L"VBA_PROJECT"}, {0x52, false, L"LAYOUT"},
    {0x1F2, true, L"ACAD_PROXY_ENTITY"}, {0x1F3, false, L"ACAD_PROXY_OBJECT"},
};
const std::array<const TypeName*, kFirstClassNumber>& typeTable() {
    static const std::array<const TypeName*, kFirstClassNumber> table = [] {
        std::array<const TypeName*, kFirstClassNumber> made{};
        for (const TypeName& type : kTypes)
            made[static_cast<std::size_t>(type.type)] = &type;
        return made;
    }();
    return table;
}
const TypeName* typeOf(int type) {
    return type >= 0 && type < kFirstClassNumber ? typeTable()[static_cast<std::size_t>(type)] : nullptr;
}

bool readExtended(DwgBitReader& in, DwgCommonData& data) {
    while (true) {
        const auto size = static_cast<Adesk::UInt16>(in.BS());
        if (size == 0 || in.failed())
            return !in.failed();
        DwgExtendedItem item;
        item.application = in.H().absolute(data.handle);
        item.bytes = in.bytes(size);
        if (in.failed())
            return false;
        data.extended.push_back(std::move(item));
    }
}

void readEntityFields(DwgBitReader& in, DwgCommonData& data, std::size_t& reactors) {
    data.hasGraphics = in.B();
    if (data.hasGraphics)
        data.graphics = in.bytes(in.RL());
    data.entityMode = in.BB();
    reactors = in.count(in.BL(), 8);
    data.noLinks = in.B();
    data.color = in.BS();
    data.lineTypeScale = in.BD();
    data.lineTypeFlags = in.BB();
    data.plotStyleFlags = in.BB();
    data.invisible = in.BS();
    data.lineWeight = in.RC();
}

void readHandles(DwgBitReader& in, DwgCommonData& data, std::size_t reactors) {
    const auto next = [&in, &data] { return in.H().absolute(data.handle); };
    if (!data.isEntity || data.entityMode == DwgCommonData::kHasOwner)
        data.owner = next();
    data.reactors.reserve(reactors);
    for (std::size_t i = 0; i < reactors && !in.failed(); ++i)
        data.reactors.push_back(next());
    data.dictionary = next();
    if (!data.isEntity)
        return;
    if (!data.noLinks) {
        data.previous = next();
        data.next = next();
    }
    data.layer = next();
    if (data.lineTypeFlags == DwgCommonData::kByHandle)
        data.lineType = next();
    if (data.plotStyleFlags == DwgCommonData::kByHandle)
        data.plotStyle = next();
}
} // namespace

bool dwgIsEntityType(int type) {
    const TypeName* known = typeOf(type);
    return known != nullptr && known->entity;
}
const wchar_t* dwgTypeName(int type) {
    const TypeName* known = typeOf(type);
    return known != nullptr ? known->name : L"";
}

bool dwgReadCommon(DwgBitReader bits, bool (*isEntityClass)(const void*, int), const void* context, DwgCommonData& data, DwgRecordLayout& layout) {
    DwgBitReader in = bits;
    data.type = in.BS();
    data.isEntity = data.type >= kFirstClassNumber ? isEntityClass(context, data.type) : dwgIsEntityType(data.type);
    layout.dataEnd = in.RL();
    if (in.failed() || layout.dataEnd < in.position() || layout.dataEnd > bits.end())
        return false;
    in.setEnd(layout.dataEnd);
    data.handle = in.H().value;
    std::size_t reactors = 0;
    if (!readExtended(in, data))
        return false;
    bits.setPosition(layout.dataEnd);
    if (data.isEntity)
        readEntityFields(in, data, reactors);
    else
        reactors = static_cast<std::size_t>(in.BL());
    reactors = bits.count(static_cast<Adesk::Int64>(reactors), 8);
    readHandles(bits, data, reactors);
    layout.fields = in.position();
    layout.handles = bits.position();
    return !in.failed() && !bits.failed();
}

std::size_t dwgWriteCommon(DwgBitWriter& data, DwgBitWriter& handles, const DwgCommonData& common) {
    data.BS(common.type);
    const std::size_t sizeAt = data.position();
    data.RL(0);
    data.H(0, common.handle);
    for (const DwgExtendedItem& item : common.extended) {
        data.BS(static_cast<Adesk::Int16>(item.bytes.size()));
        data.H(5, item.application);
        data.bytes(item.bytes.data(), item.bytes.size());
    }
    data.BS(0);
    if (common.isEntity) {
        data.B(common.hasGraphics);
        if (common.hasGraphics) {
            data.RL(static_cast<Adesk::UInt32>(common.graphics.size()));
            data.bytes(common.graphics.data(), common.graphics.size());
        }
        data.BB(common.entityMode);
    }
    data.BL(static_cast<Adesk::Int32>(common.reactors.size()));
    if (common.isEntity) {
        data.B(common.noLinks);
        data.BS(common.color);
        data.BD(common.lineTypeScale);
        data.BB(common.lineTypeFlags);
        data.BB(common.plotStyleFlags);
        data.BS(common.invisible);
        data.RC(common.lineWeight);
    }
    if (!common.isEntity || common.entityMode == DwgCommonData::kHasOwner)
        handles.H(4, common.owner);
    for (const Adesk::UInt64 reactor : common.reactors)
        handles.H(4, reactor);
    handles.H(3, common.dictionary);
    if (!common.isEntity)
        return sizeAt;
    if (!common.noLinks) {
        handles.H(4, common.previous);
        handles.H(4, common.next);
    }
    handles.H(5, common.layer);
    if (common.lineTypeFlags == DwgCommonData::kByHandle)
        handles.H(5, common.lineType);
    if (common.plotStyleFlags == DwgCommonData::kByHandle)
        handles.H(5, common.plotStyle);
    return sizeAt;
}

namespace {
// Open Design description of DWG, "Common entity data": the list of line weights.
constexpr short kWeights[] = {0, 5, 9, 13, 15, 18, 20, 25, 30, 35, 40, 50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
constexpr unsigned kWeightCount = sizeof kWeights / sizeof kWeights[0];
constexpr unsigned kWeightByLayer = 29, kWeightByBlock = 30, kWeightDefault = 31;
} // namespace

int dwgLineWeight(unsigned number) {
    if (number < kWeightCount)
        return kWeights[number];
    return number == kWeightByBlock ? -2 : number == kWeightDefault ? -3 : -1;
}
unsigned dwgLineWeightNumber(int weight) {
    for (unsigned i = 0; i < kWeightCount; ++i)
        if (kWeights[i] == weight)
            return i;
    return weight == -2 ? kWeightByBlock : weight == -3 ? kWeightDefault : kWeightByLayer;
}
