#include "practice/catalogue/ProcedureTexts.h"

namespace quillon::practice {

namespace {

constexpr SystemProcedure rows[] = {
    {"sp_addlogin",
     R"(CREATE PROCEDURE sys.sp_addlogin @loginame sysname, @passwd sysname = NULL, @defdb sysname = 'master',
    @deflanguage sysname = NULL, @sid varbinary(16) = NULL, @encryptopt varchar(20) = NULL AS
SET NOCOUNT ON
DECLARE @text nvarchar(max)
IF DB_ID(@defdb) IS NULL
BEGIN
    EXEC sys.q_raise 15010, @defdb
    RETURN 1
END
SET @text = N'CREATE LOGIN ' + QUOTENAME(@loginame) + N' WITH PASSWORD = N' + QUOTENAME(ISNULL(@passwd, N''), '''')
    + N', CHECK_POLICY = OFF, DEFAULT_DATABASE = ' + QUOTENAME(@defdb)
EXEC (@text)
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_droplogin", R"(CREATE PROCEDURE sys.sp_droplogin @loginame sysname AS
SET NOCOUNT ON
DECLARE @text nvarchar(max)
SET @text = N'DROP LOGIN ' + QUOTENAME(@loginame)
EXEC (@text)
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_password",
     R"(CREATE PROCEDURE sys.sp_password @old sysname = NULL, @new sysname, @loginame sysname = NULL AS
SET NOCOUNT ON
DECLARE @text nvarchar(max)
SET @text = N'ALTER LOGIN ' + QUOTENAME(ISNULL(@loginame, SUSER_SNAME())) + N' WITH PASSWORD = N'
    + QUOTENAME(@new, '''') + CASE WHEN @old IS NULL THEN N'' ELSE N' OLD_PASSWORD = N' + QUOTENAME(@old, '''') END
EXEC (@text)
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_defaultdb", R"(CREATE PROCEDURE sys.sp_defaultdb @loginame sysname, @defdb sysname AS
SET NOCOUNT ON
DECLARE @text nvarchar(max)
SET @text = N'ALTER LOGIN ' + QUOTENAME(@loginame) + N' WITH DEFAULT_DATABASE = ' + QUOTENAME(@defdb)
EXEC (@text)
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_helplogins", R"(CREATE PROCEDURE sys.sp_helplogins @LoginNamePattern sysname = NULL AS
SET NOCOUNT ON
SELECT LoginName = name, SID = sid, DefDBName = dbname, DefLangName = language, AUser = 'yes', ARemote = 'no'
FROM sys.syslogins WHERE @LoginNamePattern IS NULL OR name = @LoginNamePattern ORDER BY name
)"},
    {"sp_grantdbaccess",
     R"(CREATE PROCEDURE sys.sp_grantdbaccess @loginame sysname, @name_in_db sysname = NULL OUTPUT AS
SET NOCOUNT ON
DECLARE @text nvarchar(max)
SET @name_in_db = ISNULL(@name_in_db, @loginame)
SET @text = N'CREATE USER ' + QUOTENAME(@name_in_db) + N' FOR LOGIN ' + QUOTENAME(@loginame)
EXEC (@text)
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_adduser",
     R"(CREATE PROCEDURE sys.sp_adduser @loginame sysname, @name_in_db sysname = NULL, @grpname sysname = NULL AS
SET NOCOUNT ON
DECLARE @text nvarchar(max)
SET @name_in_db = ISNULL(@name_in_db, @loginame)
SET @text = N'CREATE USER ' + QUOTENAME(@name_in_db) + N' FOR LOGIN ' + QUOTENAME(@loginame)
EXEC (@text)
IF @@ERROR <> 0 RETURN 1
IF @grpname IS NOT NULL AND @grpname <> 'public' EXEC sys.sp_addrolemember @grpname, @name_in_db
RETURN 0
)"},
    {"sp_dropuser", R"(CREATE PROCEDURE sys.sp_dropuser @name_in_db sysname AS
SET NOCOUNT ON
DECLARE @text nvarchar(max)
SET @text = N'DROP USER ' + QUOTENAME(@name_in_db)
EXEC (@text)
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_revokedbaccess", R"(CREATE PROCEDURE sys.sp_revokedbaccess @name_in_db sysname AS
SET NOCOUNT ON
DECLARE @text nvarchar(max)
SET @text = N'DROP USER ' + QUOTENAME(@name_in_db)
EXEC (@text)
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_addrole", R"(CREATE PROCEDURE sys.sp_addrole @rolename sysname, @ownername sysname = NULL AS
SET NOCOUNT ON
DECLARE @text nvarchar(max)
SET @text = N'CREATE ROLE ' + QUOTENAME(@rolename)
EXEC (@text)
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_droprole", R"(CREATE PROCEDURE sys.sp_droprole @rolename sysname AS
SET NOCOUNT ON
DECLARE @text nvarchar(max)
SET @text = N'DROP ROLE ' + QUOTENAME(@rolename)
EXEC (@text)
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_addrolemember", R"(CREATE PROCEDURE sys.sp_addrolemember @rolename sysname, @membername sysname AS
SET NOCOUNT ON
DECLARE @text nvarchar(max)
IF DATABASE_PRINCIPAL_ID(@membername) IS NULL
BEGIN
    EXEC sys.q_raise 15410, @membername
    RETURN 1
END
SET @text = N'ALTER ROLE ' + QUOTENAME(@rolename) + N' ADD MEMBER ' + QUOTENAME(@membername)
EXEC (@text)
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_droprolemember", R"(CREATE PROCEDURE sys.sp_droprolemember @rolename sysname, @membername sysname AS
SET NOCOUNT ON
DECLARE @text nvarchar(max)
SET @text = N'ALTER ROLE ' + QUOTENAME(@rolename) + N' DROP MEMBER ' + QUOTENAME(@membername)
EXEC (@text)
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_addsrvrolemember",
     R"(CREATE PROCEDURE sys.sp_addsrvrolemember @loginame sysname, @rolename sysname = NULL AS
SET NOCOUNT ON
DECLARE @text nvarchar(max)
SET @text = N'ALTER SERVER ROLE ' + QUOTENAME(@rolename) + N' ADD MEMBER ' + QUOTENAME(@loginame)
EXEC (@text)
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_helpuser", R"(CREATE PROCEDURE sys.sp_helpuser @name_in_db sysname = NULL AS
SET NOCOUNT ON
DECLARE @db sysname
IF @name_in_db IS NOT NULL AND DATABASE_PRINCIPAL_ID(@name_in_db) IS NULL
BEGIN
    SET @db = DB_NAME()
    EXEC sys.q_raise 15198, @name_in_db
    RETURN 1
END
SELECT UserName = u.name, RoleName = ISNULL(r.name, 'public'), LoginName = SUSER_SNAME(u.sid),
    DefDBName = CONVERT(sysname, NULL), DefSchemaName = u.default_schema_name, UserID = CONVERT(char(10), u.principal_id),
    SID = u.sid
FROM sys.database_principals u LEFT JOIN sys.database_role_members m ON m.member_principal_id = u.principal_id
    LEFT JOIN sys.database_principals r ON r.principal_id = m.role_principal_id
WHERE u.type <> 'R' AND (@name_in_db IS NULL OR u.name = @name_in_db) ORDER BY u.name
)"},
    {"sp_helprole", R"(CREATE PROCEDURE sys.sp_helprole @rolename sysname = NULL AS
SET NOCOUNT ON
SELECT RoleName = name, RoleId = CONVERT(smallint, principal_id), IsAppRole = 0 FROM sys.database_principals
WHERE type = 'R' AND (@rolename IS NULL OR name = @rolename) ORDER BY principal_id
)"},
    {"sp_helprolemember", R"(CREATE PROCEDURE sys.sp_helprolemember @rolename sysname = NULL AS
SET NOCOUNT ON
SELECT DbRole = r.name, MemberName = u.name, MemberSID = u.sid FROM sys.database_role_members m
    JOIN sys.database_principals r ON r.principal_id = m.role_principal_id
    JOIN sys.database_principals u ON u.principal_id = m.member_principal_id
WHERE @rolename IS NULL OR r.name = @rolename ORDER BY 1, 2
)"},
};

} // namespace

std::span<const SystemProcedure> SecurityProcedures() {
    return rows;
}

} // namespace quillon::practice
