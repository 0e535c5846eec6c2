// What a value is: IsEmpty to IsNumeric, TypeName, VarType.
#include "platform/Conversion.h"
#include "vbscript/builtins/Arguments.h"
#include "vbscript/builtins/Families.h"

namespace quillon::vbscript {
namespace {

// The default property of an object, or none where it has none to give.
std::optional<Variant> DefaultOf(const Variant& value) {
    if (!value.IsObject())
        return value;
    try {
        return PlainValue(value);
    } catch (const Failure&) {
        return std::nullopt;
    }
}

Variant IsEmpty(BuiltinContext&, Arguments arguments) {
    return arguments[0].IsEmpty();
}
Variant IsNull(BuiltinContext&, Arguments arguments) {
    return arguments[0].IsNull();
}
Variant IsObject(BuiltinContext&, Arguments arguments) {
    return arguments[0].IsObject();
}

Variant IsNumeric(BuiltinContext&, Arguments arguments) {
    const auto value = DefaultOf(arguments[0]);
    if (!value)
        return false;
    switch (value->kind()) {
    case Kind::Null:
    case Kind::Missing:
    case Kind::Date:
    case Kind::Array: return false;
    case Kind::Text: return conversion::IsNumeric(ToValue(*value));
    default: return true;
    }
}

Variant IsDate(BuiltinContext&, Arguments arguments) {
    const auto value = DefaultOf(arguments[0]);
    if (!value || !value->IsText())
        return value && value->kind() == Kind::Date;
    return conversion::ParseDate(value->AsText().ToUtf8()).has_value();
}

std::u16string_view NameOf(Kind kind) {
    switch (kind) {
    case Kind::Empty: return u"Empty";
    case Kind::Null: return u"Null";
    case Kind::Boolean: return u"Boolean";
    case Kind::Byte: return u"Byte";
    case Kind::Integer: return u"Integer";
    case Kind::Long: return u"Long";
    case Kind::Single: return u"Single";
    case Kind::Double: return u"Double";
    case Kind::Currency: return u"Currency";
    case Kind::Date: return u"Date";
    case Kind::Text: return u"String";
    case Kind::Array: return u"Variant()";
    default: return u"Error";
    }
}

Variant TypeName(BuiltinContext&, Arguments arguments) {
    const Variant& value = arguments[0];
    if (value.IsNothing())
        return u"Nothing";
    if (value.IsObject())
        return Text::FromUtf8(value.AsObject()->TypeName());
    return NameOf(value.kind());
}

// An object with a default property answers for what that gives.
Variant VarType(BuiltinContext&, Arguments arguments) {
    constexpr std::int16_t arrayOfVariant = 8192 + 12;
    const auto value = DefaultOf(arguments[0]);
    if (!value)
        return static_cast<std::int16_t>(ValueType::Object);
    return value->IsArray() ? arrayOfVariant : static_cast<std::int16_t>(value->Type());
}

constexpr Builtin Table[] = {
    {"IsEmpty", 1, 1, IsEmpty},     {"IsNull", 1, 1, IsNull}, {"IsObject", 1, 1, IsObject},
    {"IsNumeric", 1, 1, IsNumeric}, {"IsDate", 1, 1, IsDate}, {"TypeName", 1, 1, TypeName},
    {"VarType", 1, 1, VarType},
};

} // namespace

FunctionTable InspectionFunctions() noexcept {
    return Table;
}

} // namespace quillon::vbscript
