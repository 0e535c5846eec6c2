#include "desktop/bind/GridView.h"

#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QTimer>

#include "desktop/bind/Act.h"
#include "desktop/bind/Binding.h"
#include "desktop/bind/Keys.h"
#include "desktop/bind/TickDelegate.h"

namespace quillon::desktop {

GridView::GridView(Grid& grid, GridIcon iconOf)
    : m_grid(grid)
    , m_model(grid, std::move(iconOf))
    , m_filter(m_model) {
    setModel(&m_filter);
    setItemDelegate(new TickDelegate(this));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSortingEnabled(true);
    m_filter.sort(-1); // the session's order until a heading is clicked
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    horizontalHeader()->setSortIndicatorClearable(true);
    horizontalHeader()->setStretchLastSection(false);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setResizeContentsPrecision(200); // rows looked at for the width that fits
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(false);
    m_binding = new Binding(*this, grid, [this](ControlChange change) { Follow(change); });
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] { SectionResized(); });
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { SelectionMoved(); });
}

void GridView::Follow(ControlChange change) {
    if (change == ControlChange::Command)
        viewport()->update();
    if (change == ControlChange::Items) {
        if (m_grid.Generation() != m_generation || m_model.columnCount() != std::ssize(m_grid.Columns()))
            m_model.Renew();
        m_generation = m_grid.Generation();
        FitColumnsSoon();
    }
    if (change == ControlChange::Items || change == ControlChange::Selection)
        ShowSelection();
}

int GridView::FittingWidth(int column) const {
    const int letter = fontMetrics().averageCharWidth();
    const QString caption = m_model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    const int heading = fontMetrics().horizontalAdvance(caption) + 5 * letter;
    if (m_model.ColumnAt(column).Kind != Grid::ColumnKind::Text)
        return heading;
    return std::clamp(sizeHintForColumn(column) + 2 * letter, std::max(heading, 12 * letter), 36 * letter);
}

// Once for all changes of one act: a grid may be filled anew for each of ten thousand rows that are ticked.
void GridView::FitColumnsSoon() {
    if (!std::exchange(m_fitIsDue, true))
        QTimer::singleShot(0, this, [this] {
            m_fitIsDue = false;
            FitColumns();
        });
}

void GridView::FitColumns() {
    m_isFitting = true;
    SetFittingWidths();
    FillWidth();
    m_isFitting = false;
}

void GridView::SetFittingWidths() {
    for (int column = 0; column < m_model.columnCount(); ++column) {
        setColumnHidden(column, !m_model.ColumnAt(column).Visible);
        if (isColumnHidden(column))
            continue;
        const bool isChosen = column < m_widths.size() && m_widths[column] > 0;
        setColumnWidth(column, isChosen ? m_widths[column] : FittingWidth(column));
    }
}

// Room that is left goes to the first column of text, the name that rows are known by; room that lacks comes
// from it.
void GridView::FillWidth() {
    if (!m_widths.isEmpty())
        return;
    int taken = 0, name = -1;
    for (int column = 0; column < m_model.columnCount(); ++column) {
        if (isColumnHidden(column))
            continue;
        const bool isName = name < 0 && m_model.ColumnAt(column).Kind == Grid::ColumnKind::Text;
        if (isName)
            name = column;
        taken += isName ? FittingWidth(column) : columnWidth(column);
    }
    if (name >= 0)
        setColumnWidth(name, std::max(fontMetrics().averageCharWidth() * 16,
                                      FittingWidth(name) + viewport()->width() - taken));
}

void GridView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    FitColumns();
}

void GridView::SetWidths(const QList<int>& widths) {
    m_widths = widths;
    FitColumns();
}

void GridView::SectionResized() {
    if (m_isFitting || QGuiApplication::mouseButtons() == Qt::NoButton)
        return;
    m_widths.clear();
    for (int column = 0; column < m_model.columnCount(); ++column)
        m_widths << columnWidth(column);
    if (OnWidthsChosen)
        OnWidthsChosen(m_widths);
}

void GridView::ShowSelection() {
    if (selectionModel() == nullptr || m_grid.Row() == 0)
        return;
    const QModelIndex current = m_filter.mapFromSource(m_model.index(m_grid.Row() - 1, 0));
    if (current.isValid() && m_grid.Row() != RowOf(currentIndex())) {
        const QModelIndex place = current.siblingAtColumn(std::max(0, currentIndex().column()));
        selectionModel()->setCurrentIndex(place, QItemSelectionModel::NoUpdate);
        scrollTo(place);
    }
    ShowSelectedRows();
}

