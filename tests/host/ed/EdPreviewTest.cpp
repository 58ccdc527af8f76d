// The preview that a drawing's file bears: what a reference to the drawing would show.
#include "core/EdPreview.h"

#include "AcDbDatabase.h"
#include "AcDbEntities.h"

#include <gtest/gtest.h>

namespace {
using Dib = std::vector<Adesk::UInt8>;
constexpr int kHeaderSize = 40 + 256 * 4;

int widthOf(const Dib& dib) {
    return dib[4] + 256 * dib[5];
}
int heightOf(const Dib& dib) {
    return dib[8] + 256 * dib[9];
}
// Brightness, 0 to 255, of a place counted from the lower left corner.
int grayAt(const Dib& dib, int x, int y) {
    const std::size_t stride = (static_cast<std::size_t>(widthOf(dib)) + 3) / 4 * 4;
    const std::size_t entry =
        40 + 4 * std::size_t{dib[kHeaderSize + stride * static_cast<std::size_t>(y) + static_cast<std::size_t>(x)]};
    return (dib[entry] + dib[entry + 1] + dib[entry + 2]) / 3;
}
// Dark places in the middle of the picture, where the frame of the drawings below does not come.
int inkInTheMiddle(const Dib& dib) {
    int ink = 0;
    for (int y = heightOf(dib) / 4; y < heightOf(dib) * 3 / 4; ++y)
        for (int x = widthOf(dib) * 3 / 8; x < widthOf(dib) * 5 / 8; ++x)
            ink += grayAt(dib, x, y) < 128 ? 1 : 0;
    return ink;
}
void add(AcDbDatabase& db, std::unique_ptr<AcDbEntity> entity) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId(), AcDb::kForWrite);
    AcDbObjectId id;
    ASSERT_EQ(space->appendAcDbEntity(id, entity.get()), Acad::eOk);
    entity.release()->close();
}
// The preview of a box one unit wide with an attribute in its middle.
Dib previewWith(const wchar_t* value, bool invisible = false) {
    AcDbDatabase db;
    auto box = std::make_unique<AcDbPolyline>();
    for (const AcGePoint2d& corner :
         {AcGePoint2d(-0.5, -0.5), AcGePoint2d(0.5, -0.5), AcGePoint2d(0.5, 0.5), AcGePoint2d(-0.5, 0.5)})
        box->addVertexAt(box->numVerts(), corner);
    box->setClosed(true);
    add(db, std::move(box));
    auto definition = std::make_unique<AcDbAttributeDefinition>();
    definition->setTag(L"SEBESSEG");
    definition->setTextString(value);
    definition->setHeight(0.36);
    definition->setInvisible(invisible);
    definition->setHorizontalMode(AcDb::kTextCenter);
    definition->setVerticalMode(AcDb::kTextVertMid);
    definition->setAlignmentPoint({0.0, 0.0, 0.0});
    definition->adjustAlignment(&db);
    add(db, std::move(definition));
    return edPreviewBitmap(db);
}
} // namespace

TEST(EdPreview, shows_the_value_of_an_attribute_definition_in_its_place) {
    EXPECT_GT(inkInTheMiddle(previewWith(L"40")), 100);
    EXPECT_GT(inkInTheMiddle(previewWith(L"40")), inkInTheMiddle(previewWith(L"1")));
}
TEST(EdPreview, an_attribute_definition_without_a_value_shows_no_tag_either) {
    EXPECT_EQ(inkInTheMiddle(previewWith(L"")), 0);
}
TEST(EdPreview, an_invisible_attribute_stays_unseen) {
    EXPECT_EQ(inkInTheMiddle(previewWith(L"40", true)), 0);
}
