// The table that shows a grid: sortable, filtered on wish, ticked by mouse or space bar.
#pragma once

#include <QTableView>

#include "desktop/bind/GridModel.h"

namespace quillon::desktop {

class Binding;

class GridView : public QTableView {
  public:
    GridView(Grid& grid, GridIcon iconOf);

    GridFilter& Filter() { return m_filter; }

    // Widths that a person has chosen; without them columns fit what they hold.
    void SetWidths(const QList<int>& widths);
    std::function<void(const QList<int>&)> OnWidthsChosen;
    GridModel& Model() { return m_model; }

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void Follow(ControlChange change);
    void FitColumns();
    void FitColumnsSoon();
    void SetFittingWidths();
    void FillWidth();
    int FittingWidth(int column) const;
    void SectionResized();
    void ShowSelection();
    void ShowSelectedRows();
    // Of those shown, in ascending order.
    std::vector<int> SelectedRows() const;
    void SelectionMoved();
    // Gives all selected rows the opposite of the current row's tick.
    void TickSelected();
    int TickColumn() const;
    // The grid's row under an index of the view, 0 for none.
    int RowOf(const QModelIndex& index) const;

    Grid& m_grid;
    GridModel m_model;
    GridFilter m_filter;
    Binding* m_binding = nullptr;
    int m_generation = -1;
    bool m_isFitting = false;
    bool m_fitIsDue = false;
    QList<int> m_widths; // chosen by a person; empty without
};

} // namespace quillon::desktop
