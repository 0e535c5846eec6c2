#include "practice/session/Impersonating.h"

#include "practice/session/Permitting.h"
#include "practice/session/SessionState.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

/// Itself, and for those who control the database everybody in it.
bool MayImpersonate(SessionState& session, const Database& database, const Principal& user) {
    const auto own = UserIn(session, database);
    return own && (*own == user.id || Rights(database, *own).OnDatabase("CONTROL"));
}

} // namespace

void Impersonate(SessionState& session, const std::string& kind, const std::string& name) {
    const auto view = session.store.View();
    const Database* database = view->FindDatabase(session.database);
    if (kind == "LOGIN") {
        const auto account = session.server.accounts.Find(name);
        if (!account || !session.IsAdministrator())
            throw SqlError(15406, {name});
        if (database != nullptr && !UserOf(*database, account->name, account->administrator))
            throw SqlError(916, {account->name, database->name});
        session.impersonations.push_back({account->name, {}});
        return;
    }
    const Principal* user = database == nullptr ? nullptr : database->FindPrincipal(name);
    if (user == nullptr || user->kind == PrincipalKind::Role || !MayImpersonate(session, *database, *user))
        throw SqlError(15517, {name});
    session.impersonations.push_back({user->login, user->name});
}

void RunExecuteAs(SessionState& session, const tsql::ExecuteAsStatement& statement) {
    if (statement.kind == "CALLER")
        return;
    const Datum name = session.Statements().Evaluate(*statement.name);
    Impersonate(session, statement.kind, name.IsNull() ? std::string() : ToText(name));
}

void RunRevert(SessionState& session) {
    if (!session.impersonations.empty())
        session.impersonations.pop_back();
}

} // namespace quillon::practice
