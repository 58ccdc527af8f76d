#include "CListCtrl.h"

#include "CImageList.h"
#include "controls/AfxControlFactory.h"
#include "controls/AfxGridDelegate.h"
#include "controls/AfxImages.h"
#include "controls/AfxListWidget.h"
#include "core/QtText.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QListView>
#include <QTreeView>

namespace {
AfxListWidget* widgetOf(const CListCtrl& list) {
    return afxWidgetAs<AfxListWidget>(list);
}

QTreeView* tableOf(const CListCtrl& list) {
    AfxListWidget* widget = widgetOf(list);
    return widget != nullptr && widget->isReport() ? static_cast<QTreeView*>(&widget->view()) : nullptr;
}

bool isRow(const CListCtrl& list, int row) {
    return row >= 0 && row < list.GetItemCount();
}

QItemSelectionModel::SelectionFlags wholeRow(QItemSelectionModel::SelectionFlag flag) {
    return flag | QItemSelectionModel::Rows;
}
} // namespace

BEGIN_MESSAGE_MAP(CListCtrl, CWnd)
END_MESSAGE_MAP()

BOOL CListCtrl::Create(DWORD style, const CRect& rect, CWnd* parent, UINT id) {
    return afxCreateControl(*this, L"SysListView32", nullptr, style | WS_CHILD, rect, parent, id);
}

// ---- columns -------------------------------------------------------------------------
int CListCtrl::InsertColumn(int column, LPCTSTR title, int format, int width, int) {
    AfxListWidget* list = widgetOf(*this);
    if (list == nullptr || column < 0)
        return -1;
    const int at = std::min(column, static_cast<int>(list->alignments.size()));
    const int side = format == LVCFMT_RIGHT ? Qt::AlignRight : format == LVCFMT_CENTER ? Qt::AlignHCenter : Qt::AlignLeft;
    list->alignments.insert(list->alignments.begin() + at, side);
    if (static_cast<int>(list->alignments.size()) > list->model().columnCount())
        list->model().insertColumn(at);
    list->model().setHorizontalHeaderItem(at, new QStandardItem(toQt(title)));
    list->model().horizontalHeaderItem(at)->setTextAlignment(Qt::Alignment(side) | Qt::AlignVCenter);
    if (QTreeView* table = tableOf(*this); table != nullptr && width >= 0)
        table->setColumnWidth(at, width);
    return at;
}

BOOL CListCtrl::DeleteColumn(int column) {
    AfxListWidget* list = widgetOf(*this);
    if (list == nullptr || column < 0 || column >= GetColumnCount())
        return FALSE;
    list->alignments.erase(list->alignments.begin() + column);
    return list->model().removeColumn(column) ? TRUE : FALSE;
}

int CListCtrl::GetColumnCount() const {
    const AfxListWidget* list = widgetOf(*this);
    return list == nullptr ? 0 : static_cast<int>(list->alignments.size());
}

CString CListCtrl::columnTitle(int column) const {
    AfxListWidget* list = widgetOf(*this);
    const QStandardItem* title = list == nullptr ? nullptr : list->model().horizontalHeaderItem(column);
    return title == nullptr ? CString() : CString(toWide(title->text()));
}

int CListCtrl::GetColumnWidth(int column) const {
    const QTreeView* table = tableOf(*this);
    return table == nullptr ? 0 : table->columnWidth(column);
}

BOOL CListCtrl::SetColumnWidth(int column, int width) {
    QTreeView* table = tableOf(*this);
    if (table == nullptr || column < 0 || column >= GetColumnCount())
        return FALSE;
    if (width >= 0)
        table->setColumnWidth(column, width);
    else
        table->resizeColumnToContents(column);
    return TRUE;
}

// ---- rows ----------------------------------------------------------------------------
int CListCtrl::InsertItem(int row, LPCTSTR text, int image) {
    AfxListWidget* list = widgetOf(*this);
    if (list == nullptr)
        return -1;
    const int at = std::clamp(row, 0, list->model().rowCount());
    list->model().insertRow(at);
    if (QStandardItem* item = list->cell(at, 0)) {
        item->setText(toQt(text));
        if (image >= 0)
            list->setPicture(*item, image);
    }
    return at;
}

