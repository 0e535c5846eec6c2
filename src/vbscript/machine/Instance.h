// An instance of a script class.
//
// Its fields lie behind it in one piece of memory. The machine reads them directly; everybody else comes
// through Access, which opens the public members only.
#pragma once

#include "vbscript/machine/Code.h"
#include "vbscript/machine/ScriptObject.h"

namespace quillon::vbscript {

class Instance final : public ScriptObject {
  public:
    // With its fields Empty and its arrays dimensioned; Class_Initialize is the caller's business. Raises 7.
    static ObjectRef Create(const ClassInfo& info);

    const ClassInfo* Class() const noexcept { return m_class; } // null once its engine has ended
    Variant* Fields() noexcept { return reinterpret_cast<Variant*>(this + 1); }

    std::string TypeName() const override;
    std::optional<MemberId> FindMember(std::string_view name) const override;
    const void* Shape() const noexcept override { return m_class; }
    Variant Access(MemberId member, InvokeKind kind, std::span<Variant> arguments) override;
    Instance* AsInstance() noexcept override { return this; }
    void DropContents() noexcept override;
    void Orphan() noexcept override;

    void operator delete(Instance* instance, std::destroying_delete_t) noexcept;

  private:
    explicit Instance(const ClassInfo& info);
    ~Instance() override;
    bool LastRelease() noexcept override;
    Variant AccessField(Variant& field, InvokeKind kind, std::span<Variant> arguments);

    const ClassInfo* m_class;
};

} // namespace quillon::vbscript
