// SqlType: what a column, variable, parameter or expression is declared as. A plain value; nullability is not
// part of it.
#pragma once

#include "practice/values/Collation.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::practice {

enum class TypeId : std::uint8_t {
    Null, // the type of the bare literal NULL; becomes int where a type is needed
    Bit,
    TinyInt,
    SmallInt,
    Int,
    BigInt,
    SmallMoney,
    Money,
    Decimal,
    Numeric,
    Real,
    Float,
    SmallDateTime,
    DateTime,
    Date,
    Time,
    DateTime2,
    DateTimeOffset,
    Char,
    VarChar,
    Text,
    NChar,
    NVarChar,
    NText,
    Binary,
    VarBinary,
    Image,
    UniqueIdentifier,
    RowVersion,
    SqlVariant,
    Xml,
};

constexpr int maxLength = -1; // the length of varchar(max), nvarchar(max), varbinary(max)

struct SqlType {
    TypeId id = TypeId::Null;
    std::uint8_t precision = 0; // decimal digits of numbers; for decimals 1..38
    std::uint8_t scale =
        0;          // digits after the point; fractional seconds digits of time, datetime2, datetimeoffset
    int length = 0; // char types: characters as declared; binary: bytes; maxLength for (max); else 0
    const Collation* collation = nullptr; // char types only; nullptr stands for the default of the database

    bool operator==(const SqlType&) const = default;

    bool IsInteger() const { return id >= TypeId::Bit && id <= TypeId::BigInt; }
    bool IsMoney() const { return id == TypeId::Money || id == TypeId::SmallMoney; }
    bool IsDecimal() const { return id == TypeId::Decimal || id == TypeId::Numeric; }
    bool IsFloat() const { return id == TypeId::Real || id == TypeId::Float; }
    bool IsNumber() const { return id >= TypeId::Bit && id <= TypeId::Float; }
    bool IsMoment() const { return id >= TypeId::SmallDateTime && id <= TypeId::DateTimeOffset; }
    bool IsCharacter() const { return id >= TypeId::Char && id <= TypeId::NText; } // text and ntext included
    bool IsUnicode() const { return id >= TypeId::NChar && id <= TypeId::NText; }
    bool IsBinary() const {
        return (id >= TypeId::Binary && id <= TypeId::Image) || id == TypeId::RowVersion;
    }
    bool IsLegacyLob() const { return id == TypeId::Text || id == TypeId::NText || id == TypeId::Image; }
    bool IsMax() const { return length == maxLength; }
    bool IsFixedLength() const; // char, nchar, binary and every type that is no string

    // As DDL writes it: decimal(18, 2), varchar(max), datetime2(7).
    std::string Declaration() const;
    // The bare name: decimal, varchar, timestamp for RowVersion.
    std::string_view Name() const;
    // sys.columns.max_length: bytes of storage; -1 for (max) and xml; 16 for text, ntext and image.
    int StorageBytes() const;
    // systypes.type, the numbers of the older catalogue (sysobjects' syscolumns.type): e.g. 56 for int.
    int LegacyTypeNumber() const;
    // sys.types.system_type_id, which is also syscolumns.xtype: 56 int, 167 varchar, 231 nvarchar ...
    int SystemTypeId() const;
    // sys.types.user_type_id: as above but 189 timestamp, 256 sysname is the caller's matter.
    // The ODBC type number and sizes that sp_columns reports.
    int OdbcTypeNumber() const;
    int OdbcColumnSize() const;
    int DisplaySize() const;
};

SqlType IntType(TypeId id = TypeId::Int); // any type without length or scale
SqlType DecimalType(int precision, int scale, TypeId id = TypeId::Decimal);
SqlType TextType(TypeId id, int length, const Collation* collation = nullptr); // char and varchar families
SqlType BinaryType(TypeId id, int length);
SqlType MomentType(TypeId id, int scale = 7); // scale matters for time, datetime2, datetimeoffset only
inline SqlType SimpleType(TypeId id) {
    return IntType(id);
}
inline SqlType NVarChar(int length) {
    return TextType(TypeId::NVarChar, length);
}
inline SqlType VarChar(int length) {
    return TextType(TypeId::VarChar, length);
}
inline SqlType SysName() {
    return TextType(TypeId::NVarChar, 128);
}

// The type that a declaration names, e.g. ("decimal", 10, 2), ("character varying", 30, {}), ("sysname").
// `first` is the length or precision, maxLength for (max). Missing lengths take the documented default: 1 in
// a declaration, 30 in CAST and CONVERT (`inCast`). Returns nothing when no built-in type bears the name.
// Throws SqlError 131, 1001, 1002, 2716, 2717, 2750, 2751 for sizes out of range.
std::optional<SqlType> TypeFromName(std::string_view name, std::optional<int> first = {},
                                    std::optional<int> second = {}, bool inCast = false);

// Every built-in type once, in the order of sys.types.
struct TypeRow {
    TypeId id;
    std::string_view name;
    int systemTypeId;
    int maxLength;
    int precision;
    int scale;
};
const TypeRow* BuiltInTypes(int& count);

} // namespace quillon::practice
