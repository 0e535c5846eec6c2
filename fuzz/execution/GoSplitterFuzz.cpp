// Any bytes as a script: the batches stand in it in order, what lies between two of them is a separator of
// two letters at a line start, and a script that ends in a separator loses nothing.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "execution/GoSplitter.h"

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

bool IsGo(std::string_view text) {
    return text.size() == 2 && (text[0] == 'g' || text[0] == 'G') && (text[1] == 'o' || text[1] == 'O');
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view script(reinterpret_cast<const char*>(data), size);
    std::size_t turns = 0;
    const auto batches = quillon::SplitAtGo(script, [&] { ++turns; });
    if (script.empty() || turns == 0) {
        Require(batches.size() == (script.empty() ? 0 : 1));
        return 0;
    }
    Require(batches.size() <= turns);
    const char* at = script.data();
    for (const auto batch : batches) {
        Require(batch.data() == at);
        const char* separator = batch.data() + batch.size();
        Require(separator == script.data() || separator[-1] == '\n');
        Require(IsGo({separator, 2}));
        at = separator + 2;
    }
    const std::string ended = std::string(script) + "\nGO";
    std::size_t kept = 0;
    const auto whole = quillon::SplitAtGo(ended, [] {});
    for (const auto batch : whole)
        kept += batch.size() + 2;
    Require(kept == ended.size());
    return 0;
}
