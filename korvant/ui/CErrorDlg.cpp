#include "CErrorDlg.h"

#include "Resource.h"
#include "setProductTitle.h"

CErrorDlg::CErrorDlg(LPCTSTR message, CWnd* parent) : CDialog(IDD_ERROR, parent), mMessage(message) {}

BOOL CErrorDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    setProductTitle(*this);
    SetDlgItemText(IDC_ERROR_TEXT, mMessage);
    return TRUE;
}
