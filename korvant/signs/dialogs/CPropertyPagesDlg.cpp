#include "CPropertyPagesDlg.h"

#include "CDataExchange.h"
#include "Resource.h"
#include "setProductTitle.h"
#include "showHelpTopic.h"

#include <algorithm>

BEGIN_MESSAGE_MAP(CPropertyPagesDlg, CDialog)
    ON_NOTIFY(TCN_SELCHANGE, IDC_PROPERTIES_TAB, &CPropertyPagesDlg::OnTabChange)
    ON_BN_CLICKED(IDC_HELP_BUTTON, &CPropertyPagesDlg::OnHelp)
    ON_WM_DESTROY()
END_MESSAGE_MAP()

CPropertyPagesDlg::CPropertyPagesDlg(UINT templateId, int page, CWnd* parent) : CDialog(templateId, parent), mFirstPage(page) {}

void CPropertyPagesDlg::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_PROPERTIES_TAB, mTab);
}

BOOL CPropertyPagesDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    setProductTitle(*this);
    int index = 0;
    for (const CString& title : pageTitles())
        mTab.InsertItem(index++, title);
    const int first = std::clamp(mFirstPage, 0, std::max(0, index - 1));
    mTab.SetCurSel(first);
    showPage(first);
    return TRUE;
}

void CPropertyPagesDlg::showPage(int index) {
    endPage();
    CRect area;
    mTab.GetClientRect(area);
    mTab.AdjustRect(FALSE, &area);
    mPage = makePage(index);
    if (!mPage->open(mTab, area, *this))
        mPage.reset();
}

void CPropertyPagesDlg::endPage() {
    if (mPage == nullptr)
        return;
    mPage->commit();
    mPage->DestroyWindow();
    mPage.reset();
}

void CPropertyPagesDlg::OnTabChange(NMHDR*, LRESULT* result) {
    *result = 0;
    showPage(mTab.GetCurSel());
}

void CPropertyPagesDlg::OnOK() {
    if (mPage != nullptr)
        mPage->commit();
    CDialog::OnOK();
}

void CPropertyPagesDlg::OnHelp() {
    if (mPage != nullptr)
        showHelpTopic(this, mPage->helpTopic());
}

void CPropertyPagesDlg::OnDestroy() {
    CDialog::OnDestroy();
    mPage.reset();
}
