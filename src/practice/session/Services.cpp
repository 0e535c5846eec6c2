#include "practice/session/Services.h"

#include "practice/session/Dbcc.h"
#include "practice/session/SessionFunctions.h"
#include "practice/session/SessionState.h"
#include "practice/values/SqlError.h"

#include <chrono>

namespace quillon::practice {

namespace {

using tsql::As;

std::int64_t TicksOf(SessionState& session, const tsql::WaitForStatement& statement) {
    const Datum value = session.Statements().Evaluate(*statement.time);
    if (!value.IsNull() && value.Type().IsMoment())
        return value.When().ticks;
    const std::string text = value.IsNull() ? std::string() : ToText(value);
    const auto parsed = ParseMoment(text, session.Functions().Options());
    if (!parsed || parsed->hasDate || parsed->hasOffset)
        throw SqlError(148, {text});
    return parsed->moment.ticks;
}

void RunWaitFor(SessionState& session, const tsql::WaitForStatement& statement) {
    std::int64_t ticks = TicksOf(session, statement);
    if (!statement.delay) { // until that time of the clock, today or tomorrow
        const Moment now = PresentMoment();
        const std::int64_t local = now.ticks + session.Functions().ZoneOffsetMinutes() * ticksPerMinute;
        ticks = ((ticks - local) % ticksPerDay + ticksPerDay) % ticksPerDay;
    }
    using Tick = std::chrono::duration<std::int64_t, std::ratio<1, ticksPerSecond>>;
    const auto end = std::chrono::steady_clock::now() + Tick(ticks);
    std::unique_lock lock(session.waitMutex);
    session.waitChanged.wait_until(lock, end, [&] { return session.store.IsInterrupted(); });
    lock.unlock();
    session.CheckInterrupt();
}

void RunKill(SessionState& session, const tsql::KillStatement& statement) {
    constexpr int mostProcesses = 32767;
    constexpr int lastOfSystem = 50;
    if (!session.IsAdministrator())
        throw SqlError(6102);
    if (session.store.TransactionCount() > 0)
        throw SqlError(6115);
    const std::string number = std::to_string(statement.process);
    if (statement.process < 1 || statement.process > mostProcesses)
        throw SqlError(6101, {number, std::to_string(mostProcesses)});
    if (statement.process == session.facts.spid)
        throw SqlError(6104);
    if (statement.process <= lastOfSystem)
        throw SqlError(6107);
    if (!session.server.kill(statement.process))
        throw SqlError(6106, {number});
}

} // namespace

void RunService(SessionState& session, const tsql::Statement& statement) {
    switch (statement.kind) {
    case tsql::StatementKind::WaitFor: return RunWaitFor(session, As<tsql::WaitForStatement>(statement));
    case tsql::StatementKind::Dbcc: return RunDbcc(session, As<tsql::DbccStatement>(statement));
    case tsql::StatementKind::Checkpoint: // what is committed is on the disk already
    case tsql::StatementKind::Reconfigure: return;
    case tsql::StatementKind::Kill: return RunKill(session, As<tsql::KillStatement>(statement));
    case tsql::StatementKind::Refused:
        throw SqlError::Custom(notSupportedNumber, 16, 1, As<tsql::RefusedStatement>(statement).refusal);
    default: throw SqlError::NotSupported("this statement");
    }
}

} // namespace quillon::practice
