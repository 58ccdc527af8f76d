#include "CCheckProgressDialog.h"

#include "AfxApp.h"
#include "Resource.h"

CCheckProgressDialog::CCheckProgressDialog() : CTaskProgressReportDialog(IDD_CHECK_PROGRESS) {}

void CCheckProgressDialog::finish() {
    CTaskProgressReportDialog::finish();
    if (reportCount() > 0)
        return;
    close();
    AfxMessageBoxOf(nullptr, L"Nincs táblasorrend hiba!", L"Korvant - Táblasorrend", MB_OK | MB_ICONINFORMATION);
}
