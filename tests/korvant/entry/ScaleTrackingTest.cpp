// Scale tracking: denominators, the comparison of an earlier list, the reactor's conditions.
#include "TrfcScaleTracking.h"

#include "AcDbBlockReference.h"
#include "AcUtText.h"
#include "CListCtrl.h"
#include "CScaleComparisonDialog.h"
#include "CTrfcSignsARXApp.h"
#include "TrfcClasses.h"
#include "DbDatabaseData.h"
#include "DialogUser.h"
#include "DwgCodec.h"
#include "Resource.h"
#include "TestSupport.h"
#include "TrfcCommands.h"
#include "TrfcDocSettings.h"
#include "TrfcDrawingUtils.h"
#include "TrfcEditorReactors.h"
#include "TrfcPost.h"
#include "WindowLook.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cmath>
#include <limits>
#include <memory>
#include <utility>

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

TEST_F(ScaleTracking, what_a_load_brings_in_line_is_no_change_of_the_users) {
    TrfcDocSettings::setDocInt(DOC_CURRENT_SCALE, 77);
    mDatabase->markSaved();
    synchroniseScales();
    EXPECT_NE(currentScale(), 77);
    EXPECT_FALSE(mDatabase->hasChangedSinceSave());
    const std::unique_ptr<AcDbAnnotationScale> current(mDatabase->cannoscale());
    switchScale(*current); // as the user's own change of the scale does
    EXPECT_TRUE(mDatabase->hasChangedSinceSave());
    synchroniseScales();
    EXPECT_TRUE(mDatabase->hasChangedSinceSave());
}

// ---- an earlier list
namespace {
class EarlierList : public ScaleTracking {
protected:
    static constexpr const wchar_t* kList = L"200/300/500";
    EarlierList() { TrfcDocSettings::setDocString(DOC_SCALE_LIST, kList); }
    AcDbObjectContextCollection& scales() { return *mDatabase->objectContextManager()->contextCollection(acdbAnnotationScaleCollectionName); }
    static std::wstring list() { return TrfcDocSettings::getDocString(DOC_SCALE_LIST); }
    static int rowCount() { return static_cast<CListCtrl&>(*topWindow()->GetDlgItem(IDC_SCALE_LIST)).GetItemCount(); }
    DialogUser user;
};
} // namespace

TEST_F(EarlierList, a_confirmed_comparison_adds_the_new_scales_and_empties_the_list) {
    user.sees([&] { EXPECT_EQ(rowCount(), 3); }).does(L"@ok");
    synchroniseScales();
    EXPECT_EQ(list(), L"");
    EXPECT_TRUE(scales().hasContext(L"KV 1 : 300"));
    synchroniseScales(); // would ask for a line if the window opened again
}

TEST_F(EarlierList, a_cancelled_comparison_keeps_the_list_and_comes_back_at_the_next_load) {
    user.does(L"@cancel").sees([&] { EXPECT_EQ(list(), kList); }).does(L"@cancel");
    synchroniseScales();
    EXPECT_FALSE(scales().hasContext(L"KV 1 : 300"));
    synchroniseScales();
    EXPECT_EQ(list(), kList);
}

TEST_F(EarlierList, a_confirmed_comparison_is_a_change_of_the_users_and_a_cancelled_one_is_not) {
    mDatabase->markSaved();
    user.does(L"@cancel");
    synchroniseScales();
    EXPECT_FALSE(mDatabase->hasChangedSinceSave());
    user.does(L"@ok");
    synchroniseScales();
    EXPECT_TRUE(mDatabase->hasChangedSinceSave());
}

TEST_F(EarlierList, whatever_becomes_of_the_comparison_the_drawings_scale_is_followed) {
    for (const wchar_t* const end : {L"@cancel", L"@ok"}) {
        TrfcDocSettings::setDocInt(DOC_CURRENT_SCALE, 77);
        user.does(end);
        synchroniseScales();
        const std::unique_ptr<AcDbAnnotationScale> current(mDatabase->cannoscale());
        EXPECT_EQ(currentScale(), denominatorOf(*current));
    }
}

TEST_F(EarlierList, no_window_opens_for_a_drawing_without_one) {
    TrfcDocSettings::setDocString(DOC_SCALE_LIST, L"");
    synchroniseScales();
}

