// ExecutionContext: what running a statement asks of its session. The session implements it; the Executor
// calls it on the session's own thread only.
#pragma once

#include "practice/functions/FunctionContext.h"
#include "practice/session/ResultSink.h"
#include "practice/storage/Definitions.h"

#include <span>

namespace quillon::practice::tsql {
struct CurrentOf;
struct ExecuteStatement;
struct Statement;
} // namespace quillon::practice::tsql

namespace quillon::practice {

// SET options of the session (or, inside a module, of the module where the documentation says so).
struct SessionOptions {
    bool noCount = false;
    bool xactAbort = false;
    bool quotedIdentifier = true;
    bool ansiNulls = true;
    // Of columns without NULL or NOT NULL: at most one of the two; where neither is on, the database decides.
    bool ansiNullDefault = true;
    bool ansiNullDefaultOff = false;
    bool ansiPadding = true;
    // On, an error of arithmetic ends its statement and overlong data is refused. Off, overlong data is cut,
    // and the error ends the batch under ARITHABORT ON; otherwise the value is NULL, with a warning unless
    // under ARITHIGNORE ON.
    bool ansiWarnings = true;
    bool arithAbort = false;
    bool arithIgnore = false;
    bool concatNullYieldsNull = true;
    bool implicitTransactions = false;
    bool cursorCloseOnCommit = false;
    std::int64_t rowCount = 0; // SET ROWCOUNT; 0: all
    DateOrder dateOrder = DateOrder::Mdy;
    int dateFirst = 7;
    int textSize = 2147483647;
    ObjectId identityInsert = 0; // the table of SET IDENTITY_INSERT ... ON
};

// A variable of the running frame. For a table variable `table` is set and `value` means nothing.
struct Variable {
    SqlType type;
    Datum value; // null or of `type`
    std::shared_ptr<const Table> table;
    bool readOnly = false; // a parameter of a table type
};

// What one firing of triggers is about. `inserted` and `deleted` are row sets with the columns of the parent.
struct TriggerFrame {
    TriggerEvent event = TriggerEvent::Insert;
    ObjectId parent = 0;
    std::shared_ptr<const Table> inserted;
    std::shared_ptr<const Table> deleted;
    std::vector<bool> updated; // by column id, index 0 unused: what UPDATE() and COLUMNS_UPDATED() tell
    bool after = false;        // an AFTER trigger, which does not reach text, ntext and image
    std::int64_t rowCount = 0; // @@ROWCOUNT at the trigger's first statement
    // UPDATE(column): for an INSERT every column counts as updated; never for a DELETE.
    bool IsUpdated(int columnId) const {
        return columnId > 0 && columnId < static_cast<int>(updated.size()) &&
               updated[static_cast<std::size_t>(columnId)];
    }
};

// The row under a cursor, for WHERE CURRENT OF.
struct CursorRow {
    ObjectId table = 0;
    std::int64_t rowId = 0;
};

class ExecutionContext {
  public:
    virtual ~ExecutionContext() = default;

    virtual FunctionContext& Functions() = 0;
    virtual SessionOptions& Options() = 0;
    // Whether a column that is declared without NULL and NOT NULL is nullable.
    virtual bool NullByDefault() = 0;
    virtual ResultSink& Sink() = 0;
    virtual DatabaseId CurrentDatabase() = 0;
    // USE: the database exists and is open to the login. Tells the sink (5701) and the client.
    virtual void ChangeDatabase(DatabaseId database) = 0;
    // Whether another session has it as its current database, or soon leaves it.
    virtual bool IsUsedElsewhere(const std::string& database) = 0;
    // Whether the isolation level asks that what a transaction has read stays as it is until its end.
    virtual bool KeepsWhatItReads() = 0;
    // The text of the batch or module whose statement runs: the spans of its tree point into it.
    virtual std::string_view SourceText() = 0;
    // The module that runs now: its home (for names without a schema and its error reports); 0 in a batch.
    virtual ObjectId CurrentModule() = 0;
    // Schema of names without one that are not in the module's own; the user's default, normally dbo.
    virtual SchemaId DefaultSchema() = 0;
    // Nest level of procedure calls, which owns the temporary tables made now; 0 in a batch.
    virtual int TemporaryScope() = 0;

    // nullptr when the frame has no variable of that name (with its @; without regard to case). The pointer
    // holds until the frame ends.
    virtual Variable* FindVariable(std::string_view name) = 0;
    // @@ERROR, @@ROWCOUNT, @@TRANCOUNT ... by upper-case name with its @@; its type is that of the Datum,
    // even when null. Throws 137 for unknown names.
    virtual Datum GlobalVariable(std::string_view name) = 0;

    // The firing in which we run, nullptr outside of a trigger (a procedure called by a trigger is outside).
    virtual const TriggerFrame* CurrentTrigger() = 0;
    // How often this trigger stands in the chain of calls: direct recursion is off by default.
    virtual int TriggerDepth(ObjectId trigger) = 0;
    // Runs the trigger's body in a frame of its own (217 beyond 32 levels). What it throws ends the
    // statement.
    virtual void RunTrigger(const Trigger& trigger, const TriggerFrame& frame) = 0;
    // A Datum of no type (TypeId::Null) among the arguments asks for the parameter's default.
    virtual Datum CallScalarFunction(const Module& function, std::span<const Datum> arguments) = 0;
    // Fills the table variable that a function of several statements returns.
    virtual void RunTableFunction(const Module& function, std::span<const Datum> arguments,
                                  const std::shared_ptr<const Table>& result) = 0;
    // INSERT ... EXEC: runs the call with its rows going to `rows` (Columns and Row; the rest as usual).
    virtual void RunForInsert(const tsql::ExecuteStatement& call, ResultSink& rows) = 0;
    // Whether the rows of INSERT BULK have come, which announces them first.
    virtual bool HasBulkRows() = 0;
    // The next row that the client sent for the INSERT BULK that runs; false where there is none.
    virtual bool NextBulkRow(std::vector<Datum>& row) = 0;
    // An identity value was made: @@IDENTITY and SCOPE_IDENTITY() of this scope; numeric(38, 0).
    virtual void NoteIdentity(const Datum& value) = 0;
    // Throws 16916, 16931 and their like.
    virtual CursorRow CursorPosition(const tsql::CurrentOf& cursor) = 0;

    // A message of severity 10 or below, such as 8153.
    virtual void Inform(int messageNumber, std::string text) = 0;
    // CREATE, ALTER, DROP LOGIN and their like: the server's logins are the session's matter.
    virtual void RunLoginStatement(const tsql::Statement& statement) = 0;
};

} // namespace quillon::practice
