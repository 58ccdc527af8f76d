// The page of a road marking: its symbol, its state and the symbol's attributes.
#pragma once

#include "CBlockPage.h"

class TrfcBlockEnt;

class CEditBlockDlg : public CBlockPage {
public:
    explicit CEditBlockDlg(TrfcBlockEnt& block); // the copy that is edited
    LPCTSTR helpTopic() const override { return L"Block_Properties.html"; }

protected:
    BOOL OnInitDialog() override;
    TrfcBlock* gridBlock() override;
    void refreshPreview() override;
    void OnSelectBlock();
    void OnType();
    DECLARE_MESSAGE_MAP()

private:
    void showBlock();
    TrfcBlockEnt& mBlock;
};
