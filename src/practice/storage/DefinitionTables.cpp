#include "practice/storage/DefinitionTables.h"

#include "practice/storage/Sqlite.h"

#include <sqlite3.h>

namespace quillon::practice {

namespace {

constexpr const char* tables[] = {
    "q_setting(name TEXT PRIMARY KEY, value)",
    "q_database(database_id INTEGER PRIMARY KEY, name TEXT, owner TEXT, collation_name TEXT, create_date "
    "INTEGER)",
    "q_database_option(database_id INTEGER, name TEXT, value TEXT, PRIMARY KEY(database_id, name))",
    "q_schema(database_id INTEGER, schema_id INTEGER, name TEXT, principal_id INTEGER,"
    " PRIMARY KEY(database_id, schema_id))",
    "q_principal(database_id INTEGER, principal_id INTEGER, name TEXT, type TEXT, login TEXT, sid BLOB,"
    " default_schema_name TEXT, is_fixed_role INTEGER, create_date INTEGER, modify_date INTEGER,"
    " PRIMARY KEY(database_id, principal_id))",
    "q_role_member(database_id INTEGER, role_principal_id INTEGER, member_principal_id INTEGER)",
    "q_permission(database_id INTEGER, class INTEGER, major_id INTEGER, minor_id INTEGER,"
    " grantee_principal_id INTEGER, grantor_principal_id INTEGER, permission_name TEXT, state TEXT)",
    "q_extended_property(database_id INTEGER, class INTEGER, major_id INTEGER, minor_id INTEGER, name TEXT,"
    " value BLOB)",
    "q_object(object_id INTEGER PRIMARY KEY, database_id INTEGER, schema_id INTEGER, parent_object_id "
    "INTEGER,"
    " name TEXT, type TEXT, create_date INTEGER, modify_date INTEGER, is_ms_shipped INTEGER,"
    " is_system_named INTEGER)",
    "q_column(object_id INTEGER, column_id INTEGER, ordinal INTEGER, name TEXT, system_type_id INTEGER,"
    " user_type_id INTEGER, max_length INTEGER, precision INTEGER, scale INTEGER, collation_name TEXT,"
    " is_nullable INTEGER, is_rowguidcol INTEGER, is_identity INTEGER, is_computed INTEGER,"
    " is_ansi_padded INTEGER, default_object_id INTEGER, rule_object_id INTEGER, seed_value INTEGER,"
    " increment_value INTEGER, definition TEXT, is_persisted INTEGER, is_stored INTEGER,"
    " PRIMARY KEY(object_id, column_id))",
    "q_index(object_id INTEGER, index_id INTEGER, name TEXT, is_clustered INTEGER, is_unique INTEGER,"
    " is_primary_key INTEGER, is_unique_constraint INTEGER, constraint_id INTEGER, is_disabled INTEGER,"
    " ignore_dup_key INTEGER, fill_factor INTEGER, filter_definition TEXT, PRIMARY KEY(object_id, index_id))",
    "q_index_column(object_id INTEGER, index_id INTEGER, index_column_id INTEGER, column_id INTEGER,"
    " key_ordinal INTEGER, is_descending_key INTEGER, is_included_column INTEGER,"
    " PRIMARY KEY(object_id, index_id, index_column_id))",
    "q_default(object_id INTEGER PRIMARY KEY, parent_object_id INTEGER, parent_column_id INTEGER,"
    " definition TEXT)",
    "q_check(object_id INTEGER PRIMARY KEY, parent_object_id INTEGER, parent_column_id INTEGER,"
    " definition TEXT, is_disabled INTEGER, is_not_trusted INTEGER)",
    "q_foreign_key(object_id INTEGER PRIMARY KEY, parent_object_id INTEGER, referenced_object_id INTEGER,"
    " key_index_id INTEGER, delete_referential_action INTEGER, update_referential_action INTEGER,"
    " is_disabled INTEGER, is_not_trusted INTEGER)",
    "q_foreign_key_column(constraint_object_id INTEGER, constraint_column_id INTEGER,"
    " parent_object_id INTEGER, parent_column_id INTEGER, referenced_object_id INTEGER,"
    " referenced_column_id INTEGER, PRIMARY KEY(constraint_object_id, constraint_column_id))",
    "q_module(object_id INTEGER PRIMARY KEY, definition TEXT, uses_ansi_nulls INTEGER,"
    " uses_quoted_identifier INTEGER, is_encrypted INTEGER, is_schema_bound INTEGER, is_recompiled INTEGER,"
    " execute_as TEXT)",
    "q_startup(object_id INTEGER PRIMARY KEY)",
    "q_parameter(object_id INTEGER, parameter_id INTEGER, name TEXT, system_type_id INTEGER,"
    " user_type_id INTEGER, max_length INTEGER, precision INTEGER, scale INTEGER, is_output INTEGER,"
    " is_readonly INTEGER, has_default_value INTEGER, PRIMARY KEY(object_id, parameter_id))",
    "q_trigger(object_id INTEGER PRIMARY KEY, parent_object_id INTEGER, is_instead_of_trigger INTEGER,"
    " is_disabled INTEGER, is_not_for_replication INTEGER)",
    "q_trigger_event(object_id INTEGER, type INTEGER, is_first INTEGER, is_last INTEGER,"
    " PRIMARY KEY(object_id, type))",
    "q_text_object(object_id INTEGER PRIMARY KEY, definition TEXT, target TEXT)",
    "q_message(message_id INTEGER, language_id INTEGER, severity INTEGER, is_event_logged INTEGER, text TEXT,"
    " PRIMARY KEY(message_id, language_id))",
    "q_identity(object_id INTEGER PRIMARY KEY, last_value INTEGER)",
};

// What questions about one object are asked by.
constexpr const char* indexes[] = {
    "q_object_name ON q_object(name COLLATE CI_AS)",
    "q_object_parent ON q_object(parent_object_id)",
    "q_check_parent ON q_check(parent_object_id)",
    "q_default_parent ON q_default(parent_object_id)",
    "q_foreign_key_parent ON q_foreign_key(parent_object_id)",
    "q_foreign_key_referenced ON q_foreign_key(referenced_object_id)",
    "q_index_constraint ON q_index(constraint_id)",
    "q_trigger_parent ON q_trigger(parent_object_id)",
};

} // namespace

void CreateDefinitionTables(sqlite3* connection) {
    for (const char* table : tables)
        Prepared(connection, std::string("CREATE TABLE IF NOT EXISTS ") + table).Run();
    for (const char* index : indexes)
        Prepared(connection, std::string("CREATE INDEX IF NOT EXISTS ") + index).Run();
}

std::int64_t LoadSetting(sqlite3* connection, const char* name, std::int64_t otherwise) {
    Prepared find(connection, "SELECT value FROM q_setting WHERE name = ?");
    return find.Bind(1, std::string_view(name)).Step() ? find.Integer(0) : otherwise;
}

void SaveSetting(sqlite3* connection, const char* name, std::int64_t value) {
    Prepared(connection, "INSERT OR REPLACE INTO q_setting VALUES(?, ?)")
        .Bind(1, std::string_view(name))
        .Bind(2, value)
        .Run();
}

} // namespace quillon::practice
