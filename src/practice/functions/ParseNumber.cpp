#include "practice/functions/ParseNumber.h"

#include <cctype>

namespace quillon::practice {

namespace {

class NumberReader {
  public:
    NumberReader(std::string_view text, const NumberParts& parts, const Culture& culture)
        : m_rest(text)
        , m_parts(parts)
        , m_culture(culture) {}

    std::optional<std::string> Read() {
        while (TakeBefore()) {
        }
        if (!TakeDigits())
            return {};
        if (m_parts.exponent)
            TakeExponent();
        while (TakeBehind()) {
        }
        if (!m_rest.empty() || m_isOpen)
            return {};
        return (m_isNegative ? "-" : "") + m_plain;
    }

  private:
    char Peek() const { return m_rest.empty() ? '\0' : m_rest.front(); }
    bool AtDigit() const { return std::isdigit(static_cast<unsigned char>(Peek())) != 0; }

    bool Take(std::string_view expected) {
        if (expected.empty() || !m_rest.starts_with(expected))
            return false;
        m_rest.remove_prefix(expected.size());
        return true;
    }

    bool TakeBlank() {
        return Take(" ") || Take("\t") || Take("\n") || Take("\v") || Take("\f") || Take("\r");
    }

    bool TakeSign() {
        if (m_isSigned)
            return false;
        m_isNegative = Peek() == '-';
        m_isSigned = Take("-") || Take("+");
        return m_isSigned;
    }

    bool TakeSymbol() {
        if (!m_parts.money || m_hasSymbol)
            return false;
        m_hasSymbol = Take(m_culture.currencySymbol);
        return m_hasSymbol;
    }

    bool TakeBefore() {
        if ((!m_isSigned || m_hasSymbol) && TakeBlank())
            return true;
        if (m_parts.money && !m_isSigned && Take("(")) {
            m_isOpen = m_isSigned = m_isNegative = true;
            return true;
        }
        return TakeSign() || TakeSymbol();
    }

    bool TakeBehind() {
        if (m_isOpen && Take(")")) {
            m_isOpen = false;
            return true;
        }
        return TakeBlank() || (m_parts.closingSign && TakeSign()) || TakeSymbol();
    }

    bool TakeDigits() {
        bool hasDigit = false, hasPoint = false;
        for (;;) {
            if (AtDigit()) {
                hasDigit = true;
                m_plain.push_back(Peek());
                m_rest.remove_prefix(1);
            } else if (!hasPoint && Take(m_culture.decimalPoint)) {
                hasPoint = true;
                m_plain.push_back('.');
            } else if (!m_parts.groups || !hasDigit || hasPoint || !Take(m_culture.groupSeparator)) {
                return hasDigit;
            }
        }
    }

    void TakeExponent() {
        const std::string_view before = m_rest;
        if (!Take("e") && !Take("E"))
            return;
        std::string exponent = "e";
        if (Peek() == '-')
            exponent += '-';
        if (!Take("-"))
            Take("+");
        if (!AtDigit()) {
            m_rest = before;
            return;
        }
        for (; AtDigit(); m_rest.remove_prefix(1))
            exponent.push_back(Peek());
        m_plain += exponent;
    }

    std::string_view m_rest;
    const NumberParts& m_parts;
    const Culture& m_culture;
    bool m_isSigned = false, m_isNegative = false, m_isOpen = false, m_hasSymbol = false;
    std::string m_plain;
};

} // namespace

std::optional<std::string> PlainNumber(std::string_view text, const NumberParts& parts,
                                       const Culture& culture) {
    return NumberReader(text, parts, culture).Read();
}

} // namespace quillon::practice
