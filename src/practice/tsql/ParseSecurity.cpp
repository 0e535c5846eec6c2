#include "practice/tsql/ParseSecurity.h"

#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"

namespace quillon::practice::tsql {

namespace {

/// `PASSWORD = 'text' [HASHED] [MUST_CHANGE] [UNLOCK]` with PASSWORD ahead.
std::string ParsePassword(ParseState& state, bool& hashed) {
    state.Expect("PASSWORD");
    state.Expect(Symbol::Equal);
    if (state.Is(TokenKind::Binary))
        state.Refuse("hashed passwords", state.At());
    std::string password = ParseText(state);
    hashed = state.Accept("HASHED");
    if (hashed)
        state.Refuse("hashed passwords", state.At());
    if (state.Is("MUST_CHANGE"))
        state.Refuse("MUST_CHANGE", state.At());
    state.Accept("UNLOCK");
    return password;
}

OptionSetting ParseLoginOption(ParseState& state) {
    OptionSetting option;
    option.name = TakeWord(state);
    state.Expect(Symbol::Equal);
    option.value = state.IsName() || state.IsString() || state.Is(TokenKind::Binary) ||
                           state.Is(Keyword::On) || state.Is(Keyword::Off) || state.Is(Keyword::Null)
                       ? state.Value(state.Take())
                       : ParseIdentifier(state);
    return option;
}

/// Whether a right begins like that; which of them there are is for the binder to say.
bool BeginsRight(std::string_view word) {
    constexpr std::string_view words[] = {
        "ADMINISTER", "ALL",     "ALTER",      "AUTHENTICATE", "BACKUP",  "CHECKPOINT", "CONNECT",
        "CONTROL",    "CREATE",  "DELETE",     "EXEC",         "EXECUTE", "EXTERNAL",   "IMPERSONATE",
        "INSERT",     "RECEIVE", "REFERENCES", "SELECT",       "SEND",    "SHOWPLAN",   "SHUTDOWN",
        "SUBSCRIBE",  "TAKE",    "UNMASK",     "UNSAFE",       "UPDATE",  "VIEW"};
    return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

/// The right's words, as in VIEW DEFINITION or ALTER ANY LOGIN.
std::string ParseRight(ParseState& state) {
    if (!BeginsRight(UpperWord(state.Value(state.Peek()))))
        state.FailHere();
    std::string words = TakeWord(state);
    while (state.Is(TokenKind::Identifier) && !state.Is(Keyword::On) && !state.Is(Keyword::To) &&
           !state.Is(Keyword::From))
        words += " " + TakeWord(state);
    if (words == "ALL PRIVILEGES")
        return "ALL";
    return words;
}

void ParseRights(ParseState& state, PermissionStatement& statement) {
    do {
        statement.permissions.push_back(ParseRight(state));
        if (state.Is(Symbol::LeftParen))
            statement.columns = ParseNameList(state);
    } while (state.Accept(Symbol::Comma));
}

/// `CLASS::name`, the class being a word or two; a bare name has none.
void ParseSecurable(ParseState& state, std::string& securableClass, Name& securable) {
    if (state.Is(Symbol::DoubleColon, 1) || state.Is(Symbol::DoubleColon, 2)) {
        securableClass = TakeWord(state);
        if (!state.Is(Symbol::DoubleColon))
            securableClass += " " + TakeWord(state);
        state.Expect(Symbol::DoubleColon);
    }
    securable = ParseName(state, 3);
}

void ParsePrincipals(ParseState& state, PermissionStatement& statement) {
    do {
        statement.principals.push_back(state.Is(Keyword::Public) ? state.Value(state.Take())
                                                                 : ParseIdentifier(state));
    } while (state.Accept(Symbol::Comma));
}

void ParsePermissionTail(ParseState& state, PermissionStatement& statement) {
    if (state.Is(Keyword::With) && state.Is(Keyword::Grant, 1)) {
        state.Take();
        state.Take();
        state.Expect(Keyword::Option);
        statement.grantOption = true;
    }
    statement.cascade = state.Accept(Keyword::Cascade);
    if (state.Is(Keyword::As))
        state.Refuse("permissions AS another grantor", state.At());
}

void ParseWithoutOrForLogin(ParseState& state, CreateUserStatement& statement) {
    if (state.Accept("WITHOUT")) {
        state.Expect("LOGIN");
        statement.withoutLogin = true;
    } else if (state.Is(Keyword::For) || state.Is(Keyword::From)) {
        state.Take();
        if (!state.Is("LOGIN"))
            state.Refuse("CREATE USER FOR " + UpperWord(state.Value(state.Peek())), state.At());
        state.Take();
        statement.login = ParseIdentifier(state);
    }
}

} // namespace

StatementPtr ParseCreateLogin(ParseState& state, Position position) {
    auto statement = std::make_unique<CreateLoginStatement>();
    statement->position = position;
    statement->name = ParseIdentifier(state);
    if (state.Accept(Keyword::From)) {
        if (!state.Is("WINDOWS"))
            state.Refuse("CREATE LOGIN FROM " + UpperWord(state.Value(state.Peek())), state.At());
        state.Take();
        statement->windows = true;
        if (!state.Accept(Keyword::With))
            return statement;
    } else {
        state.Expect(Keyword::With);
        statement->password = ParsePassword(state, statement->hashed);
        if (!state.Accept(Symbol::Comma))
            return statement;
    }
    do {
        statement->options.push_back(ParseLoginOption(state));
    } while (state.Accept(Symbol::Comma));
    return statement;
}

StatementPtr ParseAlterLogin(ParseState& state, Position position) {
    auto statement = std::make_unique<AlterLoginStatement>();
    statement->position = position;
    statement->name = ParseIdentifier(state);
    if (state.Is("ENABLE") || state.Is("DISABLE")) {
        statement->enable = TakeWord(state) == "ENABLE";
        return statement;
    }
    state.Expect(Keyword::With);
    do {
        bool hashed = false;
        if (state.Is("PASSWORD"))
            statement->password = ParsePassword(state, hashed);
        else
            statement->options.push_back(ParseLoginOption(state));
        if (state.Is("OLD_PASSWORD"))
            statement->options.push_back(ParseLoginOption(state));
    } while (state.Accept(Symbol::Comma));
    return statement;
}

StatementPtr ParseCreateUser(ParseState& state, Position position) {
    auto statement = std::make_unique<CreateUserStatement>();
    statement->position = position;
    statement->name = ParseIdentifier(state);
    ParseWithoutOrForLogin(state, *statement);
    if (!state.Accept(Keyword::With))
        return statement;
    do {
        const Position at = state.At();
        const OptionSetting option = ParseLoginOption(state);
        if (option.name != "DEFAULT_SCHEMA")
            state.Refuse("CREATE USER WITH " + option.name, at);
        statement->defaultSchema = option.value;
    } while (state.Accept(Symbol::Comma));
    return statement;
}

StatementPtr ParseAlterUser(ParseState& state, Position position) {
    auto statement = std::make_unique<AlterUserStatement>();
    statement->position = position;
    statement->name = ParseIdentifier(state);
    state.Expect(Keyword::With);
    do {
        statement->options.push_back(ParseLoginOption(state));
    } while (state.Accept(Symbol::Comma));
    return statement;
}

StatementPtr ParseCreateRole(ParseState& state, Position position, bool server) {
    auto statement = std::make_unique<CreateRoleStatement>();
    statement->position = position;
    statement->server = server;
    statement->name = ParseIdentifier(state);
    if (state.Accept(Keyword::Authorization))
        statement->owner = ParseIdentifier(state);
    return statement;
}

StatementPtr ParseAlterRole(ParseState& state, Position position, bool server) {
    auto statement = std::make_unique<AlterRoleStatement>();
    using Action = AlterRoleStatement::Action;
    statement->position = position;
    statement->server = server;
    statement->name = ParseIdentifier(state);
    if (state.Accept(Keyword::With)) {
        statement->action = Action::Rename;
        state.Expect("NAME");
        state.Expect(Symbol::Equal);
    } else {
        statement->action = state.Is(Keyword::Drop) ? Action::DropMember : Action::AddMember;
        if (!state.Accept(Keyword::Drop))
            state.Expect(Keyword::Add);
        state.Expect("MEMBER");
    }
    statement->value = ParseIdentifier(state);
    return statement;
}

StatementPtr ParseAlterAuthorization(ParseState& state, Position position) {
    auto statement = std::make_unique<AlterAuthorizationStatement>();
    statement->position = position;
    state.Expect(Keyword::On);
    ParseSecurable(state, statement->securableClass, statement->securable);
    state.Expect(Keyword::To);
    if (state.Accept(Keyword::Schema))
        state.Expect("OWNER");
    else
        statement->owner = ParseIdentifier(state);
    return statement;
}

StatementPtr ParsePermission(ParseState& state) {
    auto statement = Begin<PermissionStatement>(state);
    const std::string verb = TakeWord(state);
    statement->verb = verb == "GRANT"  ? PermissionVerb::Grant
                      : verb == "DENY" ? PermissionVerb::Deny
                                       : PermissionVerb::Revoke;
    if (statement->verb == PermissionVerb::Revoke && state.Is(Keyword::Grant) &&
        state.Is(Keyword::Option, 1)) {
        state.Take();
        state.Take();
        state.Expect(Keyword::For);
        statement->grantOption = true;
    }
    ParseRights(state, *statement);
    if (state.Accept(Keyword::On)) {
        ParseSecurable(state, statement->securableClass, statement->securable);
        if (state.Is(Symbol::LeftParen))
            statement->columns = ParseNameList(state);
    }
    if (statement->verb != PermissionVerb::Revoke || !state.Accept(Keyword::From))
        state.Expect(Keyword::To);
    ParsePrincipals(state, *statement);
    ParsePermissionTail(state, *statement);
    return statement;
}

} // namespace quillon::practice::tsql
