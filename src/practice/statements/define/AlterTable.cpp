#include "practice/statements/define/AlterTable.h"

#include "practice/statements/define/Definition.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

bool HasRows(Engine& engine, const Table& table) {
    Prepared first(engine.Connection(), "SELECT 1 FROM " + RowsOf(table) + " LIMIT 1");
    return first.Step();
}

void Add(Engine& engine, const tsql::AlterTableStatement& statement,
         const std::shared_ptr<const Table>& before) {
    const std::shared_ptr<Table> after = CopyOf(engine, *before);
    TableBuilder builder(engine, *after);
    const bool rows = HasRows(engine, *before);
    builder.AddAll(statement.added);
    const Home home{after->database, after->schema};
    if (!after->temporary)
        for (const auto& [name, constraint] : ConstraintsOf(*after)) {
            const auto known = ConstraintsOf(*before);
            const bool old = std::any_of(known.begin(), known.end(), [id = constraint.id](const auto& one) {
                return one.second.id == id;
            });
            if (!old)
                RequireFreeName(engine, home, name);
        }
    for (const tsql::ColumnDefinition& definition : statement.added.columns) {
        const Column& column = *after->FindColumn(definition.name);
        const bool hasDefault = after->DefaultOf(column.id) != nullptr;
        if (rows && !column.nullable && !hasDefault && !column.identity && !column.IsComputed() &&
            !column.IsRowVersion())
            throw SqlError(4901, {column.name, after->name});
        if (!column.stored)
            continue;
        if (!column.IsComputed())
            AddColumnStorage(engine.Connection(), *after, column);
        const bool withValues =
            std::any_of(definition.constraints.begin(), definition.constraints.end(),
                        [](const tsql::ConstraintDefinition& one) { return one.withValues; });
        if (rows && !column.IsComputed())
            FillColumn(engine, after, column, !column.nullable || withValues);
    }
    StoreComputed(engine, *before, after);
    for (const Index& index : after->indexes)
        if (before->FindIndex(index.id) == nullptr)
            BuildIndex(engine, *after, index);
    const bool check = statement.withCheck.value_or(true);
    const auto isNew = [&](ObjectId id) {
        return std::find(builder.added.begin(), builder.added.end(), id) != builder.added.end();
    };
    for (CheckConstraint& one : after->checks)
        one.notTrusted = one.notTrusted || (isNew(one.id) && !check);
    for (ForeignKey& one : after->foreignKeys)
        one.notTrusted = one.notTrusted || (isNew(one.id) && !check);
    PutTable(engine, after);
    if (check && rows)
        for (const ObjectId constraint : builder.added)
            CheckExisting(engine, after, constraint);
}

void AlterColumn(Engine& engine, const tsql::AlterTableStatement& statement,
                 const std::shared_ptr<const Table>& before) {
    const std::shared_ptr<Table> after = CopyOf(engine, *before);
    const Column* old = before->FindColumn(statement.column.name);
    if (old == nullptr)
        throw SqlError(4924, {"ALTER TABLE ALTER COLUMN", statement.column.name, before->name});
    if (old->IsComputed() || old->IsRowVersion())
        throw SqlError(4928, {old->name, old->IsComputed() ? "COMPUTED" : "timestamp"});
    TableBuilder builder(engine, *after);
    Column changed = builder.MakeColumn(statement.column, old->id);
    changed.name = old->name;
    changed.identity = old->identity;
    changed.rowGuid = old->rowGuid;
    changed.defaultObject = old->defaultObject;
    changed.ruleObject = old->ruleObject;
    if (old->identity)
        changed.nullable = false;
    else if (!statement.column.nullable)
        changed.nullable = engine.context.NullByDefault();
    const bool wider = SameStorage(old->type, changed.type) && old->type.collation == changed.type.collation;
    if (!wider || changed.type.id != old->type.id)
        RequireFreeColumn(engine, *before, *old, "ALTER TABLE ALTER COLUMN", old->type.id == changed.type.id);
    RequireConversion(old->type, changed.type, false);
    *std::find_if(after->columns.begin(), after->columns.end(),
                  [&](const Column& one) { return one.id == old->id; }) = changed;
    if (!changed.nullable && old->nullable) {
        Prepared nulls(engine.Connection(), "SELECT 1 FROM " + RowsOf(*before) + " WHERE " +
                                                ColumnStorage(old->id) + " IS NULL LIMIT 1");
        if (nulls.Step())
            throw SqlError(515, {old->name, engine.Writer(before).FullName(), "UPDATE"}, 2);
    }
    if (!wider) {
        Translator translator(engine);
        Scalar value;
        value.sql = "x." + ColumnStorage(old->id);
        value.type = translator.WithCollation(old->type);
        RebuildStorage(
            engine, *before, *after,
            {{old->id, translator.AssignTo(value, changed, engine.Writer(before).FullName()).sql}});
    }
    PutTable(engine, after);
}

