#include "platform/ListControls.h"

#include <algorithm>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon {
namespace {

// Refuses a position beyond a list, as the common controls do.
template <class List>
auto& At(List& list, std::size_t index) {
    if (index >= list.size())
        throw Failure(numbers::InvalidCall);
    return list[index];
}

} // namespace

void ComboBox::AddItem(std::string text, std::int32_t itemData, std::string key) {
    m_items.push_back({std::move(text), itemData, std::move(key)});
    Changed(ControlChange::Items);
}

void ComboBox::SetItemData(std::size_t position, std::int32_t itemData) {
    At(m_items, position).ItemData = itemData;
}

void ComboBox::Clear() {
    m_items.clear();
    // The text of an entry goes with it; one that only asks for a choice stays.
    if (m_isDropDownList && m_listIndex >= 0)
        m_text.clear();
    m_listIndex = -1;
    Changed(ControlChange::Items);
}

void ComboBox::SetListIndex(int index) {
    if (index == m_listIndex)
        return;
    Pick(index);
}

void ComboBox::Pick(int index) {
    m_text = index < 0 ? std::string() : At(m_items, static_cast<std::size_t>(index)).Text;
    m_listIndex = std::max(index, -1);
    Changed(ControlChange::Selection);
    Fire(OnClick);
}

void ComboBox::SetText(std::string text) {
    if (text == m_text)
        return;
    m_text = std::move(text);
    m_listIndex = -1;
    Changed();
    Fire(OnChange);
}

void ListView::AddRow(Row row) {
    m_rows.push_back(std::move(row));
    Changed(ControlChange::Items);
}

void ListView::RemoveRow(std::size_t index) {
    At(m_rows, index);
    m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(index));
    m_current = std::min(m_current, static_cast<int>(m_rows.size()) - 1);
    Changed(ControlChange::Items);
}

void ListView::Clear() {
    m_rows.clear();
    m_current = -1;
    Changed(ControlChange::Items);
}

void ListView::SetChecked(std::size_t index, bool checked) {
    Assign(At(m_rows, index).Checked, checked, ControlChange::Items);
}

void ListView::Click(std::size_t index) {
    At(m_rows, index);
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        m_rows[row].Selected = row == index;
    m_current = static_cast<int>(index);
    Changed(ControlChange::Selection);
    Fire(OnClick);
}

void ListView::SetSelected(std::size_t index, bool selected) {
    Assign(At(m_rows, index).Selected, selected, ControlChange::Selection);
}

void ListView::ClickColumn(std::size_t column) {
    At(m_columns, column);
    if (OnColumnClick)
        OnColumnClick(column);
}

void ListView::PressKey(Key key) {
    if (OnKeyDown)
        OnKeyDown(key);
}

void ListView::Sort(std::size_t column, bool ascending) {
    const auto text = [column](const Row& row) -> const std::string& {
        static const std::string none;
        if (column == 0)
            return row.Text;
        return column <= row.SubItems.size() ? row.SubItems[column - 1] : none;
    };
    std::ranges::stable_sort(m_rows, [&](const Row& left, const Row& right) {
        return ascending ? text(left) < text(right) : text(right) < text(left);
    });
    Changed(ControlChange::Items);
}

int TreeView::Add(int parent, std::string text, std::string key, std::string icon) {
    m_nodes.push_back({std::move(text), std::move(key), std::move(icon), parent});
    Changed(ControlChange::Items);
    return static_cast<int>(m_nodes.size()) - 1;
}

void TreeView::SetText(int node, std::string text) {
    Assign(At(m_nodes, static_cast<std::size_t>(node)).Text, std::move(text), ControlChange::Items);
}

void TreeView::SetIcon(int node, std::string icon) {
    Assign(At(m_nodes, static_cast<std::size_t>(node)).Icon, std::move(icon), ControlChange::Items);
}

void TreeView::Clear() {
    m_nodes.clear();
    m_selected = -1;
    Changed(ControlChange::Items);
}

void TreeView::Click(int node) {
    At(m_nodes, static_cast<std::size_t>(node));
    m_selected = node;
    Changed(ControlChange::Selection);
    Fire(OnClick);
}

void TabStrip::Select(int tab) {
    At(m_tabs, static_cast<std::size_t>(tab));
    if (Assign(m_selected, tab, ControlChange::Selection))
        Fire(OnClick);
}

} // namespace quillon
