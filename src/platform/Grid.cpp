#include "platform/Grid.h"

#include <algorithm>

namespace quillon {

void Grid::SetItemCount(int count) {
    m_itemCount = std::max(count, 0);
    ForgetRows();
    std::erase_if(m_selected, [this](int row) { return row > m_itemCount; });
    if (m_row > m_itemCount)
        m_row = m_itemCount;
    if (m_row == 0 && m_itemCount > 0)
        m_row = 1;
    Changed(ControlChange::Items);
}

void Grid::Refetch() {
    ForgetRows();
    Changed(ControlChange::Items);
}

void Grid::ForgetRows() {
    m_cachedRow = 0;
    m_edited.clear();
    ++m_generation;
}

void Grid::SetRow(int row) {
    row = std::clamp(row, 0, m_itemCount);
    if (row == m_row)
        return;
    m_row = row;
    m_selected = row == 0 ? std::vector<int>{} : std::vector<int>{row};
    Changed(ControlChange::Selection);
    Fire(OnSelectionChange);
}

const std::vector<Value>& Grid::Cached(int row) {
    if (const auto edited = m_edited.find(row); edited != m_edited.end())
        return edited->second;
    if (m_cachedRow != row) {
        m_cached = ReadRow ? ReadRow(row) : std::vector<Value>{};
        m_cachedRow = row;
    }
    return m_cached;
}

Value Grid::CellValue(int row, int column) {
    if (row < 1 || row > m_itemCount || column < 1)
        return {};
    const auto& values = Cached(row);
    const auto index = static_cast<std::size_t>(column - 1);
    return index < values.size() ? values[index] : Value{};
}

int Grid::CellIcon(int row, int column) const {
    return FetchIcon && row >= 1 && row <= m_itemCount ? FetchIcon(row, column) : 0;
}

void Grid::ClickCell(int row, int /*column*/) {
    SetRow(row);
    Fire(OnClick);
}

void Grid::EditCell(int row, int column, Value value) {
    if (!Enabled() || row < 1 || row > m_itemCount || column < 1)
        return;
    SetRow(row);
    std::vector<Value> values = Cached(row);
    const auto index = static_cast<std::size_t>(column - 1);
    if (index >= values.size())
        values.resize(index + 1);
    values[index] = std::move(value);
    m_edited[row] = values;
    if (OnAfterColUpdate)
        OnAfterColUpdate(column);
    if (UnboundUpdate)
        UnboundUpdate(row, values);
    Fire(OnClick);
}

void Grid::RightClick(int row) {
    SetRow(row);
    Fire(OnRightClick);
}

void Grid::PressKey(Key key) {
    if (OnKeyDown)
        OnKeyDown(key);
}

} // namespace quillon