TEST_F(EarlierList, the_list_is_not_looked_at_while_scales_are_not_tracked) {
    scaleTrackingEnabled = false;
    TrfcDocSettings::setDocInt(DOC_CURRENT_SCALE, 77);
    trfcApp()->On_kLoadDwgMsg(nullptr);
    EXPECT_EQ(list(), kList);
    EXPECT_EQ(currentScale(), 77);
}

TEST_F(EarlierList, junk_in_it_gives_rows_that_never_enter_the_drawing) {
    const auto items = compareScaleList(*mDatabase, L"abc/0/-5//500");
    ASSERT_EQ(items.size(), 4u); // abc, 0 and -5; the empty item ends the splitting, and what is left is no number
    for (const std::size_t zero : {std::size_t{0}, std::size_t{1}, std::size_t{3}}) {
        EXPECT_EQ(items[zero].name, L"KV 1 : 0");
        EXPECT_DOUBLE_EQ(items[zero].paperUnits, 0.0);
    }
    EXPECT_EQ(items[2].name, L"KV 1 : -5");
    EXPECT_DOUBLE_EQ(items[2].paperUnits, -200.0);
    TrfcDocSettings::setDocString(DOC_SCALE_LIST, L"abc/0/-5//500");
    user.does(L"@ok");
    synchroniseScales();
    for (const auto& item : items)
        EXPECT_FALSE(scales().hasContext(item.name)) ;
    EXPECT_EQ(list(), L"");
}

TEST_F(EarlierList, a_scale_that_stands_in_it_twice_is_the_drawings_once_and_a_new_one_once) {
    const auto items = compareScaleList(*mDatabase, L"500/500");
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0].source, kScaleOfDrawing);
    EXPECT_EQ(items[1].source, kScaleOfList);
    EXPECT_EQ(items[1].name, L"KV 1 : 500");
}

TEST_F(EarlierList, scales_of_the_drawing_that_it_does_not_name_are_left_out) {
    const auto items = compareScaleList(*mDatabase, L"200");
    ASSERT_EQ(items.size(), 1u);
    EXPECT_FALSE(items[0].matchesCurrent);
}

TEST_F(EarlierList, the_new_scales_survive_saving_and_opening) {
    dwgInstallCodec();
    user.does(L"@ok");
    synchroniseScales();
    const std::wstring path = testTempDir() + L"\\migrated.dwg";
    ASSERT_EQ(mDatabase->saveAs(path.c_str()), Acad::eOk);
    AcDbDatabase opened(false, true);
    ASSERT_EQ(opened.readDwgFile(path.c_str()), Acad::eOk);
    acdbHostApplicationServices()->setWorkingDatabase(&opened);
    EXPECT_EQ(list(), L"");
    const std::unique_ptr<AcDbAnnotationScale> kept(
        AcDbAnnotationScale::cast(opened.objectContextManager()->contextCollection(acdbAnnotationScaleCollectionName)->getContext(L"KV 1 : 300")));
    ASSERT_NE(kept, nullptr);
    double paper = 0.0, drawn = 0.0;
    kept->getPaperUnits(paper);
    kept->getDrawingUnits(drawn);
    EXPECT_DOUBLE_EQ(paper, 3.0);
    EXPECT_DOUBLE_EQ(drawn, 1.0);
    acdbHostApplicationServices()->setWorkingDatabase(mDatabase.get());
}

TEST_F(EarlierList, without_a_collection_of_scales_the_rows_of_the_list_still_come) {
    auto contexts = std::exchange(DbObjectAccess::data(*mDatabase).contexts, nullptr);
    const auto items = compareScaleList(*mDatabase, kList);
    ASSERT_EQ(items.size(), 3u);
    for (const auto& item : items)
        EXPECT_EQ(item.source, kScaleOfList);
    user.does(L"@ok");
    EXPECT_EQ(CScaleComparisonDialog(items).DoModal(), IDOK);
    DbObjectAccess::data(*mDatabase).contexts = std::move(contexts);
    EXPECT_FALSE(scales().hasContext(L"KV 1 : 200"));
}

