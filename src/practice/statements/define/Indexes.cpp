#include "practice/statements/define/Indexes.h"

#include "practice/storage/TableStorage.h"
#include "practice/values/SqlError.h"
#include "practice/values/StorageForm.h"

#include <sqlite3.h>

namespace quillon::practice {

std::string FilterSql(Engine& engine, const Table& table, const Index& index) {
    Translator translator(engine, Surroundings(table));
    Scope scope;
    auto copy = std::make_shared<Table>(table);
    copy->rowSet = true;
    translator.AddTable(copy, {}, scope);
    const std::string prefix = scope.sources.front()->alias + ".";
    for (SourceColumn& column : scope.sources.front()->columns)
        if (column.sql.starts_with(prefix))
            column.sql.erase(0, prefix.size());
    const auto parsed = engine.StoredExpression(index.filter);
    std::string sql = translator.Condition(*parsed->expression, &scope);
    for (std::size_t at = sql.find('f'); at != std::string::npos; at = sql.find('f', at + 1)) {
        const std::size_t end = sql.find_first_not_of("0123456789", at + 1);
        if (end != at + 1 && end != std::string::npos && sql[end] == '(')
            throw SqlError::NotSupported("a filtered index with this condition");
    }
    return sql;
}

namespace {

// One key that is there twice, as 1505 shows it.
std::string DuplicateKey(Engine& engine, const Table& table, const Index& index) {
    std::string list;
    std::string group;
    for (const IndexKey& key : index.keys) {
        const std::string name = ColumnStorage(key.columnId);
        list += (list.empty() ? "" : ", ") + name;
        group += (group.empty() ? "" : ", ") + Collated(name, table.FindColumn(key.columnId)->type);
    }
    Prepared find(engine.Connection(), "SELECT " + list + " FROM " + table.storage + " GROUP BY " + group +
                                           " HAVING count(*) > 1 LIMIT 1");
    if (!find.Step())
        return "()";
    std::string text;
    for (std::size_t i = 0; i < index.keys.size(); ++i) {
        const SqlType& type = table.FindColumn(index.keys[i].columnId)->type;
        const Datum value = LoadColumn(find.Handle(), static_cast<int>(i), type);
        text += (i > 0 ? ", " : "") + (value.IsNull() ? std::string("<NULL>") : ToText(value));
    }
    return "(" + text + ")";
}

} // namespace

void BuildIndex(Engine& engine, const Table& table, const Index& index) {
    try {
        CreateIndexStorage(engine.Connection(), table, index,
                           index.filter.empty() ? std::string() : FilterSql(engine, table, index));
    } catch (const StoreFailure& failure) {
        if (failure.code != SQLITE_CONSTRAINT_UNIQUE)
            throw;
        throw SqlError(1505, {TwoPartName(engine, table), index.name, DuplicateKey(engine, table, index)});
    }
}

void StoreComputed(Engine& engine, const Table& before, const std::shared_ptr<const Table>& after) {
    for (const Column& column : after->columns) {
        const Column* old = before.FindColumn(column.id);
        if (!column.IsComputed() || !column.stored || (old != nullptr && old->stored))
            continue;
        if (after->hollow)
            continue;
        AddColumnStorage(engine.Connection(), *after, column);
        Translator translator(engine);
        Scope scope;
        auto reading = std::make_shared<Table>(before);
        reading->rowSet = true;
        translator.AddTable(reading, {}, scope);
        const auto parsed = engine.StoredExpression(column.computed);
        const std::string value =
            translator.ConvertTo(translator.Value(*parsed->expression, &scope), column.type).sql;
        const std::string& alias = scope.sources.front()->alias;
        Prepared fill(engine.Connection(), "UPDATE " + after->storage + " AS " + alias + " SET " +
                                               ColumnStorage(column.id) + " = " + value);
        engine.Step(fill);
    }
}

void CreateIndex(Engine& engine, const tsql::CreateIndexStatement& statement) {
    const auto before = RequireTable(engine, statement.table, 1088);
    const std::shared_ptr<Table> after = CopyOf(engine, *before);
    if (statement.dropExisting) {
        const Index* old = after->FindIndex(statement.index.name);
        if (old == nullptr)
            throw SqlError(7999, {statement.index.name, before->name});
        DropIndexStorage(engine.Connection(), *before, *old);
        std::erase_if(after->indexes, [id = old->id](const Index& index) { return index.id == id; });
    }
    TableBuilder builder(engine, *after);
    const Index index = builder.AddIndex(statement.index);
    StoreComputed(engine, *before, after);
    BuildIndex(engine, *after, index);
    PutTable(engine, after);
}

void AlterIndex(Engine& engine, const tsql::AlterIndexStatement& statement) {
    const auto before = RequireTable(engine, statement.table, 1088);
    const std::shared_ptr<Table> after = CopyOf(engine, *before);
    bool found = statement.index.empty();
    for (Index& index : after->indexes) {
        if (!statement.index.empty() && !after->nameRule.Same(index.name, statement.index))
            continue;
        found = true;
        if (statement.action == tsql::AlterIndexStatement::Action::Disable) {
            DropIndexStorage(engine.Connection(), *before, index);
            index.disabled = true;
        } else if (statement.action == tsql::AlterIndexStatement::Action::Rebuild && index.disabled) {
            index.disabled = false;
            BuildIndex(engine, *after, index);
        } else if (statement.action == tsql::AlterIndexStatement::Action::Set)
            for (const tsql::OptionSetting& option : statement.options)
                if (option.name == "IGNORE_DUP_KEY")
                    index.ignoreDuplicates = UpperCase(option.value) == "ON";
    }
    if (!found)
        throw SqlError(2727, {statement.index});
    PutTable(engine, after);
}

void DropIndexes(Engine& engine, const tsql::DropIndexStatement& statement) {
    for (const tsql::DropIndexItem& item : statement.items) {
        Translator translator(engine);
        const auto before = std::dynamic_pointer_cast<const Table>(translator.FindSourceObject(item.table));
        const Index* index = before ? before->FindIndex(item.index) : nullptr;
        if (index == nullptr) {
            if (statement.ifExists)
                continue;
            throw SqlError(3701, {"drop", "index", item.table.Text() + "." + item.index}, 6);
        }
        if (index->IsConstraint())
            throw SqlError(3723, {item.table.Text() + "." + index->name,
                                  index->primaryKey ? "PRIMARY KEY" : "UNIQUE KEY"});
        const std::shared_ptr<Table> after = CopyOf(engine, *before);
        DropIndexStorage(engine.Connection(), *before, *index);
        std::erase_if(after->indexes, [&](const Index& one) { return one.id == index->id; });
        PutTable(engine, after);
    }
}

} // namespace quillon::practice
