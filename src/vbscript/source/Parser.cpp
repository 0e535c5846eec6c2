// The module's level: procedures, classes and what belongs to them.

#include "vbscript/source/Parser.h"

#include "vbscript/source/DeclarationParser.h"

namespace quillon::vbscript {
namespace {

class ProgramParser final : public DeclarationParser {
  public:
    ProgramParser(const TokenList& tokens, Program& program, Names& names)
        : DeclarationParser(tokens, program, names) {}

    void ParseModule() {
        ParseOption();
        m_program.body = ParseBlock(BlockEnd::Text);
        m_program.end = Now().place;
    }

    // A text without an expression is Empty.
    void ParseSingleExpression() {
        AssignStatement node{};
        node.kind = StatementKind::Assign;
        SkipLineEnds();
        node.place = Now().place;
        node.value = Is(TokenKind::EndOfText) ? MakeEmpty() : ParseExpression();
        SkipLineEnds();
        if (!Is(TokenKind::EndOfText))
            Fail(numbers::ExpectedEndOfStatement);
        m_program.body = Keep(std::vector<Statement*>{Make(node)});
    }

  private:
    void SkipLineEnds() {
        while (Take(TokenKind::NewLine)) {
        }
    }

    Expression* MakeEmpty() {
        LiteralExpression node{};
        node.kind = ExpressionKind::Literal;
        node.place = Now().place;
        node.literal = LiteralKind::Empty;
        return Make(node);
    }

    void ParseOption() {
        SkipSeparators();
        if (!Take(Keyword::Option))
            return;
        Expect(Keyword::Explicit, numbers::SyntaxError);
        EndStatement();
        m_program.isExplicit = true;
    }
};

bool IsBefore(Place left, Place right) noexcept {
    return left.line < right.line || (left.line == right.line && left.column < right.column);
}

} // namespace

std::unique_ptr<Program> Parse(std::u16string_view text, Names& names, ProgramKind kind) {
    auto program = std::make_unique<Program>();
    const TokenList tokens = Tokenize(text, names);
    ProgramParser parser(tokens, *program, names);
    try {
        if (kind == ProgramKind::Expression)
            parser.ParseSingleExpression();
        else
            parser.ParseModule();
    } catch (const CompileFailure& failure) {
        if (!tokens.failure || IsBefore(failure.place(), tokens.failure->place()))
            throw;
    }
    if (tokens.failure) // the parser got no farther than the word that cannot be read
        throw CompileFailure(*tokens.failure);
    return program;
}

} // namespace quillon::vbscript
