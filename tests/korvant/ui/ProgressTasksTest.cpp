// Tasks, progress, cancel and the end of the windows of long jobs.
#include "ProgressWindows.h"

#include "AfxApp.h"
#include "CBitmap.h"
#include "TestSupport.h"

namespace {
std::vector<std::wstring> manyTasks(int count) {
    std::vector<std::wstring> texts;
    for (int i = 0; i < count; ++i)
        texts.push_back(acFormat(L"feladat %d", i));
    return texts;
}
// Another window for a parent.
class Parent : public CDialog {
public:
    Parent() {
        Create(static_cast<UINT>(IDD_ABOUT));
        ShowWindow(SW_SHOW);
    }
    ~Parent() override { DestroyWindow(); }
};
std::wstring titleOf(const CWnd& window) {
    CString text;
    window.GetWindowText(text);
    return text.text();
}
} // namespace

TEST_F(ProgressWindow, each_window_of_the_family_has_its_title_and_lists) {
    auto& tasks = open<CTaskProgressDialog>();
    EXPECT_EQ(titleOf(tasks), L"Korvant - Export állapota");
    EXPECT_EQ(tasks.GetDlgItem(IDC_REPORT_LIST), nullptr) << "exports report nothing";
    auto& report = open<CTaskProgressReportDialog>();
    EXPECT_EQ(titleOf(report), L"Korvant - Import állapota");
    auto& check = open<CCheckProgressDialog>();
    EXPECT_EQ(titleOf(check), L"Korvant - Ellenőrzés állapota");
    for (const auto* list : {&tasks.tasks(), &report.tasks(), &check.tasks()}) {
        ASSERT_EQ(list->GetColumnCount(), 3);
        EXPECT_STREQ(list->columnTitle(0), L"") << "the column of the marks";
        EXPECT_STREQ(list->columnTitle(1), L"Folyamat");
        EXPECT_STREQ(list->columnTitle(2), L"Állapot");
    }
    for (const auto* list : {&report.reports(), &check.reports()}) {
        ASSERT_EQ(list->GetColumnCount(), 2);
        EXPECT_STREQ(list->columnTitle(0), L"Korvant objektum");
        EXPECT_STREQ(list->columnTitle(1), L"Leírás");
    }
}

TEST_F(ProgressWindow, tasks_begin_without_a_mark_and_a_state) {
    auto& window = open<CTaskProgressDialog>({L"egy", L"kettő"});
    EXPECT_EQ(window.task(0), L"-1|egy|");
    EXPECT_EQ(window.task(1), L"-1|kettő|");
    window.setTaskTexts({L"három"});
    ASSERT_EQ(window.tasks().GetItemCount(), 1) << "texts given later replace the rows";
    EXPECT_EQ(window.task(0), L"-1|három|");
}

TEST_F(ProgressWindow, the_next_task_makes_the_earlier_one_done) {
    auto& window = open<CTaskProgressDialog>();
    window.setCurrentTask(0);
    EXPECT_EQ(window.task(0), L"1|első|Folyamatban...");
    window.setCurrentTask(2);
    EXPECT_EQ(window.task(0), L"0|első|Kész");
    EXPECT_EQ(window.task(1), L"-1|második|");
    EXPECT_EQ(window.task(2), L"1|harmadik|Folyamatban...");
}

TEST_F(ProgressWindow, an_index_at_or_past_the_end_of_the_tasks_does_nothing) {
    auto& window = open<CTaskProgressDialog>();
    window.setCurrentTask(1);
    for (const int index : {3, 99, -1})
        window.setCurrentTask(index);
    EXPECT_EQ(window.task(1), L"1|második|Folyamatban...");
    auto& empty = open<CTaskProgressDialog>({});
    empty.setCurrentTask(0);
    empty.finish();
    EXPECT_EQ(empty.tasks().GetItemCount(), 0);
}

TEST_F(ProgressWindow, the_command_line_gets_one_line_a_task) {
    auto& window = open<CCheckProgressDialog>({L"első", L"második"});
    window.setCurrentTask(0);
    window.setCurrentTask(1);
    window.setCurrentTask(2);
    window.abort();
    EXPECT_EQ(user.printed(), L"Korvant - Ellenőrzés állapota: első\nKorvant - Ellenőrzés állapota: második\nKorvant - Ellenőrzés állapota: Megszakítva\n");
}

