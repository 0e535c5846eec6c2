// Cuts a script into batches at the lines that hold GO and nothing else.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

namespace quillon {

// The batches, as views into the script. A separator is GO in any case, alone on its line: a blank, a count
// or a comment beside it make it ordinary text. Comments and quoted text are not known: a GO line in them
// cuts as well. Behind the last separator the text is dropped, except that a script without the two letters
// anywhere is one batch; an empty script has none. `atEachOccurrence` is called once for every occurrence of
// the letters. Linear.
std::vector<std::string_view> SplitAtGo(std::string_view script,
                                        const std::function<void()>& atEachOccurrence);

} // namespace quillon
