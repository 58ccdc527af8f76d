#include "dialog/AfxDialogBuilder.h"

#include "AfxDialogDriver.h"
#include "controls/AfxControlFactory.h"
#include "controls/AfxControlText.h"
#include "core/AfxDispatch.h"
#include "core/QtText.h"
#include "dialog/AfxLayout.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QGroupBox>
#include <QLabel>
#include <QScreen>

namespace {
struct Made {
    std::vector<QWidget*> widgets;
    std::vector<QWidget*> backdrops;
    QButtonGroup* group = nullptr;
    bool groupIsOpen = false;
};

// Option buttons in a row belong together until a control that begins a group.
void joinGroup(QWidget& dialog, QWidget* widget, AfxKind kind, const RcControl& control, Made& made) {
    if ((control.style & WS_GROUP) != 0)
        made.groupIsOpen = false;
    if (kind != AfxKind::Radio)
        return;
    if (!made.groupIsOpen)
        made.group = new QButtonGroup(&dialog);
    made.groupIsOpen = true;
    made.group->addButton(static_cast<QAbstractButton*>(widget));
}

void addControl(CDialog& dialog, const RcControl& control, const AfxUnits& units, Made& made) {
    QWidget& window = *dialog.window()->widget;
    const AfxKind kind = afxKindOf(control);
    QWidget* widget = afxMakeWidget(control, kind, &window, units.rect(control));
    auto wrapper = afxMakeWrapper(kind);
    afxBindControl(*wrapper, widget, kind, control, &dialog);
    dialog.window()->made.push_back(std::move(wrapper));
    joinGroup(window, widget, kind, control, made);
    made.widgets.push_back(widget);
    if (kind == AfxKind::Static && (control.style & 0x1F) == SS_WHITERECT)
        made.backdrops.push_back(widget);
}

// A frame lies behind what stands in it, a filled rectangle behind all, and the mouse goes through.
void lowerFrames(const Made& made) {
    std::vector<QWidget*> lowered;
    for (QWidget* widget : made.widgets)
        if (qobject_cast<QGroupBox*>(widget) != nullptr)
            lowered.push_back(widget);
    lowered.insert(lowered.end(), made.backdrops.begin(), made.backdrops.end());
    for (QWidget* widget : lowered) {
        widget->lower();
        widget->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
}

// A label with an access key leads to the control behind it.
void bindLabels(const std::vector<CWnd*>& controls) {
    for (std::size_t i = 0; i + 1 < controls.size(); ++i) {
        AfxWindow& window = *controls[i]->window();
        QWidget* next = controls[i + 1]->window()->widget;
        const bool hasKey = window.kind == AfxKind::Static && (window.style & SS_NOPREFIX) == 0 && window.text.find(L'&') != std::wstring::npos;
        if (!hasKey || next->focusPolicy() == Qt::NoFocus)
            continue;
        static_cast<QLabel*>(window.widget.data())->setBuddy(next);
        afxSetText(window, window.text);
    }
}

QWidget* makeWindow(const RcDialog& source, CWnd* parent, bool isPage) {
    QWidget* over = parent == nullptr || !parent->IsWindow() ? nullptr : parent->window()->widget.data();
    if (isPage && over != nullptr)
        return new QWidget(over);
    Qt::WindowFlags flags = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    if ((source.style & WS_SYSMENU) != 0)
        flags |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    if ((source.style & WS_MAXIMIZEBOX) != 0)
        flags |= Qt::WindowMaximizeButtonHint;
    return new QWidget(over == nullptr ? nullptr : over->window(), flags);
}
} // namespace

void afxBuildDialog(CDialog& dialog, const RcDialog& source, CWnd* parent) {
    AfxInitToolkit();
    const bool isPage = (source.style & WS_CHILD) != 0 && parent != nullptr && parent->IsWindow();
    QWidget* widget = makeWindow(source, parent, isPage);
    widget->setFont(afxDialogFont(source));
    const AfxUnits units(widget->font());
    const QSize size(units.x(source.w), units.y(source.h));
    widget->resize(size);
    if (!isPage && (source.style & WS_THICKFRAME) == 0)
        widget->setFixedSize(size);
    else if (!isPage)
        widget->setMinimumSize(size);
    widget->setWindowTitle(toQt(source.caption));
    afxAttach(dialog, widget, AfxKind::Dialog, isPage ? 0 : -1, source.style, parent);
    dialog.window()->isTopLevel = !isPage;

    Made made;
    for (const RcControl& control : source.controls)
        addControl(dialog, control, units, made);
    lowerFrames(made);
    bindLabels(dialog.window()->children);
    afxMakeTextsFit(*widget, made.widgets);
    for (std::size_t i = 1; i < made.widgets.size(); ++i)
        QWidget::setTabOrder(made.widgets[i - 1], made.widgets[i]);
}
