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
        , m_rights(m_database, UserHere()) {}

    void Require(const Statement& statement);

  private:
    PrincipalId UserHere() {
        RequireEntry(m_session, m_database);
        return *UserIn(m_session, m_database);
    }

    // Databases
    bool MayOnDatabase(const std::string& name, std::string_view right) const {
        const Database* database = name.empty() ? &m_database : m_view->FindDatabase(name);
        if (database == nullptr)
            return false;
        const auto user = UserIn(m_session, *database);
        return user && Rights(*database, *user).OnDatabase(right);
    }

    // Things of the current database
    void RequireCreation(std::string_view right, const Name& name) {
        if (name.Last().starts_with('#'))
            return;
        if (!m_rights.OnDatabase(right))
            throw SqlError(262, {right, m_database.name});
        const SchemaId own = name.Schema().empty() ? m_session.Context().DefaultSchema() : 0;
        const Schema* schema = name.Schema().empty() ? nullptr : m_database.FindSchema(name.Schema());
        if ((own != 0 || schema != nullptr) && !m_rights.OnSchema("ALTER", own != 0 ? own : schema->id))
            throw SqlError(2760, {own != 0 ? m_database.SchemaName(own) : std::string_view(name.Schema())});
    }
    bool MayOnObject(const Name& name, std::string_view right) {
        if (name.Last().starts_with('#'))
            return true;
        const auto object = m_session.Statements().FindObject(name);
        if (!object) // then the statement itself says so
            return true;
        const Database* database = m_view->FindDatabase(object->database);
        const auto user = UserIn(m_session, *database);
        return user && Rights(*database, *user).OnObject(right, *object);
    }
    void RequireTable(const Name& name) {
        if (!MayOnObject(name, "ALTER"))
            throw SqlError(1088, {name.Text()}, 13);
    }
    void RequireDrop(const char* kind, const Name& name, std::string_view right = "ALTER") {
        if (!MayOnObject(name, right))
            throw SqlError(3701, {"drop", kind, name.Text()}, 20);
    }
    void RequireModule(const ModuleStatement& module, std::string_view creation, const char* kind) {
        const bool exists =
            module.verb != ModuleVerb::Create && m_session.Statements().FindObject(module.name) != nullptr;
        if (!exists)
            RequireCreation(creation, module.name);
        else if (!MayOnObject(module.name, "ALTER"))
            throw SqlError(3701, {"alter", kind, module.name.Text()}, 20);
    }
    void RequireTrigger(const CreateTriggerStatement& trigger) {
        if (!MayOnObject(trigger.table, "ALTER"))
            throw SqlError(8197, {trigger.table.Text()}, 4);
    }
    /// A trigger goes with its table.
    void RequireDropTrigger(const Name& name) {
        const auto object = std::dynamic_pointer_cast<const Trigger>(m_session.Statements().FindObject(name));
        const auto parent = object ? m_view->FindObject(object->parent) : nullptr;
        if (parent && !m_rights.OnObject("ALTER", *parent))
            throw SqlError(3701, {"drop", "trigger", name.Text()}, 20);
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
    void RequireGrant(const PermissionStatement& statement);

    SessionState& m_session;
    std::shared_ptr<const Catalogue> m_view;
    const Database& m_database;
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
        case DropKind::Synonym:
            if (!m_rights.OnDatabase("ALTER ANY SCHEMA"))
                throw SqlError(3701, {"drop", "synonym", name.Text()}, 20);
            break;
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

void Definer::RequireGrant(const PermissionStatement& statement) {
    Permission given;
    if (statement.securableClass == "SCHEMA") {
        const Schema* schema = m_database.FindSchema(statement.securable.Last());
        if (schema == nullptr)
            return;
        given.securableClass = schemaClass;
        given.major = schema->id;
    } else if (!statement.securable.Empty() && statement.securableClass != "DATABASE") {
        const auto object = m_session.Statements().FindObject(statement.securable);
        if (!object)
            return;
        given.securableClass = objectClass;
        given.major = object->id;
    }
    for (const std::string& right : statement.permissions) {
        given.permission = right;
        if (m_rights.MayGrant(given))
            continue;
        if (given.securableClass == databaseClass)
            throw SqlError(15247);
        throw SqlError(15151, {"find", given.securableClass == schemaClass ? "schema" : "object",
                               statement.securable.Text()});
    }
}

void Definer::RequirePrincipals(const Statement& statement) {
    switch (statement.kind) {
    case Kind::CreateUser:
        if (!m_rights.OnDatabase("ALTER ANY USER"))
            throw SqlError(15247);
        return;
    case Kind::AlterUser:
        if (!m_rights.OnDatabase("ALTER ANY USER"))
            throw SqlError(15151, {"alter", "user", As<AlterUserStatement>(statement).name});
        return;
    case Kind::CreateRole:
        if (!m_rights.OnDatabase("CREATE ROLE"))
            throw SqlError(15247);
        return;
    case Kind::AlterRole: return RequireRole(As<AlterRoleStatement>(statement).name, "alter");
    case Kind::Permission: return RequireGrant(As<PermissionStatement>(statement));
    case Kind::AlterAuthorization:
        if (!m_rights.IsOwner() && !m_rights.IsMember("db_owner"))
            throw SqlError(15247);
        return;
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
    case Kind::SetOption: {
        const Name& table = As<SetOptionStatement>(statement).table;
        return table.Empty() ? void() : RequireTable(table);
    }
    case Kind::CreateSchema: return RequireCreation("CREATE SCHEMA", {});
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
    case Kind::Dbcc:
        if (As<DbccStatement>(statement).command == "CHECKIDENT")
            RequireOwner(m_session);
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
    if (!session.impersonations.empty() && !session.impersonations.back().user.empty())
        throw SqlError(916, {session.LoginName(), database->name});
    RequireEntry(session, *database);
}

/// What asks for nothing but the data in it, or for nothing at all; REVERT must work for those who were shut
/// out in the meantime.
bool Defines(const Statement& statement) {
    switch (statement.kind) {
    case Kind::Insert:
    case Kind::Update:
    case Kind::Delete:
    case Kind::Merge: return false;
    case Kind::Select: return !As<SelectStatement>(statement).First().into.Empty();
    case Kind::SetOption: return !As<SetOptionStatement>(statement).table.Empty();
    case Kind::Dbcc: return true;
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
