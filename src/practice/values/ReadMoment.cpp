// Dates and times from text. The text is taken apart first (numbers of a date, name of a month, clock,
// offset), then the numbers are given their meaning by the date order of the session, the style, and how many
// digits they have.
#include "practice/values/ConvertParts.h"
#include "practice/values/Hijri.h"

#include <cctype>

namespace quillon::practice {

namespace {

struct DateNumber {
    int value = 0;
    int digits = 0;
};

struct Pieces {
    std::vector<DateNumber> numbers;
    int month = 0; // by name; 0 none
    bool hasClock = false, hasSeconds = false;
    ClockTime clock;
    int fractionDigits = 0;
    bool outOfRange = false;
    bool hasOffset = false, isZulu = false;
    int offset = 0;
};

constexpr std::string_view months[] = {"january", "february", "march",     "april",   "may",      "june",
                                       "july",    "august",   "september", "october", "november", "december"};

int MonthByName(std::string_view lower) {
    for (int index = 0; index < 12; ++index)
        if (lower == months[index] || lower == months[index].substr(0, 3))
            return index + 1;
    return 0;
}

class Reader {
  public:
    explicit Reader(std::string_view text)
        : m_text(text) {}

    bool Read(Pieces& pieces) {
        for (SkipBlanks(); m_at < m_text.size(); SkipBlanks())
            if (!ReadOne(pieces))
                return false;
        return true;
    }

  private:
    char Peek() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }
    bool AtDigit() const { return std::isdigit(static_cast<unsigned char>(Peek())) != 0; }
    bool AtLetter() const { return std::isalpha(static_cast<unsigned char>(Peek())) != 0; }
    void SkipBlanks() {
        while (Peek() == ' ' || Peek() == '\t' || Peek() == '\n' || Peek() == '\r')
            ++m_at;
    }

    bool ReadOne(Pieces& pieces) {
        if (AtDigit())
            return ReadNumber(pieces);
        if (AtLetter())
            return ReadWord(pieces);
        const char c = Peek();
        if ((c == '+' || c == '-') && pieces.hasClock)
            return ReadOffset(pieces);
        const bool isSeparator = c == '-' || c == '/' || c == '.' || c == ',';
        if (!isSeparator || (pieces.numbers.empty() && pieces.month == 0) || m_afterSeparator)
            return false;
        m_afterSeparator = c != ',';
        ++m_at;
        return true;
    }

    DateNumber Digits() {
        DateNumber number;
        for (; AtDigit(); ++m_at) {
            if (++number.digits <= 9)
                number.value = number.value * 10 + (Peek() - '0');
        }
        return number;
    }

    bool ReadNumber(Pieces& pieces) {
        const DateNumber number = Digits();
        m_afterSeparator = false;
        if (Peek() == ':')
            return ReadClock(pieces, number);
        const std::size_t before = m_at;
        SkipBlanks();
        if (number.digits <= 2 && AtHalfDay() != '\0') {
            if (pieces.hasClock)
                return false;
            pieces.hasClock = true;
            pieces.clock.hour = number.value;
            return ReadHalfDay(pieces);
        }
        m_at = before;
        pieces.numbers.push_back(number);
        return pieces.numbers.size() <= 3 && number.digits <= 8;
    }

    // The lower-case first letter of AM or PM when one is here.
    char AtHalfDay() const {
        if (m_at + 1 >= m_text.size() || (m_text[m_at + 1] | 0x20) != 'm')
            return '\0';
        const char first = static_cast<char>(m_text[m_at] | 0x20);
        const bool ends =
            m_at + 2 == m_text.size() || !std::isalpha(static_cast<unsigned char>(m_text[m_at + 2]));
        return ends && (first == 'a' || first == 'p') ? first : '\0';
    }

    bool ReadHalfDay(Pieces& pieces) {
        const char half = AtHalfDay();
        m_at += 2;
        int& hour = pieces.clock.hour;
        if (half == 'a' && hour > 12)
            return false;
        if (half == 'a' && hour == 12)
            hour = 0;
        else if (half == 'p' && hour == 0)
            return false;
        else if (half == 'p' && hour < 12)
            hour += 12;
        return true;
    }

