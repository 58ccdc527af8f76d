#include "AcDbBlockReference.h"
#include "AcDbDatabase.h"
#include "AcDbEntities.h"
#include "DbObjectAccess.h"
#include "Timing.h"

#include <gtest/gtest.h>

namespace {
AcDbObjectId addLine(AcDbDatabase& db, double length = 1.0) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId(), AcDb::kForWrite);
    auto* const line = new AcDbLine({0.0, 0.0, 0.0}, {length, 0.0, 0.0});
    AcDbObjectId id;
    space->appendAcDbEntity(id, line);
    line->close();
    return id;
}
void stretch(AcDbObjectId id, double length) {
    AcDbObjectPointer<AcDbLine>(id, AcDb::kForWrite)->setEndPoint({length, 0.0, 0.0});
}
double lengthOf(AcDbObjectId id) {
    return AcDbObjectPointer<AcDbLine>(id)->endPoint().x;
}
int entityCount(AcDbDatabase& db) {
    int count = 0;
    for (const AcDbObjectId id : AcDbObjectPointer<AcDbBlockTableRecord>(db.modelSpaceId())->entityIds())
        count += id.isErased() ? 0 : 1;
    return count;
}
} // namespace

TEST(Undo, brings_back_the_state_before_each_command) {
    AcDbDatabase db;
    const AcDbObjectId id = addLine(db);
    db.startUndoRecord();
    stretch(id, 2.0);
    stretch(id, 3.0);
    db.startUndoRecord();
    stretch(id, 4.0);
    EXPECT_TRUE(db.undo());
    EXPECT_DOUBLE_EQ(lengthOf(id), 3.0);
    EXPECT_TRUE(db.undo());
    EXPECT_DOUBLE_EQ(lengthOf(id), 1.0);
    EXPECT_FALSE(db.undo());
    EXPECT_TRUE(db.redo());
    EXPECT_DOUBLE_EQ(lengthOf(id), 3.0);
    EXPECT_TRUE(db.redo());
    EXPECT_DOUBLE_EQ(lengthOf(id), 4.0);
    EXPECT_FALSE(db.redo());
    EXPECT_TRUE(db.undo());
    EXPECT_DOUBLE_EQ(lengthOf(id), 3.0);
}
TEST(Undo, takes_back_what_was_made_and_redo_makes_it_again) {
    AcDbDatabase db;
    db.startUndoRecord();
    const AcDbObjectId id = addLine(db, 7.0);
    EXPECT_TRUE(db.undo());
    EXPECT_TRUE(id.isErased());
    EXPECT_EQ(entityCount(db), 0);
    EXPECT_TRUE(db.redo());
    EXPECT_EQ(entityCount(db), 1);
    EXPECT_DOUBLE_EQ(lengthOf(id), 7.0);
}
TEST(Undo, brings_back_what_was_erased) {
    AcDbDatabase db;
    const AcDbObjectId id = addLine(db);
    db.startUndoRecord();
    AcDbObjectPointer<AcDbLine>(id, AcDb::kForWrite)->erase();
    EXPECT_TRUE(db.undo());
    EXPECT_FALSE(id.isErased());
    EXPECT_TRUE(db.redo());
    EXPECT_TRUE(id.isErased());
}
TEST(Undo, brings_back_dictionary_and_table_entries) {
    AcDbDatabase db;
    db.startUndoRecord();
    {
        AcDbObjectPointer<AcDbDictionary> named(db.namedObjectsDictionaryId(), AcDb::kForWrite);
        AcDbObjectId id;
        auto* const record = new AcDbXrecord;
        named->setAt(L"NEW", record, id);
        record->close();
        AcDbObjectPointer<AcDbLayerTable> layers(db.layerTableId(), AcDb::kForWrite);
        auto* const layer = new AcDbLayerTableRecord;
        layer->setName(L"Új");
        layers->add(layer);
        layer->close();
    }
    EXPECT_TRUE(db.undo());
    EXPECT_FALSE(AcDbObjectPointer<AcDbDictionary>(db.namedObjectsDictionaryId())->has(L"NEW"));
    EXPECT_FALSE(AcDbObjectPointer<AcDbLayerTable>(db.layerTableId())->has(L"Új"));
    EXPECT_TRUE(db.redo());
    EXPECT_TRUE(AcDbObjectPointer<AcDbDictionary>(db.namedObjectsDictionaryId())->has(L"new"));
    EXPECT_TRUE(AcDbObjectPointer<AcDbLayerTable>(db.layerTableId())->has(L"új"));
}
TEST(Undo, brings_back_renaming_extended_data_and_current_properties) {
    AcDbDatabase db;
    const AcDbObjectId id = addLine(db);
    db.startUndoRecord();
    db.setLtscale(5.0);
    {
        AcDbObjectPointer<AcDbLine> line(id, AcDb::kForWrite);
        resbuf* const chain = acutBuildList(1001, L"APP", 1070, 1, 0);
        line->setXData(chain);
        acutRelRb(chain);
        line->createExtensionDictionary();
        line->addPersistentReactor(db.layerZero());
    }
    const AcDbObjectId extension = AcDbObjectPointer<AcDbLine>(id)->extensionDictionary();
    EXPECT_TRUE(db.undo());
    EXPECT_DOUBLE_EQ(db.ltscale(), 1.0);
    {
        AcDbObjectPointer<AcDbLine> line(id);
        EXPECT_EQ(line->xData(), nullptr);
        EXPECT_TRUE(line->extensionDictionary().isNull());
        EXPECT_EQ(line->persistentReactors().length(), 0);
    }
    EXPECT_TRUE(extension.isErased());
    db.redo();
    EXPECT_DOUBLE_EQ(db.ltscale(), 5.0);
    EXPECT_EQ(AcDbObjectPointer<AcDbLine>(id)->extensionDictionary(), extension);
}
TEST(Undo, a_command_that_changed_nothing_is_passed_over) {
    AcDbDatabase db;
    const AcDbObjectId id = addLine(db);
    db.startUndoRecord();
    stretch(id, 2.0);
    db.startUndoRecord();
    db.startUndoRecord();
    EXPECT_TRUE(db.undo());
    EXPECT_DOUBLE_EQ(lengthOf(id), 1.0);
}
TEST(Undo, a_new_change_ends_what_could_be_redone) {
    AcDbDatabase db;
    const AcDbObjectId id = addLine(db);
    db.startUndoRecord();
    stretch(id, 2.0);
    db.undo();
    db.startUndoRecord();
    EXPECT_TRUE(db.redo()) << "a new group alone does not";
    db.undo();
    db.startUndoRecord();
    stretch(id, 9.0);
    EXPECT_FALSE(db.redo());
    EXPECT_TRUE(db.undo());
    EXPECT_DOUBLE_EQ(lengthOf(id), 1.0);
}
TEST(Undo, records_nothing_while_it_is_switched_off) {
    AcDbDatabase db;
    const AcDbObjectId id = addLine(db);
    db.disableUndoRecording(true);
    EXPECT_FALSE(db.undoRecording());
    db.startUndoRecord();
    stretch(id, 2.0);
    EXPECT_FALSE(db.undo());
    EXPECT_DOUBLE_EQ(lengthOf(id), 2.0);
    db.disableUndoRecording(false);
    db.startUndoRecord();
    stretch(id, 3.0);
    EXPECT_TRUE(db.undo());
    EXPECT_DOUBLE_EQ(lengthOf(id), 2.0);
}
TEST(Undo, an_object_that_stays_open_over_commands_is_filed_in_each) {
    AcDbDatabase db;
    AcDbObjectPointer<AcDbLine> line(addLine(db), AcDb::kForWrite);
    const AcDbObjectId id = line->objectId();
    db.startUndoRecord();
    line->setEndPoint({2.0, 0.0, 0.0});
    db.startUndoRecord();
    line->setEndPoint({3.0, 0.0, 0.0});
    line.close();
    db.undo();
    EXPECT_DOUBLE_EQ(lengthOf(id), 2.0);
}
TEST(Undo, ten_thousand_objects_are_recorded_and_taken_back_quickly) {
    AcDbDatabase db;
    std::vector<AcDbObjectId> ids;
    for (int i = 0; i < 10000; ++i)
        ids.push_back(addLine(db));
    db.startUndoRecord();
    const auto start = std::chrono::steady_clock::now();
    for (const AcDbObjectId id : ids)
        stretch(id, 2.0);
    const std::chrono::duration<double, std::milli> recorded = std::chrono::steady_clock::now() - start;
    db.undo();
    EXPECT_DOUBLE_EQ(lengthOf(ids[5000]), 1.0);
    RecordProperty("milliseconds", std::to_string(recorded.count()));
    EXPECT_LT(recorded.count(), 200.0 * kTimingSlack);
}
TEST(Changes, mark_the_drawing_until_it_is_saved) {
    AcDbDatabase db;
    const AcDbObjectId id = addLine(db);
    EXPECT_TRUE(db.hasChangedSinceSave());
    db.markSaved();
    AcDbObjectPointer<AcDbLine>(id)->startPoint();
    EXPECT_FALSE(db.hasChangedSinceSave());
    stretch(id, 2.0);
    EXPECT_TRUE(db.hasChangedSinceSave());
}
