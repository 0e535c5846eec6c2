// The value of every script variable: sixteen bytes, a kind and what it holds.
//
// Numbers, dates and Booleans lie inside; texts, objects and arrays are counted references that the Variant
// owns a share of. Copying an array copies its reference, and whoever writes to a shared array copies it
// first (Array.h), so that scripts see arrays as values. The last owner of an object releases it at once:
// assignment lets go of the old contents only after the new ones are in place, since the release may run
// script code (Terminate).
//
// The kinds behind Class are the machine's own and never reach an intrinsic function or a host object.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/Object.h"
#include "platform/Value.h"
#include "vbscript/machine/Text.h"

namespace quillon::vbscript {

class ArrayBuffer;
class ScriptObject;
class Variant;

// Ordered so that one comparison answers the questions of the fast paths: a number held as an integer
// (Boolean to Long), contents that need no release (below Text).
enum class Kind : std::uint64_t {
    Empty,
    Null,
    Missing, // an argument that was left out; scripts see sub-type Error
    Boolean, // Number() is 0 or -1
    Byte,
    Integer,
    Long,
    Single,
    Double,
    Currency,
    Date,
    Reference, // internal: the variable that a ByRef parameter stands for
    Procedure, // internal: a global name that is a procedure
    Class,     // internal: a global name that is a class
    Unset,     // internal: a global name that nothing has declared
    Text,
    Object,       // a late-bound object of the surroundings; Nothing is one with a null pointer
    ScriptObject, // a late-bound object of the engine's own (ScriptObject.h)
    Array,
    Constant,  // internal: a global name that is a constant; Pointer() is its Variant, owned elsewhere
    ArrayLock, // internal: keeps an array whole while one of its elements is lent out
};

class Variant {
  public:
    Variant() noexcept = default; // Empty
    Variant(NullValue) noexcept
        : m_kind(Kind::Null) {}
    Variant(MissingValue) noexcept
        : m_kind(Kind::Missing) {}
    Variant(bool value) noexcept
        : Variant(Kind::Boolean, value ? -1 : 0) {}
    Variant(std::uint8_t value) noexcept
        : Variant(Kind::Byte, value) {}
    Variant(std::int16_t value) noexcept
        : Variant(Kind::Integer, value) {}
    Variant(std::int32_t value) noexcept
        : Variant(Kind::Long, value) {}
    Variant(float value) noexcept
        : m_kind(Kind::Single) {
        m_held.single = value;
    }
    Variant(double value) noexcept
        : m_kind(Kind::Double) {
        m_held.real = value;
    }
    Variant(CurrencyValue value) noexcept
        : Variant(Kind::Currency, value.tenThousandths) {}
    Variant(DateValue value) noexcept
        : m_kind(Kind::Date) {
        m_held.real = value.days;
    }
    Variant(Text value) noexcept
        : m_kind(Kind::Text) {
        m_held.text = std::move(value);
    }
    Variant(std::u16string_view value)
        : Variant(Text(value)) {}
    Variant(const char16_t* value)
        : Variant(Text(value)) {}
    // Finds out itself whether the object is one of the engine's own; null is Nothing.
    Variant(ObjectRef object) noexcept;
    Variant(ArrayBuffer* array) noexcept; // takes a share
    template <class T>
    Variant(T*) = delete; // no pointer is a Boolean

    Variant(const Variant& other) noexcept
        : m_held(other.m_held.bits)
        , m_kind(other.m_kind) {
        if (m_kind == Kind::Text)
            m_held.text.AddOwner();
        else if (IsCounted())
            Retain();
    }
    Variant(Variant&& other) noexcept
        : m_held(other.m_held.bits)
        , m_kind(other.m_kind) {
        other.m_kind = Kind::Empty;
    }
    Variant& operator=(const Variant& other) noexcept {
        Variant copy(other);
        Swap(copy);
        return *this;
    }
    Variant& operator=(Variant&& other) noexcept {
        Variant moved(std::move(other));
        Swap(moved);
        return *this;
    }
    ~Variant() {
        if (IsCounted())
            Release();
    }
    void Swap(Variant& other) noexcept {
        std::swap(m_held.bits, other.m_held.bits);
        std::swap(m_kind, other.m_kind);
    }

