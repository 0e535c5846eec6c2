#include "practice/values/Convert.h"

#include "practice/values/CodePage.h"
#include "practice/values/ConvertParts.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

Datum ToVariant(const Datum& value) {
    const SqlType& from = value.Type();
    const bool isHeld =
        !from.IsLegacyLob() && from.id != TypeId::Xml && from.id != TypeId::RowVersion && !from.IsMax();
    if (!isHeld)
        throw SqlError(206, {from.Declaration(), "sql_variant"});
    return value;
}

std::string_view WithoutTrailingBlanks(std::string_view text) {
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

bool IsSized(const SqlType& type) {
    return (type.IsCharacter() || type.IsBinary()) && !type.IsLegacyLob() && !type.IsMax() &&
           type.id != TypeId::RowVersion;
}

bool LosesSomething(const Datum& value, const SqlType& to) {
    if (value.IsNull() || !IsSized(to))
        return false;
    const SqlType& from = value.Type();
    if (to.IsCharacter() && from.IsCharacter())
        return LengthIn(to, WithoutTrailingBlanks(value.Text())) > to.length;
    if (to.IsBinary() && from.IsBinary())
        return value.Bytes().size() > static_cast<std::size_t>(to.length);
    return false;
}

std::string WhatFits(const Datum& value, const SqlType& to) {
    if (to.IsBinary())
        return ToHex(std::string_view(value.Bytes()).substr(0, static_cast<std::size_t>(to.length)));
    return std::string(BeginningIn(to, value.Text(), to.length));
}

bool IsFailureOfValue(const SqlError& error) {
    return error.number != 529 && error.number != notSupportedNumber;
}

} // namespace

Datum Convert(const Datum& value, const SqlType& to, const ConvertOptions& options, int style) {
    if (value.IsNull())
        return Datum::Null(to);
    if (value.Type() == to && style == noStyle)
        return value;
    if (to.IsInteger())
        return ToIntegerType(value, to);
    if (to.IsDecimal())
        return ToDecimalType(value, to);
    if (to.IsMoney())
        return ToMoneyType(value, to);
    if (to.IsFloat())
        return ToFloatType(value, to);
    if (to.IsMoment())
        return ToMomentType(value, to, options, style);
    if (to.IsCharacter() || to.id == TypeId::Xml)
        return ToCharacterType(value, to, style);
    if (to.IsBinary())
        return ToBinaryType(value, to, style);
    if (to.id == TypeId::UniqueIdentifier)
        return value.Type().id == TypeId::UniqueIdentifier ? value : ToGuid(value);
    if (to.id == TypeId::SqlVariant)
        return ToVariant(value);
    return value;
}

Datum TryConvert(const Datum& value, const SqlType& to, const ConvertOptions& options, int style) {
    try {
        return Convert(value, to, options, style);
    } catch (const SqlError& error) {
        if (!IsFailureOfValue(error))
            throw;
        return Datum::Null(to);
    }
}

Datum ConvertForVariable(const Datum& value, const SqlType& to, const ConvertOptions& options) {
    if (!value.IsNull())
        RequireConversion(value.Type(), to, false);
    return Convert(value, to, options);
}

Datum ConvertForColumn(const Datum& value, const SqlType& to, const ConvertOptions& options,
                       std::string_view tableName, std::string_view columnName) {
    if (!value.IsNull())
        RequireConversion(value.Type(), to, false);
    if (LosesSomething(value, to))
        throw SqlError(2628, {tableName, columnName, WhatFits(value, to)});
    return Convert(value, to, options);
}

} // namespace quillon::practice
