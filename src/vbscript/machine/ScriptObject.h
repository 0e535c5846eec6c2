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
#include <vector>

#include "platform/Object.h"
#include "vbscript/machine/Builtin.h"
#include "vbscript/machine/Heap.h"
#include "vbscript/machine/Variant.h"

namespace quillon::vbscript {

// Walks a collection of the engine's own for For Each.
class VariantEnumerator {
  public:
    virtual ~VariantEnumerator() = default;
    // False at the end; `element` is then untouched.
    virtual bool Next(Variant& element) = 0;
};

class Instance;

class ScriptObject : public Object {
  public:
    static void* operator new(std::size_t bytes) { return Heap::Allocate(bytes); }
    static void operator delete(void* memory, std::size_t bytes) noexcept { Heap::Free(memory, bytes); }

    // What call sites remember members by: an address that is the same for all objects of one class.
    virtual const void* Shape() const noexcept = 0;

    // As Invoke: for Let and Set the new value is the last argument. Arguments are plain values. Raises 438,
    // 450, 451 as Object::Invoke says.
    virtual Variant Access(MemberId member, InvokeKind kind, std::span<Variant> arguments) = 0;

    // The object as an instance of a script class, if it is one.
    virtual Instance* AsInstance() noexcept { return nullptr; }

    // Raises 451 on an object that is no collection.
    virtual std::unique_ptr<VariantEnumerator> Walk();

    // Lets go of every value held, when the engine that made the object ends: breaks cycles.
    virtual void DropContents() noexcept {}
    // The engine that made the object has ended before it did.
    virtual void Orphan() noexcept {}

    // --- Object ---
    Value Invoke(MemberId member, InvokeKind kind, std::span<Value> arguments) override;
    std::unique_ptr<ObjectEnumerator> Enumerate() override;

  protected:
    // Before the object is destroyed, its memory still whole; false if it was taken hold of again.
    virtual bool LastRelease() noexcept { return true; }

    std::uint32_t m_mark : 3 = 0; // for the derived class, which has no smaller place for a few bits

  private:
    friend class ObjectRegistry;
    static constexpr std::uint32_t NoPlace = (1U << 29) - 1;

    // Destroys the object, chains of objects one after the other and not one inside the other.
    void Release() noexcept final;

    std::uint32_t m_place : 29 = NoPlace; // in the registry that knows of it
};

// The objects that an engine's scripts have made and not let go of yet.
//
// They stand on pages that the registries of a thread number together, so that the place alone tells an
// object its registry.
class ObjectRegistry {
  public:
    ObjectRegistry() = default;
    ObjectRegistry(const ObjectRegistry&) = delete;
    ObjectRegistry& operator=(const ObjectRegistry&) = delete;
    ~ObjectRegistry();

    // Raises 7 where there is no place left.
    void Add(ScriptObject& object);
    void Remove(ScriptObject& object) noexcept;
    // The registry that knows of the object; null if none does.
    static ObjectRegistry* Of(const ScriptObject& object) noexcept;
    // Drops the contents of all objects, so that cycles fall apart, and forgets the objects.
    void DropAll() noexcept;
    std::size_t Count() const noexcept { return m_count; }

    // The registry of the engine that runs on this thread; null outside a run.
    static ObjectRegistry* Current() noexcept { return s_current; }
    static ObjectRegistry* SetCurrent(ObjectRegistry* registry) noexcept {
        return std::exchange(s_current, registry);
    }

  private:
    static constexpr std::size_t PageSize = 512;
    struct Page {
        ObjectRegistry* registry;
        ScriptObject* objects[PageSize];
    };
    struct PageTable;

    static ScriptObject*& At(std::uint32_t place) noexcept;
    std::uint32_t PlaceOf(std::size_t number) const noexcept { // of this registry's n-th object
        return static_cast<std::uint32_t>(m_pages[number / PageSize] * PageSize + number % PageSize);
    }
    void AddPage();
    void GiveUpPagesBut(std::size_t count) noexcept;

    static inline thread_local constinit ObjectRegistry* s_current = nullptr;
    static thread_local constinit PageTable* s_table; // null while the thread has no page

    std::vector<std::uint32_t> m_pages; // the numbers of this registry's
    std::size_t m_count = 0;
};

// The base of the built-in object types: one that its engine knows of.
class NativeObject : public ScriptObject {
  protected:
    NativeObject();
    ~NativeObject() override;
    bool HasEngine() const noexcept { return ObjectRegistry::Of(*this) != nullptr; }
};

// The base of those that can be part of no cycle, since they hold neither instances nor collections that
// scripts fill: no engine has to know of them.
class LeafObject : public ScriptObject {};

// The object of a Variant of kind ScriptObject.
inline ScriptObject* ScriptObjectIn(const Variant& value) noexcept {
    return static_cast<ScriptObject*>(value.AsObject().get());
}

// The place of a name in a built-in type's table of member names, counted from 1, without regard to case.
std::optional<MemberId> FindInTable(std::span<const std::string_view> table, std::string_view name) noexcept;

} // namespace quillon::vbscript
