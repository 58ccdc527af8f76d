// Keeping and cutting of raw records.
#include "DwgRaw.h"

namespace {
std::size_t commonReferences(const DwgCommonData& common) {
    std::size_t count = common.reactors.size() + 1; // and the extension dictionary
    if (!common.isEntity || common.entityMode == DwgCommonData::kHasOwner)
        ++count;
    if (!common.isEntity)
        return count;
    count += common.noLinks ? 1 : 3; // layer, and the neighbours
    count += common.lineTypeFlags == DwgCommonData::kByHandle ? 1 : 0;
    count += common.plotStyleFlags == DwgCommonData::kByHandle ? 1 : 0;
    return count;
}
bool answer(const void* isEntity, int) {
    return *static_cast<const bool*>(isEntity);
}
// A relative reference is kept as the soft pointer it stands for.
Adesk::UInt8 absoluteCode(Adesk::UInt8 code) {
    return code >= 6 ? 4 : code;
}
} // namespace

DbRawRecord dwgKeepRaw(const DwgCommonData& common, const DwgRecordLayout& layout, const Adesk::UInt8* bytes, std::size_t size, const DwgIdSource& ids) {
    DbRawRecord raw;
    raw.objectType = common.type;
    raw.bytes.assign(bytes, bytes + size);
    raw.dataBits = static_cast<Adesk::UInt32>(layout.dataEnd);
    DwgBitReader handles(bytes, size);
    handles.setPosition(layout.dataEnd);
    while (handles.left() >= 8) {
        const DwgHandleRef ref = handles.H();
        if (handles.failed())
            break; // the fill of the last byte, or bits that are no handles: they stay in the bytes
        raw.references.push_back({absoluteCode(ref.code), ids.id(ref.absolute(common.handle))});
    }
    return raw;
}

bool dwgCutRaw(const DbRawRecord& raw, bool isEntity, DwgRawParts& parts) {
    const DwgBitReader bits(raw.bytes.data(), raw.bytes.size());
    if (!dwgReadCommon(bits, answer, &isEntity, parts.common, parts.layout))
        return false;
    parts.ownReferences = std::min(commonReferences(parts.common), raw.references.size());
    return true;
}

void dwgWriteOwnReferences(DwgBitWriter& handles, const DbRawRecord& raw, const DwgRawParts& parts) {
    for (std::size_t i = parts.ownReferences; i < raw.references.size(); ++i)
        handles.H(raw.references[i].code, raw.references[i].id.handle());
}
