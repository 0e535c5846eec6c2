// Comparisons, concatenation and Is.

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "vbscript/machine/Convert.h"
#include "vbscript/machine/FastPaths.h"
#include "vbscript/machine/Operators.h"
#include "vbscript/machine/Work.h"

namespace quillon::vbscript {
namespace {

template <class Number>
int Order(Number left, Number right) noexcept {
    return left < right ? -1 : left > right ? 1 : 0;
}

int CompareNumbers(const Variant& left, const Variant& right) {
    if (left.IsWhole() && right.IsWhole())
        return Order(left.Number(), right.Number());
    if (left.kind() == Kind::Currency && right.kind() == Kind::Currency)
        return Order(left.Currency().tenThousandths, right.Currency().tenThousandths);
    if (left.kind() == Kind::Single || right.kind() == Kind::Single) // a Single is as exact as a Single is
        return Order(static_cast<float>(ToDouble(left)), static_cast<float>(ToDouble(right)));
    return Order(ToDouble(left), ToDouble(right));
}

// A text against something that is neither text nor Empty.
int CompareTextWith(const Variant& text, const Variant& other, bool textIsLiteral, bool otherIsLiteral) {
    if (other.kind() == Kind::Array)
        throw Failure(numbers::TypeMismatch);
    if (otherIsLiteral && other.kind() == Kind::Boolean)
        return CompareBinary(text.View(), ToText(other).View());
    if (otherIsLiteral && other.kind() == Kind::Date)
        return Order(ToDate(text).days, other.Real());
    if (otherIsLiteral)
        return Order(ToDouble(text), ToDouble(other));
    if (textIsLiteral)
        return CompareBinary(text.View(), ToText(other).View());
    return 1;
}

int CompareValues(const Variant& left, const Variant& right, LiteralSides literals) {
    const bool leftText = left.IsText(), rightText = right.IsText();
    if (leftText && rightText)
        return CompareBinary(left.AsText(), right.AsText());
    if (leftText && right.IsEmpty())
        return left.View().empty() ? 0 : 1;
    if (rightText && left.IsEmpty())
        return right.View().empty() ? 0 : -1;
    if (leftText)
        return CompareTextWith(left, right, literals.left, literals.right);
    if (rightText)
        return -CompareTextWith(right, left, literals.right, literals.left);
    return CompareNumbers(left, right);
}

bool Holds(Comparison comparison, int order) noexcept {
    switch (comparison) {
    case Comparison::Equal: return order == 0;
    case Comparison::NotEqual: return order != 0;
    case Comparison::Less: return order < 0;
    case Comparison::LessOrEqual: return order <= 0;
    case Comparison::Greater: return order > 0;
    case Comparison::GreaterOrEqual: return order >= 0;
    }
    return false;
}

} // namespace

bool fast::CompareTexts(bool& result, Comparison comparison, const Variant& left, const Variant& right) {
    if (!left.IsText() || !right.IsText())
        return false;
    Work::Done(std::min(left.AsText().Length(), right.AsText().Length()));
    if (comparison == Comparison::Equal || comparison == Comparison::NotEqual)
        result = (left.AsText() == right.AsText()) == (comparison == Comparison::Equal);
    else
        result = Holds(comparison, CompareBinary(left.AsText(), right.AsText()));
    return true;
}

Variant Compare(Comparison comparison, const Variant& left, const Variant& right, LiteralSides literals) {
    if (left.IsObject() || right.IsObject())
        return Compare(comparison, PlainValue(left), PlainValue(right), literals);
    if (left.IsNull() || right.IsNull())
        return NullValue{};
    return Holds(comparison, CompareValues(left, right, literals));
}

int CompareBinary(const Text& left, const Text& right) noexcept {
    const int order = CompareBinary(left.View(), right.View());
    return order != 0 ? order : Order(right.EndsInHalf(), left.EndsInHalf());
}

bool IsSameObject(const Variant& left, const Variant& right) {
    if (!left.IsObject() || !right.IsObject())
        throw Failure(numbers::ObjectRequired);
    return left.AsObject() == right.AsObject();
}

Variant Concatenate(const Variant& left, const Variant& right) {
    if (left.IsObject() || right.IsObject())
        return Concatenate(PlainValue(left), PlainValue(right));
    if (left.IsNull() && right.IsNull())
        return NullValue{};
    const Text head = left.IsNull() ? Text() : ToText(left);
    const Text tail = right.IsNull() ? Text() : ToText(right);
    if (head.Length() == 0)
        return tail;
    if (tail.Length() == 0)
        return head;
    if (head.EndsInHalf() || tail.EndsInHalf())
        return Text::OfBytes(head.ToBytes() + tail.ToBytes());
    Text joined = Text::OfLength(head.Length() + tail.Length());
    std::ranges::copy(tail.View(), std::ranges::copy(head.View(), joined.Writable()).out);
    return joined;
}

} // namespace quillon::vbscript
