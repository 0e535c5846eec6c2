// Abs, Sgn, Int, Fix, Round: they keep the sub-type of a number where they can. A text counts as a Double,
// Empty as the Integer 0, and Null stays Null but for Sgn.
#include <cmath>
#include <limits>

#include "vbscript/builtins/Arguments.h"
#include "vbscript/builtins/Families.h"

namespace quillon::vbscript {
namespace {

// A number of its own sub-type: text read, Empty and Boolean made Integers, objects asked for their default.
Variant NumberOf(const Variant& argument) {
    Variant value = PlainValue(argument);
    switch (value.kind()) {
    case Kind::Empty: return std::int16_t{0};
    case Kind::Boolean: return static_cast<std::int16_t>(value.Number());
    case Kind::Null:
    case Kind::Byte:
    case Kind::Integer:
    case Kind::Long:
    case Kind::Single:
    case Kind::Double:
    case Kind::Currency:
    case Kind::Date: return value;
    default: return ToDouble(value);
    }
}

// The least number of a sub-type has no counterpart in it; the sub-type is kept all the same.
Variant AbsoluteWhole(Kind kind, std::int64_t number) {
    const std::int64_t result = std::abs(number);
    if (kind == Kind::Byte)
        return static_cast<std::uint8_t>(result);
    const std::int64_t most = kind == Kind::Integer ? std::numeric_limits<std::int16_t>::max()
                                                    : std::numeric_limits<std::int32_t>::max();
    if (result > most)
        throw Failure(numbers::Overflow);
    return kind == Kind::Integer ? Variant(static_cast<std::int16_t>(result))
                                 : Variant(static_cast<std::int32_t>(result));
}

Variant Abs(BuiltinContext&, Arguments arguments) {
    const Variant value = NumberOf(arguments[0]);
    switch (value.kind()) {
    case Kind::Null: return value;
    case Kind::Single: return std::fabs(value.Single());
    case Kind::Double: return std::fabs(value.Real());
    case Kind::Date: return DateValue{std::fabs(value.Real())};
    case Kind::Currency: {
        const std::int64_t amount = value.Currency().tenThousandths;
        if (amount == std::numeric_limits<std::int64_t>::min())
            throw Failure(numbers::Overflow);
        return CurrencyValue{std::abs(amount)};
    }
    default: return AbsoluteWhole(value.kind(), value.Number());
    }
}

Variant Sgn(BuiltinContext&, Arguments arguments) {
    const double value = ToDouble(arguments[0]);
    return static_cast<std::int16_t>((value > 0) - (value < 0));
}

std::int64_t WholeAmount(std::int64_t tenThousandths, bool downwards) {
    const std::int64_t rest = tenThousandths % 10000;
    const std::int64_t truncated = tenThousandths - rest;
    if (!downwards || rest >= 0)
        return truncated;
    if (truncated < std::numeric_limits<std::int64_t>::min() + 10000)
        throw Failure(numbers::Overflow);
    return truncated - 10000;
}

Variant Whole(const Variant& argument, bool downwards) {
    const Variant value = NumberOf(argument);
    const auto cut = [downwards](double number) {
        return downwards ? std::floor(number) : std::trunc(number);
    };
    switch (value.kind()) {
    case Kind::Single: return static_cast<float>(cut(static_cast<double>(value.Single())));
    case Kind::Double: return cut(value.Real());
    case Kind::Date: return DateValue{cut(value.Real())};
    case Kind::Currency: return CurrencyValue{WholeAmount(value.Currency().tenThousandths, downwards)};
    default: return value;
    }
}

Variant Int(BuiltinContext&, Arguments arguments) {
    return Whole(arguments[0], true);
}
Variant Fix(BuiltinContext&, Arguments arguments) {
    return Whole(arguments[0], false);
}

double RoundedTo(double value, std::int32_t places) {
    const double scale = std::pow(10.0, places);
    const double scaled = value * scale;
    return std::isfinite(scaled) ? std::nearbyint(scaled) / scale : value;
}

std::int64_t RoundedAmount(std::int64_t tenThousandths, std::int32_t places) {
    std::int64_t unit = 10000;
    for (std::int32_t i = 0; i < places; ++i)
        unit /= 10;
    const std::int64_t rest = tenThousandths % unit;
    const std::int64_t truncated = tenThousandths - rest;
    const std::int64_t twice = std::abs(rest) * 2;
    const bool away = twice > unit || (twice == unit && truncated / unit % 2 != 0);
    return truncated + (!away ? 0 : tenThousandths < 0 ? -unit : unit);
}

Variant Round(BuiltinContext&, Arguments arguments) {
    constexpr std::int32_t mostPlaces = 22;
    const std::int32_t places = LongOr(arguments, 1, 0);
    if (places < 0 || places > mostPlaces)
        RaiseInvalidCall();
    const Variant value = PlainValue(arguments[0]);
    if (value.kind() == Kind::Boolean)
        return value;
    const Variant number = NumberOf(value);
    switch (number.kind()) {
    case Kind::Single: return static_cast<float>(RoundedTo(static_cast<double>(number.Single()), places));
    case Kind::Double:
    case Kind::Date: return RoundedTo(number.Real(), places);
    case Kind::Currency:
        return places >= 4 ? number
                           : Variant(CurrencyValue{RoundedAmount(number.Currency().tenThousandths, places)});
    default: return number;
    }
}

constexpr Builtin Table[] = {
    {"Abs", 1, 1, Abs}, {"Sgn", 1, 1, Sgn}, {"Int", 1, 1, Int}, {"Fix", 1, 1, Fix}, {"Round", 1, 2, Round},
};

} // namespace

FunctionTable RoundingFunctions() noexcept {
    return Table;
}

} // namespace quillon::vbscript
