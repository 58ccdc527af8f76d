#include "controls/AfxControlFactory.h"

#include "AcUtText.h"
#include "AfxDialogDriver.h"
#include "CButton.h"
#include "CComboBox.h"
#include "CEdit.h"
#include "CListBox.h"
#include "CListCtrl.h"
#include "CProgressCtrl.h"
#include "CStatic.h"
#include "CTabCtrl.h"
#include "CTreeCtrl.h"
#include "controls/AfxComboWidget.h"
#include "controls/AfxControlText.h"
#include "controls/AfxGroupWidget.h"
#include "controls/AfxListWidget.h"
#include "controls/AfxTabWidget.h"
#include "controls/AfxTreeWidget.h"
#include "core/AfxDispatch.h"
#include "core/QtText.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTextDocument>

namespace {
struct ClassName {
    const wchar_t* name;
    AfxKind kind;
};
const ClassName kClasses[] = {{L"Static", AfxKind::Static}, {L"ComboBox", AfxKind::Combo}, {L"ComboBoxEx32", AfxKind::Combo},
                              {L"ListBox", AfxKind::ListBox}, {L"SysListView32", AfxKind::List}, {L"SysTreeView32", AfxKind::Tree},
                              {L"SysTabControl32", AfxKind::Tab}, {L"msctls_progress32", AfxKind::Progress}};

AfxKind buttonKind(DWORD style) {
    switch (style & 0xF) {
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX: return AfxKind::Check;
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON: return AfxKind::Radio;
    case BS_GROUPBOX: return AfxKind::Group;
    default: return AfxKind::Push;
    }
}

// Signals carry the widget; the wrapper behind it is looked up when they come.
void command(QWidget* widget, UINT code) {
    if (AfxWindow* window = afxFind(widget))
        AfxDispatch::command(*window->owner, code);
}

Qt::Alignment alignment(DWORD style) {
    const DWORD side = style & 3;
    return side == SS_CENTER ? Qt::AlignHCenter : side == SS_RIGHT ? Qt::AlignRight : Qt::AlignLeft;
}

QWidget* makeLabel(const RcControl& control, QWidget* parent) {
    auto* label = new QLabel(parent);
    const DWORD kind = control.style & 0x1F;
    const bool isOneLine = (control.style & SS_CENTERIMAGE) != 0;
    const bool isText = kind <= SS_RIGHT || kind == 0x0C;
    label->setTextFormat(Qt::PlainText);
    label->setAlignment((isText ? alignment(control.style) : Qt::AlignCenter) | (isOneLine || !isText ? Qt::AlignVCenter : Qt::AlignTop));
    if (kind == SS_WHITERECT) {
        label->setAutoFillBackground(true);
        label->setPalette(QPalette(Qt::white));
    } else if (kind == SS_ETCHEDHORZ)
        label->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    else if (kind == SS_BLACKFRAME || kind == SS_ETCHEDFRAME)
        label->setFrameStyle(QFrame::Box | (kind == SS_BLACKFRAME ? QFrame::Plain : QFrame::Sunken));
    else if ((control.style & (SS_SUNKEN | WS_BORDER)) != 0)
        label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    return label;
}

QWidget* makeButton(AfxKind kind, DWORD style, QWidget* parent) {
    QAbstractButton* button = nullptr;
    if (kind == AfxKind::Check)
        button = new QCheckBox(parent);
    else if (kind == AfxKind::Radio)
        button = new QRadioButton(parent);
    else
        button = new QPushButton(parent);
    button->setAutoExclusive(false); // groups come from the template
    if (auto* push = qobject_cast<QPushButton*>(button)) {
        push->setAutoDefault(false);
        push->setDefault((style & 0xF) == BS_DEFPUSHBUTTON);
    }
    QObject::connect(button, &QAbstractButton::clicked, button, [button] { command(button, BN_CLICKED); });
    return button;
}

QWidget* makeEdit(DWORD style, QWidget* parent) {
    auto* edit = new QLineEdit(parent);
    edit->setAlignment(alignment(style) | Qt::AlignVCenter);
    edit->setReadOnly((style & ES_READONLY) != 0);
    edit->setContextMenuPolicy(Qt::DefaultContextMenu);
    QObject::connect(edit, &QLineEdit::textChanged, edit, [edit] { command(edit, EN_CHANGE); });
    return edit;
}

QWidget* makeMultiEdit(DWORD style, QWidget* parent) {
    auto* edit = new QPlainTextEdit(parent);
    edit->setReadOnly((style & ES_READONLY) != 0);
    edit->setTabChangesFocus(true);
    edit->setLineWrapMode((style & ES_AUTOHSCROLL) != 0 ? QPlainTextEdit::NoWrap : QPlainTextEdit::WidgetWidth);
    QObject::connect(edit, &QPlainTextEdit::textChanged, edit, [edit] { command(edit, EN_CHANGE); });
    return edit;
}

QWidget* makeListBox(QWidget* parent) {
    auto* list = new QListWidget(parent);
    QObject::connect(list, &QListWidget::currentRowChanged, list, [list] { command(list, LBN_SELCHANGE); });
    QObject::connect(list, &QListWidget::itemDoubleClicked, list, [list] { command(list, LBN_DBLCLK); });
    return list;
}

QWidget* makeByKind(const RcControl& control, AfxKind kind, QWidget* parent) {
    switch (kind) {
    case AfxKind::Static: return makeLabel(control, parent);
    case AfxKind::Push:
    case AfxKind::Check:
    case AfxKind::Radio: return makeButton(kind, control.style, parent);
    case AfxKind::Group: return new AfxGroupWidget(parent);
    case AfxKind::Edit: return makeEdit(control.style, parent);
    case AfxKind::MultiEdit: return makeMultiEdit(control.style, parent);
    case AfxKind::Combo: return new AfxComboWidget(control.style, parent);
    case AfxKind::ListBox: return makeListBox(parent);
    case AfxKind::List: return new AfxListWidget(control.style, parent);
    case AfxKind::Tree: return new AfxTreeWidget(control.style, parent);
    case AfxKind::Tab: return new AfxTabWidget(parent);
    case AfxKind::Progress: {
        auto* bar = new QProgressBar(parent);
        bar->setTextVisible(false);
        return bar;
    }
    case AfxKind::None:
    case AfxKind::Dialog:
    case AfxKind::Custom: return new QWidget(parent);
    }
    return nullptr;
}

// The parts of a widget that get the mouse and the keys in its place.
void watchParts(AfxWindow& window) {
    QWidget* widget = window.widget;
    if (auto* list = dynamic_cast<AfxListWidget*>(widget)) {
        afxWatch(window, &list->view());
        afxWatch(window, list->view().viewport());
    } else if (auto* area = qobject_cast<QAbstractScrollArea*>(widget)) {
        afxWatch(window, area->viewport());
    } else if (auto* combo = qobject_cast<QComboBox*>(widget); combo != nullptr && combo->lineEdit() != nullptr) {
        afxWatch(window, combo->lineEdit());
    }
}
} // namespace

