#include "controls/AfxGridDelegate.h"

#include <QPainter>

namespace {
constexpr int kExtraHeight = 4; // room for the field that edits a cell in its place
}

void AfxGridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    painter->save();
    painter->setPen(QColor(0xD8, 0xD8, 0xD8));
    painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    painter->restore();
}

QSize AfxGridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return QSize(size.width(), size.height() + kExtraHeight);
}
