#include "vbscript/source/Lexer.h"

#include <cmath>

#include "platform/Conversion.h"
#include "platform/FailureNumbers.h"
#include "vbscript/machine/Convert.h"
#include "vbscript/source/Keywords.h"

namespace quillon::vbscript {
namespace {

constexpr std::size_t LongestName = 255;

bool IsDigit(char16_t c) noexcept {
    return c >= u'0' && c <= u'9';
}
bool IsLetter(char16_t c) noexcept {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c >= 0x00C0;
}
bool IsNamePart(char16_t c) noexcept {
    return IsLetter(c) || IsDigit(c) || c == u'_';
}
bool IsBlank(char16_t c) noexcept {
    return c == u' ' || c == u'\t' || c == u'\v' || c == u'\f' || c == 0x00A0 || c == 0x3000 || c == 0xFEFF;
}
bool IsLineEnd(char16_t c) noexcept {
    return c == u'\n' || c == u'\r';
}
int DigitOf(char16_t c) noexcept {
    if (IsDigit(c))
        return c - u'0';
    const char16_t lower = LowerOf(c);
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : 99;
}

class Lexer {
  public:
    Lexer(std::u16string_view program, Names& names)
        : m_program(program)
        , m_names(names) {}

    TokenList Run() {
        try {
            while (Next()) {
            }
        } catch (const CompileFailure& failure) {
            m_list.failure = failure;
            Add(TokenKind::EndOfText, 0);
        }
        return std::move(m_list);
    }

  private:
    char16_t Peek(std::size_t ahead = 0) const noexcept {
        return m_at + ahead < m_program.size() ? m_program[m_at + ahead] : u'\0';
    }
    bool AtEnd() const noexcept { return m_at >= m_program.size(); }
    Place Here() const noexcept { return {m_line, static_cast<std::int32_t>(m_at - m_lineStart)}; }
    [[noreturn]] void Fail(std::int32_t number) const { throw CompileFailure(number, Here()); }

    void SkipLineEnd() noexcept {
        m_at += Peek() == u'\r' && Peek(1) == u'\n' ? 2 : 1;
        ++m_line;
        m_lineStart = m_at;
    }

    void SkipToLineEnd() noexcept {
        while (!AtEnd() && !IsLineEnd(Peek()))
            ++m_at;
    }

    // Blanks and continued lines; true if there were any.
    bool SkipBlanks() {
        const std::size_t start = m_at;
        for (;;) {
            while (IsBlank(Peek()))
                ++m_at;
            if (Peek() != u'_')
                break;
            std::size_t behind = 1;
            while (IsBlank(Peek(behind)))
                ++behind;
            if (!IsLineEnd(Peek(behind)))
                break;
            m_at += behind;
            SkipLineEnd();
        }
        return m_at != start;
    }

    Token& Add(TokenKind kind, std::size_t length = 1) {
        Token& token = m_list.tokens.emplace_back();
        token.kind = kind;
        token.place = Here();
        token.blankBefore = m_blankBefore;
        m_at += length;
        return token;
    }

    bool Next() {
        m_blankBefore = SkipBlanks() || m_at == m_lineStart;
        const char16_t c = Peek();
        if (AtEnd()) {
            Add(TokenKind::EndOfText, 0);
            return false;
        }
        if (IsLineEnd(c)) {
            Add(TokenKind::NewLine, 0);
            SkipLineEnd();
        } else if (c == u'\'') {
            SkipToLineEnd();
        } else if (IsLetter(c)) {
            ReadName();
        } else if (IsDigit(c) || (c == u'.' && IsDigit(Peek(1)))) {
            ReadNumber();
        } else if (c == u'"') {
            ReadString();
        } else if (c == u'#') {
            ReadDate();
        } else if (c == u'[') {
            ReadBracketed();
        } else if (c == u'&' && ReadBased()) {
        } else {
            ReadSign(c);
        }
        return true;
    }

    void ReadName() {
        std::size_t length = 1;
        while (IsNamePart(Peek(length)))
            ++length;
        if (length > LongestName)
            Fail(numbers::IdentifierTooLong);
        const std::u16string_view name = m_program.substr(m_at, length);
        const bool isMember = !m_list.tokens.empty() && m_list.tokens.back().kind == TokenKind::Dot;
        const Keyword keyword = isMember ? Keyword::None : KeywordOf(name);
        if (keyword == Keyword::Rem) {
            SkipToLineEnd();
            return;
        }
        const NameId id = m_names.Intern(name);
        Token& token = Add(TokenKind::Name, length);
        token.name = id;
        token.keyword = keyword;
    }

    void ReadBracketed() {
        const std::size_t end = m_program.find_first_of(u"]\r\n", m_at + 1);
        if (end == std::u16string_view::npos || m_program[end] != u']')
            Fail(numbers::ExpectedCloseSquareBracket);
        const std::u16string_view name = m_program.substr(m_at + 1, end - m_at - 1);
        if (name.empty())
            Fail(numbers::ExpectedIdentifier);
        if (name.size() > LongestName)
            Fail(numbers::IdentifierTooLong);
        const NameId id = m_names.Intern(name);
        Add(TokenKind::Name, end + 1 - m_at).name = id;
    }

    void ReadNumber() {
        std::size_t length = 0;
        const auto digits = [&] {
            while (IsDigit(Peek(length)))
                ++length;
        };
        digits();
        bool whole = true;
        if (Peek(length) == u'.') {
            whole = false;
            ++length;
            digits();
        }
        if (LowerOf(Peek(length)) == u'e') {
            const std::size_t sign = Peek(length + 1) == u'+' || Peek(length + 1) == u'-' ? 1 : 0;
            if (IsDigit(Peek(length + 1 + sign))) {
                whole = false;
                length += 1 + sign;
                digits();
            }
        }
        const std::u16string_view spelling = m_program.substr(m_at, length);
        const double number = NumberOf(spelling);
        if (!MayEndNumber(length))
            Fail(numbers::InvalidNumber);
        const TokenKind kind = !whole || number > INT32_MAX ? TokenKind::Double
                               : number > INT16_MAX         ? TokenKind::Long
                                                            : TokenKind::Integer;
        Add(kind, length).number = number;
    }

