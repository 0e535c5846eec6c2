#include "practice/tsql/ParseCursors.h"

#include "practice/tsql/ParseDml.h"
#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"
#include "practice/tsql/ParseQueries.h"

namespace quillon::practice::tsql {

namespace {

struct CursorWord {
    std::string_view word;
    bool CursorDefinition::*flag;
};

constexpr CursorWord kCursorWords[] = {
    {"LOCAL", &CursorDefinition::local},
    {"GLOBAL", &CursorDefinition::global},
    {"SCROLL", &CursorDefinition::scroll},
    {"FORWARD_ONLY", &CursorDefinition::forwardOnly},
    {"FAST_FORWARD", &CursorDefinition::fastForward},
    {"INSENSITIVE", &CursorDefinition::insensitive},
    {"STATIC", &CursorDefinition::isStatic},
    {"KEYSET", &CursorDefinition::keyset},
    {"DYNAMIC", &CursorDefinition::dynamic},
    {"READ_ONLY", &CursorDefinition::readOnly},
    {"SCROLL_LOCKS", &CursorDefinition::scrollLocks},
    {"OPTIMISTIC", &CursorDefinition::optimistic},
    {"TYPE_WARNING", &CursorDefinition::typeWarning},
};

void ParseCursorWords(ParseState& state, CursorDefinition& definition) {
    while (!state.Is(Keyword::For) && !state.Is(Keyword::Cursor)) {
        const auto* row = std::find_if(std::begin(kCursorWords), std::end(kCursorWords),
                                       [&](const CursorWord& candidate) { return state.Is(candidate.word); });
        if (row == std::end(kCursorWords))
            state.FailHere();
        state.Take();
        definition.*(row->flag) = true;
    }
}

void ParseUpdatability(ParseState& state, CursorDefinition& definition) {
    if (!state.Accept(Keyword::For))
        return;
    if (state.Accept(Keyword::Read)) {
        state.Expect("ONLY");
        definition.readOnly = true;
        return;
    }
    state.Expect(Keyword::Update);
    definition.forUpdate = true;
    if (!state.Accept(Keyword::Of))
        return;
    do {
        definition.updateColumns.push_back(ParseIdentifier(state));
    } while (state.Accept(Symbol::Comma));
}

/// From CURSOR on.
void ParseCursorDefinition(ParseState& state, CursorDefinition& definition) {
    state.Expect(Keyword::Cursor);
    ParseCursorWords(state, definition);
    state.Expect(Keyword::For);
    const std::size_t begin = state.At().offset;
    definition.select = ParseSelectStatement(state, QueryPlace::Cursor);
    definition.select->text = {begin, state.LastEnd()};
    ParseUpdatability(state, definition);
}

FetchDirection ParseDirection(ParseState& state, FetchCursorStatement& fetch) {
    struct Row {
        std::string_view word;
        FetchDirection direction;
    };
    static constexpr Row rows[] = {
        {"NEXT", FetchDirection::Next},         {"PRIOR", FetchDirection::Prior},
        {"FIRST", FetchDirection::First},       {"LAST", FetchDirection::Last},
        {"ABSOLUTE", FetchDirection::Absolute}, {"RELATIVE", FetchDirection::Relative},
    };
    for (const Row& row : rows) {
        // A cursor may itself be called Next; then INTO or the end follows.
        if (!state.Is(row.word))
            continue;
        const bool counted = row.direction >= FetchDirection::Absolute;
        if (!counted && !state.Is(Keyword::From, 1) && !state.IsName(1) && !state.Is(TokenKind::Variable, 1))
            continue;
        state.Take();
        if (counted)
            fetch.count = ParseValue(state);
        return row.direction;
    }
    return FetchDirection::Next;
}

} // namespace

CursorName ParseCursorName(ParseState& state) {
    CursorName cursor;
    cursor.position = state.At();
    if (state.Is(TokenKind::Variable)) {
        cursor.variable = true;
        cursor.name = ParseVariableName(state);
        state.RequireScalar(cursor.name, cursor.position);
        return cursor;
    }
    if (state.Is("GLOBAL") && state.IsName(1)) {
        state.Take();
        cursor.global = true;
    }
    cursor.name = ParseIdentifier(state);
    return cursor;
}

StatementPtr ParseDeclareCursor(ParseState& state, Position position) {
    auto statement = std::make_unique<DeclareCursorStatement>();
    statement->position = position;
    statement->name = ParseIdentifier(state);
    ParseCursorWords(state, statement->definition); // the older form has INSENSITIVE and SCROLL here
    ParseCursorDefinition(state, statement->definition);
    return statement;
}

StatementPtr ParseSetCursor(ParseState& state, Position position, std::string variable) {
    auto statement = std::make_unique<SetCursorVariableStatement>();
    statement->position = position;
    statement->variable = std::move(variable);
    if (state.Is(Keyword::Cursor))
        ParseCursorDefinition(state, statement->definition.emplace());
    else
        statement->source = ParseCursorName(state);
    return statement;
}

StatementPtr ParseCursorStatement(ParseState& state) {
    const Keyword keyword = state.Peek().keyword;
    const StatementKind kind = keyword == Keyword::Open    ? StatementKind::OpenCursor
                               : keyword == Keyword::Close ? StatementKind::CloseCursor
                                                           : StatementKind::DeallocateCursor;
    auto statement = std::make_unique<CursorStatement>(kind);
    statement->position = state.At();
    state.Take();
    if ((state.Is("SYMMETRIC") || state.Is("MASTER") || state.Is(Keyword::All)) &&
        state.Is(TokenKind::Identifier, 1))
        state.Refuse("OPEN and CLOSE of keys", statement->position);
    statement->cursor = ParseCursorName(state);
    return statement;
}

StatementPtr ParseFetch(ParseState& state) {
    auto fetch = Begin<FetchCursorStatement>(state);
    state.Take();
    fetch->direction = ParseDirection(state, *fetch);
    state.Accept(Keyword::From);
    fetch->cursor = ParseCursorName(state);
    if (!state.Accept(Keyword::Into))
        return fetch;
    do {
        const Position at = state.At();
        fetch->into.push_back(ParseVariableName(state));
        state.RequireScalar(fetch->into.back(), at);
    } while (state.Accept(Symbol::Comma));
    return fetch;
}

} // namespace quillon::practice::tsql
