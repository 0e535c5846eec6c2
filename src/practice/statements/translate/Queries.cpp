// SELECT and set operations.
#include "practice/statements/translate/Translator.h"

#include "practice/tsql/ExpressionText.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

std::string OutputName(std::size_t index) {
    return "o" + std::to_string(index + 1);
}

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

// Where the first SELECT of a set operation shows the expression in so many words, counted from 1; 0 for
// nowhere, and where a star hides the places.
int PlaceInFirst(const tsql::QueryBody& body, const tsql::Expression& expression, const NameRule& rule) {
    if (body.kind == tsql::QueryBodyKind::SetOperation)
        return PlaceInFirst(*tsql::As<tsql::SetOperation>(body).left, expression, rule);
    const auto wanted = tsql::ExpressionText(expression);
    if (body.kind != tsql::QueryBodyKind::Select || !wanted)
        return 0;
    const auto& items = tsql::As<tsql::SelectBody>(body).items;
    for (std::size_t i = 0; i < items.size() && items[i].expression; ++i)
        if (rule.Same(tsql::ExpressionText(*items[i].expression).value_or(""), *wanted))
            return static_cast<int>(i) + 1;
    return 0;
}

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

std::vector<Translator::Item> Translator::Items(const std::vector<tsql::SelectItem>& items,
                                                const Scope& scope) {
    std::vector<Item> all;
    const auto addColumn = [&](const Source& source, const SourceColumn& column) {
        Item item;
        item.value = ColumnScalar({&source, &column}, scope);
        item.output = {column.name,     column.type,     column.nullable,  column.label,
                       column.identity, column.readOnly, column.tableName, column.baseColumn};
        all.push_back(std::move(item));
    };
    for (const tsql::SelectItem& item : items) {
        using Kind = tsql::SelectItem::Kind;
        if (item.kind == Kind::Star || item.kind == Kind::QualifiedStar) {
            if (scope.sources.empty())
                throw SqlError(263);
            bool matched = false;
            for (const std::unique_ptr<Source>& source : scope.sources) {
                if (item.kind == Kind::QualifiedStar &&
                    !Matches(*source, item.qualifier, item.qualifier.parts.size()))
                    continue;
                matched = true;
                for (const SourceColumn& column : source->columns)
                    addColumn(*source, column);
            }
            if (!matched)
                throw SqlError(107, {item.qualifier.Text()});
            continue;
        }
        all.push_back(item.kind == Kind::Assignment ? AssignmentItem(item, scope) : ValueItem(item, scope));
    }
    return all;
}

Translator::Item Translator::ValueItem(const tsql::SelectItem& item, const Scope& scope) {
    Item one;
    // A column that is shown as it is keeps its properties.
    const std::size_t before = scope.looseColumns.size();
    one.value = Value(*item.expression, &scope);
    one.output.isBareNull = one.value.IsBareNull();
    one.output.type = one.value.IsBareNull() ? SimpleType(TypeId::Int) : one.value.type;
    one.output.nullable = one.value.nullable;
    one.output.label = one.value.label;
    one.output.name = item.alias;
    const bool isColumn = item.expression->kind == tsql::ExpressionKind::Column ||
                          item.expression->kind == tsql::ExpressionKind::PseudoColumn;
    if (!isColumn)
        return one;
    const auto addFrom = [&](const SourceColumn& column) {
        one.output.identity = column.identity;
        one.output.readOnly = column.readOnly;
        one.output.tableName = column.tableName;
        one.output.baseColumn = column.baseColumn;
        if (one.output.name.empty())
            one.output.name = column.name;
    };
    if (item.expression->kind == tsql::ExpressionKind::Column) {
        // The heading has the letters of the query, not those of the table.
        const auto& name = tsql::As<tsql::ColumnReference>(*item.expression).name;
        if (item.alias.empty())
            one.output.name = name.Last();
        const std::vector<ColumnUse> found = FindColumns(scope, name);
        if (scope.looseColumns.size() == before && found.size() == 1)
            addFrom(*found.front().column);
    }
    if (scope.looseColumns.size() > before)
        addFrom(*scope.looseColumns.back().column);
    return one;
}

Translator::Item Translator::AssignmentItem(const tsql::SelectItem& item, const Scope& scope) {
    const Variable* variable = m_engine.context.FindVariable(item.variable);
    if (variable == nullptr || variable->table)
        throw SqlError(137, {item.variable});
    Item one;
    Scalar value = Value(*item.expression, &scope);
    if (item.op != tsql::AssignmentOperator::Set)
        value = Compound(item.op, VariableValue(item.variable), value);
    one.value = ConvertTo(std::move(value), variable->type);
    one.output.name = item.variable;
    one.output.type = variable->type;
    return one;
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
        if (found != 0 && output[static_cast<std::size_t>(found) - 1].value.sql != output[i].value.sql)
            throw SqlError(209, {name.Last()});
        found = static_cast<int>(i) + 1;
    }
    return found;
}

