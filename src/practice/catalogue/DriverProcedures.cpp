#include "practice/catalogue/ProcedureTexts.h"

namespace quillon::practice {

namespace {

constexpr SystemProcedure rows[] = {
    {"sp_databases", R"(CREATE PROCEDURE sys.sp_databases AS
SET NOCOUNT ON
SELECT DATABASE_NAME = d.name, DATABASE_SIZE = 9216, REMARKS = CONVERT(varchar(254), NULL)
FROM sys.databases d WHERE HAS_DBACCESS(d.name) = 1 ORDER BY d.name
)"},
    {"sp_tables",
     R"(CREATE PROCEDURE sys.sp_tables @table_name nvarchar(384) = NULL, @table_owner nvarchar(384) = NULL,
    @table_qualifier sysname = NULL, @table_type varchar(100) = NULL, @fUsePattern bit = 1 AS
SET NOCOUNT ON
IF @table_qualifier IS NOT NULL AND @table_qualifier <> DB_NAME() AND @table_qualifier <> '%'
BEGIN
    EXEC sys.q_raise 15250
    RETURN 1
END
SELECT TABLE_QUALIFIER = CONVERT(sysname, DB_NAME()), TABLE_OWNER = CONVERT(sysname, s.name),
    TABLE_NAME = CONVERT(sysname, o.name),
    TABLE_TYPE = CONVERT(varchar(32), CASE WHEN o.type = 'U' THEN 'TABLE' ELSE 'VIEW' END),
    REMARKS = CONVERT(varchar(254), NULL)
FROM sys.objects o JOIN sys.schemas s ON s.schema_id = o.schema_id
WHERE o.type IN ('U', 'V') AND (@table_name IS NULL OR o.name LIKE @table_name)
    AND (@table_owner IS NULL OR s.name LIKE @table_owner)
    AND (@table_type IS NULL OR CHARINDEX(CASE WHEN o.type = 'U' THEN '''TABLE''' ELSE '''VIEW''' END, @table_type) > 0)
ORDER BY 4, 1, 2, 3
)"},
    {"sp_columns",
     R"(CREATE PROCEDURE sys.sp_columns @table_name nvarchar(384), @table_owner nvarchar(384) = NULL,
    @table_qualifier sysname = NULL, @column_name nvarchar(384) = NULL, @ODBCVer int = 2 AS
SET NOCOUNT ON
IF @table_qualifier IS NOT NULL AND @table_qualifier <> DB_NAME()
BEGIN
    EXEC sys.q_raise 15250
    RETURN 1
END
SELECT TABLE_QUALIFIER = CONVERT(sysname, DB_NAME()), TABLE_OWNER = CONVERT(sysname, s.name),
    TABLE_NAME = CONVERT(sysname, o.name), COLUMN_NAME = CONVERT(sysname, c.name),
    DATA_TYPE = CONVERT(smallint, CASE WHEN @ODBCVer >= 3 THEN c.data_type WHEN c.data_type = 93 AND c.system_type_id IN
        (58, 61) THEN 11 WHEN c.data_type IN (91, 93, -154, -155) THEN -9 ELSE c.data_type END),
    TYPE_NAME = CONVERT(sysname, c.type_name), [PRECISION] = c.odbc_precision, LENGTH = c.length,
    SCALE = CONVERT(smallint, c.odbc_scale), RADIX = CONVERT(smallint, c.radix),
    NULLABLE = CONVERT(smallint, c.is_nullable), REMARKS = CONVERT(varchar(254), NULL),
    COLUMN_DEF = CONVERT(nvarchar(4000), c.column_def),
    SQL_DATA_TYPE = CONVERT(smallint, CASE WHEN c.data_type IN (91, 93) THEN 9 ELSE c.data_type END),
    SQL_DATETIME_SUB = CONVERT(smallint, CASE c.data_type WHEN 91 THEN 1 WHEN 93 THEN 3 END),
    CHAR_OCTET_LENGTH = c.octets, ORDINAL_POSITION = c.ordinal,
    IS_NULLABLE = CONVERT(varchar(254), CASE WHEN c.is_nullable = 1 THEN 'YES' ELSE 'NO' END),
    SS_DATA_TYPE = CONVERT(tinyint, c.ss_data_type)
FROM sys.q_columns c JOIN sys.objects o ON o.object_id = c.object_id JOIN sys.schemas s ON s.schema_id = o.schema_id
WHERE o.type IN ('U', 'V', 'TF', 'IF') AND o.name LIKE @table_name
    AND (@table_owner IS NULL OR s.name LIKE @table_owner) AND (@column_name IS NULL OR c.name LIKE @column_name)
ORDER BY 2, 3, 17
)"},
    {"sp_pkeys",
     R"(CREATE PROCEDURE sys.sp_pkeys @table_name sysname, @table_owner sysname = NULL, @table_qualifier sysname = NULL AS
SET NOCOUNT ON
SELECT TABLE_QUALIFIER = CONVERT(sysname, DB_NAME()), TABLE_OWNER = CONVERT(sysname, s.name),
    TABLE_NAME = CONVERT(sysname, o.name), COLUMN_NAME = CONVERT(sysname, c.name),
    KEY_SEQ = CONVERT(smallint, k.key_ordinal), PK_NAME = CONVERT(sysname, i.name)
FROM sys.indexes i JOIN sys.objects o ON o.object_id = i.object_id JOIN sys.schemas s ON s.schema_id = o.schema_id
    JOIN sys.index_columns k ON k.object_id = i.object_id AND k.index_id = i.index_id
    JOIN sys.columns c ON c.object_id = k.object_id AND c.column_id = k.column_id
WHERE i.is_primary_key = 1 AND o.name = @table_name AND (@table_owner IS NULL OR s.name = @table_owner)
ORDER BY 1, 2, 3, 5
)"},
    {"sp_fkeys",
     R"(CREATE PROCEDURE sys.sp_fkeys @pktable_name sysname = NULL, @pktable_owner sysname = NULL,
    @pktable_qualifier sysname = NULL, @fktable_name sysname = NULL, @fktable_owner sysname = NULL,
    @fktable_qualifier sysname = NULL AS
SET NOCOUNT ON
IF @pktable_name IS NULL AND @fktable_name IS NULL
BEGIN
    EXEC sys.q_raise 15252
    RETURN 1
END
SELECT PKTABLE_QUALIFIER = CONVERT(sysname, DB_NAME()), PKTABLE_OWNER = CONVERT(sysname, ps.name),
    PKTABLE_NAME = CONVERT(sysname, p.name), PKCOLUMN_NAME = CONVERT(sysname, pc.name),
    FKTABLE_QUALIFIER = CONVERT(sysname, DB_NAME()), FKTABLE_OWNER = CONVERT(sysname, fs.name),
    FKTABLE_NAME = CONVERT(sysname, t.name), FKCOLUMN_NAME = CONVERT(sysname, fc.name),
    KEY_SEQ = CONVERT(smallint, k.constraint_column_id),
    UPDATE_RULE = CONVERT(smallint, CASE f.update_referential_action WHEN 1 THEN 0 WHEN 0 THEN 1 ELSE
        f.update_referential_action END),
    DELETE_RULE = CONVERT(smallint, CASE f.delete_referential_action WHEN 1 THEN 0 WHEN 0 THEN 1 ELSE
        f.delete_referential_action END),
    FK_NAME = CONVERT(sysname, f.name), PK_NAME = CONVERT(sysname, i.name), DEFERRABILITY = CONVERT(smallint, 7)
FROM sys.foreign_keys f JOIN sys.foreign_key_columns k ON k.constraint_object_id = f.object_id
    JOIN sys.objects p ON p.object_id = f.referenced_object_id JOIN sys.schemas ps ON ps.schema_id = p.schema_id
    JOIN sys.objects t ON t.object_id = f.parent_object_id JOIN sys.schemas fs ON fs.schema_id = t.schema_id
    JOIN sys.columns pc ON pc.object_id = k.referenced_object_id AND pc.column_id = k.referenced_column_id
    JOIN sys.columns fc ON fc.object_id = k.parent_object_id AND fc.column_id = k.parent_column_id
    LEFT JOIN sys.indexes i ON i.object_id = f.referenced_object_id AND i.index_id = f.key_index_id
WHERE (@pktable_name IS NULL OR p.name = @pktable_name) AND (@pktable_owner IS NULL OR ps.name = @pktable_owner)
    AND (@fktable_name IS NULL OR t.name = @fktable_name) AND (@fktable_owner IS NULL OR fs.name = @fktable_owner)
ORDER BY 6, 7, 9
)"},
    {"sp_statistics",
     R"(CREATE PROCEDURE sys.sp_statistics @table_name sysname, @table_owner sysname = NULL, @table_qualifier sysname = NULL,
    @index_name sysname = '%', @is_unique char(1) = 'N', @accuracy char(1) = 'Q' AS
SET NOCOUNT ON
SELECT TABLE_QUALIFIER = CONVERT(sysname, DB_NAME()), TABLE_OWNER = CONVERT(sysname, s.name),
    TABLE_NAME = CONVERT(sysname, o.name), NON_UNIQUE = CONVERT(smallint, NULL), INDEX_QUALIFIER = CONVERT(sysname, NULL),
    INDEX_NAME = CONVERT(sysname, NULL), TYPE = CONVERT(smallint, 0), SEQ_IN_INDEX = CONVERT(smallint, NULL),
    COLUMN_NAME = CONVERT(sysname, NULL), COLLATION = CONVERT(char(1), NULL), CARDINALITY = CONVERT(int, p.rows),
    PAGES = CONVERT(int, 1), FILTER_CONDITION = CONVERT(varchar(128), NULL)
FROM sys.objects o JOIN sys.schemas s ON s.schema_id = o.schema_id JOIN sys.partitions p ON p.object_id = o.object_id
WHERE o.name = @table_name AND p.index_id IN (0, 1) AND (@table_owner IS NULL OR s.name = @table_owner)
UNION ALL
SELECT CONVERT(sysname, DB_NAME()), CONVERT(sysname, s.name), CONVERT(sysname, o.name),
    CONVERT(smallint, CASE WHEN i.is_unique = 1 THEN 0 ELSE 1 END), CONVERT(sysname, o.name), CONVERT(sysname, i.name),
    CONVERT(smallint, CASE WHEN i.index_id = 1 THEN 1 ELSE 3 END), CONVERT(smallint, k.key_ordinal),
    CONVERT(sysname, c.name), CONVERT(char(1), CASE WHEN k.is_descending_key = 1 THEN 'D' ELSE 'A' END), NULL, NULL, NULL
FROM sys.indexes i JOIN sys.objects o ON o.object_id = i.object_id JOIN sys.schemas s ON s.schema_id = o.schema_id
    JOIN sys.index_columns k ON k.object_id = i.object_id AND k.index_id = i.index_id AND k.is_included_column = 0
    JOIN sys.columns c ON c.object_id = k.object_id AND c.column_id = k.column_id
WHERE o.name = @table_name AND (@table_owner IS NULL OR s.name = @table_owner) AND i.name LIKE @index_name
    AND (@is_unique <> 'Y' OR i.is_unique = 1)
ORDER BY 4, 7, 6, 8
)"},
    {"sp_special_columns",
     R"(CREATE PROCEDURE sys.sp_special_columns @table_name sysname, @table_owner sysname = NULL, @qualifier sysname = NULL,
    @col_type char(1) = 'R', @scope char(1) = 'T', @nullable char(1) = 'U', @ODBCVer int = 2 AS
SET NOCOUNT ON
SELECT SCOPE = CONVERT(smallint, CASE WHEN @col_type = 'V' THEN NULL ELSE 1 END), COLUMN_NAME = CONVERT(sysname, c.name),
    DATA_TYPE = CONVERT(smallint, c.data_type), TYPE_NAME = CONVERT(sysname, c.type_name), [PRECISION] = c.odbc_precision,
    LENGTH = c.length, SCALE = CONVERT(smallint, c.odbc_scale), PSEUDO_COLUMN = CONVERT(smallint, 1)
FROM sys.q_columns c JOIN sys.objects o ON o.object_id = c.object_id JOIN sys.schemas s ON s.schema_id = o.schema_id
WHERE o.name = @table_name AND (@table_owner IS NULL OR s.name = @table_owner)
    AND ((@col_type = 'V' AND c.system_type_id = 189) OR (@col_type <> 'V' AND EXISTS (SELECT * FROM sys.index_columns k
        JOIN sys.indexes i ON i.object_id = k.object_id AND i.index_id = k.index_id
        WHERE i.is_primary_key = 1 AND k.object_id = c.object_id AND k.column_id = c.column_id)))
)"},
    {"sp_stored_procedures",
     R"(CREATE PROCEDURE sys.sp_stored_procedures @sp_name nvarchar(390) = NULL, @sp_owner nvarchar(384) = NULL,
    @sp_qualifier sysname = NULL, @fUsePattern bit = 1 AS
SET NOCOUNT ON
SELECT PROCEDURE_QUALIFIER = CONVERT(sysname, DB_NAME()), PROCEDURE_OWNER = CONVERT(sysname, s.name),
    PROCEDURE_NAME = CONVERT(nvarchar(134), o.name + CASE WHEN o.type = 'P' THEN ';1' ELSE ';0' END),
    NUM_INPUT_PARAMS = -1, NUM_OUTPUT_PARAMS = -1, NUM_RESULT_SETS = -1, REMARKS = CONVERT(varchar(254), NULL),
    PROCEDURE_TYPE = CONVERT(smallint, 2)
FROM sys.objects o JOIN sys.schemas s ON s.schema_id = o.schema_id
WHERE o.type IN ('P', 'FN', 'TF', 'IF') AND (@sp_name IS NULL OR o.name LIKE @sp_name)
    AND (@sp_owner IS NULL OR s.name LIKE @sp_owner)
ORDER BY 1, 2, 3
)"},
    {"sp_server_info", R"(CREATE PROCEDURE sys.sp_server_info @attribute_id int = NULL AS
SET NOCOUNT ON
SELECT * FROM (
    SELECT attribute_id = 1, attribute_name = 'DBMS_NAME', attribute_value = 'Quillon Practice Server' UNION ALL
    SELECT 2, 'DBMS_VER', CONVERT(varchar(254), SERVERPROPERTY('ProductVersion')) UNION ALL
    SELECT 10, 'OWNER_TERM', 'owner' UNION ALL SELECT 11, 'TABLE_TERM', 'table' UNION ALL
    SELECT 12, 'MAX_OWNER_NAME_LENGTH', '128' UNION ALL SELECT 13, 'TABLE_LENGTH', '128' UNION ALL
    SELECT 14, 'MAX_QUAL_LENGTH', '128' UNION ALL SELECT 15, 'COLUMN_LENGTH', '128' UNION ALL
    SELECT 16, 'IDENTIFIER_CASE', 'MIXED' UNION ALL SELECT 17, 'TX_ISOLATION', '2' UNION ALL
    SELECT 18, 'COLLATION_SEQ', 'charset=iso_1') i
WHERE @attribute_id IS NULL OR attribute_id = @attribute_id
)"},
};

} // namespace

std::span<const SystemProcedure> DriverProcedures() {
    return rows;
}

} // namespace quillon::practice
