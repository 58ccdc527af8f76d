#include "CTrfcStateChangeDlg.h"

#include "CButton.h"
#include "Resource.h"
#include "TrfcStateChangeData.h"
#include "setProductTitle.h"
#include "showHelpTopic.h"

namespace {
struct Transition {
    int box;
    bool& (*flag)(TrfcStateChangeData& data);
};
#define TRFC_FLAG(FLAG) [](TrfcStateChangeData& data) -> bool& { return data.FLAG; }
constexpr Transition kTransitions[] = {
    {IDC_POST_TO_EXISTING, TRFC_FLAG(post.plannedToExisting)},
    {IDC_POST_TO_BE_REMOVED, TRFC_FLAG(post.existingToBeRemoved)},
    {IDC_POST_DELETE, TRFC_FLAG(post.toBeRemovedDeleted)},
    {IDC_SIGN_TO_EXISTING, TRFC_FLAG(sign.plannedToExisting)},
    {IDC_SIGN_TO_BE_REMOVED, TRFC_FLAG(sign.existingToBeRemoved)},
    {IDC_SIGN_DELETE, TRFC_FLAG(sign.toBeRemovedDeleted)},
    {IDC_SIGN_COVER, TRFC_FLAG(sign.existingToCovered)},
    {IDC_SIGN_UNCOVER, TRFC_FLAG(sign.coveredToExisting)},
    {IDC_MARKING_TO_EXISTING, TRFC_FLAG(marking.plannedToExisting)},
    {IDC_MARKING_TO_BE_REMOVED, TRFC_FLAG(marking.existingToBeRemoved)},
    {IDC_MARKING_DELETE, TRFC_FLAG(marking.toBeRemovedDeleted)},
    {IDC_CROSSING_TO_EXISTING, TRFC_FLAG(crossing.plannedToExisting)},
    {IDC_CROSSING_TO_BE_REMOVED, TRFC_FLAG(crossing.existingToBeRemoved)},
    {IDC_CROSSING_DELETE, TRFC_FLAG(crossing.toBeRemovedDeleted)},
};
#undef TRFC_FLAG

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
    TrfcStateChangeData& data = stateChangeData();
    for (const Transition& transition : kTransitions)
        CheckDlgButton(transition.box, transition.flag(data) ? BST_CHECKED : BST_UNCHECKED);
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
        transition.flag(*data) = IsDlgButtonChecked(transition.box) == BST_CHECKED;
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
