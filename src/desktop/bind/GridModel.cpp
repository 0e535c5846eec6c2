#include "desktop/bind/GridModel.h"

#include "desktop/bind/Act.h"
#include "desktop/bind/Text.h"
#include "platform/Conversion.h"

namespace quillon::desktop {
namespace {

// A cell is read while it is painted, where nothing may fail: what cannot be read says so in its place.
template <class Read>
auto OrElse(Read read, decltype(read()) otherwise) -> decltype(read()) {
    try {
        return read();
    } catch (const std::exception&) {
        return otherwise;
    }
}

} // namespace

GridModel::GridModel(Grid& grid, GridIcon iconOf)
    : m_grid(grid)
    , m_iconOf(std::move(iconOf)) {
    Renew();
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rows;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QString GridModel::CellText(int row, int column) const {
    return OrElse(
        [&] {
            const Value value = m_grid.CellValue(row + 1, column + 1);
            return value.IsNull() || value.IsEmpty() ? QString() : Text(conversion::ToText(value));
        },
        QStringLiteral("?"));
}

bool GridModel::IsTicked(int row, int column) const {
    return OrElse(
        [&] {
            const Value value = m_grid.CellValue(row + 1, column + 1);
            return !value.IsNull() && conversion::ToBoolean(value);
        },
        false);
}

int GridModel::IconNumber(int row, int column) const {
    return m_grid.CellIcon(row + 1, column + 1);
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    const Grid::ColumnKind kind = ColumnAt(index.column()).Kind;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        if (kind == Grid::ColumnKind::Text)
            return CellText(index.row(), index.column());
        return {};
    case Qt::CheckStateRole:
        if (kind == Grid::ColumnKind::Check)
            return IsTicked(index.row(), index.column()) ? Qt::Checked : Qt::Unchecked;
        return {};
    case Qt::DecorationRole:
        if (const int number = IconNumber(index.row(), index.column()))
            return m_iconOf(number);
        return {};
    case Qt::TextAlignmentRole:
        return kind == Grid::ColumnKind::Text ? QVariant() : QVariant(Qt::AlignCenter);
    default: return {};
    }
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole)
        return false;
    Act([&] { m_grid.EditCell(index.row() + 1, index.column() + 1, Value(value.toInt() == Qt::Checked)); });
    Q_EMIT dataChanged(index, index);
    return true;
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return Text(ColumnAt(section).Caption);
    return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return ColumnAt(index.column()).Kind == Grid::ColumnKind::Check ? flags | Qt::ItemIsUserCheckable : flags;
}

void GridModel::Renew() {
    if (m_rows != m_grid.ItemCount() || m_columns != m_grid.Columns()) {
        beginResetModel();
        m_rows = m_grid.ItemCount();
        m_columns = m_grid.Columns();
        endResetModel();
    } else if (m_rows > 0 && !m_columns.empty()) {
        Q_EMIT dataChanged(index(0, 0), index(m_rows - 1, static_cast<int>(m_columns.size()) - 1));
    }
}

GridFilter::GridFilter(GridModel& model)
    : m_model(model) {
    setSourceModel(&model);
    // A tick must not make its row jump away under the pointer.
    setDynamicSortFilter(false);
}

void GridFilter::SetText(const QString& text) {
    m_text = text;
    invalidateFilter();
}

bool GridFilter::filterAcceptsRow(int row, const QModelIndex&) const {
    if (m_text.isEmpty())
        return true;
    for (int column = 0; column < m_model.columnCount(); ++column)
        if (m_model.ColumnAt(column).Kind == Grid::ColumnKind::Text &&
            m_model.CellText(row, column).contains(m_text, Qt::CaseInsensitive))
            return true;
    return false;
}

bool GridFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    const Grid::Column& column = m_model.ColumnAt(left.column());
    if (column.Kind == Grid::ColumnKind::Check)
        return m_model.IsTicked(left.row(), left.column()) < m_model.IsTicked(right.row(), right.column());
    if (column.Kind == Grid::ColumnKind::Icon)
        return m_model.IconNumber(left.row(), left.column()) <
               m_model.IconNumber(right.row(), right.column());
    const QString one = m_model.CellText(left.row(), left.column());
    const QString other = m_model.CellText(right.row(), right.column());
    if (column.Sort == Grid::SortKind::Number)
        return one.toDouble() < other.toDouble();
    if (column.Sort == Grid::SortKind::Date)
        return OrElse(
            [&] {
                return conversion::ToDate(Value(Text(one))).days <
                       conversion::ToDate(Value(Text(other))).days;
            },
            one < other);
    return one.compare(other, Qt::CaseInsensitive) < 0;
}

} // namespace quillon::desktop
