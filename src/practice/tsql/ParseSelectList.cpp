#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"
#include "practice/tsql/ParseQueries.h"

namespace quillon::practice::tsql {

namespace {

/// Where `t.*` or `s.t.*` is ahead, the number of tokens before the star.
std::optional<std::size_t> QualifierLength(const ParseState& state) {
    std::size_t ahead = 0;
    while (state.IsName(ahead) || state.Is(Symbol::Point, ahead)) {
        if (state.Is(Symbol::Point, ahead) && state.Is(Symbol::Star, ahead + 1))
            return ahead + 1;
        ++ahead;
    }
    return std::nullopt;
}

bool IsAssignmentSign(Symbol symbol) {
    return symbol == Symbol::Equal || symbol >= Symbol::PlusEqual;
}

void ParseAssignmentItem(ParseState& state, SelectItem& item) {
    item.kind = SelectItem::Kind::Assignment;
    item.variable = ParseVariableName(state);
    state.RequireScalar(item.variable, item.position);
    item.op = *AcceptAssignment(state);
    item.expression = ParseValue(state);
}

/// A name after an expression; a text is taken as a name too.
void ParseColumnAlias(ParseState& state, SelectItem& item) {
    const bool given = state.Accept(Keyword::As);
    const bool label = !given && state.Is(Symbol::Colon, 1); // of the statement that follows
    if (!label && (state.IsName() || state.IsString()))
        item.alias = state.Value(state.Take());
    else if (given)
        state.FailHere();
}

bool IsAliasBefore(const ParseState& state) {
    return (state.IsName() || state.Is(TokenKind::String) || state.Is(TokenKind::DoubleQuoted)) &&
           state.Is(Symbol::Equal, 1);
}

SelectItem ParseSelectItem(ParseState& state) {
    SelectItem item;
    item.position = state.At();
    if (state.Accept(Symbol::Star)) {
        item.kind = SelectItem::Kind::Star;
    } else if (QualifierLength(state)) {
        item.kind = SelectItem::Kind::QualifiedStar;
        item.qualifier = ParseName(state, 3);
        state.Expect(Symbol::Point);
        state.Expect(Symbol::Star);
    } else if (state.Is(TokenKind::Variable) && IsAssignmentSign(state.Peek(1).symbol) &&
               !state.Is(Symbol::Unknown, 1)) {
        ParseAssignmentItem(state, item);
    } else if (IsAliasBefore(state)) {
        item.alias = state.Value(state.Take());
        state.Take();
        item.expression = ParseValue(state);
    } else {
        item.expression = ParseValue(state);
        ParseColumnAlias(state, item);
    }
    item.end = state.LastEnd();
    return item;
}

} // namespace

std::vector<SelectItem> ParseSelectList(ParseState& state) {
    std::vector<SelectItem> items;
    do {
        items.push_back(ParseSelectItem(state));
    } while (state.Accept(Symbol::Comma));
    return items;
}

} // namespace quillon::practice::tsql
