#include "driver/AfxActions.h"

#include "AcUtText.h"
#include "AfxDialogDriver.h"
#include "CButton.h"
#include "CComboBox.h"
#include "CDisplayListCtrl.h"
#include "CListBox.h"
#include "CListCtrl.h"
#include "CTabCtrl.h"
#include "CTreeCtrl.h"
#include "controls/AfxComboWidget.h"
#include "controls/AfxListWidget.h"
#include "controls/AfxTabWidget.h"
#include "core/AfxWindow.h"
#include "core/QtText.h"
#include "driver/AfxDriverState.h"
#include "driver/AfxFinder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPlainTextEdit>

namespace {
// Moves the focus first, so that the field left behind notices.
void focus(CWnd& control) {
    QWidget* widget = control.window()->widget;
    if (widget->focusPolicy() != Qt::NoFocus || widget->focusProxy() != nullptr)
        widget->setFocus(Qt::MouseFocusReason);
}

void press(QWidget& widget, int key) {
    QPointer<QWidget> target = &widget;
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &down);
    if (target == nullptr)
        return;
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &up);
}

std::wstring clickPlace(QWidget& widget) {
    const QPointF middle = widget.rect().center();
    QWidget* target = widget.childAt(middle.toPoint());
    target = target == nullptr ? &widget : target;
    const QPointF point = target->mapFrom(&widget, middle.toPoint());
    QPointer<QWidget> alive = target;
    QMouseEvent down(QEvent::MouseButtonPress, point, target->mapToGlobal(point), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &down);
    if (alive != nullptr) {
        QMouseEvent up(QEvent::MouseButtonRelease, point, target->mapToGlobal(point), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &up);
    }
    return {};
}

int comboEntry(const CComboBox& combo, const AfxWord& what) {
    if (!what.isNumber())
        return combo.FindStringExact(-1, what.text.c_str());
    const int index = acWtoi(what.text.c_str());
    return index >= 0 && index < combo.GetCount() ? index : CB_ERR;
}

std::wstring noSuch(const AfxWord& what) {
    return what.isNumber() ? L"there is no row " + what.text : L"there is no \"" + what.text + L"\"";
}

std::wstring selectEntry(CComboBox& combo, const AfxWord& what) {
    const int index = comboEntry(combo, what);
    if (index == CB_ERR)
        return noSuch(what);
    afxWidget<AfxComboWidget>(combo)->chooseAsUser(index);
    return {};
}

int listRow(const CListCtrl& list, const AfxWord& what) {
    if (what.isNumber()) {
        const int row = acWtoi(what.text.c_str());
        return row >= 0 && row < list.GetItemCount() ? row : -1;
    }
    for (int column = 0; column < std::max(list.GetColumnCount(), 1); ++column)
        for (int row = 0; row < list.GetItemCount(); ++row)
            if (list.GetItemText(row, column) == what.text.c_str())
                return row;
    return -1;
}

std::wstring selectRow(CListCtrl& list, const AfxWord& what) {
    const int row = listRow(list, what);
    if (row < 0)
        return noSuch(what);
    afxWidget<AfxListWidget>(list)->clickAt(row, 0);
    return {};
}

std::wstring selectRow(CListBox& list, const AfxWord& what) {
    auto* widget = afxWidget<QListWidget>(list);
    for (int row = 0; row < list.GetCount(); ++row) {
        CString text;
        list.GetText(row, text);
        if (what.isNumber() ? row == acWtoi(what.text.c_str()) : text == what.text.c_str()) {
            widget->setCurrentRow(row);
            return {};
        }
    }
    return noSuch(what);
}

HTREEITEM childOf(const CTreeCtrl& tree, HTREEITEM parent, const std::wstring& label) {
    HTREEITEM item = tree.GetChildItem(parent);
    while (item != nullptr && !(tree.GetItemText(item) == label.c_str()))
        item = tree.GetNextSiblingItem(item);
    return item;
}

// The labels from the top joined by backslashes; a label that holds one is tried whole first.
std::wstring selectItem(CTreeCtrl& tree, const AfxWord& what) {
    HTREEITEM item = childOf(tree, nullptr, what.text);
    if (item == nullptr) {
        const CString path(what.text);
        int start = 0;
        for (CString label = path.Tokenize(L"\\", start); start != -1; label = path.Tokenize(L"\\", start)) {
            item = childOf(tree, item, label.text());
            if (item == nullptr)
                return noSuch(what);
            if (start <= path.GetLength() && tree.ItemHasChildren(item))
                tree.Expand(item, TVE_EXPAND);
        }
    }
    if (item == nullptr)
        return noSuch(what);
    tree.EnsureVisible(item);
    tree.SelectItem(item);
    return {};
}

// The editor that a click on a cell has opened: a field or combo that is a child of the list.
CWnd* cellEditor(const CListCtrl& list) {
    for (auto at = list.window()->children.rbegin(); at != list.window()->children.rend(); ++at)
        if ((*at)->IsWindowVisible())
            return *at;
    return nullptr;
}

std::wstring fillEditor(CWnd& editor, const std::wstring& text) {
    if (editor.window()->kind != AfxKind::Combo)
        return afxSetValue(editor, text);
    auto& combo = static_cast<CComboBox&>(editor);
    if (combo.FindStringExact(-1, text.c_str()) != CB_ERR)
        return selectEntry(combo, {text, true});
    return afxSetValue(editor, text);
}
} // namespace

