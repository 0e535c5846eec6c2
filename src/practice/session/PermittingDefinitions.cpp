// Who may define: the rights that CREATE, ALTER, DROP, GRANT and their kin ask for.
#include "practice/session/Permitting.h"
#include "practice/session/SessionState.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

using namespace tsql;
using Kind = tsql::StatementKind;

class Definer {
  public:
    explicit Definer(SessionState& session)
        : m_session(session)
        , m_view(session.store.View())
        , m_database(*m_view->FindDatabase(session.database))
        , m_user(UserHere())
        , m_rights(m_database, m_user) {}

    void Require(const Statement& statement);

  private:
    PrincipalId UserHere() {
        RequireEntry(m_session, m_database);
        return *m_session.UserIn(m_database);
    }

    // Databases
    bool MayOnDatabase(const std::string& name, std::string_view right) const {
        const Database* database = name.empty() ? &m_database : m_view->FindDatabase(name);
        if (database == nullptr)
            return false;
        const auto user = m_session.UserIn(*database);
        return user && Rights(*database, *user).OnDatabase(right);
    }
    bool MayOn(const SchemaObject& object, std::string_view right) const {
        const Database* database = m_view->FindDatabase(object.database);
        const auto user = database == nullptr ? std::nullopt : m_session.UserIn(*database);
        return user && Rights(*database, *user).OnObject(right, object);
    }

    // Where a name puts a new thing; no schema where there is none of that name.
    struct Place {
        const Database* database;
        const Schema* schema;
    };
    std::optional<Place> PlaceOf(const Name& name) const {
        const Database* database =
            name.Database().empty() ? &m_database : m_view->FindDatabase(name.Database());
        if (database == nullptr) // then the statement itself says so
            return std::nullopt;
        RequireEntry(m_session, *database);
        if (!name.Schema().empty())
            return Place{database, database->FindSchema(name.Schema())};
        const auto schema = database->schemas.find(m_session.Context().DefaultSchema());
        return Place{database, schema == database->schemas.end() ? nullptr : &schema->second};
    }
    Rights RightsIn(const Database& database) const { return {database, *m_session.UserIn(database)}; }

