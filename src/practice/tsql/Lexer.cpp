#include "practice/tsql/Lexer.h"

#include "practice/tsql/Characters.h"
#include "practice/values/SqlError.h"

namespace quillon::practice::tsql {

namespace {

constexpr std::size_t kLongestName = 128;

std::string Undouble(std::string_view inner, char delimiter) {
    std::string value;
    value.reserve(inner.size());
    for (std::size_t i = 0; i < inner.size(); ++i) {
        value += inner[i];
        if (inner[i] == delimiter)
            ++i;
    }
    return value;
}

class Scanner {
  public:
    explicit Scanner(std::string_view text)
        : m_text(text) {}

    std::vector<Token> Run() {
        std::vector<Token> tokens;
        tokens.reserve(m_text.size() / 5 + 1);
        for (;;) {
            SkipBlanks();
            Begin();
            if (m_at < m_text.size())
                Scan();
            m_token.end = m_at;
            tokens.push_back(m_token);
            if (m_token.kind == TokenKind::End)
                return tokens;
        }
    }

  private:
    char Peek(std::size_t ahead = 0) const {
        return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : '\0';
    }

    void Begin() {
        m_token = Token{};
        m_token.begin = m_at;
        m_token.line = m_line;
    }

    /// One byte on, counting the line that ends there.
    void Advance() {
        const char c = m_text[m_at++];
        if (c == '\n' || (c == '\r' && Peek() != '\n'))
            ++m_line;
    }

    [[noreturn]] void Fail(int number, std::initializer_list<std::string_view> parameters = {}) const {
        SqlError error(number, parameters);
        error.line = static_cast<int>(m_token.line);
        throw error;
    }

    void SkipBlanks() {
        while (m_at < m_text.size()) {
            if (const std::size_t blank = BlankLength(m_text, m_at)) {
                for (std::size_t i = 0; i < blank; ++i)
                    Advance();
            } else if (Peek() == '-' && Peek(1) == '-') {
                while (m_at < m_text.size() && Peek() != '\n' && Peek() != '\r')
                    ++m_at;
            } else if (Peek() == '/' && Peek(1) == '*') {
                SkipComment();
            } else {
                return;
            }
        }
    }

    void SkipComment() {
        Begin();
        int depth = 0;
        do {
            if (m_at >= m_text.size())
                Fail(113);
            const bool opens = Peek() == '/' && Peek(1) == '*';
            const bool closes = Peek() == '*' && Peek(1) == '/';
            depth += opens ? 1 : closes ? -1 : 0;
            Advance();
            if (opens || closes)
                Advance();
        } while (depth > 0);
    }

    void Scan() {
        const char c = Peek();
        if (c == '\'')
            Quoted(TokenKind::String, '\'');
        else if ((c == 'N' || c == 'n') && Peek(1) == '\'') {
            ++m_at;
            Quoted(TokenKind::NString, '\'');
        } else if (c == '"')
            Quoted(TokenKind::DoubleQuoted, '"');
        else if (c == '[')
            Quoted(TokenKind::Bracketed, ']');
        else if (IsDigit(c) || (c == '.' && IsDigit(Peek(1))))
            Number();
        else if (c == '@')
            Variable();
        else if (const std::size_t sign = CurrencyLength(m_text, m_at))
            Currency(sign);
        else if (IsNameStart(m_text, m_at))
            Word();
        else
            Sign();
    }

    void Quoted(TokenKind kind, char close) {
        m_token.kind = kind;
        const std::size_t inner = ++m_at;
        for (;;) {
            if (m_at >= m_text.size())
                Fail(105, {m_text.substr(inner)});
            if (Peek() != close) {
                Advance();
            } else if (Peek(1) == close) {
                m_at += 2;
            } else {
                break;
            }
        }
        if (kind == TokenKind::Bracketed)
            CheckName(m_text.substr(inner, m_at - inner));
        ++m_at;
    }

    void CheckName(std::string_view name) const {
        if (name.empty())
            Fail(1038);
        if (name.size() <= kLongestName)
            return;
        const std::string plain = Undouble(name, ']');
        if (CharacterCount(plain) > kLongestName)
            Fail(103, {"identifier", std::string_view(plain).substr(0, PrefixLength(plain, kLongestName)),
                       std::to_string(kLongestName)});
    }

    void SkipName() {
        while (m_at < m_text.size()) {
            const std::size_t length = NamePartLength(m_text, m_at);
            if (length == 0)
                return;
            m_at += length;
        }
    }