int CListCtrl::InsertItem(const LVITEM* item) {
    const int row = InsertItem(item->iItem, (item->mask & LVIF_TEXT) != 0 ? item->pszText : nullptr,
                               (item->mask & LVIF_IMAGE) != 0 ? item->iImage : -1);
    if (row >= 0 && (item->mask & LVIF_PARAM) != 0)
        SetItemData(row, static_cast<DWORD_PTR>(item->lParam));
    return row;
}

BOOL CListCtrl::DeleteItem(int row) {
    AfxListWidget* list = widgetOf(*this);
    if (list == nullptr || !isRow(*this, row))
        return FALSE;
    return list->model().removeRow(row) ? TRUE : FALSE;
}

BOOL CListCtrl::DeleteAllItems() {
    AfxListWidget* list = widgetOf(*this);
    if (list == nullptr)
        return FALSE;
    list->isSilent = true; // emptying is no change of selection
    list->model().removeRows(0, list->model().rowCount());
    list->isSilent = false;
    return TRUE;
}

int CListCtrl::GetItemCount() const {
    AfxListWidget* list = widgetOf(*this);
    return list == nullptr ? 0 : list->model().rowCount();
}

BOOL CListCtrl::SetItemText(int row, int subItem, LPCTSTR text) {
    AfxListWidget* list = widgetOf(*this);
    QStandardItem* item = list == nullptr ? nullptr : list->cell(row, subItem);
    if (item == nullptr)
        return FALSE;
    item->setText(toQt(text));
    return TRUE;
}

CString CListCtrl::GetItemText(int row, int subItem) const {
    AfxListWidget* list = widgetOf(*this);
    const QStandardItem* item = list == nullptr || row < 0 || subItem < 0 ? nullptr : list->model().item(row, subItem);
    return item == nullptr ? CString() : CString(toWide(item->text()));
}

BOOL CListCtrl::SetItem(const LVITEM* change) {
    AfxListWidget* list = widgetOf(*this);
    QStandardItem* item = list == nullptr ? nullptr : list->cell(change->iItem, change->iSubItem);
    if (item == nullptr)
        return FALSE;
    if ((change->mask & LVIF_TEXT) != 0)
        item->setText(toQt(change->pszText));
    if ((change->mask & LVIF_IMAGE) != 0)
        list->setPicture(*item, change->iImage);
    if ((change->mask & LVIF_PARAM) != 0)
        SetItemData(change->iItem, static_cast<DWORD_PTR>(change->lParam));
    if ((change->mask & LVIF_STATE) != 0)
        SetItemState(change->iItem, change->state, change->stateMask);
    return TRUE;
}

BOOL CListCtrl::SetItem(int row, int subItem, UINT mask, LPCTSTR text, int image, UINT state, UINT stateMask, LPARAM data) {
    CString copy(text);
    LVITEM item;
    item.mask = mask;
    item.iItem = row;
    item.iSubItem = subItem;
    item.pszText = copy.GetBuffer();
    item.iImage = image;
    item.state = state;
    item.stateMask = stateMask;
    item.lParam = data;
    return SetItem(&item);
}

BOOL CListCtrl::GetItem(LVITEM* asked) const {
    AfxListWidget* list = widgetOf(*this);
    const bool isCell = list != nullptr && isRow(*this, asked->iItem) && asked->iSubItem >= 0 && asked->iSubItem < list->model().columnCount();
    if (!isCell)
        return FALSE;
    const QStandardItem* item = list->model().item(asked->iItem, asked->iSubItem);
    if ((asked->mask & LVIF_IMAGE) != 0)
        asked->iImage = item != nullptr && item->data(AfxListWidget::kImageRole).isValid() ? item->data(AfxListWidget::kImageRole).toInt() : -1;
    if ((asked->mask & LVIF_STATE) != 0)
        asked->state = GetItemState(asked->iItem, asked->stateMask);
    if ((asked->mask & LVIF_PARAM) != 0)
        asked->lParam = static_cast<LPARAM>(GetItemData(asked->iItem));
    return TRUE;
}