TEST_F(ProgressWindow, the_current_task_is_selected_only_where_the_selection_is_kept) {
    auto& window = open<CTaskProgressDialog>();
    window.setCurrentTask(1);
    EXPECT_EQ(window.tasks().GetSelectedCount(), 0u);
    window.setKeepSelection(true);
    window.setCurrentTask(2);
    EXPECT_EQ(window.tasks().GetNextItem(-1, LVNI_SELECTED), 2);
}

TEST_F(ProgressWindow, half_a_page_of_what_comes_next_is_shown) {
    auto& window = open<CTaskProgressDialog>(manyTasks(60));
    const int page = window.tasks().GetCountPerPage();
    ASSERT_GT(page, 4);
    window.setCurrentTask(30);
    const int top = window.tasks().GetTopIndex();
    EXPECT_LE(top, 30);
    EXPECT_GE(top + page, 30 + page / 2);
    window.setCurrentTask(59);
    EXPECT_LE(window.tasks().GetTopIndex(), 59);
    EXPECT_GE(window.tasks().GetTopIndex() + page, 59) << "the last row is the end";
}

TEST_F(ProgressWindow, the_percentage_is_cut_to_whole_numbers) {
    auto& window = open<CTaskProgressDialog>();
    window.setRange(0, 3);
    window.setPos(0);
    EXPECT_EQ(window.textOf(IDC_PROGRESS_TEXT), L"0%");
    window.stepIt();
    EXPECT_EQ(window.textOf(IDC_PROGRESS_TEXT), L"33%");
    window.stepIt();
    EXPECT_EQ(window.textOf(IDC_PROGRESS_TEXT), L"66%");
    window.stepIt();
    EXPECT_EQ(window.textOf(IDC_PROGRESS_TEXT), L"100%") << "exactly a hundred stays";
}

TEST_F(ProgressWindow, beyond_a_hundred_the_percentage_begins_anew) {
    auto& window = open<CTaskProgressDialog>();
    window.setRange(0, 4);
    window.setPos(5);
    EXPECT_EQ(window.textOf(IDC_PROGRESS_TEXT), L"25%");
    window.setPos(8);
    EXPECT_EQ(window.textOf(IDC_PROGRESS_TEXT), L"0%");
}

TEST_F(ProgressWindow, the_percentage_is_reckoned_from_the_low_end) {
    auto& window = open<CTaskProgressDialog>();
    window.setRange(100, 200);
    window.setStep(10);
    window.setPos(120);
    EXPECT_EQ(window.textOf(IDC_PROGRESS_TEXT), L"20%");
    window.stepIt();
    EXPECT_EQ(window.textOf(IDC_PROGRESS_TEXT), L"30%");
    window.offsetPos(-25);
    EXPECT_EQ(window.textOf(IDC_PROGRESS_TEXT), L"5%");
    int low = 0, high = 0;
    static_cast<CProgressCtrl*>(window.GetDlgItem(IDC_PROGRESS_BAR))->GetRange(low, high);
    EXPECT_EQ(low, 100);
    EXPECT_EQ(high, 200);
    EXPECT_EQ(static_cast<CProgressCtrl*>(window.GetDlgItem(IDC_PROGRESS_BAR))->GetPos(), 105);
}

TEST_F(ProgressWindow, a_great_range_does_not_overflow) {
    auto& window = open<CTaskProgressDialog>();
    window.setRange(0, 2000000000);
    window.setPos(1500000000);
    EXPECT_EQ(window.textOf(IDC_PROGRESS_TEXT), L"75%");
}

TEST_F(ProgressWindow, the_label_is_touched_only_when_its_text_changes) {
    auto& window = open<CTaskProgressDialog>();
    window.setRange(0, 1000);
    window.setPos(1);
    window.SetDlgItemText(IDC_PROGRESS_TEXT, L"megjelölve");
    for (int i = 0; i < 8; ++i)
        window.stepIt();
    EXPECT_EQ(window.textOf(IDC_PROGRESS_TEXT), L"megjelölve");
    window.stepIt();
    EXPECT_EQ(window.textOf(IDC_PROGRESS_TEXT), L"1%");
}

