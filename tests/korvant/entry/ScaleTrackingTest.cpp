// Scale tracking: denominators, the comparison of an earlier list, the reactor's conditions.
#include "TrfcScaleTracking.h"

#include "AcDbBlockReference.h"
#include "CTrfcSignsARXApp.h"
#include "TestSupport.h"
#include "TrfcCommands.h"
#include "TrfcDocSettings.h"
#include "TrfcEditorReactors.h"
#include "TrfcScalable.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

class ScaleTracking : public testing::Test {
protected:
    ScaleTracking() : mDatabase(std::make_unique<AcDbDatabase>()) {
        acdbHostApplicationServices()->setWorkingDatabase(mDatabase.get());
        TrfcAppSettings::clearDocDefaults();
        TrfcAppSettings::setDocDefault(DOC_CURRENT_SCALE, L"500");
        scaleTrackingEnabled = true;
    }
    ~ScaleTracking() override {
        scaleTrackingEnabled = true;
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }
    static std::unique_ptr<AcDbAnnotationScale> makeScale(double paper, double drawing, const std::wstring& name = L"scale") {
        auto scale = std::make_unique<AcDbAnnotationScale>();
        scale->setName(name);
        scale->setPaperUnits(paper);
        scale->setDrawingUnits(drawing);
        return scale;
    }
    static Adesk::Int32 currentScale() { return TrfcDocSettings::getDocInt(DOC_CURRENT_SCALE); }
    std::unique_ptr<AcDbDatabase> mDatabase;
};

} // namespace

TEST_F(ScaleTracking, a_metre_drawing_of_half_a_unit_a_millimetre_is_1_to_500) {
    EXPECT_EQ(denominatorOf(*makeScale(1.0, 0.5)), 500);
    EXPECT_EQ(denominatorOf(*makeScale(2.0, 1.0)), 500);
}

TEST_F(ScaleTracking, a_fractional_denominator_is_truncated) {
    EXPECT_EQ(denominatorOf(*makeScale(1.0, 0.3333)), 333);
}

TEST_F(ScaleTracking, switching_stores_the_denominator_in_the_drawing) {
    switchScale(*makeScale(1.0, 0.2));
    EXPECT_EQ(currentScale(), 200);
}

TEST_F(ScaleTracking, a_change_is_followed_only_while_tracking_and_never_while_initializing) {
    const auto scale = makeScale(1.0, 0.25);
    CAnnoScaleReactor reactor;
    scaleTrackingEnabled = false;
    reactor.annotationScaleChanged(mDatabase.get(), AcDbObjectId::kNull, scale.get(), false);
    EXPECT_EQ(currentScale(), 500);
    scaleTrackingEnabled = true;
    reactor.annotationScaleChanged(mDatabase.get(), AcDbObjectId::kNull, scale.get(), true);
    EXPECT_EQ(currentScale(), 500);
    reactor.annotationScaleChanged(mDatabase.get(), AcDbObjectId::kNull, scale.get(), false);
    EXPECT_EQ(currentScale(), 250);
}

TEST_F(ScaleTracking, the_end_of_the_3d_export_turns_tracking_off) {
    CEditorReactor reactor;
    reactor.commandEnded(L"LINE");
    EXPECT_TRUE(scaleTrackingEnabled);
    reactor.commandEnded(L"EXPORTC3DDRAWING");
    EXPECT_FALSE(scaleTrackingEnabled);
}

TEST_F(ScaleTracking, a_scale_list_is_split_at_its_slashes) {
    EXPECT_EQ(splitScaleList(L"200/500/1000"), (std::vector<Adesk::Int32>{200, 500, 1000}));
    EXPECT_EQ(splitScaleList(L"500"), (std::vector<Adesk::Int32>{500}));
    EXPECT_EQ(splitScaleList(L"200/x/500"), (std::vector<Adesk::Int32>{200, 0, 500}));
    EXPECT_EQ(splitScaleList(L"/500"), (std::vector<Adesk::Int32>{0})); // a slash at the head ends the splitting
}

