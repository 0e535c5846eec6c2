#include "jscript/Tokens.h"

#include <algorithm>

#include "jscript/Brackets.h"

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
// A blank or a line end beyond the first 128 characters: no-break space, byte-order mark, separators.
std::size_t WideBlankAt(std::string_view script, std::size_t at) {
    for (const std::string_view blank : {"\xC2\xA0", "\xEF\xBB\xBF", "\xE2\x80\xA8", "\xE2\x80\xA9"})
        if (script.substr(at).starts_with(blank))
            return blank.size();
    return 0;
}
class Tokenizer {
  public:
    explicit Tokenizer(std::string_view script)
        : m_script(script) {}

    std::vector<Token> Run() {
        for (SkipBlanks(); m_at < m_script.size(); SkipBlanks()) {
            const std::size_t start = m_at;
            const TokenKind kind = TakeOne();
            m_tokens.push_back({kind, m_script.substr(start, m_at - start), start, false});
            m_brackets.Take(m_tokens.back());
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
            if (AtConditional())
                return;
            if (c == ' ' || (c >= '\t' && c <= '\r'))
                ++m_at;
            else if (const std::size_t blank = WideBlankAt(m_script, m_at))
                m_at += blank;
            else if (c == '/' && Peek(1) == '/')
                SkipLine();
            else if (c == '/' && Peek(1) == '*')
                SkipPast(m_script.find("*/", m_at + 2), 2);
            else
                return;
        }
    }

    bool AtConditional() const {
        return Peek() == '/' && (Peek(1) == '*' || Peek(1) == '/') &&
               m_script.substr(m_at + 2).starts_with("@cc_on");
    }

    void SkipLine() {
        while (m_at < m_script.size() && LineEndAt(m_script, m_at) == 0)
            ++m_at;
    }

    void SkipPast(std::size_t found, std::size_t length) {
        m_at = found == std::string_view::npos ? m_script.size() : found + length;
    }

    TokenKind TakeOne() {
        const char c = Peek();
        if (AtConditional()) {
            m_at += std::string_view("/*@cc_on").size();
            return TokenKind::Conditional;
        }
        if (IsWordStart(c)) {
            while (m_at < m_script.size() && IsWordPart(Peek()) && WideBlankAt(m_script, m_at) == 0)
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
        if (c == '/' && m_brackets.OperandComes()) {
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
        for (++m_at; m_at < m_script.size() && Peek() != quote && LineEndAt(m_script, m_at) == 0; ++m_at) {
            if (Peek() != '\\')
                continue;
            ++m_at; // whatever is escaped, a line end included
            if (const std::size_t end = LineEndAt(m_script, m_at))
                m_at += end - 1;
        }
        m_at = std::min(m_at + (Peek() == quote), m_script.size());
    }

    void TakeExpression() {
        bool inSet = false;
        for (++m_at; m_at < m_script.size() && LineEndAt(m_script, m_at) == 0 && (inSet || Peek() != '/');
             ++m_at) {
            if (Peek() == '\\')
                ++m_at;
            else if (Peek() == '[' || Peek() == ']')
                inSet = Peek() == '[';
        }
        m_at = std::min(m_at + (Peek() == '/'), m_script.size());
        while (m_at < m_script.size() && IsWordPart(Peek()))
            ++m_at;
    }

    std::string_view m_script;
    std::size_t m_at = 0;
    bool m_hex = false;
    std::vector<Token> m_tokens;
    Brackets m_brackets;
};

} // namespace

std::size_t LineEndAt(std::string_view script, std::size_t at) {
    const std::string_view rest = script.substr(std::min(at, script.size()));
    if (rest.starts_with('\n'))
        return 1;
    if (rest.starts_with('\r'))
        return rest.starts_with("\r\n") ? 2 : 1;
    return rest.starts_with("\xE2\x80\xA8") || rest.starts_with("\xE2\x80\xA9") ? 3 : 0;
}

std::vector<Token> Tokenize(std::string_view script) {
    return Tokenizer(script).Run();
}

} // namespace quillon::jscript
