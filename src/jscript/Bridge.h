// Late-bound objects in scripts: proxies whose traps ask the object.
#pragma once

#include "jscript/Engine.h"

namespace quillon::jscript {

// Puts the handler that all proxies share into the engine's stash, and the functions that the rewriter calls
// into the globals.
void InstallBridge(duk_context* context);

// Pushes a new target that carries `wrapped`, and its proxy on top of it.
void PushProxyPair(duk_context* context, Wrapped& wrapped);

// Makes a global name of a member of an object, unless the name is taken.
void DefineGlobalMember(Engine& engine, duk_context* context, std::string_view name, const ObjectRef& owner,
                        MemberId member);

} // namespace quillon::jscript
