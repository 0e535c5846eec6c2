// Users, roles and rights. What is granted and denied here is kept and shown by the catalogue's views, and
// enforced as Permissions.h says; a right that nothing enforces is refused.
#include "practice/statements/define/Definition.h"
#include "practice/statements/define/Tables.h"
#include "practice/storage/Permissions.h"
#include "practice/storage/SystemDatabases.h"
#include "practice/values/SqlError.h"

#include <algorithm>

namespace quillon::practice {

namespace {

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
        RequireFreeName(principal.name);
        constexpr PrincipalId firstOwn = 5;
        principal.id = firstOwn;
        while (Now().principals.contains(principal.id))
            ++principal.id;
        principal.created = principal.modified = CurrentMoment();
        Change([&](Database& database) { database.principals[principal.id] = principal; });
    }

    void CreateUser(const tsql::CreateUserStatement& statement);
    void AlterUser(const tsql::AlterUserStatement& statement);
    void CreateRole(const tsql::CreateRoleStatement& statement);
    void AlterRole(const tsql::AlterRoleStatement& statement);
    void Drop(const tsql::DropStatement& statement);
    void Permit(const tsql::PermissionStatement& statement);
    void Authorize(const tsql::AlterAuthorizationStatement& statement);

  private:
    const Principal& RequireUser(const std::string& name, const char* verb) const;
    const Principal& RequireRole(const std::string& name, const char* verb) const;
    void RequireFreeName(const std::string& name) const;
    std::string SidOf(const std::string& login) const;
    std::string FreeSidOf(const std::string& login) const;
    void RequireMember(const Principal& role, const Principal& member) const;
    void RequireUnused(const Principal& principal) const;

    Permission Securable(const tsql::PermissionStatement& statement) const;
    void CheckRight(const tsql::PermissionStatement& statement, const Permission& securable) const;
    PrincipalId OwnerOfSecurable(const Permission& securable) const;
    PrincipalId GranteeOf(const std::string& name, const Permission& securable) const;
    void Put(Database& database, const tsql::PermissionStatement& statement, const Permission& permission,
             bool ownGrantsOnly) const;
    static void TakeHandedOn(Database& database, const Permission& from);

    PrincipalId Self() const {
        const Principal* own = Now().FindPrincipal(m_engine.context.Functions().UserName());
        return own == nullptr ? guestPrincipal : own->id;
    }

    Engine& m_engine;
    DatabaseId m_id;
};

bool IsBuiltIn(const Principal& principal) {
    constexpr PrincipalId lastOfSystem = 4;
    return principal.id <= lastOfSystem || principal.fixedRole;
}

const Principal& Principals::RequireUser(const std::string& name, const char* verb) const {
    const Principal& user = Require(name, verb, "user");
    if (user.kind == PrincipalKind::Role)
        throw SqlError(15151, {verb, "user", name});
    return user;
}

const Principal& Principals::RequireRole(const std::string& name, const char* verb) const {
    const Principal& role = Require(name, verb, "role");
    if (role.kind != PrincipalKind::Role)
        throw SqlError(15151, {verb, "role", name});
    return role;
}

void Principals::RequireFreeName(const std::string& name) const {
    if (Now().FindPrincipal(name) != nullptr)
        throw SqlError(15023, {name});
}

/// Nothing where there is no such login.
std::string Principals::SidOf(const std::string& login) const {
    const Datum name = Datum::NVarCharOf(login);
    const Datum sid = m_engine.context.Functions().AskCatalogue("SUSER_SID", &name, 1);
    return sid.IsNull() ? std::string() : sid.Bytes();
}

/// Of a login that has no user here yet.
std::string Principals::FreeSidOf(const std::string& login) const {
    if (SameName(login, "sa"))
        throw SqlError(15405, {login});
    const std::string sid = SidOf(login);
    if (sid.empty())
        throw SqlError(15007, {login});
    const auto& all = Now().principals;
    const bool taken =
        SameName(Now().owner, login) ||
        std::any_of(all.begin(), all.end(), [&](const auto& one) { return one.second.sid == sid; });
    if (taken)
        throw SqlError(15063);
    return sid;
}

void Principals::CreateUser(const tsql::CreateUserStatement& statement) {
    Principal user;
    user.name = statement.name;
    RequireFreeName(user.name);
    if (!statement.withoutLogin) {
        user.login = statement.login.empty() ? statement.name : statement.login;
        user.sid = FreeSidOf(user.login);
    }
    user.defaultSchema = statement.defaultSchema.empty() ? "dbo" : statement.defaultSchema;
    Add(std::move(user));
}

