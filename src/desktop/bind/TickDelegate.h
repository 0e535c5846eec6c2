// Paints the cells of a grid: ticks and lone icons in the middle of their cell, and the whole cell is what a
// click on a tick may hit.
#pragma once

#include <QStyledItemDelegate>

namespace quillon::desktop {

class TickDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
};

} // namespace quillon::desktop
