// CREATE TABLE, DROP TABLE, TRUNCATE TABLE, SELECT INTO's table, table variables.
#include "practice/statements/define/Tables.h"

#include "practice/statements/define/Indexes.h"
#include "practice/statements/define/SchemaBinding.h"
#include "practice/storage/SystemDatabases.h"
#include "practice/storage/TableStorage.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

// Tells a table that others refer to (or no longer refer to) it.
void SetReference(CatalogueEditor& editor, ObjectId referenced, ObjectId referencing, bool refers) {
    const auto before = editor.Now().FindTable(referenced);
    if (!before)
        return;
    auto& list = before->referencedBy;
    const bool known = std::find(list.begin(), list.end(), referencing) != list.end();
    if (known == refers)
        return;
    auto after = std::make_shared<Table>(*before);
    if (refers)
        after->referencedBy.push_back(referencing);
    else
        std::erase(after->referencedBy, referencing);
    editor.Put(after);
}

} // namespace

Home HomeFor(Engine& engine, const tsql::Name& name) {
    if (IsSharedTemporaryName(name.Last()))
        return {tempDatabase, dboSchema};
    const auto view = engine.store.View();
    Home home;
    const Database* database = name.Database().empty() ? view->FindDatabase(engine.context.CurrentDatabase())
                                                       : view->FindDatabase(name.Database());
    if (database == nullptr)
        throw SqlError(2702, {name.Database()});
    home.database = database->id;
    home.nameRule = database->Rule();
    if (name.Schema().empty()) {
        home.schema = engine.context.DefaultSchema();
        return home;
    }
    const Schema* schema = database->FindSchema(name.Schema());
    if (schema == nullptr)
        throw SqlError(2760, {name.Schema()});
    home.schema = schema->id;
    return home;
}

void Settle(SchemaObject& object, const Home& home) {
    object.database = home.database;
    object.schema = home.schema;
    object.nameRule = home.nameRule;
}

void RequireWritable(Engine& engine, DatabaseId database) {
    const auto view = engine.store.View();
    const Database* home = view->FindDatabase(database);
    if (home != nullptr && home->Option("READ_ONLY"))
        throw SqlError(3906, {home->name});
}

void RequireFreeName(Engine& engine, const Home& home, const std::string& name) {
    if (engine.store.View()->FindDatabase(home.database)->FindName(home.schema, name) != nullptr)
        throw SqlError(2714, {name}, 6);
}

std::shared_ptr<const Table> RequireTable(Engine& engine, const tsql::Name& name, int errorNumber) {
    Translator translator(engine);
    const auto table = std::dynamic_pointer_cast<const Table>(translator.FindSourceObject(name));
    if (!table || table->kind != ObjectKind::Table)
        throw SqlError(errorNumber, {name.Text()});
    return table;
}

std::string TwoPartName(Engine& engine, const SchemaObject& object) {
    const auto view = engine.store.View();
    const Database* database = view->FindDatabase(object.database);
    return std::string(database == nullptr ? "dbo" : database->SchemaName(object.schema)) + "." + object.name;
}

std::shared_ptr<Table> CopyOf(Engine& engine, const Table& table) {
    auto copy = std::make_shared<Table>(table);
    copy->version = engine.store.Shared().NextVersion();
    copy->modified = CurrentMoment();
    return copy;
}

void PutTable(Engine& engine, std::shared_ptr<Table> table) {
    if (table->temporary) {
        table->version = engine.store.Shared().NextVersion();
        const int scope = engine.context.TemporaryScope();
        engine.store.Temporary().Put(std::move(table), scope);
        return;
    }
    engine.store.Change([&](CatalogueEditor& editor) {
        const auto before = editor.Now().FindTable(table->id);
        editor.Put(table);
        std::set<ObjectId> parents;
        for (const ForeignKey& key : table->foreignKeys)
            parents.insert(key.referenced);
        for (const ObjectId parent : parents)
            SetReference(editor, parent, table->id, true);
        if (before)
            for (const ForeignKey& key : before->foreignKeys)
                if (!parents.contains(key.referenced))
                    SetReference(editor, key.referenced, table->id, false);
    });
}

namespace {

// Conditions of filtered indexes that cannot be kept are refused here, hollow or not.
void CreateStorage(Engine& engine, const Table& table) {
    CreateTableStorage(engine.Connection(), table);
    for (const Index& index : table.indexes)
        if (!index.filter.empty() && !index.disabled)
            CreateIndexStorage(engine.Connection(), table, index, FilterSql(engine, table, index));
}

} // namespace

std::shared_ptr<const Table> WithStorage(Engine& engine, const std::shared_ptr<const Table>& table) {
    if (!table->hollow)
        return table;
    // The statement itself may have stored it since it was looked up.
    if (const auto now = engine.store.View()->FindTable(table->id); now && !now->hollow)
        return now;
    engine.store.Change([&](CatalogueEditor& editor) { editor.MarkStored(table->id); });
    const auto stored = engine.store.View()->FindTable(table->id);
    CreateStorage(engine, *stored);
    return stored;
}

