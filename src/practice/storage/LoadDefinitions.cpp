#include "practice/storage/DefinitionTables.h"
#include "practice/storage/DefinitionValues.h"

#include <charconv>
#include <sqlite3.h>

#include <unordered_set>

namespace quillon::practice {

namespace {

class Loader {
  public:
    Loader(sqlite3* connection, std::uint64_t version)
        : m_connection(connection)
        , m_version(version) {}

    std::shared_ptr<const Catalogue> Load();

  private:
    Prepared Select(const char* sql) { return Prepared(m_connection, sql); }
    void LoadDatabases();
    void LoadPrincipals();
    void LoadObjects();
    static std::shared_ptr<SchemaObject> NewObject(const std::string& type);
    void LoadColumns();
    void LoadIndexes();
    void LoadConstraints();
    void LoadForeignKeys();
    void LoadModules();
    void LoadParameters();
    void LoadTriggers();
    void LoadTexts();
    void Connect();
    void FindHollow();

    template <class Object>
    std::shared_ptr<Object> Find(std::int64_t id) {
        const auto found = m_objects.find(static_cast<ObjectId>(id));
        return found == m_objects.end() ? nullptr : std::dynamic_pointer_cast<Object>(found->second);
    }
    struct Head {
        std::string name;
        bool systemNamed = false;
    };

