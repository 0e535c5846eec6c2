// ORDER BY, and how many rows TOP, OFFSET and FETCH leave.
#include "practice/statements/translate/Translator.h"

#include "practice/values/SqlError.h"

namespace quillon::practice {

Translator::Order Translator::OrderBy(const std::vector<tsql::OrderItem>& items,
                                      const std::vector<Item>& output, const Scope& scope, bool distinct) {
    Order order;
    for (const tsql::OrderItem& item : items) {
        int ordinal = OrdinalOf(*item.expression, output);
        std::string term;
        if (ordinal == 0) {
            const Scalar key = Value(*item.expression, &scope);
            for (std::size_t i = 0; i < output.size() && ordinal == 0; ++i)
                if (output[i].value.sql == key.sql)
                    ordinal = static_cast<int>(i) + 1;
            if (distinct && ordinal == 0)
                throw SqlError(145);
            // A bare number would be taken for the number of a column.
            term = key.constant ? "(SELECT " + key.sql + ")" : Collated(key.sql, key.type);
        }
        if (ordinal != 0) {
            const auto index = static_cast<std::size_t>(ordinal) - 1;
            term = Collated(OutputName(index), output[index].output.type);
        }
        order.terms.push_back(term + (item.descending ? " DESC" : ""));
        order.ordinals.push_back(ordinal);
    }
    return order;
}

int Translator::OrdinalOf(const tsql::Expression& expression, const std::vector<Item>& output) const {
    if (expression.kind == tsql::ExpressionKind::Literal) {
        const auto& literal = tsql::As<tsql::Literal>(expression);
        if (literal.type != tsql::LiteralType::Integer)
            throw SqlError(408, {"1"});
        const int ordinal = literal.text.size() > 4 ? 9999 : std::stoi(literal.text);
        if (ordinal < 1 || ordinal > static_cast<int>(output.size()))
            throw SqlError(108, {literal.text});
        return ordinal;
    }
    if (expression.kind != tsql::ExpressionKind::Column)
        return 0;
    const auto& name = tsql::As<tsql::ColumnReference>(expression).name;
    if (name.parts.size() != 1)
        return 0;
    int found = 0;
    for (std::size_t i = 0; i < output.size(); ++i) {
        if (!m_here.nameRule.Same(output[i].output.name, name.Last()))
            continue;
        if (found != 0)
            throw SqlError(209, {name.Last()});
        found = static_cast<int>(i) + 1;
    }
    return found;
}

// The number of rows of TOP, OFFSET or FETCH, refused when it is none.
std::string Translator::RowCountSql(const tsql::Expression& count, const Scope* outer, RowCount use) {
    Scalar value = Value(count, outer);
    if (use == RowCount::Percent)
        return ConvertTo(std::move(value), SimpleType(TypeId::Float)).sql;
    if (value.type.IsCharacter() || value.type.IsBinary())
        throw SqlError(1060);
    value = ConvertTo(std::move(value), SimpleType(TypeId::BigInt));
    const int least = use == RowCount::Fetch ? 1 : 0;
    const int tooFew = use == RowCount::Fetch ? 10744 : use == RowCount::Offset ? 10742 : 127;
    if (value.constant && !value.constant->IsNull() && value.constant->Integer() >= least)
        return value.sql;
    return Call("rowcount " + std::to_string(tooFew), {value}, value.type, Evaluation::OncePerStatement,
                [least, tooFew](std::span<const Datum> values) {
                    if (values[0].IsNull())
                        throw SqlError(1060);
                    if (values[0].Integer() < least)
                        throw SqlError(tooFew);
                    return values[0];
                })
        .sql;
}

std::string Translator::LimitSql(const tsql::Query* whole, const tsql::SelectBody* body, const Scope* outer,
                                 const QueryOptions& options) {
    std::string limit;
    if (body != nullptr && body->top && !body->top->percent && !body->top->withTies)
        limit = RowCountSql(*body->top->count, outer, RowCount::Top);
    if (whole != nullptr && whole->fetch)
        limit = RowCountSql(*whole->fetch, outer, RowCount::Fetch);
    if (options.top && options.rowLimit > 0)
        limit = limit.empty() ? std::to_string(options.rowLimit)
                              : "min(" + limit + ", " + std::to_string(options.rowLimit) + ")";
    std::string sql = limit.empty() ? "" : " LIMIT " + limit;
    if (whole != nullptr && whole->offset)
        sql = (limit.empty() ? " LIMIT -1" : sql) + " OFFSET " +
              RowCountSql(*whole->offset, outer, RowCount::Offset);
    return sql;
}

bool Translator::IsTopOne(const tsql::SelectBody& body) {
    if (!body.top || body.top->percent || body.top->withTies ||
        body.top->count->kind != tsql::ExpressionKind::Literal)
        return false;
    const std::string& text = tsql::As<tsql::Literal>(body.top->count).text;
    return text == "1" || text == "0";
}

void Translator::AppendOrder(std::string& sql, const std::vector<std::string>& terms) {
    for (std::size_t i = 0; i < terms.size(); ++i)
        sql += (i == 0 ? " ORDER BY " : ", ") + terms[i];
}

// TOP ... PERCENT and WITH TIES: the rows are numbered or ranked in their order, then cut. What they are
// ordered by comes along as k<n> where it is no output column.
std::string Translator::ShareKeys(Order& order) {
    std::string keys;
    for (std::size_t i = 0; i < order.terms.size(); ++i) {
        if (order.ordinals[i] != 0)
            continue;
        std::string& term = order.terms[i];
        const bool descending = term.ends_with(" DESC");
        const std::string name = "k" + std::to_string(i);
        const std::string bare = descending ? term.substr(0, term.size() - 5) : term;
        keys += ", " + bare + " AS " + name;
        const std::size_t collation = bare.rfind(" COLLATE ");
        term = name + (collation == std::string::npos ? "" : bare.substr(collation)) +
               (descending ? " DESC" : "");
    }
    return keys;
}

QuerySql Translator::WithShare(const tsql::SelectBody& body, QuerySql plain, const Order& order,
                               const Scope* outer) {
    if (body.top->withTies && order.terms.empty())
        throw SqlError(1062);
    const std::string count =
        RowCountSql(*body.top->count, outer, body.top->percent ? RowCount::Percent : RowCount::Top);
    std::string names;
    for (std::size_t i = 0; i < plain.columns.size(); ++i)
        names += (i > 0 ? ", " : "") + OutputName(i);
    std::string over;
    AppendOrder(over, order.terms);
    const std::string limit = body.top->percent ? "ceil(" + count + " * n / 100.0)" : count;
    plain.sql = "SELECT " + names + (plain.base ? ", rid" : "") + " FROM (SELECT *, " +
                (body.top->withTies ? "rank()" : "row_number()") + " OVER (" + over +
                ") AS r, count(*) OVER () AS n" + " FROM (" + plain.sql + ")) WHERE r <= " + limit +
                " ORDER BY r";
    plain.oneRow = false;
    return plain;
}

} // namespace quillon::practice
