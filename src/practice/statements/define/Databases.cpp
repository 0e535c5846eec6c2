// CREATE, ALTER and DROP of databases and schemas.
#include "practice/statements/define/Definition.h"
#include "practice/statements/define/Tables.h"
#include "practice/storage/Permissions.h"
#include "practice/storage/SystemDatabases.h"
#include "practice/storage/TableStorage.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

const Database& RequireDatabase(Engine& engine, const std::string& name) {
    const auto view = engine.store.View();
    const Database* database =
        name.empty() ? view->FindDatabase(engine.context.CurrentDatabase()) : view->FindDatabase(name);
    if (database == nullptr)
        throw SqlError(5011, {name});
    return *database;
}

const Collation* RequireCollation(const std::string& name) {
    const Collation* collation = FindCollation(name);
    if (collation == nullptr)
        throw SqlError(448, {name});
    return collation;
}

// 49999 where a collation would make two names of one kind one.
class DistinctNames {
  public:
    explicit DistinctNames(const NameRule& rule)
        : m_rule(rule) {}

    template <class List, class NameOf>
    void Require(const List& list, NameOf nameOf) const {
        std::set<std::string> keys;
        for (const auto& one : list)
            if (!keys.insert(m_rule.Key(nameOf(one))).second)
                throw SqlError::NotSupported("ALTER DATABASE COLLATE where names become equal");
    }
    template <class List>
    void Require(const List& list) const {
        Require(list, [](const auto& one) { return one.name; });
    }
    void Require(const Database& database) const {
        const auto nameOfSecond = [](const auto& one) { return one.second.name; };
        Require(database.schemas, nameOfSecond);
        Require(database.principals, nameOfSecond);
        for (const auto& [schemaId, schema] : database.schemas)
            Require(NamesIn(database, schemaId), [](const std::string& name) { return name; });
        for (const auto& [id, object] : database.objects) {
            if (const auto table = std::dynamic_pointer_cast<const Table>(object)) {
                Require(table->columns);
                Require(table->indexes);
            } else if (const auto module = std::dynamic_pointer_cast<const Module>(object))
                Require(module->columns);
        }
    }

  private:
    static std::vector<std::string> NamesIn(const Database& database, SchemaId schema) {
        std::vector<std::string> names;
        for (const auto& [id, object] : database.objects) {
            if (object->schema != schema)
                continue;
            names.push_back(object->name);
            if (const auto table = std::dynamic_pointer_cast<const Table>(object))
                for (const auto& [name, constraint] : ConstraintsOf(*table))
                    names.push_back(name);
        }
        return names;
    }

    NameRule m_rule;
};

// 5075 for whatever is bound to names and literals as the collation of its database reads them.
std::vector<SqlError> BoundToCollation(const Database& database) {
    std::vector<SqlError> bound;
    const auto add = [&](const char* kind, const std::string& name) {
        bound.emplace_back(5075, std::initializer_list<std::string_view>{kind, name, "database collation"});
    };
    for (const auto& [id, object] : database.objects) {
        if (const auto module = std::dynamic_pointer_cast<const Module>(object);
            module && module->schemaBound)
            add("object", module->name);
        const auto table = std::dynamic_pointer_cast<const Table>(object);
        if (!table)
            continue;
        for (const CheckConstraint& check : table->checks)
            add("object", check.name);
        for (const Column& column : table->columns)
            if (column.IsComputed())
                add("column", table->name + "." + column.name);
    }
    return bound;
}

void RequireChangeable(const Database& database, const Collation& collation) {
    if (auto bound = BoundToCollation(database); !bound.empty())
        throw ConsequentError(SqlError(5072, {database.name, collation.name}), std::move(bound));
    DistinctNames(NameRule(&collation)).Require(database);
}

void SetOption(Database& database, const std::string& name, const std::string& value) {
    if (name == "MULTI_USER")
        database.options.erase("SINGLE_USER");
    else if (name == "READ_WRITE")
        database.options.erase("READ_ONLY");
    else if (name == "READ_ONLY")
        database.options[name] = "ON";
    else
        database.options[name] = value;
}

// In the mode for a single user the others have no say: their sessions find themselves in master.
bool IsInUse(Engine& engine, const Database& database) {
    return database.id == engine.context.CurrentDatabase() ||
           (!database.options.contains("SINGLE_USER") && engine.context.IsUsedElsewhere(database.name));
}

bool IsSystem(DatabaseId id) {
    return id <= msdbDatabase;
}

} // namespace

void CreateDatabase(Engine& engine, const tsql::CreateDatabaseStatement& statement) {
    if (engine.store.TransactionCount() > 1)
        throw SqlError(226, {"CREATE DATABASE"});
    if (engine.store.View()->FindDatabase(statement.name) != nullptr)
        throw SqlError(1801, {statement.name}, 3);
    DatabaseId id = msdbDatabase + 1;
    while (engine.store.View()->FindDatabase(id) != nullptr)
        ++id;
    const Collation* collation =
        statement.collation.empty() ? DefaultCollation() : RequireCollation(statement.collation);
    Database database = MakeDatabase(id, statement.name, collation);
    database.owner = engine.context.Functions().LoginName();
    database.principals[dboPrincipal].login = database.owner;
    engine.store.Change([&](CatalogueEditor& editor) { editor.AddDatabase(std::move(database)); });
}

