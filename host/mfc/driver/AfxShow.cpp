#include "driver/AfxShow.h"

#include "AcUtText.h"
#include "CButton.h"
#include "CComboBox.h"
#include "CListBox.h"
#include "CListCtrl.h"
#include "CProgressCtrl.h"
#include "CTabCtrl.h"
#include "CTreeCtrl.h"
#include "core/AfxWindow.h"
#include "driver/AfxFinder.h"
#include "resource/AfxResources.h"

#include <QLineEdit>
#include <QPlainTextEdit>

namespace {
// In quotes, on one line.
std::wstring quoted(const std::wstring& text) {
    std::wstring result = L"\"";
    for (const wchar_t c : text)
        if (c == L'\n')
            result += L"\\n";
        else if (c != L'\r')
            result += c;
    return result + L"\"";
}

std::wstring entries(const CComboBox& combo) {
    std::wstring text;
    for (int i = 0; i < combo.GetCount(); ++i) {
        CString entry;
        combo.GetLBText(i, entry);
        text += (i == 0 ? L" of " : L", ") + quoted(entry.text());
    }
    return text;
}

std::wstring tabTitles(const CTabCtrl& tabs) {
    std::wstring text;
    for (int i = 0; i < tabs.GetItemCount(); ++i)
        text += std::wstring(i == 0 ? L" " : L", ") + (i == tabs.GetCurSel() ? L"*" : L"") + quoted(tabs.itemText(i).text());
    return text;
}

bool isReadOnly(const CWnd& control) {
    const auto* line = afxWidgetAs<QLineEdit>(control);
    const auto* text = afxWidgetAs<QPlainTextEdit>(control);
    return (line != nullptr && line->isReadOnly()) || (text != nullptr && text->isReadOnly());
}

std::wstring valueOf(const CWnd& control) {
    CString text;
    control.GetWindowText(text);
    switch (control.window()->kind) {
    case AfxKind::Static:
    case AfxKind::Push:
    case AfxKind::Group: return L" " + quoted(afxSeenText(control));
    case AfxKind::Check:
    case AfxKind::Radio:
        return L" " + quoted(afxSeenText(control)) + (static_cast<const CButton&>(control).GetCheck() == BST_CHECKED ? L" on" : L" off");
    case AfxKind::Edit:
    case AfxKind::MultiEdit: return L" " + quoted(text.text()) + (isReadOnly(control) ? L" read-only" : L"");
    case AfxKind::Combo: return L" " + quoted(text.text()) + entries(static_cast<const CComboBox&>(control));
    case AfxKind::ListBox: return acFormat(L" %d rows", static_cast<const CListBox&>(control).GetCount());
    case AfxKind::List: return acFormat(L" %d rows", static_cast<const CListCtrl&>(control).GetItemCount());
    case AfxKind::Tree: return L"";
    case AfxKind::Tab: return tabTitles(static_cast<const CTabCtrl&>(control));
    case AfxKind::Progress: return acFormat(L" %d", static_cast<const CProgressCtrl&>(control).GetPos());
    case AfxKind::None:
    case AfxKind::Dialog:
    case AfxKind::Custom: return L"";
    }
    return L"";
}

void showRows(const CListCtrl& list) {
    const int columns = std::max(list.GetColumnCount(), 1);
    if (list.GetColumnCount() > 0) {
        std::wstring titles;
        for (int column = 0; column < columns; ++column)
            titles += (column == 0 ? L"" : L" | ") + list.columnTitle(column).text();
        acutPrintf(L"      [%s]\n", titles.c_str());
    }
    for (int row = 0; row < list.GetItemCount(); ++row) {
        std::wstring cells;
        for (int column = 0; column < columns; ++column)
            cells += (column == 0 ? L"" : L" | ") + list.GetItemText(row, column).text();
        const bool isSelected = list.GetItemState(row, LVIS_SELECTED) != 0;
        acutPrintf(L"     %s%d: %s\n", isSelected ? L"*" : L" ", row, cells.c_str());
    }
}

void showRows(const CListBox& list) {
    for (int row = 0; row < list.GetCount(); ++row) {
        CString text;
        list.GetText(row, text);
        acutPrintf(L"     %s%d: %s\n", row == list.GetCurSel() ? L"*" : L" ", row, text.GetString());
    }
}

void showItems(const CTreeCtrl& tree, HTREEITEM first, int depth) {
    for (HTREEITEM item = first; item != nullptr; item = tree.GetNextSiblingItem(item)) {
        const std::wstring indent(static_cast<std::size_t>(depth) * 2, L' ');
        acutPrintf(L"     %s%s%s\n", item == tree.GetSelectedItem() ? L"*" : L" ", indent.c_str(), tree.GetItemText(item).GetString());
        if (tree.ItemHasChildren(item))
            showItems(tree, tree.GetChildItem(item), depth + 1);
    }
}

std::wstring nameOf(const CWnd& control) {
    const int id = control.GetDlgCtrlID();
    if (id == IDC_STATIC)
        return L"-";
    const std::wstring symbol = afxControlSymbol(id);
    return std::to_wstring(id) + (symbol.empty() ? L"" : L" " + symbol);
}
} // namespace

void afxShow(const CDialog& dialog) {
    CString caption;
    dialog.GetWindowText(caption);
    acutPrintf(L"%s\n", quoted(caption.text()).c_str());
    for (const CWnd* control : afxControlsOf(dialog)) {
        const bool isHidden = !control->IsWindowVisible();
        const wchar_t* state = isHidden ? L" hidden" : control->IsWindowEnabled() ? L"" : L" disabled";
        acutPrintf(L"  %s %s%s%s\n", nameOf(*control).c_str(), afxKindName(*control), valueOf(*control).c_str(), state);
        if (control->window()->kind == AfxKind::List)
            showRows(static_cast<const CListCtrl&>(*control));
        else if (control->window()->kind == AfxKind::ListBox)
            showRows(static_cast<const CListBox&>(*control));
        else if (control->window()->kind == AfxKind::Tree)
            showItems(static_cast<const CTreeCtrl&>(*control), static_cast<const CTreeCtrl&>(*control).GetRootItem(), 0);
    }
}
