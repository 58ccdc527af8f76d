// Line weights in a drawing file: the numbers of the format, and the way through a file.
#include "AcDbDatabase.h"
#include "AcPath.h"
#include "DbObjectAccess.h"
#include "DwgCodec.h"
#include "DwgCommonData.h"
#include "Samples.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <iterator>
#include <map>

namespace {
// Of the open description of the format: the number of a weight is its place in this list.
constexpr int kByNumber[] = {0, 5, 9, 13, 15, 18, 20, 25, 30, 35, 40, 50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
constexpr std::pair<unsigned, int> kOthers[] = {{29, -1}, {30, -2}, {31, -3}}; // by layer, by block, default
} // namespace

TEST(DwgLineWeight, each_of_the_24_has_its_number_and_so_have_the_three_that_are_no_width) {
    ASSERT_EQ(std::size(kByNumber), 24u);
    for (unsigned number = 0; number < std::size(kByNumber); ++number) {
        EXPECT_EQ(dwgLineWeight(number), kByNumber[number]);
        EXPECT_EQ(dwgLineWeightNumber(kByNumber[number]), number);
    }
    for (const auto& [number, weight] : kOthers) {
        EXPECT_EQ(dwgLineWeight(number), weight);
        EXPECT_EQ(dwgLineWeightNumber(weight), number);
    }
    for (const unsigned unknown : {24u, 28u, 32u, 255u})
        EXPECT_EQ(dwgLineWeight(unknown), -1) << unknown;
    EXPECT_EQ(dwgLineWeightNumber(14), 29u);
}

TEST(DwgLineWeight, entities_and_layers_come_back_with_each_of_them) {
    dwgInstallCodec();
    const std::wstring path = testTempDir() + L"\\a.dwg";
    std::map<Adesk::UInt64, int> expected; // by handle
    AcDbDatabase db;
    for (const int weight : kByNumber) {
        auto* const line = new AcDbLine({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
        const AcDbObjectId lineId = sampleAppend(db, line); // with the drawing's current properties
        ASSERT_EQ((AcDbObjectPointer<AcDbEntity>(lineId, AcDb::kForWrite)->setLineWeight(static_cast<AcDb::LineWeight>(weight))), Acad::eOk);
        expected[lineId.handle()] = weight;
        auto* const layer = new AcDbLayerTableRecord;
        layer->setName((L"W" + std::to_wstring(weight)).c_str());
        AcDbObjectId id;
        ASSERT_EQ(AcDbObjectPointer<AcDbLayerTable>(db.layerTableId(), AcDb::kForWrite)->add(id, layer), Acad::eOk);
        layer->setLineWeight(static_cast<AcDb::LineWeight>(weight));
        layer->close();
        expected[id.handle()] = weight;
    }
    ASSERT_EQ(db.saveAs(path.c_str()), Acad::eOk);
    AcDbDatabase again(false);
    ASSERT_EQ(again.readDwgFile(path.c_str()), Acad::eOk);
    for (const auto& [handle, weight] : expected) {
        AcDbObjectId id;
        ASSERT_EQ(again.getAcDbObjectId(id, false, AcDbHandle(handle)), Acad::eOk);
        const bool isLayer = AcDbLayerTableRecord::cast(DbObjectAccess::peek(id)) != nullptr;
        EXPECT_EQ(isLayer ? AcDbObjectPointer<AcDbLayerTableRecord>(id)->lineWeight() : AcDbObjectPointer<AcDbEntity>(id)->lineWeight(), weight);
    }
}
