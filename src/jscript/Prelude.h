// What every script finds beside the language's own library: Enumerator, VBArray, ActiveXObject, GetObject,
// ScriptEngine, and Error objects with number and description.
#pragma once

#include "jscript/Engine.h"

namespace quillon::jscript {

// A step for Engine::Guarded; takes no data.
void InstallPrelude(Engine& engine, duk_context* context, void* data);

// Pushes a function of the prelude that scripts do not see.
void PushPreludeFunction(duk_context* context, const char* name);

// Raises an Error with a number; an empty description takes the number's own.
[[noreturn]] void ThrowNumbered(duk_context* context, std::int32_t number, const char* description);

} // namespace quillon::jscript
