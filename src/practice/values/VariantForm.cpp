#include "practice/values/VariantForm.h"

#include "practice/values/Operators.h"
#include "practice/values/StorageForm.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>

namespace quillon::practice {

namespace {

// Higher families are greater whatever the values are.
int FamilyOf(const SqlType& type) {
    if (type.IsMoment())
        return 6;
    if (type.IsFloat())
        return 5;
    if (type.IsNumber())
        return 4;
    if (type.IsCharacter())
        return 3;
    return type.IsBinary() ? 2 : 1;
}

std::string EncodeValue(const Datum& value) {
    const SqlType& type = value.Type();
    if (type.IsInteger())
        return std::to_string(value.Integer());
    if (type.IsFloat()) {
        char buffer[40];
        std::snprintf(buffer, sizeof buffer, "%.17g", value.Float());
        return buffer;
    }
    if (type.IsMoney() || type.IsDecimal())
        return FormatDecimal({value.Number().unscaled, 0});
    if (type.IsMoment())
        return std::to_string(value.When().TotalTicks()) + " " + std::to_string(value.When().offsetMinutes);
    if (type.id == TypeId::UniqueIdentifier)
        return std::string(reinterpret_cast<const char*>(value.Identifier().bytes.data()), 16);
    return value.Text();
}

Datum DecodeValue(const SqlType& type, const std::string& text) {
    if (type.IsInteger())
        return Datum::Integer(type.id, std::strtoll(text.c_str(), nullptr, 10));
    if (type.IsFloat())
        return Datum::Float(std::strtod(text.c_str(), nullptr), type.id);
    if (type.IsMoney())
        return Datum::Money(ParseDecimal(text)->unscaled, type.id);
    if (type.IsDecimal())
        return Datum::Number(type, ParseDecimal(text)->unscaled);
    if (type.IsMoment()) {
        char* end = nullptr;
        const std::int64_t ticks = std::strtoll(text.c_str(), &end, 10);
        return Datum::When(
            type, Moment::FromTotalTicks(ticks, static_cast<std::int16_t>(std::strtol(end, nullptr, 10))));
    }
    if (type.id == TypeId::UniqueIdentifier) {
        Guid guid;
        for (std::size_t index = 0; index < 16; ++index)
            guid.bytes[index] = static_cast<std::uint8_t>(text[index]);
        return Datum::Identifier(guid);
    }
    return type.IsBinary() ? Datum::Bytes(type, text) : Datum::Text(type, text);
}

int TakeNumber(std::string_view& rest) {
    int number = 0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number);
    rest.remove_prefix(static_cast<std::size_t>(end - rest.data()) + 1); // with the comma behind it
    return number;
}

} // namespace

std::string EncodeVariant(const Datum& value) {
    const SqlType& type = value.Type();
    std::string stored(1, static_cast<char>('A' + static_cast<int>(type.id)));
    stored += std::to_string(type.precision) + "," + std::to_string(type.scale) + "," +
              std::to_string(type.length) + ",";
    if (type.collation != nullptr)
        stored += type.collation->name;
    return stored + ";" + EncodeValue(value);
}

Datum DecodeVariant(std::string_view stored) {
    SqlType type;
    type.id = static_cast<TypeId>(stored.front() - 'A');
    std::string_view rest = stored.substr(1);
    type.precision = static_cast<std::uint8_t>(TakeNumber(rest));
    type.scale = static_cast<std::uint8_t>(TakeNumber(rest));
    type.length = TakeNumber(rest);
    const std::size_t end = rest.find(';');
    type.collation = end == 0 ? nullptr : FindCollation(rest.substr(0, end));
    return DecodeValue(type, std::string(rest.substr(end + 1)));
}

int CompareVariants(const Datum& left, const Datum& right) {
    const int l = FamilyOf(left.Type());
    const int r = FamilyOf(right.Type());
    return l != r ? (l < r ? -1 : 1) : CompareValues(left, right, left.Type().collation);
}

} // namespace quillon::practice
