// The functions that count bytes: every character is two, the low one first.
//
// A part with an odd number of bytes ends in half a character (Text.h), which Len counts as one.
#include <string>

#include "vbscript/builtins/Arguments.h"
#include "vbscript/builtins/Families.h"

namespace quillon::vbscript {
namespace {

Variant LenB(BuiltinContext&, Arguments arguments) {
    const Variant value = PlainValue(arguments[0]);
    if (value.IsNull())
        return value;
    const Text text = ToText(value);
    return LongResult(text.Length() * 2 - (text.EndsInHalf() ? 1 : 0));
}

Variant LeftB(BuiltinContext&, Arguments arguments) {
    const std::size_t length = CountOf(arguments[1]);
    const Variant value = PlainValue(arguments[0]);
    return value.IsNull() ? value : Text::OfBytes(ToText(value).ToBytes().substr(0, length));
}

Variant RightB(BuiltinContext&, Arguments arguments) {
    const std::size_t length = CountOf(arguments[1]);
    const Variant value = PlainValue(arguments[0]);
    if (value.IsNull())
        return value;
    const std::string bytes = ToText(value).ToBytes();
    return Text::OfBytes(bytes.substr(bytes.size() - std::min(length, bytes.size())));
}

Variant MidB(BuiltinContext&, Arguments arguments) {
    const std::size_t length = IsGiven(arguments, 2) ? CountOf(arguments[2]) : std::string::npos;
    const std::size_t offset = OffsetOf(arguments[1]);
    const Variant value = PlainValue(arguments[0]);
    if (value.IsNull())
        return value;
    const std::string bytes = ToText(value).ToBytes();
    return offset >= bytes.size() ? Text() : Text::OfBytes(bytes.substr(offset, length));
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
    const std::string bytes = ToText(first).ToBytes();
    if (from >= bytes.size())
        return LongResult(0);
    const std::size_t place = bytes.find(ToText(second).ToBytes(), from);
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
