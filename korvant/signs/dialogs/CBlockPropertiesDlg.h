// The properties window of a road marking: one page.
#pragma once

#include "CPropertyPagesDlg.h"

class TrfcBlockEnt;

class CBlockPropertiesDlg : public CPropertyPagesDlg {
public:
    // clone: the copy that is edited; the caller takes it on IDOK and drops it otherwise.
    explicit CBlockPropertiesDlg(TrfcBlockEnt& clone, CWnd* parent = nullptr);

protected:
    std::vector<CString> pageTitles() const override;
    std::unique_ptr<CPropertyPage> makePage(int index) override;

private:
    TrfcBlockEnt& mBlock;
};
