// What For Each walks with: one object a running loop, kept in a register.
#pragma once

#include "vbscript/machine/ScriptObject.h"

namespace quillon::vbscript {

class WalkObject : public NativeObject {
  public:
    // The next element into `element`; false at the end.
    virtual bool Next(Variant& element) = 0;

    std::string TypeName() const override { return "Object"; }
    std::optional<MemberId> FindMember(std::string_view) const override { return std::nullopt; }
    const void* Shape() const noexcept override { return this; }
    Variant Access(MemberId member, InvokeKind kind, std::span<Variant> arguments) override;
};

// Raises 451 for what is no collection, 91 for Nothing.
ObjectRef BeginWalk(const Variant& collection);

} // namespace quillon::vbscript
