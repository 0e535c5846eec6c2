#include "jscript/OtherLanguage.h"

#include <algorithm>
#include <array>
#include <string>

namespace quillon::jscript {
namespace {

constexpr std::size_t MostRead = 20'000; // what it is shows early

// Words that begin a line of the other script language and none of this one.
constexpr std::array<std::string_view, 12> ForeignWords{"dim",  "sub",  "end",  "set",   "option", "elseif",
                                                        "next", "wend", "loop", "redim", "rem",    "call"};

char Lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

bool IsForeign(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (line.starts_with('\''))
        return true;
    std::string start(line.substr(0, 10));
    std::ranges::transform(start, start.begin(), Lowered);
    return std::ranges::any_of(ForeignWords, [&](std::string_view word) {
        return start.starts_with(word) && start.size() > word.size() && start[word.size()] == ' ' &&
               start.find_first_of("=(;", word.size()) != word.size() + 1;
    });
}

} // namespace

bool LooksLikeVBScript(std::string_view text) {
    text = text.substr(0, MostRead);
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        if (IsForeign(text.substr(0, end)))
            return true;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return false;
}

} // namespace quillon::jscript
