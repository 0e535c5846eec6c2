// From the text of a regular expression to a program: the syntax of ECMAScript 3, as the script languages of
// this family share it.
#pragma once

#include <string_view>

#include "vbscript/builtins/RegExpProgram.h"

namespace quillon::vbscript::regexp {

// Raises 5017 (syntax), 5018 (unexpected quantifier), 5019 (no ]), 5020 (no )), 5021 (range out of order),
// and 28 for groups nested deeper than the engine follows.
Program Compile(std::u16string_view pattern, bool ignoreCase, bool multiLine);

} // namespace quillon::vbscript::regexp