// The number of rows of TOP, OFFSET or FETCH, refused when it is none.
std::string Translator::RowCountSql(const tsql::Expression& count, const Scope* outer, bool percent) {
    Scalar value = Value(count, outer);
    if (percent)
        return ConvertTo(std::move(value), SimpleType(TypeId::Float)).sql;
    if (value.type.IsCharacter() || value.type.IsBinary())
        throw SqlError(1060);
    value = ConvertTo(std::move(value), SimpleType(TypeId::BigInt));
    if (value.constant && !value.constant->IsNull() && value.constant->Integer() >= 0)
        return value.sql;
    return Call("rowcount", {value}, value.type, Evaluation::OncePerStatement,
                [](std::span<const Datum> values) {
                    if (values[0].IsNull())
                        throw SqlError(1060);
                    if (values[0].Integer() < 0)
                        throw SqlError(127);
                    return values[0];
                })
        .sql;
}

std::string Translator::LimitSql(const tsql::Query* whole, const tsql::SelectBody* body, const Scope* outer,
                                 const QueryOptions& options) {
    std::string limit;
    if (body != nullptr && body->top && !body->top->percent && !body->top->withTies)
        limit = RowCountSql(*body->top->count, outer, false);
    if (whole != nullptr && whole->fetch)
        limit = RowCountSql(*whole->fetch, outer, false);
    if (options.top && options.rowLimit > 0)
        limit = limit.empty() ? std::to_string(options.rowLimit)
                              : "min(" + limit + ", " + std::to_string(options.rowLimit) + ")";
    std::string sql = limit.empty() ? "" : " LIMIT " + limit;
    if (whole != nullptr && whole->offset)
        sql = (limit.empty() ? " LIMIT -1" : sql) + " OFFSET " + RowCountSql(*whole->offset, outer, false);
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
    if (options.countLevels)
        list += ", " + LevelSql();
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
    const std::string count = RowCountSql(*body.top->count, outer, body.top->percent);
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

QuerySql Translator::Converted(QuerySql query, const std::vector<OutputColumn>& to) {
    if (query.columns.size() != to.size())
        throw SqlError(205);
    std::string list;
    bool changed = false;
    for (std::size_t i = 0; i < to.size(); ++i) {
        Scalar column;
        column.sql = OutputName(i);
        column.type = query.columns[i].isBareNull ? SqlType() : query.columns[i].type;
        const std::string converted = ConvertTo(column, to[i].type).sql;
        changed = changed || converted != column.sql;
        list += (i > 0 ? ", " : "") + Collated(converted, to[i].type) + " AS " + OutputName(i);
        query.columns[i].type = to[i].type;
    }
    const bool texts = std::any_of(to.begin(), to.end(),
                                   [](const OutputColumn& column) { return column.type.IsCharacter(); });
    query.sql = changed || texts ? "SELECT " + list + " FROM (" + query.sql + ")"
                                 : "SELECT * FROM (" + query.sql + ")";
    return query;
}

std::vector<OutputColumn> Translator::CommonColumns(const std::vector<OutputColumn>& left,
                                                    const std::vector<OutputColumn>& right) {
    if (left.size() != right.size())
        throw SqlError(205);
    std::vector<OutputColumn> columns;
    for (std::size_t i = 0; i < left.size(); ++i) {
        std::vector<Scalar> both(2);
        for (const auto& [scalar, column] : {std::pair{&both[0], &left[i]}, {&both[1], &right[i]}}) {
            scalar->sql = "x";
            scalar->type = column->isBareNull ? SqlType() : column->type;
            scalar->nullable = column->nullable;
            scalar->label = column->label;
        }
        const Scalar common = Common(both, "UNION");
        OutputColumn output;
        output.name = left[i].name;
        output.isBareNull = common.IsBareNull();
        output.type = output.isBareNull ? SimpleType(TypeId::Int) : common.type;
        output.nullable = common.nullable;
        output.label = common.label;
        columns.push_back(output);
    }
    return columns;
}

std::string Translator::CompoundSql(Branches& compound) {
    std::string sql;
    for (std::size_t i = 0; i < compound.branches.size(); ++i)
        sql += compound.words[i] + Converted(std::move(compound.branches[i]), compound.columns).sql;
    return sql;
}

void Translator::AddBranch(Branches& compound, tsql::SetOperator op, QuerySql branch) {
    static constexpr const char* words[] = {" UNION ", " UNION ALL ", " EXCEPT ", " INTERSECT "};
    constexpr std::size_t mostBranches = 400; // SQLite takes 500
    std::vector<OutputColumn> columns = CommonColumns(compound.columns, branch.columns);
    const bool changes =
        !std::equal(columns.begin(), columns.end(), compound.columns.begin(),
                    [](const OutputColumn& to, const OutputColumn& from) { return to.type == from.type; });
    // Rows that were compared as they are must not be compared again as something else.
    if ((compound.compares && changes) || compound.branches.size() == mostBranches) {
        QuerySql rows;
        rows.sql = CompoundSql(compound);
        rows.columns = compound.columns;
        compound.branches.clear();
        compound.branches.push_back(std::move(rows));
        compound.words.resize(1);
        compound.compares = false;
    }
    compound.words.push_back(words[static_cast<std::size_t>(op)]);
    compound.branches.push_back(std::move(branch));
    compound.columns = std::move(columns);
    compound.compares = compound.compares || op != tsql::SetOperator::UnionAll;
}

QuerySql Translator::SetOperation(const tsql::SetOperation& operation, const tsql::Query* whole,
                                  const Scope* outer, const QueryOptions& options) {
    std::vector<const tsql::SetOperation*> chain; // it leans to the left, as SQLite's does
    const tsql::QueryBody* leftmost = &operation;
    while (leftmost->kind == tsql::QueryBodyKind::SetOperation) {
        chain.push_back(&tsql::As<tsql::SetOperation>(*leftmost));
        leftmost = chain.back()->left.get();
    }
    Branches compound;
    compound.words.emplace_back();
    compound.branches.push_back(Body(*leftmost, nullptr, outer, {}));
    compound.columns = compound.branches.front().columns;
    for (auto link = chain.rbegin(); link != chain.rend(); ++link)
        AddBranch(compound, (*link)->op, Body(*(*link)->right, nullptr, outer, {}));
    QuerySql set;
    set.sql = CompoundSql(compound);
    set.columns = std::move(compound.columns);
    const bool sorts = whole != nullptr && (!whole->orderBy.empty() || whole->offset);
    const std::string limit = LimitSql(whole, nullptr, outer, options);
    if (!sorts && limit.empty())
        return set;
    std::vector<Item> items;
    for (std::size_t i = 0; i < set.columns.size(); ++i) {
        Item item;
        item.value.sql = OutputName(i);
        item.output = set.columns[i];
        items.push_back(std::move(item));
    }
    std::vector<std::string> terms;
    for (const tsql::OrderItem& item : whole->orderBy) {
        int ordinal = OrdinalOf(*item.expression, items);
        if (ordinal == 0)
            ordinal = PlaceInFirst(*operation.left, *item.expression, m_here.nameRule);
        if (ordinal == 0)
            throw SqlError(104);
        const auto index = static_cast<std::size_t>(ordinal) - 1;
        terms.push_back(Collated(OutputName(index), set.columns[index].type) +
                        (item.descending ? " DESC" : ""));
    }
    set.sql = "SELECT * FROM (" + set.sql + ")";
    AppendOrder(set.sql, terms);
    set.sql += limit;
    set.ordered = !terms.empty();
    return set;
}

// SELECT @a = @a + ... reads what the row before has assigned. Sorting would compute the assignments before
// the order is known; then the rows are brought into order first, and the assignments computed over them.
QuerySql Translator::AssignmentQuery(const tsql::Query& query, const QueryOptions& options) {
    if (query.body->kind == tsql::QueryBodyKind::SetOperation)
        throw SqlError(141);
    const auto& body = tsql::As<tsql::SelectBody>(*query.body);
    for (const tsql::SelectItem& item : body.items) {
        if (item.kind != tsql::SelectItem::Kind::Assignment)
            throw SqlError(141);
        needs.liveVariables.push_back(item.variable);
    }
    m_usedLive = false;
    QuerySql plain = Query(query, nullptr, options);
    if (!m_usedLive || query.orderBy.empty() || body.distinct || !body.groupBy.empty() || body.from.empty())
        return plain;
    if (!query.with.empty())
        PushCommonTables(query.with);
    Scope scope;
    const SelectParts parts = Parts(body, scope);
    const Order order = OrderBy(query.orderBy, {}, scope, false);
    Capture capture;
    capture.alias = NextAlias();
    scope.captures.push_back(&capture);
    const std::vector<Item> items = Items(body.items, scope);
    std::string list;
    for (std::size_t i = 0; i < items.size(); ++i)
        list += (i > 0 ? ", " : "") + items[i].value.sql + " AS " + OutputName(i);
    std::string inner = "SELECT 1 AS k0";
    for (std::size_t i = 0; i < capture.sql.size(); ++i)
        inner += ", " + capture.sql[i] + " AS k" + std::to_string(i + 1);
    inner += parts.from + parts.tail;
    AppendOrder(inner, order.terms);
    const std::string limit = LimitSql(&query, &body, nullptr, options);
    plain.sql = "SELECT " + list + " FROM (" + inner + (limit.empty() ? " LIMIT -1" : limit) + ") AS " +
                capture.alias;
    if (!query.with.empty())
        PopCommonTables();
    return plain;
}

} // namespace quillon::practice
