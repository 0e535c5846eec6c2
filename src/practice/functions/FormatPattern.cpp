#include "practice/functions/FormatPattern.h"

#include "practice/values/Moment.h"
#include "practice/values/Unicode.h"

namespace quillon::practice {

namespace {

std::size_t RunAt(std::string_view format, std::size_t at) {
    const std::size_t end = format.find_first_not_of(format[at], at);
    return (end == std::string_view::npos ? format.size() : end) - at;
}

// Writes the text in quotes, or the character after a backslash, that begins at `at`. The place behind it, or
// 0 where it does not end.
std::size_t TakeLiteral(std::string_view format, std::size_t at, std::string& text) {
    const char opening = format[at++];
    if (opening == '\\') {
        if (at == format.size())
            return 0;
        unicode::Append(text, unicode::Next(format, at));
        return at;
    }
    while (at < format.size() && format[at] != opening) {
        if (format[at] == '\\' && ++at == format.size())
            return 0;
        text.push_back(format[at++]);
    }
    return at == format.size() ? 0 : at + 1;
}

} // namespace

void AppendPadded(std::string& text, std::int64_t number, std::size_t digits) {
    const std::string plain = std::to_string(number);
    text.append(plain.size() < digits ? digits - plain.size() : 0, '0');
    text += plain;
}

std::string FractionText(std::int64_t ticks, std::size_t digits, bool trimmed) {
    std::string text;
    AppendPadded(text, ticks % ticksPerSecond, 7);
    text.resize(digits);
    while (trimmed && !text.empty() && text.back() == '0')
        text.pop_back();
    return text;
}

std::optional<std::string> WritePattern(std::string_view format, const WriteRun& writeRun) {
    std::string text;
    for (std::size_t at = 0; at < format.size();) {
        const bool isSingle = format[at] == '%';
        if (isSingle && (++at == format.size() || format[at] == '%'))
            return {};
        if (format[at] == '\'' || format[at] == '"' || format[at] == '\\') {
            at = TakeLiteral(format, at, text);
            if (at == 0)
                return {};
            continue;
        }
        const std::size_t run = isSingle ? 1 : RunAt(format, at);
        if (!writeRun(text, format[at], run))
            return {};
        at += run;
    }
    return text;
}

} // namespace quillon::practice
