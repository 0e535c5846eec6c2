// What the families of functions share: reading arguments, the usual result types, and where each family
// keeps its rows. Not for other rooms.
#pragma once

#include "practice/functions/FunctionTable.h"
#include "practice/values/Convert.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

std::span<const ScalarFunction> StringFunctions();
std::span<const ScalarFunction> TextFunctions();
std::span<const ScalarFunction> DateFunctions();
std::span<const ScalarFunction> DateBuildingFunctions();
std::span<const ScalarFunction> MathFunctions();
std::span<const ScalarFunction> ConversionFunctions();
std::span<const ScalarFunction> SystemFunctions();
std::span<const ScalarFunction> CatalogueFunctions();
std::span<const ScalarFunction> HashFunctions();
std::span<const ScalarFunction> FormatFunctions();

bool AnyNull(Arguments arguments);
// Implicit conversions of an argument; 206, 245, 8114 ... as an assignment would throw.
std::int64_t IntegerOf(const Datum& value);
std::string TextOf(const Datum& value);
double FloatOf(const Datum& value);
// The collation under which an argument's characters compare.
const Collation& CollationOf(const Datum& value);

// varchar or nvarchar of this length, as the source is; other types count as varchar of their display size.
SqlType StringLike(const SqlType& source, int length);
SqlType StringLike(const SqlType& source);
Datum StringResult(const SqlType& source, std::string text);
// 8116 when argument `position` (1-based) is text, ntext, image, xml or otherwise no string to be.
void RequireString(ArgumentTypes types, std::size_t position, std::string_view function);

// The fixed result types, in the form that the table wants.
template <TypeId id>
SqlType Always(ArgumentTypes) {
    return SimpleType(id);
}
template <int length>
SqlType AlwaysNVarChar(ArgumentTypes) {
    return NVarChar(length);
}
SqlType TypeOfFirst(ArgumentTypes types);

} // namespace quillon::practice
