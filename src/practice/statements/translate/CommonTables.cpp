// WITH: common tables are written in place at each use; those that refer to themselves become recursive ones
// of SQLite, with a counter of levels for MAXRECURSION.
#include "practice/statements/translate/Translator.h"

#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

bool Mentions(const tsql::QueryBody& body, const std::string& name, const NameRule& rule);

bool Mentions(const tsql::TableSource& source, const std::string& name, const NameRule& rule) {
    switch (source.kind) {
    case tsql::TableSourceKind::Table: {
        const auto& table = tsql::As<tsql::NamedTable>(source);
        return table.name.parts.size() == 1 && rule.Same(table.name.Last(), name);
    }
    case tsql::TableSourceKind::Join: {
        const auto& join = tsql::As<tsql::Join>(source);
        return Mentions(*join.left, name, rule) || Mentions(*join.right, name, rule);
    }
    case tsql::TableSourceKind::Derived:
        return Mentions(*tsql::As<tsql::DerivedTable>(source).query->body, name, rule);
    default: return false;
    }
}

bool Mentions(const tsql::QueryBody& body, const std::string& name, const NameRule& rule) {
    if (body.kind == tsql::QueryBodyKind::SetOperation) {
        const auto& operation = tsql::As<tsql::SetOperation>(body);
        return Mentions(*operation.left, name, rule) || Mentions(*operation.right, name, rule);
    }
    const auto& from = tsql::As<tsql::SelectBody>(body).from;
    return std::any_of(from.begin(), from.end(),
                       [&](const tsql::TableSourcePtr& source) { return Mentions(*source, name, rule); });
}

void Flatten(const tsql::QueryBody& body, std::vector<const tsql::QueryBody*>& parts) {
    if (body.kind == tsql::QueryBodyKind::SetOperation) {
        const auto& operation = tsql::As<tsql::SetOperation>(body);
        if (operation.op == tsql::SetOperator::UnionAll) {
            Flatten(*operation.left, parts);
            Flatten(*operation.right, parts);
            return;
        }
    }
    parts.push_back(&body);
}

bool HasOuterJoin(const tsql::TableSource& source) {
    if (source.kind != tsql::TableSourceKind::Join)
        return false;
    const auto& join = tsql::As<tsql::Join>(source);
    return join.type == tsql::JoinType::Left || join.type == tsql::JoinType::Right ||
           join.type == tsql::JoinType::Full || HasOuterJoin(*join.left) || HasOuterJoin(*join.right);
}

// A recursive part makes each row from one row of the level above; what looks at several is refused.
void CheckRecursivePart(const tsql::SelectBody& part, const std::string& table) {
    if (part.distinct)
        throw SqlError(460, {table});
    if (part.top)
        throw SqlError(461, {table});
    if (std::any_of(part.from.begin(), part.from.end(),
                    [](const tsql::TableSourcePtr& source) { return HasOuterJoin(*source); }))
        throw SqlError(462, {table});
    if (!part.groupBy.empty() || part.having)
        throw SqlError(467, {table});
}

} // namespace

void Translator::PushCommonTables(const std::vector<tsql::CommonTable>& tables) {
    m_commonTables.push_back({&tables, tables.size()});
}

const tsql::CommonTable* Translator::FindCommonTable(const tsql::Name& name) const {
    if (name.parts.size() != 1)
        return nullptr;
    for (auto scope = m_commonTables.rbegin(); scope != m_commonTables.rend(); ++scope)
        for (std::size_t i = 0; i < scope->visible; ++i)
            if (m_here.nameRule.Same((*scope->tables)[i].name, name.Last()))
                return &(*scope->tables)[i];
    return nullptr;
}

std::string Translator::CommonSource(const tsql::CommonTable& table, const tsql::NamedTable& source,
                                     Scope& scope) {
    std::string text;
    AddDerived(CommonQuery(table), source.alias.empty() ? table.name : source.alias, {}, scope, &text);
    return text;
}