namespace {
bool allLengthsAreSound(const AcDbObjectContextCollection& scales) {
    const std::unique_ptr<AcDbObjectContextCollectionIterator> iterator(scales.newIterator());
    for (iterator->start(); !iterator->done(); iterator->next()) {
        AcDbObjectContext* context = nullptr;
        if (iterator->getContext(context) != Acad::eOk)
            return false;
        const std::unique_ptr<AcDbObjectContext> owned(context);
        double paper = 0.0, drawn = 0.0;
        std::wstring name;
        AcDbAnnotationScale::cast(context)->getPaperUnits(paper);
        AcDbAnnotationScale::cast(context)->getDrawingUnits(drawn);
        context->getName(name);
        if (!(paper > 0.0) || !(drawn > 0.0) || !std::isfinite(paper) || !std::isfinite(drawn) || name.empty())
            return false;
    }
    return true;
}
} // namespace

TEST_F(EarlierList, whatever_stands_in_it_only_sound_scales_enter_the_drawing) {
    EXPECT_TRUE(rc::check("any list", [&] {
        const std::string characters = "0123456789/-+. ax";
        const auto picks = *rc::gen::container<std::vector<std::size_t>>(rc::gen::inRange<std::size_t>(0, characters.size()));
        std::wstring text;
        for (const std::size_t pick : picks)
            text += static_cast<wchar_t>(characters[pick]);
        const auto items = compareScaleList(*mDatabase, text);
        RC_ASSERT(items.size() == splitScaleList(text).size());
        for (const auto& item : items)
            RC_ASSERT(std::isfinite(item.paperUnits) && std::isfinite(item.drawingUnits));
        user.does(L"@ok");
        CScaleComparisonDialog(items).DoModal();
        RC_ASSERT(allLengthsAreSound(scales()));
    }));
}

// ---- scales that cannot be
namespace {
class OddScale : public ScaleTracking {
protected:
    OddScale() : mEarlier(acSetPrintSink([this](std::wstring_view text) { printed += text; })) {}
    ~OddScale() override { acSetPrintSink(mEarlier); }
    std::wstring printed;

private:
    AcPrintSink mEarlier;
};
constexpr const wchar_t* kRefused = L"A(z) \"scale\" lépték nevezője nem 1 és 32767 közé esik; a rajz Korvant objektumai nem változtak.\n";
} // namespace

TEST_F(OddScale, a_denominator_that_the_settings_cannot_hold_changes_nothing_and_is_told_in_one_line) {
    for (const double drawing : {0.0005, 32.768, 40.0, 3.0e9}) {
        printed.clear();
        switchScale(*makeScale(1.0, drawing));
        EXPECT_EQ(currentScale(), 500) << drawing;
        EXPECT_EQ(printed, kRefused) << drawing;
    }
    printed.clear();
    switchScale(*makeScale(1.0, 32.767));
    EXPECT_EQ(currentScale(), 32767);
    switchScale(*makeScale(1.0, 0.001));
    EXPECT_EQ(currentScale(), 1);
    EXPECT_TRUE(printed.empty());
}

TEST_F(OddScale, a_scale_of_no_paper_divides_by_nothing) {
    const auto scale = makeScale(1.0, 1.0);
    DbObjectAccess::paper(*scale) = 0.0; // as a file may hold it
    EXPECT_EQ(denominatorOf(*scale), 0);
    switchScale(*scale);
    EXPECT_EQ(currentScale(), 500);
    EXPECT_EQ(printed, kRefused);
}

