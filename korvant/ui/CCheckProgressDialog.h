// The window of the sign order check. With nothing to report it closes by itself at the end and says so.
#pragma once

#include "CTaskProgressReportDialog.h"

class CCheckProgressDialog : public CTaskProgressReportDialog {
public:
    CCheckProgressDialog();
    // Deletes the window when no row was reported.
    void finish() override;
};