    // Things of the current database
    void RequireCreation(std::string_view right, const Name& name) {
        if (name.Last().starts_with('#'))
            return;
        const auto place = PlaceOf(name);
        if (!place)
            return;
        const Rights rights = RightsIn(*place->database);
        if (!rights.OnDatabase(right))
            throw SqlError(262, {right, place->database->name});
        if (place->schema != nullptr && !rights.OnSchema("ALTER", place->schema->id))
            throw SqlError(2760, {place->schema->name});
    }
    void RequireSchemaCreation(const CreateSchemaStatement& statement) {
        if (!m_rights.OnDatabase("CREATE SCHEMA"))
            throw SqlError(262, {"CREATE SCHEMA", m_database.name});
        const Principal* owner =
            statement.owner.empty() ? nullptr : m_database.FindPrincipal(statement.owner);
        if (owner != nullptr && !m_rights.IsMember(owner->id) && !m_rights.OnDatabase("CONTROL"))
            throw SqlError(15151, {"find", "user", statement.owner});
    }
    bool MayOnObject(const Name& name, std::string_view right) {
        if (name.Last().starts_with('#'))
            return true;
        const auto object = m_session.Statements().FindObject(name);
        if (!object)
            return true;
        return MayOn(*object, right);
    }
    void RequireTable(const Name& name) {
        if (!MayOnObject(name, "ALTER"))
            throw SqlError(1088, {name.Text()}, 13);
    }
    /// Rows that pass by what the table says of its rows are for those who could change what it says.
    void RequireBulk(const InsertStatement& insert) {
        const auto table =
            std::dynamic_pointer_cast<const Table>(m_session.Statements().FindObject(insert.target.name));
        if (!table)
            return;
        const bool hasConstraints = !table->checks.empty() || !table->foreignKeys.empty();
        if ((hasConstraints && !insert.bulk.checkConstraints) ||
            (!table->triggers.empty() && !insert.bulk.fireTriggers))
            RequireTable(insert.target.name);
    }
    void RequireDrop(const char* kind, const Name& name, std::string_view right = "ALTER") {
        if (!MayOnObject(name, right))
            throw SqlError(3701, {"drop", kind, name.Text()}, 20);
    }
    void RequireModule(const ModuleStatement& module, std::string_view creation, const char* kind) {
        const auto place = PlaceOf(module.name);
        const bool isSomewhere = place && place->schema != nullptr;
        const auto existing =
            isSomewhere ? m_view->FindObject(place->database->id, place->schema->id, module.name.Last())
                        : nullptr;
        if (module.verb == ModuleVerb::Create || (module.verb == ModuleVerb::CreateOrAlter && !existing))
            RequireCreation(creation, module.name);
        else if (existing && !MayOn(*existing, "ALTER"))
            throw SqlError(3701, {"alter", kind, module.name.Text()}, 20);
        if (isSomewhere)
            RequireIdentity(module, *place->schema);
    }
    /// Whoever writes what others run as somebody else must be allowed to be that one.
    void RequireIdentity(const ModuleStatement& module, const Schema& schema) {
        const Principal* user = nullptr;
        if (module.executeAsUser)
            user = m_database.FindPrincipal(module.executeAs);
        else if (module.executeAs == "OWNER")
            user = &m_database.principals.at(schema.owner);
        if (user != nullptr && !m_rights.MayImpersonate(*user))
            throw SqlError(15151, {"execute as", "user", user->name});
    }
    void RequireTrigger(const CreateTriggerStatement& trigger) {
        if (!MayOnObject(trigger.table, "ALTER"))
            throw SqlError(8197, {trigger.table.Text()}, 4);
        const auto table = m_session.Statements().FindObject(trigger.table);
        if (table && table->database == m_database.id)
            RequireIdentity(trigger, m_database.schemas.at(table->schema));
    }
    /// A trigger goes with its table.
    void RequireDropTrigger(const Name& name) {
        const auto object = std::dynamic_pointer_cast<const Trigger>(m_session.Statements().FindObject(name));
        const auto parent = object ? m_view->FindObject(object->parent) : nullptr;
        if (parent && !MayOn(*parent, "ALTER"))
            throw SqlError(3701, {"drop", "trigger", name.Text()}, 20);
    }
    void RequireDropSynonym(const Name& name) {
        const auto place = PlaceOf(name);
        if (place && place->schema != nullptr &&
            !RightsIn(*place->database).OnSchema("ALTER", place->schema->id))
            throw SqlError(3701, {"drop", "synonym", name.Text()}, 20);
    }
    void RequireSchema(const std::string& name, const char* verb) {
        const Schema* schema = m_database.FindSchema(name);
        if (schema != nullptr && !m_rights.OnSchema("CONTROL", schema->id) &&
            !m_rights.OnDatabase("ALTER ANY SCHEMA"))
            throw SqlError(15151, {verb, "schema", name});
    }
    void RequireDropOf(const DropStatement& statement);
    void RequirePrincipals(const Statement& statement);
    void RequireRole(const std::string& name, const char* verb) {
        const Principal* role = m_database.FindPrincipal(name);
        const bool fixed = role != nullptr && role->fixedRole;
        // Whoever could add to the owners' role would be an owner.
        if (fixed ? !m_rights.IsOwner() && !m_rights.IsMember("db_owner")
                  : !m_rights.OnDatabase("ALTER ANY ROLE"))
            throw SqlError(15151, {verb, "role", name});
    }
    std::optional<Permission> SecurableOf(const PermissionStatement& statement) const;
    void RequireGrant(const PermissionStatement& statement);
    void RequireAuthorization(const AlterAuthorizationStatement& statement);
    void RequireAlterUser(const AlterUserStatement& statement);

    SessionState& m_session;
    std::shared_ptr<const Catalogue> m_view;
    const Database& m_database;
    PrincipalId m_user;
    Rights m_rights;
};

void Definer::RequireDropOf(const DropStatement& statement) {
    for (const Name& name : statement.names)
        switch (statement.what) {
        case DropKind::Database:
            if (!MayOnDatabase(name.Last(), "CONTROL"))
                throw SqlError(3701, {"drop", "database", name.Last()}, 20);
            break;
        case DropKind::Schema: RequireSchema(name.Last(), "drop"); break;
        case DropKind::Table: RequireDrop("table", name); break;
        case DropKind::View: RequireDrop("view", name); break;
        case DropKind::Procedure: RequireDrop("procedure", name); break;
        case DropKind::Function: RequireDrop("function", name); break;
        case DropKind::Type: RequireDrop("type", name, "CONTROL"); break;
        case DropKind::Synonym: RequireDropSynonym(name); break;
        case DropKind::Default: RequireDrop("default", name); break;
        case DropKind::Rule: RequireDrop("rule", name); break;
        case DropKind::User:
            if (!m_rights.OnDatabase("ALTER ANY USER"))
                throw SqlError(15151, {"drop", "user", name.Last()});
            break;
        case DropKind::Role: RequireRole(name.Last(), "drop"); break;
        case DropKind::Statistics: break;
        case DropKind::Login: break; // asked for where logins are changed
        }
}

