#include "vbscript/machine/Walks.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "vbscript/machine/Array.h"

namespace quillon::vbscript {
namespace {

// Sees what the loop's body writes into the array, and keeps its size.
class ArrayWalk final : public WalkObject {
  public:
    explicit ArrayWalk(ArrayBuffer* array)
        : m_lock(Variant::LockOf(array))
        , m_array(array) {}
    bool Next(Variant& element) override {
        if (m_next >= m_array->Count())
            return false;
        element = m_array->Elements()[m_next++];
        return true;
    }

  private:
    Variant m_lock;
    ArrayBuffer* m_array;
    std::size_t m_next = 0;
};

class ScriptObjectWalk final : public WalkObject {
  public:
    explicit ScriptObjectWalk(const Variant& collection)
        : m_collection(collection)
        , m_walk(ScriptObjectIn(collection)->Walk()) {}
    bool Next(Variant& element) override { return m_walk->Next(element); }

  private:
    Variant m_collection; // outlives its walk
    std::unique_ptr<VariantEnumerator> m_walk;
};

class HostWalk final : public WalkObject {
  public:
    explicit HostWalk(const Variant& collection)
        : m_collection(collection)
        , m_walk(collection.AsObject()->Enumerate()) {}
    bool Next(Variant& element) override {
        std::optional<Value> next = m_walk->Next();
        if (!next)
            return false;
        element = FromValue(*next);
        return true;
    }

  private:
    Variant m_collection;
    std::unique_ptr<ObjectEnumerator> m_walk;
};

} // namespace

Variant WalkObject::Access(MemberId, InvokeKind, std::span<Variant>) {
    throw Failure(numbers::MemberNotSupported);
}

ObjectRef BeginWalk(const Variant& collection) {
    if (collection.IsArray())
        return MakeObject<ArrayWalk>(collection.AsArray());
    if (!collection.IsObject())
        throw Failure(numbers::NotACollection);
    if (collection.IsNothing())
        throw Failure(numbers::ObjectNotSet);
    if (collection.kind() == Kind::ScriptObject)
        return MakeObject<ScriptObjectWalk>(collection);
    return MakeObject<HostWalk>(collection);
}

} // namespace quillon::vbscript
