#include "practice/tsql/ParseExpressions.h"

#include "practice/tsql/ParseNames.h"
#include "practice/tsql/ParseQueries.h"

namespace quillon::practice::tsql {

namespace {

ExpressionPtr ParseCast(ParseState& state, bool tryForm) {
    const HeightScope scope(state);
    auto node = Begin<Cast>(state);
    node->tryForm = tryForm;
    state.Take();
    state.Expect(Symbol::LeftParen);
    node->operand = ParseValue(state);
    state.Expect(Keyword::As);
    node->type = ParseDataType(state);
    state.Expect(Symbol::RightParen);
    return Finish(state, std::move(node), scope.Above());
}

ExpressionPtr ParseConvert(ParseState& state, bool tryForm) {
    const HeightScope scope(state);
    auto node = Begin<Cast>(state);
    node->convert = true;
    node->tryForm = tryForm;
    state.Take();
    state.Expect(Symbol::LeftParen);
    node->type = ParseDataType(state);
    state.Expect(Symbol::Comma);
    node->operand = ParseValue(state);
    if (state.Accept(Symbol::Comma))
        node->style = ParseValue(state);
    state.Expect(Symbol::RightParen);
    return Finish(state, std::move(node), scope.Above());
}

/// A type among the arguments of a call comes as a CAST of nothing.
ExpressionPtr ParseTypeArgument(ParseState& state) {
    auto type = Begin<Cast>(state);
    auto nothing = Begin<Literal>(state);
    type->type = ParseDataType(state);
    type->operand = Finish(state, std::move(nothing), 1);
    return Finish(state, std::move(type), 2);
}

/// IDENTITY(type, seed, increment) of SELECT INTO.
ExpressionPtr ParseIdentityCall(ParseState& state) {
    auto node = Begin<FunctionCall>(state);
    node->name.position = node->position;
    node->name.parts = {TakeWord(state)};
    state.Expect(Symbol::LeftParen);
    node->arguments.push_back(ParseTypeArgument(state));
    while (state.Accept(Symbol::Comma))
        node->arguments.push_back(ParseValue(state));
    state.Expect(Symbol::RightParen);
    return Finish(state, std::move(node), 3);
}

bool IsParse(const Name& name) {
    return name.parts.size() == 1 && (SameWord(name.Last(), "PARSE") || SameWord(name.Last(), "TRY_PARSE"));
}

/// PARSE(text AS type USING culture).
void ParseParseArguments(ParseState& state, FunctionCall& call) {
    state.Expect(Symbol::LeftParen);
    call.arguments.push_back(ParseValue(state));
    state.Expect(Keyword::As);
    call.arguments.push_back(ParseTypeArgument(state));
    if (state.Accept("USING"))
        call.arguments.push_back(ParseValue(state));
    state.Expect(Symbol::RightParen);
}

/// TRIM(characters FROM text) as well as TRIM(text).
void ParseTrimArguments(ParseState& state, FunctionCall& call) {
    ExpressionPtr first = ParseValue(state);
    if (state.Accept(Keyword::From))
        call.arguments.push_back(ParseValue(state));
    call.arguments.push_back(std::move(first));
}

void ParseArguments(ParseState& state, FunctionCall& call) {
    const bool plain = call.name.parts.size() == 1;
    if (plain && SameWord(call.name.Last(), "IIF")) {
        call.arguments.push_back(ParseCondition(state));
    } else if (plain && SameWord(call.name.Last(), "TRIM")) {
        ParseTrimArguments(state, call);
    } else {
        call.arguments.push_back(ParseValueOrDefault(state));
    }
    while (state.Accept(Symbol::Comma))
        call.arguments.push_back(ParseValueOrDefault(state));
}

void ParseWithinGroup(ParseState& state, FunctionCall& call) {
    if (!state.Is("WITHIN") || !state.Is(Keyword::Group, 1))
        return;
    state.Take();
    state.Take();
    state.Expect(Symbol::LeftParen);
    call.withinGroup = ParseOrderBy(state);
    state.Expect(Symbol::RightParen);
}

void ParseNullTreatment(const ParseState& state) {
    if ((state.Is("IGNORE") || state.Is("RESPECT")) && state.Is("NULLS", 1))
        state.Refuse("IGNORE NULLS", state.At());
}

/// Words of the grammar that take a bracket and then read as a function.
bool IsCallKeyword(Keyword keyword) {
    return keyword == Keyword::Coalesce || keyword == Keyword::NullIf || keyword == Keyword::Left ||
           keyword == Keyword::Right || keyword == Keyword::Update;
}

} // namespace

ExpressionPtr ParseCall(ParseState& state, Name name) {
    const HeightScope scope(state);
    auto node = std::make_unique<FunctionCall>();
    node->position = name.position;
    node->name = std::move(name);
    if (IsParse(node->name)) {
        ParseParseArguments(state, *node);
        return Finish(state, std::move(node), scope.Above());
    }
    state.Expect(Symbol::LeftParen);
    const bool wasRefused = std::exchange(state.columnsRefused, false); // date parts are bare names
    if (state.Accept(Symbol::Star)) {
        node->star = true;
    } else if (!state.Is(Symbol::RightParen)) {
        node->distinct = state.Accept(Keyword::Distinct);
        if (!node->distinct)
            state.Accept(Keyword::All);
        ParseArguments(state, *node);
    }
    state.columnsRefused = wasRefused;
    state.Expect(Symbol::RightParen);
    ParseWithinGroup(state, *node);
    ParseNullTreatment(state);
    if (state.Accept(Keyword::Over))
        node->over = ParseOver(state);
    return Finish(state, std::move(node), scope.Above());
}

ExpressionPtr ParseSpecialCall(ParseState& state) {
    if (state.Is("NEXT") && state.Is("VALUE", 1) && state.Is(Keyword::For, 2))
        state.Refuse("NEXT VALUE FOR", state.At());
    if (!state.Is(Symbol::LeftParen, 1))
        return nullptr;
    if (state.Is("CAST") || state.Is("TRY_CAST"))
        return ParseCast(state, state.Is("TRY_CAST"));
    if (state.Is(Keyword::Convert) || state.Is(Keyword::TryConvert))
        return ParseConvert(state, state.Is(Keyword::TryConvert));
    if (state.Is(Keyword::Identity))
        return ParseIdentityCall(state);
    if (!IsCallKeyword(state.Peek().keyword))
        return nullptr;
    Name name;
    name.position = state.At();
    name.parts = {TakeWord(state)};
    return ParseCall(state, std::move(name));
}

} // namespace quillon::practice::tsql
