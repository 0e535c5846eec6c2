// Functions that choose between values or tell whether one converts: ISNULL, CHOOSE, ISNUMERIC.
#include "practice/functions/FunctionParts.h"
#include "practice/values/Operators.h"
#include "practice/values/Unicode.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace quillon::practice {

namespace {

SqlType IsNullType(ArgumentTypes types) {
    if (types[0].id == TypeId::Null)
        return types[1].id == TypeId::Null ? SimpleType(TypeId::Int) : types[1];
    RequireConversion(types[1], types[0], false);
    return types[0];
}

Datum IsNull(FunctionContext& context, Arguments arguments) {
    if (!arguments[0].IsNull())
        return arguments[0];
    return Convert(arguments[1], IsNullType(std::array{arguments[0].Type(), arguments[1].Type()}),
                   context.Options());
}

SqlType ChooseType(ArgumentTypes types) {
    SqlType common = types[1];
    for (const SqlType& type : types.subspan(2))
        common = CommonType(common, type);
    return common;
}

Datum Choose(FunctionContext& context, Arguments arguments) {
    if (arguments[0].IsNull())
        return {};
    const std::int64_t index = Convert(arguments[0], SimpleType(TypeId::Int)).Integer();
    if (index < 1 || index >= static_cast<std::int64_t>(arguments.size()))
        return {};
    std::vector<SqlType> types;
    for (const Datum& value : arguments)
        types.push_back(value.Type());
    return Convert(arguments[static_cast<std::size_t>(index)], ChooseType(types), context.Options());
}

// Whether a text converts to any of int, float, decimal or money: currency signs and a lone sign, point,
// backslash (the yen of old) or tabs and line ends count.
bool IsNumericText(std::string_view text) {
    const auto isControl = [](char c) { return c >= '\t' && c <= '\r'; };
    if (!text.empty() && std::all_of(text.begin(), text.end(), isControl))
        return true;
    const auto isBlank = [&](char c) { return c == ' ' || isControl(c); };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    if (text.empty())
        return false;
    std::size_t first = 0;
    const char32_t sign = unicode::Next(text, first);
    const bool isSign = unicode::IsCurrencySign(sign) ||
                        std::u32string_view(U"+-.,\\").find(sign) != std::u32string_view::npos;
    if (first == text.size() && isSign)
        return true;
    const Datum value = Datum::VarCharOf(std::string(text));
    return !TryConvert(value, SimpleType(TypeId::Float)).IsNull() ||
           !TryConvert(value, SimpleType(TypeId::Money)).IsNull() ||
           !TryConvert(value, DecimalType(38, 10)).IsNull();
}

Datum IsNumeric(FunctionContext&, Arguments arguments) {
    const Datum& value = arguments[0];
    if (value.IsNull())
        return Datum::Int(0);
    if (value.Type().IsCharacter())
        return Datum::Int(IsNumericText(value.Text()));
    return Datum::Int(value.Type().IsNumber() && value.Type().id != TypeId::Bit);
}

// SQL_VARIANT_PROPERTY(value, property), of the value's base type.
Datum VariantProperty(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const SqlType& type = arguments[0].Type();
    std::string property = TextOf(arguments[1]);
    for (char& c : property)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (property == "basetype")
        return Datum::Text(SysName(), std::string(type.Name()));
    if (property == "precision")
        return Datum::Int(type.precision);
    if (property == "scale")
        return Datum::Int(type.IsDecimal() || type.IsMoney() || type.IsMoment() ? type.scale : 0);
    if (property == "totalbytes" || property == "maxlength")
        return Datum::Int(type.StorageBytes());
    if (property == "collation" && type.IsCharacter())
        return Datum::Text(SysName(), CollationOf(arguments[0]).name);
    return {};
}

constexpr ScalarFunction rows[] = {
    {"ISNULL", 2, 2, IsNullType, IsNull, Evaluation::OncePerStatement},
    {"CHOOSE", 2, -1, ChooseType, Choose, Evaluation::OncePerStatement},
    {"ISNUMERIC", 1, 1, Always<TypeId::Int>, IsNumeric, Evaluation::Pure, false, false, true},
    {"SQL_VARIANT_PROPERTY", 2, 2, Always<TypeId::SqlVariant>, VariantProperty},
};

} // namespace

std::span<const ScalarFunction> ConversionFunctions() {
    return rows;
}

} // namespace quillon::practice
