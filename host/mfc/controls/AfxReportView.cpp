#include "controls/AfxReportView.h"

namespace {
constexpr int kLayoutPause = 100; // milliseconds
}

AfxReportView::AfxReportView(QWidget* parent) : QTreeView(parent) {
    mLater.setSingleShot(true);
    connect(&mLater, &QTimer::timeout, this, [this] { layOutNow(); });
}

void AfxReportView::rowsInserted(const QModelIndex& parent, int start, int end) {
    mIsAppending = end + 1 == model()->rowCount(parent);
    QTreeView::rowsInserted(parent, start, end);
}

void AfxReportView::doItemsLayout() {
    const bool isSoon = mSinceLayout.isValid() && mSinceLayout.elapsed() < kLayoutPause;
    if (!mIsAppending || !isSoon) {
        layOut();
        return;
    }
    mIsWanted = true;
    if (!mLater.isActive())
        mLater.start(kLayoutPause);
}

void AfxReportView::layOut() {
    mIsAppending = mIsWanted = false;
    QTreeView::doItemsLayout();
    mSinceLayout.start();
}

void AfxReportView::layOutNow() {
    mIsAppending = false;
    executeDelayedItemsLayout();
    if (mIsWanted)
        layOut();
}