AfxKind afxKindOf(const RcControl& control) {
    if (acutWcsicmp(control.className.c_str(), L"Button") == 0)
        return buttonKind(control.style);
    if (acutWcsicmp(control.className.c_str(), L"Edit") == 0)
        return (control.style & ES_MULTILINE) != 0 ? AfxKind::MultiEdit : AfxKind::Edit;
    for (const ClassName& known : kClasses)
        if (acutWcsicmp(control.className.c_str(), known.name) == 0)
            return known.kind;
    return AfxKind::Custom;
}

QWidget* afxMakeWidget(const RcControl& control, AfxKind kind, QWidget* parent, const QRect& place) {
    QWidget* widget = makeByKind(control, kind, parent);
    QRect where = place;
    if (kind == AfxKind::Combo) // the template's height is that of the dropped list
        where.setHeight(widget->sizeHint().height());
    widget->setGeometry(where);
    if ((control.style & WS_TABSTOP) == 0 && kind != AfxKind::List && kind != AfxKind::Tree && kind != AfxKind::Radio)
        widget->setFocusPolicy(widget->focusPolicy() == Qt::NoFocus ? Qt::NoFocus : Qt::ClickFocus);
    widget->setEnabled((control.style & WS_DISABLED) == 0);
    widget->setVisible((control.style & WS_VISIBLE) != 0);
    return widget;
}

std::unique_ptr<CWnd> afxMakeWrapper(AfxKind kind) {
    switch (kind) {
    case AfxKind::Static: return std::make_unique<CStatic>();
    case AfxKind::Push:
    case AfxKind::Check:
    case AfxKind::Radio:
    case AfxKind::Group: return std::make_unique<CButton>();
    case AfxKind::Edit:
    case AfxKind::MultiEdit: return std::make_unique<CEdit>();
    case AfxKind::Combo: return std::make_unique<CComboBox>();
    case AfxKind::ListBox: return std::make_unique<CListBox>();
    case AfxKind::List: return std::make_unique<CListCtrl>();
    case AfxKind::Tree: return std::make_unique<CTreeCtrl>();
    case AfxKind::Tab: return std::make_unique<CTabCtrl>();
    case AfxKind::Progress: return std::make_unique<CProgressCtrl>();
    case AfxKind::None:
    case AfxKind::Dialog:
    case AfxKind::Custom: return std::make_unique<CWnd>();
    }
    return nullptr;
}

void afxBindControl(CWnd& wrapper, QWidget* widget, AfxKind kind, const RcControl& control, CWnd* parent) {
    afxAttach(wrapper, widget, kind, control.id, control.style, parent);
    watchParts(*wrapper.window());
    const bool isPicture = kind == AfxKind::Static && ((control.style & 0x1F) == SS_ICON || (control.style & 0x1F) == SS_BITMAP);
    if (!control.text.empty() && !isPicture)
        afxSetText(*wrapper.window(), control.text);
}

BOOL afxCreateControl(CWnd& wrapper, LPCTSTR className, LPCTSTR text, DWORD style, const CRect& rect, CWnd* parent, UINT id) {
    if (parent == nullptr || !parent->IsWindow() || wrapper.IsWindow())
        return FALSE;
    RcControl control;
    control.className = className;
    control.text = text == nullptr ? L"" : text;
    control.id = static_cast<int>(id);
    control.style = style;
    const AfxKind kind = afxKindOf(control);
    QWidget* widget = afxMakeWidget(control, kind, parent->window()->widget, toQt(rect));
    afxBindControl(wrapper, widget, kind, control, parent);
    wrapper.PreSubclassWindow();
    widget->raise();
    return TRUE;
}
