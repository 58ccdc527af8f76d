// The shared drawing functions: numbers, traits, display properties, fading colours, look-ups.
#include "AppFixture.h"

#include "TrfcDrawingUtils.h"

#include "AcEdAds.h"
#include "AcEdCommandStack.h"
#include "AcGiReceivers.h"
#include "AfxDialogDriver.h"
#include "TestSupport.h"

#include <fstream>

class DrawingUtils : public AppFixture {};

namespace {
std::unique_ptr<AcDbLine> lineOfColor(int index) {
    auto line = std::make_unique<AcDbLine>(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
    line->setColorIndex(static_cast<Adesk::UInt16>(index));
    return line;
}

// A line type file with one type.
void writeLineTypes(const std::string& path, const std::string& name) {
    std::ofstream(path) << "*" << name << ", _ _ _\nA,1,-1\n";
}

// Stands in for the host's zoom and keeps what it was answered with.
std::vector<std::wstring>& zoomAnswers() {
    static std::vector<std::wstring> answers;
    return answers;
}
void takeZoom() {
    ACHAR answer[133];
    for (int i = 0; i < 2; ++i)
        if (acedGetString(1, L"", answer) == RTNORM)
            zoomAnswers().emplace_back(answer);
}
} // namespace

TEST_F(DrawingUtils, trim_number_takes_off_zeros_behind_the_point_only) {
    EXPECT_EQ(trimNumber(L"2.500"), L"2.5");
    EXPECT_EQ(trimNumber(L"3.000"), L"3");
    EXPECT_EQ(trimNumber(L"1200"), L"1200");
    EXPECT_EQ(trimNumber(L"0.500000"), L"0.5");
    EXPECT_EQ(trimNumber(L""), L"");
}

TEST_F(DrawingUtils, restored_traits_are_those_that_were_saved) {
    GiDisplayListBuilder builder;
    AcGiSubEntityTraits& traits = builder.worldDraw().subEntityTraits();
    traits.setColor(3);
    traits.setLineWeight(AcDb::kLnWt050);
    traits.setLineTypeScale(2.0);
    traits.setLayer(database().layerZero());
    saveTraits(&builder.worldDraw());
    traits.setColor(1);
    traits.setLineWeight(AcDb::kLnWt000);
    traits.setLineTypeScale(1.0);
    traits.setLayer(AcDbObjectId::kNull);
    restoreTraits(&builder.worldDraw());
    EXPECT_EQ(traits.color(), 3);
    EXPECT_EQ(traits.lineWeight(), AcDb::kLnWt050);
    EXPECT_DOUBLE_EQ(traits.lineTypeScale(), 2.0);
    EXPECT_EQ(traits.layerId(), database().layerZero());
}

TEST_F(DrawingUtils, a_save_inside_a_save_overwrites_the_outer_one) {
    GiDisplayListBuilder builder;
    AcGiSubEntityTraits& traits = builder.worldDraw().subEntityTraits();
    traits.setColor(3);
    saveTraits(&builder.worldDraw());
    traits.setColor(5);
    saveTraits(&builder.worldDraw());
    traits.setColor(1);
    restoreTraits(&builder.worldDraw());
    restoreTraits(&builder.worldDraw());
    EXPECT_EQ(traits.color(), 5);
}

TEST_F(DrawingUtils, an_entity_by_layer_or_by_block_leaves_the_colour_of_the_traits) {
    GiDisplayListBuilder builder;
    AcGiSubEntityTraits& traits = builder.worldDraw().subEntityTraits();
    traits.setColor(4);
    for (const int index : {0, 256}) {
        applyEntityToTraits(lineOfColor(index).get(), &builder.worldDraw());
        EXPECT_EQ(traits.color(), 4);
    }
    applyEntityToTraits(lineOfColor(6).get(), &builder.worldDraw());
    EXPECT_EQ(traits.color(), 6);
}

TEST_F(DrawingUtils, display_properties_are_copied_with_the_width_of_texts) {
    AcDbText source(AcGePoint3d(), L"a", AcDbObjectId::kNull, 1.0), text;
    AcDbMText mtext;
    source.setColor(AcCmColor(10, 20, 30));
    source.setLineWeight(AcDb::kLnWt035);
    source.setLinetypeScale(3.0);
    source.setWidthFactor(0.8);
    copyDisplayProperties(&source, &text);
    copyDisplayProperties(&source, &mtext);
    EXPECT_EQ(text.color(), source.color());
    EXPECT_EQ(text.lineWeight(), AcDb::kLnWt035);
    EXPECT_DOUBLE_EQ(text.linetypeScale(), 3.0);
    EXPECT_DOUBLE_EQ(text.widthFactor(), 0.8);
    EXPECT_DOUBLE_EQ(mtext.width(), 0.8);
}

TEST_F(DrawingUtils, what_was_left_to_the_owner_takes_the_owners_properties_and_the_rest_stays) {
    AcDbLine byBlock, explicitLine;
    byBlock.setColorIndex(0);
    byBlock.setLineWeight(AcDb::kLnWtByBlock);
    byBlock.setLinetype(database().byBlockLinetype());
    explicitLine.setColorIndex(2);
    explicitLine.setLineWeight(AcDb::kLnWt100);
    explicitLine.setLinetype(database().continuousLinetype());
    AcDbVoidPtrArray entities;
    entities.append(&byBlock);
    entities.append(&explicitLine);
    applyOwnerProperties(entities, L"0", AcCmEntityColor::fromIndex(5), AcDb::kLnWt025, L"ByLayer");
    EXPECT_EQ(byBlock.colorIndex(), 5);
    EXPECT_EQ(byBlock.lineWeight(), AcDb::kLnWt025);
    EXPECT_EQ(byBlock.linetypeName(), L"ByLayer");
    EXPECT_EQ(explicitLine.colorIndex(), 2);
    EXPECT_EQ(explicitLine.lineWeight(), AcDb::kLnWt100);
    EXPECT_EQ(explicitLine.linetypeName(), L"Continuous");
    EXPECT_EQ(explicitLine.layerName(), L"0");
}

TEST_F(DrawingUtils, a_colour_left_to_layer_or_block_greys_to_the_lightest) {
    EXPECT_EQ(grayColorOf(lineOfColor(256).get()).colorIndex(), 255);
    EXPECT_EQ(grayColorOf(lineOfColor(0).get()).colorIndex(), 255);
}

TEST_F(DrawingUtils, greys_follow_the_mean_of_red_green_and_blue) {
    EXPECT_EQ(grayColorOf(lineOfColor(1).get()).colorIndex(), 252);   // red: 85
    EXPECT_EQ(grayColorOf(lineOfColor(2).get()).colorIndex(), 254);   // yellow: 170
    EXPECT_EQ(grayColorOf(lineOfColor(7).get()).colorIndex(), 255);   // white: 255
    EXPECT_EQ(grayColorOf(lineOfColor(250).get()).colorIndex(), 250); // nearly black
}

TEST_F(DrawingUtils, line_work_whitens_to_252_and_everything_else_to_255) {
    EXPECT_EQ(whiteColorOf(lineOfColor(1).get()).colorIndex(), 252);
    const AcDbCircle circle;
    const AcDbText text;
    const AcDbHatch hatch;
    EXPECT_EQ(whiteColorOf(&circle).colorIndex(), 252);
    EXPECT_EQ(whiteColorOf(&text).colorIndex(), 255);
    EXPECT_EQ(whiteColorOf(&hatch).colorIndex(), 255);
    EXPECT_TRUE(whiteColorOf(&text).isByACI());
}

TEST_F(DrawingUtils, a_missing_layer_is_made_and_a_present_one_left_alone) {
    ensureLayer(L"Táblák");
    AcDbLayerTable* table = nullptr;
    ASSERT_EQ(database().getLayerTable(table, AcDb::kForRead), Acad::eOk);
    AcDbLayerTableRecord* layer = nullptr;
    ASSERT_EQ(table->getAt(L"TÁBLÁK", layer, AcDb::kForWrite), Acad::eOk);
    EXPECT_FALSE(layer->isOff());
    EXPECT_FALSE(layer->isFrozen());
    EXPECT_FALSE(layer->isLocked());
    EXPECT_FALSE(layer->VPDFLT());
    EXPECT_EQ(layer->color().colorIndex(), 0);
    layer->setIsOff(true);
    layer->close();
    table->close();
    ensureLayer(L"Táblák");
    ASSERT_EQ(database().getLayerTable(table, AcDb::kForRead), Acad::eOk);
    ASSERT_EQ(table->getAt(L"Táblák", layer, AcDb::kForRead), Acad::eOk);
    EXPECT_TRUE(layer->isOff());
    layer->close();
    table->close();
}

TEST_F(DrawingUtils, a_line_type_in_the_table_touches_no_line_type_file) {
    acdbHostApplicationServices()->setSupportPath({});
    AcDbObjectId id;
    EXPECT_EQ(linetypeId(L"Continuous", id), Acad::eOk);
    EXPECT_EQ(id, database().continuousLinetype());
    EXPECT_NE(linetypeId(L"DASHED", id), Acad::eOk);
}

TEST_F(DrawingUtils, a_missing_line_type_is_loaded_from_the_file_of_the_drawings_measurement) {
    acdbHostApplicationServices()->setSupportPath({acFromUtf8(testSourceDir() + "/install/support")});
    AcDbObjectId id;
    EXPECT_EQ(linetypeId(L"DASHED", id), Acad::eOk);
    EXPECT_FALSE(id.isNull());
    EXPECT_NE(linetypeId(L"NO_SUCH_LINETYPE", id), Acad::eOk);
}

TEST_F(DrawingUtils, text_styles_are_found_by_name) {
    AcDbObjectId id;
    EXPECT_EQ(textStyleId(L"standard", id), Acad::eOk);
    EXPECT_EQ(id, database().textStyleStandard());
    EXPECT_EQ(textStyleId(L"none", id), Acad::eKeyNotFound);
}

TEST_F(DrawingUtils, an_entity_added_to_model_space_is_closed) {
    AcDbObjectId id;
    EXPECT_EQ(addToModelSpace(new AcDbLine(AcGePoint3d(), AcGePoint3d(1, 1, 0)), id), Acad::eOk);
    AcDbObjectPointer<AcDbLine> line(id, AcDb::kForWrite);
    ASSERT_EQ(line.openStatus(), Acad::eOk);
    EXPECT_EQ(line->ownerId(), database().modelSpaceId());
}

TEST_F(DrawingUtils, display_properties_of_an_index_colour_are_copied_with_line_type_and_layer) {
    ensureLayer(L"KRESZ");
    AcDbLine source, target;
    source.setColorIndex(256);
    source.setLinetype(database().continuousLinetype());
    source.setLayer(L"KRESZ");
    target.setColor(AcCmColor(10, 20, 30));
    copyDisplayProperties(&source, &target);
    EXPECT_TRUE(target.color().isByLayer());
    EXPECT_EQ(target.linetypeName(), L"Continuous");
    EXPECT_EQ(target.layerName(), L"KRESZ");
}

TEST_F(DrawingUtils, traits_take_an_entitys_line_but_not_its_layer) {
    ensureLayer(L"KRESZ");
    AcDbLine line;
    line.setLayer(L"KRESZ");
    line.setLinetype(database().continuousLinetype());
    line.setLinetypeScale(2.5);
    line.setLineWeight(AcDb::kLnWt070);
    line.setColor(AcCmColor(10, 20, 30));
    GiDisplayListBuilder builder;
    AcGiSubEntityTraits& traits = builder.worldDraw().subEntityTraits();
    traits.setLayer(database().layerZero());
    applyEntityToTraits(&line, &builder.worldDraw());
    EXPECT_EQ(traits.trueColor(), AcCmColor(10, 20, 30));
    EXPECT_EQ(traits.lineTypeId(), database().continuousLinetype());
    EXPECT_DOUBLE_EQ(traits.lineTypeScale(), 2.5);
    EXPECT_EQ(traits.lineWeight(), AcDb::kLnWt070);
    EXPECT_EQ(traits.layerId(), database().layerZero());
}

TEST_F(DrawingUtils, every_index_greys_by_its_level) {
    for (int index = 1; index <= 255; ++index) {
        const Adesk::UInt32 rgb = acedGetRGB(index);
        const Adesk::UInt32 level = ((rgb & 0xFF) + (rgb >> 8 & 0xFF) + (rgb >> 16 & 0xFF)) / 3;
        const int grey = level < 52 ? 250 : level <= 80 ? 251 : level <= 105 ? 252 : level <= 130 ? 253 : level <= 190 ? 254 : 255;
        EXPECT_EQ(grayColorOf(lineOfColor(index).get()).colorIndex(), grey) << "index " << index << ", level " << level;
    }
}

TEST_F(DrawingUtils, the_five_classes_of_line_work_whiten_to_252) {
    AcDbPolyline polyline;
    AcDbArc arc;
    AcDbEllipse ellipse;
    for (const AcDbEntity* entity : std::initializer_list<const AcDbEntity*>{&polyline, &arc, &ellipse})
        EXPECT_EQ(whiteColorOf(entity).colorIndex(), 252) << acToUtf8(entity->isA()->name());
    EXPECT_TRUE(whiteColorOf(lineOfColor(256).get()).isByACI()); // whatever the method was
}

TEST_F(DrawingUtils, a_made_layer_has_continuous_lines) {
    ensureLayer(L"Táblák");
    AcDbLayerTable* table = nullptr;
    ASSERT_EQ(database().getLayerTable(table, AcDb::kForRead), Acad::eOk);
    AcDbLayerTableRecord* layer = nullptr;
    ASSERT_EQ(table->getAt(L"Táblák", layer, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(layer->linetypeObjectId(), database().continuousLinetype());
    layer->close();
    table->close();
}

TEST_F(DrawingUtils, the_drawings_measurement_chooses_the_line_type_file) {
    const std::string folder = testTempPath();
    writeLineTypes(folder + "/ACADISO.LIN", "METRIC");
    writeLineTypes(folder + "/ACAD.LIN", "IMPERIAL");
    acdbHostApplicationServices()->setSupportPath({acFromUtf8(folder)});
    AcDbObjectId id;
    database().setMeasurement(1);
    EXPECT_EQ(linetypeId(L"METRIC", id), Acad::eOk);
    EXPECT_NE(linetypeId(L"IMPERIAL", id), Acad::eOk);
    database().setMeasurement(0);
    EXPECT_EQ(linetypeId(L"IMPERIAL", id), Acad::eOk);
}

TEST_F(DrawingUtils, a_block_record_is_opened_by_name_in_the_mode_asked_for) {
    AcDbBlockTableRecord* record = nullptr;
    ASSERT_EQ(openBlockRecord(&database(), ACDB_MODEL_SPACE, record, AcDb::kForWrite), Acad::eOk);
    EXPECT_TRUE(record->isWriteEnabled());
    record->close();
    EXPECT_EQ(openBlockRecord(&database(), L"none", record, AcDb::kForRead), Acad::eKeyNotFound);
    EXPECT_EQ(record, nullptr);
}

TEST_F(DrawingUtils, a_zoom_gets_the_lower_left_and_the_upper_right_corner) {
    zoomAnswers().clear();
    ASSERT_EQ(acedRegCmds()->addCommand(L"TEST", L"ZOOM", L"ZOOM", 0, takeZoom), Acad::eOk);
    zoomToExtents(AcDbExtents({-1.5, 2.0, 7.0}, {10.25, 20.0, 9.0}));
    acedRegCmds()->removeGroup(L"TEST");
    EXPECT_EQ(zoomAnswers(), (std::vector<std::wstring>{L"-1.500000,2.000000", L"10.250000,20.000000"}));
}

TEST_F(DrawingUtils, a_fault_is_told_in_a_message_box_with_its_context_and_success_is_not) {
    AfxInitToolkit(true);
    reportError(Acad::eOk, L"adding entity to model space");
    EXPECT_EQ(mPrinted, L"");
    reportError(Acad::eKeyNotFound, L"adding entity to model space");
    EXPECT_TRUE(mPrinted.starts_with(L"Korvant: ERROR (adding entity to model space): eKeyNotFound \n\n")) << acToUtf8(mPrinted);
}
