#include "practice/statements/define/Maintenance.h"

#include "practice/statements/define/Tables.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

void PutRenamed(CatalogueEditor& editor, const SchemaObject& object, const std::string& name) {
    const auto put = [&](auto copy) {
        copy->name = name;
        editor.Put(copy);
    };
    if (const auto* table = dynamic_cast<const Table*>(&object))
        put(std::make_shared<Table>(*table));
    else if (const auto* trigger = dynamic_cast<const Trigger*>(&object))
        put(std::make_shared<Trigger>(*trigger));
    else if (const auto* module = dynamic_cast<const Module*>(&object))
        put(std::make_shared<Module>(*module));
    else if (const auto* synonym = dynamic_cast<const Synonym*>(&object))
        put(std::make_shared<Synonym>(*synonym));
    else if (const auto* text = dynamic_cast<const TextObject*>(&object))
        put(std::make_shared<TextObject>(*text));
    else if (const auto* alias = dynamic_cast<const AliasType*>(&object))
        put(std::make_shared<AliasType>(*alias));
}

void RenameConstraint(Table& table, ObjectId id, const std::string& name) {
    const auto rename = [&](auto& list) {
        for (auto& one : list)
            if (one.id == id) {
                one.name = name;
                one.systemNamed = false;
            }
    };
    rename(table.defaults);
    rename(table.checks);
    rename(table.foreignKeys);
    for (Index& index : table.indexes)
        if (index.IsConstraint() && index.constraint == id)
            index.name = name;
}

// Runs `change` on a copy of the table and puts it in place.
template <class Change>
void ChangeTable(Engine& engine, const Table& table, Change change) {
    StatementScope scope(engine, WritesOf(table));
    const std::shared_ptr<Table> copy = CopyOf(engine, table);
    change(*copy);
    PutTable(engine, copy);
    scope.End();
}

} // namespace

void RenameObject(Engine& engine, ObjectId id, const std::string& name) {
    const auto named = engine.store.View()->FindNamed(id);
    if (!named)
        throw SqlError(15225, {name, "", ""});
    const Database* home = engine.store.View()->FindDatabase(named->database);
    const NamedObject* taken = home->FindName(named->schema, name);
    if (taken != nullptr && taken->id != id)
        throw SqlError(15335, {name, "object"});
    if (named->object.parent != 0)
        return ChangeTable(engine, *engine.store.View()->FindTable(named->object.parent),
                           [&](Table& table) { RenameConstraint(table, id, name); });
    StatementScope scope(engine, StoreSession::Writes::Data);
    const auto object = engine.store.View()->FindObject(id);
    engine.store.Change([&](CatalogueEditor& editor) { PutRenamed(editor, *object, name); });
    scope.End();
}

void RenameColumn(Engine& engine, const Table& table, int columnId, const std::string& name) {
    const Column* taken = table.FindColumn(name);
    if (taken != nullptr && taken->id != columnId)
        throw SqlError(15335, {name, "COLUMN"});
    ChangeTable(engine, table, [&](Table& copy) {
        for (Column& column : copy.columns)
            if (column.id == columnId)
                column.name = name;
    });
}

void RenameIndex(Engine& engine, const Table& table, int indexId, const std::string& name) {
    const Index* taken = table.FindIndex(name);
    if (taken != nullptr && taken->id != indexId)
        throw SqlError(15335, {name, "INDEX"});
    ChangeTable(engine, table, [&](Table& copy) {
        for (Index& index : copy.indexes)
            if (index.id == indexId)
                index.name = name;
    });
}

void RenameDatabase(Engine& engine, DatabaseId id, const std::string& name) {
    if (engine.store.View()->FindDatabase(name) != nullptr)
        throw SqlError(1801, {name});
    StatementScope scope(engine, StoreSession::Writes::Data);
    engine.store.Change([&](CatalogueEditor& editor) { editor.RenameDatabase(id, name); });
    scope.End();
}

void BindObject(Engine& engine, const Table& table, int columnId, ObjectId object, bool rule) {
    if (!rule && object != 0 && table.DefaultOf(columnId) != nullptr)
        throw SqlError(15103);
    ChangeTable(engine, table, [&](Table& copy) {
        for (Column& column : copy.columns)
            if (column.id == columnId)
                (rule ? column.ruleObject : column.defaultObject) = object;
    });
}

void SetDatabaseOption(Engine& engine, DatabaseId id, const std::string& option, const std::string& value) {
    StatementScope scope(engine, StoreSession::Writes::Data);
    engine.store.Change([&](CatalogueEditor& editor) { editor.EditDatabase(id).options[option] = value; });
    scope.End();
}

} // namespace quillon::practice