TEST_F(OddScale, a_denominator_beyond_32_bits_or_no_number_is_none) {
    const auto scale = makeScale(1.0, 1.0);
    for (const double drawing : {1.0e300, -1.0e300, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        DbObjectAccess::drawing(*scale) = drawing;
        EXPECT_EQ(denominatorOf(*scale), 0);
    }
}

// ---- the objects of the drawing
namespace {
class TrackedPosts : public OddScale {
protected:
    TrackedPosts() {
        registerTrfcClasses();
        TrfcAppSettings::setDocDefault(DOC_POST_MIN_AB, L"0.01");
        TrfcAppSettings::setDocDefault(DOC_POST_MIN_CD, L"0.005");
        TrfcAppSettings::setDocDefault(DOC_POST_ALPHA0, L"45");
        TrfcAppSettings::setDocDefault(DOC_BASEPOINTD, L"0.003");
        TrfcDocSettings::setDocInt(DOC_CURRENT_SCALE, 500);
        select(L"1:500");
        acdbAddAnnotationScaleReactor(CAnnoScaleReactor::instance());
    }
    ~TrackedPosts() override {
        acdbRemoveAnnotationScaleReactor(CAnnoScaleReactor::instance());
        CAnnoScaleReactor::release();
    }
    AcDbObjectId addPost(const ACHAR* space = ACDB_MODEL_SPACE) {
        auto post = std::make_unique<TrfcPost>();
        post->setPointA({100.0, 200.0, 0.0});
        post->setPointB({100.0, 210.0, 0.0});
        post->setPointD({110.0, 220.0, 0.0}, true);
        post->setPlacementPhase(5);
        AcDbBlockTableRecord* record = nullptr;
        EXPECT_EQ(openBlockRecord(mDatabase.get(), space, record, AcDb::kForWrite), Acad::eOk);
        AcDbObjectId id;
        EXPECT_EQ(record->appendAcDbEntity(id, post.get()), Acad::eOk);
        record->close();
        post.release()->close();
        return id;
    }
    // As CANNOSCALE does.
    void select(const wchar_t* name) {
        const std::unique_ptr<AcDbAnnotationScale> scale(
            AcDbAnnotationScale::cast(mDatabase->objectContextManager()->contextCollection(acdbAnnotationScaleCollectionName)->getContext(name)));
        ASSERT_NE(scale, nullptr);
        ASSERT_EQ(mDatabase->setCannoscale(scale.get()), Acad::eOk);
    }
    static double armOf(AcDbObjectId id) {
        AcDbObjectPointer<TrfcPost> post(id);
        return post->pointA().distanceTo(post->pointB());
    }
    static std::vector<std::wstring> filed(AcDbObjectId id) {
        AcDbRecordingFiler filer;
        AcDbObjectPointer<TrfcPost>(id)->dwgOut(&filer);
        return filer.lines();
    }
    static std::vector<int> scalesOf(AcDbObjectId id) { return AcDbObjectPointer<TrfcPost>(id)->recordedScales(); }
    static int liveScaleOf(AcDbObjectId id) { return AcDbObjectPointer<TrfcPost>(id)->currentScale(); }
};
} // namespace

TEST_F(TrackedPosts, a_change_of_scale_reaches_every_post_of_model_space_and_no_other) {
    const AcDbObjectId one = addPost(), two = addPost(), onPaper = addPost(ACDB_PAPER_SPACE);
    select(L"1:1000");
    EXPECT_DOUBLE_EQ(armOf(one), 20.0);
    EXPECT_DOUBLE_EQ(armOf(two), 20.0);
    EXPECT_DOUBLE_EQ(armOf(onPaper), 10.0);
}

TEST_F(TrackedPosts, with_tracking_off_the_setting_and_every_post_stay_and_nothing_catches_up) {
    const AcDbObjectId id = addPost();
    const auto before = filed(id);
    scaleTrackingEnabled = false;
    select(L"1:1000");
    EXPECT_EQ(currentScale(), 500);
    EXPECT_EQ(filed(id), before);
    scaleTrackingEnabled = true;
    EXPECT_EQ(currentScale(), 500);
    EXPECT_EQ(filed(id), before);
    select(L"1:200");
    EXPECT_DOUBLE_EQ(armOf(id), 4.0);
    EXPECT_EQ(scalesOf(id), std::vector<int>{500}) << "1:1000 was never shown";
}

TEST_F(TrackedPosts, a_post_that_is_open_already_is_passed_over_in_silence) {
    const AcDbObjectId busy = addPost(), free = addPost();
    {
        AcDbObjectPointer<TrfcPost> held(busy, AcDb::kForWrite);
        select(L"1:1000");
    }
    EXPECT_DOUBLE_EQ(armOf(busy), 10.0);
    EXPECT_DOUBLE_EQ(armOf(free), 20.0);
    EXPECT_TRUE(printed.empty());
}

TEST_F(TrackedPosts, undo_of_a_change_brings_every_post_back_and_redo_changes_them_again) {
    const AcDbObjectId known = addPost();
    select(L"1:1000");
    select(L"1:500");
    const AcDbObjectId fresh = addPost();
    const auto knownAt500 = filed(known), freshAt500 = filed(fresh);
    mDatabase->startUndoRecord();
    select(L"1:1000");
    const auto knownAt1000 = filed(known), freshAt1000 = filed(fresh);
    ASSERT_NE(knownAt1000, knownAt500);
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(mDatabase->undo());
        EXPECT_EQ(currentScale(), 500);
        EXPECT_EQ(filed(known), knownAt500);
        EXPECT_EQ(filed(fresh), freshAt500);
        EXPECT_EQ(liveScaleOf(known), 500);
        EXPECT_EQ(liveScaleOf(fresh), 500);
        ASSERT_TRUE(mDatabase->redo());
        EXPECT_EQ(currentScale(), 1000);
        EXPECT_EQ(filed(known), knownAt1000);
        EXPECT_EQ(filed(fresh), freshAt1000);
        EXPECT_EQ(liveScaleOf(known), 1000);
        EXPECT_EQ(liveScaleOf(fresh), 1000);
    }
}