BOOL CListCtrl::SetItemData(int row, DWORD_PTR data) {
    AfxListWidget* list = widgetOf(*this);
    QStandardItem* item = list == nullptr ? nullptr : list->cell(row, 0);
    if (item == nullptr)
        return FALSE;
    item->setData(static_cast<qulonglong>(data), AfxListWidget::kDataRole);
    return TRUE;
}

DWORD_PTR CListCtrl::GetItemData(int row) const {
    AfxListWidget* list = widgetOf(*this);
    const QStandardItem* item = list == nullptr || row < 0 ? nullptr : list->model().item(row, 0);
    return item == nullptr ? 0 : static_cast<DWORD_PTR>(item->data(AfxListWidget::kDataRole).toULongLong());
}

int CListCtrl::FindItemText(LPCTSTR text) const {
    for (int row = 0; row < GetItemCount(); ++row)
        if (GetItemText(row, 0) == text)
            return row;
    return -1;
}

// ---- state ---------------------------------------------------------------------------
BOOL CListCtrl::SetItemState(int row, UINT state, UINT mask) {
    AfxListWidget* list = widgetOf(*this);
    if (list == nullptr || (row != -1 && !isRow(*this, row)))
        return FALSE;
    QItemSelectionModel& selection = *list->view().selectionModel();
    const bool isSelect = (state & LVIS_SELECTED) != 0;
    if ((mask & LVIS_SELECTED) != 0) {
        const auto flag = isSelect ? QItemSelectionModel::Select : QItemSelectionModel::Deselect;
        const bool isSingle = list->view().selectionMode() == QAbstractItemView::SingleSelection;
        if (row == -1) {
            for (int at = 0; at < GetItemCount() && !(isSelect && isSingle); ++at)
                selection.select(list->model().index(at, 0), wholeRow(flag));
        } else {
            const auto how = isSelect && isSingle ? QItemSelectionModel::ClearAndSelect : flag;
            selection.select(list->model().index(row, 0), wholeRow(how));
        }
    }
    if ((mask & LVIS_FOCUSED) != 0 && (state & LVIS_FOCUSED) != 0 && row != -1)
        selection.setCurrentIndex(list->model().index(row, 0), QItemSelectionModel::NoUpdate);
    return TRUE;
}

UINT CListCtrl::GetItemState(int row, UINT mask) const {
    AfxListWidget* list = widgetOf(*this);
    if (list == nullptr || !isRow(*this, row))
        return 0;
    const QItemSelectionModel& selection = *list->view().selectionModel();
    UINT state = selection.isRowSelected(row, QModelIndex()) ? LVIS_SELECTED : 0;
    if (selection.currentIndex().row() == row)
        state |= LVIS_FOCUSED;
    return state & mask;
}

int CListCtrl::GetNextItem(int after, int flags) const {
    const UINT wanted = (flags & LVNI_SELECTED ? LVIS_SELECTED : 0u) | (flags & LVNI_FOCUSED ? LVIS_FOCUSED : 0u);
    for (int row = std::max(after, -1) + 1; row < GetItemCount(); ++row)
        if ((GetItemState(row, wanted) & wanted) == wanted)
            return row;
    return -1;
}

POSITION CListCtrl::GetFirstSelectedItemPosition() const {
    return GetNextItem(-1, LVNI_SELECTED) + 1;
}

int CListCtrl::GetNextSelectedItem(POSITION& position) const {
    const int row = static_cast<int>(position) - 1;
    position = GetNextItem(row, LVNI_SELECTED) + 1;
    return row;
}

UINT CListCtrl::GetSelectedCount() const {
    UINT count = 0;
    for (int row = GetNextItem(-1, LVNI_SELECTED); row >= 0; row = GetNextItem(row, LVNI_SELECTED))
        ++count;
    return count;
}

int CListCtrl::GetSelectionMark() const {
    return GetNextItem(-1, LVNI_SELECTED);
}

// ---- place ---------------------------------------------------------------------------
BOOL CListCtrl::EnsureVisible(int row, BOOL) {
    AfxListWidget* list = widgetOf(*this);
    if (list == nullptr || !isRow(*this, row))
        return FALSE;
    list->showRow(row);
    return TRUE;
}

int CListCtrl::GetTopIndex() const {
    AfxListWidget* list = widgetOf(*this);
    const QModelIndex top = list == nullptr ? QModelIndex() : list->firstShown();
    return top.isValid() ? top.row() : 0;
}