void Principals::AlterUser(const tsql::AlterUserStatement& statement) {
    const Principal& before = RequireUser(statement.name, "alter");
    if (IsBuiltIn(before))
        throw SqlError(15150, {"alter", "user", statement.name});
    Principal user = before;
    for (const tsql::OptionSetting& option : statement.options) {
        if (option.name == "NAME") {
            if (!Now().Rule().Same(option.value, user.name))
                RequireFreeName(option.value);
            user.name = option.value;
        } else if (option.name == "DEFAULT_SCHEMA")
            user.defaultSchema = option.value;
        else if (option.name == "LOGIN") {
            user.login = option.value;
            if (SidOf(user.login) != user.sid)
                user.sid = FreeSidOf(user.login);
        }
    }
    user.modified = CurrentMoment();
    Change([&](Database& database) { database.principals[user.id] = user; });
}

void Principals::CreateRole(const tsql::CreateRoleStatement& statement) {
    if (statement.server)
        throw SqlError::NotSupported("CREATE SERVER ROLE");
    if (!statement.owner.empty() && !SameName(statement.owner, "dbo"))
        throw SqlError::NotSupported("CREATE ROLE with an owner other than dbo");
    Principal role;
    role.name = statement.name;
    role.kind = PrincipalKind::Role;
    Add(std::move(role));
}

/// Roles form no circles, the special ones join none, and everybody is in public.
void Principals::RequireMember(const Principal& role, const Principal& member) const {
    if (role.id == publicPrincipal || member.id == publicPrincipal)
        throw SqlError(15081);
    if (IsBuiltIn(member) && member.id != guestPrincipal)
        throw SqlError(15405, {member.name});
    if (Rights(Now(), role.id).IsMember(member.id))
        throw SqlError(15413);
}

void Principals::AlterRole(const tsql::AlterRoleStatement& statement) {
    using Action = tsql::AlterRoleStatement::Action;
    const Principal& role = RequireRole(statement.name, "alter");
    const PrincipalId id = role.id;
    if (statement.action == Action::Rename) {
        if (IsBuiltIn(role))
            throw SqlError(15150, {"alter", "role", statement.name});
        if (!Now().Rule().Same(statement.value, role.name))
            RequireFreeName(statement.value);
        return Change([&](Database& database) { database.principals.at(id).name = statement.value; });
    }
    const bool adds = statement.action == Action::AddMember;
    const Principal& member = Require(statement.value, adds ? "add" : "drop", "principal");
    if (adds)
        RequireMember(role, member);
    const PrincipalId memberId = member.id;
    Change([&](Database& database) {
        auto& roles = database.principals.at(memberId).memberOf;
        std::erase(roles, id);
        if (adds)
            roles.push_back(id);
    });
}

void Principals::RequireUnused(const Principal& principal) const {
    const Database& now = Now();
    for (const auto& [schemaId, schema] : now.schemas)
        if (schema.owner == principal.id)
            throw SqlError(15138, {"schema"});
    for (const auto& [id, object] : now.objects)
        if (const auto module = std::dynamic_pointer_cast<const Module>(object);
            module && module->executeAs == principal.id)
            throw SqlError(15136);
    for (const Permission& one : now.permissions)
        if (one.grantor == principal.id)
            throw SqlError(15284);
    for (const auto& [id, other] : now.principals)
        if (std::find(other.memberOf.begin(), other.memberOf.end(), principal.id) != other.memberOf.end())
            throw SqlError(15144);
}

void Principals::Drop(const tsql::DropStatement& statement) {
    const bool isRole = statement.what == tsql::DropKind::Role;
    for (const tsql::Name& name : statement.names) {
        if (statement.ifExists && Now().FindPrincipal(name.Last()) == nullptr)
            continue;
        const Principal& gone = isRole ? RequireRole(name.Last(), "drop") : RequireUser(name.Last(), "drop");
        if (IsBuiltIn(gone))
            throw SqlError(15150, {"drop", isRole ? "role" : "user", name.Last()});
        RequireUnused(gone);
        const PrincipalId id = gone.id;
        Change([&](Database& database) {
            database.principals.erase(id);
            std::erase_if(database.permissions, [&](const Permission& one) { return one.grantee == id; });
        });
    }
}

Permission Principals::Securable(const tsql::PermissionStatement& statement) const {
    const std::string& kind = statement.securableClass;
    if (!kind.empty() && kind != "OBJECT" && kind != "SCHEMA" && kind != "DATABASE" && kind != "TYPE")
        throw SqlError::NotSupported("permissions on " + kind);
    Permission permission;
    if (statement.securable.Empty())
        return permission;
    if (kind == "DATABASE") {
        if (!SameName(statement.securable.Last(), Now().name))
            throw SqlError(15151, {"find", "database", statement.securable.Last()});
        return permission;
    }
    if (kind == "SCHEMA") {
        const Schema* schema = Now().FindSchema(statement.securable.Last());
        if (schema == nullptr)
            throw SqlError(15151, {"find", "schema", statement.securable.Last()});
        permission.securableClass = schemaClass;
        permission.major = schema->id;
        return permission;
    }
    const auto object = Translator(m_engine).FindSourceObject(statement.securable);
    const bool isType = object && SecurableOf(*object).securableClass == typeClass;
    if (!object || isType != (kind == "TYPE"))
        throw SqlError(15151, {"find", kind == "TYPE" ? "type" : "object", statement.securable.Text()});
    if (object->database != m_id)
        throw SqlError(4610);
    return SecurableOf(*object);
}

