// What is changed in a script's text before it is compiled.
//
// The embedded engine does not know late-bound objects, so the text is given words for them:
//   - `a.name(` becomes `a[$called("name")](`. A late-bound object cannot tell a method from a property; this
//     tells the bridge that the member is about to be called, so that it does not read it first.
//   - `a.name(x) = y` becomes `a[$put("name")](x,$value)[$assigned()] = y`, and `a(x) = y` becomes
//     `$indexed(a)(x,$value)[$assigned()] = y`: late-bound properties with parameters are assigned to, which
//     the engine's own language has no words for. `$value` tells an object that `name` holds.
//   - every function begins with `$enter()`: one of the script's own answered to the name that was told.
//   - `typeof a.b` becomes `$typeof(a.b)`, since the engine takes a late-bound object for a function.
//   - `eval(a)` becomes `eval($script(a))`: what a script makes up as it runs is rewritten too.
//   - every statement begins a line, since lines are the only places that the engine remembers.
// What the rewriter does not understand stays as it is, but for conditional compilation: a comment that
// switches it on would hide code, so it is reported.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jscript/Sources.h"

namespace quillon::jscript {

// Whether a global object has a member of this name. Calls of such names, `Print(x)`, are announced too.
using IsGlobalMember = std::function<bool(std::string_view name)>;

struct Rewritten {
    std::string text;
    std::vector<LineStart> lines;     // where each line of the text begins in the script
    std::optional<Place> conditional; // where conditional compilation is asked for
};

Rewritten Rewrite(std::string_view script, const IsGlobalMember& isGlobalMember = {});

} // namespace quillon::jscript
