// The window of the state change: what it shows, what its buttons do and what it keeps.
#include "CTrfcStateChangeDlg.h"

#include "CButton.h"
#include "DialogUser.h"
#include "Resource.h"
#include "TrfcStateChangeData.h"
#include "WinShell.h"

#include <gtest/gtest.h>

#include <malloc.h>
#include <memory>

namespace {
constexpr int kBoxes[] = {IDC_POST_TO_EXISTING, IDC_POST_TO_BE_REMOVED, IDC_POST_DELETE,
                          IDC_SIGN_TO_EXISTING, IDC_SIGN_TO_BE_REMOVED, IDC_SIGN_DELETE, IDC_SIGN_COVER, IDC_SIGN_UNCOVER,
                          IDC_MARKING_TO_EXISTING, IDC_MARKING_TO_BE_REMOVED, IDC_MARKING_DELETE,
                          IDC_CROSSING_TO_EXISTING, IDC_CROSSING_TO_BE_REMOVED, IDC_CROSSING_DELETE};
using Flag = bool& (*)(TrfcStateChangeData& data);
#define FLAG(NAME) [](TrfcStateChangeData& data) -> bool& { return data.NAME; }
constexpr Flag kFlags[] = {FLAG(post.plannedToExisting), FLAG(post.existingToBeRemoved), FLAG(post.toBeRemovedDeleted),
                           FLAG(sign.plannedToExisting), FLAG(sign.existingToBeRemoved), FLAG(sign.toBeRemovedDeleted),
                           FLAG(sign.existingToCovered), FLAG(sign.coveredToExisting),
                           FLAG(marking.plannedToExisting), FLAG(marking.existingToBeRemoved), FLAG(marking.toBeRemovedDeleted),
                           FLAG(crossing.plannedToExisting), FLAG(crossing.existingToBeRemoved), FLAG(crossing.toBeRemovedDeleted)};
#undef FLAG

class StateChangeDlg : public testing::Test {
protected:
    StateChangeDlg() { setStateChangeData(std::make_unique<TrfcStateChangeData>()); }
    ~StateChangeDlg() override { setStateChangeData(std::make_unique<TrfcStateChangeData>()); }
    INT_PTR run() {
        CTrfcStateChangeDlg window;
        dialog = &window;
        return window.DoModal();
    }
    bool isTicked(int id) const { return dialog->IsDlgButtonChecked(id) == BST_CHECKED; }
    std::vector<int> ticked() const {
        std::vector<int> ids;
        for (const int id : kBoxes)
            if (isTicked(id))
                ids.push_back(id);
        return ids;
    }
    CPoint middleOf(int id) const {
        CRect place;
        dialog->GetDlgItem(id)->GetWindowRect(place);
        return place.CenterPoint();
    }
    CTrfcStateChangeDlg* dialog = nullptr;
    DialogUser user;
};
using Ids = std::vector<int>;
} // namespace

TEST_F(StateChangeDlg, has_its_title_and_its_labels) {
    user.does(L"@show").does(L"@cancel");
    run();
    for (const wchar_t* label : {L"\"Korvant - Állapotváltás\"", L"label \"Tervezett -> meglévő\"", L"label \"Meglévő ->\\nmegszüntetendő\"",
                                 L"label \"Megszüntetendő\\n-> törlés\"", L"label \"Meglévő -> letakart\"", L"label \"Letakart -> meglévő\"",
                                 L"label \"Oszlopok\"", L"label \"Táblák és\\nlámpák\"", L"label \"Burkolati\\njelek\"", L"label \"Gyalogos\\nátkelők\"",
                                 L"\"Módosítások alkalmazása\"", L"option \"csak a kijelölt elemekre\"", L"option \"minden elemre\"", L"\"Törléskor\"",
                                 L"option \"kér megerősítést\"", L"option \"nem kér megerősítést\"", L"button \"BUTT_ALL\"", L"button \"BUTT_NON\"",
                                 L"button \"Súgó\"", L"button \"OK\"", L"button \"Mégse\""})
        EXPECT_TRUE(hasLineWith(user.printed(), label)) << acToUtf8(label);
}

TEST_F(StateChangeDlg, the_boxes_stand_in_a_grid_whose_last_rows_are_the_signs_alone) {
    user.sees([this] {
        for (const int id : kBoxes) {
            const int column = id / 10 - 36, row = id % 10;
            EXPECT_EQ(middleOf(id).x, middleOf(361 + 10 * column).x) << id;
            EXPECT_EQ(middleOf(id).y, middleOf(370 + row).y) << id;
        }
        for (int row = 2; row <= 5; ++row)
            EXPECT_GT(middleOf(370 + row).y, middleOf(370 + row - 1).y);
        for (int column = 1; column <= 3; ++column)
            EXPECT_GT(middleOf(361 + 10 * column).x, middleOf(351 + 10 * column).x);
        for (const int id : {364, 365, 384, 385, 394, 395})
            EXPECT_EQ(dialog->GetDlgItem(id), nullptr) << id;
    }).does(L"@cancel");
    run();
}

TEST_F(StateChangeDlg, begins_with_nothing_ticked_all_objects_and_confirmation) {
    user.sees([this] {
        EXPECT_EQ(ticked(), Ids());
        EXPECT_TRUE(isTicked(IDC_ALL_OBJECTS));
        EXPECT_FALSE(isTicked(IDC_SELECTION_ONLY));
        EXPECT_TRUE(isTicked(IDC_CONFIRM_DELETE));
        EXPECT_FALSE(isTicked(IDC_DELETE_UNASKED));
    }).does(L"@cancel");
    EXPECT_EQ(run(), IDCANCEL);
}

