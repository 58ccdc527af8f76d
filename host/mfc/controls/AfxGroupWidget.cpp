#include "controls/AfxGroupWidget.h"

#include <QPainter>

namespace {
constexpr int kTitleIndent = 8, kTitleGap = 3; // pixels
}

void AfxGroupWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QFontMetrics metrics(font());
    const int titleWidth = title().isEmpty() ? 0 : metrics.size(Qt::TextShowMnemonic, title()).width() + 2 * kTitleGap;
    const int top = title().isEmpty() ? 0 : metrics.height() / 2;
    const QRect frame = rect().adjusted(0, top, -1, -1);
    painter.setPen(QPen(palette().color(QPalette::Mid).lighter(112)));
    painter.drawLine(frame.topLeft(), frame.bottomLeft());
    painter.drawLine(frame.bottomLeft(), frame.bottomRight());
    painter.drawLine(frame.topRight(), frame.bottomRight());
    const int titleLeft = frame.left() + kTitleIndent;
    painter.drawLine(frame.topLeft(), QPoint(titleWidth == 0 ? frame.right() : titleLeft, frame.top()));
    painter.drawLine(QPoint(titleLeft + titleWidth, frame.top()), frame.topRight());
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(QRect(titleLeft + kTitleGap, 0, titleWidth, metrics.height()), Qt::TextShowMnemonic | Qt::AlignLeft, title());
}
