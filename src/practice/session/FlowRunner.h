// FlowRunner: runs the steps of a program in the top frame and decides, for every error, what the
// documentation says it does: caught by a TRY block here or further out, told and passed over, or the end of
// scope, batch or connection.
#pragma once

#include "practice/session/Ends.h"
#include "practice/session/FlowProgram.h"
#include "practice/values/SqlError.h"

#include <span>

namespace quillon::practice {

struct SessionState;

class FlowRunner {
  public:
    explicit FlowRunner(SessionState& session)
        : m_session(session) {}

    /// Throws PassedError towards an outer frame, BatchAborted, ConnectionEnded, Interrupted, ClientGone.
    void Run(const FlowProgram& program);

    /// What an error does where no step of a program failed (the arguments of a remote call): told, and the
    /// batch ended where it must. Throws as Run does.
    void Handle(const SqlError& error);

  private:
    std::size_t RunStep(const FlowStep& step, std::size_t index);
    std::size_t HandleFailure(const std::vector<FlowStep>& steps, const FlowStep& step,
                              const SqlError& error);
    void Locate(SqlError& error) const;
    /// The error becomes that of a CATCH block with `depth` others around it.
    void Catch(const SqlError& error, ErrorOrigin origin, std::size_t depth);
    /// `others` were found together with the error and end nothing by themselves.
    void TellAndEnd(const FlowStep* step, const SqlError& error, ErrorOrigin origin,
                    std::span<const SqlError> others);
    bool IsTermination(const tsql::Statement& statement, const SqlError& error) const;
    void LeaveCatches(std::size_t depth);

    SessionState& m_session;
};

/// Ends the batch; with `rollback` whatever transaction is open is undone first.
[[noreturn]] void AbortBatch(SessionState& session, bool rollback);

} // namespace quillon::practice
