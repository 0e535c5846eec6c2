// Turns the characters of a program into tokens.
//
// Comments and line continuations disappear here. A word that cannot be read (1030 to 1033, and 1002 for a
// date that is none) ends the tokens: what is wrong before it is told first.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vbscript/source/Token.h"

namespace quillon::vbscript {

struct TokenList {
    std::vector<Token> tokens;             // ends with EndOfText
    std::deque<std::u16string> texts;      // what the String tokens' views look at
    std::optional<CompileFailure> failure; // what the tokens end at, where it is not the end of the text
};

TokenList Tokenize(std::u16string_view program, Names& names);

} // namespace quillon::vbscript
