#include "practice/catalogue/ProcedureTexts.h"

namespace quillon::practice {

namespace {

constexpr SystemProcedure rows[] = {
    {"sp_rename",
     R"(CREATE PROCEDURE sys.sp_rename @objname nvarchar(1035), @newname sysname, @objtype varchar(13) = NULL AS
SET NOCOUNT ON
EXEC sys.q_rename @objname, @newname, @objtype
IF @@ERROR <> 0 RETURN 1
EXEC sys.q_raise 15477
RETURN 0
)"},
    {"sp_renamedb", R"(CREATE PROCEDURE sys.sp_renamedb @dbname sysname, @newname sysname AS
SET NOCOUNT ON
DECLARE @text nvarchar(max)
SET @text = N'ALTER DATABASE ' + QUOTENAME(@dbname) + N' MODIFY NAME = ' + QUOTENAME(@newname)
EXEC (@text)
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_settriggerorder",
     R"(CREATE PROCEDURE sys.sp_settriggerorder @triggername nvarchar(517), @order varchar(10), @stmttype varchar(50),
    @namespace varchar(10) = NULL AS
SET NOCOUNT ON
EXEC sys.q_settriggerorder @triggername, @order, @stmttype
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_procoption", R"(CREATE PROCEDURE sys.sp_procoption @ProcName nvarchar(776), @OptionName varchar(35),
    @OptionValue varchar(12) AS
SET NOCOUNT ON
IF LOWER(@OptionName) <> 'startup' OR LOWER(@OptionValue) NOT IN ('on', 'off', 'true', 'false')
    OR @OptionName IS NULL OR @OptionValue IS NULL
BEGIN
    EXEC sys.q_raise 15600, 'sp_procoption'
    RETURN 1
END
DECLARE @on bit
SET @on = CASE WHEN LOWER(@OptionValue) IN ('on', 'true') THEN 1 ELSE 0 END
EXEC sys.q_startup @ProcName, @on
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_bindefault", R"(CREATE PROCEDURE sys.sp_bindefault @defname nvarchar(776), @objname nvarchar(776),
    @futureonly varchar(15) = NULL AS
SET NOCOUNT ON
EXEC sys.q_bind @defname, @objname, 'D', @futureonly
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_unbindefault",
     R"(CREATE PROCEDURE sys.sp_unbindefault @objname nvarchar(776), @futureonly varchar(15) = NULL AS
SET NOCOUNT ON
EXEC sys.q_bind NULL, @objname, 'D', @futureonly
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_bindrule", R"(CREATE PROCEDURE sys.sp_bindrule @rulename nvarchar(776), @objname nvarchar(776),
    @futureonly varchar(15) = NULL AS
SET NOCOUNT ON
EXEC sys.q_bind @rulename, @objname, 'R', @futureonly
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_unbindrule",
     R"(CREATE PROCEDURE sys.sp_unbindrule @objname nvarchar(776), @futureonly varchar(15) = NULL AS
SET NOCOUNT ON
EXEC sys.q_bind NULL, @objname, 'R', @futureonly
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_addtype", R"(CREATE PROCEDURE sys.sp_addtype @typename sysname, @phystype sysname,
    @nulltype varchar(8) = NULL, @owner sysname = NULL AS
SET NOCOUNT ON
DECLARE @word nvarchar(128), @size nvarchar(128), @text nvarchar(max)
SELECT @phystype = LTRIM(RTRIM(@phystype)), @nulltype = UPPER(LTRIM(RTRIM(@nulltype)))
SET @word = LOWER(RTRIM(LEFT(@phystype, CHARINDEX('(', @phystype + '(') - 1)))
SET @size = REPLACE(SUBSTRING(@phystype, CHARINDEX('(', @phystype + '('), 128), ' ', '')
IF @owner IS NOT NULL EXEC sys.q_raise 15166
IF @nulltype NOT IN ('NULL', 'NOT NULL', 'NONULL')
BEGIN
    EXEC sys.q_raise 15085
    RETURN 1
END
IF @word = 'xml'
BEGIN
    EXEC sys.q_raise 15226
    RETURN 1
END
IF @word IN ('varchar', 'nvarchar', 'varbinary') AND LOWER(@size) = '(max)'
BEGIN
    EXEC sys.q_raise 15108
    RETURN 1
END
IF @phystype IS NULL OR @size LIKE '%[^0-9,()]%' OR NOT EXISTS (SELECT * FROM sys.types WHERE name = @word
    AND is_user_defined = 0 AND name NOT IN ('timestamp', 'sysname'))
BEGIN
    EXEC sys.q_raise 15036, @phystype
    RETURN 1
END
SET @text = N'CREATE TYPE dbo.' + QUOTENAME(@typename) + N' FROM ' + @word + @size
    + CASE WHEN @nulltype = 'NULL' OR @nulltype IS NULL AND GETANSINULL() = 1 THEN N' NULL' ELSE N' NOT NULL' END
EXEC (@text)
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_droptype", R"(CREATE PROCEDURE sys.sp_droptype @typename sysname AS
SET NOCOUNT ON
DECLARE @id int, @text nvarchar(max)
SELECT @id = user_type_id FROM sys.types WHERE name = @typename AND schema_id = 1 AND is_user_defined = 1
    AND is_table_type = 0
IF @id IS NULL
BEGIN
    EXEC sys.q_raise 15036, @typename
    RETURN 1
END
IF EXISTS (SELECT * FROM sys.columns WHERE user_type_id = @id)
    OR EXISTS (SELECT * FROM sys.parameters WHERE user_type_id = @id)
BEGIN
    EXEC sys.q_raise 15180
    RETURN 1
END
SET @text = N'DROP TYPE dbo.' + QUOTENAME(@typename)
EXEC (@text)
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_recompile", R"(CREATE PROCEDURE sys.sp_recompile @objname nvarchar(776) AS
DECLARE @db sysname
SET @db = DB_NAME()
IF OBJECT_ID(@objname) IS NULL
BEGIN
    EXEC sys.q_raise 15009, @objname, @db
    RETURN 1
END
EXEC sys.q_raise 15070, @objname
RETURN 0
)"},
    {"sp_refreshview", R"(CREATE PROCEDURE sys.sp_refreshview @viewname nvarchar(776) AS
EXEC sys.q_refuse 'sp_refreshview'
)"},
    {"sp_configure",
     R"(CREATE PROCEDURE sys.sp_configure @configname varchar(35) = NULL, @configvalue int = NULL AS
SET NOCOUNT ON
IF @configname IS NOT NULL AND NOT EXISTS (SELECT * FROM sys.configurations WHERE name = @configname)
BEGIN
    EXEC sys.q_raise 15123, @configname
    RETURN 1
END
IF @configvalue IS NOT NULL
BEGIN
    EXEC sys.q_refuse 'sp_configure with a value'
    RETURN 1
END
SELECT name, minimum, maximum, config_value = value, run_value = value_in_use FROM sys.configurations
WHERE @configname IS NULL OR name = @configname ORDER BY name
)"},
    {"sp_dboption", R"(CREATE PROCEDURE sys.sp_dboption @dbname sysname = NULL, @optname varchar(35) = NULL,
    @optvalue varchar(10) = NULL AS
EXEC sys.q_refuse 'sp_dboption'
)"},
};

std::string PropertyProcedure(const std::string& verb, bool takesValue) {
    return "CREATE PROCEDURE sys.sp_" + verb + "extendedproperty @name sysname" +
           (takesValue ? ", @value sql_variant = NULL" : "") + R"(,
    @level0type varchar(128) = NULL, @level0name sysname = NULL, @level1type varchar(128) = NULL,
    @level1name sysname = NULL, @level2type varchar(128) = NULL, @level2name sysname = NULL AS
SET NOCOUNT ON
EXEC sys.q_property ')" +
           verb + "', @name, " + (takesValue ? "@value" : "NULL") +
           R"(, @level0type, @level0name, @level1type, @level1name, @level2type, @level2name
RETURN 0
)";
}

} // namespace

std::span<const SystemProcedure> ChangeProcedures() {
    static const std::string add = PropertyProcedure("add", true);
    static const std::string update = PropertyProcedure("update", true);
    static const std::string drop = PropertyProcedure("drop", false);
    static const std::vector<SystemProcedure> all = [] {
        std::vector<SystemProcedure> list(std::begin(rows), std::end(rows));
        list.insert(list.end(), {{"sp_addextendedproperty", add},
                                 {"sp_updateextendedproperty", update},
                                 {"sp_dropextendedproperty", drop}});
        return list;
    }();
    return all;
}

} // namespace quillon::practice
