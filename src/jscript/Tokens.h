// Cuts script text into tokens, well enough to tell code from strings, comments and regular expressions.
//
// It never fails: what it cannot read becomes a token of one character, and the engine's own compiler
// complains.
#pragma once

#include <string_view>
#include <vector>

#include "jscript/Token.h"

namespace quillon::jscript {

std::vector<Token> Tokenize(std::string_view script);

// How many bytes of a line end lie at `at`; 0: it is none.
std::size_t LineEndAt(std::string_view script, std::size_t at);

} // namespace quillon::jscript
