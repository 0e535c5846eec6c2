#include "vbscript/source/ExpressionParser.h"

namespace quillon::vbscript {
namespace {

struct OperatorRow {
    int level; // 0 binds weakest
    TokenKind token;
    Keyword keyword;
    BinaryOperator operation;
};

constexpr int NotLevel = 5; // Not stands above the levels before it and below comparisons
constexpr int SignLevel = 13;

constexpr OperatorRow Operators[] = {
    {0, TokenKind::Name, Keyword::Imp, BinaryOperator::Imp},
    {1, TokenKind::Name, Keyword::Eqv, BinaryOperator::Eqv},
    {2, TokenKind::Name, Keyword::Xor, BinaryOperator::Xor},
    {3, TokenKind::Name, Keyword::Or, BinaryOperator::Or},
    {4, TokenKind::Name, Keyword::And, BinaryOperator::And},
    {6, TokenKind::Equal, Keyword::None, BinaryOperator::Equal},
    {6, TokenKind::NotEqual, Keyword::None, BinaryOperator::NotEqual},
    {6, TokenKind::Less, Keyword::None, BinaryOperator::Less},
    {6, TokenKind::LessOrEqual, Keyword::None, BinaryOperator::LessOrEqual},
    {6, TokenKind::Greater, Keyword::None, BinaryOperator::Greater},
    {6, TokenKind::GreaterOrEqual, Keyword::None, BinaryOperator::GreaterOrEqual},
    {6, TokenKind::Name, Keyword::Is, BinaryOperator::Is},
    {7, TokenKind::Concatenate, Keyword::None, BinaryOperator::Concatenate},
    {8, TokenKind::Plus, Keyword::None, BinaryOperator::Add},
    {8, TokenKind::Minus, Keyword::None, BinaryOperator::Subtract},
    {9, TokenKind::Name, Keyword::Mod, BinaryOperator::Modulo},
    {10, TokenKind::WholeDivide, Keyword::None, BinaryOperator::WholeDivide},
    {11, TokenKind::Times, Keyword::None, BinaryOperator::Multiply},
    {11, TokenKind::Divide, Keyword::None, BinaryOperator::Divide},
    {12, TokenKind::Power, Keyword::None, BinaryOperator::Power},
};

const OperatorRow* OperatorOf(const Token& token) noexcept {
    for (const OperatorRow& row : Operators)
        if (row.token == token.kind && (row.token != TokenKind::Name || row.keyword == token.keyword))
            return &row;
    return nullptr;
}

} // namespace

Expression* ExpressionParser::WithoutBrackets(Expression* callee) noexcept {
    Expression* inner = callee;
    while (inner->kind == ExpressionKind::Bracket)
        inner = static_cast<BracketExpression*>(inner)->inner;
    return inner->kind == ExpressionKind::Name ? inner : callee;
}

std::uint16_t ExpressionParser::Deeper(std::size_t depth) const {
    if (depth >= DeepestExpression)
        Fail(numbers::CompileOutOfMemory);
    return static_cast<std::uint16_t>(depth + 1);
}

// Precedence climbing: operands of operators of at least this level.
Expression* ExpressionParser::ParseOperators(int level) {
    Expression* left = ParseUnary(level);
    for (;;) {
        const OperatorRow* row = OperatorOf(Now());
        if (row == nullptr || row->level < level)
            return left;
        const Place place = Now().place;
        Skip();
        Expression* right = ParseOperators(row->level + 1);
        left = Combine(row->operation, left, right, place);
    }
}

Expression* ExpressionParser::Combine(BinaryOperator operation, Expression* left, Expression* right,
                                      Place place) {
    BinaryExpression node{};
    node.kind = ExpressionKind::Binary;
    node.place = place;
    node.depth = std::max(left->depth, Deeper(right->depth));
    node.operation = operation;
    node.left = left;
    node.right = right;
    return Make(node);
}

Expression* ExpressionParser::ParseUnary(int level) {
    const Level guard(*this);
    UnaryExpression node{};
    node.kind = ExpressionKind::Unary;
    node.place = Now().place;
    if (Take(Keyword::Not)) {
        node.operation = UnaryOperator::Not;
        node.operand = ParseOperators(std::max(level, NotLevel));
    } else if (Take(TokenKind::Plus)) {
        return MakeBracket(ParseOperators(SignLevel), node.place);
    } else if (Take(TokenKind::Minus)) {
        node.operation = UnaryOperator::Negate;
        node.operand = ParseOperators(SignLevel);
        if (const LiteralExpression* number = NegatedLiteral(node))
            return const_cast<LiteralExpression*>(number);
    } else {
        return ParseOperand();
    }
    node.depth = Deeper(node.operand->depth);
    return Make(node);
}

// A number with a minus before it is a literal too; null for anything else.
const LiteralExpression* ExpressionParser::NegatedLiteral(const UnaryExpression& unary) {
    if (unary.operand->kind != ExpressionKind::Literal)
        return nullptr;
    LiteralExpression literal = static_cast<const LiteralExpression&>(*unary.operand);
    if (literal.literal < LiteralKind::Integer || literal.literal > LiteralKind::Double ||
        literal.number == 0)
        return nullptr;
    if (literal.literal != LiteralKind::Double && literal.number < 0)
        return nullptr; // &H8000 has no positive counterpart of its sub-type
    literal.number = -literal.number;
    return Make(literal);
}

Expression* ExpressionParser::ParseOperand() {
    const Level guard(*this);
    if (const LiteralExpression* literal = ParseLiteral())
        return const_cast<LiteralExpression*>(literal);
    if (Is(Keyword::New))
        return ParseNew();
    return ParseChain();
}

// A name or something in brackets, with the members, elements and calls behind it.
Expression* ExpressionParser::ParseChain() {
    Expression* chain = Is(TokenKind::OpenBracket) ? ParseBracketed() : ParsePrimary();
    while (Expression* longer = ParsePostfix(chain, true))
        chain = longer;
    return chain;
}

Expression* ExpressionParser::ParseBracketed() {
    const Place place = Now().place;
    Skip();
    Expression* inner = ParseExpression();
    Expect(TokenKind::CloseBracket, numbers::ExpectedCloseBracket);
    return MakeBracket(inner, place);
}

Expression* ExpressionParser::MakeBracket(Expression* inner, Place place) {
    BracketExpression node{};
    node.kind = ExpressionKind::Bracket;
    node.place = place;
    node.depth = Deeper(inner->depth);
    node.inner = inner;
    return Make(node);
}

Expression* ExpressionParser::ParseNew() {
    NewExpression node{};
    node.kind = ExpressionKind::New;
    node.place = Now().place;
    Skip();
    node.name = TakeName();
    return Make(node);
}

Expression* ExpressionParser::MakeName(NameId name, Place place) {
    NameExpression node{};
    node.kind = ExpressionKind::Name;
    node.place = place;
    node.name = name;
    m_scope->mentioned.push_back(name);
    return Make(node);
}

NameId ExpressionParser::TakeMemberName() {
    if (!Is(TokenKind::Name))
        Fail(numbers::ExpectedIdentifier);
    const NameId name = Now().name;
    Skip();
    return name;
}

Expression* ExpressionParser::ParsePrimary() {
    const Place place = Now().place;
    if (Is(Keyword::Me)) {
        Skip();
        Expression node{};
        node.kind = ExpressionKind::Me;
        node.place = place;
        return Make(node);
    }
    if (Is(TokenKind::Dot)) {
        Skip();
        MemberExpression node{};
        node.kind = ExpressionKind::Member;
        node.place = place;
        node.object = nullptr; // outside a With it is an error when it runs
        node.name = TakeMemberName();
        return Make(node);
    }
    if (!IsName())
        Fail(numbers::ExpectedExpression);
    return MakeName(TakeName(), place);
}

Expression* ExpressionParser::ParsePostfix(Expression* primary, bool dotAfterBlank) {
    const Place place = Now().place;
    if (Is(TokenKind::Dot) && (dotAfterBlank || !Now().blankBefore)) {
        Skip();
        MemberExpression node{};
        node.kind = ExpressionKind::Member;
        node.place = place;
        node.depth = Deeper(primary->depth);
        node.object = primary;
        node.name = TakeMemberName();
        return Make(node);
    }
    if (!Is(TokenKind::OpenBracket))
        return nullptr;
    return MakeCall(primary, ParseArguments(true), place);
}

Expression* ExpressionParser::MakeCall(Expression* callee, std::span<Expression* const> arguments,
                                       Place place) {
    CallExpression node{};
    node.kind = ExpressionKind::Call;
    node.place = place;
    node.callee = WithoutBrackets(callee);
    node.arguments = arguments;
    std::size_t depth = callee->depth;
    for (const Expression* argument : arguments)
        depth = std::max<std::size_t>(depth, argument == nullptr ? 0 : argument->depth);
    node.depth = Deeper(depth);
    return Make(node);
}

std::span<Expression* const> ExpressionParser::ParseArguments(bool bracketed) {
    if (bracketed)
        Expect(TokenKind::OpenBracket, numbers::ExpectedOpenBracket);
    const auto atEnd = [&] {
        return bracketed ? Is(TokenKind::CloseBracket)
                         : IsStatementEnd() || Is(Keyword::Else) || Is(Keyword::End);
    };
    std::vector<Expression*> arguments;
    if (!atEnd()) {
        for (;;) {
            Expression* argument = nullptr;
            if (!Is(TokenKind::Comma) && !atEnd())
                argument = ParseExpression();
            if (argument != nullptr && argument->kind == ExpressionKind::Name)
                m_scope->passed.push_back(static_cast<NameExpression*>(argument)->name);
            arguments.push_back(argument);
            if (!Take(TokenKind::Comma))
                break;
        }
    }
    if (bracketed)
        Expect(TokenKind::CloseBracket, numbers::ExpectedCloseBracket);
    return Keep(arguments);
}

const LiteralExpression* ExpressionParser::ParseLiteral() {
    LiteralExpression node{};
    node.kind = ExpressionKind::Literal;
    node.place = Now().place;
    node.number = Now().number;
    switch (Now().kind) {
    case TokenKind::Integer: node.literal = LiteralKind::Integer; break;
    case TokenKind::Long: node.literal = LiteralKind::Long; break;
    case TokenKind::Double: node.literal = LiteralKind::Double; break;
    case TokenKind::Date: node.literal = LiteralKind::Date; break;
    case TokenKind::String:
        node.literal = LiteralKind::String;
        node.text = Keep(Now().text);
        break;
    default:
        switch (Now().keyword) {
        case Keyword::True: node.literal = LiteralKind::True; break;
        case Keyword::False: node.literal = LiteralKind::False; break;
        case Keyword::Empty: node.literal = LiteralKind::Empty; break;
        case Keyword::Null: node.literal = LiteralKind::Null; break;
        case Keyword::Nothing: node.literal = LiteralKind::Nothing; break;
        default: return nullptr;
        }
    }
    Skip();
    return Make(node);
}

} // namespace quillon::vbscript
