// Tables and header values of a drawing that is being read.
#include "DwgHeaderMapping.h"
#include "DwgReader.h"

bool DwgReader::setTables(DwgError& error) {
    for (const DwgTableRow& table : dwgTableRows()) {
        const AcDbObjectId id = mIds.id(mVars[table.variable].handle);
        const AcDbObject* object = DbObjectAccess::peek(id);
        if (object != nullptr && object->isA() == table.desc())
            DbObjectAccess::setTableId(mDb, table.desc(), id);
    }
    const AcDbObjectId named = mIds.id(mVars[L"DICTIONARY_NAMED"].handle);
    if (AcDbDictionary::cast(DbObjectAccess::peek(named)) != nullptr)
        DbObjectAccess::setNamedObjects(mDb, named);
    // Without them nothing could be shown; other tables are made anew where they are missing.
    for (const wchar_t* space : {L"BLOCK_MODEL_SPACE", L"BLOCK_PAPER_SPACE"})
        if (AcDbBlockTableRecord::cast(DbObjectAccess::peek(mIds.id(mVars[space].handle))) == nullptr)
            return error.set(Acad::eDwgObjectImproperlyRead, L"The drawing file is damaged: its model space or paper space is missing.");
    if (DbObjectAccess::peek(mDb.blockTableId()) == nullptr || DbObjectAccess::peek(mDb.layerTableId()) == nullptr)
        return error.set(Acad::eDwgObjectImproperlyRead, L"The drawing file is damaged: its table of blocks or layers is missing.");
    return true;
}

void DwgReader::setHeader() {
    dwgHeaderToDatabase(mVars, mFile, mIds);
    if (mVars[L"HANDSEED"].handle < DwgIdSource::kLargestHandle)
        DbObjectAccess::setHandseed(mDb, AcDbHandle(mVars[L"HANDSEED"].handle));
}

void DwgReader::setBlockNames() {
    for (const AcDbObjectId id : DbObjectAccess::allIds(mDb)) {
        auto* block = AcDbBlockTableRecord::cast(DbObjectAccess::peek(id));
        if (block == nullptr)
            continue;
        std::wstring& name = DbObjectAccess::name(*block);
        const auto whole = mIds.blockNames().find(block->blockBeginId().handle());
        if (whole != mIds.blockNames().end() && !name.empty() && name[0] == L'*' && whole->second.rfind(name, 0) == 0)
            name = whole->second;
    }
}
