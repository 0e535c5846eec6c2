// Turns the characters of a program into tokens.
//
// Comments and line continuations disappear here. Raises CompileFailure 1030 to 1033 and 1002 (for a date
// that is none).
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "vbscript/source/Token.h"

namespace quillon::vbscript {

struct TokenList {
    std::vector<Token> tokens;        // ends with EndOfText
    std::deque<std::u16string> texts; // what the String tokens' views look at
};

TokenList Tokenize(std::u16string_view program, Names& names);

} // namespace quillon::vbscript