void Drop(Engine& engine, const tsql::AlterTableStatement& statement,
          const std::shared_ptr<const Table>& before) {
    const std::shared_ptr<Table> after = CopyOf(engine, *before);
    // Constraints go before the columns that they hang on, in whatever order they are named.
    for (const tsql::AlterTableDrop& drop : statement.drops) {
        if (drop.column)
            continue;
        const auto known = ConstraintsOf(*after);
        const bool found = std::any_of(known.begin(), known.end(), [&](const auto& one) {
            return after->nameRule.Same(one.first, drop.name);
        });
        if (found || !drop.ifExists)
            DropConstraint(engine, *after, drop.name);
    }
    for (const tsql::AlterTableDrop& drop : statement.drops) {
        if (!drop.column)
            continue;
        const Column* column = after->FindColumn(drop.name);
        if (column == nullptr) {
            if (drop.ifExists)
                continue;
            throw SqlError(4924, {"ALTER TABLE DROP COLUMN", drop.name, after->name});
        }
        if (after->columns.size() == 1)
            throw SqlError(4923, {column->name, after->name});
        RequireFreeColumn(engine, *after, *column, "ALTER TABLE DROP COLUMN");
        const int id = column->id;
        std::erase_if(after->columns, [&](const Column& one) { return one.id == id; });
    }
    // The storage of the column stays behind, empty, until the table is made anew.
    for (const Column& column : before->columns)
        if (column.stored && !after->hollow && after->FindColumn(column.id) == nullptr)
            Prepared(engine.Connection(),
                     "UPDATE " + after->storage + " SET " + ColumnStorage(column.id) + " = NULL")
                .Run();
    PutTable(engine, after);
}

void SetConstraints(Engine& engine, const tsql::AlterTableStatement& statement,
                    const std::shared_ptr<const Table>& before) {
    const std::shared_ptr<Table> after = CopyOf(engine, *before);
    const bool check = statement.withCheck.value_or(false) && statement.enable;
    std::vector<ObjectId> checked;
    const auto apply = [&](auto& constraint) {
        constraint.disabled = !statement.enable;
        constraint.notTrusted = !check;
        checked.push_back(constraint.id);
    };
    const auto isMeant = [&](const std::string& name) {
        return statement.all ||
               std::any_of(statement.names.begin(), statement.names.end(),
                           [&](const std::string& one) { return after->nameRule.Same(one, name); });
    };
    for (CheckConstraint& one : after->checks)
        if (isMeant(one.name))
            apply(one);
    for (ForeignKey& one : after->foreignKeys)
        if (isMeant(one.name))
            apply(one);
    if (!statement.all && checked.size() < statement.names.size())
        throw SqlError(4917, {statement.names.front()});
    PutTable(engine, after);
    if (check)
        for (const ObjectId constraint : checked)
            CheckExisting(engine, after, constraint);
}

void SetTriggers(Engine& engine, const tsql::AlterTableStatement& statement,
                 const std::shared_ptr<const Table>& table) {
    std::size_t found = 0;
    for (const ObjectId id : table->triggers) {
        const auto before = engine.store.View()->FindTrigger(id);
        const bool meant = statement.all || std::any_of(statement.names.begin(), statement.names.end(),
                                                        [&](const std::string& one) {
                                                            return before->nameRule.Same(one, before->name);
                                                        });
        if (!meant)
            continue;
        ++found;
        auto after = std::make_shared<Trigger>(*before);
        after->disabled = !statement.enable;
        engine.store.Change([&](CatalogueEditor& editor) { editor.Put(after); });
    }
    if (!statement.all && found < statement.names.size())
        throw SqlError(4920, {statement.names.front(), table->name});
}

void SetProperty(Engine& engine, const tsql::AlterTableStatement& statement,
                 const std::shared_ptr<const Table>& before) {
    const std::shared_ptr<Table> after = CopyOf(engine, *before);
    const auto found = std::find_if(after->columns.begin(), after->columns.end(), [&](const Column& one) {
        return after->nameRule.Same(one.name, statement.columnName);
    });
    if (found == after->columns.end())
        throw SqlError(4924, {"ALTER TABLE ALTER COLUMN", statement.columnName, before->name});
    if (statement.property == "ROWGUIDCOL")
        found->rowGuid = statement.addProperty;
    else if (statement.property == "PERSISTED") {
        found->persisted = statement.addProperty;
        found->stored = found->stored || statement.addProperty;
        StoreComputed(engine, *before, after);
    } else if (statement.property != "NOT FOR REPLICATION" && statement.property != "SPARSE")
        throw SqlError::NotSupported("ALTER COLUMN ... " + statement.property);
    PutTable(engine, after);
}

} // namespace

void AlterTable(Engine& engine, const tsql::AlterTableStatement& statement) {
    const auto table = RequireTable(engine, statement.name, 4902);
    switch (statement.action) {
    case tsql::AlterTableAction::Add: return Add(engine, statement, table);
    case tsql::AlterTableAction::AlterColumn: return AlterColumn(engine, statement, table);
    case tsql::AlterTableAction::ColumnProperty: return SetProperty(engine, statement, table);
    case tsql::AlterTableAction::Drop: return Drop(engine, statement, table);
    case tsql::AlterTableAction::Constraints: return SetConstraints(engine, statement, table);
    case tsql::AlterTableAction::Triggers: return SetTriggers(engine, statement, table);
    case tsql::AlterTableAction::Set:
    case tsql::AlterTableAction::Rebuild: return; // how rows lie on the disk is not for the user to see
    }
}

} // namespace quillon::practice
