#include "CTreeCtrl.h"

#include "CImageList.h"
#include "controls/AfxControlFactory.h"
#include "controls/AfxTreeWidget.h"
#include "core/QtText.h"

#include <QTreeWidgetItemIterator>

namespace {
AfxTreeWidget* widgetOf(const CTreeCtrl& tree) {
    return afxWidgetAs<AfxTreeWidget>(tree);
}
QTreeWidgetItem* itemOf(HTREEITEM handle) {
    return reinterpret_cast<QTreeWidgetItem*>(handle);
}
HTREEITEM handleOf(QTreeWidgetItem* item) {
    return reinterpret_cast<HTREEITEM>(item);
}
} // namespace

BEGIN_MESSAGE_MAP(CTreeCtrl, CWnd)
END_MESSAGE_MAP()

BOOL CTreeCtrl::Create(DWORD style, const CRect& rect, CWnd* parent, UINT id) {
    return afxCreateControl(*this, L"SysTreeView32", nullptr, style | WS_CHILD, rect, parent, id);
}

HTREEITEM CTreeCtrl::InsertItem(LPCTSTR text, HTREEITEM parent, HTREEITEM after) {
    AfxTreeWidget* tree = widgetOf(*this);
    if (tree == nullptr)
        return nullptr;
    auto* item = new QTreeWidgetItem(QStringList(toQt(text)));
    QTreeWidgetItem* under = parent == nullptr ? tree->invisibleRootItem() : itemOf(parent);
    const int behind = after == nullptr ? -1 : under->indexOfChild(itemOf(after));
    under->insertChild(behind < 0 ? under->childCount() : behind + 1, item);
    return handleOf(item);
}

HTREEITEM CTreeCtrl::InsertItem(LPCTSTR text, int image, int selectedImage, HTREEITEM parent, HTREEITEM after) {
    HTREEITEM item = InsertItem(text, parent, after);
    SetItemImage(item, image, selectedImage);
    return item;
}

BOOL CTreeCtrl::DeleteItem(HTREEITEM item) {
    if (widgetOf(*this) == nullptr || item == nullptr)
        return FALSE;
    delete itemOf(item);
    return TRUE;
}

BOOL CTreeCtrl::DeleteAllItems() {
    AfxTreeWidget* tree = widgetOf(*this);
    if (tree == nullptr)
        return FALSE;
    tree->clear();
    return TRUE;
}

UINT CTreeCtrl::GetCount() const {
    UINT count = 0;
    if (AfxTreeWidget* tree = widgetOf(*this))
        for (QTreeWidgetItemIterator at(tree); *at != nullptr; ++at)
            ++count;
    return count;
}

CString CTreeCtrl::GetItemText(HTREEITEM item) const {
    return item == nullptr ? CString() : CString(toWide(itemOf(item)->text(0)));
}

BOOL CTreeCtrl::SetItemText(HTREEITEM item, LPCTSTR text) {
    if (item == nullptr)
        return FALSE;
    itemOf(item)->setText(0, toQt(text));
    return TRUE;
}

BOOL CTreeCtrl::SetItemImage(HTREEITEM item, int image, int selectedImage) {
    AfxTreeWidget* tree = widgetOf(*this);
    if (tree == nullptr || item == nullptr)
        return FALSE;
    tree->setPictures(*itemOf(item), image, selectedImage);
    return TRUE;
}

BOOL CTreeCtrl::GetItemImage(HTREEITEM item, int& image, int& selectedImage) const {
    if (item == nullptr)
        return FALSE;
    const QVariant plain = itemOf(item)->data(0, AfxTreeWidget::kImageRole), selected = itemOf(item)->data(0, AfxTreeWidget::kSelectedRole);
    image = plain.isValid() ? plain.toInt() : -1;
    selectedImage = selected.isValid() ? selected.toInt() : -1;
    return TRUE;
}

