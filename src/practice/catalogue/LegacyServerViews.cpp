// The older catalogue of the server: databases, logins, processes, messages.
#include "practice/catalogue/ViewDefinitions.h"

namespace quillon::practice {

namespace {

constexpr ViewDefinition rows[] = {
    {"dbo", "sysdatabases",
     "!name nvarchar(128), dbid smallint, sid varbinary(85), mode smallint, status int, status2 int, !crdate "
     "datetime, "
     "reserved datetime, category int, cmptlevel tinyint, filename nvarchar(260), version smallint",
     "SELECT d.name, d.database_id, x'01', 0, CASE WHEN {option:RECOVERY} = 'SIMPLE' THEN 65544 ELSE 65536 "
     "END, "
     "1090519040, d.create_date, 0, 0, CAST(coalesce({option:COMPATIBILITY_LEVEL}, 150) AS INTEGER), d.name "
     "|| '.mdf', 904 FROM q_database d"},
    {"dbo", "syslogins",
     "sid varbinary(85), status smallint, createdate datetime, updatedate datetime, accdate datetime, totcpu "
     "int, "
     "totio int, spacelimit int, timelimit int, resultlimit int, !name nvarchar(128), dbname nvarchar(128), "
     "password "
     "nvarchar(128), "
     "language nvarchar(128), denylogin int, hasaccess int, isntname int, isntgroup int, isntuser int, "
     "sysadmin "
     "int, "
     "securityadmin int, serveradmin int, setupadmin int, processadmin int, diskadmin int, dbcreator int, "
     "bulkadmin int, "
     "!loginname nvarchar(128)",
     "SELECT {sid}, 9, {login:created}, {login:modified}, {login:created}, 0, 0, 0, 0, 0, {login:name}, "
     "{login:database}, NULL, {login:language}, {login:disabled}, NOT {login:disabled}, 0, 0, 0, "
     "{login:administrator}, "
     "0, 0, 0, 0, 0, 0, 0, {login:name} FROM json_each(quillon_logins())"},
    {"dbo", "sysprocesses",
     "!spid smallint, !kpid smallint, !blocked smallint, !waittype binary(2), !waittime bigint, "
     "!lastwaittype nchar(32), "
     "!waitresource nchar(256), !dbid smallint, uid smallint, !cpu int, !physical_io bigint, !memusage int, "
     "!login_time datetime, !last_batch datetime, !ecid smallint, !open_tran smallint, !status nchar(30), "
     "!sid binary(86), !hostname nchar(128), !program_name nchar(128), !hostprocess nchar(10), !cmd "
     "nchar(16), "
     "!nt_domain nchar(128), !nt_username nchar(128), !net_address nchar(12), !net_library nchar(12), "
     "!loginame nchar(128), !context_info binary(128), !sql_handle binary(20), !stmt_start int, !stmt_end "
     "int, "
     "!request_id int, page_resource binary(8)",
     "SELECT {session:id}, 0, {session:blocked}, x'0000', 0, '', '', "
     "coalesce((SELECT d.database_id FROM q_database d WHERE d.name = {session:database}), 1), 1, 0, 0, 0, "
     "{session:login_time}, {session:login_time}, 0, {session:transactions}, {session:status}, x'01', "
     "{session:host}, "
     "{session:program}, {session:process}, 'AWAITING COMMAND', '', '', '', 'TCP/IP', {session:login}, "
     "zeroblob(128), zeroblob(20), 0, 0, 0, NULL "
     "FROM json_each(quillon_sessions())"},
    {"dbo", "sysmessages",
     "!error int, severity tinyint, dlevel smallint, description nvarchar(255), !msglangid smallint",
     "SELECT json_extract(value, '$[0]'), json_extract(value, '$[1]'), 0, substr(json_extract(value, "
     "'$[2]'), 1, 255), "
     "1033 FROM json_each(quillon_messages()) "
     "UNION ALL SELECT message_id, severity, CASE is_event_logged WHEN 1 THEN 128 ELSE 0 END, "
     "substr(text, 1, 255), language_id FROM q_message"},
    {"dbo", "sysservers",
     "!srvid smallint, !srvname nvarchar(128), srvproduct nvarchar(128), !srvnetname char(30)",
     "SELECT 0, quillon_server_name(), NULL, substr(quillon_server_name(), 1, 30)"},
};

} // namespace

std::span<const ViewDefinition> LegacyServerViews() {
    return rows;
}

} // namespace quillon::practice
