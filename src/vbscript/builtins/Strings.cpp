// Len, parts of a text, blanks, case, comparison.
#include <algorithm>

#include "vbscript/builtins/Arguments.h"
#include "vbscript/builtins/Families.h"
#include "vbscript/machine/Operators.h"
#include "vbscript/machine/Work.h"

namespace quillon::vbscript {
namespace {

Variant Part(const Text& whole, std::size_t offset, std::size_t length) {
    const std::u16string_view characters = whole.View();
    if (offset == 0 && length >= characters.size())
        return whole;
    return offset >= characters.size() ? Text() : Text(characters.substr(offset, length));
}

Variant Len(BuiltinContext&, Arguments arguments) {
    const Variant value = PlainValue(arguments[0]);
    return value.IsNull() ? value : LongResult(ToText(value).Length());
}

Variant Left(BuiltinContext&, Arguments arguments) {
    const std::size_t length = CountOf(arguments[1]);
    const Variant value = PlainValue(arguments[0]);
    return value.IsNull() ? value : Part(ToText(value), 0, length);
}

Variant Right(BuiltinContext&, Arguments arguments) {
    const std::size_t length = CountOf(arguments[1]);
    const Variant value = PlainValue(arguments[0]);
    if (value.IsNull())
        return value;
    const Text whole = ToText(value);
    const std::size_t kept = std::min(length, whole.Length());
    return Part(whole, whole.Length() - kept, kept);
}

Variant Mid(BuiltinContext&, Arguments arguments) {
    const bool isCut = IsGiven(arguments, 2);
    if (isCut)
        (void)ToLong(arguments[2]); // of what is no number either argument is told before a wrong range
    const std::size_t offset = OffsetOf(arguments[1]);
    const std::size_t length = isCut ? CountOf(arguments[2]) : Text::MaxLength;
    const Variant value = PlainValue(arguments[0]);
    return value.IsNull() ? value : Part(ToText(value), offset, length);
}

// Blanks alone are trimmed: tabs and line ends stay.
Variant Trimmed(const Variant& argument, bool atStart, bool atEnd) {
    const Variant value = PlainValue(argument);
    if (value.IsNull())
        return value;
    const Text whole = ToText(value);
    const std::u16string_view characters = whole.View();
    std::size_t first = 0, end = characters.size();
    while (atStart && first < end && characters[first] == u' ')
        ++first;
    while (atEnd && end > first && characters[end - 1] == u' ')
        --end;
    return Part(whole, first, end - first);
}

Variant Trim(BuiltinContext&, Arguments arguments) {
    return Trimmed(arguments[0], true, true);
}
Variant LTrim(BuiltinContext&, Arguments arguments) {
    return Trimmed(arguments[0], true, false);
}
Variant RTrim(BuiltinContext&, Arguments arguments) {
    return Trimmed(arguments[0], false, true);
}

Variant Repeated(std::size_t count, char16_t character) {
    Text text = Text::OfLength(count);
    std::fill_n(text.Writable(), count, character);
    return text;
}

Variant Space(BuiltinContext&, Arguments arguments) {
    return Repeated(CountOf(arguments[0]), u' ');
}

Variant String(BuiltinContext&, Arguments arguments) {
    const Variant number = PlainValue(arguments[0]), character = PlainValue(arguments[1]);
    if (number.IsNull() || character.IsNull())
        return NullValue{};
    const std::size_t count = CountOf(number);
    if (!character.IsText()) {
        const std::int32_t code = ToLong(character) % 256;
        return Repeated(count, static_cast<char16_t>(code < 0 ? code + 256 : code));
    }
    if (character.View().empty())
        RaiseInvalidCall();
    return Repeated(count, character.View().front());
}

template <char16_t (*Change)(char16_t) noexcept>
Variant Recased(BuiltinContext&, Arguments arguments) {
    const Variant value = PlainValue(arguments[0]);
    if (value.IsNull())
        return value;
    const Text whole = ToText(value);
    const std::u16string_view characters = whole.View();
    Text result = Text::OfLength(characters.size());
    std::ranges::transform(characters, result.Writable(), Change);
    return result;
}

Variant StrReverse(BuiltinContext&, Arguments arguments) {
    const Text whole = ToText(arguments[0]);
    Text result = Text::OfLength(whole.Length());
    std::ranges::reverse_copy(whole.View(), result.Writable());
    return result;
}

Variant StrComp(BuiltinContext&, Arguments arguments) {
    const bool ignoreCase = IgnoresCase(arguments, 2);
    const Variant first = PlainValue(arguments[0]), second = PlainValue(arguments[1]);
    if (first.IsNull() || second.IsNull())
        return NullValue{};
    const Text left = ToText(first), right = ToText(second);
    Work::Done(std::min(left.Length(), right.Length()));
    const int order =
        ignoreCase ? CompareIgnoringCase(left.View(), right.View()) : CompareBinary(left, right);
    return static_cast<std::int16_t>((order > 0) - (order < 0));
}

constexpr Builtin Table[] = {
    {"Len", 1, 1, Len},
    {"Left", 2, 2, Left},
    {"Right", 2, 2, Right},
    {"Mid", 2, 3, Mid},
    {"Trim", 1, 1, Trim},
    {"LTrim", 1, 1, LTrim},
    {"RTrim", 1, 1, RTrim},
    {"Space", 1, 1, Space},
    {"String", 2, 2, String},
    {"UCase", 1, 1, Recased<UpperOf>},
    {"LCase", 1, 1, Recased<LowerOf>},
    {"StrReverse", 1, 1, StrReverse},
    {"StrComp", 2, 3, StrComp},
};

} // namespace

FunctionTable StringFunctions() noexcept {
    return Table;
}

} // namespace quillon::vbscript