std::wstring afxClick(CWnd& control) {
    focus(control);
    if (auto* button = afxWidgetAs<QAbstractButton>(control))
        button->click();
    else
        clickPlace(*control.window()->widget);
    return {};
}

std::wstring afxSetValue(CWnd& control, const std::wstring& text) {
    focus(control);
    if (auto* line = afxWidgetAs<QLineEdit>(control)) {
        if (line->isReadOnly())
            return L"the control is read-only";
        line->selectAll();
        line->insert(toQt(text));
        return {};
    }
    if (auto* many = afxWidgetAs<QPlainTextEdit>(control)) {
        if (many->isReadOnly())
            return L"the control is read-only";
        many->selectAll();
        many->insertPlainText(toQtLines(text.c_str()));
        return {};
    }
    if (auto* combo = afxWidgetAs<QComboBox>(control)) {
        if (!combo->isEditable())
            return L"there is no \"" + text + L"\" in the list";
        combo->lineEdit()->selectAll();
        combo->lineEdit()->insert(toQt(text));
        return {};
    }
    return L"the control takes no text";
}

std::wstring afxCheck(CWnd& control, const std::wstring& state) {
    const bool isOn = acutWcsicmp(state.c_str(), L"on") == 0;
    if (!isOn && acutWcsicmp(state.c_str(), L"off") != 0)
        return L"\"on\" or \"off\" is needed";
    auto* button = afxWidgetAs<QAbstractButton>(control);
    if (button == nullptr || !button->isCheckable())
        return L"the control cannot be checked";
    if (button->isChecked() == isOn)
        return {};
    if (control.window()->kind == AfxKind::Radio && !isOn)
        return L"an option is cleared by choosing another";
    return afxClick(control);
}

std::wstring afxSelect(CWnd& control, const AfxWord& what) {
    focus(control);
    if (auto* picture = dynamic_cast<CDisplayListCtrl*>(&control))
        return what.isNumber() && picture->selectPart(acWtoi(what.text.c_str())) ? L"" : noSuch(what);
    switch (control.window()->kind) {
    case AfxKind::Combo: return selectEntry(static_cast<CComboBox&>(control), what);
    case AfxKind::List: return selectRow(static_cast<CListCtrl&>(control), what);
    case AfxKind::ListBox: return selectRow(static_cast<CListBox&>(control), what);
    case AfxKind::Tree: return selectItem(static_cast<CTreeCtrl&>(control), what);
    case AfxKind::None:
    case AfxKind::Dialog:
    case AfxKind::Static:
    case AfxKind::Push:
    case AfxKind::Check:
    case AfxKind::Radio:
    case AfxKind::Group:
    case AfxKind::Edit:
    case AfxKind::MultiEdit:
    case AfxKind::Tab:
    case AfxKind::Progress:
    case AfxKind::Custom: return L"nothing can be selected in the control";
    }
    return {};
}

std::wstring afxEditCell(CWnd& control, int row, int column, const std::wstring& text) {
    auto* list = dynamic_cast<CListCtrl*>(&control);
    if (list == nullptr)
        return L"the control is no list";
    if (row < 0 || row >= list->GetItemCount() || column < 0 || column >= std::max(list->GetColumnCount(), 1))
        return L"there is no such cell";
    focus(control);
    afxWidget<AfxListWidget>(*list)->clickAt(row, column);
    afxSettle();
    CWnd* editor = list->IsWindow() ? cellEditor(*list) : nullptr;
    if (editor == nullptr)
        return L"the cell cannot be edited";
    const std::wstring reason = fillEditor(*editor, text);
    QWidget* focused = QApplication::focusWidget();
    QWidget* widget = editor->window()->widget;
    const bool isInside = focused != nullptr && (focused == widget || widget->isAncestorOf(focused));
    // A window that a dialog over it has left inactive has no focus for a key to go to: the editor
    // is then offered the key itself.
    MSG key{editor, WM_KEYDOWN, reason.empty() ? VK_RETURN : VK_ESCAPE, 0};
    if (isInside)
        press(*focused, reason.empty() ? Qt::Key_Return : Qt::Key_Escape);
    else if (!editor->PreTranslateMessage(&key))
        press(*widget, reason.empty() ? Qt::Key_Return : Qt::Key_Escape);
    afxSettle();
    return reason;
}

std::wstring afxChooseTab(const CDialog& dialog, const std::wstring& title) {
    for (CWnd* control : afxControlsOf(dialog)) {
        const auto* tabs = control->window()->kind == AfxKind::Tab && control->IsWindowVisible() ? static_cast<CTabCtrl*>(control) : nullptr;
        for (int i = 0; tabs != nullptr && i < tabs->GetItemCount(); ++i) {
            if (acutWcsicmp(tabs->itemText(i), title.c_str()) != 0)
                continue;
            if (!tabs->IsWindowEnabled())
                return L"the tabs are disabled";
            focus(*control);
            return tabs->GetCurSel() == i || afxWidget<AfxTabWidget>(*tabs)->clickTab(i) ? L"" : L"the present page stays";
        }
    }
    return L"there is no tab of that title";
}
