#include "practice/statements/change/TableWriter.h"
#include "practice/statements/change/Targets.h"
#include "practice/statements/define/AlterTable.h"
#include "practice/statements/define/SchemaBinding.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

void FillColumn(Engine& engine, const std::shared_ptr<const Table>& table, const Column& column,
                bool withDefault) {
    const std::string name = ColumnStorage(column.id);
    if (!column.identity && !column.IsRowVersion()) {
        if (!withDefault)
            return;
        Translator translator(engine);
        const std::string value = DefaultValueOf(translator, *table, column).sql;
        Prepared fill(engine.Connection(), "UPDATE " + table->storage + " SET " + name + " = " + value);
        engine.Step(fill);
        return;
    }
    std::vector<std::int64_t> rowIds;
    Prepared rows(engine.Connection(), "SELECT rowid FROM " + table->storage + " ORDER BY rowid");
    while (rows.Step())
        rowIds.push_back(rows.Integer(0));
    rows.Reset();
    TableWriter& writer = engine.Writer(table);
    const int place = writer.PlaceOf(column.id);
    StoredRow row;
    for (const std::int64_t id : rowIds) {
        writer.Read(id, row);
        if (column.identity)
            writer.GiveIdentity(row);
        else
            writer.Complete(row, "UPDATE");
        writer.Update(id, row, {place});
    }
}

void RebuildStorage(Engine& engine, const Table& before, const Table& after,
                    const std::map<int, std::string>& values) {
    if (before.hollow)
        return;
    Table fresh = after;
    const std::string schema(StorageSchema(before));
    fresh.storage = schema + ".n" + std::to_string(after.id);
    fresh.indexes.clear();
    CreateTableStorage(engine.Connection(), fresh);
    std::string names = "rowid";
    std::string list = "x.rowid";
    for (const Column& column : after.columns) {
        if (!column.stored)
            continue;
        const auto value = values.find(column.id);
        names += ", " + ColumnStorage(column.id);
        list += ", " + (value == values.end() ? "x." + ColumnStorage(column.id) : value->second);
    }
    Prepared copy(engine.Connection(), "INSERT INTO " + fresh.storage + "(" + names + ") SELECT " + list +
                                           " FROM " + before.storage + " AS x");
    engine.Step(copy);
    copy.Reset();
    DropTableStorage(engine.Connection(), before);
    engine.store.Run("ALTER TABLE " + fresh.storage + " RENAME TO " + std::string(StorageName(before)));
    for (const Index& index : after.indexes)
        if (!index.disabled)
            BuildIndex(engine, after, index);
}

namespace {

void CheckRows(Engine& engine, const std::shared_ptr<const Table>& table, const CheckConstraint& check) {
    Translator translator(engine, Surroundings(*table));
    Scope scope;
    const std::string from = translator.AddTable(table, {}, scope);
    const auto parsed = engine.StoredExpression(check.text);
    Prepared broken(engine.Connection(), "SELECT 1 FROM " + from + " WHERE NOT (" +
                                             translator.Condition(*parsed->expression, &scope) + ") LIMIT 1");
    if (!engine.Step(broken))
        return;
    const TableWriter& writer = engine.Writer(table);
    const Column* column = check.columnId == 0 ? nullptr : table->FindColumn(check.columnId);
    throw SqlError(547,
                   {"ALTER TABLE", "CHECK", check.name,
                    writer.FullName().substr(0, writer.FullName().find('.')), writer.TwoPartName(),
                    column == nullptr ? "" : ", column '" + column->name + "'"},
                   0);
}

void CheckRows(Engine& engine, const std::shared_ptr<const Table>& table, const ForeignKey& key) {
    const auto parent = engine.store.View()->FindTable(key.referenced);
    std::string sql = "SELECT 1 FROM " + RowsOf(*table) + " AS x WHERE ";
    std::string match;
    for (std::size_t i = 0; i < key.columns.size(); ++i) {
        const Column& column = *parent->FindColumn(key.referencedColumns[i]);
        sql += "x." + ColumnStorage(key.columns[i]) + " IS NOT NULL AND ";
        match += (i > 0 ? " AND " : "") + Collated("p." + ColumnStorage(column.id), column.type) + " = x." +
                 ColumnStorage(key.columns[i]);
    }
    Prepared orphans(engine.Connection(), sql + "NOT EXISTS (SELECT 1 FROM " + RowsOf(*parent) +
                                              " AS p WHERE " + match + ") LIMIT 1");
    if (!orphans.Step())
        return;
    const TableWriter& writer = engine.Writer(parent);
    const std::string column = key.columns.size() == 1
                                   ? ", column '" + parent->FindColumn(key.referencedColumns[0])->name + "'"
                                   : "";
    throw SqlError(547,
                   {"ALTER TABLE", parent->id == table->id ? "FOREIGN KEY SAME TABLE" : "FOREIGN KEY",
                    key.name, writer.FullName().substr(0, writer.FullName().find('.')), writer.TwoPartName(),
                    column},
                   0);
}

// What hangs on a column, as messages call it.
class Dependents {
  public:
    void Add(const char* kind, const std::string& name) { m_all.emplace_back(kind, name); }

