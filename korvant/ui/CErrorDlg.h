// The window of a fault that stops a start-up or a job: one text and the button "Bezár".
#pragma once

#include "CDialog.h"

class CErrorDlg : public CDialog {
public:
    explicit CErrorDlg(LPCTSTR message, CWnd* parent = nullptr);

protected:
    BOOL OnInitDialog() override;

private:
    CString mMessage;
};
