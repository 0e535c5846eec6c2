// Array, LBound, UBound, IsArray.
#include "vbscript/builtins/Arguments.h"
#include "vbscript/builtins/Families.h"
#include "vbscript/machine/Array.h"

namespace quillon::vbscript {
namespace {

Variant Array(BuiltinContext&, Arguments arguments) {
    ArrayBuffer* const array = ArrayBuffer::OfCount(arguments.size());
    const Variant result(array);
    std::ranges::copy(arguments, array->Elements().begin());
    return result;
}

// The upper bound of the dimension asked for, counted from 1.
std::int32_t BoundOf(Arguments arguments) {
    const std::int32_t dimension = LongOr(arguments, 1, 1);
    const Variant value = arguments[0].IsObject() ? PlainValue(arguments[0]) : arguments[0];
    if (!value.IsArray())
        throw Failure(numbers::TypeMismatch);
    const ArrayBuffer& array = *value.AsArray();
    if (dimension < 1 || static_cast<std::size_t>(dimension) > array.Dimensions())
        throw Failure(numbers::SubscriptOutOfRange);
    return array.UpperBound(static_cast<std::size_t>(dimension) - 1);
}

Variant LBound(BuiltinContext&, Arguments arguments) {
    BoundOf(arguments); // the failures are those of UBound
    return std::int32_t{0};
}

Variant UBound(BuiltinContext&, Arguments arguments) {
    return BoundOf(arguments);
}

Variant IsArray(BuiltinContext&, Arguments arguments) {
    return arguments[0].IsArray();
}

constexpr Builtin Table[] = {
    {"Array", 0, Builtin::AnyCount, Array},
    {"LBound", 1, 2, LBound},
    {"UBound", 1, 2, UBound},
    {"IsArray", 1, 1, IsArray},
};

} // namespace

FunctionTable ArrayFunctions() noexcept {
    return Table;
}

} // namespace quillon::vbscript
