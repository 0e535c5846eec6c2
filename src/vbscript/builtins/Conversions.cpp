// CBool to CStr, Hex and Oct. The rules are machine/Convert's; these are their names.
#include <array>
#include <charconv>

#include "platform/Conversion.h"
#include "vbscript/builtins/Arguments.h"
#include "vbscript/builtins/Families.h"

namespace quillon::vbscript {
namespace {

template <auto Convert>
Variant Converted(BuiltinContext&, Arguments arguments) {
    return Convert(arguments[0]);
}

// From text the platform's conversion is asked, which fills the sub-type with the bits of &H and &O:
// CInt("&HFFFF") is -1, CLng of it 65535.
template <auto Convert, auto FromText>
Variant ConvertedOrRead(BuiltinContext&, Arguments arguments) {
    const Variant value = PlainValue(arguments[0]);
    return value.IsText() ? FromText(Value(value.AsText().ToUtf8())) : Convert(value);
}

// True has all bits set in every whole sub-type.
std::uint8_t ByteOf(const Variant& value) {
    return value.kind() == Kind::Boolean ? static_cast<std::uint8_t>(value.Number()) : ToByte(value);
}

// Whole sub-types up to Integer show sixteen bits, everything else thirty-two.
std::uint32_t BitsOf(const Variant& value) {
    if (value.IsWhole() && value.kind() <= Kind::Integer)
        return static_cast<std::uint16_t>(value.Number());
    return static_cast<std::uint32_t>(ToLong(value));
}

template <int Base>
Variant InBase(BuiltinContext&, Arguments arguments) {
    const Variant value = PlainValue(arguments[0]);
    if (value.IsNull())
        return value;
    std::array<char, 16> digits;
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), BitsOf(value), Base).ptr;
    Text text = Text::OfLength(static_cast<std::size_t>(end - digits.data()));
    std::transform(digits.data(), end, text.Writable(),
                   [](char c) { return UpperOf(static_cast<char16_t>(c)); });
    return text;
}

constexpr Builtin Table[] = {
    {"CBool", 1, 1, ConvertedOrRead<ToBoolean, conversion::ToBoolean>},
    {"CByte", 1, 1, ConvertedOrRead<ByteOf, conversion::ToByte>, BuiltinUse::AsValue},
    {"CInt", 1, 1, ConvertedOrRead<ToInteger, conversion::ToInteger>, BuiltinUse::AsValue},
    {"CLng", 1, 1, ConvertedOrRead<ToLong, conversion::ToLong>, BuiltinUse::AsValue},
    {"CSng", 1, 1, Converted<ToSingle>, BuiltinUse::AsValue},
    {"CDbl", 1, 1, Converted<ToDouble>, BuiltinUse::AsValue},
    {"CCur", 1, 1, Converted<ToCurrency>, BuiltinUse::AsValue},
    {"CDate", 1, 1, Converted<ToDate>, BuiltinUse::AsValue},
    {"CStr", 1, 1, Converted<ToText>},
    {"Hex", 1, 1, InBase<16>},
    {"Oct", 1, 1, InBase<8>},
};

} // namespace

FunctionTable ConversionFunctions() noexcept {
    return Table;
}

} // namespace quillon::vbscript
