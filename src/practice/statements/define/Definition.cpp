#include "practice/statements/define/Definition.h"

#include "practice/statements/define/Indexes.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

using Kind = tsql::StatementKind;

bool IsDefinition(Kind kind) {
    return kind == Kind::Truncate || (kind >= Kind::CreateDatabase && kind <= Kind::AlterAuthorization) ||
           kind == Kind::Use;
}

namespace {

void Drop(Engine& engine, const tsql::DropStatement& statement) {
    switch (statement.what) {
    case tsql::DropKind::Database: return DropDatabases(engine, statement);
    case tsql::DropKind::Schema: return DropSchemas(engine, statement);
    case tsql::DropKind::Table: return DropTables(engine, statement);
    case tsql::DropKind::View:
    case tsql::DropKind::Procedure:
    case tsql::DropKind::Function: return DropModules(engine, statement);
    case tsql::DropKind::User:
    case tsql::DropKind::Role: return RunPrincipalStatement(engine, statement);
    case tsql::DropKind::Statistics: return;
    default: return DropOthers(engine, statement);
    }
}

void RunKind(Engine& engine, const tsql::Statement& statement) {
    using namespace tsql;
    switch (statement.kind) {
    case Kind::Truncate: return Truncate(engine, As<TruncateStatement>(statement));
    case Kind::CreateDatabase: return CreateDatabase(engine, As<CreateDatabaseStatement>(statement));
    case Kind::AlterDatabase: return AlterDatabase(engine, As<AlterDatabaseStatement>(statement));
    case Kind::CreateSchema: return CreateSchema(engine, As<CreateSchemaStatement>(statement));
    case Kind::AlterSchemaTransfer:
        return TransferToSchema(engine, As<AlterSchemaTransferStatement>(statement));
    case Kind::CreateTable: return CreateTable(engine, As<CreateTableStatement>(statement));
    case Kind::AlterTable: return AlterTable(engine, As<AlterTableStatement>(statement));
    case Kind::CreateIndex: return CreateIndex(engine, As<CreateIndexStatement>(statement));
    case Kind::AlterIndex: return AlterIndex(engine, As<AlterIndexStatement>(statement));
    case Kind::CreateStatistics:
    case Kind::UpdateStatistics: return; // the planner keeps none of ours
    case Kind::CreateType: return CreateUserType(engine, As<CreateTypeStatement>(statement));
    case Kind::CreateSynonym: return CreateSynonym(engine, As<CreateSynonymStatement>(statement));
    case Kind::CreateView: return CreateView(engine, As<CreateViewStatement>(statement));
    case Kind::CreateProcedure: return CreateProcedure(engine, As<CreateProcedureStatement>(statement));
    case Kind::CreateFunction: return CreateFunction(engine, As<CreateFunctionStatement>(statement));
    case Kind::CreateTrigger: return CreateTrigger(engine, As<CreateTriggerStatement>(statement));
    case Kind::EnableTrigger: return EnableTriggers(engine, As<EnableTriggerStatement>(statement));
    case Kind::CreateDefaultOrRule:
        return CreateDefaultOrRule(engine, As<CreateDefaultOrRuleStatement>(statement));
    case Kind::Drop: return Drop(engine, As<DropStatement>(statement));
    case Kind::DropIndex: return DropIndexes(engine, As<DropIndexStatement>(statement));
    case Kind::DropTrigger: return DropTriggers(engine, As<DropTriggerStatement>(statement));
    default: return RunPrincipalStatement(engine, statement);
    }
}

bool IsTemporaryName(const tsql::Name& name) {
    return IsPrivateName(name.Last());
}

// The tables that the statement is about.
std::vector<tsql::Name> TablesOf(const tsql::Statement& statement) {
    using namespace tsql;
    switch (statement.kind) {
    case Kind::CreateTable: return {As<CreateTableStatement>(statement).name};
    case Kind::AlterTable: return {As<AlterTableStatement>(statement).name};
    case Kind::CreateIndex: return {As<CreateIndexStatement>(statement).table};
    case Kind::Truncate: return {As<TruncateStatement>(statement).table};
    case Kind::Drop: {
        const auto& drop = As<DropStatement>(statement);
        return drop.what == DropKind::Table ? drop.names : std::vector<Name>();
    }
    default: return {};
    }
}

bool ConcernsTemporaryProcedures(const tsql::Statement& statement) {
    if (statement.kind == Kind::CreateProcedure)
        return IsTemporaryName(tsql::As<tsql::CreateProcedureStatement>(statement).name);
    if (statement.kind != Kind::Drop)
        return false;
    const auto& drop = tsql::As<tsql::DropStatement>(statement);
    return drop.what == tsql::DropKind::Procedure &&
           std::all_of(drop.names.begin(), drop.names.end(), IsTemporaryName);
}

StoreSession::Written WrittenBy(Engine& engine, const tsql::Statement& statement) {
    if (ConcernsTemporaryProcedures(statement))
        return StoreSession::Writes::Temporary;
    const std::vector<tsql::Name> tables = TablesOf(statement);
    if (tables.empty())
        return StoreSession::Writes::Data;
    // Temporary tables need no lock.
    if (std::all_of(tables.begin(), tables.end(), IsTemporaryName))
        return StoreSession::Writes::Temporary;
    const auto object = Translator(engine).FindSourceObject(tables.front());
    return object ? StoreSession::Written(StoreSession::Writes::Data,
                                          {ObjectLock(object->id), LockMode::Exclusive})
                  : StoreSession::Writes::Data;
}

bool ConcernsDatabases(const tsql::Statement& statement) {
    if (statement.kind == Kind::CreateDatabase || statement.kind == Kind::AlterDatabase)
        return true;
    return statement.kind == Kind::Drop &&
           tsql::As<tsql::DropStatement>(statement).what == tsql::DropKind::Database;
}

bool ConcernsLogins(const tsql::Statement& statement) {
    if (statement.kind == Kind::CreateLogin || statement.kind == Kind::AlterLogin)
        return true;
    if (statement.kind == Kind::AlterRole)
        return tsql::As<tsql::AlterRoleStatement>(statement).server;
    return statement.kind == Kind::Drop &&
           tsql::As<tsql::DropStatement>(statement).what == tsql::DropKind::Login;
}

void Use(Engine& engine, const tsql::UseStatement& statement) {
    const Database* database = engine.store.View()->FindDatabase(statement.database);
    if (database == nullptr)
        throw SqlError(911, {statement.database});
    engine.context.ChangeDatabase(database->id);
}

} // namespace

void RunDefinition(Engine& engine, const tsql::Statement& statement) {
    if (statement.kind == Kind::Use)
        return Use(engine, tsql::As<tsql::UseStatement>(statement));
    if (ConcernsLogins(statement))
        return engine.context.RunLoginStatement(statement);
    const StoreSession::Written written = WrittenBy(engine, statement);
    StatementScope scope(engine, written);
    if (written.what == StoreSession::Writes::Data && !ConcernsDatabases(statement))
        RequireWritable(engine, engine.context.CurrentDatabase());
    RunKind(engine, statement);
    scope.End();
}

} // namespace quillon::practice
