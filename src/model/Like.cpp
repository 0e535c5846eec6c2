#include "model/Like.h"

namespace quillon {
namespace {

// Whether a character is in the list "a-z_" or "!a-z_".
bool InList(char c, std::string_view list) noexcept {
    const bool negated = list.starts_with('!');
    if (negated)
        list.remove_prefix(1);
    for (std::size_t at = 0; at < list.size(); ++at) {
        if (at + 2 < list.size() && list[at + 1] == '-') {
            if (c >= list[at] && c <= list[at + 2])
                return !negated;
            at += 2;
        } else if (c == list[at]) {
            return !negated;
        }
    }
    return negated;
}

// Takes the pattern's first element off; whether it matches the character.
bool TakeMatching(char c, std::string_view& pattern) noexcept {
    const char first = pattern.front();
    if (first == '[') {
        const auto close = pattern.find(']');
        if (close == std::string_view::npos)
            return false;
        const auto list = pattern.substr(1, close - 1);
        pattern.remove_prefix(close + 1);
        return InList(c, list);
    }
    pattern.remove_prefix(1);
    return first == '?' || (first == '#' ? c >= '0' && c <= '9' : c == first);
}

} // namespace

// Where an element does not match, the last "*" takes one character more.
bool Like(std::string_view text, std::string_view pattern) noexcept {
    std::string_view retryText, retryPattern;
    bool canRetry = false;
    while (!text.empty() || !pattern.empty()) {
        if (pattern.starts_with('*')) {
            pattern.remove_prefix(1);
            retryText = text;
            retryPattern = pattern;
            canRetry = true;
            continue;
        }
        if (!text.empty() && !pattern.empty()) {
            const char c = text.front();
            if (TakeMatching(c, pattern)) {
                text.remove_prefix(1);
                continue;
            }
        }
        if (!canRetry || retryText.empty())
            return false;
        retryText.remove_prefix(1);
        text = retryText;
        pattern = retryPattern;
    }
    return true;
}

} // namespace quillon
