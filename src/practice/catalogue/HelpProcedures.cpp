#include "practice/catalogue/ProcedureTexts.h"

namespace quillon::practice {

namespace {

constexpr SystemProcedure rows[] = {
    {"sp_helptext", R"(CREATE PROCEDURE sys.sp_helptext @objname nvarchar(776), @columnname sysname = NULL AS
SET NOCOUNT ON
DECLARE @id int, @db sysname, @text nvarchar(max), @at int, @end int
SELECT @id = OBJECT_ID(@objname), @db = DB_NAME()
IF @id IS NULL
BEGIN
    EXEC sys.q_raise 15009, @objname, @db
    RETURN 1
END
IF @columnname IS NOT NULL
    SELECT @text = definition FROM sys.computed_columns WHERE object_id = @id AND name = @columnname
ELSE
    SELECT @text = OBJECT_DEFINITION(@id)
IF @text IS NULL
BEGIN
    IF EXISTS (SELECT * FROM sys.syscomments WHERE id = @id AND encrypted = 1)
    BEGIN
        EXEC sys.q_raise 15471, @objname
        RETURN 0
    END
    EXEC sys.q_raise 15197, @objname
    RETURN 1
END
CREATE TABLE #lines (n int IDENTITY, Text nvarchar(255))
SET @at = 1
WHILE @at <= LEN(@text + 'x') - 1
BEGIN
    SET @end = CHARINDEX(NCHAR(10), @text, @at)
    IF @end = 0 SET @end = LEN(@text + 'x') - 1
    IF @end - @at >= 255 SET @end = @at + 254
    INSERT #lines (Text) VALUES (SUBSTRING(@text, @at, @end - @at + 1))
    SET @at = @end + 1
END
SELECT Text FROM #lines ORDER BY n
DROP TABLE #lines
)"},
    {"sp_helpdb", R"(CREATE PROCEDURE sys.sp_helpdb @dbname sysname = NULL AS
SET NOCOUNT ON
IF @dbname IS NOT NULL AND DB_ID(@dbname) IS NULL
BEGIN
    EXEC sys.q_raise 15010, @dbname
    RETURN 1
END
SELECT name, db_size = CONVERT(nvarchar(13), '      9.00 MB'), owner = CONVERT(sysname, 'sa'),
    dbid = CONVERT(smallint, database_id), created = CONVERT(nvarchar(11), create_date),
    status = CONVERT(nvarchar(600), 'Status=ONLINE, Updateability=READ_WRITE, UserAccess=MULTI_USER, Recovery='
        + recovery_model_desc), compatibility_level
FROM sys.databases WHERE @dbname IS NULL OR name = @dbname ORDER BY name
)"},
    {"sp_helpindex", R"(CREATE PROCEDURE sys.sp_helpindex @objname nvarchar(776) AS
SET NOCOUNT ON
DECLARE @id int, @db sysname
SELECT @id = OBJECT_ID(@objname), @db = DB_NAME()
IF @id IS NULL
BEGIN
    EXEC sys.q_raise 15009, @objname, @db
    RETURN 1
END
IF NOT EXISTS (SELECT * FROM sys.indexes WHERE object_id = @id AND index_id > 0)
BEGIN
    EXEC sys.q_raise 15472, @objname
    RETURN 0
END
SELECT index_name = i.name, index_description = CONVERT(varchar(210),
    CASE WHEN i.index_id = 1 THEN 'clustered' ELSE 'nonclustered' END + CASE WHEN i.is_unique = 1 THEN ', unique' ELSE ''
    END + CASE WHEN i.is_primary_key = 1 THEN ', primary key' ELSE '' END + CASE WHEN i.is_unique_constraint = 1 THEN
    ', unique key' ELSE '' END + ' located on PRIMARY'),
    index_keys = CONVERT(nvarchar(2078), (SELECT STRING_AGG(c.name + CASE WHEN k.is_descending_key = 1 THEN '(-)' ELSE ''
        END, ', ') FROM sys.index_columns k JOIN sys.columns c ON c.object_id = k.object_id AND c.column_id = k.column_id
        WHERE k.object_id = i.object_id AND k.index_id = i.index_id AND k.is_included_column = 0))
FROM sys.indexes i WHERE i.object_id = @id AND i.index_id > 0 ORDER BY i.name
)"},
    {"sp_helpconstraint",
     R"(CREATE PROCEDURE sys.sp_helpconstraint @objname nvarchar(776), @nomsg varchar(5) = 'msg' AS
SET NOCOUNT ON
DECLARE @id int, @db sysname
SELECT @id = OBJECT_ID(@objname), @db = DB_NAME()
IF @id IS NULL
BEGIN
    EXEC sys.q_raise 15009, @objname, @db
    RETURN 1
END
IF @nomsg <> 'nomsg' SELECT [Object Name] = @objname
SELECT constraint_type = CONVERT(nvarchar(146), CASE o.type WHEN 'PK' THEN 'PRIMARY KEY' WHEN 'UQ' THEN 'UNIQUE'
    WHEN 'F' THEN 'FOREIGN KEY' WHEN 'C' THEN 'CHECK' ELSE 'DEFAULT' END), constraint_name = o.name,
    delete_action = CONVERT(nvarchar(9), ISNULL(f.delete_referential_action_desc, '(n/a)')),
    update_action = CONVERT(nvarchar(9), ISNULL(f.update_referential_action_desc, '(n/a)')),
    status_enabled = CONVERT(varchar(8), CASE WHEN o.type IN ('F', 'C') THEN CASE WHEN
        OBJECTPROPERTY(o.object_id, 'CnstIsDisabled') = 1 THEN 'Disabled' ELSE 'Enabled' END ELSE '(n/a)' END),
    status_for_replication = CONVERT(varchar(19), CASE WHEN o.type IN ('F', 'C') THEN 'Is_For_Replication' ELSE '(n/a)' END),
    constraint_keys = CONVERT(nvarchar(2126), CASE WHEN o.type IN ('PK', 'UQ') THEN (SELECT STRING_AGG(c.name, ', ')
        FROM sys.indexes i JOIN sys.index_columns k ON k.object_id = i.object_id AND k.index_id = i.index_id
        JOIN sys.columns c ON c.object_id = k.object_id AND c.column_id = k.column_id
        WHERE i.object_id = @id AND i.name = o.name AND k.is_included_column = 0)
    WHEN o.type = 'F' THEN (SELECT STRING_AGG(c.name, ', ') FROM sys.foreign_key_columns k
        JOIN sys.columns c ON c.object_id = k.parent_object_id AND c.column_id = k.parent_column_id
        WHERE k.constraint_object_id = o.object_id) ELSE OBJECT_DEFINITION(o.object_id) END)
FROM sys.objects o LEFT JOIN sys.foreign_keys f ON f.object_id = o.object_id
WHERE o.parent_object_id = @id AND o.type IN ('PK', 'UQ', 'F', 'C', 'D') ORDER BY 1, 2
IF NOT EXISTS (SELECT * FROM sys.foreign_keys WHERE referenced_object_id = @id)
    EXEC sys.q_raise 15470, @objname
ELSE
    SELECT [Table is referenced by foreign key] = DB_NAME() + '.' + SCHEMA_NAME(schema_id) + '.' +
        OBJECT_NAME(parent_object_id) + ': ' + name FROM sys.foreign_keys WHERE referenced_object_id = @id
)"},
    {"sp_helptrigger",
     R"(CREATE PROCEDURE sys.sp_helptrigger @tabname nvarchar(776), @triggertype char(6) = NULL AS
SET NOCOUNT ON
DECLARE @id int, @db sysname
SELECT @id = OBJECT_ID(@tabname), @db = DB_NAME()
IF @id IS NULL
BEGIN
    EXEC sys.q_raise 15009, @tabname, @db
    RETURN 1
END
SELECT trigger_name = t.name, trigger_owner = USER_NAME(1),
    isupdate = OBJECTPROPERTY(t.object_id, 'ExecIsUpdateTrigger'),
    isdelete = OBJECTPROPERTY(t.object_id, 'ExecIsDeleteTrigger'),
    isinsert = OBJECTPROPERTY(t.object_id, 'ExecIsInsertTrigger'),
    isafter = OBJECTPROPERTY(t.object_id, 'ExecIsAfterTrigger'),
    isinsteadof = OBJECTPROPERTY(t.object_id, 'ExecIsInsteadOfTrigger'),
    trigger_schema = CONVERT(sysname, OBJECT_SCHEMA_NAME(t.object_id))
FROM sys.triggers t WHERE t.parent_id = @id AND (@triggertype IS NULL
    OR (@triggertype = 'INSERT' AND OBJECTPROPERTY(t.object_id, 'ExecIsInsertTrigger') = 1)
    OR (@triggertype = 'UPDATE' AND OBJECTPROPERTY(t.object_id, 'ExecIsUpdateTrigger') = 1)
    OR (@triggertype = 'DELETE' AND OBJECTPROPERTY(t.object_id, 'ExecIsDeleteTrigger') = 1))
)"},
    {"sp_help", R"(CREATE PROCEDURE sys.sp_help @objname nvarchar(776) = NULL AS
SET NOCOUNT ON
DECLARE @id int, @db sysname, @type char(2)
IF @objname IS NULL
BEGIN
    SELECT Name = o.name, Owner = CONVERT(sysname, USER_NAME(1)), Object_type = CONVERT(nvarchar(31),
        LOWER(REPLACE(o.type_desc, '_', ' '))) FROM sys.objects o ORDER BY 3 DESC, 1
    RETURN 0
END
SELECT @id = OBJECT_ID(@objname), @db = DB_NAME()
IF @id IS NULL
BEGIN
    EXEC sys.q_raise 15009, @objname, @db
    RETURN 1
END
SELECT @type = type FROM sys.objects WHERE object_id = @id
SELECT Name = o.name, Owner = CONVERT(sysname, USER_NAME(1)),
    Type = CONVERT(nvarchar(31), LOWER(REPLACE(o.type_desc, '_', ' '))), Created_datetime = o.create_date
FROM sys.objects o WHERE o.object_id = @id
IF @type IN ('U', 'V', 'TF', 'IF')
    SELECT Column_name = c.name, Type = CONVERT(sysname, TYPE_NAME(c.user_type_id)),
        Computed = CONVERT(varchar(35), CASE WHEN c.is_computed = 1 THEN 'yes' ELSE 'no' END),
        Length = CONVERT(int, c.max_length), Prec = CONVERT(char(5), CASE WHEN c.[precision] > 0 THEN
        CONVERT(varchar(5), c.[precision]) ELSE '' END), Scale = CONVERT(char(5), CASE WHEN c.[precision] > 0 THEN
        CONVERT(varchar(5), c.scale) ELSE '' END),
        Nullable = CONVERT(varchar(35), CASE WHEN c.is_nullable = 1 THEN 'yes' ELSE 'no' END),
        TrimTrailingBlanks = CONVERT(varchar(35), CASE WHEN c.collation_name IS NULL THEN '(n/a)' ELSE 'no' END),
        FixedLenNullInSource = CONVERT(varchar(35), CASE WHEN c.collation_name IS NULL THEN '(n/a)' WHEN c.is_nullable = 1
        THEN 'yes' ELSE 'no' END), Collation = c.collation_name
    FROM sys.columns c WHERE c.object_id = @id ORDER BY c.column_id
IF @type IN ('U', 'V')
BEGIN
    IF EXISTS (SELECT * FROM sys.identity_columns WHERE object_id = @id)
        SELECT [Identity] = name, Seed = IDENT_SEED(@objname), Increment = IDENT_INCR(@objname),
            [Not For Replication] = 0 FROM sys.identity_columns WHERE object_id = @id
    ELSE
        SELECT [Identity] = CONVERT(sysname, 'No identity column defined.'), Seed = CONVERT(numeric(38, 0), NULL),
            Increment = CONVERT(numeric(38, 0), NULL), [Not For Replication] = CONVERT(int, NULL)
    SELECT [RowGuidCol] = ISNULL((SELECT MIN(name) FROM sys.columns WHERE object_id = @id AND is_rowguidcol = 1),
        'No rowguidcol column defined.')
END
IF @type = 'U'
BEGIN
    SELECT Data_located_on_filegroup = 'PRIMARY'
    EXEC sys.sp_helpindex @objname
    EXEC sys.sp_helpconstraint @objname, 'nomsg'
END
IF @type IN ('P', 'FN', 'TF', 'IF') AND EXISTS (SELECT * FROM sys.parameters WHERE object_id = @id)
    SELECT Parameter_name = name, Type = CONVERT(sysname, TYPE_NAME(user_type_id)), Length = CONVERT(int, max_length),
        Prec = CONVERT(int, [precision]), Scale = CONVERT(int, scale), Param_order = parameter_id,
        Collation = CONVERT(sysname, NULL) FROM sys.parameters WHERE object_id = @id ORDER BY parameter_id
)"},
    {"sp_spaceused",
     R"(CREATE PROCEDURE sys.sp_spaceused @objname nvarchar(776) = NULL, @updateusage varchar(5) = 'false' AS
SET NOCOUNT ON
DECLARE @id int, @db sysname
SELECT @id = OBJECT_ID(@objname), @db = DB_NAME()
IF @objname IS NOT NULL AND @id IS NULL
BEGIN
    EXEC sys.q_raise 15009, @objname, @db
    RETURN 1
END
IF @id IS NULL
    SELECT database_name = DB_NAME(), database_size = '9.00 MB', [unallocated space] = '0.00 MB'
ELSE
    SELECT name = OBJECT_NAME(@id), rows = CONVERT(char(20), (SELECT MAX(rows) FROM sys.partitions WHERE object_id = @id)),
        reserved = '0 KB', data = '0 KB', index_size = '0 KB', unused = '0 KB'
)"},
    {"sp_who", R"(CREATE PROCEDURE sys.sp_who @loginame sysname = NULL AS
SET NOCOUNT ON
SELECT spid, ecid, status, loginame, hostname, blk = CONVERT(char(5), blocked), dbname = DB_NAME(dbid), cmd,
    request_id = 0 FROM sys.sysprocesses WHERE @loginame IS NULL OR loginame = @loginame
    OR CONVERT(varchar(10), spid) = @loginame OR @loginame = 'active' ORDER BY spid
)"},
    {"sp_who2", R"(CREATE PROCEDURE sys.sp_who2 @loginame sysname = NULL AS
SET NOCOUNT ON
SELECT SPID = CONVERT(char(5), spid), Status = status, Login = loginame, HostName = hostname, BlkBy = CASE blocked WHEN 0 THEN '  .' ELSE CONVERT(char(5), blocked) END,
    DBName = DB_NAME(dbid), Command = cmd, CPUTime = cpu, DiskIO = physical_io,
    LastBatch = CONVERT(varchar(20), last_batch, 120), ProgramName = program_name, SPID2 = CONVERT(char(5), spid)
FROM sys.sysprocesses WHERE @loginame IS NULL OR loginame = @loginame ORDER BY spid
)"},
};

} // namespace

std::span<const SystemProcedure> HelpProcedures() {
    return rows;
}

} // namespace quillon::practice
