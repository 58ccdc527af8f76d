// BLOCK and INSERT.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

#include "AcPath.h"
#include "DbObjectAccess.h"

#include <fstream>

namespace {
std::wstring gLastBlock; // offered as the default

void listBlocks(AcDbDatabase& db) {
    edSay(L"Defined blocks:");
    for (const AcDbObjectId id : edRecordsByName(db, AcDbBlockTable::desc())) {
        const AcDbObjectPointer<AcDbBlockTableRecord> block(id);
        if (block && !block->isLayout() && !block->isAnonymous())
            edSay(L"  \"" + block->name() + L"\"");
    }
}
// The name without folder and ending.
std::wstring baseName(const std::wstring& path) {
    const std::wstring name = acFileName(path);
    const std::size_t dot = name.find_last_of(L'.');
    return dot == std::wstring::npos ? name : name.substr(0, dot);
}
bool isFile(const std::wstring& path) {
    return std::ifstream(acFileSystemPath(path)).good();
}
// The drawing file as a block of this drawing; null with the reason told.
AcDbObjectId loadFile(AcDbDatabase& db, const std::wstring& name, const std::wstring& path) {
    AcDbDatabase source(false, true);
    AcDbObjectId id;
    std::wstring reason;
    if (edReadDrawing(source, path, reason) != Acad::eOk)
        edFail(path + L" cannot be opened: " + reason);
    else if (const Acad::ErrorStatus es = db.insert(id, name.c_str(), &source); es != Acad::eOk)
        edFail(path + L" cannot be inserted: " + acadErrorStatusText(es));
    return id;
}
// A block of this name, a file of this name, or NAME=FILE, which redefines the block.
AcDbObjectId findOrLoad(AcDbDatabase& db, const std::wstring& typed) {
    const std::size_t equals = typed.find(L'=');
    std::wstring name = equals == std::wstring::npos ? typed : typed.substr(0, equals);
    std::wstring file = equals == std::wstring::npos ? typed : typed.substr(equals + 1);
    if (equals == std::wstring::npos)
        if (const AcDbObjectId id = edFindRecord<AcDbBlockTable>(db, name); !id.isNull())
            return id;
    name = baseName(name);
    std::wstring found;
    if (isFile(edWithEnding(file, L".dwg")))
        found = edWithEnding(file, L".dwg");
    else if (acdbHostApplicationServices()->findFile(found, edWithEnding(file, L".dwg").c_str(), &db) != Acad::eOk)
        return AcDbObjectId::kNull;
    if (equals == std::wstring::npos)
        if (const AcDbObjectId id = edFindRecord<AcDbBlockTable>(db, name); !id.isNull())
            return id; // the drawing's own definition stays unless it is redefined by name
    return loadFile(db, name, found);
}
AcDbObjectId askBlock(AcDbDatabase& db, bool& explode) {
    EdRefusals refusals;
    for (;;) {
        std::wstring name;
        const std::wstring offered = gLastBlock.empty() ? L": " : L" <" + gLastBlock + L">: ";
        const EdReply reply = EdPrompt(L"Enter block name or [?]" + offered).name(name);
        if (reply.cancelled())
            return AcDbObjectId::kNull;
        name = reply.none() ? gLastBlock : edTrim(name);
        if (name.size() >= 2 && name.front() == L'"' && name.back() == L'"')
            name = name.substr(1, name.size() - 2);
        if (name == L"?") {
            listBlocks(db);
            continue;
        }
        explode = !name.empty() && name.front() == L'*';
        const AcDbObjectId id = name.empty() ? AcDbObjectId::kNull : findOrLoad(db, explode ? name.substr(1) : name);
        if (EdInputStack::instance().refused())
            return AcDbObjectId::kNull;
        if (!id.isNull()) {
            gLastBlock = edRecordName(id);
            return id;
        }
        if (!refusals.again(L"There is no block or file \"" + name + L"\".", name))
            return AcDbObjectId::kNull;
    }
}

struct Placing {
    AcGePoint3d position;
    AcGeScale3d scale;
    double rotation = 0.0;
    bool ask();
};
bool Placing::ask() {
    bool askScale = true, askRotation = true;
    for (;;) {
        const EdReply reply = EdPrompt(L"Specify insertion point or [Scale/X/Y/Z/Rotate]: ", L"Scale X Y Z Rotate").noNull().point(position);
        if (reply.ok())
            break;
        if (reply.cancelled())
            return false;
        double factor = 1.0;
        if (reply.is(L"Rotate")) {
            if (EdPrompt(L"Specify rotation angle <0>: ").angle(rotation).cancelled())
                return false;
            askRotation = false;
            continue;
        }
        if (EdPrompt(L"Specify scale factor <1>: ").noZero().real(factor).cancelled())
            return false;
        if (reply.is(L"Scale"))
            scale = AcGeScale3d(factor);
        else
            scale[reply.keyword[0] - L'X'] = factor;
        askScale = false;
    }
    if (askScale) {
        if (EdPrompt(L"Enter X scale factor <1>: ").noZero().real(scale.sx).cancelled())
            return false;
        scale.sy = scale.sx;
        if (EdPrompt(L"Enter Y scale factor <use X scale factor>: ").noZero().real(scale.sy).cancelled())
            return false;
        scale.sz = std::abs(scale.sx);
    }
    return !askRotation || !EdPrompt(L"Specify rotation angle <0>: ").base(position).angle(rotation).cancelled();
}

// Asks for the values of the block's attributes; false when the user cancelled.
bool askAttributes(const AcDbBlockTableRecord& block, const AcGeMatrix3d& transform, std::vector<std::unique_ptr<AcDbAttribute>>& attributes) {
    const bool asks = EdSysVars::instance().getShort(L"ATTREQ") != 0;
    bool told = false;
    for (const AcDbObjectId id : block.entityIds()) {
        const AcDbObjectPointer<AcDbAttributeDefinition> definition(id);
        if (!definition || definition->isConstant())
            continue;
        auto attribute = std::make_unique<AcDbAttribute>();
        attribute->setDatabaseDefaults(edDatabase());
        attribute->setPropertiesFrom(definition.object());
        attribute->setAttributeFromBlock(definition.object(), transform);
        if (asks && !definition->isPreset()) {
            if (!told)
                edSay(L"Enter attribute values");
            told = true;
            const std::wstring byDefault = definition->textStringConst();
            const std::wstring shown = definition->prompt().empty() ? definition->tag() : definition->prompt();
            std::wstring value;
            const EdReply reply = EdPrompt(shown + (byDefault.empty() ? L": " : L" <" + byDefault + L">: ")).text(value, true);
            if (reply.cancelled())
                return false;
            if (reply.ok()) {
                attribute->setTextString(value.c_str());
                attribute->adjustAlignment(edDatabase());
            }
        }
        attributes.push_back(std::move(attribute));
    }
    return true;
}
void insertReference(AcDbObjectId blockId, const Placing& placing) {
    auto reference = std::make_unique<AcDbBlockReference>(placing.position, blockId);
    reference->setScaleFactors(placing.scale);
    reference->setRotation(placing.rotation);
    std::vector<std::unique_ptr<AcDbAttribute>> attributes;
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId);
        if (!block || !askAttributes(*block.object(), reference->blockTransform(), attributes))
            return;
    }
    const AcDbObjectId id = edDraw(std::move(reference));
    AcDbObjectPointer<AcDbBlockReference> placed(id, AcDb::kForWrite, false, true); // made a moment ago, on whatever layer is current
    for (auto& attribute : attributes) {
        AcDbObjectId attributeId;
        if (placed && placed->appendAttribute(attributeId, attribute.get()) == Acad::eOk)
            attribute.release()->close();
    }
}
void insertExploded(AcDbObjectId blockId, const Placing& placing) {
    AcDbBlockReference reference(placing.position, blockId);
    reference.setScaleFactors(AcGeScale3d(placing.scale.sx));
    reference.setRotation(placing.rotation);
    AcDbVoidPtrArray parts;
    if (reference.explode(parts) != Acad::eOk)
        return edFail(L"The block cannot be exploded.");
    for (void* const part : parts) {
        AcDbObjectId id;
        auto* const entity = static_cast<AcDbEntity*>(part);
        if (edAppend(*edDatabase(), entity, id) != Acad::eOk)
            delete entity;
    }
}
// Moves the entities into a block definition, by cloning them there and erasing them here.
void fillBlock(AcDbDatabase& db, const std::wstring& name, const AcGePoint3d& base, const AcDbObjectIdArray& ids) {
    AcDbObjectId blockId = edFindRecord<AcDbBlockTable>(db, name);
    if (blockId.isNull()) {
        AcDbObjectPointer<AcDbBlockTable> table(db.blockTableId(), AcDb::kForWrite);
        auto* const record = new AcDbBlockTableRecord;
        record->setName(name.c_str());
        if (!table || table->add(blockId, record) != Acad::eOk) {
            delete record;
            return edFail(L"The block cannot be made.");
        }
        record->setOrigin(base);
        record->close();
    } else {
        AcDbObjectPointer<AcDbBlockTableRecord> record(blockId, AcDb::kForWrite);
        record->setOrigin(base);
        for (const AcDbObjectId id : AcDbObjectIdArray(record->entityIds()))
            if (AcDbObjectPointer<AcDbEntity> old(id, AcDb::kForWrite, false, true); old) // locks hold in a space, not in a definition
                old->erase();
    }
    AcDbIdMapping map;
    if (const Acad::ErrorStatus es = db.deepCloneObjects(ids, blockId, map); es != Acad::eOk)
        return edFail(std::wstring(L"The objects cannot be copied into the block: ") + acadErrorStatusText(es));
    for (const AcDbObjectId id : ids)
        if (AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite); entity)
            entity->erase();
}
} // namespace

