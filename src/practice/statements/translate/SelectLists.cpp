// What stands between SELECT and FROM: columns, values, and assignments to variables.
#include "practice/statements/translate/Translator.h"

#include "practice/values/SqlError.h"

namespace quillon::practice {

std::vector<Translator::Item> Translator::Items(const std::vector<tsql::SelectItem>& items,
                                                const Scope& scope) {
    std::vector<Item> all;
    const auto addColumn = [&](const Source& source, const SourceColumn& column) {
        Item item;
        item.value = ColumnScalar({&source, &column}, scope);
        item.output = OutputOf(column);
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
    if (item.expression->kind == tsql::ExpressionKind::PseudoColumn && item.alias.empty()) {
        const std::string& word = tsql::As<tsql::PseudoColumn>(*item.expression).name;
        if (SameName(word, "$ACTION")) // no column of a table: the heading has the letters of the query too
            one.output.name = word;
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
