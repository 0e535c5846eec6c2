#include "vbscript/machine/Instance.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "vbscript/machine/Array.h"
#include "vbscript/machine/Convert.h"
#include "vbscript/machine/Elements.h"
#include "vbscript/machine/Heap.h"
#include "vbscript/machine/Machine.h"

namespace quillon::vbscript {

static_assert(sizeof(Instance) % alignof(Variant) == 0);

namespace {

// Whether anybody outside the class may do anything with the member.
bool IsOpen(const ClassMember& member) noexcept {
    return member.field >= 0 ? member.isPublic
                             : (member.get != nullptr && member.isPublic) ||
                                   (member.let != nullptr && member.isPublicLet) ||
                                   (member.set != nullptr && member.isPublicSet);
}

} // namespace

ObjectRef Instance::Create(const ClassInfo& info) {
    const std::size_t bytes = sizeof(Instance) + info.fieldCount * sizeof(Variant);
    void* memory = Heap::Allocate(bytes);
    auto* instance = ::new (memory) Instance(info);
    ObjectRef reference(instance);
    for (const auto& [place, shape] : info.arrays)
        instance->Fields()[place] = Variant(ArrayBuffer::Create(shape.bounds, shape.isFixed));
    return reference;
}

Instance::Instance(const ClassInfo& info)
    : m_class(&info) {
    std::uninitialized_default_construct_n(Fields(), info.fieldCount);
    info.machine->Registry().Add(*this);
}

Instance::~Instance() {
    if (m_class == nullptr)
        return;
    m_class->machine->Registry().Remove(*this);
    std::destroy_n(Fields(), m_class->fieldCount);
}

void Instance::operator delete(Instance* instance, std::destroying_delete_t) noexcept {
    const std::size_t fields = instance->m_class == nullptr ? 0 : instance->m_class->fieldCount;
    instance->~Instance();
    Heap::Free(instance, sizeof(Instance) + fields * sizeof(Variant));
}

void Instance::Orphan() noexcept {
    DropContents();
    Heap::Unreserve(m_class->fieldCount * sizeof(Variant)); // their memory is counted no longer
    m_class = nullptr;
}

void Instance::DropContents() noexcept {
    for (std::size_t place = 0; m_class != nullptr && place < m_class->fieldCount; ++place)
        Fields()[place] = Variant();
}

bool Instance::LastRelease() noexcept {
    if (m_mark != 0 || m_class == nullptr || m_class->terminate == nullptr)
        return true;
    m_mark = 1;
    ObjectRef self(this);
    m_class->machine->RunTerminate(*m_class->terminate, self);
    // Letting go of `self` destroys the object, unless Terminate has handed it to somebody.
    return false;
}

std::string Instance::TypeName() const {
    return m_class == nullptr ? "Object" : m_class->spelling;
}

std::optional<MemberId> Instance::FindMember(std::string_view name) const {
    if (m_class == nullptr)
        return std::nullopt;
    const std::optional<NameId> id = m_class->machine->AllNames().FindUtf8(name);
    const ClassMember* member = id ? m_class->Find(*id) : nullptr;
    if (member == nullptr || !IsOpen(*member))
        return std::nullopt;
    return static_cast<MemberId>(member - m_class->members.data()) + 1;
}

Variant Instance::AccessField(Variant& field, InvokeKind kind, std::span<Variant> arguments) {
    if (kind == InvokeKind::Get || kind == InvokeKind::Call)
        return arguments.empty() ? field : ReadElement(field, arguments);
    const bool isSet = kind == InvokeKind::Set;
    Variant value = arguments.back();
    if (arguments.size() > 1)
        WriteElement(field, arguments.first(arguments.size() - 1), std::move(value), isSet);
    else
        AssignVariable(field, std::move(value), isSet);
    return {};
}

Variant Instance::Access(MemberId member, InvokeKind kind, std::span<Variant> arguments) {
    if (m_class == nullptr)
        throw Failure(numbers::InvalidCall);
    const std::int32_t place = member == DefaultMemberId ? m_class->defaultMember : member - 1;
    if (place < 0 || place >= static_cast<std::int32_t>(m_class->members.size()))
        throw Failure(numbers::MemberNotSupported);
    const ClassMember& found = m_class->members[static_cast<std::size_t>(place)];
    const bool reads = kind == InvokeKind::Get || kind == InvokeKind::Call;
    const bool isOpen = reads                     ? found.isPublic
                        : kind == InvokeKind::Let ? found.isPublicLet
                                                  : found.isPublicSet;
    const Code* code = reads ? found.get.get() : kind == InvokeKind::Let ? found.let.get() : found.set.get();
    if (!isOpen || (found.field < 0 && code == nullptr))
        throw Failure(numbers::MemberNotSupported);
    const ObjectRef self(this);
    if (found.field >= 0)
        return AccessField(Fields()[found.field], kind, arguments);
    return m_class->machine->CallCode(*code, self, arguments);
}

} // namespace quillon::vbscript
