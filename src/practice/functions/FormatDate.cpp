#include "practice/functions/FormatDate.h"

#include "practice/functions/FormatPattern.h"
#include "practice/values/Convert.h"

#include <algorithm>
#include <cstdlib>

namespace quillon::practice {

namespace {

struct Shown {
    Moment moment; // on the clock that is shown
    int offset = 0;
    bool hasOffset = false; // its own, not the server's
};

class DateWriter {
  public:
    DateWriter(const Shown& shown, const Culture& culture)
        : m_shown(shown)
        , m_culture(culture)
        , m_date(DateFromDay(shown.moment.day))
        , m_clock(ClockFromTicks(shown.moment.ticks)) {}

    bool Write(std::string& text, char letter, std::size_t run) const {
        const std::size_t two = std::min<std::size_t>(run, 2);
        switch (letter) {
        case 'd': WriteDay(text, run); return true;
        case 'M': WriteMonth(text, run); return true;
        case 'y': AppendPadded(text, run <= 2 ? m_date.year % 100 : m_date.year, run); return true;
        case 'h': AppendPadded(text, m_clock.hour % 12 == 0 ? 12 : m_clock.hour % 12, two); return true;
        case 'H': AppendPadded(text, m_clock.hour, two); return true;
        case 'm': AppendPadded(text, m_clock.minute, two); return true;
        case 's': AppendPadded(text, m_clock.second, two); return true;
        case 'f':
        case 'F': return WriteFraction(text, run, letter == 'F');
        case 't': WriteHalfDay(text, run); return true;
        case 'g': text += m_culture.era; return true;
        case 'z': WriteOffset(text, run); return true;
        case 'K':
            for (std::size_t i = 0; i < run && m_shown.hasOffset; ++i)
                WriteOffset(text, 3);
            return true;
        case '/':
            for (std::size_t i = 0; i < run; ++i)
                text += m_culture.dateSeparator;
            return true;
        default: text.append(run, letter); return true;
        }
    }

  private:
    void WriteDay(std::string& text, std::size_t run) const {
        const int day = DayOfWeek(m_shown.moment.day);
        if (run <= 2)
            AppendPadded(text, m_date.day, run);
        else
            text += (run == 3 ? m_culture.shortDays : m_culture.days)[day];
    }

    void WriteMonth(std::string& text, std::size_t run) const {
        if (run <= 2)
            AppendPadded(text, m_date.month, run);
        else
            text += (run == 3 ? m_culture.shortMonths : m_culture.months)[m_date.month - 1];
    }

    // The point before a fraction that is not written goes too.
    bool WriteFraction(std::string& text, std::size_t run, bool trimmed) const {
        if (run > 7)
            return false;
        const std::string digits = FractionText(m_shown.moment.ticks, run, trimmed);
        if (digits.empty() && text.ends_with('.'))
            text.pop_back();
        text += digits;
        return true;
    }

    void WriteHalfDay(std::string& text, std::size_t run) const {
        const std::string_view name = m_clock.hour < 12 ? m_culture.morning : m_culture.afternoon;
        text += run == 1 ? name.substr(0, 1) : name;
    }

    void WriteOffset(std::string& text, std::size_t run) const {
        const int minutes = std::abs(m_shown.offset);
        text += m_shown.offset < 0 ? "-" : "+";
        AppendPadded(text, minutes / 60, std::min<std::size_t>(run, 2));
        if (run >= 3) {
            text += ":";
            AppendPadded(text, minutes % 60, 2);
        }
    }

    const Shown& m_shown;
    const Culture& m_culture;
    const CalendarDate m_date;
    const ClockTime m_clock;
};

std::optional<std::string> WriteDate(const Shown& shown, std::string_view format, const Culture& culture) {
    const DateWriter writer(shown, culture);
    return WritePattern(format, [&](std::string& text, char letter, std::size_t run) {
        return writer.Write(text, letter, run);
    });
}

std::string Joined(std::string_view date, std::string_view time) {
    return std::string(date) + " " + std::string(time);
}

// The custom format that a standard one stands for; empty where there is none.
std::string PatternOf(char letter, const Culture& culture) {
    switch (letter) {
    case 'd': return std::string(culture.shortDate);
    case 'D': return std::string(culture.longDate);
    case 'f': return Joined(culture.longDate, culture.shortTime);
    case 'U':
    case 'F': return Joined(culture.longDate, culture.longTime);
    case 'g': return Joined(culture.shortDate, culture.shortTime);
    case 'G': return Joined(culture.shortDate, culture.longTime);
    case 'm':
    case 'M': return std::string(culture.monthDay);
    case 'o':
    case 'O': return "yyyy-MM-dd'T'HH:mm:ss.fffffffK";
    case 'r':
    case 'R': return "ddd, dd MMM yyyy HH:mm:ss 'GMT'";
    case 's': return "yyyy-MM-dd'T'HH:mm:ss";
    case 't': return std::string(culture.shortTime);
    case 'T': return std::string(culture.longTime);
    case 'u': return "yyyy-MM-dd HH:mm:ss'Z'";
    case 'y':
    case 'Y': return std::string(culture.yearMonth);
    default: return {};
    }
}

bool IsSameEverywhere(char letter) {
    return std::string_view("oOrRsu").find(letter) != std::string_view::npos;
}

Shown InUniversalTime(const Datum& value, const Shown& shown) {
    const std::int64_t local = shown.moment.TotalTicks() - shown.offset * ticksPerMinute;
    const std::int64_t last = (day9999 + 1) * ticksPerDay - 1;
    return shown.hasOffset
               ? Shown{{value.When().day, value.When().ticks, 0}, 0, true}
               : Shown{Moment::FromTotalTicks(std::clamp<std::int64_t>(local, 0, last)), 0, false};
}

} // namespace

std::optional<std::string> FormatDate(const Datum& value, std::string_view format, const Culture& culture,
                                      int zoneMinutes) {
    const bool hasOffset = value.Type().id == TypeId::DateTimeOffset;
    const Shown shown = hasOffset ? Shown{value.When().Local(), value.When().offsetMinutes, true}
                                  : Shown{value.When(), zoneMinutes, false};
    if (format.empty())
        return WriteDate(shown, PatternOf('G', culture) + (hasOffset ? " zzz" : ""), culture);
    if (CountCharacters(format) > 1)
        return WriteDate(shown, format, culture);
    const std::string pattern = PatternOf(format[0], culture);
    if (pattern.empty() || (format == "U" && hasOffset))
        return {};
    const bool isUniversal =
        format == "U" || (hasOffset && (format == "u" || format == "r" || format == "R"));
    return WriteDate(isUniversal ? InUniversalTime(value, shown) : shown, pattern,
                     IsSameEverywhere(format[0]) ? CultureOf("") : culture);
}

} // namespace quillon::practice
