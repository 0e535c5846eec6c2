#include "practice/catalogue/ViewDefinitions.h"

namespace quillon::practice {

namespace {

#define OBJECT_COLUMNS                                                                                       \
    "!name sysname, !object_id int, principal_id int, !schema_id int, !parent_object_id int, !type "         \
    "char(2), "                                                                                              \
    "type_desc nvarchar(60), !create_date datetime, !modify_date datetime, !is_ms_shipped bit, "             \
    "!is_published bit, "                                                                                    \
    "!is_schema_published bit"

#define COLUMN_COLUMNS                                                                                       \
    "!object_id int, name sysname, !column_id int, !system_type_id tinyint, !user_type_id int, !max_length " \
    "smallint, "                                                                                             \
    "!precision tinyint, !scale tinyint, collation_name sysname, is_nullable bit, !is_ansi_padded bit, "     \
    "!is_rowguidcol bit, !is_identity bit, !is_computed bit, !is_filestream bit, is_replicated bit, "        \
    "is_non_sql_subscribed bit, is_merge_published bit, is_dts_replicated bit, !is_xml_document bit, "       \
    "!xml_collection_id int, !default_object_id int, !rule_object_id int, is_sparse bit, is_column_set "     \
    "bit, "                                                                                                  \
    "generated_always_type tinyint, generated_always_type_desc nvarchar(60), encryption_type int, "          \
    "encryption_type_desc nvarchar(64), encryption_algorithm_name sysname, column_encryption_key_id int, "   \
    "column_encryption_key_database_name sysname, is_hidden bit, is_masked bit, graph_type int, "            \
    "graph_type_desc nvarchar(60)"

#define COLUMN_SELECT                                                                                        \
    "SELECT c.object_id, c.name, c.column_id, c.system_type_id, c.user_type_id, c.max_length, c.precision, " \
    "c.scale, "                                                                                              \
    "c.collation_name, c.is_nullable, c.is_ansi_padded, c.is_rowguidcol, c.is_identity, c.is_computed, 0, "  \
    "0, 0, 0, 0, "                                                                                           \
    "0, 0, coalesce((SELECT d.object_id FROM q_default d WHERE d.parent_object_id = c.object_id AND "        \
    "d.parent_column_id = c.column_id), c.default_object_id), c.rule_object_id, 0, 0, 0, 'NOT_APPLICABLE', " \
    "NULL, NULL, NULL, NULL, NULL, 0, 0, NULL, NULL"

constexpr const char* moduleColumns =
    "!object_id int, definition nvarchar(max), uses_ansi_nulls bit, uses_quoted_identifier bit, "
    "is_schema_bound bit, "
    "uses_database_collation bit, is_recompiled bit, null_on_null_input bit, execute_as_principal_id int, "
    "uses_native_compilation bit, inline_type bit, is_inlineable bit";

constexpr const char* moduleSelect =
    "SELECT m.object_id, CASE WHEN m.is_encrypted THEN NULL ELSE m.definition END, m.uses_ansi_nulls, "
    "m.uses_quoted_identifier, m.is_schema_bound, 0, m.is_recompiled, 0, "
    "CASE WHEN m.execute_as GLOB '*[0-9]' THEN CAST(m.execute_as AS INTEGER) END, 0, 0, 0 "
    "FROM q_module m JOIN q_object o ON o.object_id = m.object_id WHERE o.database_id = {db}";

constexpr const char* allObjects =
    "SELECT {object:o} FROM q_object o WHERE o.database_id = {db} AND o.type NOT IN ('AT', 'TT')";

constexpr ViewDefinition rows[] = {
    {"sys", "objects", OBJECT_COLUMNS, allObjects},
    {"sys", "all_objects", OBJECT_COLUMNS, allObjects},
    {"sys", "tables",
     OBJECT_COLUMNS
     ", lob_data_space_id int, filestream_data_space_id int, max_column_id_used int, "
     "lock_on_bulk_load bit, uses_ansi_nulls bit, is_replicated bit, has_replication_filter bit, "
     "is_merge_published bit, is_sync_tran_subscribed bit, has_unchecked_assembly_data bit, "
     "text_in_row_limit int, large_value_types_out_of_row bit, is_tracked_by_cdc bit, "
     "lock_escalation tinyint, lock_escalation_desc nvarchar(60), is_filetable bit, "
     "is_memory_optimized bit, durability tinyint, durability_desc nvarchar(60), temporal_type tinyint, "
     "temporal_type_desc nvarchar(60), history_table_id int, is_remote_data_archive_enabled bit, "
     "is_external bit, history_retention_period int, history_retention_period_unit int, "
     "history_retention_period_unit_desc nvarchar(10), is_node bit, is_edge bit",
     "SELECT {object:o}, 0, NULL, (SELECT max(column_id) FROM q_column c WHERE c.object_id = o.object_id), "
     "0, 1, 0, 0, "
     "0, 0, 0, 0, 0, 0, 0, 'TABLE', 0, 0, 0, 'SCHEMA_AND_DATA', 0, 'NON_TEMPORAL_TABLE', NULL, 0, 0, NULL, "
     "NULL, NULL, 0, 0 "
     "FROM q_object o WHERE o.database_id = {db} AND o.type = 'U'"},
    {"sys", "views",
     OBJECT_COLUMNS ", is_replicated bit, has_replication_filter bit, has_opaque_metadata bit, "
                    "has_unchecked_assembly_data bit, with_check_option bit, is_date_correlation_view bit, "
                    "is_tracked_by_cdc bit",
     "SELECT {object:o}, 0, 0, 0, 0, 0, 0, 0 FROM q_object o WHERE o.database_id = {db} AND o.type = 'V'"},
    {"sys", "procedures",
     OBJECT_COLUMNS ", is_auto_executed bit, is_execution_replicated bit, is_repl_serializable_only bit, "
                    "skips_repl_constraints bit",
     "SELECT {object:o}, o.object_id IN (SELECT object_id FROM q_startup), 0, 0, 0 "
     "FROM q_object o WHERE o.database_id = {db} AND o.type = 'P'"},
    {"sys", "synonyms", OBJECT_COLUMNS ", base_object_name nvarchar(1035)",
     "SELECT {object:o}, t.target FROM q_object o JOIN q_text_object t ON t.object_id = o.object_id "
     "WHERE o.database_id = {db} AND o.type = 'SN'"},
    {"sys", "columns", COLUMN_COLUMNS,
     COLUMN_SELECT " FROM q_column c JOIN q_object o ON o.object_id = c.object_id "
                   "WHERE o.database_id = {db} AND o.type <> 'AT'"},
    {"sys", "all_columns", COLUMN_COLUMNS,
     COLUMN_SELECT " FROM q_column c JOIN q_object o ON o.object_id = c.object_id "
                   "WHERE o.database_id = {db} AND o.type <> 'AT'"},
    {"sys", "computed_columns",
     COLUMN_COLUMNS ", definition nvarchar(max), !uses_database_collation bit, !is_persisted bit",
     COLUMN_SELECT
     ", c.definition, 1, c.is_persisted FROM q_column c JOIN q_object o ON o.object_id = c.object_id "
     "WHERE o.database_id = {db} AND c.is_computed = 1"},
    {"sys", "identity_columns",
     COLUMN_COLUMNS ", seed_value sql_variant, increment_value sql_variant, last_value sql_variant, "
                    "is_not_for_replication bit",
     COLUMN_SELECT ", {int:c.seed_value}, {int:c.increment_value}, {int:i.last_value}, 0 "
                   "FROM q_column c JOIN q_object o ON o.object_id = c.object_id "
                   "LEFT JOIN q_identity i ON i.object_id = c.object_id "
                   "WHERE o.database_id = {db} AND c.is_identity = 1 AND o.type = 'U'"},
    {"sys", "sql_modules", moduleColumns, moduleSelect},
    {"sys", "all_sql_modules", moduleColumns, moduleSelect},
    {"sys", "parameters",
     "!object_id int, name sysname, !parameter_id int, !system_type_id tinyint, !user_type_id int, "
     "!max_length smallint, !precision tinyint, !scale tinyint, !is_output bit, !is_cursor_ref bit, "
     "!has_default_value bit, !is_xml_document bit, default_value sql_variant, !xml_collection_id int, "
     "!is_readonly bit, is_nullable bit, encryption_type int, encryption_type_desc nvarchar(64), "
     "encryption_algorithm_name sysname, column_encryption_key_id int, column_encryption_key_database_name "
     "sysname",
     "SELECT p.object_id, p.name, p.parameter_id, p.system_type_id, p.user_type_id, p.max_length, "
     "p.precision, p.scale, "
     "p.is_output, 0, p.has_default_value, 0, NULL, 0, p.is_readonly, 1, NULL, NULL, NULL, NULL, NULL "
     "FROM q_parameter p JOIN q_object o ON o.object_id = p.object_id WHERE o.database_id = {db}"},
    // What sp_columns and its kin tell of a column, worked out once here.
    {"sys", "q_columns",
     "!object_id int, !column_id int, name sysname, !system_type_id int, !is_nullable bit, !ordinal int, "
     "data_type int, "
     "type_name nvarchar(160), odbc_precision int, length int, odbc_scale int, radix int, column_def "
     "nvarchar(4000), "
     "octets int, ss_data_type int",
     "SELECT c.object_id, c.column_id, c.name, c.system_type_id, c.is_nullable, c.ordinal, {odbc:c}, (SELECT "
     "d.definition "
     "FROM q_default d WHERE d.parent_object_id = c.object_id AND d.parent_column_id = c.column_id), "
     "CASE WHEN c.collation_name IS NOT NULL OR c.system_type_id IN (34, 165, 173, 189) THEN "
     "CASE WHEN c.system_type_id IN (34, 35, 99) OR c.max_length < 0 THEN 2147483647 ELSE c.max_length END "
     "END, "
     "{legacy_type:c.system_type_id} FROM q_column c JOIN q_object o ON o.object_id = c.object_id "
     "WHERE o.database_id = {db}"},
    {"sys", "q_parameters",
     "!object_id int, !parameter_id int, name sysname, !system_type_id int, !is_output bit, data_type int, "
     "type_name nvarchar(160), odbc_precision int, length int, odbc_scale int, radix int, octets int, "
     "ss_data_type int",
     "SELECT p.object_id, p.parameter_id, p.name, p.system_type_id, p.is_output, {odbc:p}, "
     "CASE WHEN p.system_type_id IN (34, 35, 99, 165, 167, 173, 175, 189, 231, 239) THEN "
     "CASE WHEN p.system_type_id IN (34, 35, 99) OR p.max_length < 0 THEN 2147483647 ELSE p.max_length END "
     "END, {legacy_type:p.system_type_id} FROM (SELECT *, 0 AS is_identity FROM q_parameter) p "
     "JOIN q_object o ON o.object_id = p.object_id WHERE o.database_id = {db}"},
    {"sys", "extended_properties",
     "!class tinyint, class_desc nvarchar(60), !major_id int, !minor_id int, !name sysname, value "
     "sql_variant",
     "SELECT p.class, CASE p.class WHEN 0 THEN 'DATABASE' WHEN 1 THEN 'OBJECT_OR_COLUMN' WHEN 2 THEN "
     "'PARAMETER' "
     "WHEN 3 THEN 'SCHEMA' WHEN 6 THEN 'TYPE' ELSE 'INDEX' END, p.major_id, p.minor_id, p.name, "
     "nullif(p.value, '') FROM q_extended_property p WHERE p.database_id = {db} AND (p.class = 0 "
     "OR (p.class = 3 AND EXISTS (SELECT 1 FROM q_schema s WHERE s.database_id = {db} AND s.schema_id = "
     "p.major_id)) "
     "OR (EXISTS (SELECT 1 FROM q_object o WHERE o.object_id = p.major_id) AND (p.minor_id = 0 OR p.class = "
     "2 "
     "OR (p.class = 1 AND EXISTS (SELECT 1 FROM q_column c WHERE c.object_id = p.major_id AND c.column_id = "
     "p.minor_id)) OR (p.class = 7 AND EXISTS (SELECT 1 FROM q_index i WHERE i.object_id = p.major_id AND "
     "i.index_id = p.minor_id)))))"},
    {"sys", "sql_expression_dependencies",
     "!referencing_id int, !referencing_minor_id int, referencing_class tinyint, "
     "referencing_class_desc nvarchar(60), !is_schema_bound_reference bit, referenced_class tinyint, "
     "referenced_class_desc nvarchar(60), referenced_server_name sysname, referenced_database_name "
     "sysname, referenced_schema_name sysname, referenced_entity_name sysname, referenced_id int, "
     "!referenced_minor_id int, !is_caller_dependent bit, !is_ambiguous bit",
     "{references} SELECT id, 0, 1, 'OBJECT_OR_COLUMN', 0, 1, 'OBJECT_OR_COLUMN', NULL, in_database, "
     "in_schema, name, target, 0, in_schema IS NULL AND target IS NULL, 0 FROM r WHERE target IS NOT "
     "NULL OR in_schema IS NOT NULL OR name NOT IN ('inserted', 'deleted')"},
    {"sys", "all_views",
     OBJECT_COLUMNS ", is_replicated bit, has_replication_filter bit, has_opaque_metadata bit, "
                    "has_unchecked_assembly_data bit, with_check_option bit, is_date_correlation_view bit, "
                    "is_tracked_by_cdc bit",
     "SELECT {object:o}, 0, 0, 0, 0, 0, 0, 0 FROM q_object o WHERE o.database_id = {db} AND o.type = 'V'"},
    {"sys", "sequences",
     OBJECT_COLUMNS
     ", start_value sql_variant, increment sql_variant, minimum_value sql_variant, maximum_value "
     "sql_variant, "
     "is_cycling bit, is_cached bit, cache_size int, !system_type_id tinyint, !user_type_id int, !precision "
     "tinyint, "
     "scale tinyint, current_value sql_variant, !is_exhausted bit, last_used_value sql_variant",
     "SELECT {object:o}, 0, 1, 0, 0, 0, 0, 0, 56, 56, 10, 0, 0, 0, 0 FROM q_object o WHERE 0"},
};

} // namespace

std::span<const ViewDefinition> ObjectViews() {
    return rows;
}

} // namespace quillon::practice
