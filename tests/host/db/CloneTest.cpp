// Insertion, deep and wblock cloning, line type files, support files.
#include "AcDbBlockReference.h"
#include "AcDbDatabase.h"
#include "AcDbEntities.h"
#include "DbObjectAccess.h"
#include "TestSupport.h"

#include "AcUtText.h"

#include <gtest/gtest.h>

#include <fstream>

#include <sys/stat.h>

namespace {
template <class Table, class Record> AcDbObjectId addRecord(AcDbDatabase& db, const ACHAR* name) {
    AcDbObjectPointer<Table> table(db.tableId(Table::desc()), AcDb::kForWrite);
    auto* const record = new Record;
    record->setName(name);
    AcDbObjectId id;
    EXPECT_EQ(table->add(id, record), Acad::eOk);
    record->close();
    return id;
}
AcDbObjectId add(AcDbDatabase&, AcDbObjectId block, AcDbEntity* entity) {
    AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForWrite);
    AcDbObjectId id;
    EXPECT_EQ(record->appendAcDbEntity(id, entity), Acad::eOk);
    entity->close();
    return id;
}
// A library drawing: a line on a layer of its own with its own line type, and a reference to a block that
// holds a circle.
struct Library {
    AcDbDatabase db;
    AcDbObjectId layer, linetype, block, line, reference;
    Library() {
        layer = addRecord<AcDbLayerTable, AcDbLayerTableRecord>(db, L"Rajz");
        AcDbObjectPointer<AcDbLayerTableRecord>(layer, AcDb::kForWrite)->setColor(AcCmEntityColor::fromIndex(3));
        linetype = addRecord<AcDbLinetypeTable, AcDbLinetypeTableRecord>(db, L"Szaggatott");
        AcDbObjectPointer<AcDbLinetypeTableRecord>(linetype, AcDb::kForWrite)->setDashes({0.5, -0.25});
        block = addRecord<AcDbBlockTable, AcDbBlockTableRecord>(db, L"Jel");
        add(db, block, new AcDbCircle({0.0, 0.0, 0.0}, AcGeVector3d(0.0, 0.0, 1.0), 2.0));
        auto* const entity = new AcDbLine({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
        entity->setLayer(layer);
        entity->setLinetype(linetype);
        line = add(db, db.modelSpaceId(), entity);
        reference = add(db, db.modelSpaceId(), new AcDbBlockReference({5.0, 0.0, 0.0}, block));
        db.setInsbase({1.0, 1.0, 0.0});
    }
};
AcDbObjectIdArray liveEntities(AcDbObjectId block) {
    AcDbObjectIdArray live;
    for (const AcDbObjectId id : AcDbObjectPointer<AcDbBlockTableRecord>(block)->entityIds())
        if (!id.isErased())
            live.append(id);
    return live;
}
bool has(AcDbDatabase& db, const AcRxClass* table, const ACHAR* name) {
    return AcDbObjectPointer<AcDbSymbolTable>(db.tableId(table))->has(name);
}
std::wstring nameOf(AcDbObjectId id) {
    return AcDbObjectPointer<AcDbSymbolTableRecord>(id)->name();
}
// An entity of a module, which looks while it reads itself at a circle of the block that it shows.
class Label : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(Label);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override {
        AcDbEntity::dwgOutFields(filer);
        filer->writeHardPointerId(block);
        filer->writeHardPointerId(circle);
        return filer->filerStatus();
    }
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override {
        AcDbEntity::dwgInFields(filer);
        filer->readHardPointerId(&block);
        filer->readHardPointerId(&circle);
        const AcDbObjectPointer<AcDbCircle> shown(circle);
        radiusSeen = shown ? shown->radius() : -1.0;
        return filer->filerStatus();
    }
    AcDbHardPointerId block, circle;
    double radiusSeen = 0.0;
};
void writeFile(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}
} // namespace
ACRX_DXF_DEFINE_MEMBERS(Label, AcDbEntity, 25, 3, 0, L"LABEL", L"Labels|by us")

