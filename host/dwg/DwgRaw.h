// Records that are kept as they came: cut into the common head, the class's own bits and its handles, so
// that the head can be written anew where the object has changed.
#pragma once

#include "DwgCommonData.h"
#include "DwgFieldStreams.h"

struct DwgRawParts {
    DwgCommonData common;
    DwgRecordLayout layout;
    std::size_t ownReferences = 0; // index in DbRawRecord::references of the first that is the class's own
};
// Keeps a record: its bytes, and every handle with the object it names.
DbRawRecord dwgKeepRaw(const DwgCommonData& common, const DwgRecordLayout& layout, const Adesk::UInt8* bytes, std::size_t size, const DwgIdSource& ids);
// Cuts a kept record; false when its bits make no sense (only a fault of ours could cause it).
bool dwgCutRaw(const DbRawRecord& raw, bool isEntity, DwgRawParts& parts);
// The class's own handles, with the codes they had and the objects they name now.
void dwgWriteOwnReferences(DwgBitWriter& handles, const DbRawRecord& raw, const DwgRawParts& parts);
