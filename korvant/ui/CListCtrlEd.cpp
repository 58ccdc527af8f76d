#include "CListCtrlEd.h"

#include "CInPlaceDropDown.h"
#include "CInPlaceEdit.h"
#include "Resource.h"

#include <algorithm>

namespace {
// Kept free of columns for the frame and a scroll bar, so that no second scroll bar comes with it.
constexpr int kScrollBarRoom = 20;
constexpr int kLeastValueWidth = 20;
constexpr int kNamePercent = 45;
} // namespace

BEGIN_MESSAGE_MAP(CListCtrlEd, CListCtrl)
    ON_NOTIFY_REFLECT(NM_CLICK, &CListCtrlEd::OnClick)
    ON_NOTIFY(LVN_ENDLABELEDIT, IDC_IN_PLACE, &CListCtrlEd::OnCellEdited)
    ON_WM_SIZE()
END_MESSAGE_MAP()

void CListCtrlEd::addColumns() {
    SetExtendedStyle(GetExtendedStyle() | LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    CRect client;
    GetClientRect(client);
    const int nameWidth = client.Width() * kNamePercent / 100;
    InsertColumn(kNameColumn, L"Paraméter Neve", LVCFMT_LEFT, nameWidth);
    InsertColumn(kValueColumn, L"Paraméter Értéke", LVCFMT_LEFT, valueWidth(client.Width()));
}

int CListCtrlEd::valueWidth(int listWidth) const {
    return std::max(kLeastValueWidth, listWidth - GetColumnWidth(kNameColumn) - kScrollBarRoom);
}

int CListCtrlEd::addRow(const attributeRow& added) {
    const int index = InsertItem(GetItemCount(), added.name.c_str());
    SetItemText(index, kValueColumn, added.value.c_str());
    mRows.push_back(std::make_unique<attributeRow>(added));
    SetItemData(index, reinterpret_cast<DWORD_PTR>(mRows.back().get()));
    return index;
}

attributeRow& CListCtrlEd::row(int index) const { return *reinterpret_cast<attributeRow*>(GetItemData(index)); }

const attributeRow& CListCtrlEd::rowAt(int index) const { return row(index); }

void CListCtrlEd::setRowValue(int index, const std::wstring& value) {
    row(index).value = value;
    SetItemText(index, kValueColumn, value.c_str());
}

void CListCtrlEd::removeRows() {
    endEdit(false);
    DeleteAllItems();
    mRows.clear();
}

CRect CListCtrlEd::cellRect(int index, int column) const {
    CRect item;
    GetItemRect(index, item, LVIR_BOUNDS);
    int left = item.left;
    for (int c = 0; c < column; ++c)
        left += GetColumnWidth(c);
    CRect client;
    GetClientRect(client);
    const int right = std::min(left + 4 + GetColumnWidth(column) - 3, client.right);
    return {left + 4, item.top, right, item.bottom};
}

void CListCtrlEd::showCellEditor(int index, int column) {
    if (index < 0 || index >= GetItemCount() || column != kValueColumn)
        return;
    endEdit(true);
    const attributeRow& edited = row(index);
    if (edited.readOnly || !EnsureVisible(index, FALSE))
        return;
    const CRect cell = cellRect(index, column);
    if (edited.kind == attributeRow::kDropDown) {
        auto editor = std::make_unique<CInPlaceDropDown>(index, column, edited.value.c_str(), edited.valueList.c_str());
        if (editor->open(cell, *this))
            editor.release();
    } else {
        auto editor = std::make_unique<CInPlaceEdit>(index, column, edited.value.c_str());
        if (editor->open(cell, *this))
            editor.release();
    }
}

bool CListCtrlEd::isEditing() const { return GetDlgItem(IDC_IN_PLACE) != nullptr; }

void CListCtrlEd::endEdit(bool keep) {
    CWnd* const editor = GetDlgItem(IDC_IN_PLACE);
    if (auto* const field = dynamic_cast<CInPlaceEdit*>(editor))
        field->finish(keep);
    else if (auto* const dropDown = dynamic_cast<CInPlaceDropDown*>(editor))
        dropDown->finish(keep);
}

void CListCtrlEd::commitEdit() { endEdit(true); }

void CListCtrlEd::OnClick(NMHDR* header, LRESULT* result) {
    *result = 0;
    const auto* const click = reinterpret_cast<const NMITEMACTIVATE*>(header);
    showCellEditor(click->iItem, click->iSubItem);
}

void CListCtrlEd::OnCellEdited(NMHDR* header, LRESULT* result) {
    *result = 0;
    auto* const info = reinterpret_cast<NMLVDISPINFO*>(header);
    if (info->item.pszText == nullptr || info->item.iItem < 0 || info->item.iItem >= GetItemCount())
        return;
    setRowValue(info->item.iItem, info->item.pszText);
    if (CWnd* const parent = GetParent()) {
        NMLVDISPINFO own = *info;
        own.hdr.hwndFrom = GetSafeHwnd();
        own.hdr.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID());
        parent->SendMessage(WM_NOTIFY, own.hdr.idFrom, reinterpret_cast<LPARAM>(&own));
    }
}

void CListCtrlEd::OnSize(UINT, int width, int) {
    if (GetColumnCount() > kValueColumn && width > 0)
        SetColumnWidth(kValueColumn, valueWidth(width));
}
