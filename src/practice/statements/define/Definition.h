// Statements that define: which there are, and their running, each undone as a whole when it fails.
#pragma once

#include "practice/statements/Plan.h"

namespace quillon::practice {

bool IsDefinition(tsql::StatementKind kind);
void RunDefinition(Engine& engine, const tsql::Statement& statement);

// One file a kind:
void AlterTable(Engine& engine, const tsql::AlterTableStatement& statement);
void CreateView(Engine& engine, const tsql::CreateViewStatement& statement);
void CreateProcedure(Engine& engine, const tsql::CreateProcedureStatement& statement);
void CreateFunction(Engine& engine, const tsql::CreateFunctionStatement& statement);
void CreateTrigger(Engine& engine, const tsql::CreateTriggerStatement& statement);
void EnableTriggers(Engine& engine, const tsql::EnableTriggerStatement& statement);
void DropModules(Engine& engine, const tsql::DropStatement& statement);
void DropTriggers(Engine& engine, const tsql::DropTriggerStatement& statement);
void CreateDatabase(Engine& engine, const tsql::CreateDatabaseStatement& statement);
void AlterDatabase(Engine& engine, const tsql::AlterDatabaseStatement& statement);
void DropDatabases(Engine& engine, const tsql::DropStatement& statement);
void CreateSchema(Engine& engine, const tsql::CreateSchemaStatement& statement);
void DropSchemas(Engine& engine, const tsql::DropStatement& statement);
void TransferToSchema(Engine& engine, const tsql::AlterSchemaTransferStatement& statement);
void CreateUserType(Engine& engine, const tsql::CreateTypeStatement& statement);
void CreateSynonym(Engine& engine, const tsql::CreateSynonymStatement& statement);
void CreateDefaultOrRule(Engine& engine, const tsql::CreateDefaultOrRuleStatement& statement);
void DropOthers(Engine& engine, const tsql::DropStatement& statement); // types, defaults, rules
void RunPrincipalStatement(Engine& engine, const tsql::Statement& statement);

} // namespace quillon::practice
