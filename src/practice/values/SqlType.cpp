#include "practice/values/SqlType.h"

#include "practice/values/SqlError.h"

#include <algorithm>
#include <cctype>
#include <iterator>

namespace quillon::practice {

namespace {

struct Facts {
    TypeId id;
    std::string_view name;
    int systemId;
    int legacyNumber; // syscolumns.type
    int bytes;        // of storage; for strings the most they can declare
    int precision;
    int scale;
    int odbc;
    int display;
};

// In the order of TypeId.
constexpr Facts facts[] = {
    {TypeId::Null, "NULL", 56, 56, 4, 10, 0, 4, 11},
    {TypeId::Bit, "bit", 104, 50, 1, 1, 0, -7, 1},
    {TypeId::TinyInt, "tinyint", 48, 48, 1, 3, 0, -6, 3},
    {TypeId::SmallInt, "smallint", 52, 52, 2, 5, 0, 5, 6},
    {TypeId::Int, "int", 56, 56, 4, 10, 0, 4, 11},
    {TypeId::BigInt, "bigint", 127, 63, 8, 19, 0, -5, 20},
    {TypeId::SmallMoney, "smallmoney", 122, 122, 4, 10, 4, 3, 12},
    {TypeId::Money, "money", 60, 60, 8, 19, 4, 3, 21},
    {TypeId::Decimal, "decimal", 106, 55, 17, 38, 38, 3, 40},
    {TypeId::Numeric, "numeric", 108, 63, 17, 38, 38, 2, 40},
    {TypeId::Real, "real", 59, 59, 4, 24, 0, 7, 14},
    {TypeId::Float, "float", 62, 62, 8, 53, 0, 6, 24},
    {TypeId::SmallDateTime, "smalldatetime", 58, 58, 4, 16, 0, 93, 19},
    {TypeId::DateTime, "datetime", 61, 61, 8, 23, 3, 93, 23},
    {TypeId::Date, "date", 40, 0, 3, 10, 0, 91, 10},
    {TypeId::Time, "time", 41, 0, 5, 16, 7, -154, 16},
    {TypeId::DateTime2, "datetime2", 42, 0, 8, 27, 7, 93, 27},
    {TypeId::DateTimeOffset, "datetimeoffset", 43, 0, 10, 34, 7, -155, 34},
    {TypeId::Char, "char", 175, 47, 8000, 0, 0, 1, 0},
    {TypeId::VarChar, "varchar", 167, 39, 8000, 0, 0, 12, 0},
    {TypeId::Text, "text", 35, 35, 16, 0, 0, -1, 2147483647},
    {TypeId::NChar, "nchar", 239, 47, 8000, 0, 0, -8, 0},
    {TypeId::NVarChar, "nvarchar", 231, 39, 8000, 0, 0, -9, 0},
    {TypeId::NText, "ntext", 99, 35, 16, 0, 0, -10, 1073741823},
    {TypeId::Binary, "binary", 173, 45, 8000, 0, 0, -2, 0},
    {TypeId::VarBinary, "varbinary", 165, 37, 8000, 0, 0, -3, 0},
    {TypeId::Image, "image", 34, 34, 16, 0, 0, -4, 2147483647},
    {TypeId::UniqueIdentifier, "uniqueidentifier", 36, 37, 16, 0, 0, -11, 36},
    {TypeId::RowVersion, "timestamp", 189, 45, 8, 0, 0, -2, 18},
    {TypeId::SqlVariant, "sql_variant", 98, 39, 8016, 0, 0, -150, 8000},
    {TypeId::Xml, "xml", 241, 0, -1, 0, 0, -152, 0},
};

const Facts& FactsOf(TypeId id) {
    return facts[static_cast<std::size_t>(id)];
}

struct Synonym {
    std::string_view name;
    TypeId id;
};

constexpr Synonym synonyms[] = {
    {"integer", TypeId::Int},
    {"dec", TypeId::Decimal},
    {"double precision", TypeId::Float},
    {"character", TypeId::Char},
    {"char varying", TypeId::VarChar},
    {"character varying", TypeId::VarChar},
    {"national char", TypeId::NChar},
    {"national character", TypeId::NChar},
    {"national char varying", TypeId::NVarChar},
    {"national character varying", TypeId::NVarChar},
    {"national text", TypeId::NText},
    {"binary varying", TypeId::VarBinary},
    {"rowversion", TypeId::RowVersion},
};

constexpr int fractionBytes[8] = {3, 3, 3, 4, 4, 5, 5, 5}; // of time, by its digits

bool IsString(TypeId id) {
    switch (id) {
    case TypeId::Char:
    case TypeId::VarChar:
    case TypeId::NChar:
    case TypeId::NVarChar:
    case TypeId::Binary:
    case TypeId::VarBinary: return true;
    default: return false;
    }
}

bool HasFraction(TypeId id) {
    return id == TypeId::Time || id == TypeId::DateTime2 || id == TypeId::DateTimeOffset;
}

std::string Lower(std::string_view text) {
    std::string result(text);
    for (char& c : result)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return result;
}

std::optional<TypeId> IdFromName(const std::string& lowerName) {
    for (const Facts& row : facts)
        if (row.id != TypeId::Null && row.name == lowerName)
            return row.id;
    for (const Synonym& synonym : synonyms)
        if (synonym.name == lowerName)
            return synonym.id;
    return {};
}

SqlType StringFromName(TypeId id, std::string_view name, std::optional<int> first, bool inCast) {
    const bool isUnicode = id == TypeId::NChar || id == TypeId::NVarChar;
    const bool isVarying = id == TypeId::VarChar || id == TypeId::NVarChar || id == TypeId::VarBinary;
    SqlType type = SimpleType(id);
    type.length = first.value_or(inCast ? 30 : 1);
    if (type.length == maxLength) {
        if (!isVarying)
            throw SqlError(1001, {"1", "-1"});
        return type;
    }
    const int limit = isUnicode ? 4000 : 8000;
    if (type.length < 1)
        throw SqlError(1001, {"1", std::to_string(type.length)});
    if (type.length > limit)
        throw SqlError(isUnicode ? 2717 : 131, {std::to_string(type.length), isUnicode ? "parameter" : "type",
                                                name, std::to_string(limit)});
    return type;
}

SqlType DecimalFromName(TypeId id, std::optional<int> first, std::optional<int> second) {
    const int precision = first.value_or(18);
    const int scale = second.value_or(0);
    if (precision > 38)
        throw SqlError(2750, {"1", std::to_string(precision), "38"});
    if (precision < 1)
        throw SqlError(1001, {"1", std::to_string(precision)});
    if (scale > precision)
        throw SqlError(192);
    if (scale < 0)
        throw SqlError(1002, {"1", std::to_string(scale)});
    return DecimalType(precision, scale, id);
}

SqlType FloatFromName(std::optional<int> first) {
    const int bits = first.value_or(53);
    if (bits < 1 || bits > 53)
        throw SqlError(1001, {"1", std::to_string(bits)});
    return SimpleType(bits <= 24 ? TypeId::Real : TypeId::Float);
}

} // namespace

bool SqlType::IsFixedLength() const {
    switch (id) {
    case TypeId::VarChar:
    case TypeId::NVarChar:
    case TypeId::VarBinary:
    case TypeId::Text:
    case TypeId::NText:
    case TypeId::Image:
    case TypeId::SqlVariant:
    case TypeId::Xml: return false;
    default: return true;
    }
}

std::string SqlType::Declaration() const {
    std::string text(Name());
    if (IsDecimal())
        return text + "(" + std::to_string(precision) + ", " + std::to_string(scale) + ")";
    if (HasFraction(id))
        return text + "(" + std::to_string(scale) + ")";
    if (IsString(id))
        return text + (IsMax() ? "(max)" : "(" + std::to_string(length) + ")");
    return text;
}

std::string_view SqlType::Name() const {
    return FactsOf(id).name;
}

int SqlType::StorageBytes() const {
    if (IsString(id))
        return IsMax() ? -1 : length * (IsUnicode() ? 2 : 1);
    if (IsDecimal())
        return precision <= 9 ? 5 : precision <= 19 ? 9 : precision <= 28 ? 13 : 17;
    if (HasFraction(id))
        return fractionBytes[scale] + (id == TypeId::DateTime2 ? 3 : id == TypeId::DateTimeOffset ? 5 : 0);
    return FactsOf(id).bytes;
}

int SqlType::LegacyTypeNumber() const {
    return FactsOf(id).legacyNumber;
}
int SqlType::SystemTypeId() const {
    return FactsOf(id).systemId;
}
int SqlType::OdbcTypeNumber() const {
    return FactsOf(id).odbc;
}

int SqlType::OdbcColumnSize() const {
    if (IsString(id))
        return IsMax() ? 2147483647 : length;
    if (IsLegacyLob())
        return FactsOf(id).display;
    switch (id) {
    case TypeId::UniqueIdentifier: return 36;
    case TypeId::RowVersion: return 8;
    case TypeId::SqlVariant: return 8000;
    case TypeId::Real: return 7;
    case TypeId::Float: return 15;
    default: return precision;
    }
}

int SqlType::DisplaySize() const {
    if (IsString(id))
        return IsMax() ? 2147483647 : length * (IsBinary() ? 2 : 1);
    if (IsDecimal())
        return precision + 2;
    if (HasFraction(id))
        return precision;
    return FactsOf(id).display;
}

SqlType IntType(TypeId id) {
    SqlType type;
    type.id = id;
    if (IsString(id)) {
        type.length = 1;
        return type;
    }
    const Facts& row = FactsOf(id);
    type.precision = static_cast<std::uint8_t>(row.precision);
    type.scale = static_cast<std::uint8_t>(row.scale);
    if (type.IsDecimal()) {
        type.precision = 18;
        type.scale = 0;
    }
    return type;
}

SqlType DecimalType(int precision, int scale, TypeId id) {
    SqlType type;
    type.id = id;
    type.precision = static_cast<std::uint8_t>(std::clamp(precision, 1, 38));
    type.scale = static_cast<std::uint8_t>(std::clamp(scale, 0, static_cast<int>(type.precision)));
    return type;
}

SqlType TextType(TypeId id, int length, const Collation* collation) {
    SqlType type;
    type.id = id;
    type.length = length;
    type.collation = collation;
    return type;
}

SqlType BinaryType(TypeId id, int length) {
    return TextType(id, length);
}

SqlType MomentType(TypeId id, int scale) {
    SqlType type = IntType(id);
    if (!HasFraction(id))
        return type;
    constexpr int base[3] = {8, 19, 26}; // hh:mm:ss, with a date, with an offset
    const int which = id == TypeId::Time ? 0 : id == TypeId::DateTime2 ? 1 : 2;
    type.scale = static_cast<std::uint8_t>(scale);
    type.precision = static_cast<std::uint8_t>(base[which] + (scale > 0 ? scale + 1 : 0));
    return type;
}

std::optional<SqlType> TypeFromName(std::string_view name, std::optional<int> first,
                                    std::optional<int> second, bool inCast) {
    const std::string lower = Lower(name);
    if (lower == "sysname") {
        if (first)
            throw SqlError(2716, {"1", "sysname"});
        return SysName();
    }
    const auto id = IdFromName(lower);
    if (!id)
        return {};
    if (IsString(*id)) {
        if (second)
            throw SqlError(291, {name});
        return StringFromName(*id, name, first, inCast);
    }
    if (*id == TypeId::Decimal || *id == TypeId::Numeric)
        return DecimalFromName(*id, first, second);
    if (*id == TypeId::Float && !second)
        return FloatFromName(first);
    if (HasFraction(*id) && !second) {
        if (first && (*first < 0 || *first > 7))
            throw SqlError(1002, {"1", std::to_string(*first)});
        return MomentType(*id, first.value_or(7));
    }
    if (first && inCast)
        throw SqlError(291, {lower});
    if (first)
        throw SqlError(2716, {"1", lower});
    return SimpleType(*id);
}

const TypeRow* BuiltInTypes(int& count) {
    static const std::vector<TypeRow> rows = [] {
        std::vector<TypeRow> table;
        for (const Facts& row : facts)
            if (row.id != TypeId::Null)
                table.push_back({row.id, row.name, row.systemId, row.bytes, row.precision, row.scale});
        std::sort(table.begin(), table.end(), [](const TypeRow& left, const TypeRow& right) {
            return left.systemTypeId < right.systemTypeId;
        });
        return table;
    }();
    count = static_cast<int>(rows.size());
    return rows.data();
}

} // namespace quillon::practice
