#include "practice/functions/FormatTime.h"

#include "practice/functions/FormatPattern.h"
#include "practice/values/Convert.h"

namespace quillon::practice {

namespace {

bool WriteSpan(std::string& text, std::int64_t ticks, char letter, std::size_t run) {
    const ClockTime clock = ClockFromTicks(ticks);
    const bool isFraction = letter == 'f' || letter == 'F';
    if (run > (isFraction ? 7U : letter == 'd' ? 8U : 2U))
        return false;
    switch (letter) {
    case 'd': AppendPadded(text, 0, run); return true;
    case 'h': AppendPadded(text, clock.hour, run); return true;
    case 'm': AppendPadded(text, clock.minute, run); return true;
    case 's': AppendPadded(text, clock.second, run); return true;
    case 'f':
    case 'F': text += FractionText(ticks, run, letter == 'F'); return true;
    default: return false;
    }
}

std::optional<std::string> WriteCustom(std::int64_t ticks, std::string_view format) {
    return WritePattern(format, [ticks](std::string& text, char letter, std::size_t run) {
        return WriteSpan(text, ticks, letter, run);
    });
}

} // namespace

std::optional<std::string> FormatTime(std::int64_t ticks, std::string_view format, const Culture& culture) {
    const bool hasFraction = ticks % ticksPerSecond != 0;
    const std::string fraction = std::string(culture.decimalPoint);
    if (format.empty() || format == "c" || format == "t" || format == "T")
        return WriteCustom(ticks, hasFraction ? "hh\\:mm\\:ss\\.fffffff" : "hh\\:mm\\:ss");
    if (format == "g")
        return WriteCustom(ticks, hasFraction ? "h\\:mm\\:ss\\" + fraction + "FFFFFFF" : "h\\:mm\\:ss");
    if (format == "G")
        return WriteCustom(ticks, "d\\:hh\\:mm\\:ss\\" + fraction + "fffffff");
    return CountCharacters(format) == 1 ? std::nullopt : WriteCustom(ticks, format);
}

} // namespace quillon::practice