TEST(Insert, makes_an_anonymous_block_of_the_other_drawings_model_space) {
    Library library;
    AcDbDatabase db;
    AcDbObjectId block;
    ASSERT_EQ(db.insert(block, L"*U", &library.db), Acad::eOk);
    EXPECT_EQ(nameOf(block), L"*U1");
    const AcDbObjectIdArray entities = liveEntities(block);
    ASSERT_EQ(entities.length(), 2);
    AcDbObjectPointer<AcDbLine> line(entities[0]);
    EXPECT_EQ(line->database(), &db);
    EXPECT_EQ(line->ownerId(), block);
    EXPECT_EQ(line->layerName(), L"Rajz");
    EXPECT_EQ(line->layerId().database(), &db);
    EXPECT_EQ(line->linetypeName(), L"Szaggatott");
    EXPECT_TRUE(AcDbObjectPointer<AcDbBlockTableRecord>(block)->origin().isEqualTo({1.0, 1.0, 0.0}));
    EXPECT_EQ(AcDbObjectPointer<AcDbLinetypeTableRecord>(line->linetypeId())->dashes(), (std::vector<double>{0.5, -0.25}));
}
TEST(Insert, brings_nested_blocks_and_their_content) {
    Library library;
    AcDbDatabase db;
    AcDbObjectId block;
    ASSERT_EQ(db.insert(block, L"*U", &library.db), Acad::eOk);
    AcDbObjectPointer<AcDbBlockReference> reference(liveEntities(block)[1]);
    const AcDbObjectId nested = reference->blockTableRecord();
    EXPECT_EQ(nested.database(), &db);
    EXPECT_EQ(nameOf(nested), L"Jel");
    EXPECT_TRUE(has(db, AcDbBlockTable::desc(), L"Jel"));
    ASSERT_EQ(liveEntities(nested).length(), 1);
    EXPECT_DOUBLE_EQ(AcDbObjectPointer<AcDbCircle>(liveEntities(nested)[0])->radius(), 2.0);
    EXPECT_TRUE(AcDbObjectPointer<AcDbBlockTableRecord>(nested)->blockBeginId().isValid());
}
TEST(Insert, keeps_this_drawings_definition_of_a_taken_name) {
    Library library;
    AcDbDatabase db;
    const AcDbObjectId own = addRecord<AcDbLayerTable, AcDbLayerTableRecord>(db, L"RAJZ");
    AcDbObjectPointer<AcDbLayerTableRecord>(own, AcDb::kForWrite)->setColor(AcCmEntityColor::fromIndex(5));
    AcDbObjectId block;
    db.insert(block, L"*U", &library.db);
    AcDbObjectPointer<AcDbLine> line(liveEntities(block)[0]);
    EXPECT_EQ(line->layerId(), own);
    EXPECT_EQ(AcDbObjectPointer<AcDbLayerTableRecord>(own)->color().colorIndex(), 5);
}
TEST(Insert, twice_makes_two_anonymous_blocks_and_shares_the_nested_one) {
    Library library;
    AcDbDatabase db;
    AcDbObjectId first, second;
    db.insert(first, L"*U", &library.db);
    db.insert(second, L"*U", &library.db);
    EXPECT_EQ(nameOf(second), L"*U2");
    EXPECT_EQ(AcDbObjectPointer<AcDbBlockReference>(liveEntities(first)[1])->blockTableRecord(),
              AcDbObjectPointer<AcDbBlockReference>(liveEntities(second)[1])->blockTableRecord());
}
TEST(Insert, a_nested_anonymous_block_gets_a_number_of_this_drawing) {
    Library library;
    const AcDbObjectId anonymous = addRecord<AcDbBlockTable, AcDbBlockTableRecord>(library.db, L"*U");
    add(library.db, anonymous, new AcDbLine);
    add(library.db, library.db.modelSpaceId(), new AcDbBlockReference({}, anonymous));
    AcDbDatabase db;
    const AcDbObjectId taken = addRecord<AcDbBlockTable, AcDbBlockTableRecord>(db, L"*U");
    AcDbObjectId block;
    ASSERT_EQ(db.insert(block, L"Named", &library.db), Acad::eOk);
    const AcDbObjectId nested = AcDbObjectPointer<AcDbBlockReference>(liveEntities(block)[2])->blockTableRecord();
    EXPECT_NE(nested, taken);
    EXPECT_EQ(nameOf(nested), L"*U2");
}
TEST(Insert, an_existing_name_is_defined_anew) {
    Library library;
    AcDbDatabase db;
    AcDbObjectId first, again;
    db.insert(first, L"Tábla", &library.db);
    AcDbObjectPointer<AcDbLine>(library.line, AcDb::kForWrite)->setEndPoint({9.0, 0.0, 0.0});
    ASSERT_EQ(db.insert(again, L"TÁBLA", &library.db), Acad::eOk);
    EXPECT_EQ(again, first);
    ASSERT_EQ(liveEntities(again).length(), 2);
    EXPECT_DOUBLE_EQ(AcDbObjectPointer<AcDbLine>(liveEntities(again)[0])->endPoint().x, 9.0);
}
TEST(Insert, takes_one_block_of_the_other_drawing_by_name) {
    Library library;
    AcDbDatabase db;
    AcDbObjectId block;
    ASSERT_EQ(db.insert(block, L"jel", L"Másik", &library.db), Acad::eOk);
    EXPECT_EQ(nameOf(block), L"Másik");
    EXPECT_EQ(liveEntities(block).length(), 1);
    EXPECT_EQ(db.insert(block, L"nincs", L"Másik", &library.db), Acad::eKeyNotFound);
    EXPECT_EQ(db.insert(block, L"Másik", &db), Acad::eWrongDatabase);
    EXPECT_EQ(db.insert(block, L"", &library.db), Acad::eNullBlockName);
    EXPECT_EQ(db.insert(block, ACDB_MODEL_SPACE, &library.db), Acad::eInvalidInput);
}
TEST(Insert, what_an_entity_of_a_module_points_to_stands_when_it_reads_itself) {
    Label::rxInit();
    {
        Library library;
        auto* const label = new Label;
        label->block = library.block;
        label->circle = liveEntities(library.block)[0];
        add(library.db, library.db.modelSpaceId(), label);
        AcDbDatabase db;
        AcDbObjectId id;
        ASSERT_EQ(db.insert(id, L"*U", &library.db), Acad::eOk);
        const AcDbObjectPointer<Label> copy(liveEntities(id)[2]);
        ASSERT_TRUE(copy);
        EXPECT_EQ(copy->circle.database(), &db);
        EXPECT_EQ(copy->radiusSeen, 2.0);
    }
    deleteAcRxClass(Label::desc());
}
TEST(Insert, is_taken_back_by_undo) {
    Library library;
    AcDbDatabase db;
    db.startUndoRecord();
    AcDbObjectId block;
    db.insert(block, L"*U", &library.db);
    EXPECT_TRUE(db.undo());
    EXPECT_TRUE(block.isErased());
    EXPECT_FALSE(has(db, AcDbLayerTable::desc(), L"Rajz"));
    EXPECT_TRUE(db.redo());
    EXPECT_TRUE(has(db, AcDbLayerTable::desc(), L"Rajz"));
    EXPECT_EQ(liveEntities(block).length(), 2);
}

