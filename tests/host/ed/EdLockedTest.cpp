// Commands and locked layers: what is drawn, copied and defined there, and what stays.
#include "AcDbBlockReference.h"
#include "AcDbEntities.h"
#include "EdSession.h"
#include "core/EdProperties.h"
#include "grips/EdGrips.h"

#include <gtest/gtest.h>

TEST(EdLocked, a_copy_goes_to_its_place_on_the_locked_layer) {
    EdSession user;
    user.type({L"LAYER M Fixed LOCK Fixed", L"", L"POINT 1,0", L"COPY ALL", L"", L"0,0 5,0"});
    ASSERT_EQ(user.entities().size(), 2u);
    const AcDbObjectPointer<AcDbPoint> copy(user.entities()[1]);
    EXPECT_DOUBLE_EQ(copy->position().x, 6.0);
    EXPECT_EQ(copy->layerName(), L"Fixed");
    EXPECT_FALSE(user.printed(L"could not be changed"));
}
TEST(EdLocked, a_segment_just_drawn_is_taken_back_on_the_locked_layer) {
    EdSession user;
    user.type({L"LAYER M Fixed LOCK Fixed", L"", L"LINE 0,0 1,0 2,0 U", L""});
    EXPECT_EQ(user.entities().size(), 1u);
}
TEST(EdLocked, a_reference_on_the_locked_layer_gets_its_attributes) {
    EdSession user;
    user.type({L"CIRCLE 0,0 1", L"ATTDEF", L"", L"SPEED", L"Speed limit", L"50", L"0,0 0.5 0", L"BLOCK Sign 0,0 ALL", L"",
               L"LAYER M Fixed LOCK Fixed", L"", L"INSERT Sign 10,0 2 2 90", L"70"});
    const auto reference = user.only<AcDbBlockReference>();
    ASSERT_TRUE(reference);
    const std::unique_ptr<AcDbObjectIterator> attributes(reference->attributeIterator());
    ASSERT_FALSE(attributes->done());
    const AcDbObjectPointer<AcDbAttribute> attribute(attributes->objectId());
    EXPECT_STREQ(attribute->textStringConst(), L"70");
}
TEST(EdLocked, a_definition_is_made_anew_whatever_layers_its_objects_lie_on) {
    EdSession user;
    user.type({L"LAYER M Fixed", L"", L"LINE 0,0 1,0", L"", L"BLOCK Sign 0,0 ALL", L"", L"LAYER LOCK Fixed S 0", L"", L"LINE 0,0 9,0", L"", L"LINE 0,0 9,9", L"",
               L"BLOCK Sign Y 0,0 ALL", L""});
    AcDbDatabase& db = user.db();
    const AcDbObjectPointer<AcDbBlockTableRecord> block(edFindRecord<AcDbBlockTable>(db, L"Sign"));
    ASSERT_TRUE(block);
    AcDbExtents box;
    ASSERT_EQ(block->getGeomExtents(box), Acad::eOk);
    EXPECT_EQ(block->entityIds().length(), 3);
    EXPECT_TRUE(block->entityIds()[0].isErased()) << "the line of before";
    EXPECT_DOUBLE_EQ(box.maxPoint().y, 9.0);
}
TEST(EdLocked, a_grip_tells_why_it_does_not_move) {
    EdSession user;
    user.type({L"LAYER M Fixed", L"", L"POINT 1,0", L"LAYER LOCK Fixed", L""});
    AcDbObjectIdArray ids;
    ids.append(user.entities()[0]);
    const std::vector<EdGrip> grips = edGripsOf(ids);
    ASSERT_EQ(grips.size(), 1u) << "it can be selected";
    EXPECT_EQ(edDragGrip(grips[0], {5.0, 0.0, 0.0}), Acad::eOnLockedLayer);
    EXPECT_DOUBLE_EQ(AcDbObjectPointer<AcDbPoint>(ids[0])->position().x, 1.0);
}
TEST(EdLocked, the_lock_is_taken_back_before_the_change_that_it_came_after) {
    EdSession user;
    user.type({L"LAYER M Fixed", L"", L"POINT 1,0", L"MOVE L", L"", L"0,0 5,0", L"LAYER LOCK Fixed", L"", L"U", L"U"});
    EXPECT_DOUBLE_EQ(user.only<AcDbPoint>()->position().x, 1.0);
}
