// What is added to a script's text before it is compiled.
//
// The embedded engine knows neither late-bound objects nor how to be stopped, so the text is given both, line
// by line in place:
//   - `a.name(` becomes `a[$called("name")](`. A late-bound object cannot tell a method from a property; this
//     tells the bridge that the member is about to be called, so that it does not read it first.
//   - `a.name(x) = y` becomes `a[$put("name")](x)[$assigned()] = y`, and `a(x) = y` becomes
//     `$indexed(a)(x)[$assigned()] = y`: late-bound properties with parameters are assigned to, which the
//     engine's own language has no words for.
//   - every loop and every function asks `$poll()`, which ends a script that was told to stop.
// Lines keep their numbers. What the rewriter does not understand stays as it is.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace quillon::jscript {

// Whether a global object has a member of this name. Calls of such names, `Print(x)`, are announced too.
using IsGlobalMember = std::function<bool(std::string_view name)>;

std::string Rewrite(std::string_view script, const IsGlobalMember& isGlobalMember = {});

} // namespace quillon::jscript
