// What the tests of the progress windows stand on: windows that tell when they go, and looks at them.
#pragma once

#include "CButton.h"
#include "CCheckProgressDialog.h"
#include "DialogUser.h"
#include "EdInput.h"
#include "Resource.h"

#include <gtest/gtest.h>

inline int gWindowsAlive = 0;

// A window whose insides a test may look at.
template <class Window> class Probe : public Window {
public:
    Probe() { ++gWindowsAlive; }
    ~Probe() override { --gWindowsAlive; }
    using Window::OnCtlColor;

    CListCtrl& list(int id) const { return *static_cast<CListCtrl*>(this->GetDlgItem(id)); }
    CListCtrl& tasks() const { return list(IDC_TASK_LIST); }
    CListCtrl& reports() const { return list(IDC_REPORT_LIST); }
    // "mark|text|state", with the mark's number.
    std::wstring task(int row) const {
        LVITEM item;
        item.mask = LVIF_IMAGE;
        item.iItem = row;
        tasks().GetItem(&item);
        return acFormat(L"%d|%s|%s", item.iImage, tasks().GetItemText(row, 1).GetString(), tasks().GetItemText(row, 2).GetString());
    }
    std::wstring report(int row) const { return acFormat(L"%s|%s", reports().GetItemText(row, 0).GetString(), reports().GetItemText(row, 1).GetString()); }
    std::wstring textOf(int id) const {
        CString text;
        this->GetDlgItemText(id, text);
        return text.text();
    }
    bool isShown(int id) const { return this->GetDlgItem(id)->IsWindowVisible() != FALSE; }
};

// A user of a window that stands open beside the command line.
class ProgressWindow : public testing::Test, public EdInput {
protected:
    ProgressWindow() {
        gWindowsAlive = 0;
        edPushInput(this);
    }
    ~ProgressWindow() override {
        AfxCancelAllDialogs();
        edPopInput();
        EXPECT_EQ(gWindowsAlive, 0) << "a window was not deleted";
    }
    template <class Window> Probe<Window>& open(const std::vector<std::wstring>& tasks = {L"első", L"második", L"harmadik"}) {
        auto* window = new Probe<Window>;
        window->setTaskTexts(tasks);
        EXPECT_TRUE(window->create(nullptr));
        window->ShowWindow(SW_SHOW);
        return *window;
    }
    // A line of the script; the test fails where it cannot be carried out.
    static void line(const std::wstring& text) { EXPECT_EQ(AfxApplyDialogLine(text), L""); }

    std::optional<std::wstring> nextLine(const std::wstring&) override { return std::nullopt; }
    std::optional<std::wstring> nextDialogLine() override { return std::nullopt; }
    void refuse(const std::wstring&) override {}
    bool breakRequested() override { return std::exchange(ctrlC, false); }

    bool ctrlC = false; // has been pressed
    DialogUser user;
};
