#include "CEditBlockChainDlg.h"

#include "AcUtText.h"
#include "CButton.h"
#include "CDataExchange.h"
#include "CFileDialog.h"
#include "IndividualTable.h"
#include "Resource.h"
#include "TrfcBlockChain.h"
#include "TrfcDocSettings.h"
#include "TrfcLamp.h"
#include "TrfcPost.h"
#include "TrfcTable.h"
#include "parseNumber.h"
#include "plateOrder.h"

BEGIN_MESSAGE_MAP(CEditBlockChainDlg, CBlockPage)
    ON_BN_CLICKED(IDC_CHAIN_UP, &CEditBlockChainDlg::OnUp)
    ON_BN_CLICKED(IDC_CHAIN_DOWN, &CEditBlockChainDlg::OnDown)
    ON_BN_CLICKED(IDC_CHAIN_ADD_TABLE, &CEditBlockChainDlg::OnAddTable)
    ON_BN_CLICKED(IDC_CHAIN_ADD_LAMP, &CEditBlockChainDlg::OnAddLamp)
    ON_BN_CLICKED(IDC_CHAIN_DELETE, &CEditBlockChainDlg::OnDelete)
    ON_CBN_SELCHANGE(IDC_TYPE_COMBO, &CEditBlockChainDlg::OnType)
    ON_EN_CHANGE(IDC_UNIQUE_SCALE, &CEditBlockChainDlg::OnUniqueScale)
    ON_EN_KILLFOCUS(IDC_UNIQUE_SCALE, &CEditBlockChainDlg::OnUniqueScaleLeft)
    ON_BN_CLICKED(IDC_COMPLEMENTARY, &CEditBlockChainDlg::OnComplementary)
    ON_BN_CLICKED(IDC_UNIQUE_TABLE, &CEditBlockChainDlg::OnIndividualTable)
END_MESSAGE_MAP()

CEditBlockChainDlg::CEditBlockChainDlg(TrfcBlockChain& chain, TrfcPost* post, LPCTSTR helpTopic)
    : CBlockPage(IDD_EDIT_BLOCK_CHAIN), mChain(chain), mPost(post), mHelpTopic(helpTopic) {}

void CEditBlockChainDlg::DoDataExchange(CDataExchange* exchange) {
    CBlockPage::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_UNIQUE_SCALE, mUniqueScale);
}

BOOL CEditBlockChainDlg::OnInitDialog() {
    CBlockPage::OnInitDialog();
    mType.AddString(L"Letakart");
    // The chain stands upright in the view, however its post is turned.
    mPreview.init(mChain.axis());
    mPreview.onPick = [this](int index) { select(index); };
    refreshPreview();
    select(-1);
    return TRUE;
}

// ---- what is shown
TrfcBlock* CEditBlockChainDlg::selectedBlock() const { return mSelected >= 0 && mSelected < mChain.size() ? mChain.getAt(mSelected) : nullptr; }

TrfcBlock* CEditBlockChainDlg::gridBlock() { return selectedBlock(); }

void CEditBlockChainDlg::refreshPreview() {
    mPreview.showChain(mChain);
    mPreview.setSelected(mSelected);
}

void CEditBlockChainDlg::select(int index) {
    // What is being typed belongs to the block that was selected until now.
    commit();
    mSelected = index;
    mPreview.setSelected(index);
    showSelected();
}

void CEditBlockChainDlg::showSelected() {
    mShowing = true;
    TrfcBlock* const block = selectedBlock();
    showPath(block != nullptr ? block->descriptor().blockFile : L"");
    showTyped(block);
    showUniqueScale(block);
    showComplementary(block);
    showRows(block);
    enableControls();
    mShowing = false;
}

void CEditBlockChainDlg::showTyped(const TrfcBlock* block) {
    const auto* const typed = TrfcTypedBlock::cast(block);
    mType.SetCurSel(typed != nullptr ? typed->blockType() : CB_ERR);
    mType.EnableWindow(typed != nullptr);
}

void CEditBlockChainDlg::showUniqueScale(const TrfcBlock* block) {
    const auto* const typed = TrfcTypedBlock::cast(block);
    mUniqueScale.SetWindowText(typed != nullptr ? acFormat(L"%.3f", typed->uniqueScaleFactor()).c_str() : L"");
    mUniqueScale.EnableWindow(typed != nullptr);
}

// The topmost sign has no main sign above it, so it cannot complement one.
void CEditBlockChainDlg::showComplementary(TrfcBlock* block) {
    const auto* const table = mSelected < mChain.upCount() - 1 ? TrfcTable::cast(block) : nullptr;
    CheckDlgButton(IDC_COMPLEMENTARY, table != nullptr && table->isComplementary() ? BST_CHECKED : BST_UNCHECKED);
    GetDlgItem(IDC_COMPLEMENTARY)->EnableWindow(table != nullptr);
}