void AlterDatabase(Engine& engine, const tsql::AlterDatabaseStatement& statement) {
    using Action = tsql::AlterDatabaseStatement::Action;
    const Database& before = RequireDatabase(engine, statement.name);
    const DatabaseId id = before.id;
    if (statement.action == Action::Collate)
        RequireChangeable(before, *RequireCollation(statement.value));
    if (statement.action == Action::Rename && engine.store.View()->FindDatabase(statement.value) != nullptr)
        throw SqlError(1801, {statement.value});
    engine.store.Change([&](CatalogueEditor& editor) {
        if (statement.action == Action::Rename)
            editor.RenameDatabase(id, statement.value);
        else if (statement.action == Action::Collate)
            editor.Collate(id, RequireCollation(statement.value));
        else
            for (const tsql::OptionSetting& option : statement.options)
                SetOption(editor.EditDatabase(id), UpperCase(option.name), UpperCase(option.value));
    });
}

void DropDatabases(Engine& engine, const tsql::DropStatement& statement) {
    if (engine.store.TransactionCount() > 1)
        throw SqlError(226, {"DROP DATABASE"});
    for (const tsql::Name& name : statement.names) {
        const auto view = engine.store.View();
        const Database* database = view->FindDatabase(name.Last());
        if (database == nullptr) {
            if (statement.ifExists)
                continue;
            throw SqlError(3701, {"drop", "database", name.Last()});
        }
        if (IsSystem(database->id))
            throw SqlError(3708, {"drop", "database", name.Last()});
        if (IsInUse(engine, *database))
            throw SqlError(3702, {name.Last()}, 3);
        DropTables(engine.Connection(), *database);
        const DatabaseId gone = database->id;
        engine.store.Change([&](CatalogueEditor& editor) { editor.DropDatabase(gone); });
    }
}

void CreateSchema(Engine& engine, const tsql::CreateSchemaStatement& statement) {
    if (!statement.elements.empty())
        throw SqlError::NotSupported("CREATE SCHEMA with the definitions of objects in it");
    const std::string name = statement.name.empty() ? statement.owner : statement.name;
    const Database& database = RequireDatabase(engine, "");
    if (database.FindSchema(name) != nullptr)
        throw SqlError(2714, {name}, 6);
    constexpr SchemaId firstOwn = 5;
    Schema schema;
    schema.id = firstOwn;
    while (database.schemas.contains(schema.id))
        ++schema.id;
    schema.name = name;
    if (const Principal* own = database.FindPrincipal(engine.context.Functions().UserName()))
        schema.owner = own->id;
    if (!statement.owner.empty()) {
        const Principal* owner = database.FindPrincipal(statement.owner);
        if (owner == nullptr)
            throw SqlError(15151, {"find", "user", statement.owner});
        schema.owner = owner->id;
    }
    const DatabaseId id = database.id;
    engine.store.Change(
        [&](CatalogueEditor& editor) { editor.EditDatabase(id).schemas[schema.id] = schema; });
}

void DropSchemas(Engine& engine, const tsql::DropStatement& statement) {
    for (const tsql::Name& name : statement.names) {
        const Database& database = RequireDatabase(engine, "");
        const Schema* schema = database.FindSchema(name.Last());
        if (schema == nullptr) {
            if (statement.ifExists)
                continue;
            throw SqlError(15151, {"drop", "schema", name.Last()});
        }
        for (const auto& [id, object] : database.objects)
            if (object->schema == schema->id)
                throw SqlError(3729, {"drop schema", schema->name, object->name});
        const DatabaseId id = database.id;
        const SchemaId gone = schema->id;
        engine.store.Change([&](CatalogueEditor& editor) {
            Database& after = editor.EditDatabase(id);
            after.schemas.erase(gone);
            ForgetRights(after, schemaClass, gone);
        });
    }
}

void TransferToSchema(Engine& engine, const tsql::AlterSchemaTransferStatement& statement) {
    const Database& database = RequireDatabase(engine, "");
    const Schema* schema = database.FindSchema(statement.schema);
    if (schema == nullptr)
        throw SqlError(15151, {"alter", "schema", statement.schema});
    const auto object = Translator(engine).FindSourceObject(statement.object);
    if (!object)
        throw SqlError(15151, {"find", "object", statement.object.Text()});
    RequireFreeName(engine, {database.id, schema->id}, object->name);
    const SchemaId id = schema->id;
    engine.store.Change([&](CatalogueEditor& editor) {
        ForgetRights(editor.EditDatabase(database.id), objectClass, object->id);
        const auto move = [&](auto copy) {
            copy->schema = id;
            editor.Put(copy);
        };
        if (const auto table = std::dynamic_pointer_cast<const Table>(object)) {
            move(std::make_shared<Table>(*table));
            for (const ObjectId trigger : table->triggers)
                move(std::make_shared<Trigger>(*editor.Now().FindTrigger(trigger)));
        } else if (const auto module = std::dynamic_pointer_cast<const Module>(object))
            move(std::make_shared<Module>(*module));
        else
            throw SqlError::NotSupported("ALTER SCHEMA TRANSFER of this kind of object");
    });
}

} // namespace quillon::practice
