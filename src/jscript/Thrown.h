// What happens to every error on its way from where it is thrown.
#pragma once

#include <string>

#include <duktape.h>

namespace quillon::jscript {

// thrown(value): remembers the innermost line of the texts that were added, for errors that do not know
// theirs, and gives an error of the engine's the number and the text under which users know it. Gives the
// value.
duk_ret_t Thrown(duk_context* context);

// The engine's own words for the error on top of the stack.
std::string EngineMessage(duk_context* context);

} // namespace quillon::jscript
