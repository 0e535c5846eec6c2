#include "platform/Bars.h"

#include <algorithm>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon {

const std::string& StatusBar::Panel(std::size_t number) const {
    static const std::string none;
    return number >= 1 && number <= m_panels.size() ? m_panels[number - 1] : none;
}

void StatusBar::SetPanel(std::size_t number, std::string text) {
    if (number < 1)
        throw Failure(numbers::InvalidCall);
    if (m_panels.size() < number)
        m_panels.resize(number);
    Assign(m_panels[number - 1], std::move(text));
}

void ProgressBar::SetValue(int value) {
    Assign(m_value, std::clamp(value, 0, m_maximum));
}

void ProgressBar::SetMaximum(int maximum) {
    Assign(m_maximum, std::max(maximum, 1));
    SetValue(m_value);
}

void ToolBar::SetItemEnabled(std::size_t position, bool enabled) {
    if (position < 1 || position > m_items.size())
        throw Failure(numbers::InvalidCall);
    Assign(m_items[position - 1].Enabled, enabled);
}

void ToolBar::Press(std::size_t position) {
    if (!Enabled() || position < 1 || position > m_items.size())
        return;
    const Item& item = m_items[position - 1];
    if (item.Enabled && !item.Separator && OnClick)
        OnClick(position, item.Key);
}

void ToolBar::PressKey(const std::string& key) {
    const auto found = std::ranges::find(m_items, key, &Item::Key);
    if (found != m_items.end())
        Press(static_cast<std::size_t>(found - m_items.begin()) + 1);
}

Menu::Menu(Screen& screen, std::string name, std::string caption, Menu* parent)
    : Control(screen, std::move(name))
    , m_parent(parent) {
    SetCaption(std::move(caption));
    if (m_parent != nullptr)
        m_parent->m_entries.push_back(this);
}

Menu::~Menu() {
    for (Menu* entry : m_entries)
        entry->m_parent = nullptr;
    if (m_parent != nullptr)
        std::erase(m_parent->m_entries, this);
}

void Menu::Click() {
    if (Enabled() && Visible())
        Fire(OnClick);
}

} // namespace quillon
