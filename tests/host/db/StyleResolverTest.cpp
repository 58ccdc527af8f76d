#include "DbStyleResolver.h"

#include <gtest/gtest.h>

namespace {
AcDbObjectId addLayer(AcDbDatabase& db, const ACHAR* name, AcDbLayerTableRecord*& open) {
    AcDbObjectPointer<AcDbLayerTable> table(db.layerTableId(), AcDb::kForWrite);
    open = new AcDbLayerTableRecord;
    open->setName(name);
    AcDbObjectId id;
    EXPECT_EQ(table->add(id, open), Acad::eOk);
    return id;
}
} // namespace

TEST(StyleResolver, tells_what_a_layer_looks_like_even_while_it_is_open) {
    AcDbDatabase db;
    AcDbLayerTableRecord* layer = nullptr;
    const AcDbObjectId id = addLayer(db, L"Út", layer);
    layer->setColor(AcCmEntityColor::fromIndex(3));
    layer->setLineWeight(AcDb::kLnWt050);
    const DbStyleResolver resolver(db);
    EXPECT_EQ(resolver.layerColor(id).colorIndex(), 3);
    EXPECT_EQ(resolver.layerLineWeight(id), AcDb::kLnWt050);
    EXPECT_EQ(resolver.layerLineType(id), db.continuousLinetype());
    EXPECT_TRUE(resolver.isVisible(id));
    layer->setIsOff(true);
    EXPECT_FALSE(resolver.isVisible(id));
    EXPECT_FALSE(resolver.isFrozen(id));
    layer->setIsOff(false);
    layer->setIsPlottable(false);
    EXPECT_TRUE(resolver.isVisible(id));
    EXPECT_FALSE(resolver.isPlottable(id));
    layer->close();
}
TEST(StyleResolver, takes_layer_zero_for_an_unknown_layer_and_by_layer_for_no_line_type) {
    AcDbDatabase db;
    const DbStyleResolver resolver(db);
    EXPECT_TRUE(resolver.isLayerZero(AcDbObjectId::kNull));
    EXPECT_EQ(resolver.layerColor(AcDbObjectId::kNull).colorIndex(), 7);
    EXPECT_TRUE(resolver.isByLayerLineType(AcDbObjectId::kNull));
    EXPECT_FALSE(resolver.isByBlockLineType(AcDbObjectId::kNull));
    EXPECT_TRUE(resolver.isByBlockLineType(db.byBlockLinetype()));
    EXPECT_TRUE(resolver.dashes(db.continuousLinetype()).empty());
    db.setLtscale(0.5);
    EXPECT_DOUBLE_EQ(resolver.lineTypeScale(), 0.5);
}
TEST(StyleResolver, keeps_dimension_points_off_the_paper) {
    AcDbDatabase db;
    AcDbLayerTableRecord* layer = nullptr;
    const AcDbObjectId id = addLayer(db, L"DEFPOINTS", layer);
    layer->close();
    EXPECT_FALSE(DbStyleResolver(db).isPlottable(id));
}