    sqlite3* m_connection;
    std::uint64_t m_version;
    std::map<DatabaseId, Database> m_databases;
    std::map<ObjectId, std::shared_ptr<SchemaObject>> m_objects;
    std::map<ObjectId, Head> m_constraints;
};

std::shared_ptr<const Catalogue> Loader::Load() {
    LoadDatabases();
    LoadPrincipals();
    LoadObjects();
    LoadColumns();
    LoadIndexes();
    LoadConstraints();
    LoadForeignKeys();
    LoadModules();
    LoadParameters();
    LoadTriggers();
    LoadTexts();
    Connect();
    FindHollow();
    CatalogueEditor editor(std::make_shared<Catalogue>(), m_version);
    for (auto& [id, database] : m_databases)
        editor.AddDatabase(std::move(database));
    for (auto& [id, object] : m_objects)
        editor.Put(object);
    return editor.Finish();
}

void Loader::LoadDatabases() {
    Prepared rows = Select("SELECT database_id, name, owner, collation_name, create_date FROM q_database");
    while (rows.Step()) {
        Database database;
        database.id = static_cast<DatabaseId>(rows.Integer(0));
        database.name = rows.Text(1);
        database.owner = rows.Text(2);
        database.collation = FindCollation(rows.Text(3));
        database.created = LoadMoment(rows, 4);
        m_databases[database.id] = std::move(database);
    }
    Prepared options = Select("SELECT database_id, name, value FROM q_database_option");
    while (options.Step())
        m_databases.at(static_cast<DatabaseId>(options.Integer(0))).options[options.Text(1)] =
            options.Text(2);
    Prepared schemas = Select("SELECT database_id, schema_id, name, principal_id FROM q_schema");
    while (schemas.Step()) {
        const auto id = static_cast<SchemaId>(schemas.Integer(1));
        m_databases.at(static_cast<DatabaseId>(schemas.Integer(0))).schemas[id] = {
            id, schemas.Text(2), static_cast<PrincipalId>(schemas.Integer(3))};
    }
}

void Loader::LoadPrincipals() {
    Prepared rows = Select("SELECT database_id, principal_id, name, type, login, sid, default_schema_name,"
                           " is_fixed_role, create_date, modify_date FROM q_principal");
    while (rows.Step()) {
        Principal principal;
        principal.id = static_cast<PrincipalId>(rows.Integer(1));
        principal.name = rows.Text(2);
        principal.kind = static_cast<PrincipalKind>(rows.Text(3).at(0));
        principal.login = rows.Text(4);
        principal.sid = rows.Blob(5);
        principal.defaultSchema = rows.Text(6);
        principal.fixedRole = rows.Integer(7) != 0;
        principal.created = LoadMoment(rows, 8);
        principal.modified = LoadMoment(rows, 9);
        m_databases.at(static_cast<DatabaseId>(rows.Integer(0))).principals[principal.id] =
            std::move(principal);
    }
    Prepared members =
        Select("SELECT database_id, role_principal_id, member_principal_id FROM q_role_member");
    while (members.Step())
        m_databases.at(static_cast<DatabaseId>(members.Integer(0)))
            .principals.at(static_cast<PrincipalId>(members.Integer(2)))
            .memberOf.push_back(static_cast<PrincipalId>(members.Integer(1)));
    Prepared rights = Select("SELECT database_id, class, major_id, minor_id, grantee_principal_id,"
                             " grantor_principal_id, permission_name, state FROM q_permission");
    while (rights.Step())
        m_databases.at(static_cast<DatabaseId>(rights.Integer(0)))
            .permissions.push_back(
                {static_cast<int>(rights.Integer(1)), static_cast<ObjectId>(rights.Integer(2)),
                 static_cast<int>(rights.Integer(3)), static_cast<PrincipalId>(rights.Integer(4)),
                 static_cast<PrincipalId>(rights.Integer(5)), rights.Text(6), rights.Text(7).at(0)});
    Prepared properties =
        Select("SELECT database_id, class, major_id, minor_id, name, value FROM q_extended_property");
    while (properties.Step())
        m_databases.at(static_cast<DatabaseId>(properties.Integer(0)))
            .properties.push_back(
                {static_cast<int>(properties.Integer(1)), static_cast<ObjectId>(properties.Integer(2)),
                 static_cast<int>(properties.Integer(3)), properties.Text(4), properties.Text(5)});
}

std::shared_ptr<SchemaObject> Loader::NewObject(const std::string& type) {
    static const std::map<std::string, ObjectKind> kinds = {{"U", ObjectKind::Table},
                                                            {"V", ObjectKind::View},
                                                            {"P", ObjectKind::Procedure},
                                                            {"FN", ObjectKind::ScalarFunction},
                                                            {"IF", ObjectKind::InlineFunction},
                                                            {"TF", ObjectKind::TableFunction},
                                                            {"TR", ObjectKind::Trigger},
                                                            {"D", ObjectKind::Default},
                                                            {"R", ObjectKind::Rule},
                                                            {"SN", ObjectKind::Synonym},
                                                            {"TT", ObjectKind::TableType},
                                                            {"AT", ObjectKind::AliasType}};
    const ObjectKind kind = kinds.at(type);
    std::shared_ptr<SchemaObject> object;
    switch (kind) {
    case ObjectKind::Table:
    case ObjectKind::TableType: object = std::make_shared<Table>(); break;
    case ObjectKind::Trigger: object = std::make_shared<Trigger>(); break;
    case ObjectKind::Default:
    case ObjectKind::Rule: object = std::make_shared<TextObject>(); break;
    case ObjectKind::Synonym: object = std::make_shared<Synonym>(); break;
    case ObjectKind::AliasType: object = std::make_shared<AliasType>(); break;
    default: object = std::make_shared<Module>(); break;
    }
    object->kind = kind;
    return object;
}

void Loader::LoadObjects() {
    // What has a parent and is no trigger is a constraint: its table carries it.
    Prepared heads = Select("SELECT object_id, name, is_system_named FROM q_object"
                            " WHERE parent_object_id <> 0 AND type <> 'TR'");
    while (heads.Step())
        m_constraints[static_cast<ObjectId>(heads.Integer(0))] = {heads.Text(1), heads.Integer(2) != 0};
    Prepared rows = Select("SELECT object_id, database_id, schema_id, name, type, create_date, modify_date,"
                           " is_ms_shipped FROM q_object WHERE parent_object_id = 0 OR type = 'TR'");
    while (rows.Step()) {
        const std::shared_ptr<SchemaObject> object = NewObject(rows.Text(4));
        object->id = static_cast<ObjectId>(rows.Integer(0));
        object->database = static_cast<DatabaseId>(rows.Integer(1));
        object->schema = static_cast<SchemaId>(rows.Integer(2));
        object->name = rows.Text(3);
        object->created = LoadMoment(rows, 5);
        object->modified = LoadMoment(rows, 6);
        object->systemShipped = rows.Integer(7) != 0;
        if (const auto table = std::dynamic_pointer_cast<Table>(object))
            table->storage = "main.t" + std::to_string(table->id);
        m_objects[object->id] = object;
    }
}

void Loader::LoadColumns() {
    Prepared rows = Select(
        "SELECT object_id, column_id, name, system_type_id, max_length, precision, scale, collation_name,"
        " is_nullable, is_rowguidcol, seed_value, increment_value, definition, is_persisted, is_stored,"
        " default_object_id, rule_object_id, user_type_id, is_ansi_padded FROM q_column ORDER BY object_id, "
        "ordinal");
    while (rows.Step()) {
        Column column;
        column.id = static_cast<int>(rows.Integer(1));
        column.name = rows.Text(2);
        column.type = LoadType(rows, 3, rows.Text(7));
        column.nullable = rows.Integer(8) != 0;
        column.rowGuid = rows.Integer(9) != 0;
        if (!rows.IsNull(10))
            column.identity = Identity{rows.Integer(10), rows.Integer(11)};
        column.computed = rows.Text(12);
        column.persisted = rows.Integer(13) != 0;
        column.stored = rows.Integer(14) != 0;
        column.defaultObject = static_cast<ObjectId>(rows.Integer(15));
        column.ruleObject = static_cast<ObjectId>(rows.Integer(16));
        const auto userType = static_cast<ObjectId>(rows.Integer(17));
        column.aliasType = Find<SchemaObject>(userType) ? userType : 0;
        column.sysName = userType == 256;
        column.ansiPadded = rows.Integer(18) != 0;
        if (const auto table = Find<Table>(rows.Integer(0))) {
            table->lastColumnId = std::max(table->lastColumnId, column.id);
            table->columns.push_back(std::move(column));
        } else if (const auto module = Find<Module>(rows.Integer(0)))
            module->columns.push_back(std::move(column));
        else if (const auto alias = Find<AliasType>(rows.Integer(0))) {
            alias->base = column.type;
            alias->nullable = column.nullable;
            alias->defaultObject = column.defaultObject;
            alias->ruleObject = column.ruleObject;
        }
    }
}

void Loader::LoadIndexes() {
    Prepared rows = Select("SELECT object_id, index_id, name, is_clustered, is_unique, is_primary_key,"
                           " is_unique_constraint, constraint_id, is_disabled, ignore_dup_key, fill_factor,"
                           " filter_definition FROM q_index ORDER BY object_id, index_id");
    Prepared columns = Select("SELECT column_id, is_descending_key, is_included_column FROM q_index_column"
                              " WHERE object_id = ? AND index_id = ? ORDER BY index_column_id");
    while (rows.Step()) {
        Index index;
        index.id = static_cast<int>(rows.Integer(1));
        index.name = rows.Text(2);
        index.clustered = rows.Integer(3) != 0;
        index.unique = rows.Integer(4) != 0;
        index.primaryKey = rows.Integer(5) != 0;
        index.uniqueConstraint = rows.Integer(6) != 0;
        index.constraint = static_cast<ObjectId>(rows.Integer(7));
        index.disabled = rows.Integer(8) != 0;
        index.ignoreDuplicates = rows.Integer(9) != 0;
        index.fillFactor = static_cast<int>(rows.Integer(10));
        index.filter = rows.Text(11);
        if (index.IsConstraint())
            index.systemNamed = m_constraints[index.constraint].systemNamed;
        columns.Bind(1, rows.Integer(0)).Bind(2, rows.Integer(1));
        while (columns.Step()) {
            if (columns.Integer(2) != 0)
                index.included.push_back(static_cast<int>(columns.Integer(0)));
            else
                index.keys.push_back({static_cast<int>(columns.Integer(0)), columns.Integer(1) != 0});
        }
        columns.Reset();
        if (const auto table = Find<Table>(rows.Integer(0)))
            table->indexes.push_back(std::move(index));
    }
}

void Loader::LoadConstraints() {
    Prepared defaults =
        Select("SELECT object_id, parent_object_id, parent_column_id, definition FROM q_default"
               " ORDER BY object_id");
    while (defaults.Step()) {
        const auto id = static_cast<ObjectId>(defaults.Integer(0));
        const Head& head = m_constraints[id];
        Find<Table>(defaults.Integer(1))
            ->defaults.push_back(
                {id, head.name, static_cast<int>(defaults.Integer(2)), defaults.Text(3), head.systemNamed});
    }
    Prepared checks = Select("SELECT object_id, parent_object_id, parent_column_id, definition, is_disabled,"
                             " is_not_trusted FROM q_check ORDER BY object_id");
    while (checks.Step()) {
        const auto id = static_cast<ObjectId>(checks.Integer(0));
        const Head& head = m_constraints[id];
        Find<Table>(checks.Integer(1))
            ->checks.push_back({id, head.name, static_cast<int>(checks.Integer(2)), checks.Text(3),
                                head.systemNamed, checks.Integer(4) != 0, checks.Integer(5) != 0});
    }
}

void Loader::LoadForeignKeys() {
    Prepared rows =
        Select("SELECT object_id, parent_object_id, referenced_object_id, key_index_id,"
               " delete_referential_action, update_referential_action, is_disabled, is_not_trusted"
               " FROM q_foreign_key ORDER BY object_id");
    Prepared columns = Select("SELECT parent_column_id, referenced_column_id FROM q_foreign_key_column"
                              " WHERE constraint_object_id = ? ORDER BY constraint_column_id");
    while (rows.Step()) {
        ForeignKey key;
        key.id = static_cast<ObjectId>(rows.Integer(0));
        key.name = m_constraints[key.id].name;
        key.systemNamed = m_constraints[key.id].systemNamed;
        key.referenced = static_cast<ObjectId>(rows.Integer(2));
        key.referencedIndex = static_cast<int>(rows.Integer(3));
        key.onDelete = static_cast<ReferenceAction>(rows.Integer(4));
        key.onUpdate = static_cast<ReferenceAction>(rows.Integer(5));
        key.disabled = rows.Integer(6) != 0;
        key.notTrusted = rows.Integer(7) != 0;
        columns.Bind(1, key.id);
        while (columns.Step()) {
            key.columns.push_back(static_cast<int>(columns.Integer(0)));
            key.referencedColumns.push_back(static_cast<int>(columns.Integer(1)));
        }
        columns.Reset();
        Find<Table>(rows.Integer(1))->foreignKeys.push_back(std::move(key));
    }
}

// Files of before identities counted have words there: CALLER, SELF, a user's name.
std::optional<PrincipalId> LoadIdentity(const std::string& text) {
    PrincipalId id = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), id);
    if (error == std::errc() && end == text.data() + text.size())
        return id;
    return text == "OWNER" ? std::optional(moduleOwner) : std::nullopt;
}

