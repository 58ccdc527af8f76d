// A page of a properties window: a child dialog that stands in the window's tab control while its
// tab is shown. Every change reaches the edited copy at once.
#pragma once

#include "CDialog.h"

class CPropertyPage : public CDialog {
public:
    explicit CPropertyPage(UINT templateId) : mTemplateId(templateId) {}

    // Makes the page inside the tab control and fits it into the control's area. frame: the
    // window that Enter, Escape and the help button belong to.
    BOOL open(CWnd& tab, const CRect& area, CWnd& frame);
    // Takes in what is still being typed; called before the page goes and before the window ends.
    virtual void commit() = 0;
    virtual LPCTSTR helpTopic() const = 0;

protected:
    // A key press on the page acts as on the window.
    void OnOK() override;
    void OnCancel() override;

private:
    UINT mTemplateId;
    CWnd* mFrame = nullptr;
};
