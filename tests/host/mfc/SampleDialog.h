// A dialog with one control of each kind, which records what it is told.
#pragma once

#include "CButton.h"
#include "CComboBox.h"
#include "CDataExchange.h"
#include "CDialog.h"
#include "CEdit.h"
#include "CListBox.h"
#include "CListCtrl.h"
#include "CProgressCtrl.h"
#include "CTabCtrl.h"
#include "CTreeCtrl.h"
#include "DialogScript.h"

#include <string>
#include <vector>

extern const char* const kSampleResources;

enum SampleId {
    IDC_NAME = 1001, IDC_MULTI, IDC_READONLY, IDC_TYPE, IDC_FREE, IDC_CHECK, IDC_FIRST, IDC_SECOND, IDC_THIRD, IDC_APPLY,
    IDC_OFF, IDC_HIDDEN, IDC_LIST, IDC_TREE, IDC_TABS, IDC_BAR, IDC_BOX, IDC_LABEL, IDC_PICTURE, IDD_SAMPLE = 500, IDD_PAGE = 501,
    IDC_INNER = 1101
};

class SampleDialog : public CDialog {
public:
    SampleDialog() : CDialog(IDD_SAMPLE) {}
    std::vector<std::string> events;
    CString name = L"kezdet";
    int check = 0, option = 1, type = 0;
    CListCtrl list;
    CTreeCtrl tree;
    CTabCtrl tabs;
    CProgressCtrl bar;
    CEdit nameEdit;
    bool holdPage = false;
    std::function<void(SampleDialog&)> atStart;
    std::function<void(SampleDialog&)> onApply;
    // How often an event was recorded.
    int count(const std::string& event) const {
        int n = 0;
        for (const std::string& e : events)
            n += e == event ? 1 : 0;
        return n;
    }

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* dx) override;
    void OnOK() override;
    void OnCancel() override;
    void note(const char* what) { events.emplace_back(what); }
    void OnApply();
    void OnNameChange() { note("name change"); }
    void OnNameKillFocus() { note("name left"); }
    void OnCheck() { note("check"); }
    void OnOption(UINT id) { events.push_back("option " + std::to_string(id)); }
    void OnType() { note("type"); }
    void OnTree(NMHDR* header, LRESULT*);
    void OnListChanged(NMHDR* header, LRESULT*);
    void OnListClick(NMHDR* header, LRESULT*);
    void OnTab(NMHDR*, LRESULT*) { note("tab"); }
    void OnTabLeaving(NMHDR*, LRESULT* result) { *result = holdPage ? TRUE : FALSE; }
    void OnSize(UINT, int cx, int cy);
    void OnDestroy() { note("destroy"); }
    LRESULT OnUser(WPARAM w, LPARAM l) { events.push_back("user " + std::to_string(w) + " " + std::to_string(l)); return 7; }
    void OnTimer(UINT_PTR id) { events.push_back("timer " + std::to_string(id)); }
    DECLARE_MESSAGE_MAP()
};
