// Members of late-bound objects, the way scripts of this language read and write them. No engine in sight.
#pragma once

#include <optional>
#include <span>

#include "platform/Object.h"

namespace quillon::jscript {

// Reads or calls a member. Arguments that a property does not take go to the default member of its value:
// `Tables(1)`.
Value ReadMember(const ObjectRef& object, MemberId member, std::span<Value> arguments);

// The value of a member that is read without arguments; none if it waits for some.
std::optional<Value> ReadAlone(const ObjectRef& object, MemberId member);

// Writes a member; the value is the last of the arguments.
void WriteMember(const ObjectRef& object, MemberId member, std::span<Value> arguments);

// The member of this name, 438 if there is none.
MemberId MemberNamed(const ObjectRef& object, std::string_view name);

// What stands for the object where text or a number is wanted: its default member, else its class.
Value PlainValue(const ObjectRef& object);

} // namespace quillon::jscript