void CEditBlockChainDlg::showRows(const TrfcBlock* block) {
    mGrid.removeRows();
    if (block == nullptr)
        return;
    const ACHAR* const base = block->isKindOf(TrfcLamp::desc()) ? APP_LAMPS_BASE_PATH : APP_TABLES_BASE_PATH;
    addBlockRows(*block, TrfcAppSettings::libraryFolder(base));
}

void CEditBlockChainDlg::enableControls() {
    const BOOL some = selectedBlock() != nullptr;
    for (const int id : {IDC_CHAIN_UP, IDC_CHAIN_DOWN, IDC_CHAIN_DELETE, IDC_PATH_TREE, IDC_ATTRIBUTE_LIST})
        GetDlgItem(id)->EnableWindow(some);
    GetDlgItem(IDC_UNIQUE_TABLE)->EnableWindow(mPost != nullptr);
}

// ---- order
void CEditBlockChainDlg::move(Move operation) {
    commit();
    int index = mSelected;
    if (selectedBlock() == nullptr || (mChain.*operation)(mSelected, &index) != Acad::eOk)
        return;
    mSelected = index;
    refreshPreview();
    showSelected();
}

void CEditBlockChainDlg::OnUp() { move(&TrfcBlockChain::moveUpBlock); }
void CEditBlockChainDlg::OnDown() { move(&TrfcBlockChain::moveDnBlock); }

// ---- adding and deleting
void CEditBlockChainDlg::OnAddTable() {
    const std::wstring path = chooseBlock(APP_TABLES_BASE_PATH);
    if (!path.empty())
        addTable(path);
}

void CEditBlockChainDlg::addTable(const std::wstring& relativePath) {
    auto table = std::make_unique<TrfcTable>(loadBlockTemplate(TrfcAppSettings::libraryFolder(APP_TABLES_BASE_PATH), relativePath));
    const int index = addPlate(mChain, std::move(table), relativePath);
    if (index < 0)
        return;
    refreshPreview();
    select(index);
}

void CEditBlockChainDlg::OnAddLamp() {
    const std::wstring path = chooseBlock(APP_LAMPS_BASE_PATH);
    if (path.empty())
        return;
    auto lamp = std::make_unique<TrfcLamp>(loadBlockTemplate(TrfcAppSettings::libraryFolder(APP_LAMPS_BASE_PATH), path));
    // Lamps hang: the axis of a lamp arm points at the foot, and the lamps lead away from it.
    if (mChain.appendBlockDownward(lamp.get()) != Acad::eOk)
        return;
    lamp.release();
    refreshPreview();
    select(mChain.size() - 1);
}

void CEditBlockChainDlg::OnDelete() {
    if (selectedBlock() == nullptr)
        return;
    mGrid.removeRows();
    mPreview.clear(); // it must not hold the block any longer
    mChain.deleteBlock(mSelected);
    if (mSelected >= mChain.size())
        --mSelected;
    refreshPreview();
    showSelected();
}

// ---- properties of the selected block
void CEditBlockChainDlg::OnType() {
    if (selectedBlock() == nullptr || mType.GetCurSel() == CB_ERR)
        return;
    mChain.setBlockType(mSelected, static_cast<TRFC_BLOCK_TYPE>(mType.GetCurSel()));
    refreshPreview();
}

// A factor of 0 or less would make the symbol vanish for good, so a half-typed "0." waits.
void CEditBlockChainDlg::OnUniqueScale() {
    CString text;
    mUniqueScale.GetWindowText(text);
    double factor = 0.0;
    if (mShowing || selectedBlock() == nullptr || !parseNumber(text.text(), factor) || factor <= 0.0)
        return;
    mChain.setBlockUniqueScale(mSelected, factor);
    refreshPreview();
}

void CEditBlockChainDlg::OnUniqueScaleLeft() {
    mShowing = true;
    showUniqueScale(selectedBlock());
    mShowing = false;
}

void CEditBlockChainDlg::OnComplementary() {
    if (selectedBlock() == nullptr)
        return;
    mChain.setComplementary(mSelected, IsDlgButtonChecked(IDC_COMPLEMENTARY) == BST_CHECKED);
    pointToMainSigns(mChain);
    refreshPreview();
    showSelected();
}

// ---- individual signs
void CEditBlockChainDlg::OnIndividualTable() {
    if (mPost == nullptr)
        return;
    commit();
    CFileDialog dialog(TRUE, L"dwg", nullptr, OFN_HIDEREADONLY | OFN_FILEMUSTEXIST, L"AutoCad DWG fájl (*.dwg)|*.dwg||", this);
    dialog.m_ofn.lpstrInitialDir = TrfcAppSettings::libraryFolder(APP_TEMP_DIR_PATH).c_str();
    if (dialog.DoModal() != IDOK)
        return;
    const std::wstring relativePath = individualTablePath(mPost->pointA());
    if (storeIndividualTable(dialog.GetPathName().text(), relativePath))
        addTable(relativePath);
}
