// Users, roles and rights. What is granted and denied here is kept and shown by the catalogue's views, and
// enforced as Permissions.h says; a right that nothing enforces is refused.
#include "practice/statements/define/Definition.h"
#include "practice/statements/define/Tables.h"
#include "practice/storage/Permissions.h"
#include "practice/storage/SystemDatabases.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

bool IsRelation(const SchemaObject& object) {
    return object.kind == ObjectKind::Table || object.kind == ObjectKind::View ||
           object.kind == ObjectKind::InlineFunction || object.kind == ObjectKind::TableFunction;
}

class Principals {
  public:
    explicit Principals(Engine& engine)
        : m_engine(engine)
        , m_id(engine.context.CurrentDatabase()) {}

    const Database& Now() const { return *m_engine.store.View()->FindDatabase(m_id); }
    const Principal& Require(const std::string& name, const char* verb, const char* kind) const {
        const Principal* found = Now().FindPrincipal(name);
        if (found == nullptr)
            throw SqlError(15151, {verb, kind, name});
        return *found;
    }
    void Change(const std::function<void(Database&)>& change) {
        m_engine.store.Change([&](CatalogueEditor& editor) { change(editor.EditDatabase(m_id)); });
    }
    void Add(Principal principal) {
        if (Now().FindPrincipal(principal.name) != nullptr)
            throw SqlError(15023, {principal.name});
        constexpr PrincipalId firstOwn = 5;
        principal.id = firstOwn;
        while (Now().principals.contains(principal.id))
            ++principal.id;
        principal.created = principal.modified = CurrentMoment();
        Change([&](Database& database) { database.principals[principal.id] = principal; });
    }

    void CreateUser(const tsql::CreateUserStatement& statement) {
        Principal user;
        user.name = statement.name;
        if (!statement.withoutLogin)
            user.login = statement.login.empty() ? statement.name : statement.login;
        user.defaultSchema = statement.defaultSchema.empty() ? "dbo" : statement.defaultSchema;
        Add(std::move(user));
    }
    void AlterUser(const tsql::AlterUserStatement& statement) {
        const PrincipalId id = Require(statement.name, "alter", "user").id;
        Change([&](Database& database) {
            Principal& user = database.principals.at(id);
            for (const tsql::OptionSetting& option : statement.options) {
                if (option.name == "NAME")
                    user.name = option.value;
                else if (option.name == "DEFAULT_SCHEMA")
                    user.defaultSchema = option.value;
                else if (option.name == "LOGIN")
                    user.login = option.value;
            }
            user.modified = CurrentMoment();
        });
    }
    void CreateRole(const tsql::CreateRoleStatement& statement) {
        if (statement.server)
            throw SqlError::NotSupported("CREATE SERVER ROLE");
        if (!statement.owner.empty() && !SameName(statement.owner, "dbo"))
            throw SqlError::NotSupported("CREATE ROLE with an owner other than dbo");
        Principal role;
        role.name = statement.name;
        role.kind = PrincipalKind::Role;
        Add(std::move(role));
    }
    void AlterRole(const tsql::AlterRoleStatement& statement) {
        using Action = tsql::AlterRoleStatement::Action;
        const PrincipalId role = Require(statement.name, "alter", "role").id;
        if (statement.action == Action::Rename)
            return Change([&](Database& database) { database.principals.at(role).name = statement.value; });
        const PrincipalId member = Require(statement.value, "add", "principal").id;
        Change([&](Database& database) {
            auto& roles = database.principals.at(member).memberOf;
            std::erase(roles, role);
            if (statement.action == Action::AddMember)
                roles.push_back(role);
        });
    }
    void Drop(const tsql::DropStatement& statement) {
        const char* kind = statement.what == tsql::DropKind::Role ? "role" : "user";
        for (const tsql::Name& name : statement.names) {
            if (statement.ifExists && Now().FindPrincipal(name.Last()) == nullptr)
                continue;
            const PrincipalId id = Require(name.Last(), "drop", kind).id;
            for (const auto& [schemaId, schema] : Now().schemas)
                if (schema.owner == id)
                    throw SqlError(15138, {"schema"});
            Change([&](Database& database) {
                database.principals.erase(id);
                for (auto& [otherId, other] : database.principals)
                    std::erase(other.memberOf, id);
                std::erase_if(database.permissions, [&](const Permission& one) { return one.grantee == id; });
            });
        }
    }
    void Permit(const tsql::PermissionStatement& statement);
    void Authorize(const tsql::AlterAuthorizationStatement& statement);

