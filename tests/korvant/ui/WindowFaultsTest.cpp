// The look at windows finds what it is there to find.
#include "AfxApp.h"
#include "CDialog.h"
#include "DialogUser.h"
#include "WindowLook.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

namespace {
constexpr char kTemplates[] = R"rc(
9101 DIALOGEX 0, 0, 200, 100
STYLE DS_SETFONT | WS_POPUP | WS_CAPTION
CAPTION "Rendben"
FONT 8, "MS Shell Dlg"
BEGIN
    GROUPBOX "Funkciók", -1, 5, 5, 190, 60
    LTEXT "Felirat:", -1, 12, 20, 40, 9
    EDITTEXT 9110, 60, 17, 100, 14
    AUTOCHECKBOX "Kiegészítő tábla", 9111, 12, 40, 100, 11
    DEFPUSHBUTTON "OK", 1, 145, 80, 50, 14
END
9102 DIALOGEX 0, 0, 100, 60
STYLE DS_SETFONT | WS_POPUP | WS_CAPTION
FONT 8, "MS Shell Dlg"
BEGIN
    PUSHBUTTON "Ez a gomb sokkal hosszabb", 9120, 10, 10, 40, 14
    PUSHBUTTON "szomszéd", 9121, 51, 10, 45, 14
END
9103 DIALOGEX 0, 0, 100, 60
STYLE DS_SETFONT | WS_POPUP | WS_CAPTION
FONT 8, "MS Shell Dlg"
BEGIN
    EDITTEXT 9130, 10, 10, 60, 14
    EDITTEXT 9131, 50, 15, 40, 14
END
9104 DIALOGEX 0, 0, 100, 60
STYLE DS_SETFONT | WS_POPUP | WS_CAPTION
FONT 8, "MS Shell Dlg"
BEGIN
    EDITTEXT 9140, 60, 10, 60, 14
END
9105 DIALOGEX 0, 0, 100, 60
STYLE DS_SETFONT | WS_POPUP | WS_CAPTION
FONT 8, "MS Shell Dlg"
BEGIN
    PUSHBUTTON "&Cancel", 9150, 10, 10, 60, 14
END
9106 DIALOGEX 0, 0, 100, 60
STYLE DS_SETFONT | WS_POPUP | WS_CAPTION
FONT 8, "MS Shell Dlg"
BEGIN
    GROUPBOX "Tulajdonságok", -1, 5, 10, 90, 40
    PUSHBUTTON "OK", 1, 10, 8, 50, 14
END
9107 DIALOGEX 0, 0, 100, 60
STYLE DS_SETFONT | WS_POPUP | WS_CAPTION
FONT 8, "MS Shell Dlg"
BEGIN
    EDITTEXT 9170, 10, 10, 60, 5
END
)rc";

std::vector<std::string> faultsOf(UINT id) {
    DialogUser user;
    AfxSetResourceText(kTemplates, std::strlen(kTemplates));
    std::vector<std::string> faults;
    CDialog dialog(id);
    user.sees([&] { faults = windowFaults(dialog); }).does(L"@close");
    dialog.DoModal();
    return faults;
}

bool has(const std::vector<std::string>& faults, const std::string& text) {
    return std::any_of(faults.begin(), faults.end(), [&](const std::string& fault) { return fault.find(text) != std::string::npos; });
}
} // namespace

TEST(WindowFaults, a_window_in_order_has_none) {
    EXPECT_EQ(faultsOf(9101), std::vector<std::string>());
}
TEST(WindowFaults, a_text_that_is_cut_off_is_one) {
    EXPECT_TRUE(has(faultsOf(9102), "control 9120 \"Ez a gomb sokkal hosszabb\": its text needs"));
}
TEST(WindowFaults, controls_over_one_another_are_one) {
    EXPECT_TRUE(has(faultsOf(9103), "control 9130 and control 9131: lie over one another"));
}
TEST(WindowFaults, a_control_beyond_the_edge_is_one) {
    EXPECT_TRUE(has(faultsOf(9104), "control 9140: lies beyond the edge"));
}
TEST(WindowFaults, an_english_word_is_one) {
    EXPECT_TRUE(has(faultsOf(9105), "the word \"Cancel\""));
}
TEST(WindowFaults, a_control_on_the_title_of_its_frame_is_one) {
    EXPECT_TRUE(has(faultsOf(9106), "lie over one another"));
}
TEST(WindowFaults, a_field_lower_than_its_letters_is_one) {
    EXPECT_TRUE(has(faultsOf(9107), "control 9170: a line of text needs"));
}

TEST(ToolkitWindows, the_window_for_files_speaks_hungarian) {
    DialogUser user;
    for (const bool open : {true, false})
        EXPECT_EQ(foreignWordsOfFileWindow(open), std::vector<std::string>());
}
