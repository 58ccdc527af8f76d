// Symbol tables, blocks and the default drawing.
#include "AcDbAnnotationScale.h"
#include "AcDbBlockReference.h"
#include "AcDbDatabase.h"
#include "AcDbLayout.h"
#include "DbObjectAccess.h"

#include "AcUtText.h"

#include <gtest/gtest.h>

#include <set>

namespace {
AcDbObjectId addBlock(AcDbDatabase& db, const ACHAR* name) {
    AcDbObjectPointer<AcDbBlockTable> table(db.blockTableId(), AcDb::kForWrite);
    auto* const block = new AcDbBlockTableRecord;
    block->setName(name);
    AcDbObjectId id;
    EXPECT_EQ(table->add(id, block), Acad::eOk);
    block->close();
    return id;
}
std::wstring nameOf(AcDbObjectId id) {
    return AcDbObjectPointer<AcDbSymbolTableRecord>(id)->name();
}
std::wstring cannoscale(const AcDbDatabase& db) {
    const std::unique_ptr<AcDbAnnotationScale> scale(db.cannoscale());
    std::wstring name;
    scale->getName(name);
    return name;
}
AcDbObjectContextCollection& scales(AcDbDatabase& db) {
    return *db.objectContextManager()->contextCollection(acdbAnnotationScaleCollectionName);
}
struct ScaleWatch : AcDbAnnotationScaleReactor {
    std::vector<std::wstring> seen;
    ScaleWatch() { acdbAddAnnotationScaleReactor(this); }
    ~ScaleWatch() override { acdbRemoveAnnotationScaleReactor(this); }
    void annotationScaleChanged(AcDbDatabase*, AcDbObjectId viewport, AcDbAnnotationScale* scale, bool initializing) override {
        EXPECT_FALSE(initializing);
        EXPECT_FALSE(viewport.isNull());
        std::wstring name;
        scale->getName(name);
        seen.push_back(name);
    }
};
} // namespace

