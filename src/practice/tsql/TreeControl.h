#pragma once

// Control of flow, variables, settings, transactions, calls, cursors, and the statements that fit nowhere
// else.

#include "practice/tsql/TreeDml.h"
#include "practice/tsql/TreeModules.h"

namespace quillon::practice::tsql {

struct BlockStatement : Statement {
    StatementList body;

    BlockStatement()
        : Statement(StatementKind::Block) {}
};

struct IfStatement : Statement {
    ExpressionPtr condition;
    StatementPtr then;
    StatementPtr otherwise;

    IfStatement()
        : Statement(StatementKind::If) {}
};

struct WhileStatement : Statement {
    ExpressionPtr condition;
    StatementPtr body;

    WhileStatement()
        : Statement(StatementKind::While) {}
};

/// BREAK, CONTINUE, REVERT, CHECKPOINT, RECONFIGURE: statements that are their keyword and nothing else.
struct BareStatement : Statement {
    using Statement::Statement;
};

/// GOTO name and the label `name:` itself.
struct LabelStatement : Statement {
    std::string label;

    using Statement::Statement;
};

struct ReturnStatement : Statement {
    ExpressionPtr value;

    ReturnStatement()
        : Statement(StatementKind::Return) {}
};

struct WaitForStatement : Statement {
    bool delay = true;  // otherwise TIME
    ExpressionPtr time; // a string literal or a variable

    WaitForStatement()
        : Statement(StatementKind::WaitFor) {}
};

struct TryCatchStatement : Statement {
    StatementList body;
    StatementList handler;

    TryCatchStatement()
        : Statement(StatementKind::TryCatch) {}
};

struct PrintStatement : Statement {
    ExpressionPtr value;

    PrintStatement()
        : Statement(StatementKind::Print) {}
};

struct RaiseErrorStatement : Statement {
    ExpressionPtr message; // a number, a text, or a variable of either
    ExpressionPtr severity;
    ExpressionPtr state;
    ExpressionList arguments;
    bool log = false;
    bool noWait = false;
    bool setError = false;

    RaiseErrorStatement()
        : Statement(StatementKind::RaiseError) {}
};

/// THROW alone (all three empty) raises the caught error again.
struct ThrowStatement : Statement {
    ExpressionPtr number;
    ExpressionPtr message;
    ExpressionPtr state;

    ThrowStatement()
        : Statement(StatementKind::Throw) {}
};

struct VariableDeclaration {
    Position position;
    std::string name; // with its @
    DataType type;
    bool cursor = false; // DECLARE @c CURSOR
    ExpressionPtr value;
};

struct DeclareVariablesStatement : Statement {
    std::vector<VariableDeclaration> variables;

    DeclareVariablesStatement()
        : Statement(StatementKind::DeclareVariables) {}
};

struct DeclareTableStatement : Statement {
    std::string variable; // with its @
    TableDefinition definition;

    DeclareTableStatement()
        : Statement(StatementKind::DeclareTable) {}
};

struct SetVariableStatement : Statement {
    std::string variable; // with its @
    AssignmentOperator op = AssignmentOperator::Set;
    ExpressionPtr value;

    SetVariableStatement()
        : Statement(StatementKind::SetVariable) {}
};

/// SET option value. `options` are upper case; several only where one ON or OFF follows them all. `value` is
/// "ON", "OFF", a word, a number or a text; or a variable, then `expression` holds it.
struct SetOptionStatement : Statement {
    std::vector<std::string>
        options; // "NOCOUNT", "IDENTITY_INSERT", "TRANSACTION ISOLATION LEVEL", "STATISTICS IO" ...
    std::string value;
    ExpressionPtr expression;
    Name table; // of IDENTITY_INSERT

    SetOptionStatement()
        : Statement(StatementKind::SetOption) {}
};

/// BEGIN, COMMIT, ROLLBACK and SAVE TRANSACTION; the name is a text or a variable's, or empty.
struct TransactionStatement : Statement {
    std::string name;
    std::string variable; // with its @
    bool distributed = false;