  private:
    Permission Securable(const tsql::PermissionStatement& statement) const;
    std::vector<std::string> RightsOf(const tsql::PermissionStatement& statement,
                                      const Permission& securable) const;
    void CheckRight(const tsql::PermissionStatement& statement, const Permission& securable,
                    const std::string& right) const;
    static void Put(Database& database, const Permission& permission, bool revokes, bool grantOptionOnly);

    Engine& m_engine;
    DatabaseId m_id;
};

Permission Principals::Securable(const tsql::PermissionStatement& statement) const {
    Permission permission;
    const std::string& kind = statement.securableClass;
    if (!kind.empty() && kind != "OBJECT" && kind != "SCHEMA" && kind != "DATABASE")
        throw SqlError::NotSupported("permissions on " + kind);
    if (statement.securable.Empty())
        return permission;
    if (kind == "DATABASE") {
        if (!SameName(statement.securable.Last(), Now().name))
            throw SqlError(15151, {"find", "database", statement.securable.Last()});
        return permission;
    }
    if (statement.securableClass == "SCHEMA") {
        const Schema* schema = Now().FindSchema(statement.securable.Last());
        if (schema == nullptr)
            throw SqlError(15151, {"find", "schema", statement.securable.Last()});
        permission.securableClass = schemaClass;
        permission.major = schema->id;
        return permission;
    }
    const auto object = Translator(m_engine).FindSourceObject(statement.securable);
    if (!object)
        throw SqlError(15151, {"find", "object", statement.securable.Text()});
    permission.securableClass = objectClass;
    permission.major = object->id;
    return permission;
}

// ALL is what it was in the days of the standard: not all that there is.
std::vector<std::string> Principals::RightsOf(const tsql::PermissionStatement& statement,
                                              const Permission& securable) const {
    std::vector<std::string> rights;
    for (const std::string& written : statement.permissions) {
        if (written != "ALL") {
            rights.push_back(written == "EXEC"          ? "EXECUTE"
                             : written == "CREATE PROC" ? "CREATE PROCEDURE"
                                                        : written);
            continue;
        }
        const bool isRoutine = securable.securableClass == objectClass &&
                               !IsRelation(*m_engine.store.View()->FindObject(securable.major));
        if (securable.securableClass == databaseClass)
            rights = {"CREATE DEFAULT", "CREATE FUNCTION", "CREATE PROCEDURE",
                      "CREATE RULE",    "CREATE TABLE",    "CREATE VIEW"};
        else if (isRoutine)
            rights = {"EXECUTE"};
        else
            rights = {"SELECT", "INSERT", "UPDATE", "DELETE", "REFERENCES"};
    }
    return rights;
}

void Principals::CheckRight(const tsql::PermissionStatement& statement, const Permission& securable,
                            const std::string& right) const {
    if (statement.verb == tsql::PermissionVerb::Revoke)
        return; // nothing that is not there can be taken
    // Definitions are open to everybody who may enter.
    if (right == "VIEW DEFINITION" && statement.verb == tsql::PermissionVerb::Grant)
        return;
    if (!IsEnforcedRight(right, securable.securableClass))
        throw SqlError::NotSupported((statement.verb == tsql::PermissionVerb::Deny ? "DENY " : "GRANT ") +
                                     right);
    if (securable.securableClass != objectClass)
        return;
    const bool isRelation = IsRelation(*m_engine.store.View()->FindObject(securable.major));
    const bool isRelational = right == "SELECT" || right == "INSERT" || right == "UPDATE" ||
                              right == "DELETE" || right == "REFERENCES";
    if ((isRelational && !isRelation) || (right == "EXECUTE" && isRelation))
        throw SqlError(4606, {right});
}

