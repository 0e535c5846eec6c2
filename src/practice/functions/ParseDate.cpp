#include "practice/functions/ParseDate.h"

#include "practice/values/Unicode.h"

#include <algorithm>
#include <cctype>
#include <vector>

namespace quillon::practice {

namespace {

struct DateNumber {
    int value = 0;
    std::size_t digits = 0;
    bool IsYear() const { return digits == 4; }
};

struct DateFields {
    std::vector<DateNumber> numbers;
    int month = 0; // by name, from 1
    int weekDay = -1;
};

constexpr int lastTwoDigitYear = 2029;

bool IsDigit(char c) {
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}
bool IsLetter(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0 || static_cast<unsigned char>(c) >= 0x80;
}

int IndexOf(const std::string& lower, const std::string_view* full, const std::string_view* abbreviated,
            int count) {
    for (int index = 0; index < count; ++index)
        if (lower == unicode::ToLower(full[index]) || lower == unicode::ToLower(abbreviated[index]))
            return index;
    return -1;
}

bool TakeWord(std::string_view word, const Culture& culture, DateFields& fields) {
    const std::string lower = unicode::ToLower(word);
    const int month = IndexOf(lower, culture.months, culture.shortMonths, 12);
    const int weekDay = IndexOf(lower, culture.days, culture.shortDays, 7);
    if (month >= 0 && fields.month == 0)
        fields.month = month + 1;
    else if (weekDay >= 0 && fields.weekDay < 0)
        fields.weekDay = weekDay;
    else
        return false;
    return true;
}

bool TakeNumber(std::string_view digits, DateFields& fields) {
    if (digits.size() == 3 || digits.size() > 4 || fields.numbers.size() == 3)
        return false;
    fields.numbers.push_back({std::stoi(std::string(digits)), digits.size()});
    return true;
}

// Numbers and names, with one sign and any blanks between two of them.
std::optional<DateFields> FieldsOf(std::string_view text, const Culture& culture) {
    DateFields fields;
    bool maySeparate = false;
    for (std::size_t at = 0; at < text.size();) {
        const auto run = [&](bool (*belongs)(char)) {
            const auto* end = std::find_if_not(text.begin() + at, text.end(), belongs);
            return text.substr(at, static_cast<std::size_t>(end - text.begin()) - at);
        };
        const std::string_view digits = run(IsDigit), letters = run(IsLetter);
        if (!digits.empty() || !letters.empty()) {
            const bool isTaken =
                digits.empty() ? TakeWord(letters, culture, fields) : TakeNumber(digits, fields);
            if (!isTaken)
                return {};
            at += digits.size() + letters.size();
            maySeparate = true;
        } else if (text[at] != ' ') {
            if (!maySeparate || std::string_view("-/.,").find(text[at]) == std::string_view::npos)
                return {};
            maySeparate = false;
            ++at;
        } else {
            ++at;
        }
    }
    return maySeparate || text.empty() ? std::optional(fields) : std::nullopt;
}

int YearOf(const DateNumber& number) {
    if (number.IsYear())
        return number.value;
    const int year = lastTwoDigitYear / 100 * 100 + number.value;
    return year <= lastTwoDigitYear ? year : year - 100;
}

std::optional<std::int32_t> DayWithNamedMonth(const DateFields& fields, int thisYear) {
    const auto& n = fields.numbers;
    if (n.size() == 1)
        return n[0].IsYear() ? DayFromDate(n[0].value, fields.month, 1)
                             : DayFromDate(thisYear, fields.month, n[0].value);
    if (n.size() != 2)
        return {};
    const bool yearFirst = n[0].IsYear();
    return DayFromDate(YearOf(n[yearFirst ? 0 : 1]), fields.month, n[yearFirst ? 1 : 0].value);
}

std::optional<std::int32_t> DayOfNumbers(const std::vector<DateNumber>& n, bool dayFirst, int thisYear) {
    if (n.size() == 2) {
        if (n[0].IsYear() || n[1].IsYear())
            return DayFromDate(n[n[0].IsYear() ? 0 : 1].value, n[n[0].IsYear() ? 1 : 0].value, 1);
        return DayFromDate(thisYear, n[dayFirst ? 1 : 0].value, n[dayFirst ? 0 : 1].value);
    }
    if (n.size() != 3 || n[1].IsYear())
        return {};
    if (n[0].IsYear())
        return DayFromDate(n[0].value, n[1].value, n[2].value);
    return DayFromDate(YearOf(n[2]), n[dayFirst ? 1 : 0].value, n[dayFirst ? 0 : 1].value);
}

std::optional<std::int32_t> ReadDay(std::string_view text, const Culture& culture, std::int32_t today) {
    const auto fields = FieldsOf(text, culture);
    if (!fields)
        return {};
    const int thisYear = DateFromDay(today).year;
    const auto day = fields->month != 0 ? DayWithNamedMonth(*fields, thisYear)
                                        : DayOfNumbers(fields->numbers, culture.dayFirst, thisYear);
    const bool isRightDay = day && (fields->weekDay < 0 || fields->weekDay == DayOfWeek(*day));
    return isRightDay ? day : std::nullopt;
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

// Where the clock begins: at the hour before the first colon.
std::size_t ClockAt(std::string_view text) {
    std::size_t at = text.find(':');
    if (at == std::string_view::npos)
        return text.size();
    while (at > 0 && IsDigit(text[at - 1]))
        --at;
    return at;
}

std::optional<ParsedMoment> ReadClock(std::string_view text) {
    const auto clock = ParseMoment(text, {});
    return clock && clock->hasTime && !clock->hasDate ? clock : std::nullopt;
}

} // namespace

std::optional<ParsedMoment> ReadDate(std::string_view text, const Culture& culture, std::int32_t today) {
    const std::size_t clockAt = ClockAt(text);
    std::string_view dayText = Trimmed(text.substr(0, clockAt));
    const bool isJoined = dayText.size() > 1 && dayText.back() == 'T' && IsDigit(dayText[dayText.size() - 2]);
    dayText.remove_suffix(isJoined ? 1 : 0);
    ParsedMoment result;
    if (clockAt < text.size()) {
        const auto clock = ReadClock(text.substr(clockAt));
        if (!clock)
            return {};
        result = *clock;
    } else if (isJoined || dayText.empty()) {
        return {};
    }
    const auto day = dayText.empty() ? std::optional(today) : ReadDay(dayText, culture, today);
    if (!day)
        return {};
    result.moment.day = *day;
    result.hasDate = !dayText.empty();
    return result;
}

} // namespace quillon::practice