    using Statement::Statement;
};

struct ExecuteArgument {
    Position position;
    std::string name;    // with its @, empty when passed by position
    ExpressionPtr value; // a literal, a variable, a bare word (as a string literal) or DefaultValue
    bool output = false;
};

struct ExecuteStatement : Statement {
    std::string returnVariable; // with its @
    std::vector<OptionSetting> options;

    using Statement::Statement;
};

/// EXEC [@r =] procedure arguments; the name may come from a variable.
struct ExecuteProcedureStatement : ExecuteStatement {
    Name procedure;
    std::string procedureVariable; // with its @
    std::vector<ExecuteArgument> arguments;

    ExecuteProcedureStatement()
        : ExecuteStatement(StatementKind::ExecuteProcedure) {}
};

/// EXEC (text + text ...) [AS USER | LOGIN = 'name'] ; with AT it is refused.
struct ExecuteTextStatement : ExecuteStatement {
    ExpressionPtr text;
    std::string asKind; // "USER", "LOGIN" or empty
    std::string asName;

    ExecuteTextStatement()
        : ExecuteStatement(StatementKind::ExecuteText) {}
};

struct ExecuteAsStatement : Statement {
    std::string kind; // "USER", "LOGIN", "CALLER"
    ExpressionPtr name;

    ExecuteAsStatement()
        : Statement(StatementKind::ExecuteAs) {}
};

struct CursorName {
    std::string name; // with its @ for a variable
    bool global = false;
    bool variable = false;
    Position position;
};

struct CursorDefinition {
    bool global = false;
    bool local = false;
    bool scroll = false; // also INSENSITIVE SCROLL
    bool forwardOnly = false;
    bool fastForward = false;
    bool insensitive = false;
    bool isStatic = false;
    bool keyset = false;
    bool dynamic = false;
    bool readOnly = false;
    bool scrollLocks = false;
    bool optimistic = false;
    bool typeWarning = false;
    std::unique_ptr<SelectStatement> select;
    bool forUpdate = false;
    std::vector<std::string> updateColumns;
};

struct DeclareCursorStatement : Statement {
    std::string name;
    CursorDefinition definition;

    DeclareCursorStatement()
        : Statement(StatementKind::DeclareCursor) {}
};

/// SET @c = CURSOR ... or SET @c = another cursor.
struct SetCursorVariableStatement : Statement {
    std::string variable;
    std::optional<CursorDefinition> definition;
    CursorName source; // where there is no definition

    SetCursorVariableStatement()
        : Statement(StatementKind::SetCursorVariable) {}
};

/// OPEN, CLOSE, DEALLOCATE
struct CursorStatement : Statement {
    CursorName cursor;

    using Statement::Statement;
};

enum class FetchDirection { Next, Prior, First, Last, Absolute, Relative };

struct FetchCursorStatement : Statement {
    FetchDirection direction = FetchDirection::Next;
    ExpressionPtr count;
    CursorName cursor;
    std::vector<std::string> into; // variables with their @

    FetchCursorStatement()
        : Statement(StatementKind::FetchCursor) {}
};

struct UseStatement : Statement {
    std::string database;

    UseStatement()
        : Statement(StatementKind::Use) {}
};

struct DbccStatement : Statement {
    std::string command;      // upper case
    ExpressionList arguments; // bare words come as ColumnReference
    std::vector<std::string> options;

    DbccStatement()
        : Statement(StatementKind::Dbcc) {}
};

/// What the server does not do: `refusal` is the text of 49999.
struct RefusedStatement : Statement {
    std::string refusal;

    RefusedStatement()
        : Statement(StatementKind::Refused) {}
};

struct KillStatement : Statement {
    int process = 0;

    KillStatement()
        : Statement(StatementKind::Kill) {}
};

} // namespace quillon::practice::tsql
