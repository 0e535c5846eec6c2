#include "jscript/Tokens.h"

#include <algorithm>
#include <array>

namespace quillon::jscript {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsWordStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '$' || c == '\\' ||
           static_cast<unsigned char>(c) >= 0x80;
}
bool IsWordPart(char c) {
    return IsWordStart(c) || IsDigit(c);
}
bool IsLineEnd(char c) {
    return c == '\n' || c == '\r';
}

constexpr std::array<std::string_view, 12> Operators{
    "return", "typeof", "instanceof", "in", "new", "delete", "void", "throw", "case", "else", "do", "of"};

class Tokenizer {
  public:
    explicit Tokenizer(std::string_view script)
        : m_script(script) {}

    std::vector<Token> Run() {
        for (SkipBlanks(); m_at < m_script.size(); SkipBlanks()) {
            const std::size_t start = m_at;
            const TokenKind kind = TakeOne();
            m_tokens.push_back({kind, m_script.substr(start, m_at - start), start});
        }
        return std::move(m_tokens);
    }

  private:
    char Peek(std::size_t ahead = 0) const {
        return m_at + ahead < m_script.size() ? m_script[m_at + ahead] : '\0';
    }

    void SkipBlanks() {
        while (m_at < m_script.size()) {
            const char c = Peek();
            if (c == ' ' || (c >= '\t' && c <= '\r'))
                ++m_at;
            else if (c == '/' && Peek(1) == '/')
                m_at = std::min(m_script.find_first_of("\r\n", m_at), m_script.size());
            else if (c == '/' && Peek(1) == '*')
                SkipPast(m_script.find("*/", m_at + 2), 2);
            else
                return;
        }
    }

    void SkipPast(std::size_t found, std::size_t length) {
        m_at = found == std::string_view::npos ? m_script.size() : found + length;
    }

    TokenKind TakeOne() {
        const char c = Peek();
        if (IsWordStart(c)) {
            while (m_at < m_script.size() && IsWordPart(Peek()))
                ++m_at;
            return TokenKind::Word;
        }
        if (IsDigit(c) || (c == '.' && IsDigit(Peek(1)))) {
            TakeNumber();
            return TokenKind::Number;
        }
        if (c == '"' || c == '\'') {
            TakeText(c);
            return TokenKind::Text;
        }
        if (c == '/' && ExpressionMayStart()) {
            TakeExpression();
            return TokenKind::Expression;
        }
        ++m_at;
        return TokenKind::Mark;
    }

    // The point belongs to the number: `1.toString` is none, `1..toString` is two tokens and a word.
    void TakeNumber() {
        bool point = false;
        for (; m_at < m_script.size(); ++m_at) {
            const char c = Peek();
            const bool sign = (c == '+' || c == '-') && (m_script[m_at - 1] | 0x20) == 'e' && !m_hex;
            if (c == '.' && !point)
                point = true;
            else if (!IsWordPart(c) && !sign)
                break;
            m_hex = m_hex || c == 'x' || c == 'X';
        }
        m_hex = false;
    }

    void TakeText(char quote) {
        for (++m_at; m_at < m_script.size() && Peek() != quote && !IsLineEnd(Peek()); ++m_at) {
            if (Peek() != '\\')
                continue;
            ++m_at; // whatever is escaped, a line end included
            if (Peek() == '\r' && Peek(1) == '\n')
                ++m_at;
        }
        m_at = std::min(m_at + 1, m_script.size());
    }

    void TakeExpression() {
        bool inSet = false;
        for (++m_at; m_at < m_script.size() && !IsLineEnd(Peek()) && (inSet || Peek() != '/'); ++m_at) {
            if (Peek() == '\\')
                ++m_at;
            else if (Peek() == '[' || Peek() == ']')
                inSet = Peek() == '[';
        }
        m_at = std::min(m_at + 1, m_script.size());
        while (m_at < m_script.size() && IsWordPart(Peek()))
            ++m_at;
    }

    // Behind a value a slash divides.
    bool ExpressionMayStart() const {
        if (m_tokens.empty())
            return true;
        const Token& last = m_tokens.back();
        if (last.kind == TokenKind::Word)
            return IsOperatorWord(last.text);
        if (last.kind != TokenKind::Mark)
            return false;
        return last.text != ")" && last.text != "]" && last.text != "}";
    }

    std::string_view m_script;
    std::size_t m_at = 0;
    bool m_hex = false;
    std::vector<Token> m_tokens;
};

} // namespace

bool IsOperatorWord(std::string_view word) {
    return std::ranges::find(Operators, word) != Operators.end();
}

std::vector<Token> Tokenize(std::string_view script) {
    return Tokenizer(script).Run();
}

} // namespace quillon::jscript
