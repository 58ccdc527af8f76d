// The control objects of the symbol tables: Open Design description of DWG, chapters "BLOCK CONTROL (48)"
// to "VIEWPORT ENTITY HEADER CONTROL (70)".
#include "AcUtText.h"
#include "DwgClassRow.h"

namespace {
void readRecords(DwgIn& s, AcDbObjectIdArray& records, std::size_t count) {
    for (std::size_t i = 0; i < count && !s.failed(); ++i) {
        const AcDbObjectId id = s.H();
        if (!id.isNull()) // places of deleted records stay empty
            records.append(id);
    }
}
std::size_t readCount(DwgIn& s) {
    return s.handles().count(s.data().BL(), 8);
}
std::wstring nameOf(AcDbObjectId id) {
    const auto* record = AcDbSymbolTableRecord::cast(DbObjectAccess::peek(id));
    return record != nullptr ? record->name() : std::wstring();
}
bool isNamed(AcDbObjectId id, const wchar_t* name) {
    return acutWcsicmp(nameOf(id).c_str(), name) == 0;
}
// Two records stand outside the count and behind the others, as what the table owns for good.
void writeWithTwoApart(DwgOut& s, const AcDbObjectIdArray& records, const wchar_t* first, const wchar_t* second) {
    std::vector<AcDbObjectId> others;
    AcDbObjectId apart[2];
    for (const AcDbObjectId id : dwgLiveIds(records)) {
        if (apart[0].isNull() && isNamed(id, first))
            apart[0] = id;
        else if (apart[1].isNull() && isNamed(id, second))
            apart[1] = id;
        else
            others.push_back(id);
    }
    s.BL(others.size());
    for (const AcDbObjectId id : others)
        s.H(2, id);
    s.H(3, apart[0]);
    s.H(3, apart[1]);
}
void writeRecords(DwgOut& s, const std::vector<AcDbObjectId>& records) {
    for (const AcDbObjectId id : records)
        s.H(2, id);
}
} // namespace

// Tables without peculiarities.
#define DWG_PLAIN_TABLE(CLASS)                                                                                         \
    template <> struct DbObjectAccess::DwgFields<CLASS> {                                                              \
        static void file(DwgIn& s, CLASS& table) {                                                                     \
            DbObjectAccess::records(table).removeAll();                                                                \
            readRecords(s, DbObjectAccess::records(table), readCount(s));                                              \
        }                                                                                                              \
        static void file(DwgOut& s, CLASS& table) {                                                                    \
            const std::vector<AcDbObjectId> live = dwgLiveIds(DbObjectAccess::records(table));                         \
            s.BL(live.size());                                                                                         \
            writeRecords(s, live);                                                                                     \
        }                                                                                                              \
    }
DWG_PLAIN_TABLE(AcDbLayerTable);
DWG_PLAIN_TABLE(AcDbTextStyleTable);
DWG_PLAIN_TABLE(AcDbViewTable);
DWG_PLAIN_TABLE(AcDbUCSTable);
DWG_PLAIN_TABLE(AcDbViewportTable);
DWG_PLAIN_TABLE(AcDbRegAppTable);
DWG_PLAIN_TABLE(AcDbVXTable);

template <> struct DbObjectAccess::DwgFields<AcDbBlockTable> {
    static void file(DwgIn& s, AcDbBlockTable& table) {
        const std::size_t count = readCount(s);
        AcDbObjectIdArray others;
        readRecords(s, others, count);
        DbObjectAccess::records(table).removeAll();
        readRecords(s, DbObjectAccess::records(table), 2); // model space and paper space
        DbObjectAccess::records(table).append(others);
    }
    static void file(DwgOut& s, AcDbBlockTable& table) { writeWithTwoApart(s, DbObjectAccess::records(table), ACDB_MODEL_SPACE, ACDB_PAPER_SPACE); }
};
template <> struct DbObjectAccess::DwgFields<AcDbLinetypeTable> {
    static void file(DwgIn& s, AcDbLinetypeTable& table) {
        const std::size_t count = readCount(s);
        AcDbObjectIdArray others;
        readRecords(s, others, count);
        DbObjectAccess::records(table).removeAll();
        readRecords(s, DbObjectAccess::records(table), 2); // by block and by layer
        DbObjectAccess::records(table).append(others);
    }
    static void file(DwgOut& s, AcDbLinetypeTable& table) { writeWithTwoApart(s, DbObjectAccess::records(table), L"ByBlock", L"ByLayer"); }
};
template <> struct DbObjectAccess::DwgFields<AcDbDimStyleTable> {
    static void file(DwgIn& s, AcDbDimStyleTable& table) {
        const std::size_t count = readCount(s);
        const unsigned more = s.data().RC();
        DbObjectAccess::records(table).removeAll();
        readRecords(s, DbObjectAccess::records(table), count);
        // Hard pointers to some of the same records (observed in the drawings); the record list
        // holds them already.
        for (unsigned i = 0; i < more && !s.failed(); ++i)
            s.H();
    }
    static void file(DwgOut& s, AcDbDimStyleTable& table) {
        const std::vector<AcDbObjectId> live = dwgLiveIds(DbObjectAccess::records(table));
        s.BL(live.size());
        s.RC(0);
        writeRecords(s, live);
    }
};

extern const DwgClassRow kDwgBlockTable = dwgClassRow<AcDbBlockTable>(0x30);
extern const DwgClassRow kDwgLayerTable = dwgClassRow<AcDbLayerTable>(0x32);
extern const DwgClassRow kDwgTextStyleTable = dwgClassRow<AcDbTextStyleTable>(0x34);
extern const DwgClassRow kDwgLinetypeTable = dwgClassRow<AcDbLinetypeTable>(0x38);
extern const DwgClassRow kDwgViewTable = dwgClassRow<AcDbViewTable>(0x3C);
extern const DwgClassRow kDwgUcsTable = dwgClassRow<AcDbUCSTable>(0x3E);
extern const DwgClassRow kDwgViewportTable = dwgClassRow<AcDbViewportTable>(0x40);
extern const DwgClassRow kDwgRegAppTable = dwgClassRow<AcDbRegAppTable>(0x42);
extern const DwgClassRow kDwgDimStyleTable = dwgClassRow<AcDbDimStyleTable>(0x44);
extern const DwgClassRow kDwgVxTable = dwgClassRow<AcDbVXTable>(0x46);