BOOL CTreeCtrl::SetItemData(HTREEITEM item, DWORD_PTR data) {
    if (item == nullptr)
        return FALSE;
    itemOf(item)->setData(0, AfxTreeWidget::kDataRole, static_cast<qulonglong>(data));
    return TRUE;
}

DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM item) const {
    return item == nullptr ? 0 : static_cast<DWORD_PTR>(itemOf(item)->data(0, AfxTreeWidget::kDataRole).toULongLong());
}

HTREEITEM CTreeCtrl::GetRootItem() const {
    const AfxTreeWidget* tree = widgetOf(*this);
    return tree == nullptr ? nullptr : handleOf(tree->topLevelItem(0));
}

HTREEITEM CTreeCtrl::GetParentItem(HTREEITEM item) const {
    return item == nullptr ? nullptr : handleOf(itemOf(item)->parent());
}

HTREEITEM CTreeCtrl::GetChildItem(HTREEITEM item) const {
    return item == nullptr ? GetRootItem() : handleOf(itemOf(item)->child(0));
}

HTREEITEM CTreeCtrl::GetNextSiblingItem(HTREEITEM handle) const {
    const AfxTreeWidget* tree = widgetOf(*this);
    if (tree == nullptr || handle == nullptr)
        return nullptr;
    QTreeWidgetItem* item = itemOf(handle);
    const QTreeWidgetItem* parent = item->parent() == nullptr ? tree->invisibleRootItem() : item->parent();
    return handleOf(parent->child(parent->indexOfChild(item) + 1));
}

BOOL CTreeCtrl::ItemHasChildren(HTREEITEM item) const {
    return item != nullptr && itemOf(item)->childCount() > 0 ? TRUE : FALSE;
}

HTREEITEM CTreeCtrl::GetSelectedItem() const {
    const AfxTreeWidget* tree = widgetOf(*this);
    return tree == nullptr ? nullptr : handleOf(tree->currentItem());
}

BOOL CTreeCtrl::SelectItem(HTREEITEM item) {
    AfxTreeWidget* tree = widgetOf(*this);
    if (tree == nullptr)
        return FALSE;
    tree->setCurrentItem(itemOf(item));
    return TRUE;
}

BOOL CTreeCtrl::Expand(HTREEITEM handle, UINT code) {
    if (handle == nullptr)
        return FALSE;
    QTreeWidgetItem* item = itemOf(handle);
    const bool wasExpanded = item->isExpanded();
    item->setExpanded(code == TVE_TOGGLE ? !wasExpanded : code == TVE_EXPAND);
    return item->isExpanded() != wasExpanded ? TRUE : FALSE;
}

UINT CTreeCtrl::GetItemState(HTREEITEM item, UINT mask) const {
    if (item == nullptr)
        return 0;
    UINT state = itemOf(item)->isExpanded() ? TVIS_EXPANDED : 0;
    if (item == GetSelectedItem())
        state |= TVIS_SELECTED;
    return state & mask;
}

BOOL CTreeCtrl::EnsureVisible(HTREEITEM item) {
    AfxTreeWidget* tree = widgetOf(*this);
    if (tree == nullptr || item == nullptr)
        return FALSE;
    tree->scrollToItem(itemOf(item));
    return TRUE;
}

CImageList* CTreeCtrl::SetImageList(CImageList* images, int) {
    AfxTreeWidget* tree = widgetOf(*this);
    if (tree == nullptr)
        return nullptr;
    CImageList* const earlier = tree->imageList;
    tree->imageList = images;
    tree->images = images == nullptr ? nullptr : images->images();
    tree->refreshPictures();
    return earlier;
}

COLORREF CTreeCtrl::SetBkColor(COLORREF color) {
    AfxTreeWidget* tree = widgetOf(*this);
    if (tree == nullptr)
        return color;
    QPalette palette = tree->palette();
    const QColor earlier = palette.color(QPalette::Base);
    palette.setColor(QPalette::Base, toQt(color));
    tree->setPalette(palette);
    return RGB(earlier.red(), earlier.green(), earlier.blue());
}
