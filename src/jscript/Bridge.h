// Late-bound objects in scripts: proxies whose traps ask the object.
#pragma once

#include "jscript/Engine.h"

namespace quillon::jscript {

// Puts the handler that all proxies share into the engine's stash.
void InstallBridge(duk_context* context);

// Pushes a new proxy, with a target of its own, and ties both to `wrapped`.
void PushNewProxy(duk_context* context, Wrapped& wrapped);

} // namespace quillon::jscript