TEST(DefaultDrawing, has_the_tables_and_records_of_a_normal_drawing) {
    AcDbDatabase db;
    EXPECT_EQ(nameOf(db.layerZero()), L"0");
    EXPECT_EQ(nameOf(db.byLayerLinetype()), L"ByLayer");
    EXPECT_EQ(nameOf(db.byBlockLinetype()), L"ByBlock");
    EXPECT_EQ(nameOf(db.continuousLinetype()), L"Continuous");
    EXPECT_EQ(nameOf(db.textStyleStandard()), L"Standard");
    EXPECT_EQ(AcDbObjectPointer<AcDbTextStyleTableRecord>(db.textStyleStandard())->fileName(), L"osifont");
    EXPECT_EQ(nameOf(db.modelSpaceId()), L"*Model_Space");
    EXPECT_EQ(nameOf(db.paperSpaceId()), L"*Paper_Space");
    for (const AcRxClass* const table :
         {AcDbViewTable::desc(), AcDbUCSTable::desc(), AcDbViewportTable::desc(), AcDbRegAppTable::desc(), AcDbDimStyleTable::desc(), AcDbVXTable::desc()})
        EXPECT_TRUE(db.tableId(table).isValid()) << acToUtf8(table->name());
    EXPECT_TRUE(AcDbObjectPointer<AcDbRegAppTable>(db.tableId(AcDbRegAppTable::desc()))->has(L"ACAD"));
    EXPECT_TRUE(AcDbObjectPointer<AcDbViewportTable>(db.tableId(AcDbViewportTable::desc()))->has(L"*ACTIVE"));
    EXPECT_TRUE(AcDbObjectPointer<AcDbDimStyleTable>(db.tableId(AcDbDimStyleTable::desc()))->has(L"Standard"));
    EXPECT_FALSE(db.hasChangedSinceSave());
}
TEST(DefaultDrawing, has_the_dictionaries_strict_programs_ask_for) {
    AcDbDatabase db;
    AcDbObjectPointer<AcDbDictionary> named(db.namedObjectsDictionaryId());
    for (const ACHAR* const name : {L"ACAD_GROUP", L"ACAD_LAYOUT", L"ACAD_MLINESTYLE", L"ACAD_PLOTSETTINGS", L"ACAD_PLOTSTYLENAME", L"ACAD_MATERIALS",
                                    L"ACAD_COLOR", L"ACAD_TABLESTYLE", L"ACAD_MLEADERSTYLE", L"ACAD_VISUALSTYLE", L"ACAD_SCALELIST", L"AcDbVariableDictionary"})
        EXPECT_TRUE(named->has(name)) << acToUtf8(name);
    AcDbDictionaryWithDefault* plotStyles = nullptr;
    ASSERT_EQ(named->getAt(L"ACAD_PLOTSTYLENAME", plotStyles, AcDb::kForRead), Acad::eOk);
    EXPECT_NE(AcDbPlaceHolder::cast(DbObjectAccess::peek(plotStyles->defaultId())), nullptr);
    plotStyles->close();
    AcDbDictionary* styles = nullptr;
    ASSERT_EQ(named->getAt(L"ACAD_MLINESTYLE", styles, AcDb::kForRead), Acad::eOk);
    AcDbMlineStyle* standard = nullptr;
    ASSERT_EQ(styles->getAt(L"STANDARD", standard, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(standard->styleData().lines.size(), 2u);
    standard->close();
    styles->close();
}
TEST(DefaultDrawing, layouts_and_their_blocks_point_at_each_other) {
    AcDbDatabase db;
    AcDbObjectPointer<AcDbDictionary> named(db.namedObjectsDictionaryId());
    AcDbDictionary* layouts = nullptr;
    ASSERT_EQ(named->getAt(L"ACAD_LAYOUT", layouts, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(layouts->numEntries(), 3u);
    std::set<std::wstring> blocks;
    const std::unique_ptr<AcDbDictionaryIterator> walk(layouts->newIterator());
    for (; !walk->done(); walk->next()) {
        AcDbObjectPointer<AcDbLayout> layout(walk->objectId());
        EXPECT_EQ(layout->layoutName(), walk->name());
        EXPECT_EQ(layout->ownerId(), layouts->objectId());
        AcDbObjectPointer<AcDbBlockTableRecord> block(layout->blockTableRecordId());
        EXPECT_EQ(block->layoutId(), layout->objectId());
        EXPECT_TRUE(block->isLayout());
        blocks.insert(block->name());
    }
    layouts->close();
    EXPECT_EQ(blocks, (std::set<std::wstring>{L"*Model_Space", L"*Paper_Space", L"*Paper_Space0"}));
}
TEST(DefaultDrawing, begins_metric_at_one_to_five_hundred) {
    AcDbDatabase db;
    EXPECT_EQ(db.measurement(), 1);
    EXPECT_EQ(cannoscale(db), L"1:500");
    EXPECT_EQ(db.clayer(), db.layerZero());
    EXPECT_EQ(db.celtype(), db.byLayerLinetype());
    EXPECT_TRUE(db.cecolor().isByLayer());
    EXPECT_EQ(db.celweight(), AcDb::kLnWtByLayer);
    EXPECT_DOUBLE_EQ(db.ltscale(), 1.0);
    EXPECT_EQ(db.currentSpaceId(), db.modelSpaceId());
}
TEST(EmptyShell, becomes_whole_when_loading_is_finished) {
    AcDbDatabase db(false);
    EXPECT_TRUE(db.modelSpaceId().isNull());
    const std::vector<std::wstring> repairs = DbObjectAccess::finishLoading(db);
    EXPECT_FALSE(repairs.empty());
    EXPECT_TRUE(db.modelSpaceId().isValid());
    EXPECT_EQ(cannoscale(db), L"1:500");
    EXPECT_TRUE(DbObjectAccess::finishLoading(db).empty()) << "a whole drawing needs no repair";
}

TEST(SymbolTable, refuses_a_name_that_is_taken_in_any_case) {
    AcDbDatabase db;
    AcDbObjectPointer<AcDbLayerTable> table(db.layerTableId(), AcDb::kForWrite);
    auto* const layer = new AcDbLayerTableRecord;
    layer->setName(L"Jelzőtáblák");
    ASSERT_EQ(table->add(layer), Acad::eOk);
    EXPECT_EQ(layer->linetypeObjectId(), db.continuousLinetype());
    layer->close();
    AcDbLayerTableRecord second;
    second.setName(L"JELZŐTÁBLÁK");
    EXPECT_EQ(table->add(&second), Acad::eDuplicateKey);
    EXPECT_TRUE(table->has(L"jelzőtáblák"));
    AcDbLayerTableRecord unnamed;
    EXPECT_EQ(table->add(&unnamed), Acad::eInvalidInput);
}
TEST(SymbolTable, follows_renaming_and_erasing) {
    AcDbDatabase db;
    const AcDbObjectId id = addBlock(db, L"First");
    AcDbObjectPointer<AcDbBlockTable> table(db.blockTableId());
    EXPECT_TRUE(table->has(L"first"));
    {
        table.close();
        AcDbObjectPointer<AcDbBlockTableRecord> block(id, AcDb::kForWrite);
        EXPECT_EQ(block->setName(L"*Model_Space"), Acad::eDuplicateKey);
        block->setName(L"Second");
    }
    AcDbObjectPointer<AcDbBlockTable> again(db.blockTableId());
    EXPECT_FALSE(again->has(L"First"));
    EXPECT_TRUE(again->has(L"Second"));
    AcDbObjectPointer<AcDbBlockTableRecord>(id, AcDb::kForWrite)->erase();
    AcDbObjectId found;
    EXPECT_EQ(again->getAt(L"Second", found), Acad::eKeyNotFound);
    EXPECT_EQ(again->getAt(L"Second", found, true), Acad::eOk);
    EXPECT_EQ(found, id);
}
TEST(Block, an_anonymous_name_gets_the_next_number) {
    AcDbDatabase db;
    EXPECT_EQ(nameOf(addBlock(db, L"*U")), L"*U1");
    const AcDbObjectId second = addBlock(db, L"*U");
    EXPECT_EQ(nameOf(second), L"*U2");
    EXPECT_EQ(nameOf(addBlock(db, L"*D")), L"*D1");
    EXPECT_TRUE(AcDbObjectPointer<AcDbBlockTableRecord>(second)->isAnonymous());
    EXPECT_FALSE(AcDbObjectPointer<AcDbBlockTableRecord>(db.modelSpaceId())->isAnonymous());
}
TEST(Block, erasing_takes_its_entities_along_and_spares_the_spaces) {
    AcDbDatabase db;
    const AcDbObjectId id = addBlock(db, L"B");
    AcDbObjectId line;
    {
        AcDbObjectPointer<AcDbBlockTableRecord> block(id, AcDb::kForWrite);
        auto* const entity = new AcDbLine;
        block->appendAcDbEntity(line, entity);
        entity->close();
        block->erase();
    }
    EXPECT_TRUE(line.isErased());
    EXPECT_EQ(AcDbObjectPointer<AcDbBlockTableRecord>(db.modelSpaceId(), AcDb::kForWrite)->erase(), Acad::eNotApplicable);
}
TEST(Block, its_walker_skips_the_erased_and_may_append) {
    AcDbDatabase db;
    AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId(), AcDb::kForWrite);
    AcDbObjectId ids[3];
    for (AcDbObjectId& id : ids) {
        auto* const line = new AcDbLine;
        space->appendAcDbEntity(id, line);
        line->close();
    }
    AcDbObjectPointer<AcDbLine>(ids[1], AcDb::kForWrite)->erase();
    AcDbBlockTableRecordIterator* raw = nullptr;
    space->newIterator(raw);
    const std::unique_ptr<AcDbBlockTableRecordIterator> walk(raw);
    std::vector<AcDbObjectId> seen;
    for (walk->start(); !walk->done(); walk->step()) {
        AcDbObjectId id;
        walk->getEntityId(id);
        seen.push_back(id);
        auto* const more = new AcDbLine;
        space->appendAcDbEntity(more);
        more->close();
    }
    EXPECT_EQ(seen, (std::vector<AcDbObjectId>{ids[0], ids[2]}));
    AcDbEntity* entity = nullptr;
    EXPECT_EQ(walk->getEntity(entity), Acad::eIteratorDone);
}
TEST(Block, knows_its_references) {
    AcDbDatabase db;
    const AcDbObjectId block = addBlock(db, L"B");
    AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId(), AcDb::kForWrite);
    auto* const reference = new AcDbBlockReference({1.0, 2.0, 0.0}, block);
    AcDbObjectId id;
    space->appendAcDbEntity(id, reference);
    reference->close();
    AcDbObjectIdArray ids;
    AcDbObjectPointer<AcDbBlockTableRecord>(block)->getBlockReferenceIds(ids);
    ASSERT_EQ(ids.length(), 1);
    EXPECT_EQ(ids[0], id);
}

TEST(AnnotationScale, one_to_five_hundred_is_paper_1_drawing_half) {
    AcDbDatabase db;
    const std::unique_ptr<AcDbAnnotationScale> scale(db.cannoscale());
    double paper = 0.0, drawing = 0.0, factor = 0.0;
    scale->getPaperUnits(paper);
    scale->getDrawingUnits(drawing);
    scale->getScale(factor);
    EXPECT_DOUBLE_EQ(paper, 1.0);
    EXPECT_DOUBLE_EQ(drawing, 0.5);
    EXPECT_DOUBLE_EQ(factor, 2.0);
    EXPECT_EQ(scale->setPaperUnits(0.0), Acad::eInvalidInput);
    EXPECT_EQ(scale->setDrawingUnits(-1.0), Acad::eInvalidInput);
}
TEST(AnnotationScale, the_current_one_must_be_in_the_list_and_tells_its_reactors) {
    AcDbDatabase db;
    ScaleWatch watch;
    const std::unique_ptr<AcDbObjectContext> thousand(scales(db).getContext(L"1:1000"));
    EXPECT_EQ(db.setCannoscale(AcDbAnnotationScale::cast(thousand.get())), Acad::eOk);
    EXPECT_EQ(cannoscale(db), L"1:1000");
    AcDbAnnotationScale foreign;
    foreign.setName(L"1:333");
    EXPECT_EQ(db.setCannoscale(&foreign), Acad::eKeyNotFound);
    EXPECT_EQ(db.setCannoscale(nullptr), Acad::eNullPtr);
    EXPECT_EQ(watch.seen, std::vector<std::wstring>{L"1:1000"});
}
TEST(AnnotationScale, the_list_is_kept_in_the_drawings_dictionary) {
    AcDbDatabase db;
    AcDbAnnotationScale own;
    own.setName(L"KV 1 : 750");
    own.setDrawingUnits(0.75);
    EXPECT_EQ(scales(db).addContext(&own), Acad::eOk);
    EXPECT_EQ(scales(db).addContext(&own), Acad::eDuplicateKey);
    EXPECT_TRUE(scales(db).hasContext(L"kv 1 : 750"));
    std::vector<std::wstring> names;
    const std::unique_ptr<AcDbObjectContextCollectionIterator> walk(scales(db).newIterator());
    for (walk->start(); !walk->done(); walk->next()) {
        AcDbObjectContext* context = nullptr;
        walk->getContext(context);
        names.emplace_back();
        context->getName(names.back());
        EXPECT_TRUE(AcDbAnnotationScale::cast(context)->scaleObjectId().isValid());
        delete context;
    }
    ASSERT_GT(names.size(), 10u);
    EXPECT_EQ(names.front(), L"1:1");
    EXPECT_EQ(names.back(), L"KV 1 : 750");
    EXPECT_EQ(scales(db).removeContext(L"KV 1 : 750"), Acad::eOk);
    EXPECT_FALSE(scales(db).hasContext(L"KV 1 : 750"));
    EXPECT_EQ(scales(db).removeContext(L"1:500"), Acad::eNotApplicable) << "the current one stays";
    EXPECT_EQ(scales(db).removeContext(L"nincs"), Acad::eKeyNotFound);
}
TEST(CurrentProperties, are_taken_over_by_an_entity) {
    AcDbDatabase db;
    db.setCecolor(AcCmColor(AcCmEntityColor(10, 20, 30)));
    db.setCelweight(AcDb::kLnWt050);
    db.setCeltscale(2.0);
    EXPECT_EQ(db.setCeltscale(0.0), Acad::eInvalidInput);
    EXPECT_EQ(db.setClayer(db.byLayerLinetype()), Acad::eInvalidInput);
    EXPECT_EQ(db.setCeltype(db.continuousLinetype()), Acad::eOk);
    AcDbLine line;
    line.setDatabaseDefaults(&db);
    EXPECT_TRUE(line.color().isByColor());
    EXPECT_EQ(line.color().blue(), 30);
    EXPECT_EQ(line.lineWeight(), AcDb::kLnWt050);
    EXPECT_DOUBLE_EQ(line.linetypeScale(), 2.0);
    EXPECT_EQ(line.linetypeName(), L"Continuous");
    AcDbLine other;
    other.setPropertiesFrom(&line);
    EXPECT_EQ(other.lineWeight(), AcDb::kLnWt050);
    EXPECT_EQ(other.color().blue(), 30);
}