void Principals::Permit(const tsql::PermissionStatement& statement) {
    if (!statement.columns.empty())
        throw SqlError::NotSupported("permissions on columns");
    Permission permission = Securable(statement);
    const bool revokes = statement.verb == tsql::PermissionVerb::Revoke;
    permission.state = statement.verb == tsql::PermissionVerb::Deny ? 'D' : statement.grantOption ? 'W' : 'G';
    for (const std::string& name : statement.principals) {
        permission.grantee = Require(name, "find", "user").id;
        if (permission.grantee == dboPrincipal)
            throw SqlError(4624);
        for (const std::string& right : RightsOf(statement, permission)) {
            CheckRight(statement, permission, right);
            permission.permission = right;
            Change([&](Database& database) { Put(database, permission, revokes, statement.grantOption); });
        }
    }
}

void Principals::Put(Database& database, const Permission& permission, bool revokes, bool grantOptionOnly) {
    const auto same = [&](const Permission& one) {
        return one.securableClass == permission.securableClass && one.major == permission.major &&
               one.grantee == permission.grantee && one.permission == permission.permission;
    };
    if (revokes && grantOptionOnly) {
        for (Permission& one : database.permissions)
            if (same(one) && one.state == 'W')
                one.state = 'G';
        return;
    }
    std::erase_if(database.permissions, same);
    if (!revokes)
        database.permissions.push_back(permission);
}

void Principals::Authorize(const tsql::AlterAuthorizationStatement& statement) {
    if (statement.securableClass == "DATABASE") {
        const Database* database = m_engine.store.View()->FindDatabase(statement.securable.Last());
        if (database == nullptr)
            throw SqlError(15151, {"find", "database", statement.securable.Last()});
        m_id = database->id;
        return Change([&](Database& one) {
            one.owner = statement.owner;
            one.principals.at(dboPrincipal).login = statement.owner;
        });
    }
    if (statement.securableClass != "SCHEMA")
        throw SqlError::NotSupported("ALTER AUTHORIZATION ON " + statement.securableClass);
    const Schema* schema = Now().FindSchema(statement.securable.Last());
    if (schema == nullptr)
        throw SqlError(15151, {"find", "schema", statement.securable.Last()});
    const SchemaId id = schema->id;
    const PrincipalId owner = Require(statement.owner, "find", "principal").id;
    Change([&](Database& database) { database.schemas.at(id).owner = owner; });
}

} // namespace

void RunPrincipalStatement(Engine& engine, const tsql::Statement& statement) {
    using Kind = tsql::StatementKind;
    Principals principals(engine);
    switch (statement.kind) {
    case Kind::CreateUser: return principals.CreateUser(tsql::As<tsql::CreateUserStatement>(statement));
    case Kind::AlterUser: return principals.AlterUser(tsql::As<tsql::AlterUserStatement>(statement));
    case Kind::CreateRole: return principals.CreateRole(tsql::As<tsql::CreateRoleStatement>(statement));
    case Kind::AlterRole: return principals.AlterRole(tsql::As<tsql::AlterRoleStatement>(statement));
    case Kind::Drop: return principals.Drop(tsql::As<tsql::DropStatement>(statement));
    case Kind::Permission: return principals.Permit(tsql::As<tsql::PermissionStatement>(statement));
    default: return principals.Authorize(tsql::As<tsql::AlterAuthorizationStatement>(statement));
    }
}

} // namespace quillon::practice
