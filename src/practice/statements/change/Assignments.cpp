#include "practice/statements/change/Assignments.h"

#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

const SourceColumn* FindIn(const Source& source, const std::string& name) {
    for (const SourceColumn& column : source.columns)
        if (source.columnRule.Same(column.name, name))
            return &column;
    return nullptr;
}

const Column& ColumnToSet(const tsql::Name& name, const Source& source, const Table& table, bool instead) {
    const SourceColumn* seen = FindIn(source, name.Last());
    if (seen == nullptr)
        throw SqlError(207, {name.Last()});
    const Column* column =
        instead || source.table ? table.FindColumn(name.Last()) : table.FindColumn(seen->baseColumn);
    if (column == nullptr)
        throw SqlError(4406, {source.exposed});
    if (instead)
        return *column;
    if (column->IsComputed())
        throw SqlError(271, {column->name});
    if (column->IsRowVersion())
        throw SqlError(272);
    if (column->identity)
        throw SqlError(8102, {column->name});
    return *column;
}

} // namespace

std::vector<int> Assignments::Places() const {
    std::vector<int> places;
    for (const ColumnValue& value : columns)
        places.push_back(value.place);
    return places;
}

Assignments BindAssignments(Translator& translator, const std::vector<tsql::SetClause>& sets,
                            const Scope& scope, const Source& source,
                            const std::shared_ptr<const Table>& table, bool instead) {
    Assignments bound;
    Engine& engine = translator.Shared();
    int place = 0;
    std::map<int, int> places;
    for (const Column& column : table->columns)
        if (column.stored)
            places[column.id] = place++;
    const std::string fullName = instead ? table->name : engine.Writer(table).FullName();
    for (const tsql::SetClause& set : sets)
        if (!set.variable.empty())
            translator.needs.liveVariables.push_back(set.variable);
    for (const tsql::SetClause& set : sets) {
        Scalar value;
        const Column* column =
            set.column.Empty() ? nullptr : &ColumnToSet(set.column, source, *table, instead);
        if (set.value->kind == tsql::ExpressionKind::DefaultValue && column != nullptr)
            value = DefaultValueOf(translator, *table, *column);
        else
            value = translator.Value(*set.value, &scope);
        if (set.op != tsql::AssignmentOperator::Set) {
            const Scalar before =
                column != nullptr
                    ? translator.ColumnScalar({&source, FindIn(source, set.column.Last())}, scope)
                    : translator.VariableScalar(set.variable);
            value = translator.Compound(set.op, before, value);
        }
        if (column != nullptr) {
            for (const Assignments::ColumnValue& other : bound.columns)
                if (other.column == column)
                    throw SqlError(264, {column->name});
            value = translator.AssignTo(value, *column, fullName);
            bound.columns.push_back({column, places.at(column->id), value.sql});
        }
        if (!set.variable.empty()) {
            const Variable* variable = engine.context.FindVariable(set.variable);
            if (variable == nullptr || variable->table)
                throw SqlError(137, {set.variable});
            bound.variables.push_back(
                {set.variable, variable->type, translator.ConvertTo(value, variable->type).sql});
        }
    }
    std::sort(bound.columns.begin(), bound.columns.end(),
              [](const auto& left, const auto& right) { return left.place < right.place; });
    return bound;
}

} // namespace quillon::practice
