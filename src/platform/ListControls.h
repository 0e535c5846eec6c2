// Controls with entries: combo boxes, list views, trees, tab strips.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/Control.h"
#include "platform/Screen.h"

namespace quillon {

class ComboBox : public Control {
  public:
    struct Item {
        std::string Text;
        std::int32_t ItemData = 0;
        std::string Key;
        bool operator==(const Item&) const = default;
    };

    using Control::Control;

    const std::vector<Item>& Items() const noexcept { return m_items; }
    void AddItem(std::string text, std::int32_t itemData = 0, std::string key = {});
    void SetItemData(std::size_t position, std::int32_t itemData); // 5 beyond the last entry
    // Forgets the entries; the text of a drop-down list goes with them, typed text stays.
    void Clear();

    // -1: none. Selecting puts the entry's text into the box and fires OnClick.
    int ListIndex() const noexcept { return m_listIndex; }
    void SetListIndex(int index);
    // A person picks an entry; fires OnClick even when it is the current one.
    void Pick(int index);

    const std::string& Text() const noexcept { return m_text; }
    // Of a box that takes typing; selects no entry. Fires OnChange.
    void SetText(std::string text);
    // True for a box that offers only its entries.
    bool IsDropDownList() const noexcept { return m_isDropDownList; }
    void SetDropDownList(bool isDropDownList) { Assign(m_isDropDownList, isDropDownList); }

    // Asks the view to open the list, as the key F4 does.
    void DropDown() {
        ++m_dropDowns;
        Changed(ControlChange::Command);
    }
    // How often the list was asked to open; a view opens it when the number has grown.
    int DropDowns() const noexcept { return m_dropDowns; }
    void SelectAll() { Changed(ControlChange::Selection); }

    std::function<void()> OnClick;
    std::function<void()> OnChange;
    std::function<void(Key)> OnKeyDown;

  private:
    std::vector<Item> m_items;
    std::string m_text;
    int m_listIndex = -1;
    int m_dropDowns = 0;
    bool m_isDropDownList = false;
};

// A list with columns, in report view.
class ListView : public Control {
  public:
    struct Row {
        std::string Text;
        std::vector<std::string> SubItems;
        std::string Icon;
        std::string Key;
        std::string Note; // kept with the row, not shown
        bool Checked = false;
        bool Selected = false;
        bool operator==(const Row&) const = default;
    };
    struct Column {
        std::string Caption;
        int Width = 0; // twentieths of a point; 0 leaves it to the view
        bool operator==(const Column&) const = default;
    };

    using Control::Control;

    const std::vector<Column>& Columns() const noexcept { return m_columns; }
    void SetColumns(std::vector<Column> columns) {
        Assign(m_columns, std::move(columns), ControlChange::Items);
    }
    const std::vector<Row>& Rows() const noexcept { return m_rows; }
    void AddRow(Row row);
    void RemoveRow(std::size_t index);
    void Clear();

    bool HasCheckBoxes() const noexcept { return m_hasCheckBoxes; }
    void SetCheckBoxes(bool hasCheckBoxes) { Assign(m_hasCheckBoxes, hasCheckBoxes); }
    void SetChecked(std::size_t index, bool checked);

    // The row on which the list stands, -1 if none; a click selects it alone.
    int Current() const noexcept { return m_current; }
    void Click(std::size_t index);
    void SetSelected(std::size_t index, bool selected);
    void DoubleClick() { Fire(OnDoubleClick); }
    void ClickColumn(std::size_t column);
    void PressKey(Key key);

    // Sorts by the text of a column, from 0.
    void Sort(std::size_t column, bool ascending);

    std::function<void()> OnClick;
    std::function<void()> OnDoubleClick;
    std::function<void()> OnRightClick;
    std::function<void(std::size_t)> OnColumnClick;
    std::function<void(Key)> OnKeyDown;

  private:
    std::vector<Column> m_columns;
    std::vector<Row> m_rows;
    int m_current = -1;
    bool m_hasCheckBoxes = false;
};

class TreeView : public Control {
  public:
    struct Node {
        std::string Text;
        std::string Key;
        std::string Icon;
        int Parent = -1; // position of the parent node, -1 for a top-level one
        bool operator==(const Node&) const = default;
    };

    using Control::Control;

    const std::vector<Node>& Nodes() const noexcept { return m_nodes; }
    // Returns the position of the new node.
    int Add(int parent, std::string text, std::string key, std::string icon);
    void SetText(int node, std::string text);
    void SetIcon(int node, std::string icon);
    void Clear();

    int Selected() const noexcept { return m_selected; }
    void Click(int node);
    void DoubleClick() { Fire(OnDoubleClick); }

    std::function<void()> OnClick;
    std::function<void()> OnDoubleClick;
    std::function<void()> OnRightClick;

  private:
    std::vector<Node> m_nodes;
    int m_selected = -1;
};

class TabStrip : public Control {
  public:
    struct Tab {
        std::string Caption;
        std::string ToolTip;
        bool operator==(const Tab&) const = default;
    };

    using Control::Control;
    const std::vector<Tab>& Tabs() const noexcept { return m_tabs; }
    void SetTabs(std::vector<Tab> tabs) { Assign(m_tabs, std::move(tabs), ControlChange::Items); }
    int Selected() const noexcept { return m_selected; } // from 0
    // Fires OnClick when the tab changes.
    void Select(int tab);
    std::function<void()> OnClick;

  private:
    std::vector<Tab> m_tabs;
    int m_selected = 0;
};

} // namespace quillon
