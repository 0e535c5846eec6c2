// An object or function of a script, as the system's objects see it when it is handed to them.
//
// It may outlive its engine; its members then fail with 424. Members are found with regard to case, as the
// language has it, and those that exist when they are asked for.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "jscript/Engine.h"

namespace quillon::jscript {

class ScriptedObject final : public Object {
  public:
    // `block` is the script's object, which `reference` keeps.
    ScriptedObject(std::shared_ptr<EngineLink> link, const void* block, std::uint32_t reference)
        : m_link(std::move(link))
        , m_block(block)
        , m_reference(reference) {}
    ~ScriptedObject() override;

    std::string TypeName() const override { return "JScriptTypeInfo"; }
    std::optional<MemberId> FindMember(std::string_view name) const override;
    // The default member calls a function, and gives an object's primitive value.
    Value Invoke(MemberId member, InvokeKind kind, std::span<Value> arguments) override;
    // The elements of an array.
    std::unique_ptr<ObjectEnumerator> Enumerate() override;

    bool IsOf(const Engine& engine) const noexcept { return m_link->engine == &engine; }
    void Push(duk_context* context) const;

    // The references live in the engine's stash.
    static void Keep(duk_context* context, duk_idx_t index, std::uint32_t reference);
    static void Drop(duk_context* context, std::uint32_t reference);

  private:
    Engine& Live() const;

    std::shared_ptr<EngineLink> m_link;
    const void* m_block;
    std::uint32_t m_reference;
    mutable std::vector<std::string> m_names; // a member's number is its place plus one
};

} // namespace quillon::jscript
