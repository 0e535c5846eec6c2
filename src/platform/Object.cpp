#include "platform/Object.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon {

ObjectRef::ObjectRef(Object* object) noexcept
    : m_object(object) {
    if (m_object != nullptr)
        ++m_object->m_references;
}

ObjectRef::ObjectRef(const ObjectRef& other) noexcept
    : ObjectRef(other.m_object) {}

ObjectRef::~ObjectRef() {
    if (m_object != nullptr && --m_object->m_references == 0)
        m_object->Release();
}

std::unique_ptr<ObjectEnumerator> Object::Enumerate() {
    throw Failure(numbers::NotACollection);
}

} // namespace quillon