    bool ReadClock(Pieces& pieces, const DateNumber& hour) {
        if (pieces.hasClock || hour.digits > 2)
            return false;
        pieces.hasClock = true;
        pieces.clock.hour = hour.value;
        ++m_at;
        const DateNumber minute = Digits();
        pieces.clock.minute = minute.value;
        if (minute.digits == 0 || minute.digits > 2)
            return false;
        if (Peek() == ':') {
            ++m_at;
            const DateNumber second = Digits();
            pieces.hasSeconds = true;
            pieces.clock.second = second.value;
            if (second.digits == 0 || second.digits > 2)
                return false;
            if ((Peek() == '.' || Peek() == ':') && !ReadFraction(pieces))
                return false;
        }
        pieces.outOfRange = pieces.clock.hour > 23 || pieces.clock.minute > 59 || pieces.clock.second > 59;
        SkipBlanks();
        return AtHalfDay() == '\0' || ReadHalfDay(pieces);
    }

    // After a point the digits are a decimal fraction, after a colon thousandths.
    bool ReadFraction(Pieces& pieces) {
        const bool isColon = Peek() == ':';
        ++m_at;
        const DateNumber fraction = Digits();
        pieces.fractionDigits = fraction.digits;
        if (isColon) {
            pieces.clock.fraction = fraction.value * 10'000;
            return fraction.digits >= 1 && fraction.digits <= 3;
        }
        pieces.clock.fraction = fraction.value;
        for (int digits = fraction.digits; digits < 7; ++digits)
            pieces.clock.fraction *= 10;
        return fraction.digits >= 1 && fraction.digits <= 7;
    }

    bool ReadWord(Pieces& pieces) {
        std::string word;
        for (; AtLetter(); ++m_at)
            word.push_back(static_cast<char>(Peek() | 0x20));
        m_afterSeparator = false;
        if (word == "t")
            return !pieces.hasClock && !pieces.numbers.empty() && AtDigit();
        if (word == "z") {
            pieces.isZulu = pieces.hasClock && !pieces.hasOffset;
            return pieces.isZulu;
        }
        if (pieces.month != 0)
            return false;
        pieces.month = MonthByName(word);
        return pieces.month != 0;
    }

