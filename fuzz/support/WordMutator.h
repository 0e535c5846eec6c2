// Changes a program's text by whole words, so that far more of what comes out is still a program than after a
// change of single bytes. A fuzz target that defines its `words` takes libFuzzer's two mutators from here.
#pragma once

#include <span>
#include <string_view>

namespace quillon::fuzz {

/// Words of the target's language that a change may put in; defined by the target.
extern const std::span<const std::string_view> words;

} // namespace quillon::fuzz
