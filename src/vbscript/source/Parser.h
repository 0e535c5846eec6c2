// Builds the tree of a program.
//
// Raises CompileFailure with the numbers 1001 to 1058 and the place of the word that does not fit. Nesting
// is limited (raises 1001), so that no text can exhaust the stack of the parser or of those who walk trees.
#pragma once

#include <memory>
#include <string_view>

#include "vbscript/source/Names.h"
#include "vbscript/source/Tree.h"

namespace quillon::vbscript {

// What a text is read as.
enum class ProgramKind {
    Module,     // what AddCode and ExecuteGlobal take
    Snippet,    // what Execute takes
    Expression, // what Eval takes: the tree's body is one Assign to no target, the expression as its value
};

std::unique_ptr<Program> Parse(std::u16string_view text, Names& names,
                               ProgramKind kind = ProgramKind::Module);

} // namespace quillon::vbscript
