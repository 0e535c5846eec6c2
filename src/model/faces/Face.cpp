#include "model/faces/Face.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "template/TextCase.h"

namespace quillon {
namespace {

class FaceEnumerator final : public ObjectEnumerator {
  public:
    FaceEnumerator(std::shared_ptr<ModelObject> model, FaceClass::ElementReader element)
        : m_model(std::move(model))
        , m_element(element) {}

    std::optional<Value> Next() override { return m_element(*m_model, m_position++); }

  private:
    std::shared_ptr<ModelObject> m_model;
    FaceClass::ElementReader m_element;
    std::size_t m_position = 0;
};

} // namespace

ObjectRef Face::Of(std::shared_ptr<ModelObject> model, const FaceClass& faceClass) {
    if (!model)
        return {};
    if (model->m_face != nullptr)
        return ObjectRef(model->m_face);
    return MakeObject<Face>(std::move(model), faceClass);
}

Face::Face(std::shared_ptr<ModelObject> model, const FaceClass& faceClass)
    : m_model(std::move(model))
    , m_class(faceClass) {
    m_model->m_face = this;
}

Face::~Face() {
    m_model->m_face = nullptr;
}

// A member's identifier is its place in the table, from 1; the default member has the identifier of its own
// and the common one.
std::optional<MemberId> Face::FindMember(std::string_view name) const {
    const auto isNamed = [name](const FaceMember& member) {
        return member.name.size() == name.size() && EqualFolded(member.name, name);
    };
    const auto found = std::ranges::find_if(m_class.members, isNamed);
    if (found == m_class.members.end())
        return std::nullopt;
    return static_cast<MemberId>(found - m_class.members.begin()) + 1;
}

const FaceMember& Face::MemberOf(MemberId member) const {
    if (member == DefaultMemberId && !m_class.defaultMember.empty())
        member = FindMember(m_class.defaultMember).value_or(DefaultMemberId);
    if (member < 1 || static_cast<std::size_t>(member) > m_class.members.size())
        throw Failure(numbers::MemberNotSupported);
    return m_class.members[static_cast<std::size_t>(member) - 1];
}

Value Face::Invoke(MemberId member, InvokeKind kind, std::span<Value> arguments) {
    const FaceMember& called = MemberOf(member);
    if (kind == InvokeKind::Get || kind == InvokeKind::Call)
        return Read(called, arguments);
    Write(called, arguments);
    return {};
}

Value Face::Read(const FaceMember& member, std::span<Value> arguments) {
    // Script languages of this kind have no sub-type for a bare enumeration; For Each asks Enumerate.
    if (member.kind == FaceMember::Kind::Enumeration)
        throw Failure(numbers::VariantTypeNotSupported);
    if (member.kind == FaceMember::Kind::Property && member.most == 0 && !arguments.empty()) {
        const Value result = member.read(*m_model, {});
        const auto* object = result.If<ObjectRef>();
        if (object == nullptr)
            throw Failure(numbers::WrongArgumentCount);
        if (!*object)
            throw Failure(numbers::ObjectNotSet);
        return (*object)->Invoke(DefaultMemberId, InvokeKind::Get, arguments);
    }
    if (arguments.size() < member.least || arguments.size() > member.most)
        throw Failure(numbers::WrongArgumentCount);
    const auto required = arguments.first(member.least);
    if (std::ranges::any_of(required, [](const Value& argument) { return argument.IsMissing(); }))
        throw Failure(numbers::ArgumentNotOptional);
    return member.read(*m_model, arguments);
}

void Face::Write(const FaceMember& member, std::span<Value> arguments) {
    if (member.kind == FaceMember::Kind::Method)
        throw Failure(numbers::WrongArgumentCount);
    if (member.write == nullptr)
        throw Failure(numbers::NotACollection, "Object not a collection: " + std::string(member.name));
    if (arguments.size() != 1)
        throw Failure(numbers::WrongArgumentCount);
    member.write(*m_model, arguments[0]);
}

std::unique_ptr<ObjectEnumerator> Face::Enumerate() {
    if (m_class.element == nullptr)
        return Object::Enumerate();
    return std::make_unique<FaceEnumerator>(m_model, m_class.element);
}

} // namespace quillon
