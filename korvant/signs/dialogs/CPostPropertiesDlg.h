// The properties window of a post: its general page, its signs and one page for each lamp chain.
#pragma once

#include "CPropertyPagesDlg.h"

class TrfcPost;

class CPostPropertiesDlg : public CPropertyPagesDlg {
public:
    // clone: the copy that is edited; the caller takes it on IDOK and drops it otherwise.
    CPostPropertiesDlg(TrfcPost& clone, int page, CWnd* parent = nullptr);

protected:
    std::vector<CString> pageTitles() const override;
    std::unique_ptr<CPropertyPage> makePage(int index) override;

private:
    TrfcPost& mPost;
};
