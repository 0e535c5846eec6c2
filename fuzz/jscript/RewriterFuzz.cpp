// Any bytes as a script: the rewriter reads them to the end, only adds to them, and keeps every line where it
// was.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "jscript/Rewriter.h"
#include "jscript/Tokens.h"

namespace {

void Require(bool condition) {
    if (!condition)
        std::abort();
}

std::ptrdiff_t LineEnds(std::string_view text) {
    return std::count(text.begin(), text.end(), '\n');
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view script(reinterpret_cast<const char*>(data), size);
    std::size_t last = 0;
    for (const quillon::jscript::Token& token : quillon::jscript::Tokenize(script)) {
        Require(token.offset >= last && !token.text.empty());
        Require(script.substr(token.offset, token.text.size()) == token.text);
        last = token.offset + token.text.size();
    }
    Require(last <= size);
    const std::string rewritten =
        quillon::jscript::Rewrite(script, [](std::string_view name) { return name == "f"; });
    Require(LineEnds(rewritten) == LineEnds(script));
    Require(rewritten.size() >= script.size());
    return 0;
}
