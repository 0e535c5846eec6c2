#include "practice/catalogue/ViewDefinitions.h"

namespace quillon::practice {

namespace {

constexpr const char* fileColumns =
    "!file_id int, file_guid uniqueidentifier, !type tinyint, type_desc nvarchar(60), !data_space_id int, "
    "!name sysname, "
    "physical_name nvarchar(260), state tinyint, state_desc nvarchar(60), !size int, !max_size int, !growth "
    "int, "
    "!is_media_read_only bit, !is_read_only bit, !is_sparse bit, !is_percent_growth bit";

constexpr ViewDefinition rows[] = {
    {"sys", "databases",
     "!name nvarchar(128), !database_id int, source_database_id int, owner_sid varbinary(85), !create_date "
     "datetime, !compatibility_level tinyint, collation_name nvarchar(128), user_access tinyint, "
     "user_access_desc nvarchar(60), is_read_only bit, !is_auto_close_on bit, is_auto_shrink_on bit, "
     "state tinyint, state_desc nvarchar(60), is_in_standby bit, is_cleanly_shutdown bit, "
     "is_supplemental_logging_enabled bit, snapshot_isolation_state tinyint, "
     "snapshot_isolation_state_desc nvarchar(60), is_read_committed_snapshot_on bit, recovery_model "
     "tinyint, recovery_model_desc nvarchar(60), page_verify_option tinyint, page_verify_option_desc "
     "nvarchar(60), is_auto_create_stats_on bit, is_auto_create_stats_incremental_on bit, "
     "is_auto_update_stats_on bit, is_auto_update_stats_async_on bit, is_ansi_null_default_on bit, "
     "is_ansi_nulls_on bit, is_ansi_padding_on bit, is_ansi_warnings_on bit, is_arithabort_on bit, "
     "is_concat_null_yields_null_on bit, is_numeric_roundabort_on bit, is_quoted_identifier_on bit, "
     "is_recursive_triggers_on bit, is_cursor_close_on_commit_on bit, is_local_cursor_default bit, "
     "is_fulltext_enabled bit, is_trustworthy_on bit, is_db_chaining_on bit, "
     "is_parameterization_forced bit, !is_master_key_encrypted_by_server bit, is_query_store_on bit, "
     "!is_published bit, !is_subscribed bit, !is_merge_published bit, !is_distributor bit, "
     "!is_sync_with_backup bit, service_broker_guid uniqueidentifier, !is_broker_enabled bit, "
     "log_reuse_wait tinyint, log_reuse_wait_desc nvarchar(60), !is_date_correlation_on bit, "
     "!is_cdc_enabled bit, is_encrypted bit, is_honor_broker_priority_on bit, replica_id "
     "uniqueidentifier, group_database_id uniqueidentifier, resource_pool_id int, "
     "default_language_lcid smallint, default_language_name nvarchar(128), "
     "default_fulltext_language_lcid int, default_fulltext_language_name nvarchar(128), "
     "is_nested_triggers_on bit, is_transform_noise_words_on bit, two_digit_year_cutoff smallint, "
     "containment tinyint, containment_desc nvarchar(60), target_recovery_time_in_seconds int, "
     "delayed_durability int, delayed_durability_desc nvarchar(60), "
     "is_memory_optimized_elevate_to_snapshot_on bit, is_federation_member bit, "
     "is_remote_data_archive_enabled bit, is_mixed_page_allocation_on bit, "
     "is_temporal_history_retention_enabled bit, catalog_collation_type int, "
     "catalog_collation_type_desc nvarchar(60), physical_database_name nvarchar(128), "
     "is_result_set_caching_on bit, is_accelerated_database_recovery_on bit, "
     "is_tempdb_spill_to_remote_store bit, is_stale_page_detection_on bit, "
     "is_memory_optimized_enabled bit",
     "SELECT d.name, d.database_id, NULL, x'01', d.create_date, "
     "CAST(coalesce({option:COMPATIBILITY_LEVEL}, 150) AS INTEGER), d.collation_name, "
     "{option:SINGLE_USER} IS NOT NULL, "
     "CASE WHEN {option:SINGLE_USER} IS NULL THEN 'MULTI_USER' ELSE 'SINGLE_USER' END, {on:READ_ONLY}, 0, 0, "
     "0, 'ONLINE', 0, 0, 0, 0, 'OFF', 1, CASE {option:RECOVERY} WHEN 'SIMPLE' "
     "THEN 3 WHEN 'BULK_LOGGED' THEN 2 ELSE 1 END, coalesce({option:RECOVERY}, 'FULL'), 2, "
     "'CHECKSUM', 1, 0, 1, 0, {on:ANSI_NULL_DEFAULT}, {on:ANSI_NULLS}, {on:ANSI_PADDING}, "
     "{on:ANSI_WARNINGS}, {on:ARITHABORT}, {on:CONCAT_NULL_YIELDS_NULL}, {on:NUMERIC_ROUNDABORT}, "
     "{on:QUOTED_IDENTIFIER}, {on:RECURSIVE_TRIGGERS}, {on:CURSOR_CLOSE_ON_COMMIT}, 0, 0, "
     "{on:TRUSTWORTHY}, 0, 0, 0, 0, 0, 0, 0, 0, 0, NULL, 0, 0, 'NOTHING', 0, 0, 0, 0, NULL, NULL, "
     "NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 0, 'NONE', 60, 0, 'DISABLED', 0, 0, 0, 0, 0, 0, "
     "'DATABASE_DEFAULT', d.name, 0, 0, 0, 0, 1 FROM q_database d"},
    {"sys", "messages",
     "!message_id int, !language_id smallint, severity tinyint, !is_event_logged bit, !text nvarchar(2048)",
     "SELECT json_extract(value, '$[0]'), 1033, json_extract(value, '$[1]'), 0, json_extract(value, '$[2]') "
     "FROM json_each(quillon_messages()) "
     "UNION ALL SELECT message_id, language_id, severity, is_event_logged, text FROM q_message"},
    {"sys", "configurations",
     "!configuration_id int, !name nvarchar(35), value int, minimum int, maximum int, value_in_use int, "
     "!description nvarchar(255), !is_dynamic bit, !is_advanced bit",
     "SELECT 115, 'nested triggers', 1, 0, 1, 1, 'Allow triggers to be invoked within triggers', 1, 0 UNION "
     "ALL "
     "SELECT 114, 'disallow results from triggers', 0, 0, 1, 0, 'Disallow returning results from triggers', "
     "1, 1 "
     "UNION ALL SELECT 518, 'show advanced options', 0, 0, 1, 0, 'show advanced options', 1, 0 "
     "UNION ALL SELECT 103, 'user connections', 0, 0, 32767, 0, 'Number of user connections allowed', 0, 1"},
    {"sys", "dm_tran_locks",
     "!resource_type nvarchar(60), !resource_subtype nvarchar(60), !resource_database_id int, "
     "!resource_description nvarchar(256), resource_associated_entity_id bigint, !request_mode nvarchar(60), "
     "!request_type nvarchar(60), !request_status nvarchar(60), !request_reference_count smallint, "
     "!request_session_id int, !request_owner_type nvarchar(60)",
     "SELECT {lock:type}, '', coalesce((SELECT o.database_id FROM q_object o WHERE o.object_id = "
     "{lock:object}), nullif({lock:database}, 0), 1), CASE {lock:type} WHEN 'FILE' THEN '1' "
     "WHEN 'APPLICATION' THEN '0:[' || substr({lock:resource}, 1, 32) || ']' ELSE '' END, {lock:object}, "
     "{lock:mode}, 'LOCK', {lock:status}, {lock:count}, {lock:session}, {lock:owner} "
     "FROM json_each(quillon_locks())"},
    {"sys", "database_files", fileColumns,
     "SELECT 1, NULL, 0, 'ROWS', 1, d.name, d.name || '.mdf', 0, 'ONLINE', 1024, -1, 1024, 0, 0, 0, 0 FROM "
     "q_database d "
     "WHERE d.database_id = {db} UNION ALL SELECT 2, NULL, 1, 'LOG', 0, d.name || '_log', d.name || "
     "'_log.ldf', 0, "
     "'ONLINE', 128, -1, 128, 0, 0, 0, 0 FROM q_database d WHERE d.database_id = {db}"},
    {"sys", "filegroups",
     "!name sysname, !data_space_id int, !type char(2), type_desc nvarchar(60), is_default bit, is_read_only "
     "bit",
     "SELECT 'PRIMARY', 1, 'FG', 'ROWS_FILEGROUP', 1, 0"},
    {"sys", "data_spaces",
     "!name sysname, !data_space_id int, !type char(2), type_desc nvarchar(60), is_default bit",
     "SELECT 'PRIMARY', 1, 'FG', 'ROWS_FILEGROUP', 1"},
    {"sys", "servers",
     "!server_id int, !name nvarchar(128), product nvarchar(128), provider nvarchar(128), data_source "
     "nvarchar(4000), "
     "location nvarchar(4000), provider_string nvarchar(4000), catalog nvarchar(128), connect_timeout int, "
     "query_timeout int, !is_linked bit, !is_remote_login_enabled bit, !is_rpc_out_enabled bit, "
     "!is_data_access_enabled bit, !is_collation_compatible bit, !uses_remote_collation bit, "
     "collation_name nvarchar(128), !lazy_schema_validation bit, !is_system bit, !is_publisher bit, "
     "is_subscriber bit, is_distributor bit, is_nonsql_subscriber bit, "
     "is_remote_proc_transaction_promotion_enabled bit, !modify_date datetime, is_rda_server bit",
     "SELECT 0, quillon_server_name(), 'SQL Server', 'SQLNCLI', quillon_server_name(), NULL, NULL, "
     "NULL, 0, 0, 0, 1, 1, 0, 0, 1, NULL, 0, 0, 0, 0, 0, 0, 0, 39812 * 25920000, 0"},
    {"sys", "master_files",
     "!database_id int, !file_id int, file_guid uniqueidentifier, !type tinyint, type_desc nvarchar(60), "
     "!data_space_id int, !name nvarchar(128), !physical_name nvarchar(260), state tinyint, state_desc "
     "nvarchar(60), "
     "!size int, !max_size int, !growth int, !is_media_read_only bit, !is_read_only bit, !is_sparse bit, "
     "!is_percent_growth bit",
     "SELECT d.database_id, 1, NULL, 0, 'ROWS', 1, d.name, d.name || '.mdf', 0, 'ONLINE', 1024, -1, 1024, 0, "
     "0, 0, 0 "
     "FROM q_database d UNION ALL SELECT d.database_id, 2, NULL, 1, 'LOG', 0, d.name || '_log', d.name || "
     "'_log.ldf', "
     "0, 'ONLINE', 128, -1, 128, 0, 0, 0, 0 FROM q_database d"},
};

} // namespace

std::span<const ViewDefinition> ServerViews() {
    return rows;
}

} // namespace quillon::practice
