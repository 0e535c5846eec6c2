// Controls with one value: labels, buttons, check boxes, options, text boxes, spinners, date pickers, frames.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/Control.h"
#include "platform/Screen.h"
#include "platform/Value.h"

namespace quillon {

class Label : public Control {
  public:
    using Control::Control;
};

// A panel or group box: only its caption, visibility and enabled state matter.
class Frame : public Control {
  public:
    using Control::Control;
};

class Button : public Control {
  public:
    using Control::Control;
    // A person's press; does nothing while disabled or hidden.
    void Click();
    std::function<void()> OnClick;
};

class CheckBox : public Control {
  public:
    enum State : std::int16_t { Unticked = 0, Ticked = 1, Greyed = 2 };

    using Control::Control;
    State Value() const noexcept { return m_value; }
    bool IsTicked() const noexcept { return m_value == Ticked; }
    // Fires OnClick when the value changes.
    void SetValue(State value);
    // A person's click: ticks a clear box and clears any other.
    void Click();
    std::function<void()> OnClick;

  private:
    State m_value = Unticked;
};

// One of a group; the group is the options of the screen that have the same name.
class OptionButton : public Control {
  public:
    using Control::Control;
    bool Value() const noexcept { return m_value; }
    // True clears the other options of the group and fires OnClick; setting what is set fires nothing.
    void SetValue(bool value);
    // A person's click.
    void Click();
    std::function<void()> OnClick;

  private:
    bool m_value = false;
};

class TextBox : public Control {
  public:
    using Control::Control;
    const std::string& Text() const noexcept { return m_text; }
    // Fires OnChange when the text changes, from code and from a person alike.
    void SetText(std::string text);
    // Shows dots in place of the text.
    bool IsPassword() const noexcept { return m_isPassword; }
    void SetPassword(bool isPassword) { Assign(m_isPassword, isPassword); }
    bool IsReadOnly() const noexcept { return m_isReadOnly; }
    void SetReadOnly(bool isReadOnly) { Assign(m_isReadOnly, isReadOnly); }
    // Asks the view to select the whole text.
    void SelectAll() { Changed(ControlChange::Selection); }
    // A key that a person presses in the box; the handler may drop it.
    bool AcceptsKey(int keyCode) const { return !KeyFilter || KeyFilter(keyCode); }

    std::function<void()> OnChange;
    std::function<void()> OnClick;
    std::function<void(Key)> OnKeyDown;
    std::function<bool(int)> KeyFilter; // character code: false drops the key

  private:
    std::string m_text;
    bool m_isPassword = false;
    bool m_isReadOnly = false;
};

// A spinner beside a number box.
class UpDown : public Control {
  public:
    using Control::Control;
    std::int32_t Value() const noexcept { return m_value; }
    void SetValue(std::int32_t value); // held within the range; fires OnChange when it changes
    std::int32_t Minimum() const noexcept { return m_minimum; }
    std::int32_t Maximum() const noexcept { return m_maximum; }
    void SetRange(std::int32_t minimum, std::int32_t maximum);
    std::function<void()> OnChange;

  private:
    std::int32_t m_value = 0;
    std::int32_t m_minimum = 0;
    std::int32_t m_maximum = 32767;
};

// A date or time that may be unset.
class DatePicker : public Control {
  public:
    using Control::Control;
    const std::optional<DateValue>& Value() const noexcept { return m_value; }
    void SetValue(std::optional<DateValue> value);
    // What the picker shows: a date unless Format says a time ("hh:mm:ss").
    const std::string& Format() const noexcept { return m_format; }
    void SetFormat(std::string format) { Assign(m_format, std::move(format)); }
    std::function<void()> OnChange;

  private:
    std::optional<DateValue> m_value;
    std::string m_format = "MM/dd/yyyy";
};

// A control array: members share a name and carry their index from 0.
template <class T, std::size_t Count>
class ControlArray {
  public:
    ControlArray(Screen& screen, const std::string& name)
        : ControlArray(screen, name, Indexes{}) {}
    T& operator[](std::size_t index) { return m_controls.at(index); }
    const T& operator[](std::size_t index) const { return m_controls.at(index); }
    auto begin() { return m_controls.begin(); }
    auto end() { return m_controls.end(); }
    static constexpr std::size_t size() { return Count; }

  private:
    using Indexes = std::make_index_sequence<Count>;
    template <std::size_t... I>
    ControlArray(Screen& screen, const std::string& name, std::index_sequence<I...>)
        : m_controls{T(screen, name, static_cast<int>(I))...} {}
    std::array<T, Count> m_controls;
};

} // namespace quillon
