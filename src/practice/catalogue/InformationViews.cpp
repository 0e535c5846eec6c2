// INFORMATION_SCHEMA as the SQL standard names it and the Transact-SQL documentation describes it.
#include "practice/catalogue/ViewDefinitions.h"

namespace quillon::practice {

namespace {

#define TYPE_COLUMNS                                                                                         \
    "DATA_TYPE nvarchar(128), CHARACTER_MAXIMUM_LENGTH int, CHARACTER_OCTET_LENGTH int, NUMERIC_PRECISION "  \
    "tinyint, "                                                                                              \
    "NUMERIC_PRECISION_RADIX smallint, NUMERIC_SCALE int, DATETIME_PRECISION smallint"

constexpr ViewDefinition rows[] = {
    {"INFORMATION_SCHEMA", "SCHEMATA",
     "CATALOG_NAME sysname, !SCHEMA_NAME sysname, SCHEMA_OWNER sysname, DEFAULT_CHARACTER_SET_CATALOG "
     "sysname, "
     "DEFAULT_CHARACTER_SET_SCHEMA sysname, DEFAULT_CHARACTER_SET_NAME sysname",
     "SELECT d.name, s.name, p.name, NULL, NULL, 'iso_1' FROM q_schema s JOIN q_database d USING "
     "(database_id) "
     "LEFT JOIN q_principal p ON p.database_id = s.database_id AND p.principal_id = s.principal_id "
     "WHERE s.database_id = {db}"},
    {"INFORMATION_SCHEMA", "TABLES",
     "TABLE_CATALOG sysname, TABLE_SCHEMA sysname, !TABLE_NAME sysname, TABLE_TYPE varchar(10)",
     "SELECT d.name, s.name, o.name, CASE o.type WHEN 'U' THEN 'BASE TABLE' ELSE 'VIEW' END FROM q_object o "
     "{scope} "
     "WHERE o.database_id = {db} AND o.type IN ('U', 'V')"},
    {"INFORMATION_SCHEMA", "COLUMNS",
     "TABLE_CATALOG sysname, TABLE_SCHEMA sysname, !TABLE_NAME sysname, COLUMN_NAME sysname, "
     "ORDINAL_POSITION int, "
     "COLUMN_DEFAULT nvarchar(4000), IS_NULLABLE varchar(3), " TYPE_COLUMNS
     ", CHARACTER_SET_CATALOG sysname, CHARACTER_SET_SCHEMA sysname, CHARACTER_SET_NAME sysname, "
     "COLLATION_CATALOG sysname, COLLATION_SCHEMA sysname, COLLATION_NAME sysname, DOMAIN_CATALOG sysname, "
     "DOMAIN_SCHEMA sysname, DOMAIN_NAME sysname",
     "SELECT d.name, s.name, o.name, c.name, c.ordinal, (SELECT f.definition FROM q_default f "
     "WHERE f.parent_object_id = c.object_id AND f.parent_column_id = c.column_id), "
     "CASE WHEN c.is_nullable THEN 'YES' ELSE 'NO' END, {type:c}, NULL, NULL, "
     "CASE WHEN c.system_type_id IN (99, 231, 239) THEN 'UNICODE' WHEN c.collation_name IS NOT NULL THEN "
     "'iso_1' END, "
     "NULL, NULL, c.collation_name, NULL, NULL, NULL FROM q_column c JOIN q_object o ON o.object_id = "
     "c.object_id {scope} "
     "WHERE o.database_id = {db} AND o.type IN ('U', 'V')"},
    {"INFORMATION_SCHEMA", "VIEWS",
     "TABLE_CATALOG sysname, TABLE_SCHEMA sysname, !TABLE_NAME sysname, VIEW_DEFINITION nvarchar(4000), "
     "CHECK_OPTION varchar(7), IS_UPDATABLE varchar(2)",
     "SELECT d.name, s.name, o.name, CASE WHEN m.is_encrypted OR length(m.definition) > 4000 THEN NULL "
     "ELSE m.definition END, 'NONE', 'NO' FROM q_object o JOIN q_module m ON m.object_id = o.object_id "
     "{scope} "
     "WHERE o.database_id = {db} AND o.type = 'V'"},
    {"INFORMATION_SCHEMA", "ROUTINES",
     "SPECIFIC_CATALOG sysname, SPECIFIC_SCHEMA sysname, !SPECIFIC_NAME sysname, ROUTINE_CATALOG "
     "sysname, ROUTINE_SCHEMA sysname, !ROUTINE_NAME sysname, ROUTINE_TYPE nvarchar(20), "
     "MODULE_CATALOG sysname, MODULE_SCHEMA sysname, MODULE_NAME sysname, UDT_CATALOG sysname, "
     "UDT_SCHEMA sysname, UDT_NAME sysname, DATA_TYPE nvarchar(128), CHARACTER_MAXIMUM_LENGTH int, "
     "CHARACTER_OCTET_LENGTH int, COLLATION_CATALOG sysname, COLLATION_SCHEMA sysname, COLLATION_NAME "
     "sysname, CHARACTER_SET_CATALOG sysname, CHARACTER_SET_SCHEMA sysname, CHARACTER_SET_NAME "
     "sysname, NUMERIC_PRECISION tinyint, NUMERIC_PRECISION_RADIX smallint, NUMERIC_SCALE int, "
     "DATETIME_PRECISION smallint, INTERVAL_TYPE nvarchar(30), INTERVAL_PRECISION smallint, "
     "TYPE_UDT_CATALOG sysname, TYPE_UDT_SCHEMA sysname, TYPE_UDT_NAME sysname, SCOPE_CATALOG "
     "sysname, SCOPE_SCHEMA sysname, SCOPE_NAME sysname, MAXIMUM_CARDINALITY bigint, DTD_IDENTIFIER "
     "sysname, ROUTINE_BODY nvarchar(30), ROUTINE_DEFINITION nvarchar(4000), EXTERNAL_NAME sysname, "
     "EXTERNAL_LANGUAGE nvarchar(30), PARAMETER_STYLE nvarchar(30), IS_DETERMINISTIC nvarchar(10), "
     "SQL_DATA_ACCESS nvarchar(30), IS_NULL_CALL nvarchar(10), SQL_PATH sysname, SCHEMA_LEVEL_ROUTINE "
     "nvarchar(10), MAX_DYNAMIC_RESULT_SETS smallint, IS_USER_DEFINED_CAST nvarchar(10), "
     "IS_IMPLICITLY_INVOCABLE nvarchar(10), CREATED datetime, LAST_ALTERED datetime",
     "SELECT d.name, s.name, o.name, d.name, s.name, o.name, CASE o.type WHEN 'P' THEN 'PROCEDURE' "
     "ELSE 'FUNCTION' END, NULL, NULL, NULL, NULL, NULL, NULL, {type_text:p}, NULL, NULL, CASE WHEN "
     "p.system_type_id IN (35, 99, 167, 175, 231, 239) THEN d.collation_name END, NULL, NULL, CASE "
     "WHEN p.system_type_id IN (99, 231, 239) THEN 'UNICODE' WHEN p.system_type_id IN (35, 167, 175) "
     "THEN 'iso_1' END, {type_number:p}, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, "
     "'SQL', CASE WHEN m.is_encrypted THEN NULL ELSE substr(m.definition, 1, 4000) END, NULL, NULL, "
     "NULL, 'NO', CASE o.type WHEN 'P' THEN 'MODIFIES' ELSE 'READS' END, CASE o.type WHEN 'FN' THEN "
     "'NO' END, NULL, 'YES', CASE o.type WHEN 'P' THEN -1 ELSE 0 END, 'NO', 'NO', o.create_date, "
     "o.modify_date FROM q_object o JOIN q_module m ON m.object_id = o.object_id {scope} LEFT JOIN "
     "q_parameter p ON p.object_id = o.object_id AND p.parameter_id = 0 WHERE o.database_id = {db} "
     "AND o.type IN ('P', 'FN', 'IF', 'TF')"},
    {"INFORMATION_SCHEMA", "PARAMETERS",
     "SPECIFIC_CATALOG sysname, SPECIFIC_SCHEMA sysname, !SPECIFIC_NAME sysname, !ORDINAL_POSITION "
     "int, PARAMETER_MODE nvarchar(10), IS_RESULT nvarchar(10), AS_LOCATOR nvarchar(10), "
     "PARAMETER_NAME sysname, DATA_TYPE nvarchar(128), CHARACTER_MAXIMUM_LENGTH int, "
     "CHARACTER_OCTET_LENGTH int, COLLATION_CATALOG sysname, COLLATION_SCHEMA sysname, COLLATION_NAME "
     "sysname, CHARACTER_SET_CATALOG sysname, CHARACTER_SET_SCHEMA sysname, CHARACTER_SET_NAME "
     "sysname, NUMERIC_PRECISION tinyint, NUMERIC_PRECISION_RADIX smallint, NUMERIC_SCALE int, "
     "DATETIME_PRECISION smallint, INTERVAL_TYPE nvarchar(30), INTERVAL_PRECISION smallint, "
     "USER_DEFINED_TYPE_CATALOG sysname, USER_DEFINED_TYPE_SCHEMA sysname, USER_DEFINED_TYPE_NAME "
     "sysname, SCOPE_CATALOG sysname, SCOPE_SCHEMA sysname, SCOPE_NAME sysname",
     "SELECT d.name, s.name, o.name, p.parameter_id, CASE WHEN p.parameter_id = 0 THEN 'OUT' WHEN "
     "p.is_output THEN 'INOUT' ELSE 'IN' END, CASE WHEN p.parameter_id = 0 THEN 'YES' ELSE 'NO' END, "
     "'NO', p.name, {type_text:p}, NULL, NULL, CASE WHEN p.system_type_id IN (35, 99, 167, 175, 231, "
     "239) THEN d.collation_name END, NULL, NULL, CASE WHEN p.system_type_id IN (99, 231, 239) THEN "
     "'UNICODE' WHEN p.system_type_id IN (35, 167, 175) THEN 'iso_1' END, {type_number:p}, NULL, "
     "NULL, NULL, NULL, NULL, NULL, NULL, NULL FROM q_parameter p JOIN q_object o ON o.object_id = "
     "p.object_id {scope} WHERE o.database_id = {db}"},
    {"INFORMATION_SCHEMA", "TABLE_CONSTRAINTS",
     "CONSTRAINT_CATALOG sysname, CONSTRAINT_SCHEMA sysname, !CONSTRAINT_NAME sysname, TABLE_CATALOG "
     "sysname, "
     "TABLE_SCHEMA sysname, TABLE_NAME sysname, CONSTRAINT_TYPE varchar(11), !IS_DEFERRABLE varchar(2), "
     "!INITIALLY_DEFERRED varchar(2)",
     "SELECT d.name, s.name, o.name, d.name, s.name, t.name, CASE o.type WHEN 'PK' THEN 'PRIMARY KEY' WHEN "
     "'UQ' THEN "
     "'UNIQUE' WHEN 'F' THEN 'FOREIGN KEY' ELSE 'CHECK' END, 'NO', 'NO' FROM q_object o {scope} "
     "JOIN q_object t ON t.object_id = o.parent_object_id WHERE o.database_id = {db} AND "
     "o.type IN ('PK', 'UQ', 'F', 'C')"},
    {"INFORMATION_SCHEMA", "KEY_COLUMN_USAGE",
     "CONSTRAINT_CATALOG sysname, CONSTRAINT_SCHEMA sysname, !CONSTRAINT_NAME sysname, TABLE_CATALOG "
     "sysname, "
     "TABLE_SCHEMA sysname, !TABLE_NAME sysname, COLUMN_NAME sysname, !ORDINAL_POSITION int",
     "SELECT d.name, s.name, o.name, d.name, s.name, t.name, c.name, k.key_ordinal FROM q_object o {scope} "
     "JOIN q_object t ON t.object_id = o.parent_object_id JOIN q_index i ON i.constraint_id = o.object_id "
     "JOIN q_index_column k ON k.object_id = i.object_id AND k.index_id = i.index_id AND "
     "k.is_included_column = 0 "
     "JOIN q_column c ON c.object_id = k.object_id AND c.column_id = k.column_id "
     "WHERE o.database_id = {db} AND o.type IN ('PK', 'UQ') UNION ALL "
     "SELECT d.name, s.name, o.name, d.name, s.name, t.name, c.name, f.constraint_column_id FROM q_object o "
     "{scope} "
     "JOIN q_object t ON t.object_id = o.parent_object_id "
     "JOIN q_foreign_key_column f ON f.constraint_object_id = o.object_id "
     "JOIN q_column c ON c.object_id = f.parent_object_id AND c.column_id = f.parent_column_id "
     "WHERE o.database_id = {db} AND o.type = 'F'"},
    {"INFORMATION_SCHEMA", "CONSTRAINT_COLUMN_USAGE",
     "TABLE_CATALOG sysname, TABLE_SCHEMA sysname, !TABLE_NAME sysname, COLUMN_NAME sysname, "
     "CONSTRAINT_CATALOG sysname, CONSTRAINT_SCHEMA sysname, !CONSTRAINT_NAME sysname",
     "SELECT d.name, s.name, t.name, c.name, d.name, s.name, o.name FROM q_object o {scope} "
     "JOIN q_object t ON t.object_id = o.parent_object_id JOIN q_index i ON i.constraint_id = o.object_id "
     "JOIN q_index_column k ON k.object_id = i.object_id AND k.index_id = i.index_id AND "
     "k.is_included_column = 0 "
     "JOIN q_column c ON c.object_id = k.object_id AND c.column_id = k.column_id "
     "WHERE o.database_id = {db} AND o.type IN ('PK', 'UQ') UNION ALL "
     "SELECT d.name, s.name, t.name, c.name, d.name, s.name, o.name FROM q_object o {scope} "
     "JOIN q_object t ON t.object_id = o.parent_object_id "
     "JOIN q_foreign_key_column f ON f.constraint_object_id = o.object_id "
     "JOIN q_column c ON c.object_id = f.parent_object_id AND c.column_id = f.parent_column_id "
     "WHERE o.database_id = {db} AND o.type = 'F' UNION ALL "
     "SELECT d.name, s.name, t.name, c.name, d.name, s.name, o.name FROM q_object o {scope} "
     "JOIN q_object t ON t.object_id = o.parent_object_id JOIN q_check k ON k.object_id = o.object_id "
     "JOIN q_column c ON c.object_id = t.object_id AND quillon_mentions(k.definition, c.name, {collation}) "
     "WHERE o.database_id = {db} AND o.type = 'C'"},
    {"INFORMATION_SCHEMA", "CONSTRAINT_TABLE_USAGE",
     "TABLE_CATALOG sysname, TABLE_SCHEMA sysname, !TABLE_NAME sysname, CONSTRAINT_CATALOG sysname, "
     "CONSTRAINT_SCHEMA sysname, !CONSTRAINT_NAME sysname",
     "SELECT d.name, s.name, t.name, d.name, s.name, o.name FROM q_object o {scope} "
     "JOIN q_object t ON t.object_id = o.parent_object_id WHERE o.database_id = {db} AND "
     "o.type IN ('PK', 'UQ', 'F', 'C')"},
    {"INFORMATION_SCHEMA", "REFERENTIAL_CONSTRAINTS",
     "CONSTRAINT_CATALOG sysname, CONSTRAINT_SCHEMA sysname, !CONSTRAINT_NAME sysname, "
     "UNIQUE_CONSTRAINT_CATALOG "
     "sysname, UNIQUE_CONSTRAINT_SCHEMA sysname, UNIQUE_CONSTRAINT_NAME sysname, MATCH_OPTION varchar(7), "
     "UPDATE_RULE varchar(11), DELETE_RULE varchar(11)",
     "SELECT d.name, s.name, o.name, d.name, s.name, i.name, 'SIMPLE', "
     "replace({action:f.update_referential_action}, '_', "
     "' '), replace({action:f.delete_referential_action}, '_', ' ') FROM q_object o {scope} "
     "JOIN q_foreign_key f ON f.object_id = o.object_id LEFT JOIN q_index i ON i.object_id = "
     "f.referenced_object_id "
     "AND i.index_id = f.key_index_id WHERE o.database_id = {db}"},
    {"INFORMATION_SCHEMA", "CHECK_CONSTRAINTS",
     "CONSTRAINT_CATALOG sysname, CONSTRAINT_SCHEMA sysname, !CONSTRAINT_NAME sysname, CHECK_CLAUSE "
     "nvarchar(4000)",
     "SELECT d.name, s.name, o.name, c.definition FROM q_object o {scope} JOIN q_check c ON c.object_id = "
     "o.object_id "
     "WHERE o.database_id = {db}"},
    {"INFORMATION_SCHEMA", "TABLE_PRIVILEGES",
     "GRANTOR sysname, GRANTEE sysname, TABLE_CATALOG sysname, TABLE_SCHEMA sysname, !TABLE_NAME "
     "sysname, PRIVILEGE_TYPE varchar(10), IS_GRANTABLE varchar(3)",
     "SELECT g.name, e.name, d.name, s.name, o.name, p.permission_name, CASE p.state WHEN 'W' THEN "
     "'YES' ELSE 'NO' END FROM q_permission p JOIN q_object o ON o.object_id = p.major_id {scope} "
     "JOIN q_principal g ON g.database_id = p.database_id AND g.principal_id = p.grantor_principal_id "
     "JOIN q_principal e ON e.database_id = p.database_id AND e.principal_id = p.grantee_principal_id "
     "WHERE p.database_id = {db} AND p.class = 1 AND p.minor_id = 0 AND p.state <> 'D' AND o.type IN "
     "('U', 'V') AND p.permission_name IN ('SELECT', 'INSERT', 'UPDATE', 'DELETE', 'REFERENCES')"},
    {"INFORMATION_SCHEMA", "COLUMN_PRIVILEGES",
     "GRANTOR sysname, GRANTEE sysname, TABLE_CATALOG sysname, TABLE_SCHEMA sysname, !TABLE_NAME "
     "sysname, COLUMN_NAME sysname, PRIVILEGE_TYPE varchar(10), IS_GRANTABLE varchar(3)",
     "SELECT g.name, e.name, d.name, s.name, o.name, c.name, p.permission_name, CASE p.state WHEN 'W' "
     "THEN 'YES' ELSE 'NO' END FROM q_permission p JOIN q_object o ON o.object_id = p.major_id "
     "{scope} JOIN q_column c ON c.object_id = o.object_id AND p.minor_id IN (0, c.column_id) JOIN "
     "q_principal g ON g.database_id = p.database_id AND g.principal_id = p.grantor_principal_id JOIN "
     "q_principal e ON e.database_id = p.database_id AND e.principal_id = p.grantee_principal_id "
     "WHERE p.database_id = {db} AND p.class = 1 AND p.state <> 'D' AND o.type IN ('U', 'V') AND "
     "p.permission_name IN ('SELECT', 'INSERT', 'UPDATE', 'REFERENCES')"},
    {"INFORMATION_SCHEMA", "DOMAINS",
     "DOMAIN_CATALOG sysname, DOMAIN_SCHEMA sysname, !DOMAIN_NAME sysname, DATA_TYPE nvarchar(128), "
     "CHARACTER_MAXIMUM_LENGTH int, CHARACTER_OCTET_LENGTH int, COLLATION_CATALOG sysname, "
     "COLLATION_SCHEMA sysname, COLLATION_NAME sysname, CHARACTER_SET_CATALOG sysname, "
     "CHARACTER_SET_SCHEMA sysname, CHARACTER_SET_NAME sysname, NUMERIC_PRECISION tinyint, "
     "NUMERIC_PRECISION_RADIX smallint, NUMERIC_SCALE int, DATETIME_PRECISION smallint, "
     "DOMAIN_DEFAULT nvarchar(4000)",
     "SELECT d.name, s.name, o.name, {type_text:c}, NULL, NULL, CASE WHEN c.system_type_id IN (35, "
     "99, 167, 175, 231, 239) THEN d.collation_name END, NULL, NULL, CASE WHEN c.system_type_id IN "
     "(99, 231, 239) THEN 'UNICODE' WHEN c.system_type_id IN (35, 167, 175) THEN 'iso_1' END, "
     "{type_number:c}, NULL FROM q_object o JOIN q_column c ON c.object_id = o.object_id {scope} "
     "WHERE o.database_id = {db} AND o.type = 'AT'"},
    {"INFORMATION_SCHEMA", "COLUMN_DOMAIN_USAGE",
     "DOMAIN_CATALOG sysname, DOMAIN_SCHEMA sysname, !DOMAIN_NAME sysname, TABLE_CATALOG sysname, "
     "TABLE_SCHEMA sysname, !TABLE_NAME sysname, COLUMN_NAME sysname",
     "SELECT d.name, ds.name, t.name, d.name, s.name, o.name, c.name FROM q_column c JOIN q_object o "
     "ON o.object_id = c.object_id {scope} JOIN q_object t ON t.object_id = c.user_type_id AND t.type "
     "= 'AT' JOIN q_schema ds ON ds.database_id = t.database_id AND ds.schema_id = t.schema_id WHERE "
     "o.database_id = {db} AND o.type = 'U'"},
    {"INFORMATION_SCHEMA", "DOMAIN_CONSTRAINTS",
     "CONSTRAINT_CATALOG sysname, CONSTRAINT_SCHEMA sysname, !CONSTRAINT_NAME sysname, DOMAIN_CATALOG "
     "sysname, DOMAIN_SCHEMA sysname, !DOMAIN_NAME sysname, !IS_DEFERRABLE varchar(2), "
     "!INITIALLY_DEFERRED varchar(2)",
     "SELECT d.name, rs.name, t.name, d.name, s.name, o.name, 'NO', 'NO' FROM q_object o JOIN "
     "q_column c ON c.object_id = o.object_id {scope} JOIN q_object t ON t.object_id = "
     "c.rule_object_id JOIN q_schema rs ON rs.database_id = t.database_id AND rs.schema_id = "
     "t.schema_id WHERE o.database_id = {db} AND o.type = 'AT'"},
    {"INFORMATION_SCHEMA", "VIEW_TABLE_USAGE",
     "VIEW_CATALOG sysname, VIEW_SCHEMA sysname, !VIEW_NAME sysname, TABLE_CATALOG sysname, "
     "TABLE_SCHEMA sysname, !TABLE_NAME sysname",
     "{references} SELECT d.name, s.name, o.name, d.name, ts.name, t.name FROM r JOIN q_object o ON "
     "o.object_id = r.id {scope} JOIN q_object t ON t.object_id = r.target JOIN q_schema ts ON "
     "ts.database_id = t.database_id AND ts.schema_id = t.schema_id WHERE o.type = 'V' AND t.type IN "
     "('U', 'V')"},
    {"INFORMATION_SCHEMA", "SEQUENCES",
     "!SEQUENCE_CATALOG sysname, SEQUENCE_SCHEMA sysname, !SEQUENCE_NAME sysname, DATA_TYPE "
     "nvarchar(128), NUMERIC_PRECISION tinyint, NUMERIC_PRECISION_RADIX smallint, NUMERIC_SCALE int, "
     "START_VALUE sql_variant, MINIMUM_VALUE sql_variant, MAXIMUM_VALUE sql_variant, INCREMENT "
     "sql_variant, CYCLE_OPTION int, DECLARED_DATA_TYPE sysname, DECLARED_NUMERIC_PRECISION tinyint, "
     "DECLARED_NUMERIC_SCALE tinyint",
     "SELECT '', '', '', '', 0, 10, 0, NULL, NULL, NULL, NULL, 0, NULL, NULL, NULL WHERE 0"},
};

} // namespace

std::span<const ViewDefinition> InformationViews() {
    return rows;
}

} // namespace quillon::practice