QuerySql Translator::CommonQuery(const tsql::CommonTable& table) {
    // The table sees those before it in its own WITH, and the WITHs around that.
    const std::vector<CommonScope> saved = m_commonTables;
    while (!m_commonTables.empty()) {
        CommonScope& last = m_commonTables.back();
        const auto begin = last.tables->data();
        if (&table >= begin && &table < begin + last.tables->size()) {
            last.visible = static_cast<std::size_t>(&table - begin);
            break;
        }
        m_commonTables.pop_back();
    }
    QuerySql query;
    if (Mentions(*table.query->body, table.name, m_here.nameRule)) {
        if (table.query->body->kind != tsql::QueryBodyKind::SetOperation)
            throw SqlError(253, {table.name});
        query = RecursiveQuery(table, tsql::As<tsql::SetOperation>(*table.query->body));
    } else {
        QueryOptions options;
        options.keepRowIds = true;
        query = Rename(Query(*table.query, nullptr, options), table.columns);
    }
    m_commonTables = saved;
    return query;
}

std::string Translator::RecursiveUse(const tsql::NamedTable& source, Scope& scope) {
    Recursion& recursion = m_recursions.back();
    if (++recursion.uses > 1)
        throw SqlError(253, {recursion.table->name});
    QuerySql rows;
    rows.columns = recursion.columns;
    AddDerived(std::move(rows), source.alias.empty() ? recursion.table->name : source.alias, {}, scope,
               nullptr);
    const std::string alias = scope.sources.back()->alias;
    recursion.alias = alias;
    return recursion.name + " AS " + alias;
}

QuerySql Translator::RecursiveQuery(const tsql::CommonTable& table, const tsql::SetOperation& body) {
    std::vector<const tsql::QueryBody*> parts;
    Flatten(body, parts);
    const auto isAnchor = [&](const tsql::QueryBody* part) {
        return !Mentions(*part, table.name, m_here.nameRule);
    };
    const auto firstRecursive = std::stable_partition(parts.begin(), parts.end(), isAnchor);
    if (firstRecursive == parts.begin() || firstRecursive == parts.end())
        throw SqlError(252, {table.name});
    QuerySql anchor = Rename(Body(*parts.front(), nullptr, nullptr, {}), table.columns);
    const std::string name = NextAlias();
    std::string names;
    for (std::size_t i = 0; i < anchor.columns.size(); ++i)
        names += OutputName(i) + ", ";
    std::string sql =
        "WITH RECURSIVE " + name + "(" + names + "lv) AS (SELECT *, 0 FROM (" + anchor.sql + ")";
    for (auto part = parts.begin() + 1; part != firstRecursive; ++part)
        sql += " UNION ALL SELECT *, 0 FROM (" +
               Converted(Body(**part, nullptr, nullptr, {}), anchor.columns).sql + ")";
    for (OutputColumn& column : anchor.columns)
        column.nullable = true;
    for (auto part = firstRecursive; part != parts.end(); ++part)
        sql += " UNION ALL " + RecursivePart(table, **part, name, anchor.columns);
    anchor.sql = sql + ") SELECT " + names.substr(0, names.size() - 2) + " FROM " + name;
    anchor.oneRow = false;
    anchor.base = nullptr;
    for (OutputColumn& column : anchor.columns) {
        column.baseColumn = 0;
        column.readOnly = true;
    }
    return anchor;
}

std::string Translator::RecursivePart(const tsql::CommonTable& table, const tsql::QueryBody& part,
                                      const std::string& name, const std::vector<OutputColumn>& columns) {
    if (part.kind != tsql::QueryBodyKind::Select)
        throw SqlError(253, {table.name});
    CheckRecursivePart(tsql::As<tsql::SelectBody>(part), table.name);
    m_recursions.push_back({&table, name, "", columns, 0});
    QueryOptions options;
    options.countLevels = true;
    const QuerySql query = Body(part, nullptr, nullptr, options);
    m_recursions.pop_back();
    if (query.columns.size() != columns.size())
        throw SqlError(205);
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (query.columns[i].type.id != TypeId::Null && !SameStorage(query.columns[i].type, columns[i].type))
            throw SqlError(240, {columns[i].name, table.name});
    return query.sql;
}

// The level of the row that a recursive part makes; refuses to go deeper than MAXRECURSION.
std::string Translator::LevelSql() {
    const std::int64_t most = m_maxRecursion;
    const SqlType type = SimpleType(TypeId::BigInt);
    Scalar level;
    level.sql = m_recursions.back().alias + ".lv + 1";
    level.type = type;
    return Call("level " + std::to_string(most), {level}, type, Evaluation::EachRow,
                [most](std::span<const Datum> values) {
                    if (most > 0 && values[0].Integer() > most)
                        throw SqlError(530, {std::to_string(most)});
                    return values[0];
                })
        .sql;
}

} // namespace quillon::practice
