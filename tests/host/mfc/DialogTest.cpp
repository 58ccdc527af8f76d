#include "SampleDialog.h"

#include <chrono>

namespace {
struct Dialogs : testing::Test {
    void SetUp() override { useResources(kSampleResources); }
};
} // namespace

TEST_F(Dialogs, values_go_to_the_controls_and_come_back_with_ok) {
    DialogScript user({L"@set 1001 \"új név\"", L"@check 1006 on", L"@check 1009 on", L"@ok"});
    SampleDialog dialog;
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_STREQ(dialog.name, L"új név");
    EXPECT_EQ(dialog.check, 1);
    EXPECT_EQ(dialog.option, 2);
    EXPECT_TRUE(user.refusals.empty());
}

TEST_F(Dialogs, cancel_leaves_the_members_as_they_were) {
    DialogScript user({L"@set 1001 \"új név\"", L"@cancel"});
    SampleDialog dialog;
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_STREQ(dialog.name, L"kezdet");
    EXPECT_EQ(dialog.count("cancel"), 1);
}

TEST_F(Dialogs, a_missing_template_gives_minus_one) {
    DialogScript user;
    CDialog dialog(12345u);
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_FALSE(dialog.Create(12345u));
}

TEST_F(Dialogs, buttons_fields_and_lists_tell_their_parent) {
    DialogScript user({L"@click 1010", L"@set 1001 \"x\"", L"@check 1006 on", L"@select 1004 \"Tervezett\"", L"@select 1014 \"Rajz\\Tábla\"",
                       L"@select 1013 1", L"@select 1013 2", L"@tab \"Táblák\"", L"@ok"});
    SampleDialog dialog;
    dialog.DoModal();
    ASSERT_TRUE(user.refusals.empty()) << acToUtf8(user.refusals[0]);
    for (const char* event : {"apply", "name change", "check", "type", "tree Tábla", "selected 1 data 101", "deselected 1 data 101",
                              "selected 2 data 102", "click 2 0", "tab", "ok", "destroy"})
        EXPECT_EQ(dialog.count(event), 1) << event;
    EXPECT_EQ(dialog.count("name left"), 2) << "to the button at first, to the check box after the text";
}

TEST_F(Dialogs, what_the_program_sets_sends_no_choice) {
    DialogScript user({L"@ok"});
    SampleDialog dialog;
    dialog.atStart = [](SampleDialog& d) {
        static_cast<CComboBox*>(d.GetDlgItem(IDC_TYPE))->SetCurSel(2);
        d.CheckDlgButton(IDC_CHECK, 1);
        d.tabs.SetCurSel(1);
    };
    dialog.DoModal();
    EXPECT_EQ(dialog.count("type") + dialog.count("check") + dialog.count("tab"), 0);
}

TEST_F(Dialogs, a_page_that_does_not_let_go_keeps_its_tab) {
    DialogScript user({L"@tab \"Táblák\""});
    SampleDialog dialog;
    dialog.holdPage = true;
    int selected = -1;
    dialog.atStart = [&](SampleDialog& d) { selected = d.tabs.GetCurSel(); };
    dialog.DoModal();
    EXPECT_EQ(selected, 0);
    EXPECT_EQ(dialog.count("tab"), 0);
    ASSERT_EQ(user.refusals.size(), 1u);
    EXPECT_EQ(user.refusals[0], L"@tab \"Táblák\": the present page stays");
}

