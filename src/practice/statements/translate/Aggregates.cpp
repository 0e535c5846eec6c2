// Aggregates and window functions. COUNT, MIN, MAX and the ranking functions are SQLite's own; the others are
// ours, since their types and overflows differ.
#include "practice/statements/translate/Translator.h"

#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

// Counts as inside of an aggregate for as long as it lives.
class InsideAggregate {
  public:
    explicit InsideAggregate(const Scope* scope)
        : m_scope(scope) {
        if (m_scope != nullptr)
            ++m_scope->insideAggregate;
    }
    ~InsideAggregate() {
        if (m_scope != nullptr)
            --m_scope->insideAggregate;
    }
    InsideAggregate(const InsideAggregate&) = delete;
    InsideAggregate& operator=(const InsideAggregate&) = delete;

  private:
    const Scope* m_scope;
};

const char* BoundSql(tsql::FrameBound bound) {
    switch (bound) {
    case tsql::FrameBound::UnboundedPreceding: return "UNBOUNDED PRECEDING";
    case tsql::FrameBound::Preceding: return " PRECEDING";
    case tsql::FrameBound::CurrentRow: return "CURRENT ROW";
    case tsql::FrameBound::Following: return " FOLLOWING";
    case tsql::FrameBound::UnboundedFollowing: return "UNBOUNDED FOLLOWING";
    }
    return "";
}

} // namespace

Scalar Translator::AggregateValue(const tsql::FunctionCall& call, const std::string& name,
                                  const Scope* scope) {
    if (call.over) {
        Scalar value = AggregateCore(call, name, scope);
        value.sql += OverSql(*call.over, scope);
        return value;
    }
    if (scope == nullptr)
        throw SqlError(102, {name}); // an aggregate needs a query around it
    if (scope->aggregateError != 0)
        throw SqlError(scope->aggregateError);
    if (scope->insideAggregate > 0)
        throw SqlError(130);
    scope->sawAggregate = true;
    const InsideAggregate inside(scope);
    return name == "STRING_AGG" ? StringAggregate(call, scope) : AggregateCore(call, name, scope);
}

Scalar Translator::AggregateCore(const tsql::FunctionCall& call, const std::string& name,
                                 const Scope* scope) {
    const AggregateFunction* function = FindAggregate(name);
    if (function == nullptr)
        throw SqlError::NotSupported(name + " OVER");
    Scalar value;
    if (call.star) {
        value.type = SimpleType(name == "COUNT_BIG" ? TypeId::BigInt : TypeId::Int);
        value.sql = "count(*)";
        value.nullable = false;
        return value;
    }
    if (call.arguments.size() != 1)
        throw SqlError(174, {name, "1"});
    Scalar argument = Value(*call.arguments[0], scope);
    if (argument.IsBareNull())
        throw SqlError(8117, {"NULL", name});
    if (argument.nullable && name != "CHECKSUM_AGG" && m_engine.context.Options().ansiWarnings)
        argument.sql = m_engine.functions.NullNoting() + "(" + argument.sql + ")";
    value.type = WithCollation(function->resultType(argument.type));
    if (value.type.IsCharacter())
        value.type.collation = argument.type.collation;
    value.label = argument.label;
    const std::string distinct = call.distinct ? "DISTINCT " : "";
    if (name == "COUNT" || name == "COUNT_BIG") {
        value.sql = "count(" + distinct + Collated(argument.sql, argument.type) + ")";
        value.nullable = false;
    } else if (name == "MIN" || name == "MAX")
        value.sql = (name == "MIN" ? "min(" : "max(") + Collated(argument.sql, argument.type) + ")";
    else {
        const SqlType result = value.type;
        const SqlType of = argument.type;
        const std::string own = m_engine.functions.Aggregate(name + TypeKey(of), [&] {
            return AggregateNode{of, result, [function, of] { return function->start(of); }};
        });
        value.sql = own + "(" + distinct + argument.sql + ")";
    }
    return value;
}

