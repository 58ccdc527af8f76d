// What a new entity looks like when it is appended: what it was given, and for the rest what the drawing
// gives to new objects.
#include "AcDbDatabase.h"
#include "AcDbEntities.h"

#include <gtest/gtest.h>

namespace {
struct Drawing {
    AcDbDatabase db;
    AcDbObjectId layer;
    Drawing() {
        acdbHostApplicationServices()->setWorkingDatabase(&db);
        AcDbObjectPointer<AcDbLayerTable> table(db.layerTableId(), AcDb::kForWrite);
        auto* const record = new AcDbLayerTableRecord;
        record->setName(L"KRESZ");
        table->add(layer, record);
        record->close();
        db.setClayer(layer);
        db.setCecolor(AcCmEntityColor::fromIndex(1));
        db.setCeltype(db.continuousLinetype());
        db.setCeltscale(2.5);
        db.setCelweight(AcDb::kLnWt035);
    }
};
class NewEntity : public testing::Test {
protected:
    AcDbObjectPointer<AcDbEntity> append(AcDbEntity* entity, AcDbDatabase* to = nullptr) {
        AcDbObjectPointer<AcDbBlockTableRecord> space((to != nullptr ? to : &drawing.db)->modelSpaceId(), AcDb::kForWrite);
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
        entity->close();
        return AcDbObjectPointer<AcDbEntity>(id, AcDb::kForWrite);
    }
    void expectCurrent(const AcDbEntity& entity) {
        EXPECT_EQ(entity.layerId(), drawing.layer);
        EXPECT_EQ(entity.colorIndex(), 1);
        EXPECT_EQ(entity.linetypeId(), drawing.db.continuousLinetype());
        EXPECT_DOUBLE_EQ(entity.linetypeScale(), 2.5);
        EXPECT_EQ(entity.lineWeight(), AcDb::kLnWt035);
    }
    void expectByLayerOnZero(const AcDbEntity& entity) {
        EXPECT_EQ(entity.layerId(), drawing.db.layerZero());
        EXPECT_TRUE(entity.color().isByLayer());
        EXPECT_EQ(entity.linetypeId(), drawing.db.byLayerLinetype());
        EXPECT_DOUBLE_EQ(entity.linetypeScale(), 1.0);
        EXPECT_EQ(entity.lineWeight(), AcDb::kLnWtByLayer);
    }
    static void makeByLayerOnZero(AcDbEntity& entity, AcDbDatabase& db) {
        entity.setLayer(db.layerZero());
        entity.setColorIndex(256);
        entity.setLinetype(db.byLayerLinetype());
        entity.setLinetypeScale(1.0);
        entity.setLineWeight(AcDb::kLnWtByLayer);
    }
    Drawing drawing;
};
} // namespace