std::shared_ptr<const Table> CreateTableObject(Engine& engine, std::shared_ptr<Table> table) {
    table->created = table->modified = CurrentMoment();
    table->storage = (table->temporary ? "temp.t" : "main.t") + std::to_string(table->id);
    table->hollow = !table->temporary;
    CreateStorage(engine, *table);
    if (!table->temporary) {
        // The names of its constraints must be free as well.
        const Home home{table->database, table->schema};
        for (const auto& [name, constraint] : ConstraintsOf(*table))
            RequireFreeName(engine, home, name);
    }
    const ObjectId id = table->id;
    PutTable(engine, std::move(table));
    if (auto temporary = engine.store.Temporary().Find(id))
        return temporary;
    return engine.store.View()->FindTable(id);
}

namespace {

std::shared_ptr<Table> NewTable(Engine& engine, const tsql::Name& name) {
    auto table = std::make_shared<Table>();
    table->id = engine.store.Shared().NextObjectId();
    table->name = name.Last();
    table->temporary = IsPrivateName(name.Last());
    if (table->temporary) {
        table->database = tempDatabase;
        const int scope = engine.context.TemporaryScope();
        for (const TemporaryTables::Entry& entry : engine.store.Temporary().All().tables)
            if (entry.scope == scope && !entry.table->variable && SameName(entry.table->name, table->name))
                throw SqlError(2714, {table->name}, 6);
        if (engine.store.Temporary().FindProcedure(table->name))
            throw SqlError(2714, {table->name}, 6);
        return table;
    }
    const Home home = HomeFor(engine, name);
    RequireFreeName(engine, home, name.Last());
    Settle(*table, home);
    if (IsSharedTemporaryName(table->name))
        engine.store.NoteShared(table->id);
    return table;
}

} // namespace

std::shared_ptr<const Table> CreateTableFor(Engine& engine, const tsql::Name& name,
                                            const std::vector<OutputColumn>& columns) {
    const std::shared_ptr<Table> table = NewTable(engine, name);
    for (const OutputColumn& output : columns) {
        Column column;
        column.id = ++table->lastColumnId;
        column.name = output.name;
        if (column.name.empty())
            throw SqlError(1038);
        if (table->FindColumn(column.name) != nullptr)
            throw SqlError(2705, {column.name, table->name});
        column.type = output.type.id == TypeId::Null ? SimpleType(TypeId::Int) : output.type;
        if (column.type.id == TypeId::RowVersion)
            column.type = BinaryType(TypeId::Binary, 8);
        column.nullable = output.nullable;
        if (output.identity && table->IdentityColumn() == nullptr)
            column.identity = Identity{};
        table->columns.push_back(std::move(column));
    }
    return CreateTableObject(engine, table);
}

void CreateTable(Engine& engine, const tsql::CreateTableStatement& statement) {
    const std::shared_ptr<Table> table = NewTable(engine, statement.name);
    TableBuilder builder(engine, *table);
    builder.AddAll(statement.definition);
    CreateTableObject(engine, table);
}

std::shared_ptr<const Table> CreateTableVariable(Engine& engine, std::string_view name,
                                                 const tsql::TableDefinition& definition) {
    auto table = std::make_shared<Table>();
    table->id = engine.store.Shared().NextObjectId();
    table->name = name;
    table->database = tempDatabase;
    table->temporary = true;
    table->variable = true;
    TableBuilder builder(engine, *table);
    builder.AddAll(definition);
    return CreateTableObject(engine, table);
}

void DropTableObject(Engine& engine, const std::shared_ptr<const Table>& table) {
    for (const ObjectId other : table->referencedBy)
        if (other != table->id)
            throw SqlError(3726, {table->name});
    if (table->temporary) {
        engine.store.Temporary().Remove(table->id);
        DropTableStorage(engine.Connection(), *table);
        return;
    }
    engine.store.Change([&](CatalogueEditor& editor) {
        for (const ForeignKey& key : table->foreignKeys)
            SetReference(editor, key.referenced, table->id, false);
        for (const ObjectId trigger : table->triggers)
            editor.Drop(trigger);
        editor.Drop(table->id);
    });
    DropTableStorage(engine.Connection(), *table);
    engine.store.Shared().Identities().Set(table->id, std::nullopt);
}

void DropTables(Engine& engine, const tsql::DropStatement& statement) {
    for (const tsql::Name& name : statement.names) {
        Translator translator(engine);
        const auto object = translator.FindSourceObject(name);
        const auto table = std::dynamic_pointer_cast<const Table>(object);
        if (!table || table->kind != ObjectKind::Table) {
            if (object)
                throw SqlError(3705, {"TABLE", name.Text(), "view", "DROP VIEW"});
            if (statement.ifExists)
                continue;
            throw SqlError(3701, {"drop", "table", name.Text()}, 5);
        }
        if (!table->temporary)
            RequireUnbound(engine, *table, "DROP TABLE");
        DropTableObject(engine, table);
    }
}

void Truncate(Engine& engine, const tsql::TruncateStatement& statement) {
    const auto table = RequireTable(engine, statement.table, 4701);
    for (const ObjectId other : table->referencedBy)
        if (other != table->id)
            throw SqlError(4712, {table->name});
    if (!table->hollow)
        Prepared(engine.Connection(), "DELETE FROM " + table->storage).Run();
    engine.store.Shared().Identities().Set(table->id, std::nullopt);
    engine.store.NoteIdentity(table->id);
}

} // namespace quillon::practice
