// The script of a template, handed on piece by piece.
//
// For callers that pass the script on at once and need no scratch files: the command line. The pieces
// together are what ProcessFile, ProcessScript over the body and WrapCodeForExec make of the same lines;
// memory stays small however long the template is.
#pragma once

#include <functional>
#include <string_view>

namespace quillon {

class LineReader;

// Failures of `input` and `sink` go to the caller, with nothing handed on if the first line cannot be read.
void StreamScript(LineReader& input, const std::function<void(std::string_view)>& sink);

} // namespace quillon
