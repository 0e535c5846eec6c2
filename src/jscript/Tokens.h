// Cuts script text into tokens, well enough to tell code from strings, comments and regular expressions.
//
// It never fails: what it cannot read becomes a token of one character, and the engine's own compiler
// complains.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace quillon::jscript {

enum class TokenKind { Word, Number, Text, Expression, Mark };

// A view of the script; blanks and comments lie between tokens.
struct Token {
    TokenKind kind;
    std::string_view text;
    std::size_t offset;
};

// Words behind which an operand begins, a regular expression or a bracket, although words are values
// otherwise.
bool IsOperatorWord(std::string_view word);

std::vector<Token> Tokenize(std::string_view script);

} // namespace quillon::jscript