void Loader::LoadModules() {
    Prepared rows =
        Select("SELECT object_id, definition, uses_ansi_nulls, uses_quoted_identifier, is_encrypted,"
               " is_schema_bound, is_recompiled, execute_as, object_id IN (SELECT object_id FROM q_startup)"
               " FROM q_module");
    while (rows.Step()) {
        if (const auto text = Find<TextObject>(rows.Integer(0))) {
            text->text = rows.Text(1);
            continue;
        }
        const auto module = Find<Module>(rows.Integer(0));
        module->text = rows.Text(1);
        module->ansiNulls = rows.Integer(2) != 0;
        module->quotedIdentifier = rows.Integer(3) != 0;
        module->encrypted = rows.Integer(4) != 0;
        module->schemaBound = rows.Integer(5) != 0;
        module->recompile = rows.Integer(6) != 0;
        module->executeAs = LoadIdentity(rows.Text(7));
        module->startup = rows.Integer(8) != 0;
    }
}

void Loader::LoadParameters() {
    Prepared rows =
        Select("SELECT object_id, parameter_id, name, system_type_id, max_length, precision, scale,"
               " is_output, is_readonly, has_default_value, user_type_id FROM q_parameter"
               " ORDER BY object_id, parameter_id");
    while (rows.Step()) {
        const auto module = Find<Module>(rows.Integer(0));
        const SqlType type = LoadType(rows, 3, "");
        if (rows.Integer(1) == 0) {
            module->returns = type;
            continue;
        }
        const auto userType = static_cast<ObjectId>(rows.Integer(10));
        module->parameters.push_back({rows.Text(2), type, rows.Integer(7) != 0, rows.Integer(8) != 0,
                                      rows.Integer(9) != 0, Find<SchemaObject>(userType) ? userType : 0});
    }
}