    void Word() {
        SkipName();
        m_token.kind = TokenKind::Identifier;
        const std::string_view word = m_text.substr(m_token.begin, m_at - m_token.begin);
        m_token.keyword = FindKeyword(word);
        CheckName(word);
    }

    void Variable() {
        m_token.kind = Peek(1) == '@' ? TokenKind::GlobalVariable : TokenKind::Variable;
        SkipName();
        CheckName(m_text.substr(m_token.begin, m_at - m_token.begin));
    }

    void Currency(std::size_t sign) {
        m_at += sign;
        if (m_text[m_token.begin] == '$' && IsNameStart(m_text, m_at)) {
            SkipName();
            m_token.kind = TokenKind::PseudoColumn;
            return;
        }
        if (Peek() == '-' || Peek() == '+')
            ++m_at;
        Digits();
        if (Peek() == '.') {
            ++m_at;
            Digits();
        }
        m_token.kind = TokenKind::Money;
    }

    void Digits() {
        while (IsDigit(Peek()))
            ++m_at;
    }

    void Number() {
        if (Peek() == '0' && (Peek(1) == 'x' || Peek(1) == 'X')) {
            m_at += 2;
            while (IsHexDigit(Peek()))
                ++m_at;
            m_token.kind = TokenKind::Binary;
            return;
        }
        m_token.kind = TokenKind::Integer;
        Digits();
        if (Peek() == '.') {
            ++m_at;
            Digits();
            m_token.kind = TokenKind::Decimal;
        }
        if (Peek() == 'e' || Peek() == 'E')
            Exponent();
    }

    void Exponent() {
        const std::size_t sign = Peek(1) == '+' || Peek(1) == '-' ? 1 : 0;
        if (!IsDigit(Peek(1 + sign)))
            return;
        m_at += 1 + sign;
        Digits();
        m_token.kind = TokenKind::Float;
    }

    void Sign() {
        struct Row {
            std::string_view text;
            Symbol symbol;
        };
        // Longer ones first.
        static constexpr Row rows[] = {
            {"<>", Symbol::NotEqual},   {"!=", Symbol::NotEqual},     {"<=", Symbol::LessEqual},
            {"!>", Symbol::LessEqual},  {">=", Symbol::GreaterEqual}, {"!<", Symbol::GreaterEqual},
            {"+=", Symbol::PlusEqual},  {"-=", Symbol::MinusEqual},   {"*=", Symbol::StarEqual},
            {"/=", Symbol::SlashEqual}, {"%=", Symbol::PercentEqual}, {"&=", Symbol::AmpersandEqual},
            {"|=", Symbol::BarEqual},   {"^=", Symbol::CaretEqual},   {"::", Symbol::DoubleColon},
            {"(", Symbol::LeftParen},   {")", Symbol::RightParen},    {",", Symbol::Comma},
            {";", Symbol::Semicolon},   {".", Symbol::Point},         {":", Symbol::Colon},
            {"{", Symbol::LeftBrace},   {"}", Symbol::RightBrace},    {"+", Symbol::Plus},
            {"-", Symbol::Minus},       {"*", Symbol::Star},          {"/", Symbol::Slash},
            {"%", Symbol::PercentSign}, {"&", Symbol::Ampersand},     {"|", Symbol::Bar},
            {"^", Symbol::Caret},       {"~", Symbol::Tilde},         {"=", Symbol::Equal},
            {"<", Symbol::Less},        {">", Symbol::Greater},
        };
        m_token.kind = TokenKind::Symbol;
        for (const Row& row : rows) {
            if (m_text.substr(m_at, row.text.size()) == row.text) {
                m_token.symbol = row.symbol;
                m_at += row.text.size();
                return;
            }
        }
        m_token.symbol = Symbol::Unknown;
        m_at += CharacterLength(m_text, m_at);
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    std::uint32_t m_line = 1;
    Token m_token;
};

/// `inner` with every doubled `delimiter` made single.
} // namespace

std::vector<Token> Tokenize(std::string_view text) {
    return Scanner(text).Run();
}

std::string TokenValue(std::string_view text, const Token& token) {
    const std::string_view whole = text.substr(token.begin, token.end - token.begin);
    switch (token.kind) {
    case TokenKind::String: return Undouble(whole.substr(1, whole.size() - 2), '\'');
    case TokenKind::NString: return Undouble(whole.substr(2, whole.size() - 3), '\'');
    case TokenKind::DoubleQuoted: return Undouble(whole.substr(1, whole.size() - 2), '"');
    case TokenKind::Bracketed: return Undouble(whole.substr(1, whole.size() - 2), ']');
    default: return std::string(whole);
    }
}

} // namespace quillon::practice::tsql
