// The widget of a tree control.
#pragma once

#include "CImageList.h"
#include "WinTypes.h"

#include <QTreeWidget>

class AfxTreeWidget : public QTreeWidget {
public:
    AfxTreeWidget(DWORD style, QWidget* parent);
    void setPictures(QTreeWidgetItem& item, int image, int selectedImage);
    void refreshPictures();

    CImageList* imageList = nullptr;
    std::shared_ptr<AfxImages> images;

    static constexpr int kImageRole = Qt::UserRole + 1;
    static constexpr int kSelectedRole = Qt::UserRole + 2;
    static constexpr int kDataRole = Qt::UserRole + 3;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showPicture(QTreeWidgetItem* item);
    void changed(QTreeWidgetItem* now, QTreeWidgetItem* before);
};
