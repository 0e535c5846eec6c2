#include "practice/functions/FunctionParts.h"
#include "practice/values/Operators.h"

#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace quillon::practice {

namespace {

// Small integers become int, other numbers stay; texts become float.
SqlType NumberType(const SqlType& type, std::string_view function) {
    if (type.id == TypeId::Bit || type.id == TypeId::TinyInt || type.id == TypeId::SmallInt ||
        type.id == TypeId::Null)
        return SimpleType(TypeId::Int);
    if (type.id == TypeId::SmallMoney)
        return SimpleType(TypeId::Money);
    if (type.IsNumber() && type.id != TypeId::Real)
        return type;
    const bool isText = type.IsCharacter() && !type.IsLegacyLob();
    if (!isText && type.id != TypeId::Real)
        throw SqlError(8116, {type.Name(), "1", function});
    return SimpleType(TypeId::Float);
}

SqlType AbsType(ArgumentTypes types) {
    return NumberType(types[0], "abs");
}
SqlType SignType(ArgumentTypes types) {
    return NumberType(types[0], "sign");
}
SqlType RoundType(ArgumentTypes types) {
    return NumberType(types[0], "round");
}
SqlType PowerType(ArgumentTypes types) {
    const SqlType type = NumberType(types[0], "power");
    return type.IsDecimal() ? DecimalType(38, type.scale, type.id) : type;
}
SqlType DegreesType(ArgumentTypes types) {
    const SqlType type = NumberType(types[0], "degrees");
    return type.IsDecimal() ? DecimalType(38, 18, type.id) : type;
}
SqlType WholeType(ArgumentTypes types) {
    const SqlType type = NumberType(types[0], "ceiling");
    return type.IsDecimal() ? DecimalType(type.precision, 0, type.id) : type;
}

Datum Abs(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const SqlType type = NumberType(arguments[0].Type(), "abs");
    const Datum value = Convert(arguments[0], type);
    if (type.IsFloat())
        return Datum::Float(std::fabs(value.Float()));
    const Datum zero = Convert(Datum::Int(0), type);
    return CompareValues(value, zero) < 0 ? Evaluate(UnaryOperator::Minus, value, type) : value;
}

Datum Sign(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const SqlType type = NumberType(arguments[0].Type(), "sign");
    return Convert(Datum::Int(CompareValues(Convert(arguments[0], type), Datum::Int(0))), type);
}

template <bool up>
Datum Whole(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const SqlType type = NumberType(arguments[0].Type(), up ? "ceiling" : "floor");
    const Datum value = Convert(arguments[0], type);
    if (type.IsInteger())
        return value;
    if (type.IsFloat())
        return Datum::Float(up ? std::ceil(value.Float()) : std::floor(value.Float()));
    const Decimal number = value.Number();
    Decimal whole = *Rescale(number, 0, true);
    if (Decimal::Compare(whole, number) != 0 && (number.unscaled > 0) == up)
        whole.unscaled += up ? 1 : -1;
    return Convert(Datum::Number(DecimalType(38, 0), whole.unscaled),
                   type.IsDecimal() ? DecimalType(type.precision, 0, type.id) : type);
}

Datum RoundFloat(double number, std::int64_t digits, bool truncate) {
    const double unit = std::pow(10.0, static_cast<double>(digits));
    if (!std::isfinite(number * unit) || unit == 0)
        return Datum::Float(digits > 0 ? number : 0);
    const double scaled = number * unit;
    return Datum::Float((truncate ? std::trunc(scaled) : std::round(scaled)) / unit);
}

// ROUND(number, digits, cut): digits below zero round before the point.
Datum Round(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const SqlType type = NumberType(arguments[0].Type(), "round");
    const Datum value = Convert(arguments[0], type);
    const std::int64_t digits = IntegerOf(arguments[1]);
    const bool truncate = arguments.size() > 2 && IntegerOf(arguments[2]) != 0;
    if (type.IsFloat())
        return RoundFloat(value.Float(), digits, truncate);
    const Decimal number = type.IsInteger() ? Decimal{value.Integer(), 0} : value.Number();
    if (digits >= number.scale)
        return value;
    const std::int64_t lost = number.scale - digits;
    Int128 unscaled = 0;
    if (lost <= 38) {
        const Decimal shifted{number.unscaled, static_cast<int>(lost)};
        unscaled = Rescale(shifted, 0, truncate)->unscaled;
        const auto back = Rescale({unscaled, 0}, static_cast<int>(lost));
        if (!back)
            throw SqlError(8115, {"expression", type.IsDecimal() ? "numeric" : type.Name()}, 2);
        unscaled = back->unscaled;
    }
    if (type.IsDecimal() && DigitCount(unscaled) > type.precision)
        throw SqlError(8115, {"expression", "numeric"}, 2);
    if (type.IsDecimal())
        return Datum::Number(type, unscaled);
    return type.IsMoney() ? Datum::Money(unscaled)
                          : Convert(Datum::Number(DecimalType(38, 0), unscaled), type);
}

Datum FloatAs(double number, const SqlType& type) {
    if (!std::isfinite(number))
        throw SqlError(type.IsFloat() ? 3623 : 8115, {"expression", type.Name()});
    return Convert(Datum::Float(number), type);
}

Datum ExactPower(const Decimal& base, std::int64_t exponent, const SqlType& type) {
    std::optional<Decimal> result = Decimal{1, 0};
    for (std::int64_t index = 0; index < exponent && result; ++index)
        result = Multiply(*result, base, type.scale);
    if (!result)
        throw SqlError(8115, {"expression", "numeric"}, 2);
    return Datum::Number(type, Rescale(*result, type.scale).value_or(Decimal{}).unscaled);
}

Datum Power(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const SqlType type = PowerType(std::array{arguments[0].Type()});
    const Datum base = Convert(arguments[0], type);
    const double exponent = FloatOf(arguments[1]);
    const bool isExact =
        type.IsDecimal() && exponent == std::floor(exponent) && exponent >= 0 && exponent < 200;
    if (isExact)
        return ExactPower(base.Number(), static_cast<std::int64_t>(exponent), type);
    const double number = std::pow(FloatOf(base), exponent);
    if (FloatOf(base) == 0 && exponent < 0)
        throw SqlError(8134);
    return FloatAs(number, type);
}

// `overflows`: an infinite result is too large rather than no number.
template <double (*function)(double), bool overflows = false>
Datum OfFloat(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const double number = function(FloatOf(arguments[0]));
    if (overflows && std::isinf(number))
        throw SqlError(8115, {"expression", "float"}, 2);
    if (!std::isfinite(number))
        throw SqlError(3623);
    return Datum::Float(number);
}

double Square(double number) {
    return number * number;
}
double Cotangent(double number) {
    return 1 / std::tan(number);
}

Datum Log(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const double number = FloatOf(arguments[0]);
    const double base = arguments.size() > 1 ? FloatOf(arguments[1]) : std::numbers::e;
    if (number <= 0 || base <= 0 || base == 1)
        throw SqlError(3623);
    return Datum::Float(arguments.size() > 1 ? std::log(number) / std::log(base) : std::log(number));
}

Datum ArcTangent2(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const double y = FloatOf(arguments[0]), x = FloatOf(arguments[1]);
    if (y == 0 && x == 0)
        throw SqlError(3623);
    return Datum::Float(std::atan2(y, x));
}

Datum Degrees(FunctionContext&, Arguments arguments) {
    return AnyNull(arguments) ? Datum()
                              : FloatAs(FloatOf(arguments[0]) * 180 / std::numbers::pi,
                                        DegreesType(std::array{arguments[0].Type()}));
}

Datum Radians(FunctionContext&, Arguments arguments) {
    return AnyNull(arguments) ? Datum()
                              : FloatAs(FloatOf(arguments[0]) * std::numbers::pi / 180,
                                        DegreesType(std::array{arguments[0].Type()}));
}

Datum Pi(FunctionContext&, Arguments) {
    return Datum::Float(std::numbers::pi);
}

Datum Rand(FunctionContext& context, Arguments arguments) {
    if (!arguments.empty() && !arguments[0].IsNull())
        context.SeedRandom(static_cast<int>(IntegerOf(arguments[0])));
    return Datum::Float(context.NextRandom());
}

constexpr auto Float = Always<TypeId::Float>;

constexpr ScalarFunction rows[] = {
    {"ABS", 1, 1, AbsType, Abs},
    {"SIGN", 1, 1, SignType, Sign},
    {"CEILING", 1, 1, WholeType, Whole<true>},
    {"FLOOR", 1, 1, WholeType, Whole<false>},
    {"ROUND", 2, 3, RoundType, Round},
    {"POWER", 2, 2, PowerType, Power},
    {"SQRT", 1, 1, Float, OfFloat<std::sqrt>},
    {"SQUARE", 1, 1, Float, OfFloat<Square, true>},
    {"EXP", 1, 1, Float, OfFloat<std::exp, true>},
    {"LOG", 1, 2, Float, Log},
    {"LOG10", 1, 1, Float, OfFloat<std::log10>},
    {"SIN", 1, 1, Float, OfFloat<std::sin>},
    {"COS", 1, 1, Float, OfFloat<std::cos>},
    {"TAN", 1, 1, Float, OfFloat<std::tan>},
    {"COT", 1, 1, Float, OfFloat<Cotangent>},
    {"ASIN", 1, 1, Float, OfFloat<std::asin>},
    {"ACOS", 1, 1, Float, OfFloat<std::acos>},
    {"ATAN", 1, 1, Float, OfFloat<std::atan>},
    {"ATN2", 2, 2, Float, ArcTangent2},
    {"DEGREES", 1, 1, DegreesType, Degrees},
    {"RADIANS", 1, 1, DegreesType, Radians},
    {"PI", 0, 0, Float, Pi, Evaluation::Pure, false, false, true},
    {"RAND", 0, 1, Float, Rand, Evaluation::OncePerStatement, false, false, true},
};

} // namespace

std::span<const ScalarFunction> MathFunctions() {
    return rows;
}

} // namespace quillon::practice
