// The surface inside a display list control: paints the list and gives mouse events in model units.
#pragma once

#include "CDisplayListCtrl.h"

#include <QColor>
#include <QPointer>
#include <QWidget>

struct CDisplayListCtrl::Impl {
    QColor background = Qt::black;
    std::shared_ptr<const GiDisplayList> list;
    const GiStyleResolver* resolver = nullptr;
    AcGePoint2d low{0.0, 0.0}, high{1.0, 1.0};
    AcGePoint2d center{0.5, 0.5};
    double scale = 1.0; // pixels a model unit
    QPointer<QWidget> canvas;
    void fit(int width, int height);
};

struct AfxDisplayCanvas : QWidget {
    AfxDisplayCanvas(CDisplayListCtrl& owner, CDisplayListCtrl::Impl& impl, QWidget* parent);
    void place(); // fills the parent

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    CDisplayListCtrl& mOwner;
    CDisplayListCtrl::Impl& mImpl;
};
