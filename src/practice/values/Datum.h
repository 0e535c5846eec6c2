// Datum: one value at run time, with its type; may be null. A value of sql_variant is a Datum of its base
// type: a Datum never has the type SqlVariant unless it is null. Copies are cheap for all but texts and
// bytes.
//
// The payload follows from the type: bit to bigint Integer; money and decimal Number; real and float Float;
// character types and xml Text, in UTF-8, as it is (char and nchar padded); binary types Bytes; dates and
// times When; uniqueidentifier Identifier. Asking for another payload than that of the type is an error of
// ours (assert).
#pragma once

#include "practice/values/Decimal.h"
#include "practice/values/Moment.h"
#include "practice/values/SqlType.h"

#include <array>
#include <string>
#include <variant>

namespace quillon::practice {

// The sixteen bytes as the wire and CAST to binary have them: the first three groups little endian.
struct Guid {
    std::array<std::uint8_t, 16> bytes{};
    bool operator==(const Guid&) const = default;
};

class Datum {
  public:
    Datum() = default; // NULL of no type
    static Datum Null(const SqlType& type) { return Datum(type, {}); }
    static Datum Integer(TypeId id, std::int64_t value) { return Datum(IntType(id), value); }
    static Datum Int(std::int64_t value) { return Integer(TypeId::Int, value); }
    static Datum BigInt(std::int64_t value) { return Integer(TypeId::BigInt, value); }
    static Datum Bit(bool value) { return Integer(TypeId::Bit, value ? 1 : 0); }
    static Datum Float(double value, TypeId id = TypeId::Float) { return Datum(IntType(id), value); }
    static Datum Money(Int128 tenThousandths, TypeId id = TypeId::Money);
    static Datum Number(const SqlType& decimalType, Int128 unscaled);
    static Datum Text(const SqlType& type, std::string utf8) { return Datum(type, std::move(utf8)); }
    static Datum Bytes(const SqlType& type, std::string bytes) { return Datum(type, std::move(bytes)); }
    static Datum When(const SqlType& type, const Moment& moment) { return Datum(type, moment); }
    static Datum Identifier(const Guid& guid) { return Datum(IntType(TypeId::UniqueIdentifier), guid); }
    // An nvarchar, varchar as long as the text itself (at least 1; (max) beyond 4000, 8000), as a literal has
    // it.
    static Datum NVarCharOf(std::string utf8);
    static Datum VarCharOf(std::string utf8);

    bool IsNull() const { return std::holds_alternative<std::monostate>(m_value); }
    const SqlType& Type() const { return m_type; }
    void SetType(const SqlType& type) { m_type = type; } // for a type of the same payload only

    std::int64_t Integer() const { return std::get<std::int64_t>(m_value); }
    double Float() const { return std::get<double>(m_value); }
    Decimal Number() const { return {std::get<Int128>(m_value), m_type.scale}; }
    const std::string& Text() const { return std::get<std::string>(m_value); }
    const std::string& Bytes() const { return std::get<std::string>(m_value); }
    const Moment& When() const { return std::get<Moment>(m_value); }
    const Guid& Identifier() const { return std::get<Guid>(m_value); }

  private:
    using Payload = std::variant<std::monostate, std::int64_t, double, Int128, std::string, Moment, Guid>;
    Datum(const SqlType& type, Payload value)
        : m_type(type)
        , m_value(std::move(value)) {}

    SqlType m_type;
    Payload m_value;
};

} // namespace quillon::practice
