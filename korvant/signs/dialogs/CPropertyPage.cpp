#include "CPropertyPage.h"

BOOL CPropertyPage::open(CWnd& tab, const CRect& area, CWnd& frame) {
    mFrame = &frame;
    if (!Create(mTemplateId, &tab))
        return FALSE;
    MoveWindow(area);
    ShowWindow(SW_SHOW);
    return TRUE;
}

void CPropertyPage::OnOK() {
    if (mFrame != nullptr)
        mFrame->SendMessage(WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED));
}

void CPropertyPage::OnCancel() {
    if (mFrame != nullptr)
        mFrame->SendMessage(WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED));
}
