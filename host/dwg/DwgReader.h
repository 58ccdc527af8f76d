// Fills a database from a drawing file. Objects are placed under their handles first; what refers by
// order (entities of a block, vertices, attributes) is put together when all stand; custom
// objects read their own fields last, so that they can open whatever they point to.
#pragma once

#include "DwgChains.h"
#include "DwgClassRow.h"
#include "DwgClasses.h"
#include "DwgHeaderVars.h"

class DwgReader {
public:
    DwgReader(AcDbDatabase& db, const DwgFile& file);
    bool read(DwgError& error);

private:
    struct Custom { // an object of a loaded module, its fields still to be read
        AcDbObjectId id;
        DwgRecordView record;
        DwgRecordLayout layout;
        DwgCommonData common;
    };

    bool readNames(DwgError& error);
    bool readObject(const DwgRecordView& record, DwgError& error);
    bool readModelled(const DwgClassRow& row, AcDbObject& object, const DwgRecordView& record, const DwgCommonData& common, const DwgRecordLayout& layout);
    DwgIn fieldsOf(const DwgRecordView& record, const DwgCommonData& common, const DwgRecordLayout& layout) const;
    std::unique_ptr<AcDbObject> makeProxy(const DwgRecordView& record, const DwgCommonData& common, const DwgRecordLayout& layout) const;
    void setCommon(AcDbObject& object, const DwgCommonData& common, resbuf* xdata) const;
    const DwgClassEntry* classOf(int type) const;
    bool setTables(DwgError& error);
    void setHeader();
    void setBlockNames();
    void readCustomFields();

    AcDbDatabase& mDb;
    const DwgFile& mFile;
    const DwgTextCodec& mText;
    DwgIdSource mIds;
    DwgHeaderVars mVars;
    std::vector<DwgClassEntry> mClasses;
    std::vector<DwgRecordView> mRecords;
    DwgNames mNames;
    std::vector<Custom> mCustom;
    std::unordered_map<Adesk::UInt64, Adesk::UInt64> mNext; // of an entity, by handle
};

// Lists that the file keeps as first and last and a link in each item. `next` gives the handle that
// follows; orphans of a block, which no link reaches, are put behind the others.
void dwgResolveLists(AcDbDatabase& db, const std::unordered_map<Adesk::UInt64, Adesk::UInt64>& next);
