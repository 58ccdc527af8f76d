// What a window's handler throws, and what a person at a terminal may type while a window is open.
#include "CException.h"
#include "SampleDialog.h"

#include <stdexcept>

namespace {
int gLiving = 0;

class Fault : public CException {
public:
    Fault() { ++gLiving; }
    ~Fault() override { --gLiving; }
    BOOL GetErrorMessage(LPTSTR text, UINT size, UINT*) const override {
        return std::swprintf(text, size, L"no more\r\npaper") > 0 ? TRUE : FALSE;
    }
};
struct Person : testing::Test {
    void SetUp() override { useResources(kSampleResources); }
    static DialogScript& asPerson(DialogScript& user) {
        user.isPerson = true;
        return user;
    }
};
struct Faults : Person {};
} // namespace

TEST_F(Faults, a_handler_that_throws_is_told_and_the_window_stays) {
    DialogScript user({L"@click 1010", L"@set 1001 \"x\"", L"@ok"});
    asPerson(user);
    SampleDialog dialog;
    dialog.onApply = [](SampleDialog&) { throw new Fault; };
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(holds(user.printed, L"failed: no more  paper\n"));
    EXPECT_STREQ(dialog.name, L"x");
    EXPECT_EQ(gLiving, 0);
}
TEST_F(Faults, a_script_stops_at_it_and_the_windows_close) {
    DialogScript user({L"@click 1010", L"@ok"});
    SampleDialog dialog;
    dialog.onApply = [](SampleDialog&) { throw std::runtime_error("no more paper"); };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    ASSERT_EQ(user.refusals.size(), 1u);
    EXPECT_TRUE(holds(user.refusals[0], L"failed: no more paper"));
}
TEST_F(Faults, a_posted_message_that_throws_is_told) {
    DialogScript user({L"@show", L"@ok"});
    asPerson(user);
    SampleDialog dialog;
    dialog.onApply = [](SampleDialog&) { throw new Fault; };
    dialog.atStart = [](SampleDialog& d) { d.PostMessage(WM_COMMAND, MAKEWPARAM(IDC_APPLY, BN_CLICKED), 0); };
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(holds(user.printed, L"failed: no more  paper\n"));
    EXPECT_EQ(gLiving, 0);
}
TEST_F(Faults, a_window_that_throws_at_its_start_goes_and_its_caller_hears_of_it) {
    DialogScript user({L"@ok"});
    SampleDialog dialog;
    dialog.atStart = [](SampleDialog&) { throw std::runtime_error("no start"); };
    EXPECT_THROW(dialog.DoModal(), std::runtime_error);
    EXPECT_FALSE(dialog.IsWindow());
    EXPECT_FALSE(AfxIsDialogOpen());
    dialog.atStart = nullptr;
    EXPECT_EQ(dialog.DoModal(), IDOK) << "it can be opened again";
}

TEST_F(Person, a_line_that_is_not_the_windows_is_refused_by_name_and_the_window_stays) {
    DialogScript user({L"COUNT", L"", L"@click 4444", L"@set 1001 \"x\"", L"@ok"});
    asPerson(user);
    SampleDialog dialog;
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_STREQ(dialog.name, L"x");
    EXPECT_TRUE(user.refusals.empty());
    EXPECT_TRUE(holds(user.printed, L"\"COUNT\": the window \""));
    EXPECT_TRUE(holds(user.printed, L"\nthe window \"")) << "an empty line too";
    EXPECT_TRUE(holds(user.printed, L"@click 4444: there is no such control\n"));
}
TEST_F(Person, no_line_cancels_the_topmost_window_alone) {
    DialogScript user({L"@click 1010", L"none", L"@set 1001 \"x\"", L"@ok"});
    class CtrlC : public AfxDialogDriver {
    public:
        explicit CtrlC(DialogScript& lines) : mLines(lines) {}
        bool nextDialogLine(std::wstring& line) override { return mLines.nextDialogLine(line) && line != L"none"; }
        void refuseDialogLine(const std::wstring& reason) override { mLines.refuseDialogLine(reason); }
        bool asksAgain() const override { return true; }

    private:
        DialogScript& mLines;
    } driver(user);
    AfxSetDialogDriver(&driver);
    int answer = 0;
    SampleDialog dialog;
    dialog.onApply = [&](SampleDialog&) { answer = AfxMessageBoxOf(nullptr, L"Really?", L"Box", MB_YESNOCANCEL); };
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(answer, IDCANCEL);
    EXPECT_STREQ(dialog.name, L"x");
    EXPECT_TRUE(user.refusals.empty());
}
