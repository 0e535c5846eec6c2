#include "practice/session/RunStatement.h"

#include "practice/session/Calls.h"
#include "practice/session/CursorStatements.h"
#include "practice/session/DefineModule.h"
#include "practice/session/Impersonating.h"
#include "practice/session/Messages.h"
#include "practice/session/Permitting.h"
#include "practice/session/Services.h"
#include "practice/session/SessionState.h"
#include "practice/session/SetOptions.h"
#include "practice/session/Transactions.h"
#include "practice/session/Variables.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

using tsql::As;

bool ReadsTables(const tsql::SelectStatement& select) {
    const tsql::QueryBody& body = *select.query.body;
    return body.kind != tsql::QueryBodyKind::Select || !tsql::As<tsql::SelectBody>(body).from.empty();
}

/// Statements that begin a transaction by themselves under SET IMPLICIT_TRANSACTIONS ON.
bool BeginsImplicitly(const tsql::Statement& statement) {
    switch (statement.kind) {
    case tsql::StatementKind::Select: return ReadsTables(As<tsql::SelectStatement>(statement));
    case tsql::StatementKind::Insert:
    case tsql::StatementKind::Update:
    case tsql::StatementKind::Delete:
    case tsql::StatementKind::Merge:
    case tsql::StatementKind::Truncate:
    case tsql::StatementKind::CreateTable:
    case tsql::StatementKind::AlterTable:
    case tsql::StatementKind::Drop: return true;
    default: return false;
    }
}

/// The end of a statement that answers neither rows nor a count. SET NOCOUNT ON keeps those of procedures
/// and triggers to itself, not those of the batch.
void EndWithoutRows(SessionState& session, StatementKind kind) {
    if (session.frames.size() == 1 || !session.options.noCount)
        session.Finish(kind, std::nullopt);
}

/// INSERT BULK says what the client will send next, and is kept until then.
bool AnnouncesRows(SessionState& session, const tsql::Statement& statement) {
    if (session.bulkRows != nullptr || statement.kind != tsql::StatementKind::Insert ||
        As<tsql::InsertStatement>(statement).source != tsql::InsertSource::Bulk)
        return false;
    if (session.frames.size() > 1 || session.Top().tree->statements.size() > 1)
        throw SqlError::NotSupported("INSERT BULK among other statements");
    return true;
}

void RunData(SessionState& session, const tsql::Statement& statement) {
    if (session.options.implicitTransactions && session.store.TransactionCount() == 0 &&
        BeginsImplicitly(statement))
        BeginTransaction(session, {});
    const bool announces = AnnouncesRows(session, statement);
    StatementOutcome outcome =
        HasBody(statement.kind) ? DefineModule(session, statement) : session.Statements().Execute(statement);
    if (announces) {
        session.bulkTree = session.Top().tree;
        outcome.count.reset();
    }
    if (!outcome.keepsRowCount)
        session.rowCount = static_cast<std::int64_t>(outcome.count.value_or(0));
    // A SELECT that only filled variables has a count of which the client is not told.
    const bool silent = outcome.kind == StatementKind::Select && !session.sink.ResultOpen();
    const bool counted = outcome.count && !session.options.noCount && !silent;
    if (counted || session.sink.ResultOpen())
        session.Finish(outcome.kind, counted ? outcome.count : std::nullopt);
    else
        EndWithoutRows(session, outcome.kind);
}

void RunReturn(SessionState& session, const tsql::ReturnStatement& statement) {
    Frame& frame = session.Top();
    if (statement.value && frame.kind == FrameKind::Procedure) {
        frame.returned = session.Statements().Evaluate(*statement.value, SimpleType(TypeId::Int));
        if (frame.returned->IsNull())
            session.Inform(282, MessageText(282, {frame.name}), 0);
    } else if (statement.value) {
        frame.returned = session.Statements().Evaluate(*statement.value);
    }
    frame.finished = true;
}

/// Whether it is one of the statements that keep @@ERROR and @@ROWCOUNT as they are, having run.
bool KeepsCounters(tsql::StatementKind kind) {
    return kind == tsql::StatementKind::DeclareVariables || kind == tsql::StatementKind::DeclareTable ||
           kind == tsql::StatementKind::ExecuteProcedure || kind == tsql::StatementKind::ExecuteText ||
           kind == tsql::StatementKind::Return;
}

