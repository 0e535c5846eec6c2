// Members of late-bound objects that wait for their arguments: `object.Item` in `object.Item(1)`.
//
// The functions pushed here carry the wrapped object, and the proxy that keeps it alive.
#pragma once

#include "jscript/Engine.h"

namespace quillon::jscript {

// Keys that scripts cannot spell.
inline constexpr const char* WrappedKey = DUK_HIDDEN_SYMBOL("wrapped");
inline constexpr const char* ProxyKey = DUK_HIDDEN_SYMBOL("proxy");
inline constexpr const char* MemberKey = DUK_HIDDEN_SYMBOL("member");

// The name under which what an assignable member returns takes a value.
inline constexpr const char* AssignedName = "value";

// The object that the target or the function at `index` carries.
Wrapped* WrappedIn(duk_context* context, duk_idx_t index);

// [... owner] to [... owner function]; owner is the target. The function calls the member with its arguments;
// with `assigned` it keeps them, and returns what takes the value in `object.Item(1) = value`.
void PushMember(duk_context* context, duk_idx_t owner, MemberId member, bool assigned);

} // namespace quillon::jscript
