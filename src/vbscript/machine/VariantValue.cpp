// Variants to the values of the surroundings and back.

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "vbscript/machine/Array.h"
#include "vbscript/machine/Variant.h"

namespace quillon::vbscript {
namespace {

constexpr int DeepestArrays = 200;

Variant FromValueAt(const Value& value, int depth);
Value ToValueAt(const Variant& variant, int depth);

Variant FromArray(const ArrayValue& array, int depth) {
    if (depth > DeepestArrays)
        throw Failure(numbers::OutOfStackSpace);
    Variant result(ArrayBuffer::Create(array.upperBounds));
    const std::span<Variant> elements = result.AsArray()->Elements();
    if (elements.size() != array.elements.size())
        throw Failure(numbers::InvalidCall);
    for (std::size_t place = 0; place < elements.size(); ++place)
        elements[place] = FromValueAt(array.elements[place], depth + 1);
    return result;
}

Value ToArray(const ArrayBuffer& array, int depth) {
    if (depth > DeepestArrays)
        throw Failure(numbers::OutOfStackSpace);
    auto result = std::make_shared<ArrayValue>();
    result->upperBounds.assign(array.UpperBounds().begin(), array.UpperBounds().end());
    result->elements.reserve(array.Count());
    for (const Variant& element : array.Elements())
        result->elements.push_back(ToValueAt(element, depth + 1));
    return Value(std::shared_ptr<const ArrayValue>(std::move(result)));
}

Variant FromValueAt(const Value& value, int depth) {
    switch (value.Type()) {
    case ValueType::Empty: return {};
    case ValueType::Null: return NullValue{};
    case ValueType::Error: return MissingValue{};
    case ValueType::Boolean: return value.As<bool>();
    case ValueType::Byte: return value.As<std::uint8_t>();
    case ValueType::Integer: return value.As<std::int16_t>();
    case ValueType::Long: return value.As<std::int32_t>();
    case ValueType::Single: return value.As<float>();
    case ValueType::Double: return value.As<double>();
    case ValueType::Currency: return value.As<CurrencyValue>();
    case ValueType::Date: return value.As<DateValue>();
    case ValueType::Decimal: return Text::FromUtf8(value.As<DecimalValue>().digits);
    case ValueType::String: return Text::FromUtf8(value.As<std::string>());
    case ValueType::Object: return value.As<ObjectRef>();
    case ValueType::Array: return FromArray(*value.As<std::shared_ptr<const ArrayValue>>(), depth);
    }
    return {};
}

Value ToValueAt(const Variant& variant, int depth) {
    switch (variant.kind()) {
    case Kind::Null: return NullValue{};
    case Kind::Missing: return MissingValue{};
    case Kind::Boolean: return variant.Number() != 0;
    case Kind::Byte: return static_cast<std::uint8_t>(variant.Number());
    case Kind::Integer: return static_cast<std::int16_t>(variant.Number());
    case Kind::Long: return static_cast<std::int32_t>(variant.Number());
    case Kind::Single: return variant.Single();
    case Kind::Double: return variant.Real();
    case Kind::Currency: return variant.Currency();
    case Kind::Date: return variant.Date();
    case Kind::Text: return variant.AsText().ToUtf8();
    case Kind::Object:
    case Kind::ScriptObject: return variant.AsObject();
    case Kind::Array: return ToArray(*variant.AsArray(), depth);
    case Kind::Reference:
    case Kind::Constant: return ToValueAt(*variant.Target(), depth);
    default: return {};
    }
}

} // namespace

Variant FromValue(const Value& value) {
    return FromValueAt(value, 0);
}

Value ToValue(const Variant& variant) {
    return ToValueAt(variant, 0);
}

} // namespace quillon::vbscript
