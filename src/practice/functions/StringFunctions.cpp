// Functions that cut, search and change texts by position. Positions and lengths count UTF-16 units, the
// first is 1.
#include "practice/functions/FunctionParts.h"
#include "practice/functions/Like.h"
#include "practice/functions/Matching.h"
#include "practice/values/CodePage.h"
#include "practice/values/Growth.h"
#include "practice/values/Unicode.h"

#include <algorithm>

namespace quillon::practice {

namespace {

constexpr std::int64_t largeText = 1'000'000'000; // characters; beyond, a result is refused

std::string Slice(const std::string& text, std::int64_t start, std::int64_t length) {
    const std::size_t from = unicode::PositionOfUnit(text, start);
    const std::string_view rest = std::string_view(text).substr(from);
    return std::string(rest.substr(0, unicode::PositionOfUnit(rest, length)));
}

std::size_t WithoutTrailingBlanks(std::string_view text) {
    const std::size_t last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? 0 : last + 1;
}

SqlType LengthType(ArgumentTypes types) {
    const bool isBig = types[0].IsMax() && (types[0].IsCharacter() || types[0].IsBinary());
    return SimpleType(isBig ? TypeId::BigInt : TypeId::Int);
}

Datum LengthResult(const SqlType& source, std::size_t length) {
    const bool isBig = source.IsMax() && (source.IsCharacter() || source.IsBinary());
    return Datum::Integer(isBig ? TypeId::BigInt : TypeId::Int, static_cast<std::int64_t>(length));
}

SqlType LenType(ArgumentTypes types) {
    RequireString(types, 1, "len");
    return LengthType(types);
}

Datum Len(FunctionContext&, Arguments arguments) {
    if (arguments[0].IsNull())
        return {};
    if (arguments[0].Type().IsBinary())
        return LengthResult(arguments[0].Type(), WithoutTrailingBlanks(arguments[0].Bytes()));
    const std::string text = TextOf(arguments[0]);
    return LengthResult(arguments[0].Type(),
                        static_cast<std::size_t>(
                            CountCharacters(std::string_view(text).substr(0, WithoutTrailingBlanks(text)))));
}

Datum DataLength(FunctionContext&, Arguments arguments) {
    if (arguments[0].IsNull())
        return {};
    const SqlType& type = arguments[0].Type();
    std::size_t bytes = 0;
    if (type.IsCharacter() || type.id == TypeId::Xml)
        bytes = static_cast<std::size_t>(LengthIn(type, arguments[0].Text())) * (type.IsUnicode() ? 2 : 1);
    else if (type.IsBinary())
        bytes = arguments[0].Bytes().size();
    else
        bytes = static_cast<std::size_t>(type.StorageBytes());
    return LengthResult(type, bytes);
}

SqlType LeftType(ArgumentTypes types) {
    RequireString(types, 1, "left");
    return StringLike(types[0]);
}

SqlType RightType(ArgumentTypes types) {
    RequireString(types, 1, "right");
    return StringLike(types[0]);
}

Datum Left(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const std::int64_t length = IntegerOf(arguments[1]);
    if (length < 0)
        throw SqlError(537, {}, 2);
    return StringResult(arguments[0].Type(), Slice(TextOf(arguments[0]), 0, length));
}

Datum Right(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const std::int64_t length = IntegerOf(arguments[1]);
    if (length < 0)
        throw SqlError(536, {"right"});
    const std::string text = TextOf(arguments[0]);
    return StringResult(arguments[0].Type(),
                        Slice(text, std::max<std::int64_t>(0, CountCharacters(text) - length), largeText));
}

SqlType SubstringType(ArgumentTypes types) {
    if (types[0].IsBinary())
        return BinaryType(TypeId::VarBinary,
                          types[0].id == TypeId::Image
                              ? maxLength
                              : std::max(types[0].length, types[0].IsMax() ? maxLength : 1));
    if (!types[0].IsCharacter() && types[0].id != TypeId::Null)
        throw SqlError(8116, {types[0].Name(), "1", "substring"});
    return StringLike(types[0]);
}

Datum Substring(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    std::int64_t start = IntegerOf(arguments[1]) - 1;
    std::int64_t length = IntegerOf(arguments[2]);
    if (length < 0)
        throw SqlError(537, {}, 3);
    if (start < 0) {
        length = std::max<std::int64_t>(0, length + start);
        start = 0;
    }
    if (arguments[0].Type().IsBinary()) {
        const std::string& bytes = arguments[0].Bytes();
        const auto from = std::min(static_cast<std::size_t>(start), bytes.size());
        return Datum::Bytes(BinaryType(TypeId::VarBinary, maxLength),
                            bytes.substr(from, static_cast<std::size_t>(length)));
    }
    return StringResult(arguments[0].Type(), Slice(TextOf(arguments[0]), start, length));
}

SqlType CharIndexType(ArgumentTypes types) {
    return SimpleType(types[1].IsMax() ? TypeId::BigInt : TypeId::Int);
}

Datum CharIndex(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const std::string text = TextOf(arguments[1]);
    const std::vector<char32_t> characters = Characters(text);
    const std::vector<char32_t> part = Characters(TextOf(arguments[0]));
    const std::int64_t start =
        arguments.size() > 2 ? std::max<std::int64_t>(0, IntegerOf(arguments[2]) - 1) : 0;
    const TypeId id = arguments[1].Type().IsMax() ? TypeId::BigInt : TypeId::Int;
    if (part.empty())
        return Datum::Integer(id, 0);
    std::int64_t unit = 0;
    std::size_t from = 0;
    for (; from < characters.size() && unit < start; ++from)
        unit += unicode::Units(characters[from]);
    const std::size_t found =
        FindCharacters(characters, part, from, CharacterOrder(CollationOf(arguments[1])));
    if (found == std::string::npos || unit < start)
        return Datum::Integer(id, 0);
    for (; from < found; ++from)
        unit += unicode::Units(characters[from]);
    return Datum::Integer(id, unit + 1);
}

SqlType PatIndexType(ArgumentTypes types) {
    return SimpleType(types[1].IsMax() ? TypeId::BigInt : TypeId::Int);
}

Datum PatIndex(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const int position = FindPattern(TextOf(arguments[1]), TextOf(arguments[0]), CollationOf(arguments[1]));
    return Datum::Integer(arguments[1].Type().IsMax() ? TypeId::BigInt : TypeId::Int, position);
}

SqlType ReplaceType(ArgumentTypes types) {
    for (std::size_t position = 1; position <= 3; ++position)
        RequireString(types, position, "replace");
    SqlType source = types[0];
    const bool isUnicode = types[0].IsUnicode() || types[1].IsUnicode() || types[2].IsUnicode();
    const bool isMax = types[0].IsMax() || types[1].IsMax() || types[2].IsMax();
    source.id = isUnicode ? TypeId::NVarChar : TypeId::VarChar;
    source.length = 0;
    return StringLike(source, isMax ? maxLength : 8000);
}

Datum Replace(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const std::vector<char32_t> text = Characters(TextOf(arguments[0]));
    const std::vector<char32_t> part = Characters(TextOf(arguments[1]));
    const std::string replacement = TextOf(arguments[2]);
    const CharacterOrder order(CollationOf(arguments[0]));
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t found = part.empty() ? std::string::npos : FindCharacters(text, part, at, order);
        const std::size_t end = std::min(found, text.size());
        for (; at < end; ++at)
            unicode::Append(result, text[at]);
        if (found != std::string::npos) {
            RequireGrowth(result.size() + replacement.size());
            result += replacement;
            at += part.size();
        }
    }
    const bool isUnicode =
        arguments[0].Type().IsUnicode() || arguments[1].Type().IsUnicode() || arguments[2].Type().IsUnicode();
    return StringResult(isUnicode ? NVarChar(1) : VarChar(1), std::move(result));
}

SqlType StuffType(ArgumentTypes types) {
    const bool isUnicode = types[0].IsUnicode() || types[3].IsUnicode();
    const bool isMax = types[0].IsMax() || types[3].IsMax();
    return TextType(isUnicode ? TypeId::NVarChar : TypeId::VarChar,
                    isMax       ? maxLength
                    : isUnicode ? 4000
                                : 8000,
                    types[0].collation);
}

Datum Stuff(FunctionContext&, Arguments arguments) {
    if (arguments[0].IsNull() || arguments[1].IsNull() || arguments[2].IsNull())
        return {};
    const std::string text = TextOf(arguments[0]);
    const std::int64_t start = IntegerOf(arguments[1]);
    const std::int64_t length = IntegerOf(arguments[2]);
    if (start <= 0 || length < 0 || start > CountCharacters(text))
        return {};
    const std::string middle = arguments[3].IsNull() ? "" : TextOf(arguments[3]);
    return StringResult(
        StuffType(std::array{arguments[0].Type(), VarChar(1), VarChar(1), arguments[3].Type()}),
        Slice(text, 0, start - 1) + middle + Slice(text, start - 1 + length, largeText));
}

SqlType ReplicateType(ArgumentTypes types) {
    RequireString(types, 1, "replicate");
    return StringLike(types[0], types[0].IsMax() ? maxLength : 8000);
}

Datum Replicate(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const std::int64_t count = IntegerOf(arguments[1]);
    if (count < 0)
        return {};
    const std::string text = TextOf(arguments[0]);
    const SqlType type = StringLike(arguments[0].Type(), arguments[0].Type().IsMax() ? maxLength : 8000);
    constexpr std::int64_t mostOften = 2147483647;
    std::size_t size = text.size() * static_cast<std::size_t>(std::min(count, mostOften));
    if (type.IsMax())
        RequireGrowth(size);
    else
        size = std::min(size, static_cast<std::size_t>(type.length) * 3); // what is too long is cut
    std::string result;
    while (result.size() < size)
        result += text;
    return Convert(StringResult(type, std::move(result)), type);
}

SqlType SpaceType(ArgumentTypes) {
    return VarChar(8000);
}

Datum Space(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const std::int64_t count = IntegerOf(arguments[0]);
    if (count < 0)
        return {};
    return StringResult(VarChar(1),
                        std::string(static_cast<std::size_t>(std::min<std::int64_t>(count, 8000)), ' '));
}

template <std::string (*change)(std::string)>
Datum Changed(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    return StringResult(arguments[0].Type(), change(TextOf(arguments[0])));
}

std::string Reversed(std::string text) {
    const std::vector<char32_t> characters = Characters(text);
    std::string result;
    for (auto c = characters.rbegin(); c != characters.rend(); ++c)
        unicode::Append(result, *c);
    return result;
}

std::string Uppered(std::string text) {
    return unicode::ToUpper(text);
}
std::string Lowered(std::string text) {
    return unicode::ToLower(text);
}

std::string LeftTrimmed(std::string text) {
    text.erase(0, text.find_first_not_of(' '));
    return text;
}

std::string RightTrimmed(std::string text) {
    text.resize(WithoutTrailingBlanks(text));
    return text;
}

// TRIM(text) and TRIM(characters FROM text), which is passed as (text, characters).
Datum Trim(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    std::vector<char32_t> text = Characters(TextOf(arguments[0]));
    const std::vector<char32_t> unwanted = Characters(arguments.size() > 1 ? TextOf(arguments[1]) : " ");
    const CharacterOrder order(CollationOf(arguments[0]));
    const auto isWanted = [&](char32_t c) {
        return std::none_of(unwanted.begin(), unwanted.end(),
                            [&](char32_t other) { return order.Same(c, other); });
    };
    const auto first = std::find_if(text.begin(), text.end(), isWanted);
    const auto last = std::find_if(text.rbegin(), std::make_reverse_iterator(first), isWanted).base();
    std::string result;
    for (auto c = first; c < last; ++c)
        unicode::Append(result, *c);
    return StringResult(arguments[0].Type(), std::move(result));
}

SqlType AnyStringType(ArgumentTypes types) {
    RequireString(types, 1, "string");
    return StringLike(types[0]);
}

constexpr ScalarFunction rows[] = {
    {"LEN", 1, 1, LenType, Len},
    {"DATALENGTH", 1, 1, LengthType, DataLength},
    {"LEFT", 2, 2, LeftType, Left},
    {"RIGHT", 2, 2, RightType, Right},
    {"SUBSTRING", 3, 3, SubstringType, Substring},
    {"CHARINDEX", 2, 3, CharIndexType, CharIndex},
    {"PATINDEX", 2, 2, PatIndexType, PatIndex},
    {"REPLACE", 3, 3, ReplaceType, Replace},
    {"STUFF", 4, 4, StuffType, Stuff},
    {"REPLICATE", 2, 2, ReplicateType, Replicate},
    {"SPACE", 1, 1, SpaceType, Space},
    {"REVERSE", 1, 1, AnyStringType, Changed<Reversed>},
    {"UPPER", 1, 1, AnyStringType, Changed<Uppered>},
    {"LOWER", 1, 1, AnyStringType, Changed<Lowered>},
    {"LTRIM", 1, 1, AnyStringType, Changed<LeftTrimmed>},
    {"RTRIM", 1, 1, AnyStringType, Changed<RightTrimmed>},
    {"TRIM", 1, 2, AnyStringType, Trim},
};

} // namespace

std::span<const ScalarFunction> StringFunctions() {
    return rows;
}

} // namespace quillon::practice
