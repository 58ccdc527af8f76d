#include "CEditBlockDlg.h"

#include "Resource.h"
#include "TrfcAppSettings.h"
#include "TrfcBlockEnt.h"

BEGIN_MESSAGE_MAP(CEditBlockDlg, CBlockPage)
    ON_BN_CLICKED(IDC_SELECT_BLOCK, &CEditBlockDlg::OnSelectBlock)
    ON_CBN_SELCHANGE(IDC_TYPE_COMBO, &CEditBlockDlg::OnType)
END_MESSAGE_MAP()

CEditBlockDlg::CEditBlockDlg(TrfcBlockEnt& block) : CBlockPage(IDD_EDIT_BLOCK), mBlock(block) {}

BOOL CEditBlockDlg::OnInitDialog() {
    CBlockPage::OnInitDialog();
    mPreview.init(AcGeVector3d::kYAxis);
    showBlock();
    // A marking that has no symbol yet is being placed: placement begins with the choice.
    if (std::wstring(mBlock.descriptor().blockFile) == L"TrfcBlockDefault.dwg")
        OnSelectBlock();
    return TRUE;
}

void CEditBlockDlg::showBlock() {
    showPath(mBlock.descriptor().blockFile);
    mType.SetCurSel(mBlock.entType());
    mGrid.removeRows();
    addBlockRows(mBlock, TrfcAppSettings::libraryFolder(APP_BLOCK_BASE_PATH));
    refreshPreview();
}

TrfcBlock* CEditBlockDlg::gridBlock() { return &mBlock; }

void CEditBlockDlg::refreshPreview() { mPreview.showBlock(&mBlock); }

void CEditBlockDlg::OnSelectBlock() {
    const std::wstring file = chooseBlock(APP_BLOCK_BASE_PATH);
    if (file.empty())
        return;
    mBlock.setBlock(loadBlockTemplate(TrfcAppSettings::libraryFolder(APP_BLOCK_BASE_PATH), file));
    showBlock();
}

void CEditBlockDlg::OnType() {
    mBlock.setType(static_cast<TRFC_BLOCK_ENT_TYPE>(mType.GetCurSel()));
    refreshPreview();
}
