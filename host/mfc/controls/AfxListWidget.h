// The widget of a list: one model, seen as a table of columns or as pictures with titles.
#pragma once

#include "CImageList.h"
#include "WinTypes.h"

#include <QAbstractItemView>
#include <QStandardItemModel>

class AfxReportView;
class QItemSelection;

class AfxListWidget : public QWidget {
public:
    AfxListWidget(DWORD style, QWidget* parent);
    QAbstractItemView& view() { return *mView; }
    QStandardItemModel& model() { return mModel; }
    bool isReport() const { return mIsReport; }
    // The cell's item, made where it is absent; null outside the rows and columns.
    QStandardItem* cell(int row, int column);
    void setPicture(QStandardItem& item, int image);
    void refreshPictures();
    void layOutNow() const;                     // what the table has put off
    QRect rowRect(int row) const;               // client coordinates
    QRect cellRect(int row, int column) const;
    QModelIndex indexAt(QPoint client) const;   // of the cell under the point
    QModelIndex firstShown() const;             // in the upper left corner
    void showRow(int row);                      // scrolls it into view
    void clickAt(int row, int column);          // a real click in the middle of the cell

    CImageList* imageList = nullptr;            // as the program gave it
    std::shared_ptr<AfxImages> images;
    std::vector<int> alignments;                // by column
    DWORD extendedStyle = 0;
    bool isSilent = false;                      // while the program empties it

    static constexpr int kImageRole = Qt::UserRole + 1;
    static constexpr int kDataRole = Qt::UserRole + 2;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildReport(DWORD style);
    void buildIcons();
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected);
    void tell(int row, UINT fresh, UINT old);

    QStandardItemModel mModel;
    QAbstractItemView* mView = nullptr;
    AfxReportView* mReport = nullptr; // the same, null for pictures
    QWidget* mBorder = nullptr;
    bool mIsReport = false;
};
