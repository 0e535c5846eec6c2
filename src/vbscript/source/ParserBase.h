// What the parts of the parser share: the tokens, the arena and the depth guard.
#pragma once

#include <initializer_list>
#include <span>
#include <vector>

#include "platform/FailureNumbers.h"
#include "vbscript/source/Lexer.h"
#include "vbscript/source/Tree.h"

namespace quillon::vbscript {

class ParserBase {
  protected:
    static constexpr int DeepestNesting = 400;
    static constexpr int DeepestExpression = 400;

    ParserBase(const TokenList& tokens, Program& program)
        : m_tokens(tokens.tokens)
        , m_program(program)
        , m_scope(&program) {}

    // --- tokens ---
    const Token& Now() const noexcept { return m_tokens[m_at]; }
    const Token& Ahead(std::size_t count = 1) const noexcept {
        return m_tokens[std::min(m_at + count, m_tokens.size() - 1)];
    }
    bool Is(TokenKind kind) const noexcept { return Now().kind == kind; }
    bool Is(Keyword keyword) const noexcept { return Now().keyword == keyword; }
    void Skip() noexcept { m_at += m_at + 1 < m_tokens.size() ? 1 : 0; }
    template <class What>
    bool Take(What what) noexcept {
        if (!Is(what))
            return false;
        Skip();
        return true;
    }
    template <class What>
    void Expect(What what, std::int32_t failure) {
        if (!Take(what))
            Fail(failure);
    }
    [[noreturn]] void Fail(std::int32_t number) const { throw CompileFailure(number, Now().place); }

    // A name that is no reserved word.
    bool IsName() const noexcept {
        return Is(TokenKind::Name) && (Now().keyword == Keyword::None || Now().keyword >= Keyword::Default);
    }
    NameId TakeName() {
        if (!IsName())
            Fail(numbers::ExpectedIdentifier);
        const NameId name = Now().name;
        Skip();
        return name;
    }
    bool IsLineEnd() const noexcept { return Is(TokenKind::NewLine) || Is(TokenKind::EndOfText); }
    bool IsStatementEnd() const noexcept { return IsLineEnd() || Is(TokenKind::Colon); }

    // --- the arena ---
    template <class Node>
    Node* Make(Node node) {
        return new (m_program.arena.allocate(sizeof(Node), alignof(Node))) Node(node);
    }
    template <class Item>
    std::span<Item> Keep(const std::vector<Item>& items) {
        if (items.empty())
            return {};
        void* memory = m_program.arena.allocate(items.size() * sizeof(Item), alignof(Item));
        std::uninitialized_copy(items.begin(), items.end(), static_cast<Item*>(memory));
        return {static_cast<Item*>(memory), items.size()};
    }
    std::u16string_view Keep(std::u16string_view text) {
        if (text.empty())
            return {};
        void* memory = m_program.arena.allocate(text.size() * sizeof(char16_t), alignof(char16_t));
        std::ranges::copy(text, static_cast<char16_t*>(memory));
        return {static_cast<const char16_t*>(memory), text.size()};
    }

    // One level of nesting, for as long as it lives.
    class Level {
      public:
        explicit Level(ParserBase& parser)
            : m_parser(parser) {
            if (parser.m_depth == DeepestNesting)
                parser.Fail(numbers::CompileOutOfMemory);
            ++parser.m_depth;
        }
        ~Level() { --m_parser.m_depth; }
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;

      private:
        ParserBase& m_parser;
    };

    const std::vector<Token>& m_tokens;
    std::size_t m_at = 0;
    Program& m_program;
    Scope* m_scope;
    int m_withDepth = 0;

  private:
    int m_depth = 0;
};

} // namespace quillon::vbscript
