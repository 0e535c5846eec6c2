// Split, Join, Filter: texts to arrays and back.
#include "vbscript/builtins/Arguments.h"
#include "vbscript/builtins/Families.h"
#include "vbscript/builtins/Searching.h"
#include "vbscript/machine/Array.h"
#include "vbscript/machine/Heap.h"

namespace quillon::vbscript {
namespace {

Variant ArrayOf(HeapVector<Variant>& elements) {
    ArrayBuffer* const array = ArrayBuffer::OfCount(elements.size());
    const Variant result(array);
    std::ranges::move(elements, array->Elements().begin());
    return result;
}

std::span<const Variant> ElementsOf(const Variant& argument) {
    if (!argument.IsArray())
        throw Failure(numbers::TypeMismatch);
    const ArrayBuffer& array = *argument.AsArray();
    if (array.Dimensions() != 1)
        throw Failure(array.Dimensions() == 0 ? numbers::SubscriptOutOfRange : numbers::InvalidCall);
    return array.Elements();
}

// A limit keeps the rest of the text in the last part.
Variant Split(BuiltinContext&, Arguments arguments) {
    const bool ignoreCase = IgnoresCase(arguments, 3);
    const std::int32_t count = LongOr(arguments, 2, -1);
    if (count < -1)
        RaiseInvalidCall();
    const Text text = ToText(arguments[0]);
    const Text delimiter = TextOr(arguments, 1, Text(u" "));
    const std::u16string_view characters = text.View();
    const std::size_t limit = count == -1 ? Search::None : static_cast<std::size_t>(count);

    HeapVector<Variant> parts;
    if (characters.empty() || limit == 0)
        return ArrayOf(parts);
    const Search search(characters, delimiter.View(), ignoreCase);
    std::size_t start = 0;
    while (delimiter.Length() != 0 && parts.size() + 1 < limit) {
        const std::size_t place = search.Next(start);
        if (place == Search::None)
            break;
        parts.emplace_back(characters.substr(start, place - start));
        start = place + delimiter.Length();
    }
    parts.emplace_back(characters.substr(start));
    return ArrayOf(parts);
}

Variant Join(BuiltinContext&, Arguments arguments) {
    const Text delimiter = TextOr(arguments, 1, Text(u" "));
    Text result;
    bool first = true;
    for (const Variant& element : ElementsOf(arguments[0])) {
        if (!first)
            result.Append(delimiter.View());
        first = false;
        result.Append(ToText(element).View());
    }
    return result;
}

Variant Filter(BuiltinContext&, Arguments arguments) {
    const bool ignoreCase = IgnoresCase(arguments, 3);
    const bool include = BooleanOr(arguments, 2, true);
    const Text sought = ToText(arguments[1]);
    HeapVector<Variant> kept;
    for (const Variant& element : ElementsOf(arguments[0])) {
        const Text text = ToText(element);
        const bool contains = Search(text.View(), sought.View(), ignoreCase).Next(0) != Search::None;
        if (contains == include)
            kept.emplace_back(text);
    }
    return ArrayOf(kept);
}

constexpr Builtin Table[] = {
    {"Split", 1, 4, Split},
    {"Join", 1, 2, Join},
    {"Filter", 2, 4, Filter},
};

} // namespace

FunctionTable StringListFunctions() noexcept {
    return Table;
}

} // namespace quillon::vbscript
