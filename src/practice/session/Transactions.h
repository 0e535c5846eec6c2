// BEGIN, COMMIT, ROLLBACK and SAVE TRANSACTION, from T-SQL and from the client's transaction manager.
#pragma once

#include "practice/session/SqlSession.h"
#include "practice/tsql/TreeControl.h"

namespace quillon::practice {

struct SessionState;

// Each tells the client of the outermost transaction's begin and end.

void BeginTransaction(SessionState& session, std::string_view name);
/// Throws SqlError 3902, 3930.
void CommitTransaction(SessionState& session);
/// Throws SqlError 3903, 6401, 3931.
void RollbackTransaction(SessionState& session, std::string_view name);

void RunTransaction(SessionState& session, const tsql::TransactionStatement& statement);
/// Throws what the functions above throw.
void RunManagerRequest(SessionState& session, const TransactionRequest& request);

/// At the end of a batch: a transaction that can only be rolled back is, with message 3998.
void EndDoomedTransaction(SessionState& session);

} // namespace quillon::practice
