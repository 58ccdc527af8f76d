#include "SampleDialog.h"

namespace {
// Why a line is refused; empty where it is not.
std::wstring refusal(const std::wstring& line, std::function<void(SampleDialog&)> atStart = {}) {
    useResources(kSampleResources);
    DialogScript user({line, L"@cancel"});
    SampleDialog dialog;
    dialog.atStart = std::move(atStart);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    return user.refusals.empty() ? L"" : user.refusals[0].substr(std::min(user.refusals[0].size(), line.size() + 2));
}
} // namespace

TEST(DialogLines, a_control_that_is_absent_disabled_or_hidden_is_refused) {
    EXPECT_EQ(refusal(L"@click 4711"), L"there is no such control");
    EXPECT_EQ(refusal(L"@click 1011"), L"the control is disabled");
    EXPECT_EQ(refusal(L"@click 1012"), L"the control is hidden");
    EXPECT_EQ(refusal(L"@set IDC_OFF \"x\""), L"the control is disabled");
    EXPECT_EQ(refusal(L"@click -1"), L"there is no such control");
    EXPECT_EQ(refusal(L"@click \"Nincs ilyen\""), L"there is no such control");
}

TEST(DialogLines, a_line_of_the_wrong_form_is_refused) {
    EXPECT_EQ(refusal(L"@dance"), L"there is no such dialog line");
    EXPECT_EQ(refusal(L"@click"), L"the form is @click ID");
    EXPECT_EQ(refusal(L"@set 1001"), L"the form is @set ID \"text\"");
    EXPECT_EQ(refusal(L"@set 1001 \"open"), L"a quote is not closed");
    EXPECT_EQ(refusal(L"@check 1006 maybe"), L"\"on\" or \"off\" is needed");
    EXPECT_EQ(refusal(L"@cell 1013 a 1 \"x\""), L"row and column are numbers");
}

TEST(DialogLines, a_choice_that_does_not_exist_is_refused) {
    EXPECT_EQ(refusal(L"@select 1004 7"), L"there is no row 7");
    EXPECT_EQ(refusal(L"@select 1004 \"x\""), L"there is no \"x\"");
    EXPECT_EQ(refusal(L"@select 1013 3"), L"there is no row 3");
    EXPECT_EQ(refusal(L"@select 1014 \"Rajz\\x\""), L"there is no \"Rajz\\x\"");
    EXPECT_EQ(refusal(L"@tab \"x\""), L"there is no tab of that title");
    EXPECT_EQ(refusal(L"@set 1003 \"x\""), L"the control is read-only");
    EXPECT_EQ(refusal(L"@set 1004 \"x\""), L"there is no \"x\" in the list");
    EXPECT_EQ(refusal(L"@set 1013 \"x\""), L"the control takes no text");
    EXPECT_EQ(refusal(L"@cell 1013 0 1 \"x\""), L"the cell cannot be edited");
    EXPECT_EQ(refusal(L"@cell 1013 0 9 \"x\""), L"there is no such cell");
    EXPECT_EQ(refusal(L"@check 1007 off"), L"");
    EXPECT_EQ(refusal(L"@check 1008 off"), L"an option is cleared by choosing another");
}

TEST(DialogLines, the_end_of_the_lines_cancels_and_is_told) {
    useResources(kSampleResources);
    DialogScript user({L"@set 1001 \"x\""});
    SampleDialog dialog;
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    ASSERT_EQ(user.refusals.size(), 1u);
    EXPECT_EQ(user.refusals[0], L"the window \"Minta ablak\" is open; a line that begins with @ is needed");
}

TEST(DialogLines, a_refusal_cancels_the_windows_below_too) {
    useResources(kSampleResources);
    DialogScript user({L"@click 1010", L"@click 1011", L"@ok", L"@ok"});
    SampleDialog outer, inner;
    INT_PTR innerResult = 0;
    outer.onApply = [&](SampleDialog&) { innerResult = inner.DoModal(); };
    EXPECT_EQ(outer.DoModal(), IDCANCEL);
    EXPECT_EQ(innerResult, IDCANCEL);
    EXPECT_EQ(user.refusals.size(), 1u);
    EXPECT_EQ(user.lines.size(), 2u) << "no line is taken after a refusal";
}

TEST(DialogLines, without_a_dialog_a_line_is_refused) {
    EXPECT_EQ(AfxApplyDialogLine(L"@ok"), L"@ok: no dialog is open");
}

TEST(DialogLines, a_control_is_named_by_symbol_caption_or_label) {
    useResources(kSampleResources);
    DialogScript user({L"@set IDC_NAME \"a\"", L"@set \"Név:\" \"b \"\"c\"\"\"", L"@click \"alkalmaz\"", L"@check \"Oszlop elforgatás követése\" on",
                       L"@select \"Típus:\" 2", L"@ok"});
    SampleDialog dialog;
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(user.refusals.empty());
    EXPECT_STREQ(dialog.name, L"b \"c\"");
    EXPECT_EQ(dialog.check, 1);
    EXPECT_EQ(dialog.count("apply"), 1);
    EXPECT_EQ(dialog.count("type"), 1);
}

TEST(DialogLines, show_prints_ids_kinds_states_and_values) {
    useResources(kSampleResources);
    DialogScript user({L"@select 1013 1", L"@select 1014 \"Rajz\\Oszlop\"", L"@show", L"@cancel"});
    SampleDialog dialog;
    dialog.DoModal();
    for (const wchar_t* line : {L"\"Minta ablak\"\n", L"  1001 IDC_NAME edit \"kezdet\"\n", L"  1003 IDC_READONLY edit \"\" read-only\n",
                                L"  1004 IDC_TYPE combo \"Meglévő\" of \"Meglévő\", \"Tervezett\", \"Megszüntetendő\"\n",
                                L"  1006 IDC_CHECK check \"Oszlop elforgatás követése\" off\n", L"  1008 IDC_SECOND option \"fehérítés\" on\n",
                                L"  1011 IDC_OFF button \"Tiltott\" disabled\n", L"  1012 IDC_HIDDEN button \"Rejtett\" hidden\n",
                                L"  1013 IDC_LIST list 3 rows\n      [Paraméter Neve | Paraméter Értéke]\n", L"     *1: név 1 | érték 1\n",
                                L"      Rajz\n     *  Oszlop\n        Tábla\n      Alkalmazás\n", L"tabs *\"Általános\", \"Táblák\"\n",
                                L"  - label \"Név:\"\n", L"  1 IDOK button \"OK\"\n"})
        EXPECT_TRUE(holds(user.printed, line)) << acToUtf8(line) << "in\n" << acToUtf8(user.printed);
}

TEST(DialogLines, close_acts_as_the_title_bar_does) {
    useResources(kSampleResources);
    DialogScript user({L"@close"});
    SampleDialog dialog;
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.count("cancel"), 1);
}
