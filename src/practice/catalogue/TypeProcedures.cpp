// What ODBC drivers ask about types, parameters and privileges.
#include "practice/catalogue/ProcedureTexts.h"

namespace quillon::practice {

namespace {

constexpr SystemProcedure rows[] = {
    {"sp_datatype_info",
     R"(CREATE PROCEDURE sys.sp_datatype_info @data_type int = 0, @ODBCVer tinyint = 2 AS
SET NOCOUNT ON
SELECT TYPE_NAME = CONVERT(sysname, t.name), DATA_TYPE = CONVERT(smallint, CASE WHEN @ODBCVer >= 3 THEN t.data_type ELSE
    t.older_type END), [PRECISION] = t.prec, LITERAL_PREFIX = CONVERT(varchar(32), t.prefix),
    LITERAL_SUFFIX = CONVERT(varchar(32), t.suffix), CREATE_PARAMS = CONVERT(varchar(32), t.params),
    NULLABLE = CONVERT(smallint, t.nullable), CASE_SENSITIVE = CONVERT(smallint, t.casing),
    SEARCHABLE = CONVERT(smallint, t.searchable), UNSIGNED_ATTRIBUTE = CONVERT(smallint, t.unsigned),
    MONEY = CONVERT(smallint, t.isMoney), AUTO_INCREMENT = CONVERT(smallint, t.increments),
    LOCAL_TYPE_NAME = CONVERT(sysname, t.name), MINIMUM_SCALE = CONVERT(smallint, t.low),
    MAXIMUM_SCALE = CONVERT(smallint, t.high), SQL_DATA_TYPE = CONVERT(smallint, t.sql_type),
    SQL_DATETIME_SUB = CONVERT(smallint, t.sub), NUM_PREC_RADIX = CONVERT(int, t.radix),
    INTERVAL_PRECISION = CONVERT(smallint, NULL), USERTYPE = CONVERT(smallint, t.usertype)
FROM (VALUES
    ('datetimeoffset', -155, -9, 34, '''', '''', 'scale', 1, 0, 3, NULL, 0, NULL, 0, 7, -155, 0, NULL, 0),
    ('time', -154, -9, 16, '''', '''', 'scale', 1, 0, 3, NULL, 0, NULL, 0, 7, -154, 0, NULL, 0),
    ('xml', -152, -152, 0, 'N''', '''', NULL, 1, 1, 0, NULL, 0, NULL, NULL, NULL, -152, NULL, NULL, 0),
    ('sql_variant', -150, -150, 8000, NULL, NULL, NULL, 1, 0, 2, NULL, 0, NULL, 0, 0, -150, NULL, 10, 0),
    ('uniqueidentifier', -11, -11, 36, '''', '''', NULL, 1, 0, 2, NULL, 0, NULL, NULL, NULL, -11, NULL, NULL, 0),
    ('ntext', -10, -10, 1073741823, 'N''', '''', NULL, 1, 0, 1, NULL, 0, NULL, NULL, NULL, -10, NULL, NULL, 0),
    ('nvarchar', -9, -9, 4000, 'N''', '''', 'max length', 1, 0, 3, NULL, 0, NULL, NULL, NULL, -9, NULL, NULL, 0),
    ('sysname', -9, -9, 128, 'N''', '''', NULL, 0, 0, 3, NULL, 0, NULL, NULL, NULL, -9, NULL, NULL, 18),
    ('nchar', -8, -8, 4000, 'N''', '''', 'length', 1, 0, 3, NULL, 0, NULL, NULL, NULL, -8, NULL, NULL, 0),
    ('bit', -7, -7, 1, NULL, NULL, NULL, 1, 0, 2, NULL, 0, NULL, 0, 0, -7, NULL, NULL, 16),
    ('tinyint', -6, -6, 3, NULL, NULL, NULL, 1, 0, 2, 1, 0, 0, 0, 0, -6, NULL, 10, 5),
    ('tinyint identity', -6, -6, 3, NULL, NULL, NULL, 0, 0, 2, 1, 0, 1, 0, 0, -6, NULL, 10, 5),
    ('bigint', -5, -5, 19, NULL, NULL, NULL, 1, 0, 2, 0, 0, 0, 0, 0, -5, NULL, 10, 0),
    ('bigint identity', -5, -5, 19, NULL, NULL, NULL, 0, 0, 2, 0, 0, 1, 0, 0, -5, NULL, 10, 0),
    ('image', -4, -4, 2147483647, '0x', NULL, NULL, 1, 0, 0, NULL, 0, NULL, NULL, NULL, -4, NULL, NULL, 20),
    ('varbinary', -3, -3, 8000, '0x', NULL, 'max length', 1, 0, 2, NULL, 0, NULL, NULL, NULL, -3, NULL, NULL, 4),
    ('binary', -2, -2, 8000, '0x', NULL, 'length', 1, 0, 2, NULL, 0, NULL, NULL, NULL, -2, NULL, NULL, 3),
    ('timestamp', -2, -2, 8, '0x', NULL, NULL, 0, 0, 2, NULL, 0, NULL, NULL, NULL, -2, NULL, NULL, 80),
    ('text', -1, -1, 2147483647, '''', '''', NULL, 1, 0, 1, NULL, 0, NULL, NULL, NULL, -1, NULL, NULL, 19),
    ('char', 1, 1, 8000, '''', '''', 'length', 1, 0, 3, NULL, 0, NULL, NULL, NULL, 1, NULL, NULL, 1),
    ('numeric', 2, 2, 38, NULL, NULL, 'precision,scale', 1, 0, 2, 0, 0, 0, 0, 38, 2, NULL, 10, 10),
    ('numeric() identity', 2, 2, 38, NULL, NULL, 'precision', 0, 0, 2, 0, 0, 1, 0, 0, 2, NULL, 10, 10),
    ('decimal', 3, 3, 38, NULL, NULL, 'precision,scale', 1, 0, 2, 0, 0, 0, 0, 38, 3, NULL, 10, 24),
    ('decimal() identity', 3, 3, 38, NULL, NULL, 'precision', 0, 0, 2, 0, 0, 1, 0, 0, 3, NULL, 10, 24),
    ('money', 3, 3, 19, '$', NULL, NULL, 1, 0, 2, 0, 1, 0, 4, 4, 3, NULL, 10, 11),
    ('smallmoney', 3, 3, 10, '$', NULL, NULL, 1, 0, 2, 0, 1, 0, 4, 4, 3, NULL, 10, 21),
    ('int', 4, 4, 10, NULL, NULL, NULL, 1, 0, 2, 0, 0, 0, 0, 0, 4, NULL, 10, 7),
    ('int identity', 4, 4, 10, NULL, NULL, NULL, 0, 0, 2, 0, 0, 1, 0, 0, 4, NULL, 10, 7),
    ('smallint', 5, 5, 5, NULL, NULL, NULL, 1, 0, 2, 0, 0, 0, 0, 0, 5, NULL, 10, 6),
    ('smallint identity', 5, 5, 5, NULL, NULL, NULL, 0, 0, 2, 0, 0, 1, 0, 0, 5, NULL, 10, 6),
    ('float', 6, 6, 53, NULL, NULL, NULL, 1, 0, 2, 0, 0, 0, NULL, NULL, 6, NULL, 2, 8),
    ('real', 7, 7, 24, NULL, NULL, NULL, 1, 0, 2, 0, 0, 0, NULL, NULL, 7, NULL, 2, 23),
    ('varchar', 12, 12, 8000, '''', '''', 'max length', 1, 0, 3, NULL, 0, NULL, NULL, NULL, 12, NULL, NULL, 2),
    ('date', 91, -9, 10, '''', '''', NULL, 1, 0, 3, NULL, 0, NULL, NULL, 0, 9, 1, NULL, 0),
    ('datetime2', 93, -9, 27, '''', '''', 'scale', 1, 0, 3, NULL, 0, NULL, 0, 7, 9, 3, NULL, 0),
    ('datetime', 93, 11, 23, '''', '''', NULL, 1, 0, 3, NULL, 0, NULL, 3, 3, 9, 3, NULL, 12),
    ('smalldatetime', 93, 11, 16, '''', '''', NULL, 1, 0, 3, NULL, 0, NULL, 0, 0, 9, 3, NULL, 22)
    ) t (name, data_type, older_type, prec, prefix, suffix, params, nullable, casing, searchable, unsigned, isMoney,
        increments, low, high, sql_type, sub, radix, usertype)
WHERE @data_type = 0 OR @data_type = CASE WHEN @ODBCVer >= 3 THEN t.data_type ELSE t.older_type END
ORDER BY 2, 12, 11, t.usertype
)"},
    {"sp_sproc_columns",
     R"(CREATE PROCEDURE sys.sp_sproc_columns @procedure_name nvarchar(390) = '%', @procedure_owner nvarchar(384) = NULL,
    @procedure_qualifier sysname = NULL, @column_name nvarchar(384) = NULL, @ODBCVer int = 2, @fUsePattern bit = 1 AS
SET NOCOUNT ON
IF @procedure_qualifier IS NOT NULL AND @procedure_qualifier <> DB_NAME()
BEGIN
    EXEC sys.q_raise 15250
    RETURN 1
END
SELECT PROCEDURE_QUALIFIER = CONVERT(sysname, DB_NAME()), PROCEDURE_OWNER = CONVERT(sysname, s.name),
    PROCEDURE_NAME = CONVERT(nvarchar(134), o.name + CASE WHEN o.type = 'P' THEN ';1' ELSE ';0' END),
    COLUMN_NAME = CONVERT(sysname, CASE WHEN p.parameter_id = 0 THEN '@RETURN_VALUE' ELSE p.name END),
    COLUMN_TYPE = CONVERT(smallint, CASE WHEN p.parameter_id = 0 THEN 5 WHEN p.is_output = 1 THEN 2 ELSE 1 END),
    DATA_TYPE = CONVERT(smallint, CASE WHEN @ODBCVer >= 3 THEN p.data_type WHEN p.data_type = 93 AND p.system_type_id IN
        (58, 61) THEN 11 WHEN p.data_type IN (91, 93, -154, -155) THEN -9 ELSE p.data_type END),
    TYPE_NAME = CONVERT(sysname, p.type_name), [PRECISION] = p.odbc_precision, LENGTH = p.length,
    SCALE = CONVERT(smallint, p.odbc_scale), RADIX = CONVERT(smallint, p.radix),
    NULLABLE = CONVERT(smallint, CASE WHEN p.parameter_id = 0 AND o.type = 'P' THEN 0 ELSE 1 END),
    REMARKS = CONVERT(varchar(254), NULL), COLUMN_DEF = CONVERT(nvarchar(4000), NULL),
    SQL_DATA_TYPE = CONVERT(smallint, CASE WHEN p.data_type IN (91, 93) THEN 9 ELSE p.data_type END),
    SQL_DATETIME_SUB = CONVERT(smallint, CASE p.data_type WHEN 91 THEN 1 WHEN 93 THEN 3 END),
    CHAR_OCTET_LENGTH = p.octets, ORDINAL_POSITION = CONVERT(int, p.parameter_id),
    IS_NULLABLE = CONVERT(varchar(254), CASE WHEN p.parameter_id = 0 AND o.type = 'P' THEN 'NO' ELSE 'YES' END),
    SS_DATA_TYPE = CONVERT(tinyint, p.ss_data_type)
FROM sys.objects o JOIN sys.schemas s ON s.schema_id = o.schema_id
    JOIN (SELECT object_id, parameter_id, name, system_type_id, is_output, data_type, type_name, odbc_precision, length,
            odbc_scale, radix, octets, ss_data_type FROM sys.q_parameters
        UNION ALL SELECT object_id, 0, NULL, 56, 1, 4, 'int', 10, 4, 0, 10, NULL, 56 FROM sys.procedures) p
        ON p.object_id = o.object_id
WHERE o.type IN ('P', 'FN', 'TF', 'IF') AND o.name LIKE @procedure_name
    AND (@procedure_owner IS NULL OR s.name LIKE @procedure_owner)
    AND (@column_name IS NULL OR CASE WHEN p.parameter_id = 0 THEN '@RETURN_VALUE' ELSE p.name END LIKE @column_name)
ORDER BY 2, 3, 18
)"},
    {"sp_table_privileges",
     R"(CREATE PROCEDURE sys.sp_table_privileges @table_name nvarchar(384), @table_owner nvarchar(384) = NULL,
    @table_qualifier sysname = NULL, @fUsePattern bit = 1 AS
SET NOCOUNT ON
SELECT TABLE_QUALIFIER = CONVERT(sysname, DB_NAME()), TABLE_OWNER = CONVERT(sysname, s.name),
    TABLE_NAME = CONVERT(sysname, o.name), GRANTOR = CONVERT(sysname, p.grantor), GRANTEE = CONVERT(sysname, p.grantee),
    PRIVILEGE = CONVERT(varchar(32), p.privilege), IS_GRANTABLE = CONVERT(varchar(3), p.grantable)
FROM sys.objects o JOIN sys.schemas s ON s.schema_id = o.schema_id
    JOIN (SELECT o.object_id, grantor = 'dbo', grantee = 'dbo', v.privilege, grantable = 'YES' FROM sys.objects o
            CROSS JOIN (VALUES ('DELETE'), ('INSERT'), ('REFERENCES'), ('SELECT'), ('UPDATE')) v (privilege)
        UNION ALL SELECT d.major_id, USER_NAME(d.grantor_principal_id), USER_NAME(d.grantee_principal_id),
            d.permission_name COLLATE database_default, CASE d.state WHEN 'W' THEN 'YES' ELSE 'NO' END FROM sys.database_permissions d
            WHERE d.class = 1 AND d.minor_id = 0 AND d.state <> 'D'
            AND d.permission_name IN ('DELETE', 'INSERT', 'REFERENCES', 'SELECT', 'UPDATE')) p ON p.object_id = o.object_id
WHERE o.type IN ('U', 'V') AND o.name LIKE @table_name AND (@table_owner IS NULL OR s.name LIKE @table_owner)
ORDER BY 1, 2, 3, 6, 4, 5
)"},
    {"sp_column_privileges",
     R"(CREATE PROCEDURE sys.sp_column_privileges @table_name sysname, @table_owner sysname = NULL,
    @table_qualifier sysname = NULL, @column_name nvarchar(384) = NULL AS
SET NOCOUNT ON
SELECT TABLE_QUALIFIER = CONVERT(sysname, DB_NAME()), TABLE_OWNER = CONVERT(sysname, s.name),
    TABLE_NAME = CONVERT(sysname, o.name), COLUMN_NAME = CONVERT(sysname, c.name),
    GRANTOR = CONVERT(sysname, p.grantor), GRANTEE = CONVERT(sysname, p.grantee),
    PRIVILEGE = CONVERT(varchar(32), p.privilege), IS_GRANTABLE = CONVERT(varchar(3), p.grantable)
FROM sys.objects o JOIN sys.schemas s ON s.schema_id = o.schema_id JOIN sys.columns c ON c.object_id = o.object_id
    JOIN (SELECT o.object_id, column_id = 0, grantor = 'dbo', grantee = 'dbo', v.privilege, grantable = 'YES'
            FROM sys.objects o CROSS JOIN (VALUES ('INSERT'), ('REFERENCES'), ('SELECT'), ('UPDATE')) v (privilege)
        UNION ALL SELECT d.major_id, d.minor_id, USER_NAME(d.grantor_principal_id), USER_NAME(d.grantee_principal_id),
            d.permission_name COLLATE database_default, CASE d.state WHEN 'W' THEN 'YES' ELSE 'NO' END FROM sys.database_permissions d
            WHERE d.class = 1 AND d.state <> 'D' AND d.permission_name IN ('INSERT', 'REFERENCES', 'SELECT', 'UPDATE')) p
        ON p.object_id = o.object_id AND p.column_id IN (0, c.column_id)
WHERE o.type IN ('U', 'V') AND o.name = @table_name AND (@table_owner IS NULL OR s.name = @table_owner)
    AND (@column_name IS NULL OR c.name LIKE @column_name)
ORDER BY 4, 7
)"},
};

} // namespace

std::span<const SystemProcedure> TypeProcedures() {
    return rows;
}

} // namespace quillon::practice
