#include "controls/AfxGridDelegate.h"

#include <QPainter>

namespace {
constexpr int kExtraHeight = 4; // room for the field that edits a cell in its place

bool isLonePicture(const QModelIndex& index) {
    return index.data(Qt::DisplayRole).toString().isEmpty() && !index.data(Qt::DecorationRole).isNull() &&
           (index.data(Qt::TextAlignmentRole).toInt() & Qt::AlignHCenter) != 0;
}
} // namespace

void AfxCellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (!isLonePicture(index))
        return;
    option->decorationPosition = QStyleOptionViewItem::Top; // at the left there is room for the picture alone
    option->decorationAlignment = Qt::AlignCenter;
}

QSize AfxCellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return isLonePicture(index) ? size - QSize(0, option.fontMetrics.height()) : size; // no text comes below it
}

void AfxGridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    AfxCellDelegate::paint(painter, option, index);
    painter->save();
    painter->setPen(QColor(0xD8, 0xD8, 0xD8));
    painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    painter->restore();
}

QSize AfxGridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QSize size = AfxCellDelegate::sizeHint(option, index);
    return QSize(size.width(), size.height() + kExtraHeight);
}
