#include "practice/session/FlowRunner.h"

#include "practice/session/Permitting.h"
#include "practice/session/RunStatement.h"
#include "practice/session/SessionFunctions.h"
#include "practice/session/SessionState.h"
#include "practice/session/Transactions.h"
#include "practice/tsql/Parser.h"

#include <utility>

namespace quillon::practice {

namespace {

ErrorOrigin OriginOf(const SqlError& error) {
    if (const auto* passed = dynamic_cast<const PassedError*>(&error))
        return passed->origin;
    if (const auto* raised = dynamic_cast<const RaisedError*>(&error))
        return raised->origin;
    return ErrorOrigin::Statement;
}

std::span<const SqlError> OthersOf(const SqlError& error) {
    const auto* several = dynamic_cast<const tsql::SyntaxErrors*>(&error);
    return several == nullptr ? std::span<const SqlError>() : several->Others();
}

std::vector<SqlError> CausesOf(const SqlError& error) {
    const auto* consequent = dynamic_cast<const ConsequentError*>(&error);
    return consequent == nullptr ? std::vector<SqlError>() : consequent->causes;
}

bool ChangesRows(tsql::StatementKind kind) {
    return kind == tsql::StatementKind::Insert || kind == tsql::StatementKind::Update ||
           kind == tsql::StatementKind::Delete || kind == tsql::StatementKind::Merge;
}

bool InTrigger(const SessionState& session) {
    return std::any_of(session.frames.begin(), session.frames.end(),
                       [](const auto& frame) { return frame->kind == FrameKind::Trigger; });
}

/// What the error of a statement does, as the session's settings have it.
ErrorEffect EffectHere(const SessionState& session, const SqlError& error) {
    const bool endsBatch = IsArithmeticError(error.number) && !session.options.ansiWarnings;
    return endsBatch ? ErrorEffect::Batch : EffectOf(error.number, error.severity);
}

/// SQLite's own no: nothing of ours has a number for it.
SqlError StorageError(const StoreFailure& failure) {
    return SqlError::Custom(49998, 16, 1,
                            std::string("The storage of the practice server failed: ") + failure.what());
}

} // namespace

void AbortBatch(SessionState& session, bool rollback) {
    if (rollback && session.store.TransactionCount() > 0)
        RollbackTransaction(session, {});
    throw BatchAborted();
}

void FlowRunner::Run(const FlowProgram& program) {
    const std::vector<FlowStep>& steps = program.Steps();
    for (std::size_t at = 0; at < steps.size() && !m_session.Top().finished;) {
        const FlowStep& step = steps[at];
        m_session.CheckInterrupt();
        m_session.LeaveLostDatabase();
        m_session.ShowSettings();
        LeaveCatches(step.catches);
        Frame& frame = m_session.Top();
        frame.guarded = step.handler != FlowStep::none;
        frame.line = step.statement->position.line;
        if (frame.kind != FrameKind::Function)
            m_session.now = PresentMoment();
        try {
            at = RunStep(step, at);
        } catch (const SqlError& error) {
            at = HandleFailure(steps, step, error);
        } catch (const StoreFailure& failure) {
            at = HandleFailure(steps, step, StorageError(failure));
        }
        if (m_session.frames.size() == 1) // a text that used another database has ended
            m_session.TellDatabase();
    }
    m_session.Top().guarded = false;
    LeaveCatches(0);
}

std::size_t FlowRunner::RunStep(const FlowStep& step, std::size_t index) {
    // Statements that are only looked at are so in all branches, and once in a loop.
    const bool looksOnly = m_session.formatOnly || m_session.noExecute;
    switch (step.kind) {
    case FlowStep::Kind::Run: RunStatement(m_session, *step.statement); return index + 1;
    case FlowStep::Kind::Jump: return looksOnly ? index + 1 : step.target;
    case FlowStep::Kind::LeaveCatch: LeaveCatches(step.catches - 1); return index + 1;
    case FlowStep::Kind::JumpUnless: break;
    }
    if (looksOnly)
        return index + 1;
    RequireRights(m_session, *step.condition);
    const bool holds = m_session.Statements().IsTrue(*step.condition);
    m_session.error = 0;
    m_session.rowCount = 0;
    return holds ? index + 1 : step.target;
}

void FlowRunner::LeaveCatches(std::size_t depth) {
    auto& caught = m_session.Top().caught;
    while (caught.size() > depth)
        caught.pop_back();
}

void FlowRunner::Locate(SqlError& error) const {
    const Frame& frame = m_session.Top();
    if (error.line == 0)
        error.line = frame.line;
    if (error.procedure.empty())
        error.procedure = frame.name;
}

std::size_t FlowRunner::HandleFailure(const std::vector<FlowStep>& steps, const FlowStep& step,
                                      const SqlError& failure) {
    const ErrorOrigin origin = OriginOf(failure);
    const bool passed = dynamic_cast<const PassedError*>(&failure) != nullptr;
    std::vector<SqlError> causes = CausesOf(failure);
    SqlError error = failure;
    if (const int next = passed ? 0 : FollowUpOf(error.number); next != 0)
        causes.push_back(std::exchange(error, SqlError(next)));
    if (!passed)
        Locate(error);
    m_session.error = error.number;
    m_session.rowCount = 0;
    const bool fatal = error.severity >= 20;
    const bool uncatchableHere = !passed && IsBindingError(error.number) && origin == ErrorOrigin::Statement;
    if (step.handler != FlowStep::none && !fatal && !uncatchableHere) {
        Catch(error, origin, steps[step.handler].catches - 1);
        return step.handler;
    }
    const Frame& frame = m_session.Top();
    if ((frame.guardedOutside || frame.kind == FrameKind::Function) && !fatal) {
        if (m_session.options.xactAbort && origin != ErrorOrigin::RaiseError)
            m_session.store.Doom(); // the setting that counts is that of the place of the error
        throw PassedError(error, origin);
    }
    for (SqlError& cause : causes) {
        Locate(cause);
        m_session.Tell(cause);
    }
    TellAndEnd(&step, error, origin, OthersOf(failure));
    return step.resume;
}

void FlowRunner::Catch(const SqlError& error, ErrorOrigin origin, std::size_t depth) {
    const bool dooms = EffectHere(m_session, error) == ErrorEffect::Batch || m_session.options.xactAbort;
    if (dooms && origin != ErrorOrigin::RaiseError)
        m_session.store.Doom();
    if (m_session.sink.ResultOpen()) // rows that were sent before the error end here
        m_session.Finish(StatementKind::Select, std::nullopt);
    CaughtError caught;
    caught.number = error.number;
    caught.severity = error.severity;
    caught.state = error.state;
    caught.line = error.line;
    caught.procedure = error.procedure;
    caught.text = error.text;
    LeaveCatches(depth);
    m_session.Top().caught.push_back(std::move(caught));
}

/// Whether the error stopped a change of rows on its way (3621), rather than kept it from starting. Waiting
/// for the lock counts as being on the way.
bool FlowRunner::IsTermination(const tsql::Statement& statement, const SqlError& error) const {
    constexpr int lockTimeout = 1222;
    return ChangesRows(statement.kind) && (error.number == lockTimeout || m_session.Statements().HasBegun());
}

void FlowRunner::TellAndEnd(const FlowStep* step, const SqlError& error, ErrorOrigin origin,
                            std::span<const SqlError> others) {
    if (error.severity >= 20 && origin == ErrorOrigin::RaiseError) {
        SqlError ends(2745,
                      {std::to_string(m_session.facts.spid), std::to_string(error.number),
                       std::to_string(error.severity)},
                      2);
        Locate(ends);
        m_session.Tell(ends);
    }
    m_session.Tell(error);
    for (SqlError other : others) {
        Locate(other);
        m_session.Tell(other);
    }
    const ErrorEffect effect =
        origin == ErrorOrigin::Statement ? EffectHere(m_session, error) : ErrorEffect::Statement;
    if (error.severity >= 20)
        throw ConnectionEnded();
    if (origin == ErrorOrigin::Statement)
        m_session.Top().failure = error.severity;
    const bool aborts = m_session.options.xactAbort && origin != ErrorOrigin::RaiseError;
    const bool terminated = step != nullptr && origin == ErrorOrigin::Statement && !aborts &&
                            effect == ErrorEffect::Statement && IsTermination(*step->statement, error);
    if (terminated)
        m_session.Inform(3621, MessageText(3621));
    m_session.Finish(StatementKind::Other, std::nullopt, true);
    if (origin == ErrorOrigin::Throw)
        AbortBatch(m_session, aborts);
    if (effect == ErrorEffect::Batch || (aborts && effect == ErrorEffect::Statement) ||
        (effect == ErrorEffect::Scope && InTrigger(m_session)))
        AbortBatch(m_session, true);
    if (effect == ErrorEffect::Scope)
        m_session.Top().finished = true;
    m_session.error = error.number;
}

void FlowRunner::Handle(const SqlError& failure) {
    SqlError error = failure;
    if (dynamic_cast<const PassedError*>(&failure) == nullptr)
        Locate(error);
    m_session.error = error.number;
    TellAndEnd(nullptr, error, OriginOf(failure), OthersOf(failure));
}

} // namespace quillon::practice
