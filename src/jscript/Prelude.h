// What every script finds beside the language's own library. It is written in the language itself, one file
// of prelude/ a subject, over a few native functions.
#pragma once

#include <span>
#include <string_view>

#include "jscript/Engine.h"

namespace quillon::jscript {

// The texts of the files; each is a function of the global object and of the native functions, to which it
// may add some for the engine. Made by the build.
std::span<const std::string_view> PreludeTexts();

// A step for Engine::Guarded; takes no data.
void InstallPrelude(Engine& engine, duk_context* context, void* data);

// Pushes a function of the prelude that scripts do not see.
void PushPreludeFunction(duk_context* context, const char* name);

} // namespace quillon::jscript
