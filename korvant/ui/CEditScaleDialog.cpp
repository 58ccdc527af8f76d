#include "CEditScaleDialog.h"

#include "AcUtText.h"
#include "Resource.h"
#include "scaleNumber.h"
#include "setProductTitle.h"
#include "showHelpTopic.h"

BEGIN_MESSAGE_MAP(CEditScaleDialog, CDialog)
    ON_BN_CLICKED(IDC_HELP_BUTTON, &CEditScaleDialog::OnHelp)
END_MESSAGE_MAP()

CEditScaleDialog::CEditScaleDialog(const ScaleComparisonItem& item, CWnd* parent) : CDialog(IDD_EDIT_SCALE, parent), mItem(item) {}

BOOL CEditScaleDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    setProductTitle(*this);
    SetDlgItemText(IDC_SCALE_NAME, mItem.name.c_str());
    SetDlgItemText(IDC_SCALE_PAPER, scaleNumber(mItem.paperUnits).c_str());
    SetDlgItemText(IDC_SCALE_DRAWING, scaleNumber(mItem.drawingUnits).c_str());
    return TRUE;
}

// What is no number reads as 0; such a scale never enters the drawing.
double CEditScaleDialog::numberIn(int id) const {
    CString text;
    GetDlgItemText(id, text);
    text.Replace(L',', L'.');
    return acWtof(text);
}

void CEditScaleDialog::OnOK() {
    CString name;
    GetDlgItemText(IDC_SCALE_NAME, name);
    mItem.name = name.text();
    mItem.paperUnits = numberIn(IDC_SCALE_PAPER);
    mItem.drawingUnits = numberIn(IDC_SCALE_DRAWING);
    CDialog::OnOK();
}

void CEditScaleDialog::OnHelp() { showHelpTopic(this, L"Settings_Scale.html"); }
