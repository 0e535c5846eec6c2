// + - * / \ Mod ^ and the sign.

#include <cmath>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "vbscript/machine/Convert.h"
#include "vbscript/machine/Operators.h"

namespace quillon::vbscript {
namespace {

// What the product of two currency amounts needs.
__extension__ using Wide = __int128;

// The sub-type in which an operation is done, from the narrowest.
enum class Rank { Byte, Integer, Long, Single, Double, Currency, Date };

Rank RankOf(const Variant& value) {
    switch (value.kind()) {
    case Kind::Byte: return Rank::Byte;
    case Kind::Empty:
    case Kind::Boolean:
    case Kind::Integer: return Rank::Integer;
    case Kind::Long: return Rank::Long;
    case Kind::Single: return Rank::Single;
    case Kind::Double:
    case Kind::Text: return Rank::Double;
    case Kind::Currency: return Rank::Currency;
    case Kind::Date: return Rank::Date;
    default: throw Failure(numbers::TypeMismatch);
    }
}

std::int64_t WholeIn(const Variant& value) noexcept {
    return value.IsEmpty() ? 0 : value.Number();
}

Variant WholeResult(std::int64_t number, Rank rank) {
    if (rank == Rank::Byte && number >= 0 && number <= UINT8_MAX)
        return static_cast<std::uint8_t>(number);
    if (rank <= Rank::Integer && number >= INT16_MIN && number <= INT16_MAX)
        return static_cast<std::int16_t>(number);
    if (number >= INT32_MIN && number <= INT32_MAX)
        return static_cast<std::int32_t>(number);
    return static_cast<double>(number);
}

Variant RealResult(double number) {
    if (!std::isfinite(number))
        throw Failure(numbers::Overflow);
    return number;
}

// A Single that does not hold the result becomes a Double.
Variant SingleResult(double number) {
    const float narrow = static_cast<float>(number);
    return std::isfinite(narrow) ? Variant(narrow) : RealResult(number);
}

Variant DateResult(double days) {
    constexpr double first = -657434, behind = 2958466; // 1 January 100, 1 January 10000
    if (!(days >= first && days < behind))
        throw Failure(numbers::Overflow);
    return DateValue{days};
}

Variant CurrencyResult(Wide tenThousandths) {
    if (tenThousandths > INT64_MAX || tenThousandths < INT64_MIN)
        throw Failure(numbers::Overflow);
    return CurrencyValue{static_cast<std::int64_t>(tenThousandths)};
}

// Both operands as plain values; true if one of them is Null, and so is the result.
struct Operands {
    Operands(const Variant& first, const Variant& second)
        : left(first.IsObject() ? (m_left = PlainValue(first)) : first)
        , right(second.IsObject() ? (m_right = PlainValue(second)) : second) {}
    bool HasNull() const noexcept { return left.IsNull() || right.IsNull(); }
    // A Single cannot hold every Long: the two meet in a Double.
    Rank Widest() const {
        const Rank a = RankOf(left), b = RankOf(right), widest = std::max(a, b);
        return widest == Rank::Single && std::min(a, b) == Rank::Long ? Rank::Double : widest;
    }

  private:
    Variant m_left, m_right; // before the references: they may be what these refer to

