#pragma once

// Statements about logins, users, roles and rights.

#include "practice/tsql/TreeDdl.h"

namespace quillon::practice::tsql {

struct CreateLoginStatement : Statement {
    std::string name;
    bool windows = false;
    std::string password;
    bool hashed = false;
    std::vector<OptionSetting> options; // DEFAULT_DATABASE, CHECK_POLICY ...

    CreateLoginStatement()
        : Statement(StatementKind::CreateLogin) {}
};

struct AlterLoginStatement : Statement {
    std::string name;
    std::optional<bool> enable;
    std::optional<std::string> password;
    std::vector<OptionSetting> options; // NAME, DEFAULT_DATABASE, OLD_PASSWORD ...

    AlterLoginStatement()
        : Statement(StatementKind::AlterLogin) {}
};

struct CreateUserStatement : Statement {
    std::string name;
    std::string login; // empty: the login of the same name
    bool withoutLogin = false;
    std::string defaultSchema;

    CreateUserStatement()
        : Statement(StatementKind::CreateUser) {}
};

struct AlterUserStatement : Statement {
    std::string name;
    std::vector<OptionSetting> options; // NAME, DEFAULT_SCHEMA, LOGIN

    AlterUserStatement()
        : Statement(StatementKind::AlterUser) {}
};

struct CreateRoleStatement : Statement {
    std::string name;
    std::string owner;
    bool server = false; // SERVER ROLE

    CreateRoleStatement()
        : Statement(StatementKind::CreateRole) {}
};

struct AlterRoleStatement : Statement {
    enum class Action { AddMember, DropMember, Rename };
    std::string name;
    bool server = false;
    Action action = Action::AddMember;
    std::string value; // the member or the new name

    AlterRoleStatement()
        : Statement(StatementKind::AlterRole) {}
};

enum class PermissionVerb { Grant, Deny, Revoke };

struct PermissionStatement : Statement {
    PermissionVerb verb = PermissionVerb::Grant;
    std::vector<std::string>
        permissions;            // upper case, words joined by one blank: "SELECT", "ALL", "VIEW DEFINITION"
    std::string securableClass; // "OBJECT", "SCHEMA", "DATABASE" ...; empty when not written
    Name securable;             // empty for a right on the database or server
    std::vector<std::string> columns;
    std::vector<std::string> principals;
    bool grantOption = false; // WITH GRANT OPTION, or GRANT OPTION FOR
    bool cascade = false;

    PermissionStatement()
        : Statement(StatementKind::Permission) {}
};

struct AlterAuthorizationStatement : Statement {
    std::string securableClass;
    Name securable;
    std::string owner; // empty for SCHEMA OWNER

    AlterAuthorizationStatement()
        : Statement(StatementKind::AlterAuthorization) {}
};

} // namespace quillon::practice::tsql