Scalar Translator::StringAggregate(const tsql::FunctionCall& call, const Scope* scope) {
    if (call.arguments.size() != 2)
        throw SqlError(174, {"STRING_AGG", "2"});
    Scalar value = Value(*call.arguments[0], scope);
    if (!value.type.IsCharacter())
        value = ConvertTo(std::move(value), NVarChar(4000));
    const Scalar separator = ConvertTo(Value(*call.arguments[1], scope), NVarChar(4000));
    std::vector<SqlType> types{value.type, separator.type};
    std::vector<bool> descending;
    std::string arguments = value.sql + ", " + separator.sql;
    for (const tsql::OrderItem& item : call.withinGroup) {
        const Scalar key = Value(*item.expression, scope);
        types.push_back(key.type);
        descending.push_back(item.descending);
        arguments += ", " + key.sql;
    }
    const SqlType result = WithCollation(StringAggregateType(value.type));
    class Sorted : public RowAggregateNode::State {
      public:
        Sorted(SqlType of, std::vector<bool> descending)
            : m_of(of)
            , m_descending(std::move(descending)) {}
        void Step(std::span<const Datum> row) override { m_rows.emplace_back(row.begin(), row.end()); }
        Datum Result() override {
            std::stable_sort(m_rows.begin(), m_rows.end(),
                             [this](const auto& left, const auto& right) { return Before(left, right); });
            const Datum separator = m_rows.empty() ? Datum() : m_rows.front()[1];
            const auto joined = StartStringAggregate(m_of, separator);
            for (const std::vector<Datum>& row : m_rows)
                joined->Step(row[0]);
            return joined->Result();
        }

      private:
        bool Before(const std::vector<Datum>& left, const std::vector<Datum>& right) const {
            for (std::size_t i = 0; i < m_descending.size(); ++i) {
                const Datum& a = left[i + 2];
                const Datum& b = right[i + 2];
                const int order = a.IsNull() || b.IsNull()
                                      ? static_cast<int>(b.IsNull()) - static_cast<int>(a.IsNull())
                                      : CompareValues(a, b, a.Type().collation);
                if (order != 0)
                    return m_descending[i] ? order > 0 : order < 0;
            }
            return false;
        }
        SqlType m_of;
        std::vector<bool> m_descending;
        std::vector<std::vector<Datum>> m_rows;
    };
    std::string key = "STRING_AGG";
    for (const SqlType& type : types)
        key += TypeKey(type) + ",";
    for (const bool down : descending)
        key += down ? 'd' : 'a';
    const SqlType of = value.type;
    const std::string own = m_engine.functions.RowAggregate(key, [&] {
        return RowAggregateNode{types, result,
                                [of, descending] { return std::make_unique<Sorted>(of, descending); }};
    });
    value.sql = own + "(" + arguments + ")";
    value.type = result;
    value.nullable = true;
    value.constant.reset();
    return value;
}

Scalar Translator::WindowValue(const tsql::FunctionCall& call, const std::string& name, const Scope* scope) {
    if (!call.over)
        throw SqlError(10753, {name});
    if (scope != nullptr && scope->aggregateError != 0)
        throw SqlError(4108);
    if (call.over->orderBy.empty())
        throw SqlError(4112, {name});
    Scalar value = WindowCore(call, name, scope);
    value.sql += OverSql(*call.over, scope);
    return value;
}

Scalar Translator::WindowCore(const tsql::FunctionCall& call, const std::string& name, const Scope* scope) {
    std::string lower = name;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    Scalar value;
    if (name == "PERCENT_RANK" || name == "CUME_DIST") {
        value.type = SimpleType(TypeId::Float);
        value.sql = lower + "()";
    } else if (name == "NTILE") {
        if (call.arguments.size() != 1)
            throw SqlError(174, {name, "1"});
        value.type = SimpleType(TypeId::BigInt);
        value.sql = "ntile(" + ConvertTo(Value(*call.arguments[0], scope), value.type).sql + ")";
    } else if (name == "LAG" || name == "LEAD" || name == "FIRST_VALUE" || name == "LAST_VALUE") {
        if (call.arguments.empty() ||
            call.arguments.size() > (name[0] == 'L' && name != "LAST_VALUE" ? 3U : 1U))
            throw SqlError(174, {name, "1"});
        const Scalar first = Value(*call.arguments[0], scope);
        value.type = first.type;
        value.label = first.label;
        value.sql = lower + "(" + first.sql;
        if (call.arguments.size() > 1)
            value.sql += ", " + ConvertTo(Value(*call.arguments[1], scope), SimpleType(TypeId::BigInt)).sql;
        if (call.arguments.size() > 2)
            value.sql += ", " + ConvertTo(Value(*call.arguments[2], scope), first.type).sql;
        value.sql += ")";
    } else {
        value.type = SimpleType(TypeId::BigInt);
        value.sql = lower + "()";
        value.nullable = name != "ROW_NUMBER" && name != "RANK" && name != "DENSE_RANK";
    }
    return value;
}

std::string Translator::OverSql(const tsql::OverClause& over, const Scope* scope) {
    if (scope != nullptr)
        scope->sawWindow = true;
    std::string sql = " OVER (";
    for (std::size_t i = 0; i < over.partitionBy.size(); ++i) {
        const Scalar key = Value(*over.partitionBy[i], scope);
        sql += (i == 0 ? "PARTITION BY " : ", ") + Collated(key.sql, key.type);
    }
    for (std::size_t i = 0; i < over.orderBy.size(); ++i) {
        const tsql::Expression& expression = *over.orderBy[i].expression;
        const Scalar key = Value(expression, scope);
        if (expression.kind == tsql::ExpressionKind::Literal)
            throw SqlError(tsql::As<tsql::Literal>(expression).type == tsql::LiteralType::Integer ? 5308
                                                                                                  : 5309);
        sql += (i == 0 ? " ORDER BY " : ", ") + Collated(key.sql, key.type);
        sql += over.orderBy[i].descending ? " DESC" : "";
    }
    if (over.frame) {
        const auto count = [&](const tsql::ExpressionPtr& expression) {
            return expression ? ConvertTo(Value(*expression, scope), SimpleType(TypeId::BigInt)).sql : "";
        };
        sql += over.frame->rows ? " ROWS BETWEEN " : " RANGE BETWEEN ";
        sql += count(over.frame->startCount) + BoundSql(over.frame->start) + " AND ";
        sql += count(over.frame->endCount) + BoundSql(over.frame->end);
    }
    return sql + ")";
}

} // namespace quillon::practice
