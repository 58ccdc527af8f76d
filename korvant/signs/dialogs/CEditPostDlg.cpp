#include "CEditPostDlg.h"

#include "AcUtText.h"
#include "CButton.h"
#include "Resource.h"
#include "TrfcDocSettings.h"
#include "TrfcPost.h"
#include "parseNumber.h"

namespace {
// The view shows this many diameters of the foot.
constexpr double kViewDiameters = 4.5;
} // namespace

BEGIN_MESSAGE_MAP(CEditPostDlg, CBlockPage)
    ON_BN_CLICKED(IDC_SELECT_BLOCK, &CEditPostDlg::OnSelectBlock)
    ON_CBN_SELCHANGE(IDC_TYPE_COMBO, &CEditPostDlg::OnType)
    ON_BN_CLICKED(IDC_FOLLOW_ROTATION, &CEditPostDlg::OnFollowRotation)
END_MESSAGE_MAP()

CEditPostDlg::CEditPostDlg(TrfcPost& post) : CBlockPage(IDD_EDIT_POST), mPost(post) {}

BOOL CEditPostDlg::OnInitDialog() {
    CBlockPage::OnInitDialog();
    mPreview.init(AcGeVector3d::kYAxis);
    CheckDlgButton(IDC_FOLLOW_ROTATION, mPost.lampsFollowRotation() ? BST_CHECKED : BST_UNCHECKED);
    showPost();
    return TRUE;
}

void CEditPostDlg::showPost() {
    showPath(mPost.baseBlock().descriptor().blockFile);
    mType.SetCurSel(mPost.postData().postType);
    mGrid.removeRows();
    addPageField(L"Felirat", mPost.postText().text);
    addPageField(L"Anyag", mPost.postData().material);
    addPageField(L"Magasság", acFormat(L"%.2f", mPost.postData().height));
    addBlockRows(mPost.baseBlock(), TrfcAppSettings::libraryFolder(APP_POSTS_BASE_PATH));
    refreshPreview();
}

TrfcBlock* CEditPostDlg::gridBlock() { return &mPost.baseBlock(); }

void CEditPostDlg::refreshPreview() {
    mPreview.showEntity(&mPost);
    mPreview.zoomAbout(mPost.pointA(), TrfcDocSettings::getDocDoubleIn(DOC_BASEPOINTD, L"wcs") * kViewDiameters);
}

void CEditPostDlg::writePageField(int row) {
    const std::wstring value = mGrid.rowAt(row).value;
    switch (static_cast<Field>(row)) {
    case kText: mPost.postText().text = value; break;
    case kMaterial: mPost.postData().material = value; break;
    case kHeight:
        parseNumber(value, mPost.postData().height);
        mGrid.setRowValue(row, acFormat(L"%.2f", mPost.postData().height));
        break;
    }
}

void CEditPostDlg::OnSelectBlock() {
    const std::wstring file = chooseBlock(APP_POSTS_BASE_PATH);
    if (file.empty())
        return;
    mPost.setBaseBlock(loadBlockTemplate(TrfcAppSettings::libraryFolder(APP_POSTS_BASE_PATH), file));
    showPost();
}

void CEditPostDlg::OnType() {
    mGrid.commitEdit();
    mPost.setPostType(mType.GetCurSel());
    showPost();
}

void CEditPostDlg::OnFollowRotation() {
    mPost.setLampsFollowRotation(IsDlgButtonChecked(IDC_FOLLOW_ROTATION) == BST_CHECKED);
}
