// Global names for the members of an object.
#pragma once

#include "jscript/Engine.h"

namespace quillon::jscript {

// Makes a global name of a member, unless the name is taken.
void DefineGlobalMember(Engine& engine, duk_context* context, std::string_view name, const ObjectRef& owner,
                        MemberId member);

} // namespace quillon::jscript
