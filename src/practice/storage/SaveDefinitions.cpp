#include "practice/storage/DefinitionTables.h"
#include "practice/storage/DefinitionValues.h"

#include <sqlite3.h>

#include <unordered_map>

namespace quillon::practice {

// Keeps its statements: definitions come in thousands.
class DefinitionSaver::Saver {
  public:
    Saver(sqlite3* connection, std::string tables)
        : m_connection(connection)
        , m_tables(std::move(tables)) {}

    void DeleteObject(ObjectId id);
    void SaveObject(const SchemaObject& object);
    void DeleteDatabase(DatabaseId id);
    void SaveDatabase(const Database& database);

  private:
    Prepared& Kept(const std::string& sql) {
        Prepared& statement = m_kept[sql];
        if (!statement) {
            const std::size_t table = sql.find(" q_") + 1; // each names one
            statement = Prepared(m_connection, std::string(sql).replace(table, 2, m_tables), true);
        }
        return statement;
    }
    void RunFor(const std::string& sql, std::int64_t id) { Kept(sql).Bind(1, id).Run(); }
    void SaveHead(const SchemaObject& home, ObjectId id, ObjectId parent, const std::string& name,
                  ObjectKind kind, bool systemNamed);
    void SaveColumns(ObjectId owner, const std::vector<Column>& columns);
    void SaveTable(const Table& table);
    void SaveIndex(const Table& table, const Index& index);
    void SaveForeignKey(const Table& table, const ForeignKey& key);
    void SaveModule(const Module& module);
    void SaveParameter(ObjectId owner, int ordinal, const ModuleParameter& parameter);
    void SaveTrigger(const Trigger& trigger);
    void SaveText(ObjectId id, const std::string& definition, const std::string& target);
    void SavePrincipal(DatabaseId database, const Principal& principal);