void Loader::LoadTriggers() {
    Prepared rows = Select("SELECT object_id, parent_object_id, is_instead_of_trigger, is_disabled,"
                           " is_not_for_replication FROM q_trigger");
    while (rows.Step()) {
        const auto trigger = Find<Trigger>(rows.Integer(0));
        trigger->parent = static_cast<ObjectId>(rows.Integer(1));
        trigger->insteadOf = rows.Integer(2) != 0;
        trigger->disabled = rows.Integer(3) != 0;
        trigger->notForReplication = rows.Integer(4) != 0;
    }
    Prepared events = Select("SELECT object_id, type, is_first, is_last FROM q_trigger_event ORDER BY 1, 2");
    while (events.Step()) {
        const TriggerOrder order = events.Integer(2) != 0   ? TriggerOrder::First
                                   : events.Integer(3) != 0 ? TriggerOrder::Last
                                                            : TriggerOrder::None;
        Find<Trigger>(events.Integer(0))
            ->events.push_back({static_cast<TriggerEvent>(events.Integer(1)), order});
    }
}

void Loader::LoadTexts() {
    Prepared rows = Select("SELECT object_id, definition, target FROM q_text_object");
    while (rows.Step()) {
        if (const auto synonym = Find<Synonym>(rows.Integer(0)))
            synonym->target = rows.Text(2);
        else
            Find<TextObject>(rows.Integer(0))->expression = rows.Text(1);
    }
}

