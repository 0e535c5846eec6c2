// Executor: runs one parsed statement of the kinds that concern data and definitions, and evaluates
// expressions, for its session. Control flow, variables' declarations, calls, cursors and transactions are
// the session's own.
//
// Prepared forms are kept with the tree's nodes (their attachments), so a tree must not outlive the executor
// that ran it. What throws: SqlError (the statement has been undone), Interrupted, ClientGone.
#pragma once

#include "practice/statements/ExecutionContext.h"
#include "practice/statements/SystemViews.h"
#include "practice/storage/StoreSession.h"
#include "practice/tsql/Tree.h"
#include "practice/values/Operators.h"

namespace quillon::practice {

class Engine; // what the parts of the executor share

// What a statement has done; the session counts @@ROWCOUNT and sends Done with it.
struct StatementOutcome {
    StatementKind kind = StatementKind::Other;
    std::optional<std::uint64_t> count; // absent for DDL and the like
    bool keepsRowCount = false;         // @@ROWCOUNT stays as it was (a DECLARE-like statement)
    // A SELECT that assigned variables has a count but sent no rows.
};

// Reads the rows of a query one by one; for cursors and FOR-less uses of a result.
class QueryReader {
  public:
    virtual ~QueryReader() = default;
    virtual const std::vector<ResultColumn>& Columns() const = 0;
    // The next row, one value a column; false at the end.
    virtual bool Next(std::vector<Datum>& row) = 0;
    // The table and row under the reader when the query allows WHERE CURRENT OF (one table, no grouping).
    virtual std::optional<CursorRow> Position() const = 0;
};

class Executor {
  public:
    // All three outlive it. `systemViews` may be nullptr: then there are none.
    Executor(StoreSession& store, ExecutionContext& context, const SystemViews* systemViews);
    ~Executor();
    Executor(const Executor&) = delete;
    Executor& operator=(const Executor&) = delete;

    // Whether Execute knows this kind of statement: queries, DML, DDL, USE, security.
    static bool Handles(tsql::StatementKind kind);
    // Result rows go to the context's sink; Done is the session's to send.
    StatementOutcome Execute(const tsql::Statement& statement);

    // After a failure of Execute: whether the statement had been bound and was changing rows, so that it has
    // been terminated (3621) rather than refused.
    bool HasBegun() const;

    // The value of an expression, with its static type even when null. 137 for undeclared variables.
    Datum Evaluate(const tsql::Expression& expression);
    // As above, converted as an assignment to a variable of `target`.
    Datum Evaluate(const tsql::Expression& expression, const SqlType& target);
    // SET @variable op= value, whose variable is of type `target`.
    Datum Evaluate(BinaryOperator op, const Datum& left, const Datum& right, const SqlType& target);
    // IF, WHILE: true, or not true (false and unknown).
    bool IsTrue(const tsql::Expression& condition);

    // `withRowIds` asks for Position: FOR UPDATE cursors and all that may be used by WHERE CURRENT OF.
    std::unique_ptr<QueryReader> Open(const tsql::SelectStatement& statement, bool withRowIds = false);
    // The columns that the statement would answer, without running it; empty when it answers none.
    std::vector<ResultColumn> Describe(const tsql::Statement& statement);
    // Bind a query or a change of rows, an expression, or what stands after IF, and run nothing: what is
    // wrong with them is thrown. Other statements have nothing to bind.
    void Bind(const tsql::Statement& statement);
    void Bind(const tsql::Expression& expression);
    // A firing without rows to bind the trigger's statements against.
    TriggerFrame PretendedFiring(const Trigger& trigger);

    // A table variable of the current frame, or the parameter of a table type: made empty, dropped by the
    // session with DropTable when the frame ends.
    std::shared_ptr<const Table> CreateTableVariable(std::string_view name,
                                                     const tsql::TableDefinition& definition);
    std::shared_ptr<const Table> CreateTableVariable(std::string_view name, const Table& tableType);
    void DropTable(const Table& table) noexcept;
    // Drops the temporary tables that scopes deeper than `scope` made.
    void DropTemporaryTables(int scope) noexcept;
    // Drops the ##tables and ##procedures that this session made; outside of a transaction. Those that others
    // keep locked for long stay until the server starts anew.
    void DropSharedObjects() noexcept;

    // A declared type: built-in, sysname, or the user's own (then `table` is set for a table type). Throws
    // 2715 for unknown ones.
    struct ResolvedType {
        SqlType type;
        std::shared_ptr<const Table> table;
        ObjectId userType = 0;
    };
    ResolvedType ResolveType(const tsql::DataType& type, bool inCast = false);

    // An object by the name as written in the statement that runs (schema rules, three parts, #temporary,
    // synonyms); nullptr when there is none.
    std::shared_ptr<const SchemaObject> FindObject(const tsql::Name& name);
    // The tree of a module, parsed once for this session and version. Throws SqlError when it cannot be.
    std::shared_ptr<const tsql::Batch> ModuleTree(const Module& module);

  private:
    std::unique_ptr<Engine> m_engine;
};

} // namespace quillon::practice
