// A dialog made from a template of the module's resource script.
//
// DoModal runs until EndDialog; where the program is driven by lines (AfxDialogDriver.h) it takes
// lines that begin with "@", else it runs an event loop. Create makes a modeless dialog, or a
// page inside its parent where the template's style has WS_CHILD.
#pragma once

#include "CWnd.h"

class CDialog : public CWnd {
public:
    CDialog();
    explicit CDialog(UINT templateId, CWnd* parent = nullptr);
    explicit CDialog(LPCTSTR templateName, CWnd* parent = nullptr);
    ~CDialog() override;

    // The value given to EndDialog; -1 where the template does not exist.
    virtual INT_PTR DoModal();
    // FALSE where the template does not exist. OnInitDialog has run when it returns.
    virtual BOOL Create(UINT templateId, CWnd* parent = nullptr);
    virtual BOOL Create(LPCTSTR templateName, CWnd* parent = nullptr);
    void EndDialog(int result);
    void NextDlgCtrl();
    void GotoDlgCtrl(CWnd* control);
    void SetDefID(UINT id);
    int GetDefID() const;

    BOOL DestroyWindow() override;
    BOOL PreTranslateMessage(MSG* message) override; // Enter and Escape

    virtual BOOL OnInitDialog(); // UpdateData(FALSE); TRUE lets the first control take the focus

protected:
    virtual void OnOK();     // UpdateData(TRUE), then EndDialog(IDOK)
    virtual void OnCancel(); // EndDialog(IDCANCEL); also the title bar's close and Escape
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    UINT m_nIDTemplate = 0;
    CWnd* m_pParentWnd = nullptr;

    DECLARE_MESSAGE_MAP()

private:
    friend struct AfxDialogRun;
    struct State;
    std::unique_ptr<State> mState;
};
using CDialogEx = CDialog;
