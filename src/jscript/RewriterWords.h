// The functions that the rewriter puts into scripts (Rewriter.h).
#pragma once

#include "jscript/Engine.h"

namespace quillon::jscript {

// Makes them globals that no script can change.
void InstallRewriterWords(duk_context* context);

} // namespace quillon::jscript
