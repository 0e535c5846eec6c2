#include "execution/GoSplitter.h"

#include <cstring>

namespace quillon {
namespace {

// Position of the letters GO in any case at or behind `from`, npos if there are none. Looks for the rarer of
// the two by the library's own search.
std::size_t FindLetters(std::string_view script, std::size_t from) {
    for (std::size_t at = from; at + 1 < script.size(); ++at) {
        const char c = script[at];
        if ((c == 'g' || c == 'G') && (script[at + 1] == 'o' || script[at + 1] == 'O'))
            return at;
    }
    return std::string_view::npos;
}

bool IsAloneOnItsLine(std::string_view script, std::size_t at) {
    const bool begins = at == 0 || script[at - 1] == '\n';
    const std::size_t behind = at + 2;
    return begins && (behind == script.size() || script[behind] == '\n' || script[behind] == '\r');
}

} // namespace

std::vector<std::string_view> SplitAtGo(std::string_view script,
                                        const std::function<void()>& atEachOccurrence) {
    std::vector<std::string_view> batches;
    if (script.empty())
        return batches;
    std::size_t at = FindLetters(script, 0);
    if (at == std::string_view::npos)
        return {script};
    for (std::size_t start = 0; at != std::string_view::npos;) {
        atEachOccurrence();
        if (IsAloneOnItsLine(script, at)) {
            batches.push_back(script.substr(start, at - start));
            start = at + 2;
            at = FindLetters(script, at + 3);
        } else {
            at = FindLetters(script, at + 1);
        }
    }
    return batches;
}

} // namespace quillon
