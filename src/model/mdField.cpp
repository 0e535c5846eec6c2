#include "model/mdField.h"

#include <array>

#include "template/TextCase.h"

namespace quillon {

void mdField::SetIsChecked(bool value) {
    static constexpr std::array<std::string_view, 3> largeObjects{"text", "ntext", "image"};
    const auto isType = [this](std::string_view type) { return EqualFolded(SQL_Datatype(), type); };
    m_isChecked = value && std::ranges::none_of(largeObjects, isType);
}

} // namespace quillon