  public:
    const Variant& left;
    const Variant& right;
};

enum class Sum { Plus, Minus };

Variant AddOrSubtract(const Operands& operands, Sum sum) {
    const Variant &left = operands.left, &right = operands.right;
    const int sign = sum == Sum::Plus ? 1 : -1;
    const Rank rank = operands.Widest();
    switch (rank) {
    case Rank::Byte:
    case Rank::Integer:
    case Rank::Long: return WholeResult(WholeIn(left) + sign * WholeIn(right), rank);
    case Rank::Single: return SingleResult(ToDouble(left) + sign * ToDouble(right));
    case Rank::Double: return RealResult(ToDouble(left) + sign * ToDouble(right));
    case Rank::Currency:
        return CurrencyResult(Wide{ToCurrency(left).tenThousandths} +
                              sign * Wide{ToCurrency(right).tenThousandths});
    case Rank::Date: {
        const bool isSpan = sum == Sum::Minus && left.kind() == Kind::Date && right.kind() == Kind::Date;
        const double days = ToDouble(left) + sign * ToDouble(right);
        return isSpan ? RealResult(days) : DateResult(days);
    }
    }
    return {};
}

// The operand of \ and Mod: whole, rounded half to even.
std::int64_t WholeOperand(const Variant& value) {
    return value.IsWhole() || value.IsEmpty() ? WholeIn(value) : ToLong(value);
}

template <class Operation>
Variant OnWhole(const Variant& left, const Variant& right, Operation operation) {
    const Operands operands(left, right);
    if (operands.HasNull())
        return NullValue{};
    const Rank rank = std::min(operands.Widest(), Rank::Long);
    const std::int64_t dividend = WholeOperand(operands.left), divisor = WholeOperand(operands.right);
    if (divisor == 0)
        throw Failure(numbers::DivisionByZero);
    return WholeResult(operation(dividend, divisor), rank);
}

} // namespace

Variant Add(const Variant& left, const Variant& right) {
    const Operands operands(left, right);
    if (operands.HasNull())
        return NullValue{};
    const bool leftText = operands.left.IsText(), rightText = operands.right.IsText();
    if ((leftText && rightText) || (leftText && operands.right.IsEmpty()) ||
        (operands.left.IsEmpty() && rightText))
        return Concatenate(operands.left, operands.right);
    return AddOrSubtract(operands, Sum::Plus);
}

Variant Subtract(const Variant& left, const Variant& right) {
    const Operands operands(left, right);
    return operands.HasNull() ? Variant(NullValue{}) : AddOrSubtract(operands, Sum::Minus);
}

Variant Multiply(const Variant& left, const Variant& right) {
    const Operands operands(left, right);
    if (operands.HasNull())
        return NullValue{};
    const Rank rank = operands.Widest();
    const bool hasDouble = RankOf(operands.left) == Rank::Double || RankOf(operands.right) == Rank::Double;
    if (rank <= Rank::Long)
        return WholeResult(WholeIn(operands.left) * WholeIn(operands.right), rank);
    if (rank == Rank::Single)
        return SingleResult(ToDouble(operands.left) * ToDouble(operands.right));
    if (rank == Rank::Currency && !hasDouble) {
        const Wide product =
            Wide{ToCurrency(operands.left).tenThousandths} * ToCurrency(operands.right).tenThousandths;
        const Wide whole = product / 10000, rest = product % 10000 < 0 ? -(product % 10000) : product % 10000;
        const bool away = rest > 5000 || (rest == 5000 && whole % 2 != 0);
        return CurrencyResult(whole + (away ? (product < 0 ? -1 : 1) : 0));
    }
    return RealResult(ToDouble(operands.left) * ToDouble(operands.right));
}

Variant Divide(const Variant& left, const Variant& right) {
    const Operands operands(left, right);
    if (operands.HasNull())
        return NullValue{};
    const Rank rank = operands.Widest();
    const bool isSingle = rank == Rank::Single;
    const double dividend = ToDouble(operands.left), divisor = ToDouble(operands.right);
    if (divisor == 0)
        throw Failure(dividend == 0 ? numbers::Overflow : numbers::DivisionByZero);
    return isSingle ? SingleResult(dividend / divisor) : RealResult(dividend / divisor);
}

Variant WholeDivide(const Variant& left, const Variant& right) {
    return OnWhole(left, right,
                   [](std::int64_t dividend, std::int64_t divisor) { return dividend / divisor; });
}

Variant Modulo(const Variant& left, const Variant& right) {
    return OnWhole(left, right,
                   [](std::int64_t dividend, std::int64_t divisor) { return dividend % divisor; });
}

Variant Power(const Variant& left, const Variant& right) {
    const Operands operands(left, right);
    if (operands.HasNull())
        return NullValue{};
    const double base = ToDouble(operands.left), exponent = ToDouble(operands.right);
    const double power = std::pow(base, exponent);
    if (std::isnan(power) || (base == 0 && exponent < 0))
        throw Failure(numbers::InvalidCall);
    return RealResult(power);
}

Variant Negate(const Variant& operand) {
    if (operand.IsObject())
        return Negate(PlainValue(operand));
    switch (operand.kind()) {
    case Kind::Null: return operand;
    case Kind::Byte: return WholeResult(-operand.Number(), Rank::Integer);
    case Kind::Date: return DateResult(-operand.Real());
    case Kind::Single: return -operand.Single();
    case Kind::Currency: return CurrencyResult(-Wide{operand.Currency().tenThousandths});
    case Kind::Double:
    case Kind::Text: return -ToDouble(operand);
    default: return WholeResult(-WholeIn(operand), RankOf(operand));
    }
}

Variant ToNumber(const Variant& operand) {
    const Variant plain = PlainValue(operand);
    if (plain.IsText())
        return ToDouble(plain);
    if (!plain.IsNull())
        (void)RankOf(plain);
    return plain;
}

} // namespace quillon::vbscript
