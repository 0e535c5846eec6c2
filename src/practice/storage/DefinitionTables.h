// The definitions as they lie in the data file: SQLite tables whose names begin with q_. Written in the same
// transaction as the DDL that changes them, read once when the store opens. The system views select from
// them, so their columns are named and coded as those of the views (types as in sys.types, actions as in
// sys.foreign_keys, dates in the storage form of datetime).
#pragma once

#include "practice/storage/Catalogue.h"

struct sqlite3;

namespace quillon::practice {

//   q_setting(name, value)                              counters and the format's number
//   q_database(database_id, name, owner, collation_name, create_date)
//   q_database_option(database_id, name, value)
//   q_schema(database_id, schema_id, name, principal_id)
//   q_principal(database_id, principal_id, name, type, login, sid, default_schema_name, is_fixed_role,
//               create_date, modify_date)
//   q_role_member(database_id, role_principal_id, member_principal_id)
//   q_extended_property(database_id, class, major_id, minor_id, name, value)
//   q_permission(database_id, class, major_id, minor_id, grantee_principal_id, grantor_principal_id,
//                permission_name, state)
//   q_object(object_id, database_id, schema_id, parent_object_id, name, type, create_date, modify_date,
//            is_ms_shipped, is_system_named)              constraints too
//   q_column(object_id, column_id, ordinal, name, system_type_id, user_type_id, max_length, precision, scale,
//            collation_name, is_nullable, is_rowguidcol, is_identity, is_computed, is_ansi_padded,
//            default_object_id, rule_object_id, seed_value, increment_value, definition, is_persisted,
//            is_stored)                                   of tables, table types, views, table functions
//   q_index(object_id, index_id, name, is_clustered, is_unique, is_primary_key, is_unique_constraint,
//           constraint_id, is_disabled, ignore_dup_key, fill_factor, filter_definition)
//   q_index_column(object_id, index_id, index_column_id, column_id, key_ordinal, is_descending_key,
//                  is_included_column)
//   q_default(object_id, parent_object_id, parent_column_id, definition)
//   q_check(object_id, parent_object_id, parent_column_id, definition, is_disabled, is_not_trusted)
//   q_foreign_key(object_id, parent_object_id, referenced_object_id, key_index_id, delete_referential_action,
//                 update_referential_action, is_disabled, is_not_trusted)
//   q_foreign_key_column(constraint_object_id, constraint_column_id, parent_object_id, parent_column_id,
//                        referenced_object_id, referenced_column_id)
//   q_module(object_id, definition, uses_ansi_nulls, uses_quoted_identifier, is_encrypted, is_schema_bound,
//            is_recompiled, execute_as)
//   q_parameter(object_id, parameter_id, name, system_type_id, user_type_id, max_length, precision, scale,
//               is_output, is_readonly, has_default_value) parameter 0 is the result of a scalar function
//   q_trigger(object_id, parent_object_id, is_instead_of_trigger, is_disabled, is_not_for_replication)
//   q_trigger_event(object_id, type, is_first, is_last)
//   q_text_object(object_id, definition, target)          definition: expression; target: of synonyms
//   q_message(message_id, language_id, severity, is_event_logged, text)
//   q_identity(object_id, last_value)
void CreateDefinitionTables(sqlite3* connection);

// Everything, as it is in the file.
std::shared_ptr<const Catalogue> LoadCatalogue(sqlite3* connection, std::uint64_t version);

// Writes definitions over one connection, which outlives it.
class DefinitionSaver {
  public:
    // `tables` is what the names of the tables begin with.
    explicit DefinitionSaver(sqlite3* connection, std::string tables = "q_");
    ~DefinitionSaver();
    DefinitionSaver(const DefinitionSaver&) = delete;
    DefinitionSaver& operator=(const DefinitionSaver&) = delete;
    // Brings the rows of what the editor changed in step with it.
    void Save(const CatalogueEditor& editor);
    void Add(const SchemaObject& object);

  private:
    class Saver;
    std::unique_ptr<Saver> m_saver;
};

// q_setting
std::int64_t LoadSetting(sqlite3* connection, const char* name, std::int64_t otherwise);
void SaveSetting(sqlite3* connection, const char* name, std::int64_t value);

} // namespace quillon::practice
