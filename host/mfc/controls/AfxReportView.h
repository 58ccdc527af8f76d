// The table of a list control. Laying the rows out costs time with every row there is, and the toolkit
// does it for each round of events in which a row came; a job that appends thousands of rows and lets its
// window live meanwhile would spend its time on that alone. So it is done a few times a second then.
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QTreeView>

class AfxReportView : public QTreeView {
public:
    explicit AfxReportView(QWidget* parent);
    // Before a question about the place of a row.
    void layOutNow();
    void doItemsLayout() override;

protected:
    void rowsInserted(const QModelIndex& parent, int start, int end) override;

private:
    void layOut();
    QElapsedTimer mSinceLayout;
    QTimer mLater;
    bool mIsAppending = false; // rows have come at the end since the last layout, and nothing else is known to have changed
    bool mIsWanted = false;    // a layout was put off
};
