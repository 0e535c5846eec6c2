#include "practice/session/LoginStatements.h"

#include "practice/session/SessionState.h"
#include "practice/tsql/Keywords.h"
#include "practice/values/SqlError.h"

#include <algorithm>

namespace quillon::practice {

namespace {

using tsql::As;

std::string OptionOf(const std::vector<tsql::OptionSetting>& options, std::string_view name) {
    for (const tsql::OptionSetting& option : options) {
        if (option.name == name)
            return option.value;
    }
    return {};
}

void Create(SessionState& session, const tsql::CreateLoginStatement& statement) {
    if (statement.windows)
        throw SqlError::NotSupported("CREATE LOGIN FROM WINDOWS");
    if (!session.IsAdministrator())
        throw SqlError(15247);
    session.server.accounts.Create(statement.name, statement.password);
    const std::string database = OptionOf(statement.options, "DEFAULT_DATABASE");
    const std::string language = OptionOf(statement.options, "DEFAULT_LANGUAGE");
    if (!database.empty() || !language.empty())
        session.server.accounts.ChangeDefaults(statement.name, database, language);
}

/// The databases know their owner by name.
bool OwnsDatabase(SessionState& session, const std::string& login) {
    const auto view = session.store.View();
    const std::vector<const Database*> all = view->Databases();
    return std::any_of(all.begin(), all.end(),
                       [&](const Database* one) { return SameName(one->owner, login); });
}

/// Of its own login everybody may change the defaults, and the password who knows it.
bool IsOwnAffair(SessionState& session, const tsql::AlterLoginStatement& statement) {
    if (session.ActsAsUser() || !SameName(statement.name, session.LoginName()) || statement.enable)
        return false;
    if (statement.password && OptionOf(statement.options, "OLD_PASSWORD").empty())
        return false;
    return std::all_of(statement.options.begin(), statement.options.end(),
                       [](const tsql::OptionSetting& option) {
                           return option.name == "OLD_PASSWORD" || option.name == "DEFAULT_DATABASE" ||
                                  option.name == "DEFAULT_LANGUAGE";
                       });
}

void Alter(SessionState& session, const tsql::AlterLoginStatement& statement) {
    Accounts& accounts = session.server.accounts;
    const SqlError refusal(15151, {"alter", "login", statement.name});
    if (!session.IsAdministrator() && !IsOwnAffair(session, statement))
        throw refusal;
    const std::string old = OptionOf(statement.options, "OLD_PASSWORD");
    if (!old.empty() && !accounts.Verify(statement.name, old))
        throw refusal;
    const std::string renamed = OptionOf(statement.options, "NAME");
    if (!renamed.empty() && OwnsDatabase(session, statement.name))
        throw SqlError::NotSupported("a new name for a login that owns a database");
    if (statement.enable)
        accounts.SetDisabled(statement.name, !*statement.enable);
    if (statement.password)
        accounts.ChangePassword(statement.name, *statement.password);
    const std::string database = OptionOf(statement.options, "DEFAULT_DATABASE");
    const std::string language = OptionOf(statement.options, "DEFAULT_LANGUAGE");
    if (!database.empty() || !language.empty())
        accounts.ChangeDefaults(statement.name, database, language);
    if (!renamed.empty())
        accounts.Rename(statement.name, renamed);
}

void ChangeRole(SessionState& session, const tsql::AlterRoleStatement& statement) {
    using Action = tsql::AlterRoleStatement::Action;
    if (!session.IsAdministrator())
        throw SqlError(15151, {"alter", "server role", statement.name});
    if (!statement.server || statement.action == Action::Rename ||
        !tsql::SameWord(statement.name, "sysadmin"))
        throw SqlError::NotSupported("server roles other than sysadmin");
    const bool adds = statement.action == Action::AddMember;
    if (SameName(statement.value, "sa"))
        throw SqlError(15405, {statement.value});
    if (!session.server.accounts.Find(statement.value))
        throw SqlError(15151, {adds ? "add" : "drop", "principal", statement.value});
    session.server.accounts.SetAdministrator(statement.value, adds);
}

void RequireUnused(SessionState& session, const std::string& login) {
    if (OwnsDatabase(session, login))
        throw SqlError(15174, {login});
    const bool isOwn = SameName(session.facts.login, login);
    if (isOwn || session.AnotherStays([&](const SessionRow& row) { return SameName(row.login, login); }))
        throw SqlError(15434, {login});
}

void Drop(SessionState& session, const tsql::DropStatement& statement) {
    for (const tsql::Name& name : statement.names) {
        if (statement.ifExists && !session.server.accounts.Find(name.Last()))
            continue;
        if (!session.IsAdministrator())
            throw SqlError(15151, {"drop", "login", name.Last()});
        if (session.server.accounts.Find(name.Last()) && !SameName(name.Last(), "sa"))
            RequireUnused(session, name.Last());
        session.server.accounts.Drop(name.Last());
    }
}

} // namespace

void RunLoginStatement(SessionState& session, const tsql::Statement& statement) {
    switch (statement.kind) {
    case tsql::StatementKind::CreateLogin: return Create(session, As<tsql::CreateLoginStatement>(statement));
    case tsql::StatementKind::AlterLogin: return Alter(session, As<tsql::AlterLoginStatement>(statement));
    case tsql::StatementKind::AlterRole: return ChangeRole(session, As<tsql::AlterRoleStatement>(statement));
    case tsql::StatementKind::Drop: return Drop(session, As<tsql::DropStatement>(statement));
    default: throw SqlError::NotSupported("this statement about logins");
    }
}

} // namespace quillon::practice
