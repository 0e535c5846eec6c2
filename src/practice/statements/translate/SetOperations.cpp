// UNION, EXCEPT and INTERSECT.
#include "practice/statements/translate/Translator.h"

#include "practice/tsql/ExpressionText.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

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

} // namespace quillon::practice