    // Becomes Empty; the old contents go last.
    void Reset() noexcept {
        if (IsCounted())
            Variant old(std::move(*this));
        m_kind = Kind::Empty;
    }

    // --- what it is ---
    Kind kind() const noexcept { return m_kind; }
    ValueType Type() const noexcept; // as VarType numbers it; Text is String
    bool IsEmpty() const noexcept { return m_kind == Kind::Empty; }
    bool IsNull() const noexcept { return m_kind == Kind::Null; }
    bool IsMissing() const noexcept { return m_kind == Kind::Missing; }
    bool IsText() const noexcept { return m_kind == Kind::Text; }
    bool IsArray() const noexcept { return m_kind == Kind::Array; }
    bool IsObject() const noexcept { return m_kind == Kind::Object || m_kind == Kind::ScriptObject; }
    bool IsNothing() const noexcept { return IsObject() && m_held.object.get() == nullptr; }
    bool IsWhole() const noexcept { return m_kind >= Kind::Boolean && m_kind <= Kind::Long; }
    bool IsCounted() const noexcept { return m_kind >= Kind::Text; }

    // --- what it holds; each only for the kinds named ---
    std::int64_t Number() const noexcept { return m_held.number; } // Boolean, Byte, Integer, Long
    float Single() const noexcept { return m_held.single; }
    double Real() const noexcept { return m_held.real; } // Double; Date as its days
    CurrencyValue Currency() const noexcept { return {m_held.number}; }
    DateValue Date() const noexcept { return {m_held.real}; }
    const Text& AsText() const noexcept { return m_held.text; }
    Text& AsText() noexcept { return m_held.text; }
    std::u16string_view View() const noexcept { return m_held.text.View(); }
    const ObjectRef& AsObject() const noexcept { return m_held.object; }

    ArrayBuffer* AsArray() const noexcept { return m_held.array; }
    Variant* Target() const noexcept { return m_held.target; } // Reference
    void* Pointer() const noexcept { return m_held.pointer; }  // Procedure, Class, Constant

    // An internal kind that holds an address.
    static Variant Internal(Kind kind, void* pointer) noexcept {
        Variant result;
        result.m_kind = kind;
        result.m_held.pointer = pointer;
        return result;
    }
    static Variant ReferenceTo(Variant* target) noexcept { return Internal(Kind::Reference, target); }

    // Keeps `array` alive and locked as long as it lives.
    static Variant LockOf(ArrayBuffer* array) noexcept;

    // The array held, which nobody else holds, lies elsewhere now.
    void ArrayMoved(ArrayBuffer* array) noexcept { m_held.array = array; }

    // --- for the machine's fast paths: overwrite without release, only over an uncounted kind ---
    void SetNumber(Kind kind, std::int64_t number) noexcept {
        m_held.number = number;
        m_kind = kind;
    }
    void SetReal(Kind kind, double real) noexcept {
        m_held.real = real;
        m_kind = kind;
    }

  private:
    union Held {
        std::uint64_t bits;
        std::int64_t number;
        double real;
        float single;
        Text text;
        ObjectRef object;
        ArrayBuffer* array;
        Variant* target;
        void* pointer;
        explicit Held(std::uint64_t raw = 0) noexcept
            : bits(raw) {}
        ~Held() {}
    };
    static_assert(sizeof(Held) == 8);

    Variant(Kind kind, std::int64_t number) noexcept
        : m_kind(kind) {
        m_held.number = number;
    }
    void Retain() noexcept;
    void Release() noexcept;

    Held m_held;
    Kind m_kind = Kind::Empty;
};
static_assert(sizeof(Variant) == 16);

// --- to and from what crosses to the surroundings ---
// Arrays are copied; Decimal becomes its text, of a procedure's or class's name nothing crosses.
Variant FromValue(const Value& value);
Value ToValue(const Variant& variant);

} // namespace quillon::vbscript
