#include "practice/session/Impersonating.h"

#include "practice/session/SessionState.h"
#include "practice/storage/Permissions.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

/// The login of a user by the name that it has now.
std::string LoginOf(SessionState& session, const Principal& user) {
    if (!user.sid.empty())
        for (const Account& account : session.server.accounts.List())
            if (account.sid == user.sid)
                return account.name;
    return user.login;
}

void BecomeUser(SessionState& session, const Database& database, const Principal& user) {
    session.impersonations.push_back({LoginOf(session, user), database.id, user.id});
}

void BecomeLogin(SessionState& session, const Database& database, const std::string& name) {
    const auto account = session.server.accounts.Find(name);
    if (!account || !session.IsAdministrator())
        throw SqlError(15406, {name});
    if (!UserOf(database, account->name, account->sid, account->administrator))
        throw SqlError(916, {account->name, database.name});
    session.impersonations.push_back({account->name});
}

/// The identity in which the body that runs was called.
Impersonation CallerOf(const SessionState& session, const Frame& frame) {
    if (frame.caller)
        return *frame.caller;
    return frame.identities == 0 ? Impersonation{session.facts.login}
                                 : session.impersonations[frame.identities - 1];
}

/// The body's identity is its own from now on, and REVERT no way out of it.
void Settle(SessionState& session) {
    Frame& frame = session.Top();
    frame.caller = CallerOf(session, frame);
    frame.identities = session.impersonations.size();
}

} // namespace

void Impersonate(SessionState& session, const std::string& kind, const std::string& name) {
    const auto view = session.store.View();
    const Database& database = *view->FindDatabase(session.database);
    if (kind == "LOGIN")
        return BecomeLogin(session, database, name);
    const Principal* user = database.FindPrincipal(name);
    const auto own = session.UserIn(database);
    if (user == nullptr || !own || !Rights(database, *own).MayImpersonate(*user))
        throw SqlError(15517, {name});
    BecomeUser(session, database, *user);
}

void ImpersonateForText(SessionState& session, const std::string& kind, const std::string& name) {
    Impersonate(session, kind, name);
    Settle(session);
}

void ImpersonateForModule(SessionState& session, const Module& module) {
    if (!module.executeAs)
        return;
    const auto view = session.store.View();
    const Database& database = *view->FindDatabase(module.database);
    const auto user = database.principals.find(
        *module.executeAs == moduleOwner ? database.schemas.at(module.schema).owner : *module.executeAs);
    if (user == database.principals.end() || user->second.kind == PrincipalKind::Role)
        throw SqlError(15517, {user == database.principals.end() ? std::string() : user->second.name});
    BecomeUser(session, database, user->second);
    Settle(session);
}

void RunExecuteAs(SessionState& session, const tsql::ExecuteAsStatement& statement) {
    if (statement.kind == "CALLER") {
        if (session.Top().module) // elsewhere it does nothing
            session.impersonations.push_back(CallerOf(session, session.Top()));
        return;
    }
    const Datum name = session.Statements().Evaluate(*statement.name);
    Impersonate(session, statement.kind, name.IsNull() ? std::string() : ToText(name));
}

void RunRevert(SessionState& session) {
    if (session.impersonations.size() > session.Top().identities)
        session.impersonations.pop_back();
}

} // namespace quillon::practice