TEST_F(ProgressWindow, an_empty_range_leaves_the_percentage_as_it_was) {
    auto& window = open<CTaskProgressDialog>();
    window.setRange(0, 2);
    window.setPos(1);
    window.setRange(7, 7);
    window.setPos(7);
    window.stepIt();
    EXPECT_EQ(window.textOf(IDC_PROGRESS_TEXT), L"50%");
}

// ---- cancel -----------------------------------------------------------------------------------
TEST_F(ProgressWindow, the_cancel_button_is_seen_at_the_next_cancel_test) {
    auto& window = open<CTaskProgressDialog>();
    EXPECT_FALSE(window.checkCancel());
    window.PostMessage(WM_COMMAND, IDCANCEL);
    EXPECT_TRUE(window.checkCancel()) << "the pump lets the window have the click";
    EXPECT_TRUE(window.checkCancel()) << "it is not forgotten";
    EXPECT_EQ(gWindowsAlive, 1) << "a window whose job runs cannot be closed";
}

TEST_F(ProgressWindow, each_step_and_each_cancel_test_lets_the_window_live) {
    class Counting : public Probe<CTaskProgressDialog> {
    public:
        int clicks = 0;

    protected:
        void OnCancel() override { ++clicks; }
    };
    auto* window = new Counting;
    ASSERT_TRUE(window->create(nullptr));
    window->setRange(0, 10);
    const std::vector<std::function<void()>> steps = {[&] { window->setPos(1); }, [&] { window->offsetPos(1); }, [&] { window->stepIt(); },
                                                      [&] { window->checkCancel(); }};
    for (const auto& step : steps) {
        window->clicks = 0;
        window->PostMessage(WM_COMMAND, IDCANCEL);
        EXPECT_EQ(window->clicks, 0);
        step();
        EXPECT_EQ(window->clicks, 1);
    }
    window->DestroyWindow();
}

TEST_F(ProgressWindow, a_second_click_before_the_job_has_seen_the_first_changes_nothing) {
    auto& window = open<CTaskProgressDialog>();
    line(L"@click 2");
    line(L"@click 2");
    line(L"@close");
    EXPECT_EQ(gWindowsAlive, 1);
    EXPECT_TRUE(window.checkCancel());
    window.abort();
    EXPECT_EQ(gWindowsAlive, 1);
}

TEST_F(ProgressWindow, ctrl_c_cancels_like_the_button) {
    auto& window = open<CTaskProgressDialog>();
    ctrlC = true;
    EXPECT_TRUE(window.checkCancel());
    EXPECT_TRUE(window.checkCancel()) << "pressed once is enough";
}

TEST_F(ProgressWindow, enter_does_not_hide_a_running_window) {
    auto& window = open<CTaskProgressDialog>();
    window.SendMessage(WM_COMMAND, IDOK);
    EXPECT_TRUE(window.IsWindowVisible());
    EXPECT_FALSE(window.checkCancel());
}

// ---- the end ------------------------------------------------------------------------------------
TEST_F(ProgressWindow, the_normal_end_marks_the_task_and_turns_the_button) {
    auto& window = open<CTaskProgressDialog>();
    EXPECT_EQ(window.textOf(IDCANCEL), L"Mégse");
    window.setCurrentTask(2);
    EXPECT_TRUE(window.isShown(IDC_PROGRESS_BAR));
    window.finish();
    EXPECT_EQ(window.task(2), L"0|harmadik|Kész");
    EXPECT_EQ(window.textOf(IDCANCEL), L"Bezár");
    EXPECT_FALSE(window.isShown(IDC_PROGRESS_BAR));
    EXPECT_FALSE(window.isShown(IDC_PROGRESS_TEXT));
    EXPECT_EQ(IDC_PROGRESS_BAR, 279);
    EXPECT_EQ(IDC_PROGRESS_TEXT, 280);
}

