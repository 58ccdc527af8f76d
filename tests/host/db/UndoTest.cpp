#include "AcDbBlockReference.h"
#include "AcDbDatabase.h"
#include "AcDbEntities.h"
#include "DbDatabaseData.h"
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
    const double recorded = processorMilliseconds([&ids] {
        for (const AcDbObjectId id : ids)
            stretch(id, 2.0);
    });
    db.undo();
    EXPECT_DOUBLE_EQ(lengthOf(ids[5000]), 1.0);
    RecordProperty("milliseconds", std::to_string(recorded));
    EXPECT_LT(recorded, 200.0 * kTimingSlack);
}

// ---- the bound of the history
namespace {
DbUndoLog& logOf(AcDbDatabase& db) {
    return DbObjectAccess::data(db).undo;
}
// Ten lines changed in one command: a few kilobytes of history.
void stretchAll(AcDbDatabase& db, const std::vector<AcDbObjectId>& lines, double length) {
    db.startUndoRecord();
    for (const AcDbObjectId id : lines)
        stretch(id, length);
}
std::vector<AcDbObjectId> addTenLines(AcDbDatabase& db) {
    std::vector<AcDbObjectId> lines;
    for (int i = 0; i < 10; ++i)
        lines.push_back(addLine(db));
    return lines;
}
int undoAll(AcDbDatabase& db) {
    int times = 0;
    while (db.undo())
        ++times;
    return times;
}
} // namespace

TEST(Undo, the_oldest_commands_are_forgotten_when_the_history_outgrows_its_limit) {
    AcDbDatabase db;
    const auto lines = addTenLines(db);
    stretchAll(db, lines, 2.0);
    db.startUndoRecord();
    const std::size_t one = logOf(db).byteSize();
    ASSERT_GT(one, 0u);
    logOf(db).setLimit(3 * one + one / 2);
    for (int length = 3; length <= 20; ++length) {
        stretchAll(db, lines, length);
        EXPECT_LE(logOf(db).byteSize(), 5 * one) << "the open command comes on top of the limit";
    }
    EXPECT_EQ(undoAll(db), 4) << "three complete commands and the open one";
    EXPECT_DOUBLE_EQ(lengthOf(lines[0]), 16.0);
    for (int length = 17; length <= 20; ++length)
        EXPECT_TRUE(db.redo());
    EXPECT_DOUBLE_EQ(lengthOf(lines[9]), 20.0);
}
TEST(Undo, the_last_command_can_be_taken_back_however_large_it_is) {
    AcDbDatabase db;
    const auto lines = addTenLines(db);
    logOf(db).setLimit(1);
    stretchAll(db, lines, 2.0);
    stretchAll(db, lines, 3.0);
    db.startUndoRecord();
    EXPECT_EQ(undoAll(db), 1);
    EXPECT_DOUBLE_EQ(lengthOf(lines[5]), 2.0);
    EXPECT_TRUE(db.redo());
    EXPECT_DOUBLE_EQ(lengthOf(lines[5]), 3.0);
}
TEST(Undo, a_short_history_is_kept_whole_under_the_usual_limit) {
    AcDbDatabase db;
    const auto lines = addTenLines(db);
    for (int length = 2; length <= 101; ++length)
        stretchAll(db, lines, length);
    EXPECT_EQ(undoAll(db), 100);
    EXPECT_DOUBLE_EQ(lengthOf(lines[0]), 1.0);
}

// ---- order
namespace {
// An entity that looks into a dictionary while it reads itself.
AcDbDatabase* gReadingFrom = nullptr;
std::wstring gSeen;
class Looker : public AcDbPoint {
public:
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override {
        AcDbObjectPointer<AcDbDictionary> named(gReadingFrom->namedObjectsDictionaryId());
        AcDbObjectId id;
        gSeen = named->getAt(L"NOW", id) == Acad::eOk ? L"after" : L"before";
        return AcDbPoint::dwgInFields(filer);
    }
};
} // namespace
TEST(Undo, an_entity_reads_itself_in_the_drawing_as_it_was_when_it_was_filed) {
    AcDbDatabase db;
    gReadingFrom = &db;
    AcDbObjectId id;
    {
        AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId(), AcDb::kForWrite);
        auto* const looker = new Looker;
        space->appendAcDbEntity(id, looker);
        looker->close();
    }
    for (const bool entityFirst : {false, true}) {
        db.startUndoRecord();
        const auto moveIt = [&] { AcDbObjectPointer<AcDbPoint>(id, AcDb::kForWrite)->setPosition({entityFirst ? 2.0 : 1.0, 0.0, 0.0}); };
        if (entityFirst)
            moveIt();
        {
            AcDbObjectPointer<AcDbDictionary> named(db.namedObjectsDictionaryId(), AcDb::kForWrite);
            AcDbObjectId record;
            auto* const added = new AcDbXrecord;
            named->setAt(L"NOW", added, record);
            added->close();
        }
        if (!entityFirst)
            moveIt();
        ASSERT_TRUE(db.undo());
        EXPECT_EQ(gSeen, L"before") << entityFirst;
        ASSERT_TRUE(db.redo());
        EXPECT_EQ(gSeen, L"after") << entityFirst;
        ASSERT_TRUE(db.undo());
    }
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
