// The rows of an unbound grid as an item model: it holds no data and asks the grid for a cell when it is
// painted.
//
// Rows and columns count from 0 here and from 1 in the grid.
#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <QSortFilterProxyModel>

#include <functional>
#include <string>

#include "platform/Grid.h"

namespace quillon::desktop {

// The picture for the number that a grid's FetchIcon gives for a cell.
using GridIcon = std::function<QIcon(int number)>;

class GridModel : public QAbstractTableModel {
  public:
    explicit GridModel(Grid& grid, GridIcon iconOf);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    // Follows the grid: its columns, its number of rows, what stands in them.
    void Renew();
    // The text of a cell as it is shown, for sorting and filtering too.
    QString CellText(int row, int column) const;
    bool IsTicked(int row, int column) const;
    int IconNumber(int row, int column) const;
    const Grid::Column& ColumnAt(int column) const { return m_columns[static_cast<std::size_t>(column)]; }

  private:
    Grid& m_grid;
    GridIcon m_iconOf;
    std::vector<Grid::Column> m_columns;
    int m_rows = 0;
};

// The order and the part of the rows that a person wants to see. What is ticked or read never depends on it.
class GridFilter : public QSortFilterProxyModel {
  public:
    explicit GridFilter(GridModel& model);
    // Rows are shown if one of their texts holds `text`, without regard to case; an empty text shows all.
    void SetText(const QString& text);

  protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

  private:
    GridModel& m_model;
    QString m_text;
};

} // namespace quillon::desktop
