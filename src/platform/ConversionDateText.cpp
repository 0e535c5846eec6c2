// Reading dates and times from text, en-US: month before day, two-digit years 00 to 29 in this century.
#include <array>
#include <chrono>
#include <ctime>

#include "platform/Conversion.h"
#include "platform/Failure.h"

namespace quillon::conversion {
namespace {

constexpr std::array<std::string_view, 12> Months{"january",   "february", "march",    "april",
                                                  "may",       "june",     "july",     "august",
                                                  "september", "october",  "november", "december"};
constexpr std::array<std::string_view, 7> Weekdays{"sunday",   "monday", "tuesday", "wednesday",
                                                   "thursday", "friday", "saturday"};

enum class TokenKind { Number, Month, Weekday, Am, Pm, Separator };

struct Token {
    TokenKind kind;
    int value = 0; // the number, the month 1 to 12, or the separator's character
    int digits = 0;
};

// Whole names or their first three letters; 0 if none.
template <std::size_t N>
int IndexOfName(const std::array<std::string_view, N>& names, std::string_view word) {
    for (std::size_t i = 0; i < N; ++i) {
        if (word == names[i] || word == names[i].substr(0, 3))
            return static_cast<int>(i) + 1;
    }
    return 0;
}

std::optional<Token> WordToken(std::string_view word) {
    if (word == "am")
        return Token{TokenKind::Am};
    if (word == "pm")
        return Token{TokenKind::Pm};
    if (const int month = IndexOfName(Months, word))
        return Token{TokenKind::Month, month};
    if (IndexOfName(Weekdays, word) != 0)
        return Token{TokenKind::Weekday};
    return std::nullopt;
}

bool IsLetter(char c) {
    return (c | 0x20) >= 'a' && (c | 0x20) <= 'z';
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

using Tokens = std::vector<Token>;

std::optional<Tokens> Tokenize(std::string_view text) {
    Tokens tokens;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t start = i;
        if (IsDigit(text[i])) {
            int value = 0;
            for (; i < text.size() && IsDigit(text[i]); ++i) {
                value = value * 10 + (text[i] - '0');
                if (value > 99999)
                    return std::nullopt;
            }
            tokens.push_back({TokenKind::Number, value, static_cast<int>(i - start)});
        } else if (IsLetter(text[i])) {
            std::string word;
            for (; i < text.size() && IsLetter(text[i]); ++i)
                word += static_cast<char>(text[i] | 0x20);
            const auto token = WordToken(word);
            if (!token)
                return std::nullopt;
            tokens.push_back(*token);
        } else {
            ++i;
            if (std::string_view("/-,.:").find(text[start]) != std::string_view::npos)
                tokens.push_back({TokenKind::Separator, text[start]});
            else if (text[start] != ' ' && (text[start] < '\t' || text[start] > '\r'))
                return std::nullopt;
        }
    }
    return tokens;
}

struct TimeOfDay {
    int hour = 0, minute = 0, second = 0;
};

struct DayOfYear {
    int year = 0, month = 0, day = 0;
};

int CurrentYear() {
    const std::time_t now = std::time(nullptr);
    return std::localtime(&now)->tm_year + 1900;
}

bool IsRealDay(const DayOfYear& date) {
    return date.year >= 100 && date.year <= 9999 && date.month <= 12 && date.day <= 31 &&
           std::chrono::year_month_day(std::chrono::year(date.year),
                                       std::chrono::month(static_cast<unsigned>(date.month)),
                                       std::chrono::day(static_cast<unsigned>(date.day)))
               .ok();
}

int FullYear(const Token& number) {
    if (number.digits > 2 || number.value > 99)
        return number.value;
    return number.value + (number.value < 30 ? 2000 : 1900);
}

class DateReader {
  public:
    explicit DateReader(Tokens tokens)
        : m_tokens(std::move(tokens)) {}

    std::optional<DateValue> Read() {
        if (!TakeTime() || !TakeDateParts())
            return std::nullopt;
        if (m_numbers.empty() && m_month == 0 && m_time)
            return DateOf(1899, 12, 30, m_time->hour, m_time->minute, m_time->second);
        const auto date = ResolveDate();
        if (!date)
            return std::nullopt;
        const TimeOfDay time = m_time.value_or(TimeOfDay{});
        return DateOf(date->year, date->month, date->day, time.hour, time.minute, time.second);
    }

  private:
    bool IsNumber(std::size_t at) const {
        return at < m_tokens.size() && m_tokens[at].kind == TokenKind::Number;
    }
    bool IsTimeSeparator(std::size_t at) const {
        return at < m_tokens.size() && m_tokens[at].kind == TokenKind::Separator &&
               (m_tokens[at].value == ':' || m_tokens[at].value == '.');
    }
    bool IsHalf(std::size_t at) const {
        return at < m_tokens.size() &&
               (m_tokens[at].kind == TokenKind::Am || m_tokens[at].kind == TokenKind::Pm);
    }

