// The static half of the operators: which types go together and what comes of it.
#include "practice/values/ConvertParts.h"
#include "practice/values/Operators.h"
#include "practice/values/SqlError.h"

#include <algorithm>

namespace quillon::practice {

namespace {

// From highest to lowest, as documented.
constexpr TypeId precedence[] = {
    TypeId::SqlVariant, TypeId::Xml,        TypeId::DateTimeOffset,
    TypeId::DateTime2,  TypeId::DateTime,   TypeId::SmallDateTime,
    TypeId::Date,       TypeId::Time,       TypeId::Float,
    TypeId::Real,       TypeId::Decimal,    TypeId::Numeric,
    TypeId::Money,      TypeId::SmallMoney, TypeId::BigInt,
    TypeId::Int,        TypeId::SmallInt,   TypeId::TinyInt,
    TypeId::Bit,        TypeId::NText,      TypeId::Text,
    TypeId::Image,      TypeId::RowVersion, TypeId::UniqueIdentifier,
    TypeId::NVarChar,   TypeId::NChar,      TypeId::VarChar,
    TypeId::Char,       TypeId::VarBinary,  TypeId::Binary,
};

bool IsString(const SqlType& type) {
    return (type.IsCharacter() || type.IsBinary()) && !type.IsLegacyLob() && type.id != TypeId::RowVersion;
}

bool IsOldMoment(const SqlType& type) {
    return type.id == TypeId::DateTime || type.id == TypeId::SmallDateTime;
}

const SqlType& Higher(const SqlType& left, const SqlType& right) {
    return Precedence(left.id) >= Precedence(right.id) ? left : right;
}

SqlType AsDecimal(const SqlType& type) {
    if (type.IsDecimal())
        return type;
    return DecimalType(type.precision, type.IsMoney() ? 4 : 0, TypeId::Numeric);
}

// Both integral parts fit; digits after the point give way first.
SqlType UnionDecimal(const SqlType& left, const SqlType& right, int carry) {
    const SqlType l = AsDecimal(left), r = AsDecimal(right);
    const TypeId id =
        left.id == TypeId::Decimal || right.id == TypeId::Decimal ? TypeId::Decimal : TypeId::Numeric;
    const int whole = std::max(l.precision - l.scale, r.precision - r.scale);
    int scale = std::max(l.scale, r.scale);
    int precision = whole + scale + carry;
    if (precision > 38) {
        precision = 38;
        scale = std::clamp(38 - whole, 0, scale);
    }
    return DecimalType(precision, scale, id);
}

SqlType ReducedDecimal(int precision, int scale) {
    const int whole = precision - scale;
    if (precision <= 38)
        return DecimalType(precision, scale, TypeId::Numeric);
    if (whole < 32)
        scale = std::min(scale, 38 - whole);
    else
        scale = std::min(scale, 6);
    return DecimalType(38, scale, TypeId::Numeric);
}

SqlType DecimalResult(BinaryOperator op, const SqlType& left, const SqlType& right) {
    const SqlType l = AsDecimal(left), r = AsDecimal(right);
    SqlType result;
    switch (op) {
    case BinaryOperator::Multiply:
        result = ReducedDecimal(l.precision + r.precision + 1, l.scale + r.scale);
        break;
    case BinaryOperator::Divide: {
        const int scale = std::max(6, l.scale + r.precision + 1);
        result = ReducedDecimal(l.precision - l.scale + r.scale + scale, scale);
        break;
    }
    case BinaryOperator::Modulo: {
        const int scale = std::max(l.scale, r.scale);
        result = ReducedDecimal(std::min(l.precision - l.scale, r.precision - r.scale) + scale, scale);
        break;
    }
    default: return UnionDecimal(left, right, 1);
    }
    if (left.id == TypeId::Decimal || right.id == TypeId::Decimal)
        result.id = TypeId::Decimal;
    return result;
}

int AddLengths(int left, int right, int limit) {
    return left == maxLength || right == maxLength ? maxLength : std::min(left + right, limit);
}

int WiderLength(int left, int right) {
    return left == maxLength || right == maxLength ? maxLength : std::max(left, right);
}

const Collation* CollationOf(const SqlType& left, const SqlType& right) {
    return left.collation != nullptr ? left.collation : right.collation;
}

[[noreturn]] void Incompatible(const SqlType& left, const SqlType& right, const char* op) {
    throw SqlError(402, {left.Name(), right.Name(), op});
}

// The type of two strings put together: `join` for lengths that add up, otherwise the wider one.
SqlType StringResult(const SqlType& left, const SqlType& right, bool join, const char* op) {
    if (left.IsBinary() != right.IsBinary()) {
        if (join)
            Incompatible(left, right, op);
        return Higher(left, right); // bytes become characters where strings are compared
    }
    const bool isFixed =
        left.IsFixedLength() && right.IsFixedLength() && (join || left.length == right.length);
    const bool isUnicode = left.IsUnicode() || right.IsUnicode();
    const int limit = isUnicode ? 4000 : 8000;
    const int length =
        join ? AddLengths(left.length, right.length, limit) : WiderLength(left.length, right.length);
    if (left.IsBinary())
        return BinaryType(isFixed ? TypeId::Binary : TypeId::VarBinary, length);
    const TypeId id =
        isUnicode ? (isFixed ? TypeId::NChar : TypeId::NVarChar) : (isFixed ? TypeId::Char : TypeId::VarChar);
    const int fitting = isUnicode && length > 4000 ? maxLength : length;
    return TextType(id, join ? length : fitting, CollationOf(left, right));
}

SqlType BitwiseResult(BinaryOperator op, const SqlType& left, const SqlType& right) {
    const auto isBytes = [](const SqlType& type) {
        return type.id == TypeId::Binary || type.id == TypeId::VarBinary;
    };
    const bool fits = (left.IsInteger() && (right.IsInteger() || isBytes(right))) ||
                      (isBytes(left) && right.IsInteger()) || (left.IsInteger() && right.IsCharacter()) ||
                      (left.IsCharacter() && right.IsInteger());
    if (!fits)
        Incompatible(left, right, OperatorName(op));
    return left.IsInteger() && right.IsInteger() ? Higher(left, right) : left.IsInteger() ? left : right;
}

SqlType MomentArithmetic(BinaryOperator op, const SqlType& left, const SqlType& right) {
    const SqlType& result = Higher(left, right);
    const bool isSum = op == BinaryOperator::Add || op == BinaryOperator::Subtract;
    if (!isSum || !IsOldMoment(result)) {
        if (left.id == right.id || (isSum && (IsString(left) || IsString(right))))
            throw SqlError(8117, {result.Name(), OperatorName(op)});
        if (left.IsMoment() && right.IsMoment())
            Incompatible(left, right, OperatorName(op));
        const SqlType& moment = left.IsMoment() ? left : right;
        const SqlType& other = left.IsMoment() ? right : left;
        if (!isSum && IsOldMoment(moment) && other.IsNumber())
            throw SqlError(257, {moment.Name(), MessageName(other)}, 3);
        if (isSum || other.IsNumber())
            throw SqlError(206, {moment.Name(), other.Name()}, 2);
        throw SqlError(8117, {moment.Name(), OperatorName(op)});
    }
    if (left.IsMoment() && right.IsMoment() && !(IsOldMoment(left) && IsOldMoment(right)))
        Incompatible(left, right, OperatorName(op));
    RequireConversion(left, result, false);
    RequireConversion(right, result, false);
    return result;
}

void RequireArithmetic(BinaryOperator op, const SqlType& left, const SqlType& right) {
    for (const SqlType* type : {&left, &right}) {
        const bool isOperand = type->IsNumber() || type->IsCharacter() || type->IsBinary();
        if (!isOperand || type->IsLegacyLob()) {
            if (left.id == right.id)
                throw SqlError(8117, {type->Name(), OperatorName(op)});
            Incompatible(left, right, OperatorName(op));
        }
    }
    if (left.id == TypeId::Bit && right.id == TypeId::Bit) {
        if (op == BinaryOperator::Multiply || op == BinaryOperator::Divide)
            throw SqlError(8117, {left.Name(), OperatorName(op)});
        Incompatible(left, right, OperatorName(op));
    }
    if (!left.IsNumber() && !right.IsNumber()) {
        const bool isProduct = op == BinaryOperator::Multiply || op == BinaryOperator::Divide;
        if (left.IsBinary() && right.IsBinary() && !isProduct)
            Incompatible(left, right, OperatorName(op));
        throw SqlError(8117, {left.Name(), OperatorName(op)});
    }
    if (op == BinaryOperator::Modulo && left.IsFloat() && right.IsFloat())
        throw SqlError(8117, {left.Name(), OperatorName(op)});
    if (op == BinaryOperator::Modulo && (left.IsFloat() || right.IsFloat()))
        Incompatible(left, right, OperatorName(op));
    if (left.IsBinary() && right.IsFloat())
        throw SqlError(206, {left.Name(), right.Name()}, 2);
    if (right.IsBinary() && left.IsFloat())
        throw SqlError(206, {right.Name(), left.Name()}, 2);
}

SqlType CommonMoment(const SqlType& left, const SqlType& right) {
    const SqlType& higher = Higher(left, right);
    const SqlType& lower = &higher == &left ? right : left;
    const bool bothFine = left.id == right.id || (higher.id != TypeId::DateTime && lower.IsMoment());
    const bool hasFraction =
        higher.id == TypeId::Time || higher.id == TypeId::DateTime2 || higher.id == TypeId::DateTimeOffset;
    if (!bothFine || !hasFraction)
        return higher;
    return MomentType(higher.id, std::max<int>(higher.scale, lower.IsMoment() ? lower.scale : 0));
}

} // namespace

int Precedence(TypeId id) {
    const auto* found = std::find(std::begin(precedence), std::end(precedence), id);
    return static_cast<int>(std::end(precedence) - found); // 0 for the bare NULL
}

const char* OperatorName(BinaryOperator op) {
    constexpr const char* names[] = {"add", "subtract", "multiply", "divide", "modulo", "'&'", "'|'", "'^'"};
    return names[static_cast<int>(op)];
}

const char* OperatorName(ComparisonOperator op) {
    constexpr const char* names[] = {"equal to",     "not equal to",
                                     "less than",    "less than or equal to",
                                     "greater than", "greater than or equal to"};
    return names[static_cast<int>(op)];
}

SqlType ResultType(BinaryOperator op, const SqlType& left, const SqlType& right) {
    if (left.id == TypeId::Null || right.id == TypeId::Null) {
        const SqlType& other = left.id == TypeId::Null ? right : left;
        return other.id == TypeId::Null ? SimpleType(TypeId::Int) : other;
    }
    if (op >= BinaryOperator::BitAnd)
        return BitwiseResult(op, left, right);
    if (op == BinaryOperator::Add && IsString(left) && IsString(right))
        return StringResult(left, right, true, OperatorName(op));
    if (left.IsMoment() || right.IsMoment())
        return MomentArithmetic(op, left, right);
    RequireArithmetic(op, left, right);
    const SqlType& result = Higher(left, right);
    if (result.IsDecimal()) {
        const SqlType& other = &result == &left ? right : left;
        const bool countsItself = other.IsNumber() && other.id != TypeId::Bit;
        return countsItself ? DecimalResult(op, left, right) : DecimalResult(op, result, result);
    }
    return result;
}

SqlType ResultType(UnaryOperator op, const SqlType& operand) {
    if (operand.id == TypeId::Null)
        return SimpleType(TypeId::Int);
    if (op == UnaryOperator::Plus)
        return operand;
    if (op == UnaryOperator::BitNot) {
        if (!operand.IsInteger())
            throw SqlError(8117, {operand.Name(), "'~'"});
        return operand;
    }
    if (!operand.IsNumber() || operand.id == TypeId::Bit)
        throw SqlError(8117, {operand.Name(), "minus"});
    return operand.id == TypeId::TinyInt ? SimpleType(TypeId::SmallInt) : operand;
}

SqlType ConstantOperandType(const Datum& constant, const SqlType& other) {
    if (constant.IsNull() || !constant.Type().IsInteger() || !other.IsDecimal())
        return constant.Type();
    return DecimalType(DigitCount(constant.Integer()), 0, TypeId::Numeric);
}

SqlType ComparisonType(ComparisonOperator op, const SqlType& left, const SqlType& right) {
    for (const SqlType* type : {&left, &right})
        if (type->IsLegacyLob() || type->id == TypeId::Xml)
            Incompatible(left, right, OperatorName(op));
    if (left.IsCharacter() && right.IsCharacter() && left.collation != nullptr &&
        right.collation != nullptr && left.collation != right.collation)
        throw SqlError(468, {right.collation->name, left.collation->name, OperatorName(op)});
    return CommonType(left, right);
}

SqlType CommonType(const SqlType& left, const SqlType& right) {
    if (left.id == TypeId::Null)
        return right;
    if (right.id == TypeId::Null)
        return left;
    const SqlType& higher = Higher(left, right);
    const SqlType& lower = &higher == &left ? right : left;
    if (higher.id != TypeId::SqlVariant)
        RequireConversion(lower, higher, false);
    if (IsString(left) && IsString(right))
        return StringResult(left, right, false, "");
    if (higher.IsDecimal() && lower.IsNumber())
        return UnionDecimal(left, right, 0);
    return higher.IsMoment() ? CommonMoment(left, right) : higher;
}

} // namespace quillon::practice
