// Moves values between a dialog's controls and its members, in DoDataExchange.
#pragma once

#include "CWnd.h"

class CDataExchange {
public:
    CDataExchange(CWnd* dialog, BOOL saveAndValidate) : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(dialog) {}
    BOOL m_bSaveAndValidate; // TRUE: controls to members
    CWnd* m_pDlgWnd;
    void Fail() { mFailed = true; } // the value does not fit; UpdateData gives FALSE
    bool failed() const { return mFailed; }

private:
    bool mFailed = false;
};

// Binds a member to the control, once; a control of that id must exist.
void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
void DDX_Text(CDataExchange* exchange, int id, CString& value);
void DDX_Text(CDataExchange* exchange, int id, int& value);    // 0 for non-numbers
void DDX_Text(CDataExchange* exchange, int id, double& value); // written as %g; 0.0 for non-numbers
void DDX_Check(CDataExchange* exchange, int id, int& value);
void DDX_Radio(CDataExchange* exchange, int firstId, int& value); // index in the group, -1: none
void DDX_CBIndex(CDataExchange* exchange, int id, int& value);    // -1: none
void DDX_CBString(CDataExchange* exchange, int id, CString& value);
void DDX_LBIndex(CDataExchange* exchange, int id, int& value);