// What hangs together in both directions is written on one side alone.
void Loader::Connect() {
    for (const auto& [id, object] : m_objects) {
        if (const auto trigger = std::dynamic_pointer_cast<Trigger>(object)) {
            if (const auto table = Find<Table>(trigger->parent))
                table->triggers.push_back(id);
            else
                Find<Module>(trigger->parent)->triggers.push_back(id);
        }
        const auto table = std::dynamic_pointer_cast<Table>(object);
        if (!table)
            continue;
        for (const ForeignKey& key : table->foreignKeys) {
            auto& referencing = Find<Table>(key.referenced)->referencedBy;
            if (std::find(referencing.begin(), referencing.end(), id) == referencing.end())
                referencing.push_back(id);
        }
    }
}

void Loader::FindHollow() {
    std::unordered_set<std::string> stored;
    Prepared rows = Select("SELECT 'main.' || name FROM sqlite_schema WHERE type = 'table'");
    while (rows.Step())
        stored.insert(rows.Text(0));
    for (const auto& [id, object] : m_objects)
        if (const auto table = std::dynamic_pointer_cast<Table>(object))
            table->hollow = !stored.contains(table->storage);
}

} // namespace

std::shared_ptr<const Catalogue> LoadCatalogue(sqlite3* connection, std::uint64_t version) {
    return Loader(connection, version).Load();
}

} // namespace quillon::practice
