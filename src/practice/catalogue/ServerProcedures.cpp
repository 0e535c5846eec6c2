// What administrators run over a whole server or database.
#include "practice/catalogue/ProcedureTexts.h"

namespace quillon::practice {

namespace {

// The rest of sp_MSforeachtable and sp_MSforeachdb, which have made the cursor.
#define FOR_EACH_NAME                                                                                        \
    "OPEN names\n"                                                                                           \
    "FETCH names INTO @name\n"                                                                               \
    "WHILE @@FETCH_STATUS = 0\n"                                                                             \
    "BEGIN\n"                                                                                                \
    "    SET @text = REPLACE(@command1, @replacechar, @name)\n"                                              \
    "    EXEC (@text)\n"                                                                                     \
    "    SET @text = REPLACE(@command2, @replacechar, @name)\n"                                              \
    "    IF @text IS NOT NULL EXEC (@text)\n"                                                                \
    "    SET @text = REPLACE(@command3, @replacechar, @name)\n"                                              \
    "    IF @text IS NOT NULL EXEC (@text)\n"                                                                \
    "    FETCH names INTO @name\n"                                                                           \
    "END\n"                                                                                                  \
    "CLOSE names\n"                                                                                          \
    "DEALLOCATE names\n"                                                                                     \
    "IF @postcommand IS NOT NULL EXEC (@postcommand)\n"

constexpr SystemProcedure rows[] = {
    {"xp_msver", R"(CREATE PROCEDURE sys.xp_msver @optname sysname = NULL AS
SET NOCOUNT ON
DECLARE @version nvarchar(30)
SET @version = CONVERT(nvarchar(30), SERVERPROPERTY('ProductVersion'))
SELECT [Index], Name, Internal_Value, Character_Value FROM (
    SELECT [Index] = CONVERT(smallint, 1), Name = CONVERT(sysname, 'ProductName'), Internal_Value = CONVERT(int, NULL),
        Character_Value = CONVERT(nvarchar(256), 'Quillon Practice Server') UNION ALL
    SELECT 2, 'ProductVersion', CONVERT(int, PARSENAME(@version, 4)) * 65536 + CONVERT(int, PARSENAME(@version, 3)),
        @version UNION ALL
    SELECT 3, 'Language', 1033, 'English (United States)' UNION ALL
    SELECT 4, 'Platform', NULL, 'NT x64' UNION ALL
    SELECT 9, 'FileVersion', NULL, @version UNION ALL
    SELECT 10, 'InternalName', NULL, 'quillon-practice') v
WHERE @optname IS NULL OR Name = @optname ORDER BY [Index]
)"},
    {"sp_helpfile", R"(CREATE PROCEDURE sys.sp_helpfile @filename sysname = NULL AS
SET NOCOUNT ON
IF @filename IS NOT NULL AND NOT EXISTS (SELECT * FROM sys.sysfiles WHERE name = @filename)
BEGIN
    EXEC sys.q_raise 15325, @filename
    RETURN 1
END
SELECT name, fileid, filename, filegroup = CASE WHEN groupid = 1 THEN CONVERT(sysname, 'PRIMARY') END,
    size = CONVERT(nvarchar(18), CONVERT(nvarchar(15), CONVERT(bigint, size) * 8) + N' KB'),
    maxsize = CONVERT(nvarchar(18), N'Unlimited'),
    growth = CONVERT(nvarchar(18), CONVERT(nvarchar(15), CONVERT(bigint, growth) * 8) + N' KB'),
    usage = CONVERT(varchar(9), CASE WHEN groupid = 0 THEN 'log only' ELSE 'data only' END)
FROM sys.sysfiles WHERE @filename IS NULL OR name = @filename ORDER BY fileid
)"},
    {"sp_depends", R"(CREATE PROCEDURE sys.sp_depends @objname nvarchar(776) AS
SET NOCOUNT ON
DECLARE @id int, @db sysname, @found bit
SELECT @id = OBJECT_ID(@objname), @db = DB_NAME(), @found = 0
IF @id IS NULL
BEGIN
    EXEC sys.q_raise 15009, @objname, @db
    RETURN 1
END
IF EXISTS (SELECT * FROM sys.sysdepends WHERE id = @id)
BEGIN
    EXEC sys.q_raise 15459
    SELECT name = s.name + '.' + o.name, type = LOWER(REPLACE(o.type_desc, '_', ' ')),
        updated = CONVERT(varchar(7), CASE WHEN d.resultobj = 1 THEN 'yes' ELSE 'no' END),
        selected = CONVERT(varchar(8), CASE WHEN d.readobj = 1 THEN 'yes' ELSE 'no' END), [column] = CONVERT(sysname, NULL)
    FROM sys.sysdepends d JOIN sys.objects o ON o.object_id = d.depid JOIN sys.schemas s ON s.schema_id = o.schema_id
    WHERE d.id = @id ORDER BY 1
    SET @found = 1
END
IF EXISTS (SELECT * FROM sys.sysdepends WHERE depid = @id)
BEGIN
    EXEC sys.q_raise 15460
    SELECT DISTINCT name = s.name + '.' + o.name, type = LOWER(REPLACE(o.type_desc, '_', ' '))
    FROM sys.sysdepends d JOIN sys.objects o ON o.object_id = d.id JOIN sys.schemas s ON s.schema_id = o.schema_id
    WHERE d.depid = @id ORDER BY 1
    SET @found = 1
END
IF @found = 0 EXEC sys.q_raise 15461
)"},
    {"sp_msforeachtable",
     R"(CREATE PROCEDURE sys.sp_msforeachtable @command1 nvarchar(2000), @replacechar nchar(1) = N'?',
    @command2 nvarchar(2000) = NULL, @command3 nvarchar(2000) = NULL, @whereand nvarchar(2000) = NULL,
    @precommand nvarchar(2000) = NULL, @postcommand nvarchar(2000) = NULL AS
SET NOCOUNT ON
DECLARE @name nvarchar(300), @text nvarchar(max)
CREATE TABLE #tables (n int IDENTITY, name nvarchar(300))
SET @text = N'SELECT ''['' + REPLACE(SCHEMA_NAME(o.schema_id), '']'', '']]'') + ''].['' + REPLACE(o.name, '']'', '']]'') + '']'''
    + N' FROM (SELECT *, id = object_id, uid = schema_id FROM sys.objects) o'
    + N' WHERE o.type = ''U'' AND o.is_ms_shipped = 0 ' + ISNULL(@whereand, N'') + N' ORDER BY o.object_id'
INSERT #tables (name) EXEC (@text)
IF @precommand IS NOT NULL EXEC (@precommand)
DECLARE names CURSOR LOCAL FAST_FORWARD FOR SELECT name FROM #tables ORDER BY n
)" FOR_EACH_NAME},
    {"sp_msforeachdb",
     R"(CREATE PROCEDURE sys.sp_msforeachdb @command1 nvarchar(2000), @replacechar nchar(1) = N'?',
    @command2 nvarchar(2000) = NULL, @command3 nvarchar(2000) = NULL, @precommand nvarchar(2000) = NULL,
    @postcommand nvarchar(2000) = NULL AS
SET NOCOUNT ON
DECLARE @name sysname, @text nvarchar(max)
IF @precommand IS NOT NULL EXEC (@precommand)
DECLARE names CURSOR LOCAL STATIC FOR SELECT name FROM sys.databases ORDER BY database_id
)" FOR_EACH_NAME},
    {"sp_validname", R"(CREATE PROCEDURE sys.sp_validname @name sysname, @raise_error bit = 1 AS
SET NOCOUNT ON
IF @name IS NOT NULL AND LEN(@name) > 0 RETURN 0
IF @raise_error = 1 EXEC sys.q_raise 15004
RETURN 1
)"},
};

} // namespace

std::span<const SystemProcedure> ServerProcedures() {
    return rows;
}

} // namespace quillon::practice