/// The securable of the statement, without a right; nothing where there is no such thing here, as the
/// statement will say.
std::optional<Permission> Definer::SecurableOf(const PermissionStatement& statement) const {
    if (statement.securable.Empty() || statement.securableClass == "DATABASE")
        return Permission{};
    if (statement.securableClass == "SCHEMA") {
        const Schema* schema = m_database.FindSchema(statement.securable.Last());
        if (schema == nullptr)
            return std::nullopt;
        Permission securable;
        securable.securableClass = schemaClass;
        securable.major = schema->id;
        return securable;
    }
    const auto object = m_session.Statements().FindObject(statement.securable);
    return object ? std::optional(practice::SecurableOf(*object)) : std::nullopt;
}

void Definer::RequireGrant(const PermissionStatement& statement) {
    std::optional<Permission> given = SecurableOf(statement);
    if (!given)
        return;
    for (const std::string& right : GrantedRights(statement.permissions, *given, *m_view)) {
        given->permission = right;
        if (statement.verb == PermissionVerb::Deny ? m_rights.MayDeny(*given) : m_rights.MayGrant(*given))
            continue;
        if (given->securableClass == databaseClass)
            throw SqlError(4613);
        const char* kind = given->securableClass == schemaClass ? "schema"
                           : given->securableClass == typeClass ? "type"
                                                                : "object";
        throw SqlError(15151, {"find", kind, statement.securable.Text()});
    }
}

void Definer::RequireAuthorization(const AlterAuthorizationStatement& statement) {
    if (statement.securableClass == "DATABASE") {
        if (!MayOnDatabase(statement.securable.Last(), "CONTROL"))
            throw SqlError(15151, {"find", "database", statement.securable.Last()});
        if (m_session.ActsAsUser() || !SameName(statement.owner, m_session.LoginName()))
            throw SqlError(15151, {"find", "principal", statement.owner});
        return;
    }
    const Schema* schema = m_database.FindSchema(statement.securable.Last());
    if (schema == nullptr)
        return;
    if (!m_rights.OnSchema("CONTROL", schema->id))
        throw SqlError(15151, {"find", "schema", schema->name});
    const Principal* owner = m_database.FindPrincipal(statement.owner);
    if (owner != nullptr && !m_rights.IsMember(owner->id) && !m_rights.OnDatabase("CONTROL"))
        throw SqlError(15151, {"find", "principal", statement.owner});
}

/// The default schema is the user's own affair; its login decides who it is.
void Definer::RequireAlterUser(const AlterUserStatement& statement) {
    const Principal* user = m_database.FindPrincipal(statement.name);
    for (const OptionSetting& option : statement.options) {
        const bool own = option.name == "DEFAULT_SCHEMA" && user != nullptr && user->id == m_user;
        if (!own && !m_rights.OnDatabase(option.name == "LOGIN" ? "CONTROL" : "ALTER ANY USER"))
            throw SqlError(15151, {"alter", "user", statement.name});
    }
}

void Definer::RequirePrincipals(const Statement& statement) {
    switch (statement.kind) {
    case Kind::CreateUser:
        if (!m_rights.OnDatabase("ALTER ANY USER"))
            throw SqlError(15247);
        return;
    case Kind::AlterUser: return RequireAlterUser(As<AlterUserStatement>(statement));
    case Kind::CreateRole:
        if (!m_rights.OnDatabase("CREATE ROLE"))
            throw SqlError(15247);
        return;
    case Kind::AlterRole: {
        const auto& alter = As<AlterRoleStatement>(statement);
        return alter.server ? void() : RequireRole(alter.name, "alter"); // of the server: as for logins
    }
    case Kind::Permission: return RequireGrant(As<PermissionStatement>(statement));
    case Kind::AlterAuthorization: return RequireAuthorization(As<AlterAuthorizationStatement>(statement));
    default: return;
    }
}

