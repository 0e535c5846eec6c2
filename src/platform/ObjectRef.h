// The counted reference to a late-bound object. Split from Object.h because Value holds one.
#pragma once

#include <utility>

namespace quillon {

class Object;

// Shares ownership of an Object; the last reference destroys it at once, which script classes rely on for
// Terminate. Not thread-safe: objects live on the interface thread.
class ObjectRef {
  public:
    ObjectRef() noexcept = default;
    explicit ObjectRef(Object* object) noexcept;
    ObjectRef(const ObjectRef& other) noexcept;
    ObjectRef(ObjectRef&& other) noexcept
        : m_object(std::exchange(other.m_object, nullptr)) {}
    ObjectRef& operator=(ObjectRef other) noexcept {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~ObjectRef();

    Object* get() const noexcept { return m_object; }
    Object* operator->() const noexcept { return m_object; }
    Object& operator*() const noexcept { return *m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }
    bool operator==(const ObjectRef& other) const noexcept { return m_object == other.m_object; }

  private:
    Object* m_object = nullptr;
};

} // namespace quillon
