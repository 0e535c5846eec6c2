// SELECT: the whole of a query and of one block of it.
#include "practice/statements/translate/Translator.h"

#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

bool HasTop(const tsql::QueryBody& body) {
    return body.kind == tsql::QueryBodyKind::Select && tsql::As<tsql::SelectBody>(body).top.has_value();
}

constexpr int deepestNesting = 100;
constexpr int levelsInPlace = 4;

// Keeps endless nesting of queries from exhausting the stack.
class Depth {
  public:
    explicit Depth(int& depth)
        : m_depth(depth) {
        if (++m_depth > deepestNesting) {
            --m_depth;
            throw SqlError(191);
        }
    }
    ~Depth() { --m_depth; }
    Depth(const Depth&) = delete;
    Depth& operator=(const Depth&) = delete;

  private:
    int& m_depth;
};

} // namespace

QuerySql Translator::Query(const tsql::Query& query, const Scope* outer, const QueryOptions& options) {
    const Depth depth(m_depth);
    if (!options.top && !query.orderBy.empty() && !query.offset && !query.forXml && !HasTop(*query.body))
        throw SqlError(1033);
    const int aliases = m_aliases;
    const int outermost = std::exchange(m_outermostAlias, std::numeric_limits<int>::max());
    const std::size_t commonTables = m_commonTables.size();
    if (!query.with.empty())
        PushCommonTables(query.with);
    if (options.top)
        m_maxRecursion = options.maxRecursion;
    QuerySql result = Body(*query.body, &query, outer, options);
    m_commonTables.resize(commonTables);
    if (query.forXml)
        result = AsFor(query, std::move(result));
    const bool standsAlone = m_outermostAlias > aliases && m_recursions.empty();
    if (m_depth == 1)
        result.sql = WithSql(std::exchange(m_movedOut, {})) + result.sql;
    else if (m_depth % levelsInPlace == 0 && standsAlone)
        MoveOut(result);
    m_outermostAlias = std::min(m_outermostAlias, outermost);
    return result;
}

// Names a query that uses nothing of what is around it in the WITH of the outermost one; where it stands it
// is only named.
void Translator::MoveOut(QuerySql& query) {
    const std::string name = NextAlias();
    m_movedOut.push_back(name + " AS NOT MATERIALIZED (" + query.sql + ")");
    query.sql = "SELECT * FROM " + name;
}

std::string Translator::WithSql(const std::vector<std::string>& movedOut) {
    std::string with;
    for (const std::string& query : movedOut)
        with += (with.empty() ? "WITH " : ", ") + query;
    return with.empty() ? with : with + " ";
}

QuerySql Translator::Body(const tsql::QueryBody& body, const tsql::Query* whole, const Scope* outer,
                          const QueryOptions& options) {
    if (body.kind == tsql::QueryBodyKind::SetOperation)
        return SetOperation(tsql::As<tsql::SetOperation>(body), whole, outer, options);
    return Select(tsql::As<tsql::SelectBody>(body), whole, outer, options);
}

void Translator::CheckGrouping(const Scope& scope, int errorNumber) {
    if ((scope.sawAggregate || !scope.groupKeys.empty()) && !scope.looseColumns.empty()) {
        const ColumnUse& use = scope.looseColumns.front();
        throw SqlError(errorNumber, {use.source->exposed, use.column->name});
    }
}

std::string Translator::GroupBySql(const tsql::SelectBody& body, Scope& scope) {
    std::string sql;
    scope.aggregateError = 144;
    std::set<std::string> absent;
    const auto add = [&](const tsql::Expression& expression, bool groups) {
        const Scalar key = Value(expression, &scope);
        if (key.constant || key.isParameter)
            throw SqlError(164);
        if (std::find(scope.groupKeys.begin(), scope.groupKeys.end(), key.sql) != scope.groupKeys.end())
            return;
        scope.groupKeys.push_back(key.sql);
        if (groups)
            sql += (sql.empty() ? " GROUP BY " : ", ") + Collated(key.sql, key.type);
        else
            absent.insert(key.sql);
    };
    if (scope.groupingSet != nullptr)
        for (const tsql::Expression* key : *scope.groupingSet)
            add(*key, true);
    for (const tsql::GroupingElement& element : body.groupBy)
        for (const tsql::ExpressionList& set : element.sets)
            for (const tsql::ExpressionPtr& key : set)
                add(*key, scope.groupingSet == nullptr);
    scope.absentKeys = std::move(absent);
    scope.aggregateError = 0;
    scope.looseColumns.clear();
    return sql;
}

QuerySql Translator::Select(const tsql::SelectBody& body, const tsql::Query* whole, const Scope* outer,
                            const QueryOptions& options) {
    if (HasGroupingSets(body))
        return GroupedSets(body, whole, outer, options);
    Scope scope;
    scope.outer = outer;
    SelectParts parts = Parts(body, scope);
    std::vector<Item> items = Items(body.items, scope);
    // HAVING makes all rows one group, which SQLite believes of a list with an aggregate only.
    if (body.having && body.groupBy.empty() && !scope.sawAggregate) {
        scope.sawAggregate = true;
        items[0].value.sql = "CASE WHEN count(*) >= 0 THEN " + items[0].value.sql + " END";
    }
    CheckGrouping(scope, 8120);
    scope.looseColumns.clear();
    if (body.having) {
        parts.tail += " HAVING " + Condition(*body.having, &scope);
        CheckGrouping(scope, 8121);
        scope.looseColumns.clear();
    }
    Order order;
    if (whole != nullptr && !whole->orderBy.empty()) {
        order = OrderBy(whole->orderBy, items, scope, body.distinct);
        CheckGrouping(scope, 8127);
    }
    QuerySql query;
    query.ordered = !order.terms.empty();
    std::string list;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const std::string& sql = items[i].value.sql;
        list += (i > 0 ? ", " : "") + (body.distinct ? Collated(sql, items[i].output.type) : sql) + " AS " +
                OutputName(i);
        query.columns.push_back(items[i].output);
    }
    if (options.countLevels) {
        if (scope.sawAggregate)
            throw SqlError(467, {m_recursions.back().table->name});
        list += ", " + LevelSql();
    }
    const bool share = body.top && (body.top->percent || body.top->withTies);
    if (share)
        list += ShareKeys(order);
    const bool grouped = scope.sawAggregate || !body.groupBy.empty();
    const bool plain = !grouped && !body.distinct;
    if (options.keepRowIds && plain && scope.sources.size() == 1 && scope.sources[0]->hasRowId) {
        query.base = scope.sources[0]->rowTable;
        list += ", " + scope.sources[0]->rowId + " AS rid";
    }
    query.oneRow =
        (scope.sawAggregate && body.groupBy.empty()) || (body.from.empty() && !body.top) || IsTopOne(body);
    query.sql = std::string(body.distinct ? "SELECT DISTINCT " : "SELECT ") + list + parts.from + parts.tail;
    if (share)
        return WithShare(body, std::move(query), order, outer);
    AppendOrder(query.sql, order.terms);
    query.sql += LimitSql(whole, &body, outer, options);
    return query;
}

Translator::SelectParts Translator::Parts(const tsql::SelectBody& body, Scope& scope) {
    SelectParts parts;
    const std::string from = From(body.from, scope);
    parts.from = from.empty() ? "" : " FROM " + from;
    if (body.where) {
        scope.aggregateError = 147;
        parts.tail = " WHERE " + Condition(*body.where, &scope);
        scope.aggregateError = 0;
    }
    scope.looseColumns.clear();
    parts.tail += GroupBySql(body, scope);
    return parts;
}

} // namespace quillon::practice
