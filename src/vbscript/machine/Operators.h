// The operators on script values, all sub-types and promotions; the machine's fast paths decide the common
// cases before they come here.
//
// Objects stand for their default property. Integers that do not fit become Long and Long Double; a Double
// out of range raises 6, division by zero 11, a text that is no number 13.
#pragma once

#include "vbscript/machine/Variant.h"

namespace quillon::vbscript {

enum class Comparison : std::uint8_t { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual };

// Which operands stand as literals in the program: a text compares with a literal number as a number, but a
// number in a variable is less than any text.
struct LiteralSides {
    bool left = false;
    bool right = false;
};

Variant Add(const Variant& left, const Variant& right);
Variant Subtract(const Variant& left, const Variant& right);
Variant Multiply(const Variant& left, const Variant& right);
Variant Divide(const Variant& left, const Variant& right);
Variant WholeDivide(const Variant& left, const Variant& right);
Variant Modulo(const Variant& left, const Variant& right);
Variant Power(const Variant& left, const Variant& right);
Variant Negate(const Variant& operand);
// What a counted loop counts with: text becomes a Double, everything else keeps its sub-type; 13 for no
// number.
Variant ToNumber(const Variant& operand);

// Null with a text is the text; Null with Null is Null.
Variant Concatenate(const Variant& left, const Variant& right);

// A Boolean, or Null if an operand is Null.
Variant Compare(Comparison comparison, const Variant& left, const Variant& right, LiteralSides literals);
// By the codes of the characters; half a character comes before the whole one of the same code.
int CompareBinary(const Text& left, const Text& right) noexcept;
bool IsSameObject(const Variant& left, const Variant& right); // raises 424 for what is no object

// On Booleans they are logical, on numbers bit by bit.
Variant Not(const Variant& operand);
Variant And(const Variant& left, const Variant& right);
Variant Or(const Variant& left, const Variant& right);
Variant Xor(const Variant& left, const Variant& right);
Variant Eqv(const Variant& left, const Variant& right);
Variant Imp(const Variant& left, const Variant& right);

// What If and While make of a value: Null counts as False.
bool IsTrue(const Variant& condition);

} // namespace quillon::vbscript
