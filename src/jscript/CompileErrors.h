// What the compiler complains of, and where. The engine tells the line only, and rarely what it expected.
#pragma once

#include <string_view>

#include <duktape.h>

#include "jscript/Errors.h"
#include "jscript/Sources.h"

namespace quillon::jscript {

struct Complaint {
    Place place;
    KnownError error{0, {}}; // number 0: what the engine's own error says
};

// The compiler reads from the front and looks one token ahead, so the shortest run of tokens that it rejects,
// other than for ending too early, ends with the token at fault. For a text that does not compile, with the
// engine's error on top.
Complaint ComplaintAbout(duk_context* context, std::string_view text, duk_uint_t flags);

} // namespace quillon::jscript