TEST_F(Dialogs, enter_presses_the_default_button_and_escape_cancels) {
    DialogScript user({L"keys"});
    SampleDialog dialog;
    user.look(L"keys", [&] {
        MSG key;
        key.pWnd = dialog.GetDlgItem(IDC_NAME);
        key.message = WM_KEYDOWN;
        key.wParam = VK_RETURN;
        EXPECT_TRUE(dialog.PreTranslateMessage(&key));
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    DialogScript second({L"escape"});
    SampleDialog other;
    second.look(L"escape", [&] {
        MSG key;
        key.message = WM_KEYDOWN;
        key.wParam = VK_ESCAPE;
        EXPECT_TRUE(other.PreTranslateMessage(&key));
    });
    EXPECT_EQ(other.DoModal(), IDCANCEL);
}

TEST_F(Dialogs, a_dialog_over_a_dialog_takes_the_next_lines) {
    DialogScript user({L"@click 1010", L"@set 1001 \"belső\"", L"@ok", L"@set 1001 \"külső\"", L"@ok"});
    SampleDialog outer, inner;
    INT_PTR result = 0;
    outer.onApply = [&](SampleDialog&) { result = inner.DoModal(); };
    EXPECT_EQ(outer.DoModal(), IDOK);
    EXPECT_EQ(result, IDOK);
    EXPECT_STREQ(inner.name, L"belső");
    EXPECT_STREQ(outer.name, L"külső");
}

TEST_F(Dialogs, a_dialog_ended_at_its_start_is_never_shown) {
    DialogScript user;
    SampleDialog dialog;
    dialog.atStart = [](SampleDialog& d) { d.EndDialog(42); };
    EXPECT_EQ(dialog.DoModal(), 42);
    EXPECT_TRUE(user.refusals.empty());
}

TEST_F(Dialogs, a_dialog_may_run_twice) {
    SampleDialog dialog;
    for (int run = 0; run < 2; ++run) {
        DialogScript user({L"@click 1010", L"@ok"});
        EXPECT_EQ(dialog.DoModal(), IDOK);
        EXPECT_TRUE(user.refusals.empty());
    }
}

TEST_F(Dialogs, a_user_message_is_sent_at_once_or_posted) {
    DialogScript user({L"@show", L"@ok"});
    SampleDialog dialog;
    LRESULT result = 0;
    dialog.atStart = [&](SampleDialog& d) {
        result = d.SendMessage(WM_USER + 1, 3, 4);
        d.PostMessage(WM_USER + 1, 5, 6);
        EXPECT_EQ(d.count("user 5 6"), 0);
    };
    dialog.DoModal();
    EXPECT_EQ(result, 7);
    EXPECT_EQ(dialog.count("user 3 4"), 1);
    EXPECT_EQ(dialog.count("user 5 6"), 1);
}

TEST_F(Dialogs, a_page_lives_inside_its_parent_and_is_driven_with_it) {
    DialogScript user({L"@set 1101 \"bent\"", L"@ok"});
    SampleDialog dialog;
    CDialog page;
    CString inside;
    dialog.atStart = [&](SampleDialog& d) {
        ASSERT_TRUE(page.Create(static_cast<UINT>(IDD_PAGE), &d.tabs));
        CRect area;
        d.tabs.GetClientRect(&area);
        d.tabs.AdjustRect(FALSE, &area);
        page.MoveWindow(area);
        EXPECT_EQ(page.GetParent(), &d.tabs);
    };
    dialog.onApply = [&](SampleDialog&) {};
    user.look(L"look", [&] { page.GetDlgItemText(IDC_INNER, inside); });
    user.lines.insert(user.lines.begin() + 1, L"look");
    dialog.DoModal();
    EXPECT_TRUE(user.refusals.empty());
    EXPECT_STREQ(inside, L"bent");
    EXPECT_FALSE(page.IsWindow()) << "a page goes with its parent";
}

TEST_F(Dialogs, a_modeless_dialog_deletes_itself_when_it_closes) {
    class Modeless : public SampleDialog {
    public:
        explicit Modeless(bool& gone) : mGone(gone) {}
        ~Modeless() override { mGone = true; }

    protected:
        void OnCancel() override { DestroyWindow(); }
        void PostNcDestroy() override { delete this; }

    private:
        bool& mGone;
    };
    DialogScript user;
    bool gone = false;
    auto* dialog = new Modeless(gone);
    ASSERT_TRUE(dialog->Create(static_cast<UINT>(IDD_SAMPLE)));
    dialog->ShowWindow(SW_SHOW);
    AfxPumpMessages();
    EXPECT_TRUE(AfxIsDialogOpen());
    EXPECT_EQ(AfxApplyDialogLine(L"@click \"Mégse\""), L"");
    EXPECT_TRUE(gone);
    EXPECT_FALSE(AfxIsDialogOpen());
}

TEST_F(Dialogs, a_member_that_goes_before_its_window_leaves_no_trace) {
    DialogScript user;
    {
        SampleDialog dialog;
        ASSERT_TRUE(dialog.Create(static_cast<UINT>(IDD_SAMPLE)));
        dialog.ShowWindow(SW_SHOW);
    }
    AfxPumpMessages();
    EXPECT_FALSE(AfxIsDialogOpen());
}

TEST_F(Dialogs, timers_run_while_messages_are_pumped_and_stop) {
    DialogScript user;
    SampleDialog dialog;
    ASSERT_TRUE(dialog.Create(static_cast<UINT>(IDD_SAMPLE)));
    EXPECT_EQ(dialog.SetTimer(3, 1), 3u);
    const auto patience = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (dialog.count("timer 3") == 0 && std::chrono::steady_clock::now() < patience)
        AfxPumpMessages();
    EXPECT_GT(dialog.count("timer 3"), 0);
    EXPECT_TRUE(dialog.KillTimer(3));
    EXPECT_FALSE(dialog.KillTimer(3));
    dialog.DestroyWindow();
}

TEST_F(Dialogs, enabling_and_showing_follow_the_parents) {
    DialogScript user({L"state", L"@ok"});
    SampleDialog dialog;
    user.look(L"state", [&] {
        CWnd* off = dialog.GetDlgItem(IDC_OFF);
        EXPECT_FALSE(off->IsWindowEnabled());
        EXPECT_TRUE(off->EnableWindow(TRUE));
        EXPECT_TRUE(off->IsWindowEnabled());
        EXPECT_FALSE(dialog.GetDlgItem(IDC_HIDDEN)->IsWindowVisible());
        EXPECT_TRUE(dialog.GetDlgItem(IDC_NAME)->IsWindowVisible());
        EXPECT_EQ(dialog.GetDlgItem(9999), nullptr);
        EXPECT_EQ(CWnd::FromHandle(off->GetSafeHwnd()), off);
    });
    dialog.DoModal();
    EXPECT_TRUE(user.refusals.empty());
}

TEST_F(Dialogs, a_window_that_another_owns_stays_enabled_without_its_owner) {
    DialogScript user;
    SampleDialog owner, owned, disabled;
    ASSERT_TRUE(owner.Create(static_cast<UINT>(IDD_SAMPLE)));
    ASSERT_TRUE(owned.Create(static_cast<UINT>(IDD_SAMPLE), &owner));
    ASSERT_TRUE(disabled.Create(static_cast<UINT>(IDD_SAMPLE), &owner));
    disabled.EnableWindow(FALSE);
    owner.EnableWindow(FALSE);
    EXPECT_FALSE(owner.GetDlgItem(IDC_NAME)->IsWindowEnabled());
    EXPECT_TRUE(owned.GetDlgItem(IDC_NAME)->IsWindowEnabled());
    EXPECT_FALSE(disabled.IsWindowEnabled());
    owner.EnableWindow(TRUE);
    EXPECT_TRUE(owner.GetDlgItem(IDC_NAME)->IsWindowEnabled());
    EXPECT_FALSE(disabled.IsWindowEnabled()) << "it was disabled by itself";
    owner.DestroyWindow();
}

TEST_F(Dialogs, without_lines_or_a_loop_a_dialog_is_cancelled) {
    AfxInitToolkit(true);
    std::wstring printed;
    const AcPrintSink earlier = acSetPrintSink([&](std::wstring_view text) { printed += text; });
    SampleDialog dialog;
    AfxDialogDriver* const driver = AfxSetDialogDriver(nullptr);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    AfxSetDialogDriver(driver);
    acSetPrintSink(earlier);
    EXPECT_TRUE(holds(printed, L"Minta ablak"));
}
