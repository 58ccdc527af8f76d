#include "controls/AfxGridDelegate.h"

#include <QPainter>

namespace {
constexpr int kExtraHeight = 4; // room for the field that edits a cell in its place
}

void AfxCellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (!option->text.isEmpty() || (option->displayAlignment & Qt::AlignHCenter) == 0)
        return;
    option->decorationPosition = QStyleOptionViewItem::Top; // at the left there is room for the picture alone
    option->decorationAlignment = Qt::AlignCenter;
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
