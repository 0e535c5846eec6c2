#include "practice/session/Transactions.h"

#include "practice/session/Cursor.h"
#include "practice/session/SessionState.h"
#include "practice/session/Variables.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

void Announce(SessionState& session, EnvironmentChange::Kind kind) {
    EnvironmentChange change;
    change.kind = kind;
    change.transaction = session.announcedTransaction;
    session.sink.Environment(change);
}

void AnnounceEnd(SessionState& session, EnvironmentChange::Kind kind) {
    if (session.announcedTransaction == 0 || session.store.TransactionCount() > 0)
        return;
    Announce(session, kind);
    session.announcedTransaction = 0;
}

std::string NameOf(SessionState& session, const tsql::TransactionStatement& statement) {
    if (statement.variable.empty())
        return statement.name;
    const Datum& value = RequireVariable(session, statement.variable).value;
    return value.IsNull() ? std::string() : ToText(value);
}

const char* IsolationName(TransactionRequest::Isolation isolation) {
    using Isolation = TransactionRequest::Isolation;
    switch (isolation) {
    case Isolation::ReadUncommitted: return "READ UNCOMMITTED";
    case Isolation::ReadCommitted: return "READ COMMITTED";
    case Isolation::RepeatableRead: return "REPEATABLE READ";
    case Isolation::Serializable: return "SERIALIZABLE";
    case Isolation::Snapshot: return "SNAPSHOT";
    case Isolation::Current: break;
    }
    return nullptr;
}

void BeginAs(SessionState& session, std::string_view name, TransactionRequest::Isolation isolation) {
    if (const char* level = IsolationName(isolation))
        session.isolation = level;
    BeginTransaction(session, name);
}

/// CURSOR_CLOSE_ON_COMMIT is about every end of a transaction.
void CloseCursors(SessionState& session) {
    if (!session.options.cursorCloseOnCommit || session.store.TransactionCount() > 0)
        return;
    const auto close = [](const auto& cursors) {
        for (const auto& [name, cursor] : cursors)
            if (cursor && cursor->IsOpen())
                cursor->Close();
    };
    close(session.globalCursors);
    for (const std::unique_ptr<Frame>& frame : session.frames)
        close(frame->cursors);
}

} // namespace

void BeginTransaction(SessionState& session, std::string_view name) {
    session.store.Begin(name);
    if (session.announcedTransaction != 0)
        return;
    session.announcedTransaction = session.store.TransactionNumber();
    Announce(session, EnvironmentChange::Kind::BeginTransaction);
}

void CommitTransaction(SessionState& session) {
    session.store.Commit();
    CloseCursors(session);
    AnnounceEnd(session, EnvironmentChange::Kind::CommitTransaction);
}

void RollbackTransaction(SessionState& session, std::string_view name) {
    session.store.Rollback(name);
    CloseCursors(session);
    AnnounceEnd(session, EnvironmentChange::Kind::RollbackTransaction);
}

void RunTransaction(SessionState& session, const tsql::TransactionStatement& statement) {
    switch (statement.kind) {
    case tsql::StatementKind::BeginTransaction: return BeginTransaction(session, NameOf(session, statement));
    case tsql::StatementKind::CommitTransaction: return CommitTransaction(session);
    case tsql::StatementKind::RollbackTransaction:
        return RollbackTransaction(session, NameOf(session, statement));
    default: return session.store.Save(NameOf(session, statement));
    }
}

void RunManagerRequest(SessionState& session, const TransactionRequest& request) {
    switch (request.kind) {
    case TransactionRequest::Kind::Begin: return BeginAs(session, request.name, request.isolation);
    case TransactionRequest::Kind::Save: return session.store.Save(request.name);
    case TransactionRequest::Kind::Commit: CommitTransaction(session); break;
    case TransactionRequest::Kind::Rollback: RollbackTransaction(session, request.name); break;
    }
    if (request.beginNext)
        BeginAs(session, request.nextName, request.nextIsolation);
}

void EndDoomedTransaction(SessionState& session) {
    if (session.store.TransactionCount() == 0 || !session.store.Doomed())
        return;
    RollbackTransaction(session, {});
    SqlError error(3998);
    error.line = 1;
    session.Tell(error);
    session.Finish(StatementKind::Other, std::nullopt, true);
}

} // namespace quillon::practice
