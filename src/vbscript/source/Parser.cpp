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

    void ParseSingleExpression() {
        AssignStatement node{};
        node.kind = StatementKind::Assign;
        node.place = Now().place;
        SkipSeparators();
        node.value = ParseExpression();
        SkipSeparators();
        if (!Is(TokenKind::EndOfText))
            Fail(numbers::ExpectedEndOfStatement);
        m_program.body = Keep(std::vector<Statement*>{Make(node)});
    }

  private:
    void ParseOption() {
        SkipSeparators();
        if (!Take(Keyword::Option))
            return;
        Expect(Keyword::Explicit, numbers::SyntaxError);
        EndStatement();
        m_program.isExplicit = true;
    }
};

} // namespace

std::unique_ptr<Program> Parse(std::u16string_view text, Names& names, ProgramKind kind) {
    auto program = std::make_unique<Program>();
    const TokenList tokens = Tokenize(text, names);
    ProgramParser parser(tokens, *program, names);
    if (kind == ProgramKind::Expression)
        parser.ParseSingleExpression();
    else
        parser.ParseModule();
    return program;
}

} // namespace quillon::vbscript
