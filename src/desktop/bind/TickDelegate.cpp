#include "desktop/bind/TickDelegate.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

namespace quillon::desktop {

void TickDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const bool isTick = index.flags().testFlag(Qt::ItemIsUserCheckable);
    if (!isTick && (!cell.text.isEmpty() || cell.icon.isNull())) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    const QStyle& style = *(cell.widget != nullptr ? cell.widget->style() : QApplication::style());
    style.drawPrimitive(QStyle::PE_PanelItemViewItem, &cell, painter, cell.widget);
    if (!isTick) {
        const QRect place =
            QStyle::alignedRect(cell.direction, Qt::AlignCenter, cell.decorationSize, cell.rect);
        cell.icon.paint(painter, place);
        return;
    }
    QStyleOptionViewItem box = cell;
    const QSize size(style.pixelMetric(QStyle::PM_IndicatorWidth, &cell, cell.widget),
                     style.pixelMetric(QStyle::PM_IndicatorHeight, &cell, cell.widget));
    box.rect = QStyle::alignedRect(cell.direction, Qt::AlignCenter, size, cell.rect);
    box.state.setFlag(QStyle::State_On, cell.checkState == Qt::Checked);
    box.state.setFlag(QStyle::State_Off, cell.checkState == Qt::Unchecked);
    style.drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, painter, cell.widget);
}

bool TickDelegate::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                               const QModelIndex& index) {
    const bool isTick = index.flags().testFlag(Qt::ItemIsUserCheckable);
    const bool isClick =
        event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::MouseButtonDblClick;
    if (!isTick || !isClick || static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton)
        return isTick ? false : QStyledItemDelegate::editorEvent(event, model, option, index);
    const bool isTicked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    return model->setData(index, isTicked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

} // namespace quillon::desktop
