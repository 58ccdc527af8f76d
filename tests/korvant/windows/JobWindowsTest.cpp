// The windows of long jobs and of the state change with what they show in use, looked at as a person would.
#include "AfxApp.h"
#include "CCheckProgressDialog.h"
#include "CTrfcStateChangeDlg.h"
#include "DialogUser.h"
#include "TestSupport.h"
#include "WindowLook.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {
class JobWindows : public testing::Test {
protected:
    JobWindows() { setenv("KORVANT_LOCALAPPDATA", testTempPath().c_str(), 1); }

    template <class Window> static void work(Window& window) {
        window.setTaskTexts({L"Modelltér analizálása", L"Tábla sorrend ellenőrzése", L"Az adatbázis tábláinak írása"});
        window.create(nullptr);
        window.ShowWindow(SW_SHOW);
        window.setRange(0, 300);
        window.setCurrentTask(0);
        window.setCurrentTask(1);
        window.setPos(137);
    }
    static void close(CWnd& window) { window.SendMessage(WM_CLOSE); }
    DialogUser user;
};
} // namespace

TEST_F(JobWindows, of_a_job_without_a_report_while_it_runs_and_at_its_end) {
    auto* const window = new CTaskProgressDialog;
    work(*window);
    lookAt(*window, "222-running");
    window->finish();
    lookAt(*window, "222-done");
    close(*window);
}

TEST_F(JobWindows, of_a_job_with_a_report) {
    auto* const window = new CTaskProgressReportDialog;
    work(*window);
    window->addReport(L"Korvant Oszlop", L"Blokk definíció nem található: 1 elsőbbség\\B-01.dwg", L"2F");
    window->addReport(L"Korvant Befüggesztés / Konzol", L"Helytelen tábla sorrend", L"30");
    lookAt(*window, "317-running");
    window->abort();
    lookAt(*window, "317-aborted");
    close(*window);
}

TEST_F(JobWindows, of_the_sign_order_check) {
    auto* const window = new CCheckProgressDialog;
    work(*window);
    window->addReport(L"Korvant Oszlop", L"Helytelen tábla sorrend", L"2F");
    window->finish();
    lookAt(*window, "224-done");
    close(*window);
}

TEST_F(JobWindows, of_the_state_change) {
    user.sees([] { lookAt(*topWindow(), "343-state-change"); }).does(L"@cancel");
    CTrfcStateChangeDlg().DoModal();
}
