// The widget of a tab control: tabs over an empty framed area.
#pragma once

#include <QTabBar>
#include <QTabWidget>

class AfxTabWidget : public QTabWidget {
public:
    explicit AfxTabWidget(QWidget* parent);
    QRect pageRect() const; // the area inside the frame
    bool clickTab(int index); // a real click; false where the present page did not let go
};