    // A word of the language may follow a number without a blank (`If x = 1Then`), a name may not.
    bool MayEndNumber(std::size_t length) const {
        std::size_t end = length;
        while (IsNamePart(Peek(end)))
            ++end;
        return end == length || KeywordOf(m_program.substr(m_at + length, end - length)) != Keyword::None;
    }

    double NumberOf(std::u16string_view spelling) const {
        try {
            if (const std::optional<double> number = NumberIn(spelling); number && std::isfinite(*number))
                return *number;
        } catch (const Failure&) { // out of range
        }
        Fail(numbers::InvalidNumber);
    }

    // &HFF, &O17, &17, each with an optional & behind; false if the & is the operator.
    bool ReadBased() {
        const char16_t letter = LowerOf(Peek(1));
        const unsigned base = letter == u'h'                                         ? 16
                              : letter == u'o' || (letter >= u'0' && letter <= u'7') ? 8
                                                                                     : 0;
        std::size_t length = letter == u'h' || letter == u'o' ? 2 : 1;
        if (base == 0 || DigitOf(Peek(length)) >= static_cast<int>(base))
            return false;
        std::uint64_t value = 0;
        for (int digit = DigitOf(Peek(length)); digit < static_cast<int>(base);
             digit = DigitOf(Peek(++length)))
            value = std::min<std::uint64_t>(value * base + static_cast<unsigned>(digit), UINT64_C(1) << 40);
        if (!MayEndNumber(length)) {
            if (letter == u'h' || letter == u'o')
                return false; // a name behind the operator
            Fail(numbers::InvalidNumber);
        }
        if (value > UINT32_MAX)
            Fail(numbers::InvalidNumber);
        const bool isLong = Peek(length) == u'&';
        length += isLong ? 1 : 0;
        AddBased(static_cast<std::uint32_t>(value), isLong, length);
        return true;
    }

    // Without the & behind it a number of 16 bits has its sign in the highest of them.
    void AddBased(std::uint32_t value, bool isLong, std::size_t length) {
        const std::int32_t number = !isLong && value <= UINT16_MAX ? static_cast<std::int16_t>(value)
                                                                   : static_cast<std::int32_t>(value);
        const bool isInteger = number >= INT16_MIN && number <= INT16_MAX;
        Add(isInteger ? TokenKind::Integer : TokenKind::Long, length).number = number;
    }

    void ReadString() {
        std::u16string& text = m_list.texts.emplace_back();
        std::size_t length = 1;
        for (;; ++length) {
            if (m_at + length >= m_program.size() || IsLineEnd(Peek(length))) {
                m_at += length;
                Fail(numbers::UnterminatedString);
            }
            if (Peek(length) == u'"' && Peek(++length) != u'"')
                break;
            text.push_back(Peek(length));
        }
        Add(TokenKind::String, length).text = text;
    }

    void ReadDate() {
        const std::size_t end = m_program.find_first_of(u"#\r\n", m_at + 1);
        if (end == std::u16string_view::npos || m_program[end] != u'#')
            Fail(numbers::SyntaxError);
        const std::string spelling = ToUtf8(m_program.substr(m_at + 1, end - m_at - 1));
        const std::optional<DateValue> date = conversion::ParseDate(spelling);
        if (!date)
            Fail(numbers::SyntaxError);
        Add(TokenKind::Date, end + 1 - m_at).number = date->days;
    }

    void ReadSign(char16_t c) {
        const char16_t second = Peek(1);
        switch (c) {
        case u':': Add(TokenKind::Colon); break;
        case u'(': Add(TokenKind::OpenBracket); break;
        case u')': Add(TokenKind::CloseBracket); break;
        case u',': Add(TokenKind::Comma); break;
        case u'.': Add(TokenKind::Dot); break;
        case u'+': Add(TokenKind::Plus); break;
        case u'-': Add(TokenKind::Minus); break;
        case u'*': Add(TokenKind::Times); break;
        case u'/': Add(TokenKind::Divide); break;
        case u'\\': Add(TokenKind::WholeDivide); break;
        case u'^': Add(TokenKind::Power); break;
        case u'&': Add(TokenKind::Concatenate); break;
        case u'=':
            if (second == u'<')
                Add(TokenKind::LessOrEqual, 2);
            else if (second == u'>')
                Add(TokenKind::GreaterOrEqual, 2);
            else
                Add(TokenKind::Equal);
            break;
        case u'<':
            if (second == u'>')
                Add(TokenKind::NotEqual, 2);
            else
                Add(second == u'=' ? TokenKind::LessOrEqual : TokenKind::Less, second == u'=' ? 2 : 1);
            break;
        case u'>':
            if (second == u'<')
                Add(TokenKind::NotEqual, 2);
            else
                Add(second == u'=' ? TokenKind::GreaterOrEqual : TokenKind::Greater, second == u'=' ? 2 : 1);
            break;
        default: Fail(numbers::InvalidCharacter);
        }
    }

    std::u16string_view m_program;
    Names& m_names;
    TokenList m_list;
    std::size_t m_at = 0;
    std::size_t m_lineStart = 0;
    std::int32_t m_line = 1;
    bool m_blankBefore = false;
};

} // namespace

TokenList Tokenize(std::u16string_view program, Names& names) {
    return Lexer(program, names).Run();
}

} // namespace quillon::vbscript
