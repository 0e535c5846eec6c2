// Reading a number from text, as CDbl, CCur and IsNumeric read it.
#include <charconv>
#include <cmath>
#include <limits>

#include "platform/Conversion.h"
#include "platform/ConversionParts.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::conversion {
namespace {

bool IsBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

int HexDigitOf(char c) {
    if (IsDigit(c))
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : 99;
}

// Reads one number; what surrounds the digits may come in any order, each part once.
class NumberReader {
  public:
    explicit NumberReader(std::string_view text)
        : m_text(text) {}

    std::optional<ParsedNumber> Read() {
        SkipBlanks();
        if (Peek() == '&')
            return ReadBased();
        while (TakePrefix())
            SkipBlanks();
        if (!ReadDigits() || !ReadExponent())
            return std::nullopt;
        SkipBlanks();
        while (TakeSuffix())
            SkipBlanks();
        if (!AtEnd() || m_bracketOpen)
            return std::nullopt;
        m_number.negative = m_negative;
        return m_number;
    }

  private:
    bool AtEnd() const { return m_at == m_text.size(); }
    char Peek() const { return AtEnd() ? '\0' : m_text[m_at]; }
    void SkipBlanks() {
        while (!AtEnd() && IsBlank(Peek()))
            ++m_at;
    }

    bool TakeSign(char c) {
        if (m_signSeen || (c != '+' && c != '-'))
            return false;
        m_signSeen = true;
        m_negative = m_negative || c == '-';
        return true;
    }
    bool TakeCurrency(char c) {
        if (m_currencySeen || c != '$')
            return false;
        return m_currencySeen = true;
    }
    bool TakePrefix() {
        const char c = Peek();
        if (c == '(' && !m_bracketOpen)
            m_bracketOpen = m_negative = true;
        else if (!TakeSign(c) && !TakeCurrency(c))
            return false;
        ++m_at;
        return true;
    }
    bool TakeSuffix() {
        const char c = Peek();
        if (c == ')' && m_bracketOpen)
            m_bracketOpen = false;
        else if (!TakeSign(c) && !TakeCurrency(c))
            return false;
        ++m_at;
        return true;
    }

    bool ReadDigits() {
        bool any = false;
        for (bool point = false; !AtEnd(); ++m_at) {
            const char c = Peek();
            if (IsDigit(c)) {
                any = true;
                m_number.digits += c;
                m_number.exponent -= point ? 1 : 0;
            } else if (c == '.' && !point) {
                point = true;
            } else if (c != ',' || !any) {
                break;
            }
        }
        return any;
    }

    // The host takes D for E, as its older relatives did.
    bool ReadExponent() {
        const char c = static_cast<char>(Peek() | 0x20);
        if (c != 'e' && c != 'd')
            return true;
        ++m_at;
        const bool negative = Peek() == '-';
        if (negative || Peek() == '+')
            ++m_at;
        if (!IsDigit(Peek()))
            return false;
        constexpr int ceiling = 100'000; // far beyond any range, and far from overflowing
        int power = 0;
        for (; IsDigit(Peek()); ++m_at)
            power = std::min(power * 10 + (Peek() - '0'), ceiling);
        m_number.exponent += negative ? -power : power;
        return true;
    }

    // &H and &O: at most 64 bits.
    std::optional<ParsedNumber> ReadBased() {
        ++m_at;
        const char letter = static_cast<char>(Peek() | 0x20);
        if (letter != 'h' && letter != 'o')
            return std::nullopt;
        const int base = letter == 'h' ? 16 : 8;
        ++m_at;
        std::uint64_t bits = 0;
        const std::size_t start = m_at;
        for (; HexDigitOf(Peek()) < base; ++m_at) {
            if (bits > std::numeric_limits<std::uint64_t>::max() / static_cast<std::uint64_t>(base))
                throw Failure(numbers::Overflow);
            bits = bits * static_cast<std::uint64_t>(base) + static_cast<std::uint64_t>(HexDigitOf(Peek()));
        }
        const bool any = m_at != start;
        SkipBlanks();
        if (!any || !AtEnd())
            return std::nullopt;
        m_number.based = true;
        m_number.bits = bits;
        return m_number;
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    ParsedNumber m_number;
    bool m_negative = false, m_signSeen = false, m_currencySeen = false, m_bracketOpen = false;
};

double DecimalToDouble(const ParsedNumber& number) {
    const std::string text = number.digits + "e" + std::to_string(number.exponent);
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        const auto first = number.digits.find_first_not_of('0');
        const auto magnitude = static_cast<long>(number.digits.size() - first) + number.exponent;
        if (magnitude > 0)
            throw Failure(numbers::Overflow);
        return 0;
    }
    return number.negative ? -value : value;
}

// Whether the digits cut off lift the last one kept, half to even. `adjacent` says that no zero stands
// between.
bool RoundsUp(std::string_view cut, std::uint64_t kept, bool adjacent) {
    if (!adjacent || cut.empty() || cut.front() < '5')
        return false;
    const bool exactHalf = cut.front() == '5' && cut.find_first_not_of('0', 1) == cut.npos;
    return !exactHalf || kept % 2 != 0;
}

} // namespace

std::optional<ParsedNumber> ReadNumber(std::string_view text) {
    return NumberReader(text).Read();
}

double DoubleOf(const ParsedNumber& number) {
    if (!number.based)
        return DecimalToDouble(number);
    // Up to eight hexadecimal digits spell a Long, so the top bit of those is a sign.
    if (number.bits <= std::numeric_limits<std::uint32_t>::max())
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(number.bits));
    return static_cast<double>(number.bits);
}

CurrencyValue CurrencyOf(const ParsedNumber& number) {
    // Through the digits, not through a double: a Currency holds more of them than a double does.
    const int places = number.exponent + 4;
    if (number.based || places > 0 || number.digits.size() > 36)
        return CurrencyOf(DoubleOf(number));
    std::string_view digits = number.digits;
    const auto kept = static_cast<std::size_t>(std::max<long>(0, static_cast<long>(digits.size()) + places));
    const std::string_view whole = digits.substr(0, kept), rest = digits.substr(kept);
    std::uint64_t magnitude = 0;
    const auto result = std::from_chars(whole.data(), whole.data() + whole.size(), magnitude);
    if (result.ec == std::errc::result_out_of_range)
        throw Failure(numbers::Overflow);
    if (RoundsUp(rest, magnitude, -places <= static_cast<long>(digits.size())))
        ++magnitude;
    const std::uint64_t limit = std::uint64_t{1} << 63; // the negative end reaches one further
    if (magnitude > limit - (number.negative ? 0 : 1))
        throw Failure(numbers::Overflow);
    return CurrencyValue{static_cast<std::int64_t>(number.negative ? 0 - magnitude : magnitude)};
}

std::optional<double> ParseNumber(std::string_view text) {
    const auto number = ReadNumber(text);
    if (!number)
        return std::nullopt;
    return DoubleOf(*number);
}

bool IsNumeric(const Value& value) {
    switch (value.Type()) {
    case ValueType::Null:
    case ValueType::Date:
    case ValueType::Error:
    case ValueType::Array: return false;
    case ValueType::String: try { return ParseNumber(value.As<std::string>()).has_value();
        } catch (const Failure&) { // beyond the range of any number
            return false;
        }
    case ValueType::Object: try { return IsNumeric(DefaultValueOf(value));
        } catch (const Failure&) { // without a default member it stands for no number
            return false;
        }
    default: return true;
    }
}

} // namespace quillon::conversion
