#include "CBlockPropertiesDlg.h"

#include "AfxApp.h"
#include "CEditBlockDlg.h"
#include "Resource.h"

CBlockPropertiesDlg::CBlockPropertiesDlg(TrfcBlockEnt& clone, CWnd* parent)
    : CPropertyPagesDlg(IDD_BLOCK_PROPERTIES, 0, parent), mBlock(clone) {}

std::vector<CString> CBlockPropertiesDlg::pageTitles() const { return {AfxResourceString(IDS_PAGE_BLOCK).c_str()}; }

std::unique_ptr<CPropertyPage> CBlockPropertiesDlg::makePage(int) { return std::make_unique<CEditBlockDlg>(mBlock); }
