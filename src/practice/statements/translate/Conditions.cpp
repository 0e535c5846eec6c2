// Conditions. SQLite's logic has the same three values; what differs is how values compare, which Compare and
// the functions of ours settle.
#include "practice/statements/translate/Translator.h"

#include "practice/functions/Like.h"
#include "practice/values/SqlError.h"
#include "practice/values/Unicode.h"

namespace quillon::practice {

namespace {

ComparisonOperator OperatorOf(tsql::ComparisonOperator op) {
    static_assert(static_cast<int>(tsql::ComparisonOperator::GreaterEqual) ==
                  static_cast<int>(ComparisonOperator::GreaterOrEqual));
    return static_cast<ComparisonOperator>(op);
}

} // namespace

std::string Translator::Condition(const tsql::Expression& expression, const Scope* scope) {
    using Kind = tsql::ExpressionKind;
    switch (expression.kind) {
    case Kind::Comparison: return ComparisonSql(tsql::As<tsql::Comparison>(expression), scope);
    case Kind::Logical: return LogicalSql(tsql::As<tsql::Logical>(expression), scope);
    case Kind::Not: return "(NOT " + Condition(*tsql::As<tsql::Not>(expression).operand, scope) + ")";
    case Kind::IsNull: {
        const auto& test = tsql::As<tsql::IsNull>(expression);
        return TestForNull(Value(*test.operand, scope), test.negated);
    }
    case Kind::Between: return BetweenSql(tsql::As<tsql::Between>(expression), scope);
    case Kind::Like: return LikeSql(tsql::As<tsql::Like>(expression), scope);
    case Kind::InList: return InListSql(tsql::As<tsql::InList>(expression), scope);
    case Kind::InQuery: {
        const auto& in = tsql::As<tsql::InQuery>(expression);
        return InQuerySql(Value(*in.operand, scope), *in.query, in.negated, scope);
    }
    case Kind::Quantified: return QuantifiedSql(tsql::As<tsql::Quantified>(expression), scope);
    case Kind::Exists: return "EXISTS (" + Query(*tsql::As<tsql::Exists>(expression).query, scope).sql + ")";
    default: return Value(expression, scope).sql;
    }
}

std::string Translator::LogicalSql(const tsql::Logical& logical, const Scope* scope) {
    // Chains of one operator lean to the left.
    std::vector<const tsql::Expression*> parts;
    const tsql::Expression* rest = &logical;
    while (rest->kind == tsql::ExpressionKind::Logical &&
           tsql::As<tsql::Logical>(*rest).isAnd == logical.isAnd) {
        parts.push_back(tsql::As<tsql::Logical>(*rest).right.get());
        rest = tsql::As<tsql::Logical>(*rest).left.get();
    }
    parts.push_back(rest);
    std::vector<std::string> terms;
    for (auto part = parts.rbegin(); part != parts.rend(); ++part)
        terms.push_back(Condition(**part, scope));
    return JoinTerms(terms, logical.isAnd ? " AND " : " OR ");
}

std::string Translator::ComparisonSql(const tsql::Comparison& comparison, const Scope* scope) {
    Scalar left = Value(*comparison.left, scope);
    Scalar right = Value(*comparison.right, scope);
    const ComparisonOperator op = OperatorOf(comparison.op);
    const bool equality = op == ComparisonOperator::Equal || op == ComparisonOperator::NotEqual;
    const auto canBeUnknown = [](const Scalar& value) { return value.IsBareNull() || value.isParameter; };
    // With ANSI_NULLS off a NULL that was written or passed in equals NULL.
    if (!m_here.ansiNulls && equality && (canBeUnknown(left) || canBeUnknown(right))) {
        std::string sql = Compare(ComparisonOperator::Equal, std::move(left), std::move(right));
        const std::size_t sign = sql.rfind(" = ");
        sql.replace(sign, 3, op == ComparisonOperator::Equal ? " IS " : " IS NOT ");
        return sql;
    }
    return Compare(op, std::move(left), std::move(right));
}

std::string Translator::LikeSql(const tsql::Like& like, const Scope* scope) {
    Scalar operand = Value(*like.operand, scope);
    Scalar pattern = Value(*like.pattern, scope);
    const auto asText = [&](Scalar value) {
        if (value.type.IsCharacter())
            return value;
        return ConvertTo(std::move(value), value.IsBareNull() ? VarChar(1) : VarChar(8000));
    };
    operand = asText(std::move(operand));
    pattern = asText(std::move(pattern));
    Harmonize(operand, pattern, "like");
    const Collation* collation = operand.type.collation;
    const bool isUnicode = operand.type.IsUnicode() || pattern.type.IsUnicode();
    std::vector<Scalar> arguments{std::move(operand), std::move(pattern)};
    if (like.escape)
        arguments.push_back(ConvertTo(Value(*like.escape, scope), NVarChar(4)));
    const Scalar call = Call(
        (isUnicode ? "likeN " : "like ") + collation->name, std::move(arguments), SimpleType(TypeId::Bit),
        Evaluation::Pure, [collation, isUnicode](std::span<const Datum> values) {
            for (const Datum& value : values)
                if (value.IsNull())
                    return Datum::Null(SimpleType(TypeId::Bit));
            std::optional<char32_t> escape;
            if (values.size() > 2) {
                if (CountCharacters(values[2].Text()) != 1)
                    throw SqlError(506, {values[2].Text(), "LIKE"});
                std::size_t position = 0;
                escape = unicode::Next(values[2].Text(), position);
            }
            return Datum::Bit(MatchesLike(values[0].Text(), values[1].Text(), *collation, escape, isUnicode));
        });
    return like.negated ? "(NOT " + call.sql + ")" : call.sql;
}

std::string Translator::BetweenSql(const tsql::Between& between, const Scope* scope) {
    const Scalar operand = Value(*between.operand, scope);
    const std::string low = Compare(ComparisonOperator::GreaterOrEqual, operand, Value(*between.low, scope));
    const std::string high = Compare(ComparisonOperator::LessOrEqual, operand, Value(*between.high, scope));
    return std::string(between.negated ? "(NOT (" : "((") + low + " AND " + high + "))";
}

std::string Translator::InListSql(const tsql::InList& in, const Scope* scope) {
    std::vector<Scalar> values{Value(*in.operand, scope)};
    for (const tsql::ExpressionPtr& element : in.list)
        values.push_back(Value(*element, scope));
    Common(values, "equal to");
    std::string list;
    for (std::size_t i = 1; i < values.size(); ++i)
        list += (i > 1 ? ", " : "") + values[i].sql;
    return "(" + Collated(values[0].sql, values[0].type) + (in.negated ? " NOT IN (" : " IN (") + list + "))";
}

std::string Translator::InQuerySql(const Scalar& operand, const tsql::Query& query, bool negated,
                                   const Scope* scope) {
    QuerySql rows = Query(query, scope);
    if (rows.columns.size() != 1)
        throw SqlError(116);
    Scalar element;
    element.sql = "o1";
    element.type = rows.columns[0].type;
    element.label = rows.columns[0].label;
    std::vector<Scalar> both{operand, element};
    Common(both, "equal to");
    std::string list = rows.sql;
    if (both[1].sql != "o1")
        list = "SELECT " + both[1].sql + " FROM (" + rows.sql + ")";
    return "(" + Collated(both[0].sql, both[0].type) + (negated ? " NOT IN (" : " IN (") + list + "))";
}

std::string Translator::QuantifiedSql(const tsql::Quantified& quantified, const Scope* scope) {
    const ComparisonOperator op = OperatorOf(quantified.op);
    const Scalar operand = Value(*quantified.operand, scope);
    if (op == ComparisonOperator::Equal && !quantified.all)
        return InQuerySql(operand, *quantified.query, false, scope);
    if (op == ComparisonOperator::NotEqual && quantified.all)
        return InQuerySql(operand, *quantified.query, true, scope);
    const QuerySql rows = Query(*quantified.query, scope);
    if (rows.columns.size() != 1)
        throw SqlError(116);
    const std::string alias = NextAlias();
    Scalar element;
    element.sql = alias + ".o1";
    element.type = rows.columns[0].type;
    element.label = rows.columns[0].label;
    const std::string test = Compare(op, operand, element);
    const auto exists = [&](const char* outcome) {
        return "EXISTS (SELECT 1 FROM (" + rows.sql + ") AS " + alias + " WHERE " + test + outcome + ")";
    };
    // ANY is true as soon as one comparison is, ALL false as soon as one is; unknown comes second.
    return std::string("(CASE WHEN ") + exists(quantified.all ? " IS 0" : " IS 1") +
           (quantified.all ? " THEN 0 WHEN " : " THEN 1 WHEN ") + exists(" IS NULL") + " THEN NULL ELSE " +
           (quantified.all ? "1" : "0") + " END)";
}

} // namespace quillon::practice
