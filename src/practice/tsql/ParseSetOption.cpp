#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"
#include "practice/tsql/ParseVariables.h"

namespace quillon::practice::tsql {

namespace {

constexpr std::string_view kSwitches[] = {
    "ANSI_DEFAULTS",
    "ANSI_NULL_DFLT_OFF",
    "ANSI_NULL_DFLT_ON",
    "ANSI_NULLS",
    "ANSI_PADDING",
    "ANSI_WARNINGS",
    "ARITHABORT",
    "ARITHIGNORE",
    "CONCAT_NULL_YIELDS_NULL",
    "CURSOR_CLOSE_ON_COMMIT",
    "FMTONLY",
    "FORCEPLAN",
    "IMPLICIT_TRANSACTIONS",
    "NOCOUNT",
    "NOEXEC",
    "NUMERIC_ROUNDABORT",
    "PARSEONLY",
    "QUOTED_IDENTIFIER",
    "REMOTE_PROC_TRANSACTIONS",
    "SHOWPLAN_ALL",
    "SHOWPLAN_TEXT",
    "SHOWPLAN_XML",
    "XACT_ABORT",
    "NO_BROWSETABLE",
    "DISABLE_DEF_CNST_CHK",
};

constexpr std::string_view kValued[] = {
    "ROWCOUNT",     "TEXTSIZE",     "DATEFIRST",         "DATEFORMAT",
    "LANGUAGE",     "LOCK_TIMEOUT", "DEADLOCK_PRIORITY", "QUERY_GOVERNOR_COST_LIMIT",
    "CONTEXT_INFO", "FIPS_FLAGGER",
};

template <std::size_t Count>
bool Holds(const std::string_view (&words)[Count], std::string_view word) {
    return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

std::string ParseOnOff(ParseState& state) {
    if (!state.Is(Keyword::On) && !state.Is(Keyword::Off))
        state.FailHere();
    return TakeWord(state);
}

void ParseOptionValue(ParseState& state, SetOptionStatement& statement) {
    if (state.Is(TokenKind::Variable)) {
        statement.expression = ParsePrimary(state);
    } else if (state.Is(Symbol::Minus)) {
        statement.value = ParseSignedDigits(state);
    } else if (state.IsString() || state.IsName() || state.Is(Keyword::Off) || state.Is(Keyword::Null) ||
               IsLiteral(state)) {
        const Token token = state.Take();
        statement.value = state.Value(token);
    } else {
        state.FailHere();
    }
}

void ParseIsolation(ParseState& state, SetOptionStatement& statement) {
    state.Take();
    state.Expect("ISOLATION");
    state.Expect("LEVEL");
    statement.options = {"TRANSACTION ISOLATION LEVEL"};
    const Token token = state.Peek();
    std::string level = TakeWord(state);
    if (level == "READ" || level == "REPEATABLE")
        level += " " + TakeWord(state);
    if (level != "READ COMMITTED" && level != "READ UNCOMMITTED" && level != "REPEATABLE READ" &&
        level != "SERIALIZABLE" && level != "SNAPSHOT")
        state.FailNear(token);
    statement.value = level;
}

void ParseStatistics(ParseState& state, SetOptionStatement& statement) {
    state.Take();
    do {
        statement.options.push_back("STATISTICS " + TakeWord(state));
    } while (state.Accept(Symbol::Comma));
    statement.value = ParseOnOff(state);
}

void ParseSwitches(ParseState& state, SetOptionStatement& statement) {
    do {
        const Token token = state.Peek();
        statement.options.push_back(TakeWord(state));
        if (!Holds(kSwitches, statement.options.back()))
            state.Fail(195, {state.Value(token), "SET option"}, token.At());
    } while (state.Accept(Symbol::Comma));
    statement.value = ParseOnOff(state);
    // Quotes change their meaning from here on, but not inside of a module, which keeps its own setting.
    for (const std::string& option : statement.options) {
        const bool quotes = option == "QUOTED_IDENTIFIER" || option == "ANSI_DEFAULTS";
        if (quotes && state.module == ModuleKind::None)
            state.quotedIdentifiers = statement.value == "ON";
    }
}

} // namespace

StatementPtr ParseSetOption(ParseState& state, Position position) {
    auto statement = std::make_unique<SetOptionStatement>();
    statement->position = position;
    if (state.Is(Keyword::Tran) || state.Is(Keyword::Transaction)) {
        ParseIsolation(state, *statement);
    } else if (state.Is(Keyword::Statistics)) {
        ParseStatistics(state, *statement);
    } else if (state.Is(Keyword::IdentityInsert)) {
        statement->options = {TakeWord(state)};
        statement->table = ParseName(state, 3);
        statement->value = ParseOnOff(state);
    } else if (state.Is(Keyword::Offsets)) {
        state.Refuse("SET OFFSETS", position);
    } else if (state.Is(TokenKind::Identifier) && Holds(kValued, UpperWord(state.Value(state.Peek())))) {
        statement->options = {TakeWord(state)};
        ParseOptionValue(state, *statement);
    } else if (state.IsName()) {
        ParseSwitches(state, *statement);
    } else {
        state.FailHere();
    }
    return statement;
}

} // namespace quillon::practice::tsql
