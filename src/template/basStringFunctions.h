// Path and split helpers that every room uses.
//
// Paths have the system's form, folders joined by "\". Blank means the space character alone. Positions are
// those of characters, so a text in any script survives.
#pragma once

#include <string>
#include <string_view>

namespace quillon::basStringFunctions {

// The text's characters in reverse order.
std::string ReverseString(std::string_view text);

// Splits at the first delimiter. An empty source leaves both results as they were; without a delimiter `left`
// is the source and `right` empty. `trim` takes blanks off both ends of both results.
void SplitString(std::string_view source, std::string& left, std::string& right, std::string_view delimiter,
                 bool trim = true, bool caseSensitive = true);

// What stands behind the last "\", blanks trimmed; the whole text when there is none.
std::string JustFileName(std::string_view path);

// The path without "\" and file name. Every occurrence of the two goes, so a folder of the file's own name
// loses its name too; users' profiles are found by this rule. Without a file name the path comes back whole.
std::string JustFilePath(std::string_view path);

// Without blanks at the ends, at the start.
std::string_view Trim(std::string_view text) noexcept;
std::string_view LeftTrim(std::string_view text) noexcept;

} // namespace quillon::basStringFunctions
