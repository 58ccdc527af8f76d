// Insertion of one drawing into another, and copies of objects.
#include "AcDbDatabase.h"

#include "DbCloner.h"
#include "DbDatabaseData.h"

namespace {
// The block that an insertion fills: a new one, or the known one emptied.
Acad::ErrorStatus targetBlock(AcDbDatabase& db, const ACHAR* name, AcDbObjectId& id) {
    AcDbObjectPointer<AcDbBlockTable> table(db.blockTableId());
    if (!table)
        return table.openStatus();
    if (table->getAt(name, id) == Acad::eOk) {
        table.close();
        AcDbObjectPointer<AcDbBlockTableRecord> block(id, AcDb::kForWrite);
        if (!block)
            return block.openStatus();
        if (block->isLayout())
            return Acad::eInvalidInput;
        dbEmptyBlock(*block.object());
        return Acad::eOk;
    }
    table.close();
    AcDbObjectPointer<AcDbBlockTable> writing(db.blockTableId(), AcDb::kForWrite);
    if (!writing)
        return writing.openStatus();
    auto* const block = new AcDbBlockTableRecord;
    DbObjectAccess::name(*block) = name;
    const Acad::ErrorStatus es = writing->add(id, block);
    if (es == Acad::eOk)
        block->close();
    else
        delete block;
    return es;
}

Acad::ErrorStatus insertBlock(AcDbDatabase& db, AcDbDatabase& source, AcDbObjectId sourceBlock, const AcGePoint3d& origin,
                              const ACHAR* name, AcDbObjectId& id) {
    const AcDbBlockTableRecord* const from = AcDbBlockTableRecord::cast(DbObjectAccess::peek(sourceBlock));
    if (from == nullptr)
        return Acad::eKeyNotFound;
    Acad::ErrorStatus es = targetBlock(db, name, id);
    if (es != Acad::eOk)
        return es;
    DbCloner cloner(source, db);
    cloner.map(sourceBlock, id);
    const AcDbObjectIdArray entities = from->entityIds();
    for (const AcDbObjectId entity : entities)
        if (entity.isValid() && !entity.isErased() && (es = cloner.add(entity, id)) != Acad::eOk)
            return es;
    es = cloner.finish(nullptr);
    AcDbObjectPointer<AcDbBlockTableRecord> block(id, AcDb::kForWrite);
    if (block) {
        block->setOrigin(origin);
        block->setComments(from->comments().c_str());
    }
    return es;
}
Acad::ErrorStatus checkInsert(const AcDbDatabase& db, const ACHAR* name, const AcDbDatabase* source) {
    if (source == nullptr)
        return Acad::eNoDatabase;
    if (source == &db)
        return Acad::eWrongDatabase;
    return name == nullptr || *name == 0 ? Acad::eNullBlockName : Acad::eOk;
}
} // namespace

Acad::ErrorStatus AcDbDatabase::insert(AcDbObjectId& blockId, const ACHAR* destinationName, AcDbDatabase* source, bool) {
    const Acad::ErrorStatus es = checkInsert(*this, destinationName, source);
    return es != Acad::eOk ? es : insertBlock(*this, *source, source->modelSpaceId(), source->insbase(), destinationName, blockId);
}
Acad::ErrorStatus AcDbDatabase::insert(AcDbObjectId& blockId, const ACHAR* sourceName, const ACHAR* destinationName,
                                       AcDbDatabase* source, bool) {
    Acad::ErrorStatus es = checkInsert(*this, destinationName, source);
    if (es != Acad::eOk)
        return es;
    AcDbObjectId from;
    AcDbObjectPointer<AcDbBlockTable> table(source->blockTableId());
    es = table ? table->getAt(sourceName, from) : table.openStatus();
    table.close();
    if (es != Acad::eOk)
        return es;
    const AcDbBlockTableRecord* const block = AcDbBlockTableRecord::cast(DbObjectAccess::peek(from));
    return insertBlock(*this, *source, from, block->origin(), destinationName, blockId);
}

Acad::ErrorStatus AcDbDatabase::deepCloneObjects(const AcDbObjectIdArray& objects, AcDbObjectId owner, AcDbIdMapping& map) {
    if (owner.database() != this)
        return Acad::eWrongDatabase;
    DbCloner cloner(*this, *this);
    for (const AcDbObjectId id : objects)
        if (id.database() != this)
            return Acad::eWrongDatabase;
        else if (const Acad::ErrorStatus es = cloner.add(id, owner); es != Acad::eOk)
            return es;
    return cloner.finish(&map);
}
Acad::ErrorStatus AcDbDatabase::wblockCloneObjects(const AcDbObjectIdArray& objects, AcDbObjectId owner, AcDbIdMapping& map,
                                                   AcDb::DuplicateRecordCloning drc) {
    if (objects.isEmpty())
        return Acad::eOk;
    AcDbDatabase* const source = objects.first().database();
    if (source == nullptr || source == this || owner.database() != this)
        return Acad::eWrongDatabase;
    DbCloner cloner(*source, *this, drc == AcDb::kDrcReplace);
    for (const AcDbObjectId id : objects)
        if (id.database() != source)
            return Acad::eWrongDatabase;
        else if (const Acad::ErrorStatus es = cloner.add(id, owner); es != Acad::eOk)
            return es;
    return cloner.finish(&map);
}
