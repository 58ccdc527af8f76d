#include "controls/AfxTreeWidget.h"

#include "controls/AfxImages.h"
#include "core/AfxDispatch.h"
#include "core/AfxWindow.h"

#include <QHeaderView>
#include <QTreeWidgetItemIterator>

namespace {
HTREEITEM handleOf(QTreeWidgetItem* item) {
    return reinterpret_cast<HTREEITEM>(item);
}
} // namespace

AfxTreeWidget::AfxTreeWidget(DWORD style, QWidget* parent) : QTreeWidget(parent) {
    setColumnCount(1);
    setHeaderHidden(true);
    setRootIsDecorated((style & (TVS_LINESATROOT | TVS_HASBUTTONS)) != 0);
    setExpandsOnDoubleClick(true);
    // A label wider than the tree is reached by scrolling; a shorter one has the tree's whole width.
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* now, QTreeWidgetItem* before) { changed(now, before); });
}

void AfxTreeWidget::resizeEvent(QResizeEvent* event) {
    header()->setMinimumSectionSize(viewport()->width());
    QTreeWidget::resizeEvent(event);
}

void AfxTreeWidget::setPictures(QTreeWidgetItem& item, int image, int selectedImage) {
    item.setData(0, kImageRole, image);
    item.setData(0, kSelectedRole, selectedImage);
    showPicture(&item);
}

void AfxTreeWidget::showPicture(QTreeWidgetItem* item) {
    const QVariant image = item == nullptr ? QVariant() : item->data(0, item == currentItem() ? kSelectedRole : kImageRole);
    if (image.isValid())
        item->setIcon(0, afxIcon(images, image.toInt()));
}

void AfxTreeWidget::refreshPictures() {
    if (images != nullptr)
        setIconSize(images->size);
    for (QTreeWidgetItemIterator at(this); *at != nullptr; ++at)
        showPicture(*at);
}

void AfxTreeWidget::changed(QTreeWidgetItem* now, QTreeWidgetItem* before) {
    showPicture(before);
    showPicture(now);
    AfxWindow* window = afxFind(this);
    if (window == nullptr)
        return;
    NMTREEVIEW notice;
    notice.itemOld.hItem = handleOf(before);
    notice.itemNew.hItem = handleOf(now);
    if (now != nullptr)
        notice.itemNew.lParam = static_cast<LPARAM>(now->data(0, kDataRole).toULongLong());
    AfxDispatch::notify(*window->owner, notice.hdr, TVN_SELCHANGED);
}
