// Who is connected and what they run.
#include "practice/catalogue/ViewDefinitions.h"

namespace quillon::practice {

namespace {

constexpr ViewDefinition rows[] = {
    {"sys", "dm_exec_sessions",
     "!session_id smallint, !login_time datetime, host_name nvarchar(128), program_name "
     "nvarchar(128), host_process_id int, client_version int, client_interface_name nvarchar(32), "
     "!security_id varbinary(85), !login_name nvarchar(128), nt_domain nvarchar(128), nt_user_name "
     "nvarchar(128), !status nvarchar(30), context_info varbinary(128), !cpu_time int, !memory_usage "
     "int, !total_scheduled_time int, !total_elapsed_time int, !endpoint_id int, "
     "!last_request_start_time datetime, last_request_end_time datetime, !reads bigint, !writes "
     "bigint, !logical_reads bigint, !is_user_process bit, !text_size int, language nvarchar(128), "
     "date_format nvarchar(3), !date_first smallint, !quoted_identifier bit, !arithabort bit, "
     "!ansi_null_dflt_on bit, !ansi_defaults bit, !ansi_warnings bit, !ansi_padding bit, !ansi_nulls "
     "bit, !concat_null_yields_null bit, !transaction_isolation_level smallint, !lock_timeout int, "
     "!deadlock_priority int, !row_count bigint, !prev_error int, !original_security_id "
     "varbinary(85), !original_login_name nvarchar(128), last_successful_logon datetime, "
     "last_unsuccessful_logon datetime, unsuccessful_logons bigint, !group_id int, !database_id "
     "smallint, authenticating_database_id int, !open_transaction_count int, !page_server_reads bigint",
     "SELECT {session:id}, {session:login_time}, {session:host}, {session:program}, "
     "{session:process}, 7, NULL, x'01', {session:login}, '', '', {session:status}, NULL, 0, 0, 0, 0, "
     "4, {session:login_time}, NULL, 0, 0, 0, 1, {settings}, 0, 0, x'01', {session:login}, NULL, NULL, NULL, "
     "2, coalesce((SELECT "
     "d.database_id FROM q_database d WHERE d.name = {session:database}), 1), 1, "
     "{session:transactions}, 0 FROM json_each(quillon_sessions())"},
    {"sys", "dm_exec_connections",
     "session_id int, most_recent_session_id int, !connect_time datetime, !net_transport "
     "nvarchar(40), protocol_type nvarchar(40), protocol_version int, endpoint_id int, "
     "!encrypt_option nvarchar(40), !auth_scheme nvarchar(40), !node_affinity smallint, num_reads "
     "int, num_writes int, last_read datetime, last_write datetime, net_packet_size int, "
     "client_net_address varchar(48), client_tcp_port int, local_net_address varchar(48), "
     "local_tcp_port int, !connection_id uniqueidentifier, parent_connection_id uniqueidentifier, "
     "most_recent_sql_handle varbinary(64)",
     "SELECT {session:id}, {session:id}, {session:login_time}, 'TCP', 'TSQL', 1946157060, 4, 'FALSE', "
     "'SQL', 0, 0, 0, NULL, NULL, 4096, '127.0.0.1', NULL, '127.0.0.1', NULL, "
     "unhex_bytes(printf('%032X', {session:id})), NULL, NULL FROM json_each(quillon_sessions())"},
    {"sys", "dm_exec_requests",
     "!session_id smallint, !request_id int, !start_time datetime, !status nvarchar(30), !command "
     "nvarchar(32), sql_handle varbinary(64), statement_start_offset int, statement_end_offset int, "
     "plan_handle varbinary(64), !database_id smallint, !user_id int, connection_id uniqueidentifier, "
     "blocking_session_id smallint, wait_type nvarchar(60), !wait_time int, !last_wait_type "
     "nvarchar(60), !wait_resource nvarchar(256), !open_transaction_count int, !open_resultset_count "
     "int, !transaction_id bigint, context_info varbinary(128), !percent_complete real, "
     "!estimated_completion_time bigint, !cpu_time int, !total_elapsed_time int, scheduler_id int, "
     "task_address varbinary(8), !reads bigint, !writes bigint, !logical_reads bigint, !text_size "
     "int, language nvarchar(128), date_format nvarchar(3), !date_first smallint, !quoted_identifier "
     "bit, !arithabort bit, !ansi_null_dflt_on bit, !ansi_defaults bit, !ansi_warnings bit, "
     "!ansi_padding bit, !ansi_nulls bit, !concat_null_yields_null bit, !transaction_isolation_level "
     "smallint, !lock_timeout int, !deadlock_priority int, !row_count bigint, !prev_error int, "
     "!nest_level int, !granted_query_memory int, !executing_managed_code bit",
     "SELECT {session:id}, 0, {session:login_time}, {session:status}, 'SELECT', NULL, 0, -1, NULL, "
     "coalesce((SELECT d.database_id FROM q_database d WHERE d.name = {session:database}), 1), 1, "
     "unhex_bytes(printf('%032X', {session:id})), {session:blocked}, NULL, 0, '', '', "
     "{session:transactions}, 1, 0, "
     "NULL, 0.0, 0, 0, 0, NULL, NULL, 0, 0, 0, {settings}, 0, 0, 0, 0, 0 "
     "FROM json_each(quillon_sessions()) WHERE {session:status} <> "
     "'sleeping'"},
};

} // namespace

std::span<const ViewDefinition> SessionViews() {
    return rows;
}

} // namespace quillon::practice
