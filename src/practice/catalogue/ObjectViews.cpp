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
    "generated_always_type tinyint, generated_always_type_desc nvarchar(60)"

#define COLUMN_SELECT                                                                                        \
    "SELECT c.object_id, c.name, c.column_id, c.system_type_id, c.user_type_id, c.max_length, c.precision, " \
    "c.scale, "                                                                                              \
    "c.collation_name, c.is_nullable, c.is_ansi_padded, c.is_rowguidcol, c.is_identity, c.is_computed, 0, "  \
    "0, 0, 0, 0, "                                                                                           \
    "0, 0, coalesce((SELECT d.object_id FROM q_default d WHERE d.parent_object_id = c.object_id AND "        \
    "d.parent_column_id = c.column_id), c.default_object_id), c.rule_object_id, 0, 0, 0, 'NOT_APPLICABLE'"

constexpr const char* moduleColumns =
    "!object_id int, definition nvarchar(max), uses_ansi_nulls bit, uses_quoted_identifier bit, "
    "is_schema_bound bit, "
    "uses_database_collation bit, is_recompiled bit, null_on_null_input bit, execute_as_principal_id int, "
    "uses_native_compilation bit";

constexpr const char* moduleSelect =
    "SELECT m.object_id, CASE WHEN m.is_encrypted THEN NULL ELSE m.definition END, m.uses_ansi_nulls, "
    "m.uses_quoted_identifier, m.is_schema_bound, 0, m.is_recompiled, 0, NULL, 0 "
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
     "temporal_type_desc nvarchar(60)",
     "SELECT {object:o}, 0, NULL, (SELECT max(column_id) FROM q_column c WHERE c.object_id = o.object_id), "
     "0, 1, 0, 0, "
     "0, 0, 0, 0, 0, 0, 0, 'TABLE', 0, 0, 0, 'SCHEMA_AND_DATA', 0, 'NON_TEMPORAL_TABLE' "
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
     "!is_readonly bit, is_nullable bit",
     "SELECT p.object_id, p.name, p.parameter_id, p.system_type_id, p.user_type_id, p.max_length, "
     "p.precision, p.scale, "
     "p.is_output, 0, p.has_default_value, 0, NULL, 0, p.is_readonly, 1 "
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
    {"sys", "extended_properties",
     "!class tinyint, class_desc nvarchar(60), !major_id int, !minor_id int, !name sysname, value "
     "sql_variant",
     "SELECT 0, NULL, 0, 0, NULL, NULL WHERE 0"},
    {"sys", "sql_expression_dependencies",
     "!referencing_id int, referencing_minor_id int, referenced_schema_name sysname, referenced_entity_name "
     "sysname, "
     "referenced_id int, referenced_minor_id int",
     "SELECT 0, 0, NULL, NULL, 0, 0 WHERE 0"},
};

} // namespace

std::span<const ViewDefinition> ObjectViews() {
    return rows;
}

} // namespace quillon::practice
