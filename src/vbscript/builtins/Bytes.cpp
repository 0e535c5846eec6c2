// The functions that count bytes: every character is two, the low one first.
//
// A text holds whole characters, so a part with an odd number of bytes gets a zero byte at its end.
#include <string>

#include "vbscript/builtins/Arguments.h"
#include "vbscript/builtins/Families.h"
#include "vbscript/machine/Work.h"

namespace quillon::vbscript {
namespace {

std::string BytesOf(std::u16string_view text) {
    Work::Done(text.size() * 2);
    std::string bytes;
    bytes.reserve(text.size() * 2);
    for (const char16_t c : text) {
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>(c >> 8);
    }
    return bytes;
}

Text FromBytes(std::string_view bytes) {
    const auto byteAt = [&](std::size_t i) {
        return i < bytes.size() ? static_cast<unsigned>(static_cast<unsigned char>(bytes[i])) : 0U;
    };
    Text text = Text::OfLength((bytes.size() + 1) / 2);
    char16_t* out = text.Writable();
    for (std::size_t i = 0; i < bytes.size(); i += 2)
        *out++ = static_cast<char16_t>(byteAt(i) | byteAt(i + 1) << 8);
    return text;
}

Variant LenB(BuiltinContext&, Arguments arguments) {
    const Variant value = PlainValue(arguments[0]);
    return value.IsNull() ? value : LongResult(ToText(value).Length() * 2);
}

Variant LeftB(BuiltinContext&, Arguments arguments) {
    const std::size_t length = CountOf(arguments[1]);
    const Variant value = PlainValue(arguments[0]);
    return value.IsNull() ? value : FromBytes(BytesOf(ToText(value).View()).substr(0, length));
}

Variant RightB(BuiltinContext&, Arguments arguments) {
    const std::size_t length = CountOf(arguments[1]);
    const Variant value = PlainValue(arguments[0]);
    if (value.IsNull())
        return value;
    const std::string bytes = BytesOf(ToText(value).View());
    return FromBytes(bytes.substr(bytes.size() - std::min(length, bytes.size())));
}

Variant MidB(BuiltinContext&, Arguments arguments) {
    const std::size_t length = IsGiven(arguments, 2) ? CountOf(arguments[2]) : std::string::npos;
    const std::size_t offset = OffsetOf(arguments[1]);
    const Variant value = PlainValue(arguments[0]);
    if (value.IsNull())
        return value;
    const std::string bytes = BytesOf(ToText(value).View());
    return offset >= bytes.size() ? Text() : FromBytes(bytes.substr(offset, length));
}

Variant InStrB(BuiltinContext&, Arguments arguments) {
    const bool hasStart = arguments.size() > 2;
    if (IgnoresCase(arguments, 3)) // bytes have no case
        RaiseInvalidCall();
    const std::size_t from = hasStart && IsGiven(arguments, 0) ? OffsetOf(arguments[0]) : 0;
    const Variant first = PlainValue(arguments[hasStart ? 1 : 0]);
    const Variant second = PlainValue(arguments[hasStart ? 2 : 1]);
    if (first.IsNull() || second.IsNull())
        return NullValue{};
    const std::string bytes = BytesOf(ToText(first).View());
    if (from >= bytes.size())
        return LongResult(0);
    const std::size_t place = bytes.find(BytesOf(ToText(second).View()), from);
    return LongResult(place == std::string::npos ? 0 : place + 1);
}

constexpr Builtin Table[] = {
    {"LenB", 1, 1, LenB}, {"LeftB", 2, 2, LeftB},   {"RightB", 2, 2, RightB},
    {"MidB", 2, 3, MidB}, {"InStrB", 2, 4, InStrB},
};

} // namespace

FunctionTable ByteFunctions() noexcept {
    return Table;
}

} // namespace quillon::vbscript