void Principals::CheckRight(const tsql::PermissionStatement& statement, const Permission& securable) const {
    const std::string& right = securable.permission;
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

PrincipalId Principals::OwnerOfSecurable(const Permission& securable) const {
    if (securable.securableClass == databaseClass)
        return dboPrincipal;
    if (securable.securableClass == schemaClass)
        return OwnerOf(Now(), securable.major);
    return OwnerOf(Now(), m_engine.store.View()->FindObject(securable.major)->schema);
}

/// Owners have all rights, and nobody gives rights to itself.
PrincipalId Principals::GranteeOf(const std::string& name, const Permission& securable) const {
    const Principal& grantee = Require(name, "find", "user");
    if (grantee.fixedRole)
        throw SqlError(4617);
    if (grantee.id == dboPrincipal || grantee.id == informationSchema || grantee.id == sysSchema ||
        grantee.id == Self() || grantee.id == OwnerOfSecurable(securable))
        throw SqlError(4624);
    return grantee.id;
}

void Principals::Permit(const tsql::PermissionStatement& statement) {
    if (!statement.columns.empty())
        throw SqlError::NotSupported("permissions on columns");
    Permission permission = Securable(statement);
    permission.state = statement.verb == tsql::PermissionVerb::Deny ? 'D' : statement.grantOption ? 'W' : 'G';
    for (const std::string& name : statement.principals) {
        permission.grantee = GranteeOf(name, permission);
        for (const std::string& right :
             GrantedRights(statement.permissions, permission, *m_engine.store.View())) {
            permission.permission = right;
            CheckRight(statement, permission);
            // Who looks after the securable acts for its owner; others hand on what they were given.
            const bool forOwner = Rights(Now(), Self()).MayDeny(permission);
            permission.grantor = forOwner ? OwnerOfSecurable(permission) : Self();
            Change([&](Database& database) { Put(database, statement, permission, !forOwner); });
        }
    }
}

bool IsSameRight(const Permission& one, const Permission& other) {
    return one.securableClass == other.securableClass && one.major == other.major &&
           one.permission == other.permission;
}

/// What the grantee has handed on goes with it, from hand to hand.
void Principals::TakeHandedOn(Database& database, const Permission& from) {
    std::vector<Permission> taken;
    std::erase_if(database.permissions, [&](const Permission& one) {
        const bool handedOn = IsSameRight(one, from) && one.grantor == from.grantee;
        if (handedOn)
            taken.push_back(one);
        return handedOn;
    });
    for (const Permission& one : taken)
        TakeHandedOn(database, one);
}

void Principals::Put(Database& database, const tsql::PermissionStatement& statement,
                     const Permission& permission, bool ownGrantsOnly) const {
    const bool grants = statement.verb == tsql::PermissionVerb::Grant;
    const auto isReplaced = [&](const Permission& one) {
        return IsSameRight(one, permission) && one.grantee == permission.grantee &&
               (!ownGrantsOnly || one.grantor == permission.grantor);
    };
    auto& all = database.permissions;
    const bool wasGrantable = std::any_of(
        all.begin(), all.end(), [&](const Permission& one) { return isReplaced(one) && one.state == 'W'; });
    if (!grants && wasGrantable && !statement.cascade)
        throw SqlError(4611);
    std::erase_if(all, isReplaced);
    if (!grants && wasGrantable)
        TakeHandedOn(database, permission);
    Permission after = permission;
    const bool keepsRight =
        statement.verb == tsql::PermissionVerb::Revoke && statement.grantOption && wasGrantable;
    if (keepsRight)
        after.state = 'G';
    else if (grants && wasGrantable)
        after.state = 'W';
    const bool shutsOut = statement.verb == tsql::PermissionVerb::Revoke &&
                          permission.permission == "CONNECT" && permission.grantee != guestPrincipal &&
                          database.principals.at(permission.grantee).kind != PrincipalKind::Role;
    if (shutsOut)
        after.state = 'R';
    if (keepsRight || shutsOut || statement.verb != tsql::PermissionVerb::Revoke)
        all.push_back(after);
}

void Principals::Authorize(const tsql::AlterAuthorizationStatement& statement) {
    if (statement.securableClass == "DATABASE") {
        const Database* database = m_engine.store.View()->FindDatabase(statement.securable.Last());
        if (database == nullptr)
            throw SqlError(15151, {"find", "database", statement.securable.Last()});
        const std::string sid = SidOf(statement.owner);
        if (sid.empty())
            throw SqlError(15151, {"find", "principal", statement.owner});
        for (const auto& [id, principal] : database->principals)
            if (principal.sid == sid)
                throw SqlError(15110);
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
    // What was granted was the former owner's to give.
    Change([&](Database& database) {
        database.schemas.at(id).owner = owner;
        ForgetRights(database, schemaClass, id);
    });
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