TEST_F(StateChangeDlg, each_box_shows_and_keeps_one_transition) {
    for (std::size_t i = 0; i < std::size(kBoxes); ++i) {
        auto data = std::make_unique<TrfcStateChangeData>();
        kFlags[i](*data) = true;
        setStateChangeData(std::move(data));
        user.sees([&] { EXPECT_EQ(ticked(), Ids{kBoxes[i]}); }).does(acFormat(L"@check %d off", kBoxes[i])).does(L"@ok");
        EXPECT_EQ(run(), IDOK);
        EXPECT_FALSE(kFlags[i](stateChangeData())) << kBoxes[i];
        user.does(acFormat(L"@check %d on", kBoxes[i])).does(L"@ok");
        run();
        for (std::size_t other = 0; other < std::size(kBoxes); ++other)
            EXPECT_EQ(kFlags[other](stateChangeData()), other == i) << kBoxes[other];
    }
}

TEST_F(StateChangeDlg, the_options_show_and_keep_their_choice) {
    user.does(L"@check \"csak a kijelölt elemekre\" on").does(L"@check \"nem kér megerősítést\" on").does(L"@ok");
    run();
    EXPECT_TRUE(stateChangeData().selectionOnly);
    EXPECT_FALSE(stateChangeData().confirmOnDelete);
    user.sees([this] {
        EXPECT_TRUE(isTicked(IDC_SELECTION_ONLY));
        EXPECT_FALSE(isTicked(IDC_ALL_OBJECTS));
        EXPECT_TRUE(isTicked(IDC_DELETE_UNASKED));
        EXPECT_FALSE(isTicked(IDC_CONFIRM_DELETE));
    }).does(L"@check \"minden elemre\" on").does(L"@check \"kér megerősítést\" on").does(L"@ok");
    run();
    EXPECT_FALSE(stateChangeData().selectionOnly);
    EXPECT_TRUE(stateChangeData().confirmOnDelete);
}

TEST_F(StateChangeDlg, the_button_of_all_ticks_every_transition_but_covering) {
    user.does(L"@check 374 on").does(L"@click \"BUTT_ALL\"").does(L"@ok");
    run();
    for (std::size_t i = 0; i < std::size(kBoxes); ++i)
        EXPECT_EQ(kFlags[i](stateChangeData()), kBoxes[i] != IDC_SIGN_COVER) << kBoxes[i];
    EXPECT_FALSE(stateChangeData().selectionOnly) << "the options are left alone";
    EXPECT_TRUE(stateChangeData().confirmOnDelete);
}

TEST_F(StateChangeDlg, the_button_of_none_clears_every_transition) {
    user.does(L"@click \"BUTT_ALL\"").does(L"@click \"BUTT_NON\"").does(L"@ok");
    run();
    for (const Flag flag : kFlags)
        EXPECT_FALSE(flag(stateChangeData()));
}

TEST_F(StateChangeDlg, a_sign_is_either_removed_or_covered) {
    user.does(L"@check 374 on").does(L"@check 372 on").sees([this] { EXPECT_EQ(ticked(), Ids{IDC_SIGN_TO_BE_REMOVED}); });
    user.does(L"@check 374 on").sees([this] { EXPECT_EQ(ticked(), Ids{IDC_SIGN_COVER}); });
    user.does(L"@check 374 off").sees([this] { EXPECT_EQ(ticked(), Ids()) << "clearing one ticks nothing"; }).does(L"@cancel");
    run();
}

TEST_F(StateChangeDlg, a_cancelled_window_keeps_its_ticks_for_the_next_time) {
    for (const wchar_t* ending : {L"@cancel", L"@close"}) {
        setStateChangeData(std::make_unique<TrfcStateChangeData>());
        user.does(L"@check 361 on").does(L"@check \"nem kér megerősítést\" on").does(ending);
        EXPECT_EQ(run(), IDCANCEL);
        EXPECT_TRUE(stateChangeData().post.plannedToExisting) << acToUtf8(ending);
        EXPECT_FALSE(stateChangeData().confirmOnDelete);
        user.sees([this] { EXPECT_EQ(ticked(), Ids{IDC_POST_TO_EXISTING}); }).does(L"@cancel");
        run();
    }
}

TEST_F(StateChangeDlg, each_ending_makes_the_data_anew) {
    const TrfcStateChangeData* before = &stateChangeData();
    user.does(L"@ok");
    run();
    EXPECT_NE(&stateChangeData(), before);
}

TEST_F(StateChangeDlg, help_opens_its_topic) {
    user.does(L"@click \"Súgó\"").does(L"@cancel");
    run();
    ASSERT_FALSE(winOpenedDocuments().empty());
    EXPECT_TRUE(winOpenedDocuments().back().ends_with(L"help\\Korvant.chm::/StateChange.html"));
}

TEST_F(StateChangeDlg, a_cancelled_window_keeps_nothing_behind) {
    const auto cancel = [this](int times) {
        for (int i = 0; i < times; ++i) {
            user.does(L"@cancel");
            run();
        }
    };
    cancel(50); // what is made once and kept
    const std::size_t before = mallinfo2().uordblks;
    cancel(200);
    const std::size_t after = mallinfo2().uordblks;
    constexpr std::size_t kOwnRecord = 1024; // what this test itself notes of each window; the pictures alone are four times that
    EXPECT_LT(after, before + 200 * kOwnRecord) << "bytes a window: " << (after - before) / 200;
}
