#include "practice/catalogue/ViewDefinitions.h"

namespace quillon::practice {

namespace {

constexpr ViewDefinition rows[] = {
    {"sys", "schemas", "!name sysname, !schema_id int, principal_id int",
     "SELECT name, schema_id, principal_id FROM q_schema WHERE database_id = {db}"},
    {"sys", "database_principals",
     "!name sysname, !principal_id int, !type char(1), type_desc nvarchar(60), default_schema_name sysname, "
     "!create_date datetime, !modify_date datetime, owning_principal_id int, sid varbinary(85), "
     "!is_fixed_role bit, "
     "!authentication_type int, authentication_type_desc nvarchar(60), default_language_name sysname, "
     "default_language_lcid int, !allow_encrypted_value_modifications bit",
     "SELECT p.name, p.principal_id, p.type, CASE p.type WHEN 'R' THEN 'DATABASE_ROLE' WHEN 'U' THEN "
     "'WINDOWS_USER' "
     "ELSE 'SQL_USER' END, nullif(p.default_schema_name, ''), p.create_date, p.modify_date, "
     "CASE WHEN p.type = 'R' THEN 1 END, {principal_sid}, p.is_fixed_role, "
     "CASE WHEN p.type = 'R' OR p.login = '' THEN 0 ELSE 1 END, "
     "CASE WHEN p.type = 'R' OR p.login = '' THEN 'NONE' ELSE 'INSTANCE' END, NULL, NULL, 0 "
     "FROM q_principal p WHERE p.database_id = {db}"},
    {"sys", "database_role_members", "!role_principal_id int, !member_principal_id int",
     "SELECT role_principal_id, member_principal_id FROM q_role_member WHERE database_id = {db}"},
    {"sys", "database_permissions",
     "!class tinyint, class_desc nvarchar(60), !major_id int, !minor_id int, !grantee_principal_id int, "
     "!grantor_principal_id int, !type char(4), permission_name nvarchar(128), !state char(1), state_desc "
     "nvarchar(60)",
     "SELECT p.class, CASE p.class WHEN 0 THEN 'DATABASE' WHEN 3 THEN 'SCHEMA' WHEN 6 THEN 'TYPE' ELSE "
     "'OBJECT_OR_COLUMN' END, "
     "p.major_id, "
     "p.minor_id, p.grantee_principal_id, p.grantor_principal_id, "
     "CASE p.permission_name WHEN 'SELECT' THEN 'SL  ' WHEN 'INSERT' THEN 'IN  ' WHEN 'UPDATE' THEN 'UP  ' "
     "WHEN 'DELETE' THEN 'DL  ' WHEN 'EXECUTE' THEN 'EX  ' WHEN 'REFERENCES' THEN 'RF  ' WHEN 'CONTROL' THEN "
     "'CL  ' "
     "WHEN 'ALTER' THEN 'AL  ' WHEN 'CONNECT' THEN 'CO  ' WHEN 'VIEW DEFINITION' THEN 'VW  ' ELSE '    ' "
     "END, "
     "p.permission_name, p.state, CASE p.state WHEN 'D' THEN 'DENY' WHEN 'W' THEN 'GRANT_WITH_GRANT_OPTION' "
     "WHEN 'R' THEN 'REVOKE' ELSE 'GRANT' END FROM q_permission p WHERE p.database_id = {db}"},
    {"sys", "server_principals",
     "!name nvarchar(128), !principal_id int, sid varbinary(85), !type char(1), type_desc nvarchar(60), "
     "is_disabled bit, "
     "!create_date datetime, !modify_date datetime, default_database_name nvarchar(128), "
     "default_language_name "
     "nvarchar(128), "
     "credential_id int, owning_principal_id int, !is_fixed_role bit",
     "SELECT {login:name}, {login:id}, {sid}, 'S', 'SQL_LOGIN', {login:disabled}, {login:created}, "
     "{login:modified}, "
     "{login:database}, {login:language}, NULL, NULL, 0 FROM json_each(quillon_logins()) "
     "UNION ALL SELECT 'public', 2, x'02', 'R', 'SERVER_ROLE', 0, 39812 * 25920000, 39812 * 25920000, NULL, "
     "NULL, NULL, "
     "1, 0 UNION ALL SELECT 'sysadmin', 3, x'03', 'R', 'SERVER_ROLE', 0, 39812 * 25920000, 39812 * 25920000, "
     "NULL, NULL, "
     "NULL, 1, 1"},
    {"sys", "sql_logins",
     "!name nvarchar(128), !principal_id int, sid varbinary(85), !type char(1), type_desc nvarchar(60), "
     "is_disabled bit, "
     "!create_date datetime, !modify_date datetime, default_database_name nvarchar(128), "
     "default_language_name "
     "nvarchar(128), credential_id int, is_policy_checked bit, is_expiration_checked bit, password_hash "
     "varbinary(256)",
     "SELECT {login:name}, {login:id}, {sid}, 'S', 'SQL_LOGIN', {login:disabled}, {login:created}, "
     "{login:modified}, "
     "{login:database}, {login:language}, NULL, 0, 0, NULL FROM json_each(quillon_logins())"},
    {"sys", "server_role_members", "!role_principal_id int, !member_principal_id int",
     "SELECT 3, {login:id} FROM json_each(quillon_logins()) WHERE {login:administrator}"},
};

} // namespace

std::span<const ViewDefinition> SecurityViews() {
    return rows;
}

} // namespace quillon::practice
