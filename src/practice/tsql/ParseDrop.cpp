#include "practice/tsql/ParseDrop.h"

#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"

namespace quillon::practice::tsql {

namespace {

struct DropRow {
    std::string_view word;
    DropKind kind;
    std::size_t parts; // of the longest name
};

constexpr DropRow kDrops[] = {
    {"DATABASE", DropKind::Database, 1},     {"SCHEMA", DropKind::Schema, 1},
    {"TABLE", DropKind::Table, 3},           {"VIEW", DropKind::View, 3},
    {"PROCEDURE", DropKind::Procedure, 3},   {"PROC", DropKind::Procedure, 3},
    {"FUNCTION", DropKind::Function, 3},     {"TYPE", DropKind::Type, 2},
    {"DEFAULT", DropKind::Default, 3},       {"RULE", DropKind::Rule, 3},
    {"LOGIN", DropKind::Login, 1},           {"USER", DropKind::User, 1},
    {"SYNONYM", DropKind::Synonym, 2},       {"ROLE", DropKind::Role, 1},
    {"STATISTICS", DropKind::Statistics, 3},
};

bool AcceptIfExists(ParseState& state) {
    if (!state.Accept(Keyword::If))
        return false;
    state.Expect(Keyword::Exists);
    return true;
}

DropIndexItem ParseIndexItem(ParseState& state) {
    DropIndexItem item;
    item.position = state.At();
    Name name = ParseName(state, 4);
    if (state.Accept(Keyword::On)) {
        item.index = name.Last();
        item.table = ParseName(state, 3);
    } else if (name.parts.size() > 1) {
        item.index = name.Last();
        name.parts.pop_back();
        item.table = std::move(name);
    } else {
        state.Fail(159, {}, item.position);
    }
    if (state.Accept(Keyword::With))
        ParseSettings(state);
    return item;
}

StatementPtr ParseDropIndex(ParseState& state, Position position) {
    auto statement = std::make_unique<DropIndexStatement>();
    statement->position = position;
    statement->ifExists = AcceptIfExists(state);
    do {
        statement->items.push_back(ParseIndexItem(state));
    } while (state.Accept(Symbol::Comma));
    return statement;
}

StatementPtr ParseDropTrigger(ParseState& state, Position position) {
    auto statement = std::make_unique<DropTriggerStatement>();
    statement->position = position;
    statement->ifExists = AcceptIfExists(state);
    statement->names = ParseNames(state, 3);
    if (state.Is(Keyword::On))
        state.Refuse("triggers on a database or server", state.At());
    return statement;
}

} // namespace

StatementPtr ParseDrop(ParseState& state) {
    const Position position = state.At();
    state.Expect(Keyword::Drop);
    if (state.Accept(Keyword::Index))
        return ParseDropIndex(state, position);
    if (state.Accept(Keyword::Trigger))
        return ParseDropTrigger(state, position);
    const Token token = state.Peek();
    if (token.kind != TokenKind::Identifier)
        state.FailHere();
    const std::string word = TakeWord(state);
    const auto* row = std::find_if(std::begin(kDrops), std::end(kDrops),
                                   [&](const DropRow& candidate) { return candidate.word == word; });
    if (row == std::end(kDrops))
        state.Refuse("DROP " + word, position);
    auto statement = std::make_unique<DropStatement>();
    statement->position = position;
    statement->what = row->kind;
    statement->ifExists = AcceptIfExists(state);
    statement->names = ParseNames(state, row->parts);
    return statement;
}

} // namespace quillon::practice::tsql
