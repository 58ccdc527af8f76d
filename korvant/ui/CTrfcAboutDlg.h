// The window "Névjegy": what the product is and which version of it runs.
#pragma once

#include "CDialog.h"
#include "CFont.h"

class CTrfcAboutDlg : public CDialog {
public:
    explicit CTrfcAboutDlg(CWnd* parent = nullptr);

protected:
    BOOL OnInitDialog() override;
    void OnHelp();
    DECLARE_MESSAGE_MAP()

private:
    CFont mNameFont;
};
