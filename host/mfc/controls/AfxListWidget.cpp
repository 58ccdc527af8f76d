#include "controls/AfxListWidget.h"

#include "CListCtrl.h"
#include "controls/AfxGridDelegate.h"
#include "controls/AfxImages.h"
#include "controls/AfxReportView.h"
#include "core/AfxDispatch.h"
#include "core/AfxWindow.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QListView>
#include <QMouseEvent>
#include <QPainter>
#include <QTreeView>
#include <set>

namespace {
// The border lies over the rows' edge, so that rows begin at 0 as programs of this API reckon.
class Border : public QWidget {
public:
    explicit Border(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_TransparentForMouseEvents); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
};
} // namespace

AfxListWidget::AfxListWidget(DWORD style, QWidget* parent) : QWidget(parent) {
    mIsReport = (style & 3) == LVS_REPORT;
    if (mIsReport)
        buildReport(style);
    else
        buildIcons();
    mView->setFrameShape(QFrame::NoFrame);
    mView->setModel(&mModel);
    mBorder = new Border(this);
    mView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    mView->setSelectionMode((style & LVS_SINGLESEL) != 0 ? QAbstractItemView::SingleSelection : QAbstractItemView::ExtendedSelection);
    mView->setSelectionBehavior(QAbstractItemView::SelectRows);
    setFocusProxy(mView);
    connect(mView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection& selected, const QItemSelection& deselected) { selectionChanged(selected, deselected); });
}

void AfxListWidget::buildReport(DWORD style) {
    auto* tree = new AfxReportView(this);
    tree->setRootIsDecorated(false);
    tree->setUniformRowHeights(true);
    tree->setItemDelegate(new AfxCellDelegate(tree));
    tree->setItemsExpandable(false);
    tree->setAllColumnsShowFocus(true);
    tree->header()->setStretchLastSection(false);
    tree->header()->setHidden((style & LVS_NOCOLUMNHEADER) != 0);
    tree->header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    tree->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    connect(tree->header(), &QHeaderView::sectionClicked, this, [this](int column) {
        NMLISTVIEW notice;
        notice.iSubItem = column;
        if (AfxWindow* window = afxFind(this))
            AfxDispatch::notify(*window->owner, notice.hdr, LVN_COLUMNCLICK);
    });
    mView = mReport = tree;
}

void AfxListWidget::buildIcons() {
    auto* list = new QListView(this);
    list->setViewMode(QListView::IconMode);
    list->setResizeMode(QListView::Adjust);
    list->setMovement(QListView::Static);
    list->setWordWrap(true);
    list->setSpacing(6);
    list->setTextElideMode(Qt::ElideMiddle);
    mModel.setColumnCount(1);
    mView = list;
}

void AfxListWidget::resizeEvent(QResizeEvent*) {
    mView->setGeometry(rect());
    mBorder->setGeometry(rect());
}

QStandardItem* AfxListWidget::cell(int row, int column) {
    const int columns = std::max(mModel.columnCount(), 1);
    if (row < 0 || row >= mModel.rowCount() || column < 0 || column >= columns)
        return nullptr;
    QStandardItem* item = mModel.item(row, column);
    if (item == nullptr) {
        item = new QStandardItem;
        if (column < static_cast<int>(alignments.size()))
            item->setTextAlignment(Qt::Alignment(alignments[static_cast<std::size_t>(column)]) | Qt::AlignVCenter);
        mModel.setItem(row, column, item);
    }
    return item;
}

void AfxListWidget::setPicture(QStandardItem& item, int image) {
    item.setData(image, kImageRole);
    item.setIcon(afxIcon(images, image));
}

void AfxListWidget::refreshPictures() {
    if (images != nullptr)
        mView->setIconSize(images->size);
    for (int row = 0; row < mModel.rowCount(); ++row)
        for (int column = 0; column < mModel.columnCount(); ++column)
            if (QStandardItem* item = mModel.item(row, column); item != nullptr && item->data(kImageRole).isValid())
                setPicture(*item, item->data(kImageRole).toInt());
}

void AfxListWidget::layOutNow() const {
    if (mReport != nullptr)
        mReport->layOutNow();
}

QRect AfxListWidget::cellRect(int row, int column) const {
    layOutNow();
    const QRect inView = mView->visualRect(mModel.index(row, column));
    return QRect(mView->viewport()->mapTo(this, inView.topLeft()), inView.size());
}

QRect AfxListWidget::rowRect(int row) const {
    QRect whole = cellRect(row, 0);
    for (int column = 1; column < mModel.columnCount(); ++column)
        whole |= cellRect(row, column);
    return whole;
}

QModelIndex AfxListWidget::indexAt(QPoint client) const {
    layOutNow();
    const QPoint inView = mView->viewport()->mapFrom(this, client);
    return mView->viewport()->rect().contains(inView) ? mView->indexAt(inView) : QModelIndex();
}

QModelIndex AfxListWidget::firstShown() const {
    layOutNow();
    return mView->indexAt(QPoint(2, 2));
}

void AfxListWidget::showRow(int row) {
    layOutNow();
    mView->scrollTo(mModel.index(row, 0));
}

void AfxListWidget::clickAt(int row, int column) {
    layOutNow();
    mView->scrollTo(mModel.index(row, column));
    const QRect cell = mView->visualRect(mModel.index(row, column));
    const QPointF point = cell.center();
    QWidget* target = mView->viewport();
    QPointer<QWidget> alive = target;
    QMouseEvent press(QEvent::MouseButtonPress, point, target->mapToGlobal(point), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &press);
    if (alive == nullptr)
        return;
    QMouseEvent release(QEvent::MouseButtonRelease, point, target->mapToGlobal(point), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &release);
}

void AfxListWidget::tell(int row, UINT fresh, UINT old) {
    AfxWindow* window = afxFind(this);
    if (window == nullptr)
        return;
    NMLISTVIEW notice;
    notice.iItem = row;
    notice.uNewState = fresh;
    notice.uOldState = old;
    notice.uChanged = LVIF_STATE;
    if (const QStandardItem* item = mModel.item(row, 0))
        notice.lParam = static_cast<LPARAM>(item->data(kDataRole).toULongLong());
    AfxDispatch::notify(*window->owner, notice.hdr, LVN_ITEMCHANGED);
}

void AfxListWidget::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    if (isSilent)
        return;
    std::set<int> gone, come;
    for (const QModelIndex& index : deselected.indexes())
        gone.insert(index.row());
    for (const QModelIndex& index : selected.indexes())
        come.insert(index.row());
    QPointer<AfxListWidget> alive = this; // a handler may close the window
    for (auto at = gone.begin(); alive != nullptr && at != gone.end(); ++at)
        tell(*at, 0, LVIS_SELECTED);
    for (auto at = come.begin(); alive != nullptr && at != come.end(); ++at)
        tell(*at, LVIS_SELECTED | LVIS_FOCUSED, 0);
}