    bool ReadOffset(Pieces& pieces) {
        const bool negative = Peek() == '-';
        ++m_at;
        const DateNumber hours = Digits();
        if (pieces.hasOffset || pieces.isZulu || hours.digits == 0 || hours.digits > 2 || Peek() != ':')
            return false;
        ++m_at;
        const DateNumber minutes = Digits();
        pieces.hasOffset = true;
        pieces.offset = hours.value * 60 + minutes.value;
        if (minutes.digits != 2 || minutes.value > 59 || pieces.offset > 14 * 60)
            return false;
        pieces.offset = negative ? -pieces.offset : pieces.offset;
        return true;
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    bool m_afterSeparator = false;
};

DateOrder OrderOfStyle(int style, DateOrder sessionOrder) {
    switch (style) {
    case 1:
    case 101:
    case 10:
    case 110:
    case 22: return DateOrder::Mdy;
    case 3:
    case 103:
    case 4:
    case 104:
    case 5:
    case 105:
    case 130:
    case 131: return DateOrder::Dmy;
    case 2:
    case 102:
    case 11:
    case 111:
    case 12:
    case 112:
    case 20:
    case 120:
    case 21:
    case 25:
    case 121:
    case 23:
    case 126:
    case 127: return DateOrder::Ymd;
    default: return sessionOrder;
    }
}

bool DayComesFirst(DateOrder order) {
    return order == DateOrder::Dmy || order == DateOrder::Dym || order == DateOrder::Ydm;
}

struct YearMonthDay {
    DateNumber year;
    int month = 0, day = 1;
};

int FullYear(const DateNumber& year, int cutoff) {
    if (year.digits > 2)
        return year.value;
    const int century = cutoff / 100 * 100;
    return year.value <= cutoff % 100 ? century + year.value : century - 100 + year.value;
}

// Digits without separators: yyyymmdd, yymmdd, yyyy.
bool FromRun(const DateNumber& run, YearMonthDay& result) {
    if (run.digits != 8 && run.digits != 6 && run.digits != 4)
        return false;
    if (run.digits == 4) {
        result = {run, 1, 1};
        return true;
    }
    result = {{run.value / 10000, run.digits - 4}, run.value / 100 % 100, run.value % 100};
    return true;
}

bool FromMonthName(const std::vector<DateNumber>& numbers, int month, DateOrder order, YearMonthDay& result) {
    if (numbers.size() == 1) {
        result = {numbers[0], month, 1};
        return numbers[0].digits == 4 || numbers[0].digits <= 2;
    }
    if (numbers.size() != 2)
        return false;
    const bool yearFirst = numbers[0].digits > 2 ||
                           (numbers[1].digits <= 2 &&
                            (order == DateOrder::Ymd || order == DateOrder::Ydm || order == DateOrder::Myd));
    result = {yearFirst ? numbers[0] : numbers[1], month, yearFirst ? numbers[1].value : numbers[0].value};
    return true;
}

bool FromThree(const std::vector<DateNumber>& n, DateOrder order, bool legacy, YearMonthDay& result) {
    for (const DateNumber& number : n)
        if (number.digits > 4 || number.digits == 3)
            return false;
    int year = 2; // which of the three is the year
    if (n[0].digits == 4)
        year = 0;
    else if (n[1].digits == 4)
        year = 1;
    else if (n[2].digits != 4)
        year = order == DateOrder::Ymd || order == DateOrder::Ydm   ? 0
               : order == DateOrder::Myd || order == DateOrder::Dym ? 1
                                                                    : 2;
    const int first = year == 0 ? 1 : 0;
    const int second = year == 2 ? 1 : 2;
    const bool isIso = n[0].digits == 4 && !legacy;
    const bool dayFirst = !isIso && DayComesFirst(order);
    result = {n[year], n[dayFirst ? second : first].value, n[dayFirst ? first : second].value};
    return true;
}

// The newer types take a style at its word where the year must come first, or no separator may be there.
bool FollowsStyle(const Pieces& pieces, int style) {
    if (style == 12 || style == 112)
        return pieces.month == 0 && pieces.numbers.size() == 1;
    const bool yearFirst = OrderOfStyle(style, DateOrder::Mdy) == DateOrder::Ymd;
    return !yearFirst || style < 20 || (!pieces.numbers.empty() && pieces.numbers[0].digits >= 4);
}

MomentFailure ReadDate(const Pieces& pieces, const ConvertOptions& options, int style, bool legacy,
                       std::int32_t& day) {
    const DateOrder order = OrderOfStyle(style, options.dateOrder);
    YearMonthDay date;
    bool isDate = false;
    if (pieces.month != 0)
        isDate = FromMonthName(pieces.numbers, pieces.month, order, date);
    else if (pieces.numbers.size() == 1)
        isDate = FromRun(pieces.numbers[0], date);
    else if (pieces.numbers.size() == 3)
        isDate = FromThree(pieces.numbers, order, legacy, date);
    if (!isDate || (!legacy && !FollowsStyle(pieces, style)))
        return MomentFailure::Format;
    const auto found =
        style == 130 || style == 131
            ? DayFromHijri(date.year.value, date.month, date.day)
            : DayFromDate(FullYear(date.year, options.twoDigitYearCutoff), date.month, date.day);
    if (!found)
        return MomentFailure::Range;
    day = *found;
    return MomentFailure::None;
}

// 2020-01-31T10:20:30 means the same under every date order.
bool IsInternational(std::string_view text) {
    return text.size() > 11 && text[4] == '-' && text[7] == '-' && (text[10] | 0x20) == 't';
}

} // namespace

MomentFailure ReadMoment(std::string_view text, const ConvertOptions& options, int style, bool legacy,
                         ParsedMoment& result) {
    while (!text.empty() && (text.back() == ' ' || text.back() == '\0'))
        text.remove_suffix(1);
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    Pieces pieces;
    if (!Reader(text).Read(pieces))
        return MomentFailure::Format;
    if (legacy && (pieces.hasOffset || pieces.fractionDigits > 3))
        return MomentFailure::Format;
    if (legacy && IsInternational(text) && !pieces.hasSeconds)
        return MomentFailure::Format;
    result = {};
    result.hasDate = !pieces.numbers.empty() || pieces.month != 0;
    result.hasTime = pieces.hasClock;
    result.hasOffset = pieces.hasOffset || pieces.isZulu;
    result.moment.day = day1900;
    const bool orderedByYear = legacy && !IsInternational(text);
    if (result.hasDate) {
        const MomentFailure failure = ReadDate(pieces, options, style, orderedByYear, result.moment.day);
        if (failure != MomentFailure::None)
            return failure;
    }
    if (pieces.outOfRange || pieces.clock.hour > 23)
        return MomentFailure::Range;
    result.moment.ticks = TicksFromClock(pieces.clock);
    result.moment.offsetMinutes = static_cast<std::int16_t>(pieces.offset);
    return MomentFailure::None;
}

std::optional<ParsedMoment> ParseMoment(std::string_view text, const ConvertOptions& options, int style) {
    ParsedMoment result;
    if (ReadMoment(text, options, style, false, result) != MomentFailure::None)
        return {};
    return result;
}

} // namespace quillon::practice
