// What GetRef gives: a procedure as an object whose default member calls it.
#pragma once

#include "vbscript/machine/Code.h"
#include "vbscript/machine/ScriptObject.h"

namespace quillon::vbscript {

// Finds its procedure by name at every call: the module may define it anew, or forget it.
class ProcedureReference final : public NativeObject {
  public:
    ProcedureReference(Machine& machine, std::uint16_t global)
        : m_machine(machine)
        , m_global(global) {}

    // Null once the procedure is gone.
    const Code* Procedure() const noexcept;

    std::string TypeName() const override { return "Object"; }
    std::optional<MemberId> FindMember(std::string_view) const override { return std::nullopt; }
    const void* Shape() const noexcept override { return this; }
    Variant Access(MemberId member, InvokeKind kind, std::span<Variant> arguments) override;

  private:
    Machine& m_machine;
    std::uint16_t m_global;
};

} // namespace quillon::vbscript
