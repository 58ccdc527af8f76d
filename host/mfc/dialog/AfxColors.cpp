#include "dialog/AfxColors.h"

#include "CBrush.h"
#include "core/AfxDispatch.h"
#include "core/AfxWindow.h"
#include "core/QtText.h"

namespace {
UINT questionOf(AfxKind kind) {
    switch (kind) {
    case AfxKind::Edit:
    case AfxKind::MultiEdit: return CTLCOLOR_EDIT;
    case AfxKind::ListBox:
    case AfxKind::Combo: return CTLCOLOR_LISTBOX;
    case AfxKind::Push:
    case AfxKind::Check:
    case AfxKind::Radio: return CTLCOLOR_BTN;
    case AfxKind::Dialog: return CTLCOLOR_DLG;
    case AfxKind::None:
    case AfxKind::Static:
    case AfxKind::Group:
    case AfxKind::List:
    case AfxKind::Tree:
    case AfxKind::Tab:
    case AfxKind::Progress:
    case AfxKind::Custom: return CTLCOLOR_STATIC;
    }
    return CTLCOLOR_STATIC;
}

void ask(CDialog& dialog, CWnd& control) {
    AfxMessage question;
    question.message = WM_CTLCOLOR;
    question.flags = questionOf(control.window()->kind);
    question.other = &control;
    QWidget* widget = control.window()->widget;
    if (widget == nullptr || !AfxDispatch::handle(dialog, question) || question.result == 0)
        return;
    const auto* brush = reinterpret_cast<const CBrush*>(question.result);
    if (brush->isTransparent())
        return; // the window behind shows, which is how the toolkit draws labels anyway
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, toQt(brush->color()));
    palette.setColor(QPalette::Base, toQt(brush->color()));
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}
} // namespace

void afxApplyColors(CDialog& dialog) {
    if (!AfxDispatch::handles(dialog, WM_CTLCOLOR))
        return;
    ask(dialog, dialog);
    for (CWnd* control : std::vector<CWnd*>(dialog.window()->children))
        ask(dialog, *control);
}
