#include "practice/tsql/ParseExpressions.h"

#include "practice/tsql/ParseNames.h"
#include "practice/tsql/ParseQueries.h"

namespace quillon::practice::tsql {

namespace {

ExpressionPtr ParseMultiplicative(ParseState& state);

void RequireValue(const ParseState& state, const Expression& expression) {
    if (expression.IsCondition())
        state.FailHere();
}

void RequireCondition(const ParseState& state, const Expression& expression) {
    if (state.Peek().symbol >= Symbol::PlusEqual) // `a *= b`, the outer join of old
        state.FailHere();
    if (!expression.IsCondition())
        state.Fail(4145, {state.Value(state.Peek())}, state.At());
}

ExpressionPtr ParsePostfix(ParseState& state) {
    ExpressionPtr operand = ParsePrimary(state);
    while (state.Is(Keyword::Collate)) {
        RequireValue(state, *operand);
        auto node = std::make_unique<Collate>();
        node->position = operand->position;
        state.Take();
        node->collation = ParseIdentifier(state);
        const int height = operand->height + 1;
        node->operand = std::move(operand);
        operand = Finish(state, std::move(node), height);
    }
    if (state.Is("AT") && state.Is("TIME", 1))
        state.Refuse("AT TIME ZONE", state.At());
    return operand;
}

ExpressionPtr ParseUnary(ParseState& state) {
    UnaryOperator op;
    switch (state.Peek().symbol) {
    case Symbol::Plus: op = UnaryOperator::Plus; break;
    case Symbol::Minus: op = UnaryOperator::Minus; break;
    case Symbol::Tilde: op = UnaryOperator::BitNot; break;
    default: return ParsePostfix(state);
    }
    const Nested nested(state);
    auto node = Begin<Unary>(state);
    state.Take();
    node->op = op;
    // The signs bind less tightly than multiplication: -2 % 3 is -(2 % 3), and 1 / -2 * 3 is 1 / -(2 * 3).
    node->operand = op == UnaryOperator::BitNot ? ParseUnary(state) : ParseMultiplicative(state);
    RequireValue(state, *node->operand);
    const int height = node->operand->height + 1;
    return Finish(state, std::move(node), height);
}

using OperandParser = ExpressionPtr (*)(ParseState&);
using OperatorReader = std::optional<BinaryOperator> (*)(Symbol);

/// Operands joined by operators of one rank, from the left.
ExpressionPtr ParseChain(ParseState& state, OperandParser parseOperand, OperatorReader read) {
    ExpressionPtr left = parseOperand(state);
    while (const auto op = read(state.Peek().symbol)) {
        RequireValue(state, *left);
        auto node = std::make_unique<Binary>();
        node->position = left->position;
        node->op = *op;
        state.Take();
        node->left = std::move(left);
        node->right = parseOperand(state);
        RequireValue(state, *node->right);
        const int height = std::max(node->left->height, node->right->height) + 1;
        left = Finish(state, std::move(node), height);
    }
    return left;
}

ExpressionPtr ParseMultiplicative(ParseState& state) {
    return ParseChain(state, ParseUnary, [](Symbol symbol) -> std::optional<BinaryOperator> {
        switch (symbol) {
        case Symbol::Star: return BinaryOperator::Multiply;
        case Symbol::Slash: return BinaryOperator::Divide;
        case Symbol::PercentSign: return BinaryOperator::Modulo;
        default: return std::nullopt;
        }
    });
}

ExpressionPtr ParseAdditive(ParseState& state) {
    return ParseChain(state, ParseMultiplicative, [](Symbol symbol) -> std::optional<BinaryOperator> {
        switch (symbol) {
        case Symbol::Plus: return BinaryOperator::Add;
        case Symbol::Minus: return BinaryOperator::Subtract;
        case Symbol::Ampersand: return BinaryOperator::BitAnd;
        case Symbol::Bar: return BinaryOperator::BitOr;
        case Symbol::Caret: return BinaryOperator::BitXor;
        default: return std::nullopt;
        }
    });
}

/// The comparison ahead, taken; its two signs may have blanks between them.
std::optional<ComparisonOperator> AcceptComparison(ParseState& state) {
    std::optional<ComparisonOperator> op;
    switch (state.Peek().symbol) {
    case Symbol::Equal: op = ComparisonOperator::Equal; break;
    case Symbol::NotEqual: op = ComparisonOperator::NotEqual; break;
    case Symbol::Less: op = ComparisonOperator::Less; break;
    case Symbol::LessEqual: op = ComparisonOperator::LessEqual; break;
    case Symbol::Greater: op = ComparisonOperator::Greater; break;
    case Symbol::GreaterEqual: op = ComparisonOperator::GreaterEqual; break;
    default: return op;
    }
    const bool less = state.Is(Symbol::Less);
    const bool greater = state.Is(Symbol::Greater);
    state.Take();
    if (less && state.Accept(Symbol::Greater))
        return ComparisonOperator::NotEqual;
    if ((less || greater) && state.Accept(Symbol::Equal))
        return less ? ComparisonOperator::LessEqual : ComparisonOperator::GreaterEqual;
    return op;
}

ExpressionPtr ParseComparison(ParseState& state, ExpressionPtr left, ComparisonOperator op) {
    const Position position = left->position;
    const bool any = state.Is(Keyword::Any) || state.Is(Keyword::Some);
    if (any || state.Is(Keyword::All)) {
        state.Take();
        auto node = std::make_unique<Quantified>();
        node->position = position;
        node->op = op;
        node->all = !any;
        node->query = ParseSubquery(state);
        const int height = std::max(left->height, node->query->height) + 1;
        node->operand = std::move(left);
        return Finish(state, std::move(node), height);
    }
    auto node = std::make_unique<Comparison>();
    node->position = position;
    node->op = op;
    node->right = ParseAdditive(state);
    RequireValue(state, *node->right);
    const int height = std::max(left->height, node->right->height) + 1;
    node->left = std::move(left);
    return Finish(state, std::move(node), height);
}

ExpressionPtr ParseIsNull(ParseState& state, ExpressionPtr operand) {
    auto node = std::make_unique<IsNull>();
    node->position = operand->position;
    state.Expect(Keyword::Is);
    node->negated = state.Accept(Keyword::Not);
    if (state.Is("DISTINCT"))
        state.Refuse("IS DISTINCT FROM", state.At());
    state.Expect(Keyword::Null);
    const int height = operand->height + 1;
    node->operand = std::move(operand);
    return Finish(state, std::move(node), height);
}

ExpressionPtr ParseBetween(ParseState& state, ExpressionPtr operand, bool negated) {
    auto node = std::make_unique<Between>();
    node->position = operand->position;
    node->negated = negated;
    state.Expect(Keyword::Between);
    node->low = ParseValue(state);
    state.Expect(Keyword::And);
    node->high = ParseValue(state);
    const int height = std::max({operand->height, node->low->height, node->high->height}) + 1;
    node->operand = std::move(operand);
    return Finish(state, std::move(node), height);
}

ExpressionPtr ParseLike(ParseState& state, ExpressionPtr operand, bool negated) {
    auto node = std::make_unique<Like>();
    node->position = operand->position;
    node->negated = negated;
    state.Expect(Keyword::Like);
    node->pattern = ParseValue(state);
    int height = std::max(operand->height, node->pattern->height) + 1;
    const bool brace = state.Is(Symbol::LeftBrace) && state.Is(Keyword::Escape, 1);
    if (brace)
        state.Take();
    if (state.Accept(Keyword::Escape)) {
        node->escape = ParseValue(state);
        height = std::max(height, node->escape->height + 1);
    }
    if (brace)
        state.Expect(Symbol::RightBrace);
    node->operand = std::move(operand);
    return Finish(state, std::move(node), height);
}

ExpressionPtr ParseIn(ParseState& state, ExpressionPtr operand, bool negated) {
    const Position position = operand->position;
    state.Expect(Keyword::In);
    if (state.IsQueryBracket()) {
        auto node = std::make_unique<InQuery>();
        node->position = position;
        node->negated = negated;
        node->query = ParseSubquery(state);
        const int height = std::max(operand->height, node->query->height) + 1;
        node->operand = std::move(operand);
        return Finish(state, std::move(node), height);
    }
    auto node = std::make_unique<InList>();
    node->position = position;
    node->negated = negated;
    const HeightScope scope(state);
    state.NoteHeight(operand->height);
    state.Expect(Symbol::LeftParen);
    node->list = ParseValues(state);
    state.Expect(Symbol::RightParen);
    node->operand = std::move(operand);
    return Finish(state, std::move(node), scope.Above());
}

ExpressionPtr ParseExists(ParseState& state) {
    auto node = Begin<Exists>(state);
    state.Expect(Keyword::Exists);
    node->query = ParseSubquery(state);
    const int height = node->query->height + 1;
    return Finish(state, std::move(node), height);
}

/// What may follow a value and make it a condition; the value itself where nothing follows.
ExpressionPtr ParsePredicateTail(ParseState& state, ExpressionPtr left) {
    const bool negated = state.Is(Keyword::Not) && (state.Is(Keyword::Between, 1) ||
                                                    state.Is(Keyword::Like, 1) || state.Is(Keyword::In, 1));
    const std::size_t word = negated ? 1 : 0;
    const bool between = state.Is(Keyword::Between, word);
    const bool like = state.Is(Keyword::Like, word);
    const bool in = state.Is(Keyword::In, word);
    const bool isNull = state.Is(Keyword::Is);
    if (between || like || in || isNull)
        RequireValue(state, *left);
    if (negated)
        state.Take();
    if (between)
        return ParseBetween(state, std::move(left), negated);
    if (like)
        return ParseLike(state, std::move(left), negated);
    if (in)
        return ParseIn(state, std::move(left), negated);
    if (isNull)
        return ParseIsNull(state, std::move(left));
    const Token sign = state.Peek();
    const auto op = AcceptComparison(state);
    if (!op)
        return left;
    if (left->IsCondition())
        state.FailNear(sign);
    return ParseComparison(state, std::move(left), *op);
}

ExpressionPtr ParsePredicate(ParseState& state) {
    if (state.Is(Keyword::Exists))
        return ParseExists(state);
    if (state.Is(Keyword::Contains) || state.Is(Keyword::FreeText))
        state.Refuse(UpperWord(state.Value(state.Peek())), state.At());
    return ParsePredicateTail(state, ParseAdditive(state));
}

ExpressionPtr ParseNot(ParseState& state) {
    if (!state.Is(Keyword::Not))
        return ParsePredicate(state);
    const Nested nested(state);
    auto node = Begin<Not>(state);
    state.Take();
    node->operand = ParseNot(state);
    RequireCondition(state, *node->operand);
    const int height = node->operand->height + 1;
    return Finish(state, std::move(node), height);
}

ExpressionPtr ParseLogical(ParseState& state, OperandParser parseOperand, Keyword keyword) {
    ExpressionPtr left = parseOperand(state);
    while (state.Is(keyword)) {
        RequireCondition(state, *left);
        auto node = std::make_unique<Logical>();
        node->position = left->position;
        node->isAnd = keyword == Keyword::And;
        state.Take();
        node->left = std::move(left);
        node->right = parseOperand(state);
        RequireCondition(state, *node->right);
        const int height = std::max(node->left->height, node->right->height) + 1;
        left = Finish(state, std::move(node), height);
    }
    return left;
}

ExpressionPtr ParseAnd(ParseState& state) {
    return ParseLogical(state, ParseNot, Keyword::And);
}

} // namespace

ExpressionPtr ParseEither(ParseState& state) {
    return ParseLogical(state, ParseAnd, Keyword::Or);
}

ExpressionPtr ParseValue(ParseState& state) {
    ExpressionPtr value = ParseAdditive(state);
    RequireValue(state, *value);
    return value;
}

ExpressionPtr ParseCondition(ParseState& state) {
    ExpressionPtr condition = ParseEither(state);
    RequireCondition(state, *condition);
    return condition;
}

ExpressionPtr ParseValueOrDefault(ParseState& state) {
    if (!state.Is(Keyword::Default))
        return ParseValue(state);
    auto node = Begin<DefaultValue>(state);
    state.Take();
    return Finish(state, std::move(node), 1);
}

ExpressionList ParseValues(ParseState& state) {
    ExpressionList values;
    do {
        values.push_back(ParseValue(state));
    } while (state.Accept(Symbol::Comma));
    return values;
}

} // namespace quillon::practice::tsql
