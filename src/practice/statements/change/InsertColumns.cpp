#include "practice/statements/change/InsertColumns.h"

#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

// A view without a trigger that stands in for it: its columns are those of its one table.
InsertColumns ThroughView(Translator& translator, const Module& view,
                          const tsql::InsertStatement& statement) {
    Scope scope;
    tsql::NamedTable named;
    named.name = statement.target.name;
    translator.FromOne(named, scope);
    const Source& source = *scope.sources.front();
    if (!source.hasRowId)
        throw SqlError(4405, {view.name});
    std::vector<tsql::Name> names;
    const auto add = [&](const SourceColumn& column) {
        const Column* base =
            column.baseColumn == 0 ? nullptr : source.rowTable->FindColumn(column.baseColumn);
        if (base == nullptr)
            throw SqlError(4406, {view.name});
        names.push_back({{base->name}, statement.target.position});
    };
    if (!statement.hasColumns)
        for (const SourceColumn& column : source.columns)
            if (!column.identity)
                add(column);
    for (const tsql::Name& name : statement.columns) {
        const auto found = FindColumns(scope, {{name.Last()}, name.position});
        if (found.empty())
            throw SqlError(207, {name.Last()});
        add(*found.front().column);
    }
    return BindColumns(translator.Shared(), source.rowTable, names, true, names.size(), false);
}

} // namespace

InsertColumns BindInsert(Translator& translator, const tsql::InsertStatement& statement) {
    Engine& engine = translator.Shared();
    const Target target = RequireTarget(translator, statement.target);
    const std::size_t values = statement.rows.empty() ? 0 : statement.rows.front().size();
    if (target.view) {
        if (InsteadOfTrigger(engine, target.view->triggers, TriggerEvent::Insert))
            return BindColumns(engine, ViewModel(*target.view), statement.columns, statement.hasColumns,
                               values, true);
        RequireUnchecked(translator, *target.view);
        return ThroughView(translator, *target.view, statement);
    }
    const bool bulk = statement.source == tsql::InsertSource::Bulk;
    const bool instead = (!bulk || statement.bulk.fireTriggers) &&
                         InsteadOfTrigger(engine, target.table->triggers, TriggerEvent::Insert) != nullptr;
    return BindColumns(engine, target.table, statement.columns,
                       statement.hasColumns || statement.source == tsql::InsertSource::Defaults, values,
                       instead, bulk);
}

InsertColumns BindColumns(Engine& engine, std::shared_ptr<const Table> table,
                          const std::vector<tsql::Name>& names, bool hasNames, std::size_t valueCount,
                          bool instead, bool bulk) {
    InsertColumns bound;
    bound.table = table;
    bound.instead = instead;
    bound.fullName = table->kind == ObjectKind::View ? table->name : engine.Writer(table).FullName();
    const bool allowed = engine.context.Options().identityInsert == table->id;
    if (!hasNames) {
        for (const Column& column : table->columns)
            if (!column.IsComputed() && !column.identity)
                bound.columns.push_back(&column);
        // One value more than there are columns to give: the identity was meant.
        if (table->IdentityColumn() != nullptr && (allowed || valueCount == bound.columns.size() + 1))
            throw SqlError(8101, {table->name});
        return bound;
    }
    for (const tsql::Name& name : names) {
        const Column* column = table->FindColumn(name.Last());
        if (column == nullptr)
            throw SqlError(207, {name.Last()});
        if (std::find(bound.columns.begin(), bound.columns.end(), column) != bound.columns.end())
            throw SqlError(264, {column->name});
        if (column->IsComputed() && !instead)
            throw SqlError(271, {column->name});
        if (column->identity) {
            if (!allowed && !instead && !bulk)
                throw SqlError(544, {table->name});
            bound.explicitIdentity = true;
        }
        bound.columns.push_back(column);
    }
    if (allowed && !bulk && !bound.explicitIdentity && table->IdentityColumn() != nullptr)
        throw SqlError(545, {table->name});
    return bound;
}

void InsertColumns::RequireWritable(const Column& column) const {
    if (instead)
        return;
    if (column.IsComputed())
        throw SqlError(271, {column.name});
    if (column.IsRowVersion())
        throw SqlError(273);
}

std::string InsertColumns::Given(Translator& translator, const Column& column, const tsql::Expression* value,
                                 const Scope* scope) const {
    if (value == nullptr)
        return column.IsRowVersion() || column.identity ? "NULL"
                                                        : DefaultValueOf(translator, *table, column).sql;
    const Scalar scalar = translator.Value(*value, scope);
    if (!scalar.IsBareNull())
        RequireWritable(column);
    return translator.AssignTo(scalar, column, fullName).sql;
}

std::vector<std::string> InsertColumns::Complete(Translator& translator,
                                                 const std::map<int, std::string>& given) const {
    std::vector<std::string> row;
    for (const Column& column : table->columns) {
        if (!column.stored)
            continue;
        const auto found = given.find(column.id);
        if (found != given.end())
            row.push_back(found->second);
        else if (column.IsComputed() || column.identity || column.IsRowVersion())
            row.push_back("NULL");
        else
            row.push_back(DefaultValueOf(translator, *table, column).sql);
    }
    return row;
}

void GiveIdentity(Engine& engine, const InsertColumns& target, TableWriter& writer, StoredRow& row) {
    const Column* identity = target.table->IdentityColumn();
    if (identity == nullptr)
        return;
    std::int64_t value = 0;
    if (!target.explicitIdentity)
        value = writer.GiveIdentity(row);
    else {
        const auto given = writer.GivenIdentity(row);
        if (!given)
            throw SqlError(339);
        value = *given;
        engine.store.Shared().Identities().Follow(target.table->id, *identity->identity, value);
        if (!target.table->temporary)
            engine.store.NoteIdentity(target.table->id);
    }
    engine.context.NoteIdentity(Convert(Datum::BigInt(value), DecimalType(38, 0, TypeId::Numeric)));
}

} // namespace quillon::practice
