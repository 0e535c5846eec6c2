// A value that crosses between the system and what it runs on: script code, the data access library,
// settings.
//
// Used by: late-bound objects (Object.h), script hosts, recordset fields, command parameters.
// A Value owns what it holds: text by value, objects by counted reference, arrays by shared reference (an
// array in a Value is never changed; who changes one makes a copy first). Conversion.h has the rules for
// turning one sub-type into another. Booleans are 16-bit for scripts, True = -1.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/ObjectRef.h"

namespace quillon {

class Value;

// Sub-types with the numbers that VarType gives.
enum class ValueType : std::int16_t {
    Empty = 0,
    Null = 1,
    Integer = 2,
    Long = 3,
    Single = 4,
    Double = 5,
    Currency = 6,
    Date = 7,
    String = 8,
    Object = 9,
    Error = 10,
    Boolean = 11,
    Decimal = 14,
    Byte = 17,
    Array = 8192, // with element type Variant, 8204, as VarType says
};

// The value of a field that holds NULL.
struct NullValue {
    bool operator==(const NullValue&) const = default;
};

// An argument that was left out.
struct MissingValue {
    bool operator==(const MissingValue&) const = default;
};

// A fixed-point number of four decimals, range -922337203685477.5808 to 922337203685477.5807.
struct CurrencyValue {
    std::int64_t tenThousandths = 0;
    bool operator==(const CurrencyValue&) const = default;
};

// Days since 30 December 1899, time of day as the fraction; range 1 January 100 to 31 December 9999.
struct DateValue {
    double days = 0;
    bool operator==(const DateValue&) const = default;
};

// An exact decimal of the data access library, as its digits ("-12.340"); scripts see it as its text form.
struct DecimalValue {
    std::string digits;
    bool operator==(const DecimalValue&) const = default;
};

// An array of Variant with any number of dimensions; the first subscript runs fastest. Lower bounds are 0.
struct ArrayValue {
    std::vector<std::int32_t> upperBounds; // one a dimension; -1 for an empty one
    std::vector<Value> elements;
};

class Value {
  public:
    Value() = default; // Empty
    Value(NullValue value)
        : m_held(value) {}
    Value(MissingValue value)
        : m_held(value) {}
    Value(bool value)
        : m_held(value) {}
    Value(std::uint8_t value)
        : m_held(value) {}
    Value(std::int16_t value)
        : m_held(value) {}
    Value(std::int32_t value)
        : m_held(value) {}
    Value(float value)
        : m_held(value) {}
    Value(double value)
        : m_held(value) {}
    Value(CurrencyValue value)
        : m_held(value) {}
    Value(DateValue value)
        : m_held(value) {}
    Value(DecimalValue value)
        : m_held(std::move(value)) {}
    Value(std::string value)
        : m_held(std::move(value)) {}
    Value(std::string_view value)
        : m_held(std::string(value)) {}
    Value(const char* value)
        : m_held(std::string(value)) {}
    Value(ObjectRef value)
        : m_held(std::move(value)) {} // an empty reference is Nothing
    Value(std::shared_ptr<const ArrayValue> value)
        : m_held(std::move(value)) {}

    ValueType Type() const noexcept;
    bool IsEmpty() const noexcept { return Is<std::monostate>(); }
    bool IsNull() const noexcept { return Is<NullValue>(); }
    bool IsMissing() const noexcept { return Is<MissingValue>(); }
    bool IsObject() const noexcept { return Is<ObjectRef>(); }

    template <class T>
    bool Is() const noexcept {
        return std::holds_alternative<T>(m_held);
    }
    // The held value of exactly this type; std::bad_variant_access otherwise.
    template <class T>
    const T& As() const {
        return std::get<T>(m_held);
    }
    template <class T>
    const T* If() const noexcept {
        return std::get_if<T>(&m_held);
    }

    bool operator==(const Value&) const = default; // same sub-type and same contents; objects by identity

  private:
    std::variant<std::monostate, NullValue, MissingValue, bool, std::uint8_t, std::int16_t, std::int32_t,
                 float, double, CurrencyValue, DateValue, DecimalValue, std::string, ObjectRef,
                 std::shared_ptr<const ArrayValue>>
        m_held;
};

} // namespace quillon
