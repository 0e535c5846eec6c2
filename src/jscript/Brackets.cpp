#include "jscript/Brackets.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quillon::jscript {
namespace {

using namespace std::string_view_literals;

constexpr std::array Operators{"return"sv, "typeof"sv, "instanceof"sv, "in"sv,   "new"sv, "delete"sv,
                               "void"sv,   "throw"sv,  "case"sv,       "else"sv, "do"sv};
// Words with a bracket of their own, behind which a statement comes.
constexpr std::array Controls{"if"sv, "while"sv, "for"sv, "with"sv, "switch"sv, "catch"sv};
// Words behind which a statement comes at once.
constexpr std::array Openers{"else"sv, "do"sv, "try"sv, "finally"sv};

template <std::size_t N>
bool IsOneOf(const std::array<std::string_view, N>& words, std::string_view word) {
    return std::ranges::find(words, word) != words.end();
}

} // namespace

bool IsOperatorWord(std::string_view word) {
    return IsOneOf(Operators, word);
}

void Brackets::Take(Token& token) {
    token.startsStatement = m_statementComes;
    const bool startsStatement = m_statementComes;
    const bool followsValue = m_valueEnded && !m_statementComes;
    m_statementComes = false;
    if (token.kind == TokenKind::Word) {
        if (token.text == "function" && m_last != ".")
            m_functionIsDeclaration = startsStatement || followsValue; // behind a value only on a new line
        TakeWord(token);
    } else if (token.kind == TokenKind::Mark && token.text == "{") {
        OpenBrace(startsStatement || followsValue);
    } else if (token.kind == TokenKind::Mark) {
        TakeMark(token);
    } else {
        m_valueEnded = token.kind != TokenKind::Conditional || m_valueEnded;
    }
    m_beforeLast = std::exchange(m_last, token.text);
    m_lastEnd = token.text.data() + token.text.size();
    m_lastIsWord = token.kind == TokenKind::Word;
}

void Brackets::TakeWord(const Token& token) {
    const bool isName = m_last == ".";
    m_valueEnded = isName || !IsOperatorWord(token.text);
    m_statementComes = !isName && IsOneOf(Openers, token.text);
}

void Brackets::TakeMark(const Token& token) {
    const std::string_view mark = token.text;
    if (mark == "(") {
        const bool isControl = m_lastIsWord && m_beforeLast != "." && IsOneOf(Controls, m_last);
        const bool isHead = m_lastIsWord && (m_last == "function" || m_beforeLast == "function");
        Open(isControl ? Kind::Control : isHead ? Kind::Head : Kind::Group);
    } else if (mark == "[") {
        Open(Kind::Group);
    } else if (mark == ")" || mark == "]" || mark == "}") {
        Close();
    } else if (mark == ":") {
        TakeColon();
    } else if ((mark == "+" || mark == "-") && m_last == mark && m_lastEnd == token.text.data()) {
        m_valueEnded = m_steppedValue; // `a++` is a value as `a` is one
    } else {
        m_steppedValue = m_valueEnded;
        m_valueEnded = false;
        m_statementComes = mark == ";";
        Innermost().questions += mark == "?";
    }
}

void Brackets::Open(Kind kind) {
    m_open.push_back({kind, kind == Kind::Head && m_functionIsDeclaration});
    m_valueEnded = false;
}

// A brace where no operand can stand opens a block.
void Brackets::OpenBrace(bool holdsStatements) {
    const bool isBody = m_last == ")" && m_closed.kind == Kind::Head;
    const bool isDeclaration = isBody && m_closed.isDeclaration;
    m_open.push_back({isBody            ? Kind::Body
                      : holdsStatements ? Kind::Statements
                                        : Kind::Properties,
                      isDeclaration});
    m_valueEnded = false;
    m_statementComes = HoldsStatements();
}

void Brackets::Close() {
    m_closed = m_open.back();
    if (m_open.size() > 1)
        m_open.pop_back();
    m_statementComes = m_closed.kind == Kind::Control || m_closed.kind == Kind::Statements ||
                       (m_closed.kind == Kind::Body && m_closed.isDeclaration);
    m_valueEnded = !m_statementComes;
}

// Behind a label or a case comes a statement; behind a key or a question's colon an operand.
void Brackets::TakeColon() {
    m_valueEnded = false;
    if (Innermost().questions > 0)
        --Innermost().questions;
    else
        m_statementComes = HoldsStatements();
}

bool Brackets::HoldsStatements() const noexcept {
    return m_open.back().kind == Kind::Statements || m_open.back().kind == Kind::Body;
}

} // namespace quillon::jscript