    // A default only minds a change of the type itself, a check any but that of a varying length.
    void AddOwn(const Table& table, const Column& column, bool keepsType) {
        if (const DefaultConstraint* value = table.DefaultOf(column.id); value != nullptr && !keepsType)
            Add("object", value->name);
        for (const Index& index : table.indexes)
            if (Holds(index, column.id))
                Add(index.IsConstraint() ? "object" : "index", index.name);
        for (const ForeignKey& key : table.foreignKeys)
            if (std::find(key.columns.begin(), key.columns.end(), column.id) != key.columns.end())
                Add("object", key.name);
        const auto mentions = [&](const std::string& text) {
            return table.nameRule.IsMentioned(column.name, text);
        };
        if (!keepsType || column.type.IsFixedLength())
            for (const CheckConstraint& check : table.checks)
                if (check.columnId == column.id || mentions(check.text))
                    Add("object", check.name);
        for (const Column& other : table.columns)
            if (other.IsComputed() && mentions(other.computed))
                Add("column", other.name);
    }

    // The foreign keys of `child` that point to it.
    void AddForeignKeys(const Table& child, const Table& table, const Column& column) {
        for (const ForeignKey& key : child.foreignKeys)
            if (key.referenced == table.id &&
                std::find(key.referencedColumns.begin(), key.referencedColumns.end(), column.id) !=
                    key.referencedColumns.end())
                Add("object", key.name);
    }

    std::vector<SqlError> Told(const Column& column) const {
        std::vector<SqlError> errors;
        for (const auto& [kind, name] : m_all)
            errors.emplace_back(5074,
                                std::initializer_list<std::string_view>{kind, name, "column", column.name});
        return errors;
    }

  private:
    static bool Holds(const Index& index, int column) {
        return std::any_of(index.keys.begin(), index.keys.end(),
                           [&](const IndexKey& one) { return one.columnId == column; }) ||
               std::find(index.included.begin(), index.included.end(), column) != index.included.end();
    }

    std::vector<std::pair<std::string, std::string>> m_all;
};

} // namespace

void CheckExisting(Engine& engine, const std::shared_ptr<const Table>& table, ObjectId constraint) {
    for (const CheckConstraint& check : table->checks)
        if (check.id == constraint)
            CheckRows(engine, table, check);
    for (const ForeignKey& key : table->foreignKeys)
        if (key.id == constraint)
            CheckRows(engine, table, key);
}

void RequireFreeColumn(Engine& engine, const Table& table, const Column& column, const char* action,
                       bool keepsType) {
    Dependents dependents;
    dependents.AddOwn(table, column, keepsType);
    for (const ObjectId other : table.referencedBy)
        if (const auto child = engine.store.View()->FindTable(other))
            dependents.AddForeignKeys(*child, table, column);
    if (!table.temporary)
        if (const auto module = ModuleBoundTo(engine, table, column.name))
            dependents.Add("object", module->name);
    std::vector<SqlError> causes = dependents.Told(column);
    if (!causes.empty())
        throw ConsequentError(SqlError(4922, {action, column.name}), std::move(causes));
}

void DropConstraint(Engine& engine, Table& table, const std::string& name) {
    const auto named = [&](const auto& one) { return table.nameRule.Same(one.name, name); };
    if (std::erase_if(table.defaults, named) + std::erase_if(table.checks, named) +
            std::erase_if(table.foreignKeys, named) >
        0)
        return;
    const auto found = std::find_if(table.indexes.begin(), table.indexes.end(),
                                    [&](const Index& index) { return index.IsConstraint() && named(index); });
    if (found == table.indexes.end())
        throw SqlError(3728, {name});
    for (const ObjectId other : table.referencedBy)
        if (const auto child = engine.store.View()->FindTable(other))
            for (const ForeignKey& key : child->foreignKeys)
                if (key.referenced == table.id && key.referencedIndex == found->id)
                    throw SqlError(3725, {found->name, child->name, key.name});
    DropIndexStorage(engine.Connection(), table, *found);
    table.indexes.erase(found);
}

} // namespace quillon::practice