int CListCtrl::GetCountPerPage() const {
    AfxListWidget* list = widgetOf(*this);
    const int height = list == nullptr || GetItemCount() == 0 ? 0 : list->rowRect(0).height();
    return height <= 0 ? 0 : list->view().viewport()->height() / height;
}

BOOL CListCtrl::GetItemRect(int row, CRect& rect, int kind) const {
    AfxListWidget* list = widgetOf(*this);
    if (list == nullptr || !isRow(*this, row))
        return FALSE;
    rect = fromQt(kind == LVIR_BOUNDS ? list->rowRect(row) : list->cellRect(row, 0));
    return TRUE;
}

BOOL CListCtrl::GetSubItemRect(int row, int subItem, int, CRect& rect) const {
    AfxListWidget* list = widgetOf(*this);
    if (list == nullptr || !isRow(*this, row) || subItem < 0 || subItem >= list->model().columnCount())
        return FALSE;
    rect = fromQt(list->cellRect(row, subItem));
    return TRUE;
}

int CListCtrl::HitTest(CPoint point, UINT*) const {
    LVHITTESTINFO info;
    info.pt = point;
    return SubItemHitTest(&info);
}

int CListCtrl::SubItemHitTest(LVHITTESTINFO* info) const {
    AfxListWidget* list = widgetOf(*this);
    const QModelIndex index = list == nullptr ? QModelIndex() : list->indexAt(toQt(info->pt));
    info->iItem = index.isValid() ? index.row() : -1;
    info->iSubItem = index.isValid() ? index.column() : -1;
    return info->iItem;
}

// ---- look ----------------------------------------------------------------------------
CImageList* CListCtrl::SetImageList(CImageList* images, int) {
    AfxListWidget* list = widgetOf(*this);
    if (list == nullptr)
        return nullptr;
    CImageList* const earlier = list->imageList;
    list->imageList = images;
    list->images = images == nullptr ? nullptr : images->images();
    list->refreshPictures();
    return earlier;
}

CImageList* CListCtrl::GetImageList(int) const {
    const AfxListWidget* list = widgetOf(*this);
    return list == nullptr ? nullptr : list->imageList;
}

DWORD CListCtrl::SetExtendedStyle(DWORD style) {
    AfxListWidget* list = widgetOf(*this);
    if (list == nullptr)
        return 0;
    const DWORD earlier = list->extendedStyle;
    list->extendedStyle = style;
    const bool wantsLines = (style & LVS_EX_GRIDLINES) != 0, hasLines = (earlier & LVS_EX_GRIDLINES) != 0;
    if (QTreeView* table = tableOf(*this); table != nullptr && wantsLines != hasLines) {
        QAbstractItemDelegate* const before = table->itemDelegate();
        table->setItemDelegate(wantsLines ? new AfxGridDelegate(table) : new AfxCellDelegate(table));
        delete before;
    }
    return earlier;
}

DWORD CListCtrl::GetExtendedStyle() const {
    const AfxListWidget* list = widgetOf(*this);
    return list == nullptr ? 0 : list->extendedStyle;
}

COLORREF CListCtrl::GetBkColor() const {
    AfxListWidget* list = widgetOf(*this);
    if (list == nullptr)
        return RGB(255, 255, 255);
    const QColor color = list->view().palette().color(QPalette::Base);
    return RGB(color.red(), color.green(), color.blue());
}

BOOL CListCtrl::SetBkColor(COLORREF color) {
    AfxListWidget* list = widgetOf(*this);
    if (list == nullptr)
        return FALSE;
    QPalette palette = list->view().palette();
    palette.setColor(QPalette::Base, toQt(color));
    list->view().setPalette(palette);
    return TRUE;
}

CSize CListCtrl::SetIconSpacing(int cx, int cy) {
    AfxListWidget* list = widgetOf(*this);
    if (list == nullptr || list->isReport())
        return {};
    auto& icons = static_cast<QListView&>(list->view());
    const QSize earlier = icons.gridSize();
    icons.setGridSize(QSize(cx, cy));
    return {earlier.width(), earlier.height()};
}
