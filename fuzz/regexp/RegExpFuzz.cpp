// Any pattern over any text: it compiles or is refused, it matches or gives up, and a match lies within the
// text with its groups in order. The first byte chooses the flags, the second where the pattern ends.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/Failure.h"
#include "vbscript/builtins/RegExpCompiler.h"
#include "vbscript/builtins/RegExpMatcher.h"

namespace {

using namespace quillon::vbscript::regexp;

void Require(bool condition) {
    if (!condition)
        std::abort();
}

void MatchAll(const Program& program, std::u16string_view text) {
    Matcher matcher(program, text);
    for (std::size_t from = 0; from <= text.size() && matcher.Find(from);) {
        const Matcher::Span whole = matcher.Group(0);
        Require(whole.Matched() && static_cast<std::size_t>(whole.start) >= from);
        Require(static_cast<std::size_t>(whole.end) <= text.size());
        for (std::int32_t group = 1; group <= program.groups; ++group) {
            const Matcher::Span span = matcher.Group(group);
            Require(!span.Matched() || static_cast<std::size_t>(span.end) <= text.size());
        }
        from = static_cast<std::size_t>(whole.end) + (whole.end == whole.start ? 1 : 0);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2 || size > 400)
        return 0;
    const std::u16string all(data + 2, data + size);
    const std::size_t length = std::min<std::size_t>(data[1], all.size());
    try {
        const Program program = Compile(std::u16string_view(all).substr(0, length), data[0] & 1, data[0] & 2);
        MatchAll(program, std::u16string_view(all).substr(length));
    } catch (const quillon::Failure& failure) {
        const bool syntax = failure.number() >= 5017 && failure.number() <= 5021;
        Require(syntax || failure.number() == 28 || failure.number() == 5 || failure.number() == 7);
    }
    return 0;
}
