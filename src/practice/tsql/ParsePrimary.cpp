#include "practice/tsql/ParseExpressions.h"

#include "practice/tsql/ParseNames.h"
#include "practice/tsql/ParseQueries.h"

namespace quillon::practice::tsql {

namespace {

ExpressionPtr ParseVariable(ParseState& state) {
    auto node = Begin<VariableReference>(state);
    node->name = ParseVariableName(state);
    state.RequireScalar(node->name, node->position);
    if (state.Is(Symbol::Point) || state.Is(Symbol::DoubleColon))
        state.Refuse("methods of variables", state.At());
    return Finish(state, std::move(node), 1);
}

ExpressionPtr ParseGlobal(ParseState& state) {
    auto node = Begin<GlobalVariable>(state);
    const Token token = state.Take();
    node->name = UpperWord(state.Value(token));
    return Finish(state, std::move(node), 1);
}

ExpressionPtr ParsePseudoColumn(ParseState& state, Name table) {
    auto node = Begin<PseudoColumn>(state);
    const Token token = state.Take();
    node->name = state.Value(token);
    if (token.kind == TokenKind::Identifier) // the old words IDENTITYCOL and ROWGUIDCOL
        node->name = token.keyword == Keyword::IdentityCol ? "$IDENTITY" : "$ROWGUID";
    const std::string word = UpperWord(node->name);
    if (word != "$IDENTITY" && word != "$ROWGUID" && word != "$ACTION")
        state.Fail(207, {node->name}, node->position);
    node->table = std::move(table);
    return Finish(state, std::move(node), 1);
}

bool AtPseudoColumn(const ParseState& state, std::size_t ahead = 0) {
    return state.Is(TokenKind::PseudoColumn, ahead) || state.Is(Keyword::IdentityCol, ahead) ||
           state.Is(Keyword::RowGuidCol, ahead);
}

ExpressionPtr ParseNamed(ParseState& state) {
    const Token first = state.Peek();
    Name name = ParseName(state);
    if (state.Is(Symbol::Point) && AtPseudoColumn(state, 1)) {
        state.Take();
        return ParsePseudoColumn(state, std::move(name));
    }
    if (state.Is(Symbol::LeftParen))
        return ParseCall(state, std::move(name));
    if (state.columnsRefused)
        state.Note(128, {name.Text()}, name.position);
    auto node = std::make_unique<ColumnReference>();
    node->position = first.At();
    node->name = std::move(name);
    return Finish(state, std::move(node), 1);
}

ExpressionPtr ParseBracketed(ParseState& state) {
    if (state.IsQueryBracket()) {
        auto node = Begin<Subquery>(state);
        node->query = ParseSubquery(state);
        if (state.Is(Symbol::Point))
            state.Refuse("methods of subqueries", state.At());
        const int height = node->query->height + 1;
        return Finish(state, std::move(node), height);
    }
    state.Expect(Symbol::LeftParen);
    ExpressionPtr inner = ParseEither(state);
    state.Expect(Symbol::RightParen);
    return inner;
}

/// The escapes that drivers leave in a text: {fn call}, {d 'date'}, {t 'time'}, {ts 'moment'}.
ExpressionPtr ParseEscape(ParseState& state) {
    const Token brace = state.Take();
    ExpressionPtr inner;
    if (state.Accept("FN")) {
        inner = ParsePrimary(state);
    } else if (state.Is("D") || state.Is("T") || state.Is("TS")) {
        state.Take();
        auto node = std::make_unique<Cast>();
        node->position = brace.At();
        node->type.name.parts = {"datetime"};
        if (!state.IsString())
            state.FailHere();
        node->operand = ParseLiteral(state);
        inner = Finish(state, std::move(node), 2);
    } else if (state.Is("GUID") && state.IsString(1)) {
        state.Take();
        inner = ParseLiteral(state);
    } else {
        state.FailHere();
    }
    state.Expect(Symbol::RightBrace);
    return inner;
}

bool IsBareCall(Keyword keyword) {
    return keyword == Keyword::CurrentTimestamp || keyword == Keyword::CurrentUser ||
           keyword == Keyword::SessionUser || keyword == Keyword::SystemUser || keyword == Keyword::User ||
           keyword == Keyword::CurrentDate || keyword == Keyword::CurrentTime;
}

ExpressionPtr ParseBareCall(ParseState& state) {
    auto node = Begin<FunctionCall>(state);
    node->niladic = true;
    node->name.position = node->position;
    node->name.parts = {TakeWord(state)};
    return Finish(state, std::move(node), 1);
}

ExpressionPtr ParseOfKind(ParseState& state) {
    if (IsLiteral(state))
        return ParseLiteral(state);
    if (state.Is(TokenKind::Variable))
        return ParseVariable(state);
    if (state.Is(TokenKind::GlobalVariable))
        return ParseGlobal(state);
    if (AtPseudoColumn(state))
        return ParsePseudoColumn(state, {});
    if (state.Is(Symbol::LeftParen))
        return ParseBracketed(state);
    if (state.Is(Symbol::LeftBrace))
        return ParseEscape(state);
    if (state.Is(Keyword::Case))
        return ParseCase(state);
    if (IsBareCall(state.Peek().keyword))
        return ParseBareCall(state);
    if (ExpressionPtr special = ParseSpecialCall(state))
        return special;
    return ParseNamed(state);
}

LiteralType TypeOfLiteral(const Token& token) {
    switch (token.kind) {
    case TokenKind::NString: return LiteralType::NString;
    case TokenKind::Integer: return LiteralType::Integer;
    case TokenKind::Decimal: return LiteralType::Decimal;
    case TokenKind::Float: return LiteralType::Float;
    case TokenKind::Money: return LiteralType::Money;
    case TokenKind::Binary: return LiteralType::Binary;
    case TokenKind::Identifier: return LiteralType::Null;
    default: return LiteralType::String;
    }
}

} // namespace

bool IsLiteral(const ParseState& state) {
    switch (state.Peek().kind) {
    case TokenKind::Integer:
    case TokenKind::Decimal:
    case TokenKind::Float:
    case TokenKind::Money:
    case TokenKind::Binary: return true;
    default: return state.IsString() || state.Is(Keyword::Null);
    }
}

ExpressionPtr ParseConstant(ParseState& state) {
    const bool isSigned = state.Is(Symbol::Minus) || state.Is(Symbol::Plus);
    auto node = Begin<Unary>(state);
    node->op = state.Is(Symbol::Minus) ? UnaryOperator::Minus : UnaryOperator::Plus;
    if (isSigned)
        state.Take();
    if (!IsLiteral(state) || (isSigned && state.IsString()))
        state.FailHere();
    if (!isSigned)
        return ParseLiteral(state);
    node->operand = ParseLiteral(state);
    return Finish(state, std::move(node), 2);
}

ExpressionPtr ParseLiteral(ParseState& state) {
    auto node = Begin<Literal>(state);
    const Token token = state.Take();
    node->type = TypeOfLiteral(token);
    if (node->type != LiteralType::Null)
        node->text = state.Value(token);
    return Finish(state, std::move(node), 1);
}

ExpressionPtr ParsePrimary(ParseState& state) {
    const Nested nested(state);
    return ParseOfKind(state);
}

ExpressionPtr ParseCase(ParseState& state) {
    const HeightScope scope(state);
    auto node = Begin<Case>(state);
    state.Expect(Keyword::Case);
    if (!state.Is(Keyword::When))
        node->input = ParseValue(state);
    while (state.Accept(Keyword::When)) {
        CaseBranch branch;
        branch.when = node->input ? ParseValue(state) : ParseCondition(state);
        state.Expect(Keyword::Then);
        branch.then = ParseValue(state);
        node->branches.push_back(std::move(branch));
    }
    if (node->branches.empty())
        state.FailHere();
    if (state.Accept(Keyword::Else))
        node->otherwise = ParseValue(state);
    state.Expect(Keyword::End);
    return Finish(state, std::move(node), scope.Above());
}

} // namespace quillon::practice::tsql
