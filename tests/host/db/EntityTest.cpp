// What every entity has: properties, filing of the common fields, grips' data, highlight.
#include "AcDbDatabase.h"
#include "AcDbEntities.h"
#include "DbObjectAccess.h"

#include "AcUtText.h"

#include <gtest/gtest.h>

namespace {
AcDbObjectId addLine(AcDbDatabase& db) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId(), AcDb::kForWrite);
    auto* const line = new AcDbLine({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
    AcDbObjectId id;
    space->appendAcDbEntity(id, line);
    line->close();
    return id;
}
struct WorkingDatabase {
    AcDbDatabase db;
    WorkingDatabase() { acdbHostApplicationServices()->setWorkingDatabase(&db); }
};
// What dwgOut writes through a filer of that type, counted in bytes.
std::size_t bytesFiled(const AcDbObject& object, AcDb::FilerType type) {
    AcDbDeepCloneFiler filer(type);
    object.dwgOut(&filer);
    return filer.byteSize();
}
} // namespace

TEST(EntityFiling, a_file_keeps_a_resident_entitys_common_fields_in_its_record) {
    AcDbDatabase db;
    AcDbObjectPointer<AcDbLine> line(addLine(db), AcDb::kForWrite);
    line->setColorIndex(3);
    AcDbDeepCloneFiler filer(AcDb::kFileFiler);
    ASSERT_EQ(line->dwgOut(&filer), Acad::eOk);
    line->setColorIndex(5);
    filer.seek(0, 0);
    ASSERT_EQ(line->dwgIn(&filer), Acad::eOk);
    EXPECT_EQ(line->colorIndex(), 5) << "the colour is no part of the fields";
    EXPECT_LT(bytesFiled(*line.object(), AcDb::kFileFiler), bytesFiled(*line.object(), AcDb::kUndoFiler));
}
TEST(EntityFiling, an_entity_inside_another_carries_its_common_fields_into_the_file) {
    AcDbDatabase db;
    AcDbLine line({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
    line.setColor(AcCmColor(AcCmEntityColor(1, 2, 3)));
    line.setLayer(db.layerZero());
    line.setLineWeight(AcDb::kLnWt030);
    line.setVisibility(AcDb::kInvisible);
    line.setLinetypeScale(2.5);
    AcDbDeepCloneFiler filer(AcDb::kFileFiler);
    ASSERT_EQ(line.dwgOut(&filer), Acad::eOk);
    filer.seek(0, 0);
    AcDbLine read;
    ASSERT_EQ(read.dwgIn(&filer), Acad::eOk);
    EXPECT_EQ(read.color(), line.color());
    EXPECT_EQ(read.layerId(), db.layerZero());
    EXPECT_EQ(read.lineWeight(), AcDb::kLnWt030);
    EXPECT_EQ(read.visibility(), AcDb::kInvisible);
    EXPECT_DOUBLE_EQ(read.linetypeScale(), 2.5);
}
TEST(EntityFiling, a_listing_tells_the_common_fields_before_the_classs_own) {
    AcDbDatabase db;
    AcDbObjectPointer<AcDbLine> line(addLine(db));
    AcDbRecordingFiler filer;
    ASSERT_EQ(line->dwgOut(&filer), Acad::eOk);
    ASSERT_GT(filer.lines().size(), 7u);
    EXPECT_EQ(filer.lines()[0], L"writeUInt8 192") << "colour by layer";
    EXPECT_EQ(filer.lines()[2], L"writeHardPointerId " + db.layerZero().handle().text());
}
TEST(EntityFiling, a_clone_read_back_leaves_the_owner_alone) {
    AcDbDatabase db;
    AcDbObjectPointer<AcDbLine> line(addLine(db), AcDb::kForWrite);
    const std::unique_ptr<AcDbLine> copy(AcDbLine::cast(line->clone()));
    copy->setEndPoint({9.0, 0.0, 0.0});
    AcDbDeepCloneFiler filer;
    copy->dwgOut(&filer);
    filer.seek(0, 0);
    ASSERT_EQ(line->dwgIn(&filer), Acad::eOk);
    EXPECT_DOUBLE_EQ(line->endPoint().x, 9.0);
    EXPECT_EQ(line->ownerId(), db.modelSpaceId());
    EXPECT_TRUE(copy->ownerId().isNull());
}

TEST(EntityProperties, of_a_loose_entity_are_read_from_the_working_drawing) {
    WorkingDatabase working;
    AcDbLine line;
    EXPECT_EQ(line.layerName(), L"0");
    EXPECT_EQ(line.linetypeName(), L"ByLayer");
    EXPECT_EQ(line.setLayer(L"nincs"), Acad::eKeyNotFound);
    EXPECT_EQ(line.setLinetype(L"CONTINUOUS"), Acad::eOk);
    EXPECT_EQ(line.linetypeId(), working.db.continuousLinetype());
    EXPECT_EQ(line.setLayer(working.db.continuousLinetype()), Acad::eInvalidInput);
    ACHAR* name = line.linetype();
    EXPECT_STREQ(name, L"Continuous");
    acutDelString(name);
    EXPECT_EQ(line.setLinetypeScale(0.0), Acad::eInvalidInput);
    EXPECT_EQ(line.setColorIndex(300), Acad::eInvalidInput);
}
TEST(EntityProperties, without_a_working_drawing_are_still_told) {
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    const AcDbLine line;
    EXPECT_EQ(line.layerName(), L"0");
    EXPECT_EQ(line.linetypeName(), L"ByLayer");
    EXPECT_TRUE(line.layerId().isNull());
}
TEST(EntityProperties, the_layers_name_is_told_while_the_layer_is_open_for_write) {
    AcDbDatabase db;
    AcDbObjectPointer<AcDbLine> line(addLine(db));
    AcDbObjectPointer<AcDbLayerTableRecord> layer(db.layerZero(), AcDb::kForWrite);
    EXPECT_EQ(line->layerName(), L"0");
}
TEST(EntityState, a_change_marks_the_picture_until_it_is_made) {
    AcDbDatabase db;
    AcDbObjectPointer<AcDbLine> line(addLine(db), AcDb::kForWrite);
    line->recordGraphicsModified(false);
    EXPECT_FALSE(line->isGraphicsModified());
    line->setEndPoint({3.0, 0.0, 0.0});
    EXPECT_TRUE(line->isGraphicsModified());
}
TEST(EntityState, highlight_is_a_flag_of_the_entity) {
    const AcDbLine line;
    line.highlight();
    EXPECT_TRUE(line.isHighlighted());
    line.unhighlight();
    EXPECT_FALSE(line.isHighlighted());
}
TEST(EntityState, subClose_is_called_after_a_change_only) {
    static int calls;
    calls = 0;
    struct Watched : AcDbLine {
        void subClose() override { ++calls; }
    };
    AcDbDatabase db;
    AcDbObjectId id;
    {
        AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId(), AcDb::kForWrite);
        auto* const line = new Watched;
        space->appendAcDbEntity(id, line);
        line->close();
    }
    EXPECT_EQ(calls, 0);
    AcDbObjectPointer<AcDbLine>(id, AcDb::kForWrite)->startPoint();
    EXPECT_EQ(calls, 0);
    AcDbObjectPointer<AcDbLine>(id, AcDb::kForWrite)->setStartPoint({1.0, 1.0, 1.0});
    EXPECT_EQ(calls, 1);
}
TEST(Grip, releases_its_data_with_the_function_it_was_given) {
    static int released;
    released = 0;
    {
        AcDbGripData grip;
        grip.setAppData(&released);
        grip.setAppDataFreeFunc([](void* data) { ++*static_cast<int*>(data); });
        grip.setRubberBandLineDisabled(true);
        grip.setAreModeKeywordsDisabled(true);
        grip.setRubberBandLineDisabled(false);
        EXPECT_EQ(grip.bitFlags(), 4u);
    }
    EXPECT_EQ(released, 1);
}
TEST(Proxy, keeps_its_record_and_graphics_through_undo) {
    AcDbDatabase db;
    AcDbObjectId id;
    {
        AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId(), AcDb::kForWrite);
        auto* const proxy = new AcDbProxyEntity;
        DbRawRecord raw;
        raw.bytes = {9, 8, 7};
        DbObjectAccess::data(*proxy).raw = raw;
        DbObjectAccess::data(*proxy).proxyGraphics = {1, 2};
        space->appendAcDbEntity(id, proxy);
        proxy->close();
    }
    db.startUndoRecord();
    {
        AcDbObjectPointer<AcDbProxyEntity> proxy(id, AcDb::kForWrite);
        proxy->setColorIndex(1);
        DbObjectAccess::data(*proxy.object()).raw->bytes.clear();
        DbObjectAccess::data(*proxy.object()).proxyGraphics.clear();
    }
    ASSERT_TRUE(db.undo());
    AcDbObjectPointer<AcDbProxyEntity> proxy(id);
    const AcDbObjectImpData& data = *DbObjectAccess::dataIfAny(*proxy.object());
    EXPECT_EQ(data.raw->bytes, (std::vector<Adesk::UInt8>{9, 8, 7}));
    EXPECT_FALSE(data.raw->referencesChanged);
    EXPECT_EQ(data.proxyGraphics, (std::vector<Adesk::UInt8>{1, 2}));
}
