#include "practice/statements/change/ConstantRows.h"

#include "practice/values/Literals.h"
#include "practice/values/Operators.h"

#include <algorithm>

namespace quillon::practice {

namespace {

const tsql::Literal* LiteralOf(const tsql::Expression& expression) {
    return expression.kind == tsql::ExpressionKind::Literal ? &static_cast<const tsql::Literal&>(expression)
                                                            : nullptr;
}

// A number with its sign, which the language has as an operator.
const tsql::Unary* SignedNumber(const tsql::Expression& expression) {
    if (expression.kind != tsql::ExpressionKind::Unary)
        return nullptr;
    const auto& sign = static_cast<const tsql::Unary&>(expression);
    const tsql::Literal* number = LiteralOf(*sign.operand);
    const bool isNumber =
        number != nullptr &&
        (number->type == tsql::LiteralType::Integer || number->type == tsql::LiteralType::Decimal ||
         number->type == tsql::LiteralType::Float || number->type == tsql::LiteralType::Money);
    return isNumber && sign.op == tsql::UnaryOperator::Minus ? &sign : nullptr;
}

bool IsConstant(const tsql::ExpressionPtr& expression) {
    return LiteralOf(*expression) != nullptr || SignedNumber(*expression) != nullptr;
}

Datum ValueOf(const tsql::Literal& literal, const Collation* collation) {
    using Type = tsql::LiteralType;
    switch (literal.type) {
    case Type::Integer: return IntegerLiteral(literal.text);
    case Type::Decimal: return DecimalLiteral(literal.text);
    case Type::Float: return FloatLiteral(literal.text);
    case Type::Money: return MoneyLiteral(literal.text);
    case Type::String: return StringLiteral(literal.text, false, collation);
    case Type::NString: return StringLiteral(literal.text, true, collation);
    case Type::Binary: return BinaryLiteral(literal.text);
    case Type::Null: break;
    }
    return {};
}

Datum ValueOf(const tsql::Expression& expression, const Collation* collation) {
    const tsql::Unary* sign = SignedNumber(expression);
    if (sign == nullptr)
        return ValueOf(*LiteralOf(expression), collation);
    const Datum number = ValueOf(*LiteralOf(*sign->operand), collation);
    return Evaluate(UnaryOperator::Minus, number, ResultType(UnaryOperator::Minus, number.Type()));
}

} // namespace

std::string ConstantShape(const tsql::InsertStatement& statement) {
    const bool plain = statement.source == tsql::InsertSource::Values && statement.with.empty() &&
                       !statement.top && statement.target.variable.empty();
    const auto isConstantRow = [](const tsql::ExpressionList& row) {
        return std::all_of(row.begin(), row.end(), IsConstant);
    };
    if (!plain || !std::all_of(statement.rows.begin(), statement.rows.end(), isConstantRow))
        return {};
    std::string shape = std::to_string(statement.rows.front().size());
    const auto add = [&](const tsql::Name& name) {
        for (const std::string& part : name.parts)
            shape += '\0' + part;
        shape += '\1';
    };
    add(statement.target.name);
    for (const tsql::Name& column : statement.columns)
        add(column);
    return shape;
}

std::vector<std::vector<Datum>> ConstantRows(const tsql::InsertStatement& statement,
                                             const Collation* collation) {
    std::vector<std::vector<Datum>> rows;
    rows.reserve(statement.rows.size());
    for (const tsql::ExpressionList& row : statement.rows) {
        std::vector<Datum>& values = rows.emplace_back();
        values.reserve(row.size());
        for (const tsql::ExpressionPtr& value : row)
            values.push_back(ValueOf(*value, collation));
    }
    return rows;
}

} // namespace quillon::practice
