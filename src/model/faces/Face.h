// The public face of the object model: what scripts see of it.
//
// Each class of the model has one table of its public members, in order: name, how to read it and, for the
// few that a script may set, how to write it. The table is all that a script can reach; the model's setters,
// Add and Remove have no entry in it and thus no name. Names are found without regard to case.
//
// An object of the model has at most one face at a time, so that `Is` tells whether two names mean the same
// object. A face keeps its object alive: one that a script still holds when the model was replaced goes on
// giving the values that the object had, and lazy texts are asked of the session's present database.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "model/ModelObject.h"
#include "platform/Object.h"

namespace quillon {

struct FaceMember {
    enum class Kind : std::uint8_t { Property, Method, Enumeration };
    using Reader = Value (*)(ModelObject& self, std::span<Value> arguments);
    using Writer = void (*)(ModelObject& self, const Value& value);

    std::string_view name;
    Kind kind = Kind::Property;
    std::uint8_t least = 0; // arguments that must be given
    std::uint8_t most = 0;  // arguments that may be given
    Reader read = nullptr;
    Writer write = nullptr; // none for a read-only member
};

struct FaceClass {
    // The element at a position from 0; none beyond the end.
    using ElementReader = std::optional<Value> (*)(ModelObject& self, std::size_t position);

    std::string_view typeName;
    std::span<const FaceMember> members;
    std::string_view defaultMember = {};
    ElementReader element = nullptr; // none for what is no collection
};

// The table of each class of the model; one specialisation a class, in the files of this folder.
template <class T>
const FaceClass& FaceClassOf();

class Face final : public Object {
  public:
    // The one face of `model`; Nothing for no object.
    static ObjectRef Of(std::shared_ptr<ModelObject> model, const FaceClass& faceClass);

    Face(std::shared_ptr<ModelObject> model, const FaceClass& faceClass);

    std::string TypeName() const override { return std::string(m_class.typeName); }
    std::optional<MemberId> FindMember(std::string_view name) const override;
    // Raises what Object.h tells: 451 with "Object not a collection: <member>" for a write to a read-only
    // property, 450 for a write to a method and for a wrong number of arguments, 438 for an unknown member.
    // Arguments given to a property that takes none go to the default member of the object it yields.
    Value Invoke(MemberId member, InvokeKind kind, std::span<Value> arguments) override;
    std::unique_ptr<ObjectEnumerator> Enumerate() override;

  private:
    ~Face() override;
    const FaceMember& MemberOf(MemberId member) const;
    Value Read(const FaceMember& member, std::span<Value> arguments);
    void Write(const FaceMember& member, std::span<Value> arguments);

    std::shared_ptr<ModelObject> m_model;
    const FaceClass& m_class;
};

template <class T>
ObjectRef FaceOf(const std::shared_ptr<T>& model) {
    return Face::Of(model, FaceClassOf<T>());
}

} // namespace quillon
