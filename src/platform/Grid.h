// The unbound grid: it holds no data, asks for a row when it needs one, and reports edits back.
//
// Used by: the three grids of the main screen, the trigger manager, reports, undo.
// Rows and columns count from 1, as the events of the screens do; row 0 means none.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/Control.h"
#include "platform/Screen.h"
#include "platform/Value.h"

namespace quillon {

class Grid : public Control {
  public:
    enum class ColumnKind { Text, Check, Icon };
    enum class SortKind { Text, Number, Date };

    struct Column {
        std::string Caption;
        std::string Key;
        ColumnKind Kind = ColumnKind::Text;
        bool Visible = true;
        bool Editable = false;
        SortKind Sort = SortKind::Text;
        bool operator==(const Column&) const = default;
    };

    using Control::Control;

    const std::vector<Column>& Columns() const noexcept { return m_columns; }
    void SetColumns(std::vector<Column> columns) {
        Assign(m_columns, std::move(columns), ControlChange::Items);
    }

    int ItemCount() const noexcept { return m_itemCount; }
    // Changes the number of rows without reading any; the current row is kept within it.
    void SetItemCount(int count);
    // Forgets what was read, so that every row is asked for again.
    void Refetch();
    // Grows with each Refetch and SetItemCount; a view drops what it has cached when it sees a new number.
    int Generation() const noexcept { return m_generation; }

    // The row on which the grid stands, 0 if none. A change fires OnSelectionChange.
    int Row() const noexcept { return m_row; }
    void SetRow(int row);
    bool MultiSelect() const noexcept { return m_multiSelect; }
    void SetMultiSelect(bool multiSelect) { Assign(m_multiSelect, multiSelect); }
    const std::vector<int>& SelectedRows() const noexcept { return m_selected; }
    void SetSelectedRows(std::vector<int> rows) {
        Assign(m_selected, std::move(rows), ControlChange::Selection);
    }

    // The value of a cell, read from the session (or the edit under way) when asked. Empty beyond the rows.
    Value CellValue(int row, int column);
    // The number of a cell's icon, 0 for none.
    int CellIcon(int row, int column) const;

    // --- a person's acts; tests use them too ---
    void ClickCell(int row, int column);             // makes the row current, then OnClick
    void EditCell(int row, int column, Value value); // a check box or text is changed, then OnUpdate, OnClick
    void DoubleClick() { Fire(OnDoubleClick); }
    void RightClick(int row);
    void PressKey(Key key); // Enter acts as a double click where the screen says so

    std::function<std::vector<Value>(int row)> ReadRow; // values by column
    std::function<int(int row, int column)> FetchIcon;  // 0: none
    std::function<void(int row, const std::vector<Value>&)> UnboundUpdate;
    std::function<void(int column)> OnAfterColUpdate;
    std::function<void()> OnClick;
    std::function<void()> OnDoubleClick;
    std::function<void()> OnRightClick;
    std::function<void()> OnSelectionChange;
    std::function<void(Key)> OnKeyDown;

  private:
    const std::vector<Value>& Cached(int row);
    void ForgetRows();

    std::vector<Column> m_columns;
    int m_itemCount = 0;
    int m_row = 0;
    int m_generation = 0;
    bool m_multiSelect = false;
    std::vector<int> m_selected;
    // The one row read last, and the rows that a person has edited: what was typed or ticked shows until the
    // next refetch, whatever the session made of it.
    int m_cachedRow = 0;
    std::vector<Value> m_cached;
    std::map<int, std::vector<Value>> m_edited;
};

} // namespace quillon