    sqlite3* m_connection;
    std::string m_tables;
    std::unordered_map<std::string, Prepared> m_kept;
};

void DefinitionSaver::Saver::DeleteObject(ObjectId id) {
    RunFor("DELETE FROM q_foreign_key_column WHERE parent_object_id = ?", id);
    for (const char* table : {"q_check", "q_default", "q_foreign_key"})
        RunFor(std::string("DELETE FROM ") + table + " WHERE parent_object_id = ?", id);
    // Triggers are objects of their own: what hangs on the table by its parent's id alone are constraints.
    RunFor("DELETE FROM q_object WHERE parent_object_id = ? AND type <> 'TR'", id);
    for (const char* table : {"q_object", "q_column", "q_index", "q_index_column", "q_module", "q_startup",
                              "q_parameter", "q_trigger", "q_trigger_event", "q_text_object"})
        RunFor(std::string("DELETE FROM ") + table + " WHERE object_id = ?", id);
}

void DefinitionSaver::Saver::SaveHead(const SchemaObject& home, ObjectId id, ObjectId parent,
                                      const std::string& name, ObjectKind kind, bool systemNamed) {
    Prepared& insert = Kept("INSERT INTO q_object VALUES(?,?,?,?,?,?,?,?,?,?)");
    insert.Bind(1, id).Bind(2, home.database).Bind(3, home.schema).Bind(4, parent);
    insert.Bind(5, std::string_view(name)).Bind(6, std::string_view(ObjectTypeCode(kind)));
    BindMoment(insert, 7, home.created);
    BindMoment(insert, 8, home.modified);
    insert.Bind(9, home.systemShipped).Bind(10, systemNamed).Run();
}

void DefinitionSaver::Saver::SaveObject(const SchemaObject& object) {
    const auto* trigger = dynamic_cast<const Trigger*>(&object);
    SaveHead(object, object.id, trigger == nullptr ? 0 : trigger->parent, object.name, object.kind, false);
    if (const auto* table = dynamic_cast<const Table*>(&object))
        SaveTable(*table);
    else if (const auto* module = dynamic_cast<const Module*>(&object))
        SaveModule(*module);
    else if (const auto* synonym = dynamic_cast<const Synonym*>(&object))
        SaveText(object.id, "", synonym->target);
    else if (const auto* text = dynamic_cast<const TextObject*>(&object)) {
        SaveText(object.id, text->expression, "");
        Kept("INSERT INTO q_module VALUES(?,?,1,1,0,0,0,'')")
            .Bind(1, object.id)
            .Bind(2, std::string_view(text->text))
            .Run();
    } else if (const auto* alias = dynamic_cast<const AliasType*>(&object)) {
        Column base;
        base.id = 1;
        base.type = alias->base;
        base.nullable = alias->nullable;
        base.defaultObject = alias->defaultObject;
        base.ruleObject = alias->ruleObject;
        SaveColumns(object.id, {base});
    }
    if (trigger != nullptr)
        SaveTrigger(*trigger);
}

void DefinitionSaver::Saver::SaveColumns(ObjectId owner, const std::vector<Column>& columns) {
    Prepared& insert = Kept("INSERT INTO q_column VALUES(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
    int ordinal = 0;
    for (const Column& column : columns) {
        insert.Bind(1, owner).Bind(2, column.id).Bind(3, ++ordinal).Bind(4, std::string_view(column.name));
        insert.Bind(5, column.type.SystemTypeId());
        insert.Bind(6, UserTypeId(column.type, column.aliasType, column.sysName));
        insert.Bind(7, column.type.StorageBytes()).Bind(8, column.type.precision).Bind(9, column.type.scale);
        insert.BindNull(10);
        if (column.type.IsCharacter())
            insert.Bind(10, std::string_view(
                                (column.type.collation ? column.type.collation : DefaultCollation())->name));
        insert.Bind(11, column.nullable).Bind(12, column.rowGuid).Bind(13, column.identity.has_value());
        insert.Bind(14, column.IsComputed()).Bind(15, column.ansiPadded).Bind(16, column.defaultObject);
        insert.Bind(17, column.ruleObject).BindNull(18).BindNull(19).BindNull(20);
        if (column.identity)
            insert.Bind(18, column.identity->seed).Bind(19, column.identity->increment);
        if (column.IsComputed())
            insert.Bind(20, std::string_view(column.computed));
        insert.Bind(21, column.persisted).Bind(22, column.stored).Run();
    }
}

void DefinitionSaver::Saver::SaveTable(const Table& table) {
    SaveColumns(table.id, table.columns);
    for (const Index& index : table.indexes)
        SaveIndex(table, index);
    for (const DefaultConstraint& value : table.defaults) {
        SaveHead(table, value.id, table.id, value.name, ObjectKind::DefaultKind, value.systemNamed);
        Kept("INSERT INTO q_default VALUES(?,?,?,?)")
            .Bind(1, value.id)
            .Bind(2, table.id)
            .Bind(3, value.columnId)
            .Bind(4, std::string_view(value.text))
            .Run();
    }
    for (const CheckConstraint& check : table.checks) {
        SaveHead(table, check.id, table.id, check.name, ObjectKind::CheckKind, check.systemNamed);
        Kept("INSERT INTO q_check VALUES(?,?,?,?,?,?)")
            .Bind(1, check.id)
            .Bind(2, table.id)
            .Bind(3, check.columnId)
            .Bind(4, std::string_view(check.text))
            .Bind(5, check.disabled)
            .Bind(6, check.notTrusted)
            .Run();
    }
    for (const ForeignKey& key : table.foreignKeys)
        SaveForeignKey(table, key);
}

void DefinitionSaver::Saver::SaveIndex(const Table& table, const Index& index) {
    if (index.IsConstraint())
        SaveHead(table, index.constraint, table.id, index.name,
                 index.primaryKey ? ObjectKind::PrimaryKey : ObjectKind::UniqueKey, index.systemNamed);
    Prepared& insert = Kept("INSERT INTO q_index VALUES(?,?,?,?,?,?,?,?,?,?,?,?)");
    insert.Bind(1, table.id).Bind(2, index.id).Bind(3, std::string_view(index.name)).Bind(4, index.clustered);
    insert.Bind(5, index.unique).Bind(6, index.primaryKey).Bind(7, index.uniqueConstraint);
    insert.Bind(8, index.constraint).Bind(9, index.disabled).Bind(10, index.ignoreDuplicates);
    insert.Bind(11, index.fillFactor).BindNull(12);
    if (!index.filter.empty())
        insert.Bind(12, std::string_view(index.filter));
    insert.Run();
    Prepared& column = Kept("INSERT INTO q_index_column VALUES(?,?,?,?,?,?,?)");
    int ordinal = 0;
    for (const IndexKey& key : index.keys) {
        ++ordinal;
        column.Bind(1, table.id).Bind(2, index.id).Bind(3, ordinal).Bind(4, key.columnId).Bind(5, ordinal);
        column.Bind(6, key.descending).Bind(7, 0).Run();
    }
    for (const int included : index.included) {
        column.Bind(1, table.id).Bind(2, index.id).Bind(3, ++ordinal).Bind(4, included).Bind(5, 0);
        column.Bind(6, 0).Bind(7, 1).Run();
    }
}

void DefinitionSaver::Saver::SaveForeignKey(const Table& table, const ForeignKey& key) {
    SaveHead(table, key.id, table.id, key.name, ObjectKind::ForeignKeyConstraint, key.systemNamed);
    Kept("INSERT INTO q_foreign_key VALUES(?,?,?,?,?,?,?,?)")
        .Bind(1, key.id)
        .Bind(2, table.id)
        .Bind(3, key.referenced)
        .Bind(4, key.referencedIndex)
        .Bind(5, static_cast<int>(key.onDelete))
        .Bind(6, static_cast<int>(key.onUpdate))
        .Bind(7, key.disabled)
        .Bind(8, key.notTrusted)
        .Run();
    Prepared& column = Kept("INSERT INTO q_foreign_key_column VALUES(?,?,?,?,?,?)");
    for (std::size_t i = 0; i < key.columns.size(); ++i) {
        column.Bind(1, key.id).Bind(2, static_cast<std::int64_t>(i) + 1).Bind(3, table.id);
        column.Bind(4, key.columns[i]).Bind(5, key.referenced).Bind(6, key.referencedColumns[i]).Run();
    }
}

void DefinitionSaver::Saver::SaveModule(const Module& module) {
    Kept("INSERT INTO q_module VALUES(?,?,?,?,?,?,?,?)")
        .Bind(1, module.id)
        .Bind(2, std::string_view(module.text))
        .Bind(3, module.ansiNulls)
        .Bind(4, module.quotedIdentifier)
        .Bind(5, module.encrypted)
        .Bind(6, module.schemaBound)
        .Bind(7, module.recompile)
        .Bind(8, std::string_view(module.executeAs ? std::to_string(*module.executeAs) : ""))
        .Run();
    if (module.startup)
        RunFor("INSERT INTO q_startup VALUES(?)", module.id);
    SaveColumns(module.id, module.columns);
    int ordinal = 0;
    for (const ModuleParameter& parameter : module.parameters)
        SaveParameter(module.id, ++ordinal, parameter);
    if (module.returns)
        SaveParameter(module.id, 0, {"", *module.returns, true});
}

void DefinitionSaver::Saver::SaveParameter(ObjectId owner, int ordinal, const ModuleParameter& parameter) {
    Prepared& insert = Kept("INSERT INTO q_parameter VALUES(?,?,?,?,?,?,?,?,?,?,?)");
    insert.Bind(1, owner).Bind(2, ordinal).Bind(3, std::string_view(parameter.name));
    insert.Bind(4, parameter.type.SystemTypeId())
        .Bind(5, UserTypeId(parameter.type, parameter.userType, false));
    insert.Bind(6, parameter.type.StorageBytes())
        .Bind(7, parameter.type.precision)
        .Bind(8, parameter.type.scale);
    insert.Bind(9, parameter.output).Bind(10, parameter.readOnly).Bind(11, parameter.hasDefault).Run();
}

void DefinitionSaver::Saver::SaveTrigger(const Trigger& trigger) {
    Kept("INSERT INTO q_trigger VALUES(?,?,?,?,?)")
        .Bind(1, trigger.id)
        .Bind(2, trigger.parent)
        .Bind(3, trigger.insteadOf)
        .Bind(4, trigger.disabled)
        .Bind(5, trigger.notForReplication)
        .Run();
    for (const TriggerFor& entry : trigger.events)
        Kept("INSERT INTO q_trigger_event VALUES(?,?,?,?)")
            .Bind(1, trigger.id)
            .Bind(2, static_cast<int>(entry.event))
            .Bind(3, entry.order == TriggerOrder::First)
            .Bind(4, entry.order == TriggerOrder::Last)
            .Run();
}

void DefinitionSaver::Saver::SaveText(ObjectId id, const std::string& definition, const std::string& target) {
    Kept("INSERT INTO q_text_object VALUES(?,?,?)")
        .Bind(1, id)
        .Bind(2, std::string_view(definition))
        .Bind(3, std::string_view(target))
        .Run();
}

void DefinitionSaver::Saver::DeleteDatabase(DatabaseId id) {
    for (const char* table : {"q_database", "q_database_option", "q_schema", "q_principal", "q_role_member",
                              "q_permission", "q_extended_property"})
        RunFor(std::string("DELETE FROM ") + table + " WHERE database_id = ?", id);
}

void DefinitionSaver::Saver::SaveDatabase(const Database& database) {
    Prepared& head = Kept("INSERT INTO q_database VALUES(?,?,?,?,?)");
    head.Bind(1, database.id)
        .Bind(2, std::string_view(database.name))
        .Bind(3, std::string_view(database.owner));
    head.Bind(4, std::string_view(database.collation->name));
    BindMoment(head, 5, database.created);
    head.Run();
    for (const auto& [name, value] : database.options)
        Kept("INSERT INTO q_database_option VALUES(?,?,?)")
            .Bind(1, database.id)
            .Bind(2, std::string_view(name))
            .Bind(3, std::string_view(value))
            .Run();
    for (const auto& [id, schema] : database.schemas)
        Kept("INSERT INTO q_schema VALUES(?,?,?,?)")
            .Bind(1, database.id)
            .Bind(2, id)
            .Bind(3, std::string_view(schema.name))
            .Bind(4, schema.owner)
            .Run();
    for (const auto& [id, principal] : database.principals)
        SavePrincipal(database.id, principal);
    for (const Permission& permission : database.permissions) {
        Prepared& insert = Kept("INSERT INTO q_permission VALUES(?,?,?,?,?,?,?,?)");
        insert.Bind(1, database.id).Bind(2, permission.securableClass).Bind(3, permission.major);
        insert.Bind(4, permission.minor).Bind(5, permission.grantee).Bind(6, permission.grantor);
        insert.Bind(7, std::string_view(permission.permission));
        insert.Bind(8, std::string_view(&permission.state, 1)).Run();
    }
    for (const ExtendedProperty& property : database.properties) {
        Prepared& insert = Kept("INSERT INTO q_extended_property VALUES(?,?,?,?,?,?)");
        insert.Bind(1, database.id).Bind(2, property.securableClass).Bind(3, property.major);
        insert.Bind(4, property.minor).Bind(5, std::string_view(property.name));
        insert.Bind(6, std::string_view(property.value)).Run();
    }
}

void DefinitionSaver::Saver::SavePrincipal(DatabaseId database, const Principal& principal) {
    Prepared& insert = Kept("INSERT INTO q_principal VALUES(?,?,?,?,?,?,?,?,?,?)");
    const char kind = static_cast<char>(principal.kind);
    insert.Bind(1, database).Bind(2, principal.id).Bind(3, std::string_view(principal.name));
    insert.Bind(4, std::string_view(&kind, 1)).Bind(5, std::string_view(principal.login));
    insert.BindBlob(6, principal.sid).Bind(7, std::string_view(principal.defaultSchema));
    insert.Bind(8, principal.fixedRole);
    BindMoment(insert, 9, principal.created);
    BindMoment(insert, 10, principal.modified);
    insert.Run();
    for (const PrincipalId role : principal.memberOf)
        Kept("INSERT INTO q_role_member VALUES(?,?,?)")
            .Bind(1, database)
            .Bind(2, role)
            .Bind(3, principal.id)
            .Run();
}

DefinitionSaver::DefinitionSaver(sqlite3* connection, std::string tables)
    : m_saver(std::make_unique<Saver>(connection, std::move(tables))) {}

DefinitionSaver::~DefinitionSaver() = default;

void DefinitionSaver::Add(const SchemaObject& object) {
    m_saver->SaveObject(object);
}

void DefinitionSaver::Save(const CatalogueEditor& editor) {
    for (const DatabaseId id : editor.ChangedDatabases()) {
        m_saver->DeleteDatabase(id);
        if (const Database* database = editor.Now().FindDatabase(id))
            m_saver->SaveDatabase(*database);
    }
    for (const auto& [id, wasThere] : editor.ChangedObjects()) {
        if (wasThere)
            m_saver->DeleteObject(id);
        if (const auto object = editor.Now().FindObject(id))
            m_saver->SaveObject(*object);
    }
}

} // namespace quillon::practice
