#include "CPostPropertiesDlg.h"

#include "AfxApp.h"
#include "CEditBlockChainDlg.h"
#include "CEditPostDlg.h"
#include "Resource.h"
#include "TrfcPost.h"
#include "TrfcPostPages.h"

CPostPropertiesDlg::CPostPropertiesDlg(TrfcPost& clone, int page, CWnd* parent)
    : CPropertyPagesDlg(IDD_POST_PROPERTIES, page, parent), mPost(clone) {}

std::vector<CString> CPostPropertiesDlg::pageTitles() const {
    std::vector<CString> titles{AfxResourceString(IDS_PAGE_GENERAL).c_str(), AfxResourceString(IDS_PAGE_TABLES).c_str()};
    for (int lamp = 0; lamp < mPost.lampChainCount(); ++lamp) {
        CString title(AfxResourceString(IDS_PAGE_LAMP).c_str());
        title.AppendFormat(L" %d", lamp + 1);
        titles.push_back(title);
    }
    return titles;
}

std::unique_ptr<CPropertyPage> CPostPropertiesDlg::makePage(int index) {
    if (index == kPostPageGeneral)
        return std::make_unique<CEditPostDlg>(mPost);
    if (index == kPostPageTables)
        return std::make_unique<CEditBlockChainDlg>(mPost.signChain(), &mPost, L"Post_Tables.html");
    return std::make_unique<CEditBlockChainDlg>(mPost.lampChain(index - kPostPageFirstLamp), &mPost, L"Post_Lamps.html");
}
