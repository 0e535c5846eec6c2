// Operators: which types they take, the type of their result by the documented rules (precedence of types,
// precision and scale of decimals, lengths of texts), and their evaluation. Static questions (the ResultType
// group) are asked while binding; Evaluate and Compare at run time on values of the types that were bound.
#pragma once

#include "practice/values/Convert.h"

#include <optional>

namespace quillon::practice {

enum class BinaryOperator : std::uint8_t { Add, Subtract, Multiply, Divide, Modulo, BitAnd, BitOr, BitXor };
enum class UnaryOperator : std::uint8_t { Plus, Minus, BitNot };
enum class ComparisonOperator : std::uint8_t { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual };

// Higher wins: sql_variant highest, then datetimeoffset ... down to binary.
int Precedence(TypeId id);

// The type of `left op right`; Add is concatenation when both are strings. Throws 402, 8117, 206, 257, 403
// (operator not for this type).
SqlType ResultType(BinaryOperator op, const SqlType& left, const SqlType& right);
SqlType ResultType(UnaryOperator op, const SqlType& operand);
// An integer constant beside a decimal counts with its own digits (1.0/3 is numeric(7, 6)): the type to pass
// to ResultType for an operand that is the constant `constant` when the other operand is of type `other`.
// Otherwise the constant's type.
SqlType ConstantOperandType(const Datum& constant, const SqlType& other);
// The type in which a comparison is made. Throws 402, 206, 257, and 468 when both sides bear a collation and
// not the same: an operand whose collation must give way (literal, or the other side has COLLATE) is passed
// without.
SqlType ComparisonType(ComparisonOperator op, const SqlType& left, const SqlType& right);
// The common type of CASE, COALESCE, UNION, VALUES, IN: highest precedence, wide enough for both.
SqlType CommonType(const SqlType& left, const SqlType& right);

// Null when an operand is null. Throws 8115, 8134, 220, 517 and whatever the operands' conversion throws.
Datum Evaluate(BinaryOperator op, const Datum& left, const Datum& right, const SqlType& result,
               const ConvertOptions& options = {});
Datum Evaluate(UnaryOperator op, const Datum& operand, const SqlType& result);

// Three-way comparison of two values that are not null, of any two comparable types: converts by precedence
// first. Texts compare under `collation` (default collation when nullptr).
int CompareValues(const Datum& left, const Datum& right, const Collation* collation = nullptr,
                  const ConvertOptions& options = {});
// Unknown (nothing) when an operand is null.
std::optional<bool> Compare(ComparisonOperator op, const Datum& left, const Datum& right,
                            const Collation* collation = nullptr, const ConvertOptions& options = {});

// As messages write them: add, subtract, multiply, divide, modulo, '&'; and "equal to", "less than" ...
const char* OperatorName(BinaryOperator op);
const char* OperatorName(ComparisonOperator op);

} // namespace quillon::practice
