// Opening, erasing, extended data, ownership.
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
template <class Call> Acad::ErrorStatus breachOf(Call call) {
    testing::internal::CaptureStderr();
    Acad::ErrorStatus status = Acad::eOk;
    try {
        call();
    } catch (const AcDbOpenRuleBreach& breach) {
        status = breach.status;
    }
    testing::internal::GetCapturedStderr();
    return status;
}
} // namespace

TEST(OpenRules, many_may_read_and_one_alone_may_write) {
    AcDbDatabase db;
    const AcDbObjectId id = addLine(db);
    AcDbObject *first = nullptr, *second = nullptr, *writer = nullptr;
    EXPECT_EQ(acdbOpenAcDbObject(first, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(acdbOpenAcDbObject(second, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(acdbOpenAcDbObject(writer, id, AcDb::kForWrite), Acad::eWasOpenForRead);
    EXPECT_EQ(writer, nullptr);
    EXPECT_EQ(first->upgradeOpen(), Acad::eWasOpenForRead);
    second->close();
    EXPECT_EQ(first->upgradeOpen(), Acad::eOk);
    EXPECT_EQ(acdbOpenAcDbObject(second, id, AcDb::kForRead), Acad::eWasOpenForWrite);
    EXPECT_EQ(acdbOpenAcDbObject(second, id, AcDb::kForWrite), Acad::eWasOpenForWrite);
    EXPECT_EQ(first->downgradeOpen(), Acad::eOk);
    EXPECT_TRUE(first->isReadEnabled());
    EXPECT_FALSE(first->isWriteEnabled());
    EXPECT_EQ(first->close(), Acad::eOk);
    EXPECT_EQ(first->close(), Acad::eInvalidOpenState);
}
TEST(OpenRules, a_change_without_an_opening_for_write_ends_the_command) {
    AcDbDatabase db;
    AcDbObjectPointer<AcDbLine> line(addLine(db));
    EXPECT_EQ(breachOf([&] { line->setEndPoint({5.0, 0.0, 0.0}); }), Acad::eNotOpenForWrite);
    AcDbLine* const closed = line.object();
    line.close();
    EXPECT_EQ(breachOf([&] { closed->startPoint(); }), Acad::eNotOpenForRead);
}
TEST(OpenRules, an_object_of_no_database_is_always_open) {
    AcDbLine line;
    line.setEndPoint({5.0, 0.0, 0.0});
    EXPECT_TRUE(line.isWriteEnabled());
    EXPECT_EQ(line.close(), Acad::eNotInDatabase);
    EXPECT_EQ(line.erase(), Acad::eNotInDatabase);
}
TEST(OpenRules, at_most_256_read_at_once) {
    AcDbDatabase db;
    const AcDbObjectId id = addLine(db);
    AcDbObject* object = nullptr;
    for (int i = 0; i < 256; ++i)
        ASSERT_EQ(acdbOpenAcDbObject(object, id, AcDb::kForRead), Acad::eOk);
    AcDbObject* more = nullptr;
    EXPECT_EQ(acdbOpenAcDbObject(more, id, AcDb::kForRead), Acad::eAtMaxReaders);
    for (int i = 0; i < 256; ++i)
        object->close();
}
TEST(OpenRules, a_wrong_class_is_refused_and_closed_again) {
    AcDbDatabase db;
    AcDbCircle* circle = nullptr;
    EXPECT_EQ(acdbOpenObject(circle, addLine(db)), Acad::eNotThatKindOfClass);
    EXPECT_EQ(acdbOpenObject(circle, AcDbObjectId::kNull), Acad::eNullObjectId);
}
TEST(OpenRules, an_opening_costs_next_to_nothing) {
    AcDbDatabase db;
    const AcDbObjectId id = addLine(db);
    const double took = nanosecondsARound(100000, [id] {
        AcDbObject* object = nullptr;
        acdbOpenAcDbObject(object, id, AcDb::kForWrite);
        object->close();
    });
    EXPECT_LT(took, 50.0 * kTimingSlack);
    RecordProperty("nanoseconds", std::to_string(took));
}

TEST(Erasing, an_erased_object_opens_only_on_demand) {
    AcDbDatabase db;
    const AcDbObjectId id = addLine(db);
    {
        AcDbObjectPointer<AcDbLine> line(id, AcDb::kForWrite);
        EXPECT_EQ(line->erase(), Acad::eOk);
        EXPECT_EQ(line->erase(), Acad::eWasErased);
    }
    EXPECT_TRUE(id.isErased());
    AcDbLine* line = nullptr;
    EXPECT_EQ(acdbOpenObject(line, id), Acad::eWasErased);
    ASSERT_EQ(acdbOpenObject(line, id, AcDb::kForWrite, true), Acad::eOk);
    line->erase(false);
    line->close();
    EXPECT_FALSE(id.isErased());
}
TEST(Erasing, takes_the_extension_dictionary_along) {
    AcDbDatabase db;
    AcDbObjectPointer<AcDbLine> line(addLine(db), AcDb::kForWrite);
    ASSERT_EQ(line->createExtensionDictionary(), Acad::eOk);
    EXPECT_EQ(line->createExtensionDictionary(), Acad::eAlreadyInDb);
    const AcDbObjectId extension = line->extensionDictionary();
    EXPECT_EQ(AcDbObjectPointer<AcDbDictionary>(extension)->ownerId(), line->objectId());
    line->erase();
    EXPECT_TRUE(extension.isErased());
}

TEST(Appending, gives_an_id_an_owner_and_the_standard_properties) {
    AcDbDatabase db;
    const AcDbObjectId id = addLine(db);
    AcDbObjectPointer<AcDbLine> line(id, AcDb::kForWrite);
    EXPECT_EQ(line->ownerId(), db.modelSpaceId());
    EXPECT_EQ(line->database(), &db);
    EXPECT_EQ(line->layerName(), L"0");
    EXPECT_EQ(line->linetypeName(), L"ByLayer");
    EXPECT_FALSE(line->getAcDbHandle().isNull());
    AcDbObjectId again;
    EXPECT_EQ(db.addAcDbObject(again, line.object()), Acad::eAlreadyInDb);
    EXPECT_EQ(db.getAcDbObjectId(again, false, line->getAcDbHandle()), Acad::eOk);
    EXPECT_EQ(again, id);
}
TEST(Appending, an_attribute_without_a_layer_takes_its_references) {
    AcDbDatabase db;
    AcDbObjectId layer;
    {
        AcDbObjectPointer<AcDbLayerTable> table(db.layerTableId(), AcDb::kForWrite);
        auto* const record = new AcDbLayerTableRecord;
        record->setName(L"Út");
        table->add(layer, record);
        record->close();
    }
    AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId(), AcDb::kForWrite);
    auto* const reference = new AcDbBlockReference({}, db.paperSpaceId());
    reference->setLayer(layer);
    space->appendAcDbEntity(reference);
    auto* const attribute = new AcDbAttribute;
    AcDbObjectId id;
    reference->appendAttribute(id, attribute);
    EXPECT_EQ(attribute->layerId(), layer);
    EXPECT_EQ(attribute->linetypeId(), db.byLayerLinetype());
    attribute->close();
    reference->close();
}
TEST(Appending, a_handle_that_nobody_has_can_be_pointed_to) {
    AcDbDatabase db;
    AcDbObjectId id;
    EXPECT_EQ(db.getAcDbObjectId(id, false, AcDbHandle(0xABCDE)), Acad::eUnknownHandle);
    EXPECT_EQ(db.getAcDbObjectId(id, true, AcDbHandle(0xABCDE)), Acad::eOk);
    EXPECT_FALSE(id.isValid());
    AcDbObject* object = nullptr;
    EXPECT_EQ(acdbOpenAcDbObject(object, id, AcDb::kForRead), Acad::eUnknownHandle);
    EXPECT_EQ(db.getAcDbObjectId(id, false, AcDbHandle()), Acad::eNullHandle);
    EXPECT_GT(static_cast<Adesk::UInt64>(db.handseed()), 0xABCDEu);
}

TEST(ExtendedData, replaces_the_applications_that_the_chain_names) {
    AcDbLine line;
    resbuf* const two = acutBuildList(1001, L"EGY", 1000, L"a", 1070, 5, 1001, L"KETTO", 1040, 2.5, 0);
    EXPECT_EQ(line.setXData(two), Acad::eOk);
    acutRelRb(two);
    resbuf* const one = acutBuildList(1001, L"egy", 1000, L"b", 0);
    line.setXData(one);
    acutRelRb(one);
    resbuf* const read = line.xData(L"EGY");
    ASSERT_NE(read, nullptr);
    EXPECT_STREQ(read->rbnext->resval.rstring, L"b");
    EXPECT_EQ(read->rbnext->rbnext, nullptr);
    acutRelRb(read);
    resbuf* const all = line.xData();
    int items = 0;
    for (const resbuf* item = all; item != nullptr; item = item->rbnext)
        ++items;
    EXPECT_EQ(items, 4);
    acutRelRb(all);
    resbuf* const nameAlone = acutBuildList(1001, L"KETTO", 0);
    line.setXData(nameAlone);
    acutRelRb(nameAlone);
    EXPECT_EQ(line.xData(L"KETTO"), nullptr);
    resbuf* const headless = acutBuildList(1000, L"x", 0);
    EXPECT_EQ(line.setXData(headless), Acad::eInvalidInput);
    acutRelRb(headless);
}
TEST(ExtendedData, goes_with_a_clone) {
    AcDbLine line({1.0, 2.0, 3.0}, {4.0, 5.0, 6.0});
    resbuf* const simple = acutBuildList(1001, L"APP", 1000, L"a", 0);
    line.setXData(simple);
    acutRelRb(simple);
    line.setColorIndex(3);
    const std::unique_ptr<AcDbLine> copy(AcDbLine::cast(line.clone()));
    ASSERT_NE(copy, nullptr);
    EXPECT_TRUE(copy->endPoint().isEqualTo({4.0, 5.0, 6.0}));
    EXPECT_EQ(copy->colorIndex(), 3);
    resbuf* const read = copy->xData(L"APP");
    ASSERT_NE(read, nullptr);
    acutRelRb(read);
}
TEST(Copies, take_the_content_and_leave_the_object_in_its_drawing) {
    AcDbDatabase db;
    const AcDbLine source({1.0, 2.0, 3.0}, {4.0, 5.0, 6.0});
    AcDbObjectPointer<AcDbLine> line(addLine(db), AcDb::kForWrite);
    const AcDbHandle handle = line->getAcDbHandle();
    const AcDbObjectId owner = line->ownerId();
    EXPECT_EQ(line->copyFrom(&source), Acad::eOk);
    EXPECT_TRUE(line->startPoint().isEqualTo({1.0, 2.0, 3.0}));
    EXPECT_EQ(line->getAcDbHandle(), handle);
    EXPECT_EQ(line->ownerId(), owner);
}
TEST(Copies, of_nothing_or_of_another_class_are_refused) {
    AcDbLine line({1.0, 2.0, 3.0}, {4.0, 5.0, 6.0});
    EXPECT_EQ(line.copyFrom(nullptr), Acad::eNullObjectPointer);
    EXPECT_EQ(line.copyFrom(std::make_unique<AcDbCircle>().get()), Acad::eNotThatKindOfClass);
    EXPECT_TRUE(line.endPoint().isEqualTo({4.0, 5.0, 6.0}));
}
TEST(Reactors, are_kept_once) {
    AcDbDatabase db;
    AcDbObjectPointer<AcDbLine> line(addLine(db), AcDb::kForWrite);
    line->addPersistentReactor(db.modelSpaceId());
    line->addPersistentReactor(db.modelSpaceId());
    EXPECT_EQ(line->persistentReactors().length(), 1);
    line->removePersistentReactor(db.modelSpaceId());
    EXPECT_EQ(line->persistentReactors().length(), 0);
}