void Definer::Require(const Statement& statement) {
    switch (statement.kind) {
    case Kind::CreateDatabase: throw SqlError(262, {"CREATE DATABASE", "master"});
    case Kind::AlterDatabase: {
        const std::string& name = As<AlterDatabaseStatement>(statement).name;
        if (!MayOnDatabase(name, "ALTER"))
            throw SqlError(5011, {name.empty() ? m_database.name : name}, 9);
        return;
    }
    case Kind::Select: {
        const Name& into = As<SelectStatement>(statement).First().into;
        return into.Empty() ? void() : RequireCreation("CREATE TABLE", into);
    }
    case Kind::Insert: return RequireBulk(As<InsertStatement>(statement));
    case Kind::SetOption: {
        const Name& table = As<SetOptionStatement>(statement).table;
        return table.Empty() ? void() : RequireTable(table);
    }
    case Kind::CreateSchema: return RequireSchemaCreation(As<CreateSchemaStatement>(statement));
    case Kind::AlterSchemaTransfer: {
        const auto& transfer = As<AlterSchemaTransferStatement>(statement);
        RequireSchema(transfer.schema, "alter");
        if (!MayOnObject(transfer.object, "CONTROL"))
            throw SqlError(15151, {"find", "object", transfer.object.Text()});
        return;
    }
    case Kind::CreateTable: return RequireCreation("CREATE TABLE", As<CreateTableStatement>(statement).name);
    case Kind::CreateType: return RequireCreation("CREATE TYPE", As<CreateTypeStatement>(statement).name);
    case Kind::CreateSynonym:
        return RequireCreation("CREATE SYNONYM", As<CreateSynonymStatement>(statement).name);
    case Kind::CreateDefaultOrRule: {
        const auto& made = As<CreateDefaultOrRuleStatement>(statement);
        return RequireCreation(made.rule ? "CREATE RULE" : "CREATE DEFAULT", made.name);
    }
    case Kind::CreateView:
        return RequireModule(static_cast<const ModuleStatement&>(statement), "CREATE VIEW", "view");
    case Kind::CreateProcedure:
        return RequireModule(static_cast<const ModuleStatement&>(statement), "CREATE PROCEDURE", "procedure");
    case Kind::CreateFunction:
        return RequireModule(static_cast<const ModuleStatement&>(statement), "CREATE FUNCTION", "function");
    case Kind::CreateTrigger: return RequireTrigger(As<CreateTriggerStatement>(statement));
    case Kind::Truncate: return RequireTable(As<TruncateStatement>(statement).table);
    case Kind::AlterTable: return RequireTable(As<AlterTableStatement>(statement).name);
    case Kind::CreateIndex: return RequireTable(As<CreateIndexStatement>(statement).table);
    case Kind::AlterIndex: return RequireTable(As<AlterIndexStatement>(statement).table);
    case Kind::CreateStatistics: return RequireTable(As<CreateStatisticsStatement>(statement).table);
    case Kind::UpdateStatistics: return RequireTable(As<UpdateStatisticsStatement>(statement).table);
    case Kind::EnableTrigger: return RequireTable(As<EnableTriggerStatement>(statement).table);
    case Kind::Drop: return RequireDropOf(As<DropStatement>(statement));
    case Kind::DropIndex:
        for (const DropIndexItem& item : As<DropIndexStatement>(statement).items)
            if (!MayOnObject(item.table, "ALTER"))
                throw SqlError(3701, {"drop", "index", item.table.Text() + "." + item.index}, 6);
        return;
    case Kind::DropTrigger:
        for (const Name& name : As<DropTriggerStatement>(statement).names)
            RequireDropTrigger(name);
        return;
    default: return RequirePrincipals(statement);
    }
}

void RequireUse(SessionState& session, const std::string& name) {
    const auto view = session.store.View();
    const Database* database = view->FindDatabase(name);
    if (database == nullptr || database->id == session.database)
        return;
    // Who acts as a user of one database does not leave it.
    if (session.ActsAsUser())
        throw SqlError(916, {session.LoginName(), database->name});
    RequireEntry(session, *database);
}

/// What asks for nothing but the data in it, or for nothing at all; REVERT must work for those who were shut
/// out in the meantime.
bool Defines(const Statement& statement) {
    switch (statement.kind) {
    case Kind::Insert: return As<InsertStatement>(statement).source == InsertSource::Bulk;
    case Kind::Update:
    case Kind::Delete:
    case Kind::Merge: return false;
    case Kind::Select: return !As<SelectStatement>(statement).First().into.Empty();
    case Kind::SetOption: return !As<SetOptionStatement>(statement).table.Empty();
    default: return Executor::Handles(statement.kind);
    }
}

} // namespace

void RequireDefinitionRights(SessionState& session, const Statement& statement) {
    if (statement.kind == Kind::Use)
        return RequireUse(session, As<UseStatement>(statement).database);
    if (!Defines(statement))
        return;
    Definer(session).Require(statement);
}

} // namespace quillon::practice
