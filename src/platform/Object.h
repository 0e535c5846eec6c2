// A late-bound object: what script code can hold and call by names found at run time.
//
// Implemented by: the object model's public face (model/), the editor given to scripts as CodeBox, classes
// and dictionaries of the script engines. Used by: the script hosts. Members are found without regard to
// case. Objects are shared by counted references (ObjectRef.h) and identity is the address.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/ObjectRef.h"
#include "platform/Value.h"

namespace quillon {

// What the caller wants of a member. A plain use in an expression is Get for properties and Call for methods
// alike: hosts pass Get, and a method accepts it.
enum class InvokeKind {
    Get,
    Call, // a statement: the result is not wanted
    Let,  // assignment; the new value is the last argument
    Set,  // assignment of an object; likewise
};

using MemberId = std::int32_t;

// The member that `object(x)` and a plain use of the object as a value mean.
inline constexpr MemberId DefaultMemberId = 0;

// Walks a collection for For Each.
class ObjectEnumerator {
  public:
    virtual ~ObjectEnumerator() = default;
    // The next element, none at the end.
    virtual std::optional<Value> Next() = 0;
};

class Object {
  public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    // The class name that TypeName gives.
    virtual std::string TypeName() const = 0;

    // The identifier of a member, without regard to case; none if the object has no such member, which hosts
    // report as 438.
    virtual std::optional<MemberId> FindMember(std::string_view name) const = 0;

    // Reads, calls or writes a member. Arguments may be changed by the callee where it takes them by
    // reference. Raises: 438 for an object without a default member, 450 for a wrong number of arguments, 451
    // with a description that begins "Object not a collection: " for a write to a read-only member, 13, 9 ...
    // as the member says.
    virtual Value Invoke(MemberId member, InvokeKind kind, std::span<Value> arguments) = 0;

    // Elements in their order. Raises 451 on an object that is no collection.
    virtual std::unique_ptr<ObjectEnumerator> Enumerate();

  protected:
    virtual ~Object() = default;

  private:
    friend class ObjectRef;
    // Called when the last reference has gone; an engine with a destructor of its own in script code
    // overrides it.
    virtual void Release() noexcept { delete this; }

    std::uint32_t m_references = 0;
};

template <class T, class... Arguments>
ObjectRef MakeObject(Arguments&&... arguments) {
    return ObjectRef(new T(std::forward<Arguments>(arguments)...));
}

} // namespace quillon
