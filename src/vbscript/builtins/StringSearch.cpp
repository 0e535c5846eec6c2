// InStr, InStrRev, Replace.

#include "vbscript/builtins/Arguments.h"
#include "vbscript/builtins/Families.h"
#include "vbscript/builtins/Searching.h"

namespace quillon::vbscript {
namespace {

// The start comes first, and only if there are three arguments or more.
Variant InStr(BuiltinContext&, Arguments arguments) {
    const bool hasStart = arguments.size() > 2;
    const bool ignoreCase = IgnoresCase(arguments, 3);
    const std::size_t from = hasStart && IsGiven(arguments, 0) ? OffsetOf(arguments[0]) : 0;
    const Variant first = PlainValue(arguments[hasStart ? 1 : 0]);
    const Variant second = PlainValue(arguments[hasStart ? 2 : 1]);
    if (first.IsNull() || second.IsNull())
        return NullValue{};
    const Text text = ToText(first), sought = ToText(second);
    if (from >= text.Length())
        return LongResult(0);
    const std::size_t place = Search(text.View(), sought.View(), ignoreCase).Next(from);
    return LongResult(place == Search::None ? 0 : place + 1);
}

// A place counts only if the whole of it lies before the start.
Variant InStrRev(BuiltinContext&, Arguments arguments) {
    const bool ignoreCase = IgnoresCase(arguments, 3);
    const std::int32_t start = LongOr(arguments, 2, -1);
    if (start < -1 || start == 0)
        RaiseInvalidCall();
    const Text text = ToText(arguments[0]), sought = ToText(arguments[1]);
    const std::size_t end = start == -1 ? text.Length() : static_cast<std::size_t>(start);
    if (end > text.Length() || text.Length() == 0 || sought.Length() > end)
        return LongResult(0);
    if (sought.Length() == 0)
        return LongResult(end);
    const std::size_t place = Search(text.View(), sought.View(), ignoreCase).Last(end - sought.Length());
    return LongResult(place == Search::None ? 0 : place + 1);
}

Text Replaced(std::u16string_view text, std::u16string_view sought, std::u16string_view replacement,
              std::size_t limit, bool ignoreCase) {
    const Search search(text, sought, ignoreCase);
    Text result;
    std::size_t copied = 0;
    for (std::size_t done = 0; done < limit; ++done) {
        const std::size_t place = search.Next(copied);
        if (place == Search::None)
            break;
        result.Append(text.substr(copied, place - copied));
        result.Append(replacement);
        copied = place + sought.size();
    }
    result.Append(text.substr(copied));
    return result;
}

// What stands before the start is not part of the result.
Variant Replace(BuiltinContext&, Arguments arguments) {
    const bool ignoreCase = IgnoresCase(arguments, 5);
    const std::int32_t count = LongOr(arguments, 4, -1);
    const std::size_t from = IsGiven(arguments, 3) ? OffsetOf(arguments[3]) : 0;
    if (count < -1)
        RaiseInvalidCall();
    const Text text = ToText(arguments[0]), sought = ToText(arguments[1]), replacement = ToText(arguments[2]);
    if (from >= text.Length())
        return Text();
    if (from == 0 && (sought.Length() == 0 || count == 0))
        return text;
    const std::u16string_view tail = text.View().substr(from);
    if (sought.Length() == 0 || count == 0)
        return Text(tail);
    const std::size_t limit = count == -1 ? Search::None : static_cast<std::size_t>(count);
    return Replaced(tail, sought.View(), replacement.View(), limit, ignoreCase);
}

constexpr Builtin Table[] = {
    {"InStr", 2, 4, InStr},
    {"InStrRev", 2, 4, InStrRev},
    {"Replace", 3, 6, Replace},
};

} // namespace

FunctionTable StringSearchFunctions() noexcept {
    return Table;
}

} // namespace quillon::vbscript
