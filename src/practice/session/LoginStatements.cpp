#include "practice/session/LoginStatements.h"

#include "practice/session/SessionState.h"
#include "practice/tsql/Keywords.h"
#include "practice/values/SqlError.h"

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
    session.server.accounts.Create(statement.name, statement.password);
    const std::string database = OptionOf(statement.options, "DEFAULT_DATABASE");
    const std::string language = OptionOf(statement.options, "DEFAULT_LANGUAGE");
    if (!database.empty() || !language.empty())
        session.server.accounts.ChangeDefaults(statement.name, database, language);
}

void Alter(SessionState& session, const tsql::AlterLoginStatement& statement) {
    Accounts& accounts = session.server.accounts;
    if (statement.enable)
        accounts.SetDisabled(statement.name, !*statement.enable);
    const std::string old = OptionOf(statement.options, "OLD_PASSWORD");
    if (!old.empty() && !accounts.Verify(statement.name, old))
        throw SqlError(15151, {"alter", "login", statement.name});
    if (statement.password)
        accounts.ChangePassword(statement.name, *statement.password);
    const std::string database = OptionOf(statement.options, "DEFAULT_DATABASE");
    const std::string language = OptionOf(statement.options, "DEFAULT_LANGUAGE");
    if (!database.empty() || !language.empty())
        accounts.ChangeDefaults(statement.name, database, language);
    const std::string renamed = OptionOf(statement.options, "NAME");
    if (!renamed.empty())
        accounts.Rename(statement.name, renamed);
}

void ChangeRole(SessionState& session, const tsql::AlterRoleStatement& statement) {
    using Action = tsql::AlterRoleStatement::Action;
    if (!statement.server || statement.action == Action::Rename ||
        !tsql::SameWord(statement.name, "sysadmin"))
        throw SqlError::NotSupported("server roles other than sysadmin");
    session.server.accounts.SetAdministrator(statement.value, statement.action == Action::AddMember);
}

void Drop(SessionState& session, const tsql::DropStatement& statement) {
    for (const tsql::Name& name : statement.names) {
        if (statement.ifExists && !session.server.accounts.Find(name.Last()))
            continue;
        session.server.accounts.Drop(name.Last());
    }
}

} // namespace

void RunLoginStatement(SessionState& session, const tsql::Statement& statement) {
    const bool ownPassword = statement.kind == tsql::StatementKind::AlterLogin &&
                             SameName(As<tsql::AlterLoginStatement>(statement).name, session.LoginName());
    if (!session.IsAdministrator() && !ownPassword)
        throw SqlError(15247);
    switch (statement.kind) {
    case tsql::StatementKind::CreateLogin: return Create(session, As<tsql::CreateLoginStatement>(statement));
    case tsql::StatementKind::AlterLogin: return Alter(session, As<tsql::AlterLoginStatement>(statement));
    case tsql::StatementKind::AlterRole: return ChangeRole(session, As<tsql::AlterRoleStatement>(statement));
    case tsql::StatementKind::Drop: return Drop(session, As<tsql::DropStatement>(statement));
    default: throw SqlError::NotSupported("this statement about logins");
    }
}

} // namespace quillon::practice
