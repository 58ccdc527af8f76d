#include "CTrfcAboutDlg.h"

#include "Resource.h"
#include "setProductTitle.h"
#include "showHelpTopic.h"

namespace {
constexpr LPCTSTR kVersion = L"2018.1";
constexpr int kNameTenths = 200; // of a point
} // namespace

BEGIN_MESSAGE_MAP(CTrfcAboutDlg, CDialog)
    ON_BN_CLICKED(IDC_HELP_BUTTON, &CTrfcAboutDlg::OnHelp)
END_MESSAGE_MAP()

CTrfcAboutDlg::CTrfcAboutDlg(CWnd* parent) : CDialog(IDD_ABOUT, parent) {}

BOOL CTrfcAboutDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    setProductTitle(*this);
    mNameFont.CreatePointFontBold(kNameTenths, L"Tahoma");
    GetDlgItem(IDC_PRODUCT_NAME)->SetFont(&mNameFont);
    SetDlgItemText(IDC_VERSION, kVersion);
    return TRUE;
}

void CTrfcAboutDlg::OnHelp() { showHelpTopic(this, L"Welcome.html"); }
