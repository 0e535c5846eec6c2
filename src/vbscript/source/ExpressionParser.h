// Reads expressions. Operators bind, from the strongest: sign, ^, * and /, \, Mod, + and -, &, comparisons
// and Is, Not, And, Or, Xor, Eqv, Imp; all of them from left to right.
#pragma once

#include "vbscript/source/ParserBase.h"

namespace quillon::vbscript {

class ExpressionParser : protected ParserBase {
  protected:
    using ParserBase::ParserBase;

    Expression* ParseExpression() { return ParseOperators(0); }
    Expression* ParseChain();
    // What a chain of members and argument lists can begin with.
    Expression* ParsePrimary();
    // One step of what follows a primary: a member or an argument list; null if nothing follows.
    Expression* ParsePostfix(Expression* primary, bool dotAfterBlank);
    // The arguments up to the end of the statement, or up to `)` after one.
    std::span<Expression* const> ParseArguments(bool bracketed);
    // `(f)(x)` calls f as `f(x)` does.
    static Expression* WithoutBrackets(Expression* callee) noexcept;
    Expression* MakeCall(Expression* callee, std::span<Expression* const> arguments, Place place);
    Expression* MakeName(NameId name, Place place);
    const LiteralExpression* ParseLiteral(); // null if the word here is none
    NameId TakeMemberName();
    void MarkAssigned(NameId name) {
        m_scope->assigned.push_back(name);
        m_scope->mentioned.push_back(name);
    }

  private:
    Expression* ParseOperators(int level);
    Expression* ParseUnary(int level);
    Expression* ParseOperand();
    Expression* ParseBracketed();
    Expression* MakeBracket(Expression* inner, Place place);
    const LiteralExpression* NegatedLiteral(const UnaryExpression& unary);
    Expression* ParseNew();
    Expression* Combine(BinaryOperator operation, Expression* left, Expression* right, Place place);
    std::uint16_t Deeper(std::size_t depth) const;
};

} // namespace quillon::vbscript
