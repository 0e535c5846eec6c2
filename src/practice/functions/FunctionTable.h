// The table of built-in scalar functions: name, number of arguments, type of the result, evaluation. The
// binder looks a function up here, asks for the type of its result, and has it evaluated at run time.
#pragma once

#include "practice/functions/FunctionContext.h"
#include "practice/values/Datum.h"

#include <span>
#include <string_view>

namespace quillon::practice {

using ArgumentTypes = std::span<const SqlType>;
using Arguments = std::span<const Datum>;

// How often a call must be evaluated: a constant can be folded, a function of the session is the same all
// through a statement, an each-row one (NEWID) is not.
enum class Evaluation : std::uint8_t { Pure, OncePerStatement, EachRow };

struct ScalarFunction {
    std::string_view name; // upper case
    int minArguments;
    int maxArguments; // -1: any number
    // Throws SqlError (8116 argument type, 206 ...) when the arguments do not fit.
    SqlType (*resultType)(ArgumentTypes types);
    // Arguments are of the types that were bound. The result is of the type bound, or null.
    Datum (*evaluate)(FunctionContext& context, Arguments arguments);
    Evaluation evaluation = Evaluation::Pure;
    // The first argument is a date part (DATEADD(day, ...)): a bare name that the binder passes on as a
    // varchar constant.
    bool takesDatePart = false;
    // The call may be written without brackets (CURRENT_TIMESTAMP, SESSION_USER ...).
    bool withoutBrackets = false;
    // Non-null arguments give a result that is not null; tells the column's nullability.
    bool neverNull = false;
};

// Without regard to case; nullptr when there is no such function. Aggregates, CAST, CONVERT, CASE, IIF,
// COALESCE, NULLIF are syntax, not here. ISNULL is here.
const ScalarFunction* FindFunction(std::string_view name);
// Throws 174, 189, 1054-like when the number of arguments does not fit.
void RequireArgumentCount(const ScalarFunction& function, int count);

} // namespace quillon::practice
