#include "CDialog.h"

#include "core/AfxDispatch.h"
#include "core/AfxWindow.h"
#include "dialog/AfxColors.h"
#include "dialog/AfxDialogBuilder.h"
#include "dialog/AfxModal.h"
#include "resource/AfxResources.h"

#include <QApplication>
#include <QEventLoop>
#include <QPushButton>

struct CDialog::State {
    std::wstring templateKey;
    AfxModalRun* run = nullptr; // null: modeless
    UINT defaultId = IDOK;
    bool hasEnded = false;
};

BEGIN_MESSAGE_MAP(CDialog, CWnd)
END_MESSAGE_MAP()

CDialog::CDialog() : mState(std::make_unique<State>()) {}

CDialog::CDialog(UINT templateId, CWnd* parent) : m_nIDTemplate(templateId), m_pParentWnd(parent), mState(std::make_unique<State>()) {
    mState->templateKey = rcKey(static_cast<int>(templateId));
}

CDialog::CDialog(LPCTSTR templateName, CWnd* parent) : m_pParentWnd(parent), mState(std::make_unique<State>()) {
    mState->templateKey = afxResourceKey(templateName);
}

CDialog::~CDialog() {
    afxModelessClosed(*this);
    if (mState->run != nullptr)
        mState->run->hasEnded = true;
}

// ---- opening -------------------------------------------------------------------------
INT_PTR CDialog::DoModal() {
    const RcDialog* source = afxDialogTemplate(mState->templateKey);
    return source == nullptr ? -1 : AfxDialogRun::run(*this, *source, m_pParentWnd);
}

BOOL CDialog::Create(UINT templateId, CWnd* parent) {
    return Create(rcKey(static_cast<int>(templateId)).c_str(), parent);
}

BOOL CDialog::Create(LPCTSTR templateName, CWnd* parent) {
    mState->templateKey = afxResourceKey(templateName);
    const RcDialog* source = afxDialogTemplate(mState->templateKey);
    return source == nullptr ? FALSE : AfxDialogRun::open(*this, *source, parent == nullptr ? m_pParentWnd : parent);
}

namespace {
QPushButton* defaultButton(const CDialog& dialog) {
    for (CWnd* child : dialog.window()->children)
        if (auto* button = afxWidgetAs<QPushButton>(*child); button != nullptr && button->isDefault())
            return button;
    return nullptr;
}

void focusFirst(const CDialog& dialog) {
    for (CWnd* child : dialog.window()->children) {
        QWidget* widget = child->window()->widget;
        if (widget != nullptr && (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isEnabled() && !widget->isHidden()) {
            widget->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
}
} // namespace

void AfxDialogRun::begin(CDialog& dialog) {
    dialog.mState->hasEnded = false;
    if (dialog.OnInitDialog() && dialog.IsWindow())
        focusFirst(dialog);
    if (dialog.IsWindow())
        afxApplyColors(dialog);
}

INT_PTR AfxDialogRun::run(CDialog& dialog, const RcDialog& source, CWnd* parent) {
    if (dialog.IsWindow())
        return -1; // it is open already
    afxBuildDialog(dialog, source, parent);
    QWidget* widget = dialog.window()->widget;
    widget->setWindowModality(Qt::ApplicationModal);
    AfxModalRun run;
    run.dialog = &dialog;
    dialog.mState->run = &run;
    struct Ending { // OnInitDialog may throw past the run
        CDialog& dialog;
        ~Ending() {
            dialog.mState->run = nullptr;
            if (dialog.IsWindow())
                afxDestroy(dialog, true);
        }
    } const ending{dialog};
    begin(dialog);
    if (!run.hasEnded)
        afxRunModal(run);
    return run.result;
}

BOOL AfxDialogRun::open(CDialog& dialog, const RcDialog& source, CWnd* parent) {
    if (dialog.IsWindow())
        return FALSE;
    afxBuildDialog(dialog, source, parent);
    if (dialog.window()->isTopLevel)
        afxModelessOpened(dialog);
    begin(dialog);
    if (dialog.IsWindow() && (source.style & WS_VISIBLE) != 0)
        dialog.ShowWindow(SW_SHOW);
    return dialog.IsWindow();
}

bool AfxDialogRun::isModal(const CDialog& dialog) {
    return dialog.mState->run != nullptr;
}

bool AfxDialogRun::hasEnded(const CDialog& dialog) {
    return dialog.mState->hasEnded;
}

INT_PTR afxRunTemplate(CDialog& dialog, const RcDialog& source, CWnd* parent) {
    return AfxDialogRun::run(dialog, source, parent);
}

// ---- ending --------------------------------------------------------------------------
void CDialog::EndDialog(int result) {
    mState->hasEnded = true;
    if (mState->run != nullptr) {
        mState->run->result = result;
        mState->run->hasEnded = true;
    }
    if (IsWindow())
        window()->widget->hide();
}

BOOL CDialog::DestroyWindow() {
    if (mState->run != nullptr && !mState->run->hasEnded)
        EndDialog(IDCANCEL); // the modal run ends first; it removes the window
    afxModelessClosed(*this);
    return mState->run != nullptr ? TRUE : CWnd::DestroyWindow();
}

BOOL CDialog::OnInitDialog() {
    UpdateData(FALSE);
    return TRUE;
}

void CDialog::OnOK() {
    if (UpdateData(TRUE))
        EndDialog(IDOK);
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

BOOL CDialog::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (CWnd::OnCommand(wParam, lParam))
        return TRUE;
    if (HIWORD(wParam) != BN_CLICKED || (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL))
        return FALSE;
    if (LOWORD(wParam) == IDOK)
        OnOK();
    else
        OnCancel();
    return TRUE;
}

// ---- keys ----------------------------------------------------------------------------
BOOL CDialog::PreTranslateMessage(MSG* message) {
    if (!IsWindow() || !window()->isTopLevel || message->message != WM_KEYDOWN)
        return FALSE; // a page leaves its keys to the window around it
    if (message->wParam == VK_ESCAPE) {
        OnCommand(MAKEWPARAM(static_cast<UINT>(IDCANCEL), BN_CLICKED), 0);
        return TRUE;
    }
    if (message->wParam != VK_RETURN)
        return FALSE;
    const AfxWindow* focused = message->pWnd == nullptr ? nullptr : message->pWnd->window();
    if (focused != nullptr && focused->kind == AfxKind::MultiEdit && (focused->style & ES_WANTRETURN) != 0)
        return FALSE;
    QPushButton* button = focused != nullptr && focused->kind == AfxKind::Push ? afxWidgetAs<QPushButton>(*message->pWnd) : defaultButton(*this);
    if (button == nullptr)
        OnCommand(MAKEWPARAM(mState->defaultId, BN_CLICKED), 0);
    else
        button->click(); // does nothing where it is disabled
    return TRUE;
}

void CDialog::NextDlgCtrl() {
    if (QWidget* focused = QApplication::focusWidget(); focused != nullptr && IsWindow())
        if (QWidget* next = focused->nextInFocusChain())
            next->setFocus(Qt::TabFocusReason);
}

void CDialog::GotoDlgCtrl(CWnd* control) {
    if (control != nullptr)
        control->SetFocus();
}

void CDialog::SetDefID(UINT id) {
    mState->defaultId = id;
    for (CWnd* child : window()->children)
        if (auto* button = afxWidgetAs<QPushButton>(*child))
            button->setDefault(child->GetDlgCtrlID() == static_cast<int>(id));
}

int CDialog::GetDefID() const {
    return static_cast<int>(mState->defaultId);
}
