#include "practice/session/SessionState.h"

#include "practice/session/FlowProgram.h"
#include "practice/session/SessionContext.h"
#include "practice/session/SessionFunctions.h"
#include "practice/values/SqlError.h"

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
    for (auto who = impersonations.rbegin(); who != impersonations.rend(); ++who) {
        if (!who->login.empty())
            return who->login;
    }
    return facts.login;
}

bool SessionState::IsAdministrator() const {
    // Who acts as a user of a database is nothing beyond it.
    if (!impersonations.empty() && !impersonations.back().user.empty())
        return false;
    const auto account = server.accounts.Find(LoginName());
    return account && account->administrator;
}

std::string SessionState::UserName() {
    if (!impersonations.empty() && !impersonations.back().user.empty())
        return impersonations.back().user;
    const std::string login = LoginName();
    const Database* current = store.View()->FindDatabase(database);
    if (current == nullptr || IsAdministrator() || SameName(current->owner, login))
        return "dbo";
    for (const auto& [id, principal] : current->principals) {
        if (SameName(principal.login, login))
            return principal.name;
    }
    return "guest";
}

PrincipalId SessionState::UserId() {
    const std::string user = UserName();
    const Database* current = store.View()->FindDatabase(database);
    const Principal* principal = current == nullptr ? nullptr : current->FindPrincipal(user);
    return principal == nullptr ? guestPrincipal : principal->id;
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