TEST_F(NewEntity, takes_every_current_property_that_it_was_not_given) {
    expectCurrent(*append(new AcDbLine).object());
}
TEST_F(NewEntity, keeps_what_was_set_to_the_usual_value) {
    auto* const line = new AcDbLine;
    makeByLayerOnZero(*line, drawing.db);
    expectByLayerOnZero(*append(line).object());
}
TEST_F(NewEntity, takes_them_one_by_one) {
    auto* const line = new AcDbLine;
    line->setLayer(L"0");
    line->setLineWeight(AcDb::kLnWtByLayer);
    const auto added = append(line);
    EXPECT_EQ(added->layerName(), L"0");
    EXPECT_EQ(added->lineWeight(), AcDb::kLnWtByLayer);
    EXPECT_EQ(added->colorIndex(), 1);
    EXPECT_EQ(added->linetypeId(), drawing.db.continuousLinetype());
    EXPECT_DOUBLE_EQ(added->linetypeScale(), 2.5);
    auto* const other = new AcDbLine;
    other->setColorIndex(256);
    other->setLinetype(drawing.db.byLayerLinetype());
    other->setLinetypeScale(1.0);
    const auto second = append(other);
    EXPECT_TRUE(second->color().isByLayer());
    EXPECT_EQ(second->linetypeId(), drawing.db.byLayerLinetype());
    EXPECT_DOUBLE_EQ(second->linetypeScale(), 1.0);
    EXPECT_EQ(second->layerId(), drawing.layer);
    EXPECT_EQ(second->lineWeight(), AcDb::kLnWt035);
}
TEST_F(NewEntity, that_asked_earlier_has_those_of_then) {
    auto* const line = new AcDbLine;
    line->setColorIndex(5);
    line->setDatabaseDefaults(&drawing.db);
    EXPECT_EQ(line->colorIndex(), 1) << "all of them, whatever was set before";
    drawing.db.setClayer(drawing.db.layerZero());
    drawing.db.setCecolor(AcCmEntityColor::fromIndex(3));
    expectCurrent(*append(line).object());
}
TEST_F(NewEntity, takes_those_of_the_drawing_that_it_joins) {
    AcDbDatabase side(true, true);
    side.setCecolor(AcCmEntityColor::fromIndex(4));
    const auto added = append(new AcDbLine, &side);
    EXPECT_EQ(added->colorIndex(), 4);
    EXPECT_EQ(added->layerId(), side.layerZero());
}
TEST_F(NewEntity, copied_from_an_object_of_the_drawing_keeps_that_ones) {
    auto* const line = new AcDbLine;
    makeByLayerOnZero(*line, drawing.db);
    const std::unique_ptr<AcDbLine> copy(AcDbLine::cast(append(line)->clone()));
    expectByLayerOnZero(*append(AcDbLine::cast(copy->clone())).object());
    auto* const like = new AcDbCircle;
    like->setPropertiesFrom(copy.get());
    expectByLayerOnZero(*append(like).object());
}
TEST_F(NewEntity, copied_from_one_that_was_given_none_takes_them_still) {
    AcDbLine original;
    original.setLineWeight(AcDb::kLnWtByLayer);
    const std::unique_ptr<AcDbLine> edited(AcDbLine::cast(original.clone()));
    edited->setEndPoint({9.0, 0.0, 0.0});
    auto* const line = new AcDbLine;
    ASSERT_EQ(line->copyFrom(edited.get()), Acad::eOk);
    const auto added = append(line);
    EXPECT_EQ(added->layerId(), drawing.layer);
    EXPECT_EQ(added->colorIndex(), 1);
    EXPECT_EQ(added->lineWeight(), AcDb::kLnWtByLayer) << "this one was given";
    auto* const like = new AcDbLine;
    like->setPropertiesFrom(edited.get());
    EXPECT_EQ(append(like)->layerId(), drawing.layer);
}
TEST_F(NewEntity, that_an_explosion_made_keeps_its_own) {
    AcDbPolyline polyline;
    polyline.addVertexAt(0, {0.0, 0.0});
    polyline.addVertexAt(1, {5.0, 0.0});
    AcDbVoidPtrArray parts;
    ASSERT_EQ(polyline.explode(parts), Acad::eOk);
    ASSERT_EQ(parts.length(), 1);
    expectByLayerOnZero(*append(static_cast<AcDbEntity*>(parts[0])).object());
}
TEST_F(NewEntity, that_was_cloned_into_the_drawing_keeps_its_own) {
    auto* const line = new AcDbLine;
    makeByLayerOnZero(*line, drawing.db);
    AcDbObjectIdArray ids;
    ids.append(append(line)->objectId());
    AcDbIdMapping map;
    ASSERT_EQ(drawing.db.deepCloneObjects(ids, drawing.db.modelSpaceId(), map), Acad::eOk);
    AcDbIdPair pair;
    pair.key = ids[0];
    ASSERT_TRUE(map.compute(pair));
    expectByLayerOnZero(*AcDbObjectPointer<AcDbLine>(pair.value).object());
}