void edCmdInsert() {
    AcDbDatabase& db = *edDatabase();
    bool explode = false;
    const AcDbObjectId block = askBlock(db, explode);
    if (block.isNull())
        return;
    if (block == db.modelSpaceId() || block == db.paperSpaceId())
        return edFail(L"A space of the drawing cannot be inserted.");
    Placing placing;
    if (placing.ask())
        explode ? insertExploded(block, placing) : insertReference(block, placing);
}

void edCmdBlock() {
    AcDbDatabase& db = *edDatabase();
    std::wstring name;
    EdRefusals refusals;
    for (;;) {
        if (!EdPrompt(L"Enter block name or [?]: ").noNull().name(name).ok())
            return;
        name = edTrim(name);
        if (name == L"?") {
            listBlocks(db);
            continue;
        }
        if (edIsSymbolName(name) && name.front() != L'*')
            break;
        if (!refusals.again(L"\"" + name + L"\" cannot be the name of a block.", name))
            return;
    }
    if (!edFindRecord<AcDbBlockTable>(db, name).isNull()) {
        const EdReply again = EdPrompt(L"Block \"" + name + L"\" already exists. Redefine it? [Yes/No] <N>: ", L"Yes No").keyword();
        if (!again.is(L"Yes"))
            return;
    }
    AcGePoint3d base;
    const EdReply reply = EdPrompt(L"Specify insertion base point: ").point(base);
    if (reply.cancelled())
        return;
    if (const auto ids = edSelectForEdit())
        fillBlock(db, name, base, *ids);
}
