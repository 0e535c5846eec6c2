// Characters and their codes: the Western code page for Asc and Chr, UTF-16 for AscW and ChrW; Escape.
#include <algorithm>
#include <array>

#include "vbscript/builtins/Arguments.h"
#include "vbscript/builtins/Families.h"

namespace quillon::vbscript {
namespace {

// Windows-1252 differs from Latin-1 in 0x80 to 0x9F only; the five codes it leaves unused map to themselves.
constexpr std::array<char16_t, 32> WesternUpper{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char16_t FromWestern(std::uint8_t code) {
    return code >= 0x80 && code < 0xA0 ? WesternUpper[code - 0x80U] : static_cast<char16_t>(code);
}

std::uint8_t ToWestern(char16_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return static_cast<std::uint8_t>(character);
    const auto found = std::ranges::find(WesternUpper, character);
    return found == WesternUpper.end() ? static_cast<std::uint8_t>('?')
                                       : static_cast<std::uint8_t>(0x80 + (found - WesternUpper.begin()));
}

char16_t FirstCharacter(const Variant& argument) {
    const Text text = ToText(argument);
    if (text.Length() == 0)
        RaiseInvalidCall();
    return text.View().front();
}

Variant OneCharacter(char16_t character) {
    return Text(std::u16string_view(&character, 1));
}

Variant Asc(BuiltinContext&, Arguments arguments) {
    return static_cast<std::int16_t>(ToWestern(FirstCharacter(arguments[0])));
}

Variant AscW(BuiltinContext&, Arguments arguments) {
    return static_cast<std::int16_t>(FirstCharacter(arguments[0]));
}

Variant AscB(BuiltinContext&, Arguments arguments) {
    return static_cast<std::uint8_t>(FirstCharacter(arguments[0]) & 0xFF);
}

Variant Chr(BuiltinContext&, Arguments arguments) {
    const std::int32_t code = ToLong(arguments[0]);
    if (code < 0 || code > 255)
        RaiseInvalidCall();
    return OneCharacter(FromWestern(static_cast<std::uint8_t>(code)));
}

// Codes above 32767 may be given as they are or as the negative Integer that AscW gives for them.
Variant ChrW(BuiltinContext&, Arguments arguments) {
    const std::int32_t code = ToLong(arguments[0]);
    if (code < -32768 || code > 65535)
        RaiseInvalidCall();
    return OneCharacter(static_cast<char16_t>(code));
}

Variant ChrB(BuiltinContext&, Arguments arguments) {
    const auto byte = static_cast<char>(ToByte(arguments[0]));
    return Text::OfBytes({&byte, 1});
}

bool StaysUnescaped(char16_t c) {
    return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') ||
           std::u16string_view(u"@*_+-./").find(c) != std::u16string_view::npos;
}

Variant Escape(BuiltinContext&, Arguments arguments) {
    constexpr std::u16string_view digits = u"0123456789ABCDEF";
    const Text text = ToText(arguments[0]);
    Text result;
    for (const char16_t& c : text.View()) {
        if (StaysUnescaped(c)) {
            result.Append({&c, 1});
            continue;
        }
        result.Append(c < 0x100 ? u"%" : u"%u");
        for (int shift = c < 0x100 ? 4 : 12; shift >= 0; shift -= 4)
            result.Append(digits.substr(static_cast<std::size_t>(c >> shift) & 0xF, 1));
    }
    return result;
}

// The value of `count` hexadecimal digits at `at`, -1 if they are not there.
int HexAt(std::u16string_view text, std::size_t at, std::size_t count) {
    if (at + count > text.size())
        return -1;
    int value = 0;
    for (const char16_t c : text.substr(at, count)) {
        const auto digit = std::u16string_view(u"0123456789abcdef").find(LowerOf(c));
        if (digit == std::u16string_view::npos)
            return -1;
        value = value * 16 + static_cast<int>(digit);
    }
    return value;
}

Variant Unescape(BuiltinContext&, Arguments arguments) {
    const Text text = ToText(arguments[0]);
    const std::u16string_view characters = text.View();
    Text result = Text::OfLength(characters.size());
    char16_t* const first = result.Writable();
    char16_t* place = first;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const bool marked = characters[i] == u'%';
        const bool wide = marked && i + 1 < characters.size() && LowerOf(characters[i + 1]) == u'u';
        const int code = !marked ? -1 : wide ? HexAt(characters, i + 2, 4) : HexAt(characters, i + 1, 2);
        *place++ = code < 0 ? characters[i] : static_cast<char16_t>(code);
        if (code >= 0)
            i += wide ? 5 : 2;
    }
    return Text(std::u16string_view(first, static_cast<std::size_t>(place - first)));
}

constexpr Builtin Table[] = {
    {"Asc", 1, 1, Asc},   {"AscW", 1, 1, AscW}, {"AscB", 1, 1, AscB},     {"Chr", 1, 1, Chr},
    {"ChrW", 1, 1, ChrW}, {"ChrB", 1, 1, ChrB}, {"Escape", 1, 1, Escape}, {"Unescape", 1, 1, Unescape},
};

} // namespace

FunctionTable CharacterFunctions() noexcept {
    return Table;
}

} // namespace quillon::vbscript
