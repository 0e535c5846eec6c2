// A late-bound object of the engine's own, called with Variants instead of Values: instances of script
// classes, Err, Dictionary, RegExp and its matches.
//
// To the surroundings it is an Object like any other; the conversion of arguments is done here once. The
// machine asks for a member by number; FindMember's answers must not change during an object's life and must
// be the same for all objects that give the same Shape(), since call sites remember them by it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "platform/Object.h"
#include "vbscript/machine/Builtin.h"
#include "vbscript/machine/Variant.h"

namespace quillon::vbscript {

// Walks a collection of the engine's own for For Each.
class VariantEnumerator {
  public:
    virtual ~VariantEnumerator() = default;
    // False at the end; `element` is then untouched.
    virtual bool Next(Variant& element) = 0;
};

class ScriptObject : public Object {
  public:
    // What call sites remember members by: an address that is the same for all objects of one class.
    virtual const void* Shape() const noexcept = 0;

    // As Invoke: for Let and Set the new value is the last argument. Arguments are plain values. Raises 438,
    // 450, 451 as Object::Invoke says.
    virtual Variant Access(MemberId member, InvokeKind kind, std::span<Variant> arguments) = 0;

    // Raises 451 on an object that is no collection.
    virtual std::unique_ptr<VariantEnumerator> Walk();

    // --- Object ---
    Value Invoke(MemberId member, InvokeKind kind, std::span<Value> arguments) override;
    std::unique_ptr<ObjectEnumerator> Enumerate() override;
};

// The place of a name in a built-in type's table of member names, counted from 1, without regard to case.
std::optional<MemberId> FindInTable(std::span<const std::string_view> table, std::string_view name) noexcept;

} // namespace quillon::vbscript
