#include "platform/Value.h"

#include "platform/Object.h"

namespace quillon {

ValueType Value::Type() const noexcept {
    static constexpr ValueType types[] = {
        ValueType::Empty,   ValueType::Null,    ValueType::Error,  ValueType::Boolean, ValueType::Byte,
        ValueType::Integer, ValueType::Long,    ValueType::Single, ValueType::Double,  ValueType::Currency,
        ValueType::Date,    ValueType::Decimal, ValueType::String, ValueType::Object,  ValueType::Array,
    };
    static_assert(std::size(types) == std::variant_size_v<decltype(m_held)>);
    return types[m_held.index()];
}

} // namespace quillon
