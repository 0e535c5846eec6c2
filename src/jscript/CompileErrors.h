// Where in a text the compiler's complaint lies. The engine tells the line only.
#pragma once

#include <string_view>

#include <duktape.h>

#include "jscript/Sources.h"

namespace quillon::jscript {

// The compiler reads from the front and looks one token ahead, so the shortest run of tokens that it rejects,
// other than for ending too early, ends with the token at fault. For a text that does not compile.
Place PlaceOfComplaint(duk_context* context, std::string_view text, duk_uint_t flags);

} // namespace quillon::jscript
