// Everything that runs in a frame of its own: procedures, functions, triggers, dynamic texts.
#pragma once

#include "practice/session/FlowProgram.h"
#include "practice/session/Frame.h"

#include <span>

namespace quillon::practice {

struct SessionState;
struct KeptText;
struct TableArgument;

/// A frame on the stack for as long as it lives. The way out gives back what the frame had borrowed:
/// settings, current database, identity of the user, temporary tables, cursors.
class FrameScope {
  public:
    /// Throws SqlError 217 beyond 32 levels.
    FrameScope(SessionState& session, std::unique_ptr<Frame> frame);
    ~FrameScope();
    FrameScope(const FrameScope&) = delete;
    FrameScope& operator=(const FrameScope&) = delete;

  private:
    SessionState& m_session;
    SessionOptions m_options;
    std::string m_isolation;
    DatabaseId m_database;
    std::size_t m_impersonations;
};

/// One argument on its way into a call, and the value that comes back for an OUTPUT one.
struct CallArgument {
    std::string name; // with its @; empty for one by position
    Datum value;
    std::shared_ptr<const Table> table;        // of a table type
    std::shared_ptr<const TableArgument> rows; // for a table type, from a client
    std::shared_ptr<Cursor> cursor;
    bool isCursor = false;
    bool output = false;
    bool useDefault = false;
};

/// Calls a procedure by name: the user's, the system's, or one that the session itself is (sp_executesql
/// ...). Returns its status. Throws SqlError 2812 when there is none, 201, 8144, 8145 and so on for
/// arguments.
int CallProcedure(SessionState& session, const tsql::Name& name, std::vector<CallArgument>& arguments);

/// EXEC of a procedure or of a text, from T-SQL.
void RunExecute(SessionState& session, const tsql::ExecuteStatement& statement);

void RunTrigger(SessionState& session, const Trigger& trigger, const TriggerFrame& firing);
Datum CallScalarFunction(SessionState& session, const Module& function, std::span<const Datum> arguments);
void RunTableFunction(SessionState& session, const Module& function, std::span<const Datum> arguments,
                      const std::shared_ptr<const Table>& result);

// Between the files of this family

/// Fills the top frame's parameters from the arguments. `called` is the procedure's name for messages.
void BindArguments(SessionState& session, const std::vector<tsql::Parameter>& parameters,
                   std::vector<CallArgument>& arguments, const std::string& called);
/// Takes the values of OUTPUT parameters back into the arguments.
void TakeOutputs(SessionState& session, const std::vector<tsql::Parameter>& parameters,
                 std::vector<CallArgument>& arguments);
/// The flow of a module, kept with its tree.
const FlowProgram& ProgramOf(const tsql::Statement& module, const tsql::StatementList& body);
/// After a call: 266 when it has left another transaction count than was there before. It is an error where a
/// TRY block waits for one; elsewhere it is only told, and the call has ended as it should. `procedure` is
/// empty after a text.
void CheckTransactionCount(SessionState& session, int before, const std::string& procedure);
/// Declares the program's variables and runs it in the top frame.
void RunProgram(SessionState& session, const FlowProgram& program);
/// A procedure that the session itself is; nothing when it is none of them.
std::optional<int> CallSessionProcedure(SessionState& session, const tsql::Name& name,
                                        std::vector<CallArgument>& arguments);
/// A text and its parameters, parsed once and kept. Throws tsql::SyntaxErrors.
const KeptText& ParseKept(SessionState& session, const std::string& text, const std::string& parameters);

} // namespace quillon::practice
