#include "CTrfcStateChangeDlg.h"

#include "CButton.h"
#include "Resource.h"
#include "TrfcStateChangeData.h"
#include "setProductTitle.h"
#include "showHelpTopic.h"

namespace {
struct Transition {
    int box;
    bool TrfcStateChangeData::*flag;
};
constexpr Transition kTransitions[] = {
    {IDC_POST_TO_EXISTING, &TrfcStateChangeData::postPlannedToExisting},
    {IDC_POST_TO_BE_REMOVED, &TrfcStateChangeData::postExistingToBeRemoved},
    {IDC_POST_DELETE, &TrfcStateChangeData::postToBeRemovedDeleted},
    {IDC_SIGN_TO_EXISTING, &TrfcStateChangeData::signPlannedToExisting},
    {IDC_SIGN_TO_BE_REMOVED, &TrfcStateChangeData::signExistingToBeRemoved},
    {IDC_SIGN_DELETE, &TrfcStateChangeData::signToBeRemovedDeleted},
    {IDC_SIGN_COVER, &TrfcStateChangeData::signExistingToCovered},
    {IDC_SIGN_UNCOVER, &TrfcStateChangeData::signCoveredToExisting},
    {IDC_MARKING_TO_EXISTING, &TrfcStateChangeData::markingPlannedToExisting},
    {IDC_MARKING_TO_BE_REMOVED, &TrfcStateChangeData::markingExistingToBeRemoved},
    {IDC_MARKING_DELETE, &TrfcStateChangeData::markingToBeRemovedDeleted},
    {IDC_CROSSING_TO_EXISTING, &TrfcStateChangeData::crossingPlannedToExisting},
    {IDC_CROSSING_TO_BE_REMOVED, &TrfcStateChangeData::crossingExistingToBeRemoved},
    {IDC_CROSSING_DELETE, &TrfcStateChangeData::crossingToBeRemovedDeleted},
};

void showPicture(CWnd* button, CBitmap& picture, UINT id) {
    picture.LoadBitmap(id);
    static_cast<CButton*>(button)->SetBitmap(&picture);
}
} // namespace

BEGIN_MESSAGE_MAP(CTrfcStateChangeDlg, CDialog)
    ON_BN_CLICKED(IDC_BUTT_ALL, &CTrfcStateChangeDlg::OnTickAll)
    ON_BN_CLICKED(IDC_BUTT_NON, &CTrfcStateChangeDlg::OnTickNone)
    ON_BN_CLICKED(IDC_SIGN_TO_BE_REMOVED, &CTrfcStateChangeDlg::OnExclusive)
    ON_BN_CLICKED(IDC_SIGN_COVER, &CTrfcStateChangeDlg::OnExclusive)
    ON_BN_CLICKED(IDC_HELP_BUTTON, &CTrfcStateChangeDlg::OnHelp)
END_MESSAGE_MAP()

CTrfcStateChangeDlg::CTrfcStateChangeDlg(CWnd* parent) : CDialog(IDD_STATE_CHANGE, parent) {}

BOOL CTrfcStateChangeDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    setProductTitle(*this);
    showPicture(GetDlgItem(IDC_BUTT_ALL), mAllBoxes, IDB_BUTT_ALL);
    showPicture(GetDlgItem(IDC_BUTT_NON), mNoBoxes, IDB_BUTT_NON);
    const TrfcStateChangeData& data = stateChangeData();
    for (const Transition& transition : kTransitions)
        CheckDlgButton(transition.box, data.*transition.flag ? BST_CHECKED : BST_UNCHECKED);
    CheckRadioButton(IDC_SELECTION_ONLY, IDC_ALL_OBJECTS, data.selectionOnly ? IDC_SELECTION_ONLY : IDC_ALL_OBJECTS);
    CheckRadioButton(IDC_CONFIRM_DELETE, IDC_DELETE_UNASKED, data.confirmOnDelete ? IDC_CONFIRM_DELETE : IDC_DELETE_UNASKED);
    return TRUE;
}

void CTrfcStateChangeDlg::tick(bool on) {
    for (const Transition& transition : kTransitions)
        CheckDlgButton(transition.box, on ? BST_CHECKED : BST_UNCHECKED);
}

// The usual stage of building; covering excludes the removal of the same signs.
void CTrfcStateChangeDlg::OnTickAll() {
    tick(true);
    CheckDlgButton(IDC_SIGN_COVER, BST_UNCHECKED);
}

void CTrfcStateChangeDlg::OnTickNone() {
    tick(false);
}

// An existing sign can take only one of the two ways.
void CTrfcStateChangeDlg::OnExclusive(UINT id) {
    const int other = id == IDC_SIGN_COVER ? IDC_SIGN_TO_BE_REMOVED : IDC_SIGN_COVER;
    if (IsDlgButtonChecked(static_cast<int>(id)) == BST_CHECKED)
        CheckDlgButton(other, BST_UNCHECKED);
}

void CTrfcStateChangeDlg::OnHelp() {
    showHelpTopic(this, L"StateChange.html");
}

void CTrfcStateChangeDlg::keepTicks() const {
    auto data = std::make_unique<TrfcStateChangeData>();
    for (const Transition& transition : kTransitions)
        (*data).*transition.flag = IsDlgButtonChecked(transition.box) == BST_CHECKED;
    data->selectionOnly = IsDlgButtonChecked(IDC_SELECTION_ONLY) == BST_CHECKED;
    data->confirmOnDelete = IsDlgButtonChecked(IDC_CONFIRM_DELETE) == BST_CHECKED;
    setStateChangeData(std::move(data));
}

void CTrfcStateChangeDlg::OnOK() {
    keepTicks();
    CDialog::OnOK();
}

// The ticks outlive a cancel on purpose: the user finds them the next time.
void CTrfcStateChangeDlg::OnCancel() {
    keepTicks();
    CDialog::OnCancel();
}
