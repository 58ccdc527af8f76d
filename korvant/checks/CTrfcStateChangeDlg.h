// The window "Állapotváltás": which transitions apply to which kind of object. What is ticked is kept for
// the next time, also when the window is cancelled; the drawing is not touched here.
#pragma once

#include "CBitmap.h"
#include "CDialog.h"

class CTrfcStateChangeDlg : public CDialog {
public:
    explicit CTrfcStateChangeDlg(CWnd* parent = nullptr);

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    void OnTickAll();
    void OnTickNone();
    void OnExclusive(UINT id);
    void OnHelp();
    DECLARE_MESSAGE_MAP()

private:
    void tick(bool on);
    void keepTicks() const;
    CBitmap mAllBoxes, mNoBoxes;
};
