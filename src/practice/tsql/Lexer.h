// Cuts a batch into tokens.
//
// The text is UTF-8; bytes that are none are taken as letters, so that nothing in a hostile text can do more
// than fail to parse. Comments nest. CR LF, LF and CR each end a line.
#pragma once

#include "practice/tsql/Token.h"

#include <string_view>
#include <vector>

namespace quillon::practice::tsql {

/// All tokens of `text`, the last of kind End. Throws SqlError 105 (a quote is not closed), 113 (a comment is
/// not closed), 103 (a name is longer than 128 characters) and 1038 (an empty name), with the line where it
/// begins.
std::vector<Token> Tokenize(std::string_view text);

/// What a token stands for: names and strings without their delimiters and with doubled ones made single,
/// every other token as it was written.
std::string TokenValue(std::string_view text, const Token& token);

} // namespace quillon::practice::tsql
