// Members of late-bound objects as functions: `object.Item` in `object.Item(1)`.
#pragma once

#include "jscript/Engine.h"

namespace quillon::jscript {

// The name under which what an assignable member returns takes a value.
inline constexpr const char* AssignedName = "value";

// Pushes a function that carries a member of the object whose proxy or target is at `owner`, and keeps the
// object alive. It calls the member with its arguments; with `assigned` it keeps them, and returns what takes
// the value in `object.Item(1) = value`.
void PushMember(duk_context* context, duk_idx_t owner, MemberId member, bool assigned);

// The accessors of a global name for the member.
void PushGetter(duk_context* context, duk_idx_t owner, MemberId member);
void PushSetter(duk_context* context, duk_idx_t owner, MemberId member);

} // namespace quillon::jscript
