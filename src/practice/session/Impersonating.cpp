#include "practice/session/Impersonating.h"

#include "practice/session/SessionState.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

void Impersonate(SessionState& session, const std::string& kind, const std::string& name) {
    if (kind == "LOGIN") {
        const auto account = session.server.accounts.Find(name);
        if (!account)
            throw SqlError(15517, {name});
        session.impersonations.push_back({account->name, {}});
        return;
    }
    const Database* database = session.store.View()->FindDatabase(session.database);
    const Principal* user = database == nullptr ? nullptr : database->FindPrincipal(name);
    if (user == nullptr || user->kind == PrincipalKind::Role)
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
