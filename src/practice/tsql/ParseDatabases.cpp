#include "practice/tsql/Options.h"
#include "practice/tsql/ParseNames.h"
#include "practice/tsql/ParseTables.h"

namespace quillon::practice::tsql {

namespace {

constexpr std::string_view kFlags[] = {
    "SINGLE_USER", "RESTRICTED_USER", "MULTI_USER",    "READ_ONLY",      "READ_WRITE", "ONLINE",
    "OFFLINE",     "EMERGENCY",       "ENABLE_BROKER", "DISABLE_BROKER", "NEW_BROKER",
};

bool IsFlag(std::string_view name) {
    return std::find(std::begin(kFlags), std::end(kFlags), name) != std::end(kFlags);
}

OptionSetting ParseFlag(ParseState& state) {
    const Position at = state.At();
    OptionSetting flag{TakeWord(state), {}};
    CheckOption(state, OptionPlace::Database, flag, at);
    return flag;
}

OptionSetting ParseDatabaseOption(ParseState& state) {
    if (state.Is("RECOVERY") && state.Is(Keyword::Full, 1)) {
        const std::string name = TakeWord(state);
        return {name, TakeWord(state)};
    }
    if (state.Peek().kind == TokenKind::Identifier && IsFlag(UpperWord(state.Value(state.Peek()))))
        return ParseFlag(state);
    const Position at = state.At();
    OptionSetting setting = ParseSetting(state);
    CheckOption(state, OptionPlace::Database, setting, at);
    if (setting.name == "TARGET_RECOVERY_TIME" && (state.Is("SECONDS") || state.Is("MINUTES")))
        setting.value += " " + TakeWord(state);
    return setting;
}

/// WITH ROLLBACK IMMEDIATE, WITH ROLLBACK AFTER n SECONDS, WITH NO_WAIT: nothing here waits for others.
void SkipTermination(ParseState& state) {
    if (!state.Accept(Keyword::With))
        return;
    if (state.Accept("NO_WAIT"))
        return;
    state.Expect(Keyword::Rollback);
    if (state.Accept("IMMEDIATE"))
        return;
    state.Expect("AFTER");
    ParseSignedDigits(state);
    state.Accept("SECONDS");
}

/// ON (...), LOG ON (...): where the files lie is this server's own matter.
void SkipFiles(ParseState& state) {
    for (;;) {
        if (state.Accept(Keyword::On)) {
            state.Accept(Keyword::Primary);
        } else if (state.Is("LOG") && state.Is(Keyword::On, 1)) {
            state.Take();
            state.Take();
        } else if (state.Accept("FILEGROUP")) {
            ParseIdentifier(state);
        } else if (state.Is(Symbol::LeftParen)) {
            SkipBrackets(state);
        } else if (state.Is(Symbol::Comma)) {
            state.Take();
        } else {
            return;
        }
    }
}

} // namespace

StatementPtr ParseCreateDatabase(ParseState& state, Position position) {
    auto statement = std::make_unique<CreateDatabaseStatement>();
    statement->position = position;
    statement->name = ParseIdentifier(state);
    if (state.Accept("CONTAINMENT")) {
        state.Expect(Symbol::Equal);
        const Position at = state.At();
        CheckOption(state, OptionPlace::Database, {"CONTAINMENT", TakeWord(state)}, at);
    }
    SkipFiles(state);
    if (state.Accept(Keyword::Collate))
        statement->collation = ParseIdentifier(state);
    if (state.Accept(Keyword::For)) {
        state.Refuse("CREATE DATABASE FOR " + UpperWord(state.Value(state.Peek())), state.At());
    }
    if (state.Is(Keyword::As))
        state.Refuse("CREATE DATABASE AS", state.At());
    if (state.Accept(Keyword::With)) {
        do {
            const Position at = state.At();
            CheckOption(state, OptionPlace::NewDatabase, ParseSetting(state), at);
        } while (state.Accept(Symbol::Comma));
    }
    return statement;
}

StatementPtr ParseAlterDatabase(ParseState& state, Position position) {
    auto statement = std::make_unique<AlterDatabaseStatement>();
    using Action = AlterDatabaseStatement::Action;
    statement->position = position;
    if (!state.Accept(Keyword::Current))
        statement->name = ParseIdentifier(state);
    if (state.Accept(Keyword::Collate)) {
        statement->action = Action::Collate;
        statement->value = ParseIdentifier(state);
    } else if (state.Is("MODIFY") && state.Is("NAME", 1)) {
        state.Take();
        state.Take();
        state.Expect(Symbol::Equal);
        statement->action = Action::Rename;
        statement->value = ParseIdentifier(state);
    } else if (state.Accept(Keyword::Set)) {
        do {
            statement->options.push_back(ParseDatabaseOption(state));
        } while (state.Accept(Symbol::Comma));
        SkipTermination(state);
    } else {
        state.Refuse("ALTER DATABASE " + UpperWord(state.Value(state.Peek())), state.At());
    }
    return statement;
}

} // namespace quillon::practice::tsql
