// Functions that build texts or tell what characters are: ASCII to TRANSLATE.
#include "practice/functions/FunctionParts.h"
#include "practice/functions/Matching.h"
#include "practice/functions/NameParts.h"
#include "practice/values/CodePage.h"
#include "practice/values/Growth.h"
#include "practice/values/Unicode.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <cstdio>

namespace quillon::practice {

namespace {

Datum Ascii(FunctionContext&, Arguments arguments) {
    const std::string text = AnyNull(arguments) ? "" : TextOf(arguments[0]);
    if (text.empty())
        return {};
    std::size_t end = 0;
    unicode::Next(text, end);
    const std::string bytes = CodePage::Of(arguments[0].Type().collation).Encode(text.substr(0, end));
    return Datum::Int(static_cast<unsigned char>(bytes.front()));
}

SqlType CharType(ArgumentTypes) {
    return TextType(TypeId::Char, 1);
}

Datum Char(FunctionContext&, Arguments arguments) {
    const std::int64_t code = AnyNull(arguments) ? -1 : IntegerOf(arguments[0]);
    if (code < 0 || code > 255)
        return {};
    return Datum::Text(TextType(TypeId::Char, 1),
                       CodePage::Of(nullptr).Decode(std::string(1, static_cast<char>(code))));
}

Datum UnicodeCode(FunctionContext&, Arguments arguments) {
    const std::string text = AnyNull(arguments) ? "" : TextOf(arguments[0]);
    if (text.empty())
        return {};
    return Datum::Int(unicode::ToUtf16(text).front());
}

SqlType NCharType(ArgumentTypes) {
    return TextType(TypeId::NChar, 1);
}

Datum NChar(FunctionContext&, Arguments arguments) {
    const std::int64_t code = AnyNull(arguments) ? -1 : IntegerOf(arguments[0]);
    if (code < 0 || code > 65535)
        return {};
    std::string text;
    unicode::Append(text, static_cast<char32_t>(code));
    return Datum::Text(TextType(TypeId::NChar, 1), std::move(text));
}

Datum QuoteName(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const std::string text = TextOf(arguments[0]);
    const std::string quote = arguments.size() > 1 ? TextOf(arguments[1]) : "[";
    constexpr std::string_view openers = "[]'\"(){}<>`";
    constexpr std::string_view pairs[] = {"[]", "[]", "''", "\"\"", "()", "()", "{}", "{}", "<>", "<>", "``"};
    const std::size_t which = quote.empty() ? 0 : openers.find(quote.front());
    if (CountCharacters(text) > 128 || which == std::string_view::npos)
        return {};
    const std::string_view pair = pairs[which];
    std::string result(1, pair[0]);
    for (const char c : text) {
        result.push_back(c);
        if (c == pair[1])
            result.push_back(c);
    }
    return Datum::Text(NVarChar(258), result + pair[1]);
}

// STR(number, length, decimals): right justified; asterisks when the whole part does not fit.
Datum Str(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const std::int64_t length = arguments.size() > 1 ? IntegerOf(arguments[1]) : 10;
    const std::int64_t decimals =
        arguments.size() > 2 ? std::min<std::int64_t>(16, IntegerOf(arguments[2])) : 0;
    if (length < 0 || length > 8000 || decimals < 0)
        return {};
    const double number = FloatOf(arguments[0]);
    const auto rounded = FromDouble(number, static_cast<int>(decimals));
    if (!rounded)
        return StringResult(VarChar(1), std::string(static_cast<std::size_t>(length), '*'));
    std::string text = FormatDecimal(*rounded);
    const auto room = static_cast<std::size_t>(length);
    const std::size_t whole = std::min(text.find('.'), text.size());
    if (whole > room)
        return StringResult(VarChar(1), std::string(room, '*'));
    if (text.size() > room) {
        const auto fewer = static_cast<int>(room > whole + 1 ? room - whole - 1 : 0);
        text = FormatDecimal(*FromDouble(number, fewer));
    }
    return StringResult(VarChar(1), std::string(room - std::min(room, text.size()), ' ') + text);
}

SqlType ConcatType(ArgumentTypes types) {
    bool isUnicode = false, isMax = false;
    int length = 0;
    for (const SqlType& type : types) {
        if (type.IsLegacyLob() || type.id == TypeId::Xml || type.id == TypeId::SqlVariant)
            isMax = true;
        const SqlType part = StringLike(type);
        isUnicode = isUnicode || part.IsUnicode();
        isMax = isMax || part.IsMax();
        length += part.IsMax() ? 0 : part.length;
    }
    const int limit = isUnicode ? 4000 : 8000;
    return TextType(isUnicode ? TypeId::NVarChar : TypeId::VarChar,
                    isMax ? maxLength : std::clamp(length, 1, limit));
}

std::string Part(const Datum& value) {
    return value.IsNull() ? std::string() : TextOf(value);
}

SqlType TypeOfStrings(Arguments arguments) {
    const bool isUnicode = std::any_of(arguments.begin(), arguments.end(),
                                       [](const Datum& value) { return value.Type().IsUnicode(); });
    return isUnicode ? NVarChar(1) : VarChar(1);
}

Datum Concat(FunctionContext&, Arguments arguments) {
    std::string text;
    for (const Datum& value : arguments) {
        text += Part(value);
        RequireGrowth(text.size());
    }
    return StringResult(TypeOfStrings(arguments), std::move(text));
}

SqlType ConcatWithSeparatorType(ArgumentTypes types) {
    SqlType type = ConcatType(types);
    const SqlType separator = StringLike(types[0]);
    if (!type.IsMax() && !separator.IsMax())
        type.length = std::min(type.length + separator.length * static_cast<int>(types.size()),
                               type.IsUnicode() ? 4000 : 8000);
    return type;
}

// Nulls are left out together with their separator.
Datum ConcatWithSeparator(FunctionContext&, Arguments arguments) {
    const std::string separator = Part(arguments[0]);
    std::string text;
    bool isFirst = true;
    for (const Datum& value : arguments.subspan(1)) {
        if (value.IsNull())
            continue;
        if (!isFirst)
            text += separator;
        text += Part(value);
        RequireGrowth(text.size());
        isFirst = false;
    }
    return StringResult(TypeOfStrings(arguments), std::move(text));
}

char SoundexDigit(char upper) {
    constexpr std::string_view digits = "01230120022455012623010202";
    return digits[static_cast<std::size_t>(upper - 'A')];
}

std::string SoundexOf(const std::string& text) {
    std::string code;
    char previous = '\0';
    for (const char c : text) {
        const char upper = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        if (upper < 'A' || upper > 'Z') {
            if (code.empty())
                return "0000";
            break;
        }
        const char digit = SoundexDigit(upper);
        if (code.empty())
            code.push_back(upper);
        else if (digit != '0' && digit != previous)
            code.push_back(digit);
        if (upper != 'H' && upper != 'W')
            previous = digit;
        if (code.size() == 4)
            break;
    }
    code.resize(4, '0');
    return code;
}

Datum Soundex(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    return Datum::Text(VarChar(4), SoundexOf(TextOf(arguments[0])));
}

Datum Difference(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const std::string left = SoundexOf(TextOf(arguments[0])), right = SoundexOf(TextOf(arguments[1]));
    int same = 0;
    for (std::size_t index = 0; index < 4; ++index)
        same += left[index] == right[index];
    return Datum::Int(same);
}

std::string EscapedForJson(char32_t c) {
    switch (c) {
    case U'"': return "\\\"";
    case U'\\': return "\\\\";
    case U'/': return "\\/";
    case U'\b': return "\\b";
    case U'\f': return "\\f";
    case U'\n': return "\\n";
    case U'\r': return "\\r";
    case U'\t': return "\\t";
    default: break;
    }
    if (c < 0x20) {
        char buffer[8];
        std::snprintf(buffer, sizeof buffer, "\\u%04x", static_cast<unsigned>(c));
        return buffer;
    }
    std::string text;
    unicode::Append(text, c);
    return text;
}

Datum StringEscape(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    if (unicode::ToLower(TextOf(arguments[1])) != "json")
        throw SqlError(1023, {"2", "string_escape"});
    std::string text;
    for (const char32_t c : Characters(TextOf(arguments[0])))
        text += EscapedForJson(c);
    return Datum::Text(NVarChar(maxLength), std::move(text));
}

SqlType MaxNVarChar(ArgumentTypes) {
    return NVarChar(maxLength);
}

SqlType TranslateType(ArgumentTypes types) {
    return StringLike(types[0]);
}

Datum Translate(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const std::vector<char32_t> from = Characters(TextOf(arguments[1])),
                                to = Characters(TextOf(arguments[2]));
    if (from.size() != to.size())
        throw SqlError(9828, {"TRANSLATE"});
    const CharacterOrder order(CollationOf(arguments[0]));
    std::string text;
    for (const char32_t c : Characters(TextOf(arguments[0]))) {
        const auto found =
            std::find_if(from.begin(), from.end(), [&](char32_t other) { return order.Same(c, other); });
        unicode::Append(text, found == from.end() ? c : to[static_cast<std::size_t>(found - from.begin())]);
    }
    return StringResult(arguments[0].Type(), std::move(text));
}

// Parts are numbered from the right: 1 object, 2 schema, 3 database, 4 server.
Datum ParseName(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const auto parts = SplitName(TextOf(arguments[0]));
    const std::int64_t wanted = IntegerOf(arguments[1]);
    if (!parts || wanted < 1 || wanted > static_cast<std::int64_t>(parts->size()))
        return {};
    const std::string& part = (*parts)[parts->size() - static_cast<std::size_t>(wanted)];
    return part.empty() ? Datum() : Datum::Text(SysName(), part);
}

constexpr ScalarFunction rows[] = {
    {"ASCII", 1, 1, Always<TypeId::Int>, Ascii},
    {"CHAR", 1, 1, CharType, Char},
    {"UNICODE", 1, 1, Always<TypeId::Int>, UnicodeCode},
    {"NCHAR", 1, 1, NCharType, NChar},
    {"QUOTENAME", 1, 2, AlwaysNVarChar<258>, QuoteName},
    {"STR", 1, 3, [](ArgumentTypes) { return VarChar(8000); }, Str},
    {"CONCAT", 2, -1, ConcatType, Concat, Evaluation::Pure, false, false, true},
    {"CONCAT_WS", 3, -1, ConcatWithSeparatorType, ConcatWithSeparator, Evaluation::Pure, false, false, true},
    {"SOUNDEX", 1, 1, [](ArgumentTypes) { return VarChar(4); }, Soundex},
    {"DIFFERENCE", 2, 2, Always<TypeId::Int>, Difference},
    {"STRING_ESCAPE", 2, 2, MaxNVarChar, StringEscape},
    {"TRANSLATE", 3, 3, TranslateType, Translate},
    {"PARSENAME", 2, 2, AlwaysNVarChar<128>, ParseName},
};

} // namespace

std::span<const ScalarFunction> TextFunctions() {
    return rows;
}

} // namespace quillon::practice