TEST_F(TrackedPosts, what_is_changed_after_an_undo_belongs_to_the_scale_that_came_back) {
    const AcDbObjectId id = addPost();
    mDatabase->startUndoRecord();
    select(L"1:1000");
    mDatabase->undo();
    mDatabase->startUndoRecord();
    AcDbObjectPointer<TrfcPost>(id, AcDb::kForWrite)->setPointB({100.0, 230.0, 0.0});
    select(L"1:200");
    EXPECT_EQ(scalesOf(id), std::vector<int>{500});
    EXPECT_DOUBLE_EQ(armOf(id), 12.0);
    select(L"1:500");
    EXPECT_DOUBLE_EQ(armOf(id), 30.0);
}

TEST_F(TrackedPosts, any_sequence_of_scales_and_edits_is_taken_back_and_done_again_step_by_step) {
    EXPECT_TRUE(rc::check("scales, edits, undo, redo", [&] {
        const std::vector<AcDbObjectId> posts{addPost(), addPost()};
        const auto picture = [&] {
            auto lines = filed(posts[0]);
            const auto second = filed(posts[1]);
            lines.insert(lines.end(), second.begin(), second.end());
            for (const AcDbObjectId id : posts)
                lines.push_back(acFormat(L"%d of %d", liveScaleOf(id), currentScale()));
            return lines;
        };
        const wchar_t* const scales[] = {L"1:200", L"1:500", L"1:1000", L"1:2500"};
        std::vector<std::vector<std::wstring>> steps{picture()};
        for (const int action : *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 8))) {
            mDatabase->startUndoRecord();
            if (action < 4)
                select(scales[action]);
            else
                AcDbObjectPointer<TrfcPost>(posts[static_cast<std::size_t>(action % 2)], AcDb::kForWrite)->setPointB({100.0 + action, 240.0, 0.0});
            steps.push_back(picture());
        }
        const std::size_t last = steps.size() - 1;
        for (std::size_t at = last; at > 0; --at) {
            RC_ASSERT(picture() == steps[at]);
            RC_ASSERT(mDatabase->undo());
        }
        RC_ASSERT(picture() == steps[0]);
        for (std::size_t at = 1; at <= last; ++at) {
            RC_ASSERT(mDatabase->redo());
            RC_ASSERT(picture() == steps[at]);
        }
        mDatabase->startUndoRecord();
        select(L"1:500");
        for (const AcDbObjectId id : posts)
            AcDbObjectPointer<TrfcPost>(id, AcDb::kForWrite)->erase();
    }));
}

TEST_F(TrackedPosts, a_post_of_a_drawing_whose_scale_was_none_keeps_its_geometry) {
    for (const int none : {0, -500}) {
        TrfcDocSettings::setDocInt(DOC_CURRENT_SCALE, none);
        const AcDbObjectId id = addPost();
        const double before = armOf(id);
        select(L"1:200");
        EXPECT_EQ(currentScale(), 200);
        EXPECT_DOUBLE_EQ(armOf(id), before);
        EXPECT_TRUE(std::isfinite(AcDbObjectPointer<TrfcPost>(id)->pointD().x));
    }
}

// ---- the reactors
TEST_F(OddScale, the_document_reactor_can_be_added_and_removed_more_than_once) {
    CDocActivatedReactor::add();
    CDocActivatedReactor::add();
    CDocActivatedReactor::remove();
    CDocActivatedReactor::remove();
    EXPECT_TRUE(printed.empty());
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
TEST(MessageDispatch, a_code_that_is_no_message_is_answered_with_success) {
    for (const int code : {-1, 16, 17, 1000, std::numeric_limits<int>::min()})
        EXPECT_EQ(acrxDispatchMessage(*trfcApp(), static_cast<AcRx::AppMsgCode>(code), nullptr), AcRx::kRetOK) << code;
}