TEST(DeepClone, copies_what_is_owned_and_keeps_what_is_pointed_to) {
    Library library;
    AcDbDatabase& db = library.db;
    {
        AcDbObjectPointer<AcDbBlockReference> reference(library.reference, AcDb::kForWrite);
        auto* const attribute = new AcDbAttribute;
        attribute->setTag(L"TAG");
        AcDbObjectId id;
        ASSERT_EQ(reference->appendAttribute(id, attribute), Acad::eOk);
        attribute->close();
        reference->createExtensionDictionary();
    }
    AcDbObjectIdArray objects;
    objects.append(library.reference);
    AcDbIdMapping map;
    ASSERT_EQ(db.deepCloneObjects(objects, db.modelSpaceId(), map), Acad::eOk);
    AcDbIdPair pair;
    pair.key = library.reference;
    ASSERT_TRUE(map.compute(pair));
    EXPECT_TRUE(pair.isPrimary);
    AcDbObjectPointer<AcDbBlockReference> copy(pair.value), original(library.reference);
    EXPECT_EQ(copy->blockTableRecord(), library.block);
    ASSERT_EQ(copy->attributeIds().length(), 1);
    EXPECT_NE(copy->attributeIds()[0], original->attributeIds()[0]);
    EXPECT_EQ(AcDbObjectPointer<AcDbAttribute>(copy->attributeIds()[0])->ownerId(), copy->objectId());
    EXPECT_FALSE(copy->extensionDictionary().isNull());
    EXPECT_NE(copy->extensionDictionary(), original->extensionDictionary());
    EXPECT_EQ(liveEntities(db.modelSpaceId()).length(), 3);
}
TEST(DeepClone, references_of_a_foreign_record_follow_their_objects) {
    AcDbDatabase db;
    const AcDbObjectId line = add(db, db.modelSpaceId(), new AcDbLine);
    auto* const proxy = new AcDbProxyEntity;
    proxy->setOriginalClassName(L"FOREIGN");
    const AcDbObjectId id = add(db, db.modelSpaceId(), proxy);
    {
        AcDbObjectPointer<AcDbProxyEntity> open(id, AcDb::kForWrite);
        DbRawRecord raw;
        raw.objectType = 512;
        raw.bytes = {1, 2, 3};
        raw.references = {{4, line}, {5, db.layerZero()}};
        DbObjectAccess::data(*open.object()).raw = raw;
    }
    AcDbObjectIdArray objects;
    objects.append(line);
    objects.append(id);
    AcDbIdMapping map;
    ASSERT_EQ(db.deepCloneObjects(objects, db.modelSpaceId(), map), Acad::eOk);
    AcDbIdPair lines, proxies;
    lines.key = line;
    proxies.key = id;
    ASSERT_TRUE(map.compute(lines) && map.compute(proxies));
    AcDbObjectPointer<AcDbProxyEntity> copy(proxies.value);
    EXPECT_EQ(copy->originalClassName(), L"FOREIGN");
    const DbRawRecord& raw = *DbObjectAccess::dataIfAny(*copy.object())->raw;
    EXPECT_EQ(raw.bytes, (std::vector<Adesk::UInt8>{1, 2, 3}));
    EXPECT_EQ(raw.references[0].id, lines.value);
    EXPECT_EQ(raw.references[1].id, db.layerZero());
    EXPECT_TRUE(raw.referencesChanged);
}
TEST(WblockClone, brings_objects_with_what_they_point_to) {
    Library library;
    AcDbDatabase db;
    AcDbObjectIdArray objects;
    objects.append(library.line);
    objects.append(library.reference);
    AcDbIdMapping map;
    ASSERT_EQ(db.wblockCloneObjects(objects, db.modelSpaceId(), map, AcDb::kDrcIgnore), Acad::eOk);
    EXPECT_EQ(liveEntities(db.modelSpaceId()).length(), 2);
    EXPECT_TRUE(has(db, AcDbLayerTable::desc(), L"Rajz"));
    EXPECT_TRUE(has(db, AcDbBlockTable::desc(), L"Jel"));
    EXPECT_EQ(db.wblockCloneObjects(objects, library.db.modelSpaceId(), map, AcDb::kDrcIgnore), Acad::eWrongDatabase);
}
TEST(WblockClone, replaces_a_record_only_when_told_to) {
    Library library;
    AcDbDatabase db;
    const AcDbObjectId own = addRecord<AcDbLayerTable, AcDbLayerTableRecord>(db, L"Rajz");
    AcDbObjectIdArray objects;
    objects.append(library.layer);
    AcDbIdMapping map;
    ASSERT_EQ(db.wblockCloneObjects(objects, db.layerTableId(), map, AcDb::kDrcIgnore), Acad::eOk);
    EXPECT_EQ(AcDbObjectPointer<AcDbLayerTableRecord>(own)->color().colorIndex(), 7);
    ASSERT_EQ(db.wblockCloneObjects(objects, db.layerTableId(), map, AcDb::kDrcReplace), Acad::eOk);
    EXPECT_EQ(AcDbObjectPointer<AcDbLayerTableRecord>(own)->color().colorIndex(), 3);
}

