// A properties window: a tab control of pages, OK, cancel and help. Only the visible page exists: a
// change of tab ends the old page and makes the new one.
#pragma once

#include "CPropertyPage.h"
#include "CTabCtrl.h"

#include <memory>
#include <vector>

class CPropertyPagesDlg : public CDialog {
public:
    // page: the one to open; one out of range opens the nearest.
    CPropertyPagesDlg(UINT templateId, int page, CWnd* parent);
    CPropertyPage* visiblePage() const { return mPage.get(); }

protected:
    virtual std::vector<CString> pageTitles() const = 0;
    virtual std::unique_ptr<CPropertyPage> makePage(int index) = 0;

    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;
    void OnTabChange(NMHDR* header, LRESULT* result);
    void OnHelp();
    void OnDestroy();
    DECLARE_MESSAGE_MAP()

private:
    void showPage(int index);
    void endPage();
    CTabCtrl mTab;
    int mFirstPage;
    std::unique_ptr<CPropertyPage> mPage;
};
