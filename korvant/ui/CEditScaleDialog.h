// The window "Léptékszerkesztő": the name of one scale and what it makes of a length on paper.
#pragma once

#include "CDialog.h"
#include "ScaleComparisonItem.h"

class CEditScaleDialog : public CDialog {
public:
    explicit CEditScaleDialog(const ScaleComparisonItem& item, CWnd* parent = nullptr);
    // The item as it was changed; what the caller gave, unless the window ended with IDOK.
    const ScaleComparisonItem& item() const { return mItem; }

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnHelp();
    DECLARE_MESSAGE_MAP()

private:
    double numberIn(int id) const;
    ScaleComparisonItem mItem;
};
