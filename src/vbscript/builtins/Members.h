// What the members of the engine's own object types check alike: how many arguments came, and whether the
// member may be written.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Object.h"
#include "vbscript/machine/Variant.h"

namespace quillon::vbscript {

inline bool IsWrite(InvokeKind kind) {
    return kind == InvokeKind::Let || kind == InvokeKind::Set;
}

inline void RequireCount(std::span<const Variant> arguments, std::size_t count) {
    if (arguments.size() != count)
        throw Failure(numbers::WrongArgumentCount);
}

// A member that is read or called only, with `count` arguments.
inline void RequireRead(InvokeKind kind, std::span<const Variant> arguments, std::size_t count,
                        std::string_view name) {
    if (IsWrite(kind))
        throw Failure(numbers::NotACollection, "Object not a collection: '" + std::string(name) + "'");
    RequireCount(arguments, count);
}

} // namespace quillon::vbscript
