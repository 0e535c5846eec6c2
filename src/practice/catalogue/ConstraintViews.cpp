#include "practice/catalogue/ViewDefinitions.h"

namespace quillon::practice {

namespace {

#define OBJECT_COLUMNS                                                                                       \
    "!name sysname, !object_id int, principal_id int, !schema_id int, !parent_object_id int, !type "         \
    "char(2), "                                                                                              \
    "type_desc nvarchar(60), !create_date datetime, !modify_date datetime, !is_ms_shipped bit, "             \
    "!is_published bit, "                                                                                    \
    "!is_schema_published bit"

// The indexes of each table, and its heap where none is clustered.
#define PARTITIONS                                                                                           \
    "JOIN (SELECT object_id, index_id FROM q_index UNION ALL SELECT h.object_id, 0 FROM q_object h "         \
    "WHERE h.type = 'U' AND NOT EXISTS (SELECT 1 FROM q_index i WHERE i.object_id = h.object_id AND "        \
    "i.is_clustered = 1)) k ON k.object_id = o.object_id"

constexpr const char* eventSelect =
    "SELECT e.object_id, e.type, CASE e.type WHEN 1 THEN 'INSERT' WHEN 2 THEN 'UPDATE' ELSE 'DELETE' END, 1, "
    "e.is_first, "
    "e.is_last, NULL, NULL FROM q_trigger_event e JOIN q_object o ON o.object_id = e.object_id "
    "WHERE o.database_id = {db}";

constexpr const char* eventColumns =
    "!object_id int, !type int, !type_desc nvarchar(60), is_trigger_event bit, is_first bit, is_last bit, "
    "event_group_type int, event_group_type_desc nvarchar(60)";

constexpr ViewDefinition rows[] = {
    {"sys", "indexes",
     "!object_id int, name sysname, !index_id int, !type tinyint, type_desc nvarchar(60), is_unique bit, "
     "data_space_id int, ignore_dup_key bit, is_primary_key bit, is_unique_constraint bit, !fill_factor "
     "tinyint, "
     "is_padded bit, is_disabled bit, is_hypothetical bit, allow_row_locks bit, allow_page_locks bit, "
     "has_filter bit, "
     "filter_definition nvarchar(max), compression_delay int, suppress_dup_key_messages bit, auto_created "
     "bit, "
     "optimize_for_sequential_key bit",
     "SELECT i.object_id, i.name, i.index_id, CASE WHEN i.is_clustered THEN 1 ELSE 2 END, "
     "CASE WHEN i.is_clustered THEN 'CLUSTERED' ELSE 'NONCLUSTERED' END, i.is_unique, 1, i.ignore_dup_key, "
     "i.is_primary_key, i.is_unique_constraint, i.fill_factor, 0, i.is_disabled, 0, 1, 1, "
     "i.filter_definition IS NOT NULL, i.filter_definition, NULL, 0, 0, 0 "
     "FROM q_index i JOIN q_object o ON o.object_id = i.object_id WHERE o.database_id = {db} "
     "UNION ALL SELECT o.object_id, NULL, 0, 0, 'HEAP', 0, 1, 0, 0, 0, 0, 0, 0, 0, 1, 1, 0, NULL, NULL, 0, "
     "0, 0 FROM "
     "q_object o "
     "WHERE o.database_id = {db} AND o.type IN ('U', 'TT') "
     "AND NOT EXISTS (SELECT 1 FROM q_index i WHERE i.object_id = o.object_id AND i.is_clustered = 1)"},
    {"sys", "index_columns",
     "!object_id int, !index_id int, !index_column_id int, !column_id int, !key_ordinal tinyint, "
     "!partition_ordinal tinyint, is_descending_key bit, is_included_column bit",
     "SELECT k.object_id, k.index_id, k.index_column_id, k.column_id, k.key_ordinal, 0, k.is_descending_key, "
     "k.is_included_column FROM q_index_column k JOIN q_object o ON o.object_id = k.object_id "
     "WHERE o.database_id = {db}"},
    {"sys", "key_constraints", OBJECT_COLUMNS ", unique_index_id int, !is_system_named bit, is_enforced bit",
     "SELECT {object:o}, i.index_id, o.is_system_named, 1 FROM q_object o JOIN q_index i ON i.constraint_id "
     "= "
     "o.object_id "
     "WHERE o.database_id = {db} AND o.type IN ('PK', 'UQ')"},
    {"sys", "foreign_keys",
     OBJECT_COLUMNS
     ", referenced_object_id int, key_index_id int, !is_disabled bit, !is_not_for_replication bit, "
     "!is_not_trusted bit, delete_referential_action tinyint, "
     "delete_referential_action_desc nvarchar(60), update_referential_action tinyint, "
     "update_referential_action_desc nvarchar(60), !is_system_named bit",
     "SELECT {object:o}, f.referenced_object_id, f.key_index_id, f.is_disabled, 0, f.is_not_trusted, "
     "f.delete_referential_action, {action:f.delete_referential_action}, f.update_referential_action, "
     "{action:f.update_referential_action}, o.is_system_named "
     "FROM q_object o JOIN q_foreign_key f ON f.object_id = o.object_id WHERE o.database_id = {db}"},
    {"sys", "foreign_key_columns",
     "!constraint_object_id int, !constraint_column_id int, !parent_object_id int, !parent_column_id int, "
     "!referenced_object_id int, !referenced_column_id int",
     "SELECT f.constraint_object_id, f.constraint_column_id, f.parent_object_id, f.parent_column_id, "
     "f.referenced_object_id, f.referenced_column_id FROM q_foreign_key_column f "
     "JOIN q_object o ON o.object_id = f.constraint_object_id WHERE o.database_id = {db}"},
    {"sys", "default_constraints",
     OBJECT_COLUMNS ", !parent_column_id int, definition nvarchar(max), !is_system_named bit",
     "SELECT {object:o}, d.parent_column_id, d.definition, o.is_system_named "
     "FROM q_object o JOIN q_default d ON d.object_id = o.object_id WHERE o.database_id = {db}"},
    {"sys", "check_constraints",
     OBJECT_COLUMNS
     ", !is_disabled bit, !is_not_for_replication bit, !is_not_trusted bit, !parent_column_id int, "
     "definition nvarchar(max), uses_database_collation bit, !is_system_named bit",
     "SELECT {object:o}, c.is_disabled, 0, c.is_not_trusted, c.parent_column_id, c.definition, 1, "
     "o.is_system_named "
     "FROM q_object o JOIN q_check c ON c.object_id = o.object_id WHERE o.database_id = {db}"},
    {"sys", "triggers",
     "!name sysname, !object_id int, !parent_class tinyint, parent_class_desc nvarchar(60), !parent_id int, "
     "!type char(2), type_desc nvarchar(60), !create_date datetime, !modify_date datetime, !is_ms_shipped "
     "bit, "
     "!is_disabled bit, !is_not_for_replication bit, !is_instead_of_trigger bit",
     "SELECT o.name, o.object_id, 1, 'OBJECT_OR_COLUMN', t.parent_object_id, 'TR', 'SQL_TRIGGER', "
     "o.create_date, "
     "o.modify_date, o.is_ms_shipped, t.is_disabled, t.is_not_for_replication, t.is_instead_of_trigger "
     "FROM q_trigger t JOIN q_object o ON o.object_id = t.object_id WHERE o.database_id = {db}"},
    {"sys", "trigger_events", eventColumns, eventSelect},
    {"sys", "events", eventColumns, eventSelect},
    {"sys", "partitions",
     "!partition_id bigint, !object_id int, !index_id int, !partition_number int, !hobt_id bigint, rows "
     "bigint, "
     "data_compression tinyint, data_compression_desc nvarchar(60)",
     "SELECT o.object_id * 256 + k.index_id, o.object_id, k.index_id, 1, o.object_id * 256 + k.index_id, "
     "quillon_row_count(o.object_id), 0, 'NONE' FROM q_object o " PARTITIONS
     " WHERE o.database_id = {db} AND o.type = 'U'"},
    {"sys", "stats",
     "!object_id int, name sysname, !stats_id int, auto_created bit, user_created bit, no_recompute bit, "
     "has_filter bit, "
     "filter_definition nvarchar(max), is_temporary bit, is_incremental bit, has_persisted_sample bit, "
     "stats_generation_method int, stats_generation_method_desc varchar(80)",
     "SELECT i.object_id, i.name, i.index_id, 0, 0, 0, i.filter_definition IS NOT NULL, i.filter_definition, "
     "0, 0, 0, "
     "0, 'Sort based statistics' FROM q_index i JOIN q_object o ON o.object_id = i.object_id "
     "WHERE o.database_id = {db} AND o.type = 'U'"},
    {"sys", "stats_columns", "!object_id int, !stats_id int, !stats_column_id int, !column_id int",
     "SELECT k.object_id, k.index_id, k.key_ordinal, k.column_id FROM q_index_column k "
     "JOIN q_object o ON o.object_id = k.object_id WHERE o.database_id = {db} AND o.type = 'U' AND "
     "k.is_included_column = 0"},
    {"sys", "dm_db_partition_stats",
     "!partition_id bigint, !object_id int, !index_id int, !partition_number int, !in_row_data_page_count "
     "bigint, "
     "!in_row_used_page_count bigint, !in_row_reserved_page_count bigint, !lob_used_page_count bigint, "
     "!lob_reserved_page_count bigint, !row_overflow_used_page_count bigint, "
     "!row_overflow_reserved_page_count bigint, !used_page_count bigint, !reserved_page_count bigint, "
     "!row_count bigint",
     "SELECT o.object_id * 256 + k.index_id, o.object_id, k.index_id, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, "
     "quillon_row_count(o.object_id) FROM q_object o " PARTITIONS
     " WHERE o.database_id = {db} AND o.type = 'U'"},
};

} // namespace

std::span<const ViewDefinition> ConstraintViews() {
    return rows;
}

} // namespace quillon::practice
