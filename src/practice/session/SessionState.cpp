#include "practice/session/SessionState.h"

#include "practice/session/FlowProgram.h"
#include "practice/session/SessionContext.h"
#include "practice/session/SessionFunctions.h"
#include "practice/session/SettingValues.h"
#include "practice/storage/Permissions.h"
#include "practice/values/SqlError.h"

#include <chrono>
#include <thread>

namespace quillon::practice {

SessionState::SessionState(ServerParts& parts, LoginFacts login)
    : server(parts)
    , facts(std::move(login))
    , store(parts.store, facts.spid)
    , identity(Datum::Null(DecimalType(38, 0, TypeId::Numeric)))
    , chance(std::random_device{}())
    , m_functions(std::make_unique<SessionFunctions>(*this))
    , m_context(std::make_unique<SessionContext>(*this))
    , m_executor(std::make_unique<Executor>(store, *m_context, &CatalogueViews())) {
    sink.LimitTexts(options.textSize);
    RegisterCatalogueSources(store.Connection(), server.sources);
}

SessionState::~SessionState() {
    // Trees hold prepared statements of the executor: they go first.
    frames.clear();
    globalCursors.clear();
    keptTexts.clear();
    store.ClearInterrupt();
    if (store.TransactionCount() > 0)
        store.Rollback();
    m_executor->DropSharedObjects();
}

void SessionState::CheckInterrupt() const {
    if (store.IsInterrupted())
        throw Interrupted();
}

std::string SessionState::DatabaseName() {
    const Database* current = store.View()->FindDatabase(database);
    return current == nullptr ? std::string() : current->name;
}

void SessionState::LeaveLostDatabase() {
    if (store.View()->FindDatabase(database) == nullptr)
        database = masterDatabase;
}

void SessionState::TellDatabase() {
    if (toldDatabase == database)
        return;
    const Database* told = store.View()->FindDatabase(toldDatabase);
    EnvironmentChange change;
    change.kind = EnvironmentChange::Kind::Database;
    change.oldValue = told == nullptr ? std::string() : told->name;
    change.newValue = DatabaseName();
    toldDatabase = database;
    sink.Environment(change);
}

std::string SessionState::LoginName() const {
    if (impersonations.empty())
        return facts.login;
    const Impersonation& last = impersonations.back();
    if (!last.login.empty() || !last.IsUser())
        return last.login;
    // A user without a login shows as the text of an identifier of its own.
    return "S-1-9-3-" + std::to_string(last.database) + "-" + std::to_string(last.user);
}

bool SessionState::ActsAsUser() const {
    return !impersonations.empty() && impersonations.back().IsUser();
}

bool SessionState::IsAdministrator() const {
    if (ActsAsUser())
        return false;
    const auto account = server.accounts.Find(LoginName());
    return account && account->administrator;
}

std::optional<PrincipalId> SessionState::UserIn(const Database& asked) const {
    if (!ActsAsUser()) {
        const auto account = server.accounts.Find(LoginName());
        return account ? UserOf(asked, account->name, account->sid, account->administrator) : std::nullopt;
    }
    const Impersonation& last = impersonations.back();
    if (asked.id != last.database)
        return GuestMayEnter(asked) ? std::optional(guestPrincipal) : std::nullopt;
    const bool enters = asked.principals.contains(last.user) && MayEnter(asked, last.user);
    return enters ? std::optional(last.user) : std::nullopt;
}

PrincipalId SessionState::UserId() {
    const auto view = store.View();
    const Database* current = view->FindDatabase(database);
    return current == nullptr ? guestPrincipal : UserIn(*current).value_or(guestPrincipal);
}

std::string SessionState::UserName() {
    const auto view = store.View();
    const Database* current = view->FindDatabase(database);
    return current == nullptr ? "guest" : current->principals.at(UserId()).name;
}

bool SessionState::AnotherStays(const std::function<bool(const SessionRow&)>& isLikeThat) {
    constexpr int attempts = 40;
    constexpr std::chrono::milliseconds pause{25};
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const std::vector<SessionRow> sessions = server.sources.sessions();
        const bool any = std::any_of(sessions.begin(), sessions.end(), [&](const SessionRow& row) {
            return row.sessionId != facts.spid && isLikeThat(row);
        });
        if (!any)
            return false;
        CheckInterrupt();
        std::this_thread::sleep_for(pause);
    }
    return true;
}

void SessionState::ShowSettings() {
    const SessionSettings settings = SettingsOf(*this);
    if (settings == m_shown) // which no other thread changes
        return;
    const std::lock_guard lock(m_shownMutex);
    m_shown = settings;
}

SessionSettings SessionState::ShownSettings() const {
    const std::lock_guard lock(m_shownMutex);
    return m_shown;
}

void SessionState::Inform(int number, std::string text, int severity, int messageState) {
    ServerMessage message;
    message.number = number;
    message.severity = static_cast<std::uint8_t>(severity);
    message.state = static_cast<std::uint8_t>(messageState);
    message.text = std::move(text);
    if (!frames.empty()) {
        message.procedure = Top().name;
        message.line = Top().line;
    }
    sink.Message(message);
}

void SessionState::Tell(const SqlError& told) {
    ServerMessage message;
    message.number = told.number;
    message.severity = static_cast<std::uint8_t>(told.severity);
    message.state = static_cast<std::uint8_t>(told.state);
    message.text = told.text;
    message.procedure = told.procedure;
    message.line = told.line;
    sink.Message(message);
}

void SessionState::Finish(StatementKind kind, std::optional<std::uint64_t> count, bool failed) {
    StatementEnd end;
    end.scope = frames.size() > 1 ? EndScope::InProcedure : EndScope::Batch;
    end.kind = kind;
    end.count = count;
    end.failed = failed;
    sink.Done(end);
}

} // namespace quillon::practice
