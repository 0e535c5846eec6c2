// GROUP BY ROLLUP, CUBE and GROUPING SETS: one grouped query a set, put together by UNION ALL. The keys that
// a set leaves out are NULL in its rows; GROUPING tells these from NULLs of the data.
#include "practice/statements/translate/Translator.h"

#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

constexpr std::size_t mostSets = 4096;

using GroupingSet = Scope::GroupingSet;

GroupingSet Joined(GroupingSet left, const tsql::ExpressionList& right) {
    for (const tsql::ExpressionPtr& key : right)
        left.push_back(key.get());
    return left;
}

// The sets that one element of GROUP BY stands for.
std::vector<GroupingSet> SetsOf(const tsql::GroupingElement& element) {
    std::vector<GroupingSet> sets;
    const std::size_t count = element.sets.size();
    switch (element.kind) {
    case tsql::GroupingKind::Plain:
    case tsql::GroupingKind::GroupingSets:
        for (const tsql::ExpressionList& set : element.sets)
            sets.push_back(Joined({}, set));
        break;
    case tsql::GroupingKind::Rollup:
        sets.emplace_back();
        for (const tsql::ExpressionList& set : element.sets)
            sets.push_back(Joined(sets.back(), set));
        std::reverse(sets.begin(), sets.end());
        break;
    case tsql::GroupingKind::Cube:
        if (count >= 12)
            throw SqlError(10703, {std::to_string(mostSets)});
        for (std::size_t left = std::size_t{1} << count; left-- > 0;) {
            sets.emplace_back();
            for (std::size_t i = 0; i < count; ++i)
                if ((left >> (count - 1 - i) & 1U) != 0)
                    sets.back() = Joined(std::move(sets.back()), element.sets[i]);
        }
        break;
    }
    return sets;
}

// Several elements stand for every combination of theirs.
std::vector<GroupingSet> AllSets(const std::vector<tsql::GroupingElement>& elements) {
    std::vector<GroupingSet> all{{}};
    for (const tsql::GroupingElement& element : elements) {
        std::vector<GroupingSet> combined;
        const std::vector<GroupingSet> sets = SetsOf(element);
        if (all.size() * sets.size() > mostSets)
            throw SqlError(10703, {std::to_string(mostSets)});
        for (const GroupingSet& left : all) {
            for (const GroupingSet& right : sets) {
                combined.push_back(left);
                combined.back().insert(combined.back().end(), right.begin(), right.end());
            }
        }
        all = std::move(combined);
    }
    return all;
}

} // namespace

bool Translator::HasGroupingSets(const tsql::SelectBody& body) {
    return std::any_of(body.groupBy.begin(), body.groupBy.end(), [](const tsql::GroupingElement& element) {
        return element.kind != tsql::GroupingKind::Plain;
    });
}

// The rows of one set. What the whole is ordered by goes along as k<n> where it is no output column.
std::string Translator::OneSet(const tsql::SelectBody& body, const tsql::Query* whole, Scope& scope,
                               std::vector<OutputColumn>& columns, Order& order) {
    SelectParts parts = Parts(body, scope);
    const std::vector<Item> items = Items(body.items, scope);
    CheckGrouping(scope, 8120);
    scope.looseColumns.clear();
    if (scope.groupingSet->empty() && !scope.sawAggregate)
        parts.tail += " GROUP BY NULL";
    if (body.having) {
        parts.tail += " HAVING " + Condition(*body.having, &scope);
        CheckGrouping(scope, 8121);
        scope.looseColumns.clear();
    }
    order = {};
    if (whole != nullptr && !whole->orderBy.empty()) {
        order = OrderBy(whole->orderBy, items, scope, body.distinct);
        CheckGrouping(scope, 8127);
    }
    if (scope.sawWindow)
        throw SqlError::NotSupported("a window over GROUPING SETS");
    std::string list;
    columns.clear();
    for (const Item& item : items) {
        columns.push_back(item.output);
        columns.back().nullable = true;
        list += (list.empty() ? "" : ", ") + item.value.sql + " AS o" + std::to_string(columns.size());
    }
    return "SELECT " + list + ShareKeys(order) + parts.from + parts.tail;
}

QuerySql Translator::GroupedSets(const tsql::SelectBody& body, const tsql::Query* whole, const Scope* outer,
                                 const QueryOptions& options) {
    QuerySql query;
    Order order;
    std::string rows;
    for (const GroupingSet& set : AllSets(body.groupBy)) {
        Scope scope;
        scope.outer = outer;
        scope.groupingSet = &set;
        rows += (rows.empty() ? "" : " UNION ALL ") + OneSet(body, whole, scope, query.columns, order);
    }
    std::string list;
    for (std::size_t i = 0; i < query.columns.size(); ++i) {
        const std::string name = OutputName(i);
        list += (i > 0 ? ", " : "") + (body.distinct ? Collated(name, query.columns[i].type) + " AS " : "") +
                name;
    }
    query.ordered = !order.terms.empty();
    query.sql = std::string(body.distinct ? "SELECT DISTINCT " : "SELECT ") + list + " FROM (" + rows + ")";
    if (body.top && (body.top->percent || body.top->withTies)) {
        query.sql = "SELECT * FROM (" + rows + ")";
        return WithShare(body, std::move(query), order, outer);
    }
    AppendOrder(query.sql, order.terms);
    query.sql += LimitSql(whole, &body, outer, options);
    return query;
}

// GROUPING(key) and GROUPING_ID(key, ...): a bit a key, 1 where the row's set leaves it out.
Scalar Translator::GroupingValue(const tsql::FunctionCall& call, const std::string& name,
                                 const Scope* scope) {
    if (scope == nullptr || scope->groupKeys.empty())
        throw SqlError(8160);
    if (call.arguments.empty() || (name == "GROUPING" && call.arguments.size() > 1))
        throw SqlError(174, {name, "1"});
    int bits = 0;
    for (std::size_t i = 0; i < call.arguments.size(); ++i) {
        const std::size_t loose = scope->looseColumns.size();
        const std::string key = DispatchValue(*call.arguments[i], scope).sql;
        scope->looseColumns.resize(loose);
        if (std::find(scope->groupKeys.begin(), scope->groupKeys.end(), key) == scope->groupKeys.end())
            throw SqlError(8161, {std::to_string(i + 1), name});
        bits = bits * 2 + (scope->absentKeys.contains(key) ? 1 : 0);
    }
    // Not a constant of the query's: another set has another value.
    Scalar value;
    value.sql = std::to_string(bits);
    value.type = SimpleType(name == "GROUPING" ? TypeId::TinyInt : TypeId::Int);
    value.nullable = false;
    return value;
}

} // namespace quillon::practice