TEST_F(ProgressWindow, the_broken_off_end_marks_the_task_as_failed) {
    auto& window = open<CTaskProgressDialog>();
    window.setCurrentTask(0);
    window.setCurrentTask(1);
    window.abort();
    EXPECT_EQ(window.task(0), L"0|első|Kész");
    EXPECT_EQ(window.task(1), L"2|második|Megszakítva");
    EXPECT_EQ(window.textOf(IDCANCEL), L"Bezár");
    EXPECT_FALSE(window.isShown(IDC_PROGRESS_BAR));
    EXPECT_FALSE(window.isShown(IDC_PROGRESS_TEXT));
}

TEST_F(ProgressWindow, closing_the_window_after_the_end_deletes_it) {
    for (const wchar_t* how : {L"@click \"Bezár\"", L"@cancel", L"@close"}) {
        auto& window = open<CTaskProgressDialog>();
        window.finish();
        EXPECT_EQ(gWindowsAlive, 1);
        line(how);
        EXPECT_EQ(gWindowsAlive, 0) << acToUtf8(how);
    }
    EXPECT_FALSE(AfxIsDialogOpen());
}

TEST_F(ProgressWindow, a_window_left_open_is_deleted_with_all_windows) {
    open<CTaskProgressDialog>();
    open<CCheckProgressDialog>().abort();
    AfxCancelAllDialogs();
    EXPECT_EQ(gWindowsAlive, 0);
}

TEST_F(ProgressWindow, an_enabled_parent_is_disabled_until_the_end) {
    for (const bool isBrokenOff : {false, true}) {
        Parent parent;
        auto* window = new Probe<CTaskProgressDialog>;
        ASSERT_TRUE(window->create(&parent));
        window->ShowWindow(SW_SHOW);
        EXPECT_FALSE(parent.IsWindowEnabled());
        EXPECT_TRUE(window->GetDlgItem(IDCANCEL)->IsWindowEnabled()) << "the job can be broken off";
        if (isBrokenOff)
            window->abort();
        else
            window->finish();
        EXPECT_TRUE(parent.IsWindowEnabled());
        window->DestroyWindow();
    }
}

TEST_F(ProgressWindow, a_disabled_parent_stays_disabled) {
    Parent parent;
    parent.EnableWindow(FALSE);
    auto* window = new Probe<CTaskProgressDialog>;
    ASSERT_TRUE(window->create(&parent));
    window->finish();
    EXPECT_FALSE(parent.IsWindowEnabled());
    window->DestroyWindow();
}

TEST_F(ProgressWindow, a_parent_comes_back_when_the_window_goes_before_the_end) {
    Parent parent;
    auto* window = new Probe<CTaskProgressDialog>;
    ASSERT_TRUE(window->create(&parent));
    window->DestroyWindow();
    EXPECT_TRUE(parent.IsWindowEnabled());
}

// ---- look ---------------------------------------------------------------------------------------
TEST_F(ProgressWindow, labels_and_buttons_let_the_backdrop_through_and_nothing_else_does) {
    auto& window = open<CTaskProgressDialog>();
    for (const UINT kind : {CTLCOLOR_STATIC, CTLCOLOR_BTN}) {
        const CBrush* const brush = window.OnCtlColor(nullptr, nullptr, kind);
        ASSERT_NE(brush, nullptr);
        EXPECT_TRUE(brush->isTransparent());
    }
    for (const UINT kind : {CTLCOLOR_DLG, CTLCOLOR_EDIT, CTLCOLOR_LISTBOX})
        EXPECT_EQ(window.OnCtlColor(nullptr, nullptr, kind), nullptr);
}

TEST_F(ProgressWindow, the_backdrop_is_white_around_the_controls) {
    const std::wstring file = testTempDir() + L"\\window.png";
    open<CCheckProgressDialog>();
    line(L"@shot \"" + file + L"\"");
    CBitmap picture;
    ASSERT_TRUE(picture.LoadFile(file.c_str()));
    const CSize size = picture.GetSize();
    for (const CPoint corner : {CPoint(1, 1), CPoint(size.cx - 2, 1), CPoint(1, size.cy - 2), CPoint(size.cx - 2, size.cy - 2), CPoint(size.cx / 2, size.cy - 2)})
        EXPECT_EQ(picture.GetPixel(corner.x, corner.y), RGB(255, 255, 255)) << corner.x << "," << corner.y;
}
