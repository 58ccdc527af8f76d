// BLOCK, ENDBLK and SEQEND: Open Design description of DWG, chapters of these names. A block's begin
// marker holds its whole name (see DwgBlockRecord).
#include "DwgClassRow.h"

template <> struct DbObjectAccess::DwgFields<AcDbBlockBegin> {
    static void file(DwgIn& s, AcDbBlockBegin&) {
        std::wstring name;
        s.TV(name);
        s.ids().noteBlockName(s.self(), name);
    }
    static void file(DwgOut& s, AcDbBlockBegin& begin) {
        const auto* block = AcDbBlockTableRecord::cast(DbObjectAccess::peek(begin.ownerId()));
        s.TV(block != nullptr ? block->name() : std::wstring());
    }
};
extern const DwgClassRow kDwgBlockBegin = dwgClassRow<AcDbBlockBegin>(0x04);

template <> struct DbObjectAccess::DwgFields<AcDbBlockEnd> {
    template <class Stream> static void file(Stream&, AcDbBlockEnd&) {}
};
extern const DwgClassRow kDwgBlockEnd = dwgClassRow<AcDbBlockEnd>(0x05);

template <> struct DbObjectAccess::DwgFields<AcDbSequenceEnd> {
    template <class Stream> static void file(Stream&, AcDbSequenceEnd&) {}
};
extern const DwgClassRow kDwgSequenceEnd = dwgClassRow<AcDbSequenceEnd>(0x06);
