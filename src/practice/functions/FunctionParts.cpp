#include "practice/functions/FunctionParts.h"

#include <algorithm>

namespace quillon::practice {

bool AnyNull(Arguments arguments) {
    return std::any_of(arguments.begin(), arguments.end(), [](const Datum& value) { return value.IsNull(); });
}

std::int64_t IntegerOf(const Datum& value) {
    return ConvertForVariable(value, SimpleType(TypeId::BigInt)).Integer();
}

std::string TextOf(const Datum& value) {
    if (value.Type().IsCharacter())
        return value.Text();
    return ConvertForVariable(value, TextType(TypeId::NVarChar, maxLength)).Text();
}

double FloatOf(const Datum& value) {
    return ConvertForVariable(value, SimpleType(TypeId::Float)).Float();
}

const Collation& CollationOf(const Datum& value) {
    const Collation* collation = value.Type().collation;
    return collation != nullptr ? *collation : *DefaultCollation();
}

SqlType StringLike(const SqlType& source, int length) {
    const int limit = source.IsUnicode() ? 4000 : 8000;
    const int fitting = length == maxLength || source.IsMax() ? maxLength : std::clamp(length, 1, limit);
    return TextType(source.IsUnicode() ? TypeId::NVarChar : TypeId::VarChar, fitting, source.collation);
}

SqlType StringLike(const SqlType& source) {
    if (source.IsLegacyLob() || source.id == TypeId::Xml)
        return StringLike(source, maxLength);
    return StringLike(source, source.IsCharacter() ? source.length : source.DisplaySize());
}

Datum StringResult(const SqlType& source, std::string text) {
    return Datum::Text(
        TextType(source.IsUnicode() ? TypeId::NVarChar : TypeId::VarChar, maxLength, source.collation),
        std::move(text));
}

void RequireString(ArgumentTypes types, std::size_t position, std::string_view function) {
    const SqlType& type = types[position - 1];
    if (type.IsLegacyLob() || type.id == TypeId::Xml || type.id == TypeId::SqlVariant)
        throw SqlError(8116, {type.Name(), std::to_string(position), function});
}

SqlType TypeOfFirst(ArgumentTypes types) {
    return types.front();
}

} // namespace quillon::practice