    // Cuts the time out of the tokens: numbers joined by time separators, or one number before AM or PM.
    bool TakeTime() {
        for (std::size_t i = 0; i < m_tokens.size(); ++i) {
            if (!IsNumber(i) || (!IsTimeSeparator(i + 1) && !IsHalf(i + 1)))
                continue;
            return TakeTimeAt(i);
        }
        return true;
    }

    bool TakeTimeAt(std::size_t start) {
        std::vector<int> parts{m_tokens[start].value};
        std::size_t end = start + 1;
        for (; IsTimeSeparator(end); end += 2) {
            if (!IsNumber(end + 1))
                return false;
            parts.push_back(m_tokens[end + 1].value);
        }
        TimeOfDay time{parts[0], parts.size() > 1 ? parts[1] : 0, parts.size() > 2 ? parts[2] : 0};
        if (parts.size() > 3 || time.hour > 23 || time.minute > 59 || time.second > 59)
            return false;
        if (IsHalf(end)) {
            const bool afternoon = m_tokens[end++].kind == TokenKind::Pm;
            if (afternoon && time.hour < 12)
                time.hour += 12;
            else if (!afternoon && time.hour == 12)
                time.hour = 0;
        }
        m_time = time;
        using Difference = Tokens::difference_type;
        m_timeAt = start;
        m_tokens.erase(m_tokens.begin() + static_cast<Difference>(start),
                       m_tokens.begin() + static_cast<Difference>(end));
        return true;
    }

    // What is left may hold numbers and one month name, each separated by at most one mark.
    bool TakeDateParts() {
        bool markAllowed = false;
        for (std::size_t i = 0; i < m_tokens.size(); ++i) {
            const Token& token = m_tokens[i];
            if (token.kind == TokenKind::Separator) {
                const bool between = i + 1 < m_tokens.size() && !(m_time && i + 1 == m_timeAt);
                if (!markAllowed || !between || token.value == ':' || token.value == '.')
                    return false;
                markAllowed = false;
                continue;
            }
            if (token.kind == TokenKind::Month && m_month == 0) {
                m_month = token.value;
            } else if (token.kind == TokenKind::Number && m_numbers.size() < 3) {
                m_numbers.push_back(token);
            } else if (token.kind != TokenKind::Weekday) {
                return false;
            }
            markAllowed = true;
        }
        return true;
    }

    std::optional<DayOfYear> FirstReal(std::initializer_list<DayOfYear> candidates) const {
        for (const DayOfYear& candidate : candidates) {
            if (IsRealDay(candidate))
                return candidate;
        }
        return std::nullopt;
    }

    std::optional<DayOfYear> ResolveDate() const {
        if (m_month != 0)
            return m_numbers.size() == 1 ? MonthAndNumber() : MonthAndTwoNumbers();
        if (m_numbers.size() == 3)
            return ThreeNumbers();
        return m_numbers.size() == 2 ? TwoNumbers() : std::nullopt;
    }

    std::optional<DayOfYear> MonthAndNumber() const {
        return FirstReal(
            {{CurrentYear(), m_month, m_numbers[0].value}, {FullYear(m_numbers[0]), m_month, 1}});
    }

    std::optional<DayOfYear> MonthAndTwoNumbers() const {
        if (m_numbers.size() != 2)
            return std::nullopt;
        const Token &first = m_numbers[0], &second = m_numbers[1];
        const DayOfYear dayFirst{FullYear(second), m_month, first.value};
        const DayOfYear yearFirst{FullYear(first), m_month, second.value};
        if (first.digits > 2)
            return FirstReal({yearFirst});
        return FirstReal({dayFirst, yearFirst});
    }

    std::optional<DayOfYear> ThreeNumbers() const {
        const Token &a = m_numbers[0], &b = m_numbers[1], &c = m_numbers[2];
        const DayOfYear yearFirst{FullYear(a), b.value, c.value};
        if (a.digits > 2)
            return FirstReal({yearFirst, {FullYear(a), c.value, b.value}});
        return FirstReal({{FullYear(c), a.value, b.value}, {FullYear(c), b.value, a.value}, yearFirst});
    }

    std::optional<DayOfYear> TwoNumbers() const {
        const Token &a = m_numbers[0], &b = m_numbers[1];
        return FirstReal({{CurrentYear(), a.value, b.value},
                          {CurrentYear(), b.value, a.value},
                          {FullYear(b), a.value, 1},
                          {FullYear(a), b.value, 1}});
    }

    Tokens m_tokens;
    std::optional<TimeOfDay> m_time;
    std::size_t m_timeAt = 0;
    Tokens m_numbers;
    int m_month = 0;
};

} // namespace

std::optional<DateValue> ParseDate(std::string_view text) {
    auto tokens = Tokenize(text);
    if (!tokens || tokens->empty())
        return std::nullopt;
    return DateReader(std::move(*tokens)).Read();
}

} // namespace quillon::conversion