TEST_F(ScaleTracking, a_scale_that_the_drawing_holds_gives_one_row_of_its_own_and_none_of_the_list) {
    const auto items = compareScaleList(*mDatabase, L"500");
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].source, L"beépített");
    EXPECT_EQ(items[0].scaleText, L"1 : 500");
    EXPECT_EQ(items[0].name, L"1:500");
    EXPECT_TRUE(items[0].matchesCurrent);
    EXPECT_DOUBLE_EQ(items[0].drawingUnits, 0.5);
}

TEST_F(ScaleTracking, a_scale_that_only_the_list_holds_gets_units_by_integer_division) {
    const auto items = compareScaleList(*mDatabase, L"300/1001/2400");
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(items[0].name, L"KV 1 : 300");
    EXPECT_EQ(items[0].source, L"Korvant");
    EXPECT_FALSE(items[0].matchesCurrent);
    EXPECT_DOUBLE_EQ(items[0].paperUnits, 3.0);
    EXPECT_DOUBLE_EQ(items[0].drawingUnits, 1.0);
    EXPECT_DOUBLE_EQ(items[1].paperUnits, 1.0);
    EXPECT_DOUBLE_EQ(items[1].drawingUnits, 1.0);
    EXPECT_DOUBLE_EQ(items[2].drawingUnits, 2.0);
}

TEST_F(ScaleTracking, a_denominator_of_1000_takes_one_drawing_unit) {
    AcDbObjectContextCollection* scales = mDatabase->objectContextManager()->contextCollection(acdbAnnotationScaleCollectionName);
    scales->removeContext(L"1:1000");
    const auto items = compareScaleList(*mDatabase, L"1000");
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].source, L"Korvant");
    EXPECT_DOUBLE_EQ(items[0].paperUnits, 1.0);
    EXPECT_DOUBLE_EQ(items[0].drawingUnits, 1.0);
}

TEST_F(ScaleTracking, a_load_brings_the_settings_in_line_with_the_annotation_scale) {
    TrfcDocSettings::setDocInt(DOC_CURRENT_SCALE, 77);
    synchroniseScales();
    const std::unique_ptr<AcDbAnnotationScale> current(mDatabase->cannoscale());
    EXPECT_EQ(currentScale(), denominatorOf(*current));
}

TEST_F(ScaleTracking, an_earlier_list_stays_until_it_has_been_compared) {
    TrfcDocSettings::setDocString(DOC_SCALE_LIST, L"200/500");
    synchroniseScales();
    EXPECT_EQ(TrfcDocSettings::getDocString(DOC_SCALE_LIST), L"200/500");
}

TEST(CommandTable, has_nineteen_rows_in_their_order_with_flag_1) {
    const std::wstring names[] = {L"KVO", L"KVSCALEOFF", L"KVSCALEON", L"KVZ", L"KVTF", L"KVB", L"KVK", L"KVS", L"KVN", L"KVEXP",
                                  L"KVQ", L"KVSDF", L"KVST", L"KVELL", L"KVBLOKK", L"KVIMP", L"KVT", L"KVTS", L"KVG"};
    ASSERT_EQ(kCommandCount, std::size(names));
    for (std::size_t i = 0; i < kCommandCount; ++i) {
        EXPECT_EQ(kCommandRows[i].localName, names[i]);
        EXPECT_EQ(kCommandRows[i].flags, 1);
        EXPECT_EQ(kCommandRows[i].resourceId, -1);
        EXPECT_STREQ(kCommandRows[i].group, names[i] == L"KVG" ? L"TrfcKorvant2007" : L"TrfcSignsARX");
    }
    EXPECT_STREQ(kCommandRows[3].globalName, L"TrfcCrossWalk");
    EXPECT_STREQ(kCommandRows[18].globalName, L"TrfcCrossWalk");
}

TEST(MessageDispatch, the_messages_without_a_handler_of_ours_give_success) {
    for (int code = 4; code <= 15; ++code)
        EXPECT_EQ(acrxDispatchMessage(*trfcApp(), static_cast<AcRx::AppMsgCode>(code), nullptr), AcRx::kRetOK);
    EXPECT_EQ(acrxDispatchMessage(*trfcApp(), AcRx::kNullMsg, nullptr), AcRx::kRetOK);
}
