#include "platform/SimpleControls.h"

#include <algorithm>

namespace quillon {

void Button::Click() {
    if (Enabled() && Visible())
        Fire(OnClick);
}

void CheckBox::SetValue(State value) {
    if (Assign(m_value, value))
        Fire(OnClick);
}

void CheckBox::Click() {
    if (Enabled() && Visible())
        SetValue(m_value == Unticked ? Ticked : Unticked);
}

void OptionButton::SetValue(bool value) {
    if (!Assign(m_value, value) || !value)
        return;
    for (Control* other : Parent().Controls()) {
        auto* option = dynamic_cast<OptionButton*>(other);
        if (option != nullptr && option != this && option->Name() == Name())
            option->SetValue(false);
    }
    Fire(OnClick);
}

void OptionButton::Click() {
    if (Enabled() && Visible())
        SetValue(true);
}

void TextBox::SetText(std::string text) {
    if (Assign(m_text, std::move(text)))
        Fire(OnChange);
}

void UpDown::SetValue(std::int32_t value) {
    if (Assign(m_value, std::clamp(value, m_minimum, m_maximum)))
        Fire(OnChange);
}

void UpDown::SetRange(std::int32_t minimum, std::int32_t maximum) {
    Assign(m_minimum, minimum);
    Assign(m_maximum, std::max(minimum, maximum));
    SetValue(m_value);
}

void DatePicker::SetValue(std::optional<DateValue> value) {
    if (Assign(m_value, value))
        Fire(OnChange);
}

} // namespace quillon
