// Status bars, progress bars, tool bars and menus.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Control.h"
#include "platform/Screen.h"

namespace quillon {

class StatusBar : public Control {
  public:
    using Control::Control;
    // Panels count from 1; one that was never set is empty.
    const std::string& Panel(std::size_t number) const;
    void SetPanel(std::size_t number, std::string text);
    std::size_t PanelCount() const noexcept { return m_panels.size(); }

  private:
    std::vector<std::string> m_panels;
};

class ProgressBar : public Control {
  public:
    using Control::Control;
    int Value() const noexcept { return m_value; }
    int Maximum() const noexcept { return m_maximum; }
    void SetValue(int value);     // held between 0 and the maximum
    void SetMaximum(int maximum); // at least 1
  private:
    int m_value = 0;
    int m_maximum = 100;
};

// Buttons by position from 1, or by key; separators are positions without a caption.
class ToolBar : public Control {
  public:
    struct Item {
        std::string Caption{};
        std::string Key{};
        std::string Icon{};
        std::string ToolTip{};
        bool Separator = false;
        bool Enabled = true;
        bool operator==(const Item&) const = default;
    };
    using Control::Control;
    const std::vector<Item>& Items() const noexcept { return m_items; }
    void SetItems(std::vector<Item> items) { Assign(m_items, std::move(items), ControlChange::Items); }
    void SetItemEnabled(std::size_t position, bool enabled);
    // A person's press; separators and disabled buttons do nothing.
    void Press(std::size_t position);
    void PressKey(const std::string& key);
    std::function<void(std::size_t position, const std::string& key)> OnClick;

  private:
    std::vector<Item> m_items;
};

// A menu entry, or a menu when it has entries below it. A pop-up menu is one without a place in the menu bar.
class Menu : public Control {
  public:
    // An entry of a screen's menu bar (parent none) or below another entry.
    Menu(Screen& screen, std::string name, std::string caption, Menu* parent = nullptr);
    ~Menu() override;

    const std::vector<Menu*>& Entries() const noexcept { return m_entries; }
    Menu* ParentMenu() const noexcept { return m_parent; }
    bool IsPopUp() const noexcept { return m_isPopUp; }
    void SetPopUp(bool isPopUp) { m_isPopUp = isPopUp; }
    bool IsSeparator() const { return Caption() == "-"; }
    const std::string& Shortcut() const noexcept { return m_shortcut; }
    void SetShortcut(std::string shortcut) { Assign(m_shortcut, std::move(shortcut)); }
    bool IsTicked() const noexcept { return m_ticked; }
    void SetTicked(bool ticked) { Assign(m_ticked, ticked); }

    void Click();
    std::function<void()> OnClick;

  private:
    Menu* m_parent;
    std::vector<Menu*> m_entries;
    std::string m_shortcut;
    bool m_isPopUp = false;
    bool m_ticked = false;
};

} // namespace quillon