TEST(LinetypeFile, loads_one_name_or_all) {
    const std::string folder = testTempPath();
    writeFile(folder + "/Own.LIN", ";; comment\r\n*SZAGGATOTT,Szaggatott __ __\r\nA,0.5,-0.25\r\n*PONT,Pontok\nA, 0, -0.1\n*ALAKOS,x\nA,.5,[\"X\",STANDARD],-.2\n");
    acdbHostApplicationServices()->setSupportPath({acFromUtf8(folder)});
    AcDbDatabase db;
    EXPECT_EQ(db.loadLineTypeFile(L"Szaggatott", L"own.lin"), Acad::eOk);
    EXPECT_TRUE(has(db, AcDbLinetypeTable::desc(), L"szaggatott"));
    EXPECT_FALSE(has(db, AcDbLinetypeTable::desc(), L"Pont"));
    EXPECT_EQ(db.loadLineTypeFile(L"nincs", L"own.lin"), Acad::eUndefinedLineType);
    EXPECT_EQ(db.loadLineTypeFile(L"alakos", L"own.lin"), Acad::eUndefinedLineType) << "shapes cannot be drawn by dashes";
    EXPECT_EQ(db.loadLineTypeFile(L"x", L"nincs.lin"), Acad::eFileNotFound);
    EXPECT_EQ(db.loadLineTypeFile(L"*", L"OWN.lin"), Acad::eOk);
    AcDbLinetypeTableRecord* record = nullptr;
    ASSERT_EQ(AcDbObjectPointer<AcDbLinetypeTable>(db.linetypeTableId())->getAt(L"PONT", record, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(record->dashes(), (std::vector<double>{0.0, -0.1}));
    EXPECT_DOUBLE_EQ(record->patternLength(), 0.1);
    EXPECT_EQ(record->comments(), L"Pontok");
    record->close();
    acdbHostApplicationServices()->setSupportPath({});
}
TEST(FindFile, takes_any_case_and_either_slash_and_answers_with_backslashes) {
    const std::string folder = testTempPath();
    mkdir((folder + "/Sub").c_str(), 0700);
    writeFile(folder + "/Sub/Tábla.dwg", "x");
    AcDbHostApplicationServices& services = *acdbHostApplicationServices();
    services.setSupportPath({acFromUtf8(folder)});
    std::wstring found;
    EXPECT_EQ(services.findFile(found, L"sub\\TÁBLA.DWG"), Acad::eOk);
    EXPECT_NE(found.find(L"\\Sub\\Tábla.dwg"), std::wstring::npos);
    EXPECT_EQ(services.findFile(found, L"sub"), Acad::eFileNotFound) << "a folder is no file";
    EXPECT_EQ(services.findFile(found, L""), Acad::eInvalidInput);
    services.setSupportPath({});
    EXPECT_EQ(services.findFile(found, acFromUtf8(folder + "/Sub/Tábla.dwg").c_str()), Acad::eOk);
}
TEST(Codec, reading_and_saving_go_through_the_registered_one) {
    static AcDbDatabase* seen;
    seen = nullptr;
    AcDbFileCodec codec;
    codec.read = [](AcDbDatabase& db, const ACHAR*, std::wstring& error) {
        seen = &db;
        error = L"broken";
        DbObjectAccess::finishLoading(db);
        return Acad::eDwgNeedsRecovery;
    };
    codec.write = [](AcDbDatabase&, const ACHAR*, std::wstring&) { return Acad::eOk; };
    AcDbDatabase db;
    add(db, db.modelSpaceId(), new AcDbLine);
    acdbSetFileCodec(codec);
    EXPECT_EQ(db.saveAs(L"c:\\x.dwg"), Acad::eOk);
    EXPECT_FALSE(db.hasChangedSinceSave());
    const ACHAR* name = nullptr;
    db.getFilename(name);
    EXPECT_STREQ(name, L"c:\\x.dwg");
    EXPECT_EQ(db.readDwgFile(L"y.dwg"), Acad::eDwgNeedsRecovery);
    EXPECT_EQ(seen, &db);
    EXPECT_EQ(db.lastError(), L"broken");
    EXPECT_TRUE(db.modelSpaceId().isNull()) << "an empty shell is left";
    acdbSetFileCodec({});
    EXPECT_EQ(db.readDwgFile(L"y.dwg"), Acad::eNotImplementedYet);
}
TEST(DeepClone, a_table_record_gets_a_name_of_its_own) {
    Library library;
    AcDbDatabase& db = library.db;
    AcDbObjectIdArray objects;
    objects.append(library.block);
    AcDbIdMapping map;
    ASSERT_EQ(db.deepCloneObjects(objects, db.blockTableId(), map), Acad::eOk);
    AcDbIdPair pair;
    pair.key = library.block;
    ASSERT_TRUE(map.compute(pair));
    EXPECT_EQ(nameOf(pair.value), L"Jel$1");
    EXPECT_EQ(nameOf(library.block), L"Jel");
    ASSERT_EQ(liveEntities(pair.value).length(), 1);
    EXPECT_EQ(AcDbObjectPointer<AcDbEntity>(liveEntities(pair.value)[0])->ownerId(), pair.value);
}
