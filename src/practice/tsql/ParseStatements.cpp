#include "practice/tsql/ParseStatements.h"

#include "practice/tsql/ParseControl.h"
#include "practice/tsql/ParseCursors.h"
#include "practice/tsql/ParseDml.h"
#include "practice/tsql/ParseDrop.h"
#include "practice/tsql/ParseExecute.h"
#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseModules.h"
#include "practice/tsql/ParseNames.h"
#include "practice/tsql/ParseQueries.h"
#include "practice/tsql/ParseRefused.h"
#include "practice/tsql/ParseSecurity.h"
#include "practice/tsql/ParseTables.h"
#include "practice/tsql/ParseVariables.h"

namespace quillon::practice::tsql {

namespace {

[[noreturn]] void RefuseStatement(const ParseState& state) {
    std::string words = UpperWord(state.Value(state.Peek()));
    if (state.Is(TokenKind::Identifier, 1))
        words += " " + UpperWord(state.Value(state.Peek(1)));
    state.Refuse(words, state.At());
}

// --- CREATE and ALTER
// ---------------------------------------------------------------------------------------------

void RequireFirst(const ParseState& state, std::string_view words, Position position) {
    if (state.statements > 0 || state.blocks > 0)
        state.Fail(111, {words}, position);
}

/// A module after CREATE or ALTER; nothing when none is ahead.
StatementPtr ParseModule(ParseState& state, const ModuleHead& head) {
    const std::string_view verb = head.verb == ModuleVerb::Alter ? "ALTER " : "CREATE ";
    const std::string word = UpperWord(state.Value(state.Peek()));
    if (word == "PROC" || word == "PROCEDURE") {
        RequireFirst(state, "CREATE/ALTER PROCEDURE", head.position);
        state.Take();
        return ParseProcedure(state, head);
    }
    if (word != "VIEW" && word != "FUNCTION" && word != "TRIGGER")
        return nullptr;
    RequireFirst(state, std::string(verb) + word, head.position);
    state.Take();
    if (word == "VIEW")
        return ParseView(state, head);
    return word == "FUNCTION" ? ParseFunction(state, head) : ParseTrigger(state, head);
}

using DefinitionParser = StatementPtr (*)(ParseState&, Position);

struct DefinitionRow {
    std::string_view word;
    DefinitionParser create;
    DefinitionParser alter;
};

constexpr DefinitionRow kDefinitions[] = {
    {"TABLE", ParseCreateTable, ParseAlterTable},
    {"DATABASE", ParseCreateDatabase, ParseAlterDatabase},
    {"SCHEMA", ParseCreateSchema, ParseAlterSchema},
    {"STATISTICS", ParseCreateStatistics, nullptr},
    {"TYPE", ParseCreateType, nullptr},
    {"SYNONYM", ParseCreateSynonym, nullptr},
    {"LOGIN", ParseCreateLogin, ParseAlterLogin},
    {"USER", ParseCreateUser, ParseAlterUser},
    {"AUTHORIZATION", nullptr, ParseAlterAuthorization},
};

StatementPtr ParseRole(ParseState& state, Position position, bool create) {
    const bool server = state.Accept("SERVER");
    state.Expect("ROLE");
    return create ? ParseCreateRole(state, position, server) : ParseAlterRole(state, position, server);
}

StatementPtr ParseDefinition(ParseState& state, Position position, bool create) {
    if (state.Is("ROLE") || (state.Is("SERVER") && state.Is("ROLE", 1)))
        return ParseRole(state, position, create);
    for (const DefinitionRow& row : kDefinitions) {
        const DefinitionParser parse = create ? row.create : row.alter;
        if (parse == nullptr || !state.Is(row.word))
            continue;
        if (row.word == "SCHEMA" && create)
            RequireFirst(state, "CREATE SCHEMA", position);
        if (row.word == "DATABASE" && (state.Is("SCOPED", 1) || state.Is("AUDIT", 1)))
            break;
        state.Take();
        return parse(state, position);
    }
    if (!state.Is(TokenKind::Identifier))
        state.FailHere();
    std::string words = UpperWord(state.Value(state.Peek()));
    if (state.Is(TokenKind::Identifier, 1) && state.Is(TokenKind::Identifier, 2))
        words += " " + UpperWord(state.Value(state.Peek(1)));
    state.Refuse((create ? "CREATE " : "ALTER ") + words, position);
}

bool AtIndexDefinition(const ParseState& state) {
    return state.Is(Keyword::Unique) || state.Is(Keyword::Clustered) || state.Is(Keyword::NonClustered) ||
           state.Is(Keyword::Index);
}

StatementPtr ParseCreate(ParseState& state) {
    ModuleHead head;
    head.position = state.At();
    head.verbText.begin = head.position.offset;
    state.Take();
    if (state.Accept(Keyword::Or)) {
        state.Expect(Keyword::Alter);
        head.verb = ModuleVerb::CreateOrAlter;
    }
    head.verbText.end = state.LastEnd();
    if (StatementPtr module = ParseModule(state, head))
        return module;
    if (head.verb == ModuleVerb::CreateOrAlter)
        state.FailHere();
    if (AtIndexDefinition(state))
        return ParseCreateIndex(state, head.position);
    if (state.Is(Keyword::Default) || state.Is(Keyword::Rule)) {
        const bool rule = state.Is(Keyword::Rule);
        RequireFirst(state, rule ? "CREATE RULE" : "CREATE DEFAULT", head.position);
        state.Take();
        return ParseDefaultOrRule(state, head.position, rule);
    }
    return ParseDefinition(state, head.position, true);
}

StatementPtr ParseAlter(ParseState& state) {
    ModuleHead head;
    head.position = state.At();
    head.verb = ModuleVerb::Alter;
    head.verbText.begin = head.position.offset;
    state.Take();
    head.verbText.end = state.LastEnd();
    if (StatementPtr module = ParseModule(state, head))
        return module;
    if (state.Accept(Keyword::Index))
        return ParseAlterIndex(state, head.position);
    return ParseDefinition(state, head.position, false);
}

// --- Statements by their first word
// -------------------------------------------------------------------------------

/// WITH x AS (...) before any of the statements that may have it.
StatementPtr ParseWithStatement(ParseState& state) {
    if (!state.terminated)
        state.FailHere();
    const Position position = state.At();
    std::vector<CommonTable> with = ParseWith(state);
    if (state.Is(Keyword::Select) || state.Is(Symbol::LeftParen)) {
        auto select = ParseSelectStatement(state, QueryPlace::Statement);
        select->position = position;
        select->query.with = std::move(with);
        return select;
    }
    StatementPtr change;
    if (state.Is(Keyword::Insert))
        change = ParseInsert(state);
    else if (state.Is(Keyword::Update))
        change = ParseUpdate(state);
    else if (state.Is(Keyword::Delete))
        change = ParseDelete(state);
    else if (state.Is(Keyword::Merge))
        change = ParseMerge(state);
    else
        state.FailHere();
    change->position = position;
    static_cast<DmlStatement&>(*change).with = std::move(with);
    return change;
}

/// Statements about data; nothing when none of them is ahead.
StatementPtr ParseDataStatement(ParseState& state) {
    switch (state.Peek().keyword) {
    case Keyword::Select: return ParseSelectStatement(state, QueryPlace::Statement);
    case Keyword::With: return ParseWithStatement(state);
    case Keyword::Insert: return ParseInsert(state);
    case Keyword::Update:
        return state.Is(Keyword::Statistics, 1) ? ParseUpdateStatistics(state) : ParseUpdate(state);
    case Keyword::Delete: return ParseDelete(state);
    case Keyword::Merge: return ParseMerge(state);
    case Keyword::Truncate: return ParseTruncate(state);
    default: return nullptr;
    }
}

StatementPtr ParseDefinitionStatement(ParseState& state) {
    switch (state.Peek().keyword) {
    case Keyword::Create: return ParseCreate(state);
    case Keyword::Alter: return ParseAlter(state);
    case Keyword::Drop: return ParseDrop(state);
    case Keyword::Grant:
    case Keyword::Deny:
    case Keyword::Revoke: return ParsePermission(state);
    default: return nullptr;
    }
}

StatementPtr ParseCallStatement(ParseState& state) {
    switch (state.Peek().keyword) {
    case Keyword::Exec:
    case Keyword::Execute: return ParseExecute(state);
    case Keyword::Declare: return ParseDeclare(state);
    case Keyword::Set: return ParseSet(state);
    case Keyword::Open:
    case Keyword::Close:
    case Keyword::Deallocate: return ParseCursorStatement(state);
    case Keyword::Fetch: return ParseFetch(state);
    default: return nullptr;
    }
}

bool IsRefusedStatement(Keyword keyword) {
    switch (keyword) {
    case Keyword::Backup:
    case Keyword::Restore:
    case Keyword::Dump:
    case Keyword::Load:
    case Keyword::Bulk:
    case Keyword::ReadText:
    case Keyword::WriteText:
    case Keyword::UpdateText:
    case Keyword::Shutdown:
    case Keyword::SetUser:
    case Keyword::Disk:
    case Keyword::LineNo: return true;
    default: return false;
    }
}

/// Statements that begin with a word that is not reserved.
StatementPtr ParseWordStatement(ParseState& state) {
    if (state.Is(Symbol::Colon, 1))
        return ParseLabel(state);
    if (state.Is("THROW"))
        return ParseThrow(state);
    if ((state.Is("ENABLE") || state.Is("DISABLE")) && state.Is(Keyword::Trigger, 1))
        return ParseEnableTrigger(state);
    if (state.statements > 0 || state.blocks > 0)
        state.FailHere();
    return ParseBareExecute(state);
}

StatementPtr ParseByFirstWord(ParseState& state) {
    StatementPtr (*const families[])(ParseState&) = {ParseDataStatement, ParseDefinitionStatement,
                                                     ParseCallStatement, ParseControlStatement};
    for (const auto family : families) {
        if (StatementPtr statement = family(state))
            return statement;
    }
    if (IsRefusedStatement(state.Peek().keyword))
        RefuseStatement(state);
    if (state.Is(Symbol::LeftParen) && state.IsQueryBracket())
        return ParseSelectStatement(state, QueryPlace::Statement);
    if (!state.IsName())
        state.FailHere();
    return ParseWordStatement(state);
}

void SkipSemicolons(ParseState& state) {
    while (state.Accept(Symbol::Semicolon))
        state.terminated = true;
}

} // namespace

StatementPtr ParseStatement(ParseState& state) {
    const Nested nested(state);
    const std::size_t begin = state.At().offset;
    StatementPtr statement = ParseOrRefuse(state, ParseByFirstWord);
    statement->text = {begin, state.LastTextEnd()};
    ++state.statements;
    state.terminated = false;
    SkipSemicolons(state);
    return statement;
}

StatementList ParseStatementsToEnd(ParseState& state) {
    StatementList statements;
    SkipSemicolons(state);
    while (!state.Is(TokenKind::End))
        statements.push_back(ParseStatement(state));
    return statements;
}

} // namespace quillon::practice::tsql
