#include "vbscript/machine/Variant.h"

#include "vbscript/machine/Array.h"
#include "vbscript/machine/ScriptObject.h"

namespace quillon::vbscript {

Variant::Variant(ObjectRef object) noexcept
    : m_kind(dynamic_cast<ScriptObject*>(object.get()) != nullptr ? Kind::ScriptObject : Kind::Object) {
    new (&m_held.object) ObjectRef(std::move(object));
}

Variant::Variant(ArrayBuffer* array) noexcept
    : m_kind(Kind::Array) {
    m_held.array = array;
    array->AddReference();
}

Variant Variant::LockOf(ArrayBuffer* array) noexcept {
    array->AddReference();
    array->Lock();
    Variant lock;
    lock.m_kind = Kind::ArrayLock;
    lock.m_held.array = array;
    return lock;
}

void Variant::Retain() noexcept {
    switch (m_kind) {
    case Kind::Object:
    case Kind::ScriptObject: new (&m_held.object) ObjectRef(m_held.object.get()); break;
    case Kind::ArrayLock: m_held.array->Lock(); [[fallthrough]];
    case Kind::Array: m_held.array->AddReference(); break;
    default: break; // constants are owned by the globals
    }
}

void Variant::Release() noexcept {
    switch (m_kind) {
    case Kind::Text: m_held.text.~Text(); break;
    case Kind::Object:
    case Kind::ScriptObject: m_held.object.~ObjectRef(); break;
    case Kind::ArrayLock: m_held.array->Unlock(); [[fallthrough]];
    case Kind::Array: m_held.array->DropReference(); break;
    default: break;
    }
}

ValueType Variant::Type() const noexcept {
    switch (m_kind) {
    case Kind::Null: return ValueType::Null;
    case Kind::Missing: return ValueType::Error;
    case Kind::Boolean: return ValueType::Boolean;
    case Kind::Byte: return ValueType::Byte;
    case Kind::Integer: return ValueType::Integer;
    case Kind::Long: return ValueType::Long;
    case Kind::Single: return ValueType::Single;
    case Kind::Double: return ValueType::Double;
    case Kind::Currency: return ValueType::Currency;
    case Kind::Date: return ValueType::Date;
    case Kind::Text: return ValueType::String;
    case Kind::Object:
    case Kind::ScriptObject: return ValueType::Object;
    case Kind::Array: return ValueType::Array;
    default: return ValueType::Empty;
    }
}

} // namespace quillon::vbscript