void GridView::ShowSelectedRows() {
    std::vector<int> rows = m_grid.SelectedRows();
    if (rows.empty())
        rows.push_back(m_grid.Row());
    if (rows == SelectedRows())
        return;
    QItemSelection selection;
    for (const int row : rows)
        if (const QModelIndex index = m_filter.mapFromSource(m_model.index(row - 1, 0)); index.isValid())
            selection.select(index, index);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

std::vector<int> GridView::SelectedRows() const {
    std::vector<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedRows())
        rows.push_back(RowOf(index));
    std::ranges::sort(rows);
    return rows;
}

int GridView::RowOf(const QModelIndex& index) const {
    return index.isValid() ? m_filter.mapToSource(index).row() + 1 : 0;
}

void GridView::SelectionMoved() {
    if (m_binding == nullptr || m_binding->IsWriting())
        return;
    const std::vector<int> rows = SelectedRows();
    Act([&] {
        if (const int row = RowOf(currentIndex()); row > 0)
            m_grid.SetRow(row);
        m_grid.SetSelectedRows(rows);
    });
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->pos());
    QTableView::mouseReleaseEvent(event);
    // A tick has told of its click already.
    const bool isTick = index.isValid() && m_model.ColumnAt(index.column()).Kind == Grid::ColumnKind::Check;
    if (event->button() == Qt::LeftButton && index.isValid() && !isTick)
        Act([&] { m_grid.ClickCell(RowOf(index), index.column() + 1); });
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->pos());
    const bool isTick = index.isValid() && m_model.ColumnAt(index.column()).Kind == Grid::ColumnKind::Check;
    QTableView::mouseDoubleClickEvent(event);
    if (index.isValid() && !isTick)
        Act([&] { m_grid.DoubleClick(); });
}

bool GridView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        // Only what is cut off needs telling.
        const QModelIndex index = indexAt(static_cast<QHelpEvent*>(event)->pos());
        if (index.isValid() && sizeHintForIndex(index).width() <= visualRect(index).width())
            return true;
    }
    return QTableView::viewportEvent(event);
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
    const int row = event->reason() == QContextMenuEvent::Mouse ? RowOf(indexAt(event->pos())) : m_grid.Row();
    Act([&] { m_grid.RightClick(row > 0 ? row : m_grid.Row()); });
}

int GridView::TickColumn() const {
    const int current = currentIndex().column();
    if (current >= 0 && m_model.ColumnAt(current).Kind == Grid::ColumnKind::Check)
        return current;
    for (int column = 0; column < m_model.columnCount(); ++column)
        if (m_model.ColumnAt(column).Kind == Grid::ColumnKind::Check)
            return column;
    return -1;
}

void GridView::TickSelected() {
    const int column = TickColumn();
    const int current = RowOf(currentIndex());
    if (column < 0 || current == 0)
        return;
    const bool tick = !m_model.IsTicked(current - 1, column);
    std::vector<int> rows = SelectedRows();
    if (rows.empty())
        rows.push_back(current);
    // Thousands of rows take seconds, in which the ticks are seen to come.
    constexpr int signOfLife = 250; // milliseconds
    QElapsedTimer sincePaint;
    sincePaint.start();
    QGuiApplication::setOverrideCursor(Qt::BusyCursor);
    Act([&] {
        for (const int row : rows) {
            m_grid.EditCell(row, column + 1, Value(tick));
            if (sincePaint.hasExpired(signOfLife)) {
                viewport()->repaint();
                sincePaint.start();
            }
        }
        // Editing a row has made it the current one; the person's rows are given back.
        m_grid.SetRow(current);
        m_grid.SetSelectedRows(rows);
    });
    QGuiApplication::restoreOverrideCursor();
    viewport()->update();
}

void GridView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space) {
        TickSelected();
        return;
    }
    const auto key = KeyOf(*event);
    if (key == Key::Enter) {
        Act([&] { m_grid.PressKey(Key::Enter); });
        return;
    }
    QTableView::keyPressEvent(event);
    if (key)
        Act([&] { m_grid.PressKey(*key); });
}

} // namespace quillon::desktop
