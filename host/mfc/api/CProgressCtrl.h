// A bar that shows how far a job is.
#pragma once

#include "CWnd.h"

class CProgressCtrl : public CWnd {
public:
    BOOL Create(DWORD style, const CRect& rect, CWnd* parent, UINT id);
    void SetRange(short low, short high) { SetRange32(low, high); }
    void SetRange32(int low, int high);
    void GetRange(int& low, int& high) const;
    int SetPos(int position); // the earlier one; cut to the range
    int GetPos() const;
    int OffsetPos(int delta);
    int SetStep(int step); // the earlier one; 10 at first
    int StepIt();          // goes round to the low end past the high one

    DECLARE_MESSAGE_MAP()
};
