// How the cells of a list are drawn.
#pragma once

#include <QStyledItemDelegate>

// A picture that stands alone in a centred cell stands in its middle.
class AfxCellDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

// The same with thin lines between the cells, over whatever the style draws.
class AfxGridDelegate : public AfxCellDelegate {
public:
    using AfxCellDelegate::AfxCellDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
