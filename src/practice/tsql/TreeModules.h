#pragma once

// Modules: views, procedures, functions and triggers, which keep their source text and their parsed body.

#include "practice/tsql/TreeDdl.h"

namespace quillon::practice::tsql {

enum class ModuleVerb { Create, Alter, CreateOrAlter };

struct Parameter {
    Position position;
    std::string name; // with its @
    DataType type;
    ExpressionPtr defaultValue;
    bool output = false;
    bool readOnly = false;
    bool cursor = false; // CURSOR VARYING
    std::optional<bool> nullable;
};

/// `source` is the text that the system keeps and shows: the whole batch. `verbText` is where its CREATE,
/// ALTER or CREATE OR ALTER stands, for the kept text of an ALTER says CREATE.
struct ModuleStatement : Statement {
    ModuleVerb verb = ModuleVerb::Create;
    Name name;
    std::string source;
    Span verbText;
    bool encryption = false;
    bool schemaBinding = false;
    bool recompile = false;
    std::string executeAs;      // CALLER, SELF, OWNER or a user's name; empty when not given
    bool executeAsUser = false; // it is a user's name

    using Statement::Statement;
};

struct CreateViewStatement : ModuleStatement {
    std::vector<std::string> columns;
    std::unique_ptr<Query> query;
    Span queryText;
    bool checkOption = false;

    CreateViewStatement()
        : ModuleStatement(StatementKind::CreateView) {}
};

struct CreateProcedureStatement : ModuleStatement {
    std::vector<Parameter> parameters;
    StatementList body;

    CreateProcedureStatement()
        : ModuleStatement(StatementKind::CreateProcedure) {}
};

enum class FunctionKind { Scalar, InlineTable, MultiStatementTable };

struct CreateFunctionStatement : ModuleStatement {
    FunctionKind function = FunctionKind::Scalar;
    std::vector<Parameter> parameters;
    DataType returnType;                // Scalar
    std::string tableVariable;          // MultiStatementTable
    TableDefinition table;              // MultiStatementTable
    std::unique_ptr<Query> inlineQuery; // InlineTable
    bool returnsNullOnNullInput = false;
    StatementList body;

    CreateFunctionStatement()
        : ModuleStatement(StatementKind::CreateFunction) {}
};

enum class TriggerTiming { After, InsteadOf };

struct CreateTriggerStatement : ModuleStatement {
    Name table;
    TriggerTiming timing = TriggerTiming::After;
    bool onInsert = false;
    bool onUpdate = false;
    bool onDelete = false;
    bool notForReplication = false;
    StatementList body;

    CreateTriggerStatement()
        : ModuleStatement(StatementKind::CreateTrigger) {}
};

struct DropTriggerStatement : Statement {
    bool ifExists = false;
    std::vector<Name> names;

    DropTriggerStatement()
        : Statement(StatementKind::DropTrigger) {}
};

/// ENABLE TRIGGER and DISABLE TRIGGER as statements of their own.
struct EnableTriggerStatement : Statement {
    bool enable = true;
    bool all = false;
    std::vector<Name> names;
    Name table;

    EnableTriggerStatement()
        : Statement(StatementKind::EnableTrigger) {}
};

} // namespace quillon::practice::tsql
