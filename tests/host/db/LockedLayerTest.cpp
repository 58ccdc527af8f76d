// What a locked layer guards: its entities open for read only, but for what is no edit of them.
#include "AcDbBlockReference.h"
#include "AcDbDatabase.h"
#include "AcDbEntities.h"
#include "DbObjectAccess.h"

#include <gtest/gtest.h>

namespace {
class LockedLayer : public testing::Test {
protected:
    LockedLayer() {
        acdbHostApplicationServices()->setWorkingDatabase(&db);
        AcDbObjectPointer<AcDbLayerTable> table(db.layerTableId(), AcDb::kForWrite);
        auto* const record = new AcDbLayerTableRecord;
        record->setName(L"Zárt");
        table->add(layer, record);
        record->close();
    }
    template <class T> AcDbObjectId add(std::unique_ptr<T> entity, AcDbObjectId block, AcDbObjectId on) {
        entity->setLayer(on);
        AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForWrite);
        AcDbObjectId id;
        EXPECT_EQ(record->appendAcDbEntity(id, entity.get()), Acad::eOk);
        entity.release()->close();
        return id;
    }
    AcDbObjectId addLine() { return add(std::make_unique<AcDbLine>(AcGePoint3d(), AcGePoint3d(1.0, 0.0, 0.0)), db.modelSpaceId(), layer); }
    AcDbObjectId addBlock() {
        AcDbObjectPointer<AcDbBlockTable> table(db.blockTableId(), AcDb::kForWrite);
        auto* const record = new AcDbBlockTableRecord;
        record->setName(L"Tábla");
        AcDbObjectId id;
        table->add(id, record);
        record->close();
        return id;
    }
    AcDbObjectId addReference(AcDbObjectId on, AcDbObjectId attributeOn, AcDbObjectId& attributeId) {
        const AcDbObjectId id = add(std::make_unique<AcDbBlockReference>(AcGePoint3d(), addBlock()), db.modelSpaceId(), on);
        AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForWrite);
        auto* const attribute = new AcDbAttribute;
        attribute->setLayer(attributeOn);
        reference->appendAttribute(attributeId, attribute);
        attribute->close();
        return id;
    }
    void lock(bool locked = true) { AcDbObjectPointer<AcDbLayerTableRecord>(layer, AcDb::kForWrite)->setIsLocked(locked); }
    static Acad::ErrorStatus statusOf(AcDbObjectId id, AcDb::OpenMode mode) { return AcDbObjectPointer<AcDbEntity>(id, mode).openStatus(); }

    AcDbDatabase db;
    AcDbObjectId layer;
};
} // namespace