void RunOwn(SessionState& session, const tsql::Statement& statement) {
    using tsql::StatementKind;
    switch (statement.kind) {
    case StatementKind::DeclareVariables:
        return RunDeclare(session, As<tsql::DeclareVariablesStatement>(statement));
    case StatementKind::DeclareTable:
        return RunDeclareTable(session, As<tsql::DeclareTableStatement>(statement));
    case StatementKind::SetVariable:
        return RunSetVariable(session, As<tsql::SetVariableStatement>(statement));
    case StatementKind::SetOption: return RunSetOption(session, As<tsql::SetOptionStatement>(statement));
    case StatementKind::Print: return RunPrint(session, As<tsql::PrintStatement>(statement));
    case StatementKind::RaiseError: return RunRaiseError(session, As<tsql::RaiseErrorStatement>(statement));
    case StatementKind::Throw: return RunThrow(session, As<tsql::ThrowStatement>(statement));
    case StatementKind::Return: return RunReturn(session, As<tsql::ReturnStatement>(statement));
    case StatementKind::BeginTransaction:
    case StatementKind::CommitTransaction:
    case StatementKind::RollbackTransaction:
    case StatementKind::SaveTransaction:
        return RunTransaction(session, As<tsql::TransactionStatement>(statement));
    case StatementKind::ExecuteProcedure:
    case StatementKind::ExecuteText: return RunExecute(session, As<tsql::ExecuteStatement>(statement));
    case StatementKind::ExecuteAs: return RunExecuteAs(session, As<tsql::ExecuteAsStatement>(statement));
    case StatementKind::Revert: return RunRevert(session);
    case StatementKind::DeclareCursor:
        return RunDeclareCursor(session, As<tsql::DeclareCursorStatement>(statement));
    case StatementKind::SetCursorVariable:
        return RunSetCursor(session, As<tsql::SetCursorVariableStatement>(statement));
    case StatementKind::OpenCursor:
    case StatementKind::CloseCursor:
    case StatementKind::DeallocateCursor: return RunCursor(session, As<tsql::CursorStatement>(statement));
    case StatementKind::FetchCursor: return RunFetch(session, As<tsql::FetchCursorStatement>(statement));
    default: return RunService(session, statement);
    }
}

/// Whether the client hears of the statement's end: declarations and assignments of variables have none, a
/// call and a FETCH tell of their own.
bool EndIsTold(tsql::StatementKind kind) {
    switch (kind) {
    case tsql::StatementKind::DeclareVariables:
    case tsql::StatementKind::DeclareTable:
    case tsql::StatementKind::SetVariable:
    case tsql::StatementKind::SetCursorVariable:
    case tsql::StatementKind::Return:
    case tsql::StatementKind::ExecuteProcedure:
    case tsql::StatementKind::ExecuteText:
    case tsql::StatementKind::FetchCursor: return false;
    default: return true;
    }
}

/// What SET FMTONLY ON leaves as it is: settings, variables, and calls for the sake of the queries in them.
bool RunsInFormatOnly(tsql::StatementKind kind) {
    return kind == tsql::StatementKind::SetOption || kind == tsql::StatementKind::DeclareVariables ||
           kind == tsql::StatementKind::DeclareTable || kind == tsql::StatementKind::ExecuteProcedure ||
           kind == tsql::StatementKind::ExecuteText || kind == tsql::StatementKind::Return;
}

void TellFormat(SessionState& session, const tsql::Statement& statement) {
    if (!Executor::Handles(statement.kind))
        return;
    const std::vector<ResultColumn> columns = session.Statements().Describe(statement);
    if (columns.empty())
        return;
    session.sink.Columns(columns);
    session.Finish(StatementKind::Select,
                   session.options.noCount ? std::nullopt : std::optional<std::uint64_t>(0));
}

/// @@ROWCOUNT is 1 after an assignment and a FETCH, 0 after most others.
bool SetsRowCount(tsql::StatementKind kind) {
    return kind == tsql::StatementKind::SetVariable || kind == tsql::StatementKind::FetchCursor;
}

} // namespace

void RunStatement(SessionState& session, const tsql::Statement& statement) {
    if (session.noExecute && statement.kind != tsql::StatementKind::SetOption)
        return;
    RequireRights(session, statement);
    if (session.formatOnly && !RunsInFormatOnly(statement.kind))
        return TellFormat(session, statement);
    if (Executor::Handles(statement.kind)) {
        RunData(session, statement);
        session.error = 0;
        return;
    }
    const bool raises =
        statement.kind == tsql::StatementKind::RaiseError; // WITH SETERROR sets @@ERROR itself
    RunOwn(session, statement);
    if (EndIsTold(statement.kind))
        EndWithoutRows(session, StatementKind::Other);
    if (KeepsCounters(statement.kind))
        return;
    if (!SetsRowCount(statement.kind))
        session.rowCount = 0;
    if (!raises)
        session.error = 0;
}

} // namespace quillon::practice
