// A token of a script.
#pragma once

#include <cstddef>
#include <string_view>

namespace quillon::jscript {

// Conditional is the opening of a comment that switches conditional compilation on.
enum class TokenKind { Word, Number, Text, Expression, Mark, Conditional };

// A view of the script; blanks and comments lie between tokens.
struct Token {
    TokenKind kind;
    std::string_view text;
    std::size_t offset;
    bool startsStatement; // as far as marks and keywords tell; line ends do not count
};

} // namespace quillon::jscript