TEST_F(LockedLayer, lets_its_entities_be_read_and_not_written) {
    const AcDbObjectId id = addLine();
    EXPECT_EQ(statusOf(id, AcDb::kForWrite), Acad::eOk);
    lock();
    EXPECT_EQ(statusOf(id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(statusOf(id, AcDb::kForWrite), Acad::eOnLockedLayer);
    EXPECT_EQ(AcDbObjectPointer<AcDbObject>(id, AcDb::kForWrite).openStatus(), Acad::eOnLockedLayer) << "whatever it is opened as";
    EXPECT_STREQ(acadErrorStatusText(Acad::eOnLockedLayer), L"eOnLockedLayer");
    lock(false);
    EXPECT_EQ(statusOf(id, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(acdbOpenObjectCount(), 0);
}
TEST_F(LockedLayer, locks_however_the_layer_came) {
    // Added as a locked one.
    const AcDbObjectId first = addLine();
    auto* const record = new AcDbLayerTableRecord;
    record->setName(L"Kész");
    record->setIsLocked(true);
    AcDbObjectId added;
    AcDbObjectPointer<AcDbLayerTable>(db.layerTableId(), AcDb::kForWrite)->add(added, record);
    record->close();
    AcDbObjectPointer<AcDbLine>(first, AcDb::kForWrite)->setLayer(added);
    EXPECT_EQ(statusOf(first, AcDb::kForWrite), Acad::eOnLockedLayer);
    // Cloned from another drawing with what lies on it.
    AcDbDatabase other;
    AcDbObjectIdArray ids;
    ids.append(first);
    AcDbIdMapping map;
    ASSERT_EQ(other.wblockCloneObjects(ids, other.modelSpaceId(), map, AcDb::kDrcIgnore), Acad::eOk);
    AcDbIdPair pair;
    pair.key = first;
    ASSERT_TRUE(map.compute(pair));
    EXPECT_EQ(statusOf(pair.value, AcDb::kForWrite), Acad::eOnLockedLayer);
}
TEST_F(LockedLayer, stands_against_a_reader_that_wants_to_write) {
    const AcDbObjectId id = addLine();
    lock();
    AcDbObjectPointer<AcDbLine> line(id);
    EXPECT_EQ(line->upgradeOpen(), Acad::eOnLockedLayer);
    EXPECT_TRUE(line->isReadEnabled());
    EXPECT_FALSE(line->isWriteEnabled());
}
TEST_F(LockedLayer, gives_way_to_the_flag_of_what_is_no_edit) {
    const AcDbObjectId id = addLine();
    lock();
    AcDbEntity* entity = nullptr;
    EXPECT_EQ(acdbOpenAcDbEntity(entity, id, AcDb::kForWrite), Acad::eOnLockedLayer);
    EXPECT_EQ(entity, nullptr);
    ASSERT_EQ(acdbOpenAcDbEntity(entity, id, AcDb::kForWrite, false, true), Acad::eOk);
    entity->close();
    const AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId());
    AcDbBlockTableRecordIterator* walk = nullptr;
    ASSERT_EQ(space->newIterator(walk), Acad::eOk);
    const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(walk);
    EXPECT_EQ(iterator->getEntity(entity, AcDb::kForWrite), Acad::eOnLockedLayer);
    ASSERT_EQ(iterator->getEntity(entity, AcDb::kForWrite, false, true), Acad::eOk);
    EXPECT_EQ(entity->objectId(), id);
    entity->close();
}
TEST_F(LockedLayer, is_entered_by_an_object_that_is_open) {
    const AcDbObjectId id = add(std::make_unique<AcDbLine>(), db.modelSpaceId(), db.layerZero());
    lock();
    {
        AcDbObjectPointer<AcDbLine> line(id, AcDb::kForWrite);
        EXPECT_EQ(line->setLayer(layer), Acad::eOk);
        EXPECT_EQ(line->setColorIndex(1), Acad::eOk) << "it is open";
    }
    EXPECT_EQ(statusOf(id, AcDb::kForWrite), Acad::eOnLockedLayer);
}
TEST_F(LockedLayer, takes_new_objects_and_changes_itself) {
    lock();
    EXPECT_TRUE(addLine().isValid());
    AcDbObjectPointer<AcDbLayerTableRecord> record(layer, AcDb::kForWrite);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->setColor(AcCmEntityColor::fromIndex(3)), Acad::eOk);
}
TEST_F(LockedLayer, guards_the_attributes_of_its_references_too) {
    AcDbObjectId attribute;
    const AcDbObjectId reference = addReference(layer, db.layerZero(), attribute);
    EXPECT_EQ(statusOf(attribute, AcDb::kForWrite), Acad::eOk);
    lock();
    EXPECT_EQ(statusOf(reference, AcDb::kForWrite), Acad::eOnLockedLayer);
    EXPECT_EQ(statusOf(attribute, AcDb::kForWrite), Acad::eOnLockedLayer);
}
TEST_F(LockedLayer, an_attribute_on_it_goes_along_with_a_reference_that_is_not) {
    AcDbObjectId attribute;
    const AcDbObjectId reference = addReference(db.layerZero(), layer, attribute);
    lock();
    EXPECT_EQ(statusOf(attribute, AcDb::kForWrite), Acad::eOnLockedLayer);
    const AcGePoint3d before = AcDbObjectPointer<AcDbAttribute>(attribute)->position();
    AcDbObjectPointer<AcDbBlockReference>(reference, AcDb::kForWrite)->transformBy(AcGeMatrix3d::translation({5.0, 0.0, 0.0}));
    EXPECT_DOUBLE_EQ(AcDbObjectPointer<AcDbAttribute>(attribute)->position().x, before.x + 5.0);
}
TEST_F(LockedLayer, a_vertex_on_it_goes_along_with_its_polyline) {
    const AcDbObjectId id = add(std::make_unique<AcDb2dPolyline>(), db.modelSpaceId(), db.layerZero());
    AcDbObjectId vertexId;
    {
        AcDbObjectPointer<AcDb2dPolyline> polyline(id, AcDb::kForWrite);
        auto* const vertex = new AcDb2dVertex;
        vertex->setLayer(layer);
        ASSERT_EQ(polyline->appendVertex(vertexId, vertex), Acad::eOk);
        vertex->close();
    }
    lock();
    AcDbObjectPointer<AcDb2dPolyline>(id, AcDb::kForWrite)->transformBy(AcGeMatrix3d::translation({5.0, 0.0, 0.0}));
    EXPECT_DOUBLE_EQ(AcDbObjectPointer<AcDb2dVertex>(vertexId)->position().x, 5.0);
}
TEST_F(LockedLayer, does_not_stand_in_the_way_of_undo_and_redo) {
    const AcDbObjectId id = addLine();
    db.startUndoRecord();
    AcDbObjectPointer<AcDbLine>(id, AcDb::kForWrite)->setEndPoint({7.0, 0.0, 0.0});
    db.startUndoRecord();
    lock();
    EXPECT_TRUE(db.undo()); // the lock
    EXPECT_TRUE(db.redo());
    EXPECT_EQ(statusOf(id, AcDb::kForWrite), Acad::eOnLockedLayer);
    EXPECT_TRUE(db.undo());
    EXPECT_TRUE(db.undo()); // the change
    EXPECT_DOUBLE_EQ(AcDbObjectPointer<AcDbLine>(id)->endPoint().x, 1.0);
    // A change that was made while the layer was open comes back, whatever the layer is now.
    db.startUndoRecord();
    AcDbObjectPointer<AcDbLine>(id, AcDb::kForWrite)->setEndPoint({9.0, 0.0, 0.0});
    lock();
    EXPECT_TRUE(db.undo());
    EXPECT_DOUBLE_EQ(AcDbObjectPointer<AcDbLine>(id)->endPoint().x, 1.0);
}
TEST_F(LockedLayer, does_not_keep_a_definition_from_being_erased_or_made_anew) {
    const AcDbObjectId block = addBlock();
    const AcDbObjectId inside = add(std::make_unique<AcDbLine>(), block, layer);
    lock();
    EXPECT_EQ(AcDbObjectPointer<AcDbBlockTableRecord>(block, AcDb::kForWrite)->erase(), Acad::eOk);
    EXPECT_TRUE(inside.isErased());
    AcDbObjectPointer<AcDbBlockTableRecord>(block, AcDb::kForWrite, true)->erase(false);
    EXPECT_FALSE(inside.isErased());
    AcDbDatabase other;
    AcDbObjectId again;
    EXPECT_EQ(db.insert(again, L"Tábla", &other), Acad::eOk);
    EXPECT_EQ(again, block);
    EXPECT_TRUE(inside.isErased());
}
TEST_F(LockedLayer, lets_its_entities_be_copied) {
    const AcDbObjectId id = addLine();
    lock();
    AcDbObjectIdArray ids;
    ids.append(id);
    AcDbIdMapping map;
    ASSERT_EQ(db.deepCloneObjects(ids, db.modelSpaceId(), map), Acad::eOk);
    AcDbIdPair pair;
    pair.key = id;
    ASSERT_TRUE(map.compute(pair));
    EXPECT_EQ(AcDbObjectPointer<AcDbLine>(pair.value)->layerId(), layer);
    EXPECT_EQ(statusOf(pair.value, AcDb::kForWrite), Acad::eOnLockedLayer);
}
