// What every control of a screen has: a name, a place among its screen's controls, and plain state.
//
// Used by: the screens of the system, which own their controls as members; front ends, which observe controls
// and forward a person's acts to them; tests, which do what a person would. Setting a value from code fires
// the control's event just as a person's hand does; the guards in the screens rely on that. A control belongs
// to its screen and dies with it; observers end their observation before.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace quillon {

class Screen;

// What of a control has changed, so that a view need not read everything anew.
enum class ControlChange {
    State,     // caption, enabled, visible, value, text
    Items,     // entries, rows, columns
    Selection, // current entry or row, selected rows, caret
    Command,   // something to be done once: open the list, take the focus, redraw
};

class Control {
  public:
    // `index` is the position in a control array, -1 for a control of its own.
    Control(Screen& screen, std::string name, int index = -1);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& Name() const noexcept { return m_name; }
    int Index() const noexcept { return m_index; }
    Screen& Parent() const noexcept { return m_screen; }

    const std::string& Caption() const noexcept { return m_caption; }
    void SetCaption(std::string caption) { Assign(m_caption, std::move(caption)); }
    bool Enabled() const noexcept { return m_enabled; }
    void SetEnabled(bool enabled) { Assign(m_enabled, enabled); }
    bool Visible() const noexcept { return m_visible; }
    void SetVisible(bool visible) { Assign(m_visible, visible); }
    const std::string& ToolTip() const noexcept { return m_toolTip; }
    void SetToolTip(std::string text) { Assign(m_toolTip, std::move(text)); }

    // Moves the keyboard focus here, through the front end.
    void SetFocus();
    // Paints the control again from its state.
    void Redraw() { Changed(ControlChange::Command); }

    using Observer = std::function<void(ControlChange)>;
    // Returns a number by which the observation ends.
    std::size_t Observe(Observer observer);
    void EndObservation(std::size_t number);

    std::function<void()> OnLostFocus;
    std::function<void()> OnGotFocus;

  protected:
    void Changed(ControlChange change = ControlChange::State);

    // Stores a new state and tells the observers; false when nothing changed.
    template <class T>
    bool Assign(T& state, T value, ControlChange change = ControlChange::State) {
        if (state == value)
            return false;
        state = std::move(value);
        Changed(change);
        return true;
    }

    static void Fire(const std::function<void()>& event) {
        if (event)
            event();
    }

  private:
    Screen& m_screen;
    std::string m_name;
    int m_index;
    std::string m_caption;
    std::string m_toolTip;
    bool m_enabled = true;
    bool m_visible = true;
    std::size_t m_nextObserver = 1;
    std::vector<std::pair<std::size_t, Observer>> m_observers;
};

} // namespace quillon
