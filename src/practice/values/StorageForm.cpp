#include "practice/values/StorageForm.h"

#include "practice/values/ConvertParts.h"
#include "practice/values/Operators.h"
#include "practice/values/VariantForm.h"

#include <cstdio>
#include <cstring>
#include <sqlite3.h>

namespace quillon::practice {

namespace {

constexpr std::int64_t stepsPerDay = 24LL * 60 * 60 * 300;
constexpr std::size_t guidOrder[16] = {10, 11, 12, 13, 14, 15, 8, 9, 6, 7, 4, 5, 0, 1, 2, 3};
constexpr int shortDecimal = 18; // digits that 64 bits hold

std::string BytesOfLongDecimal(Int128 unscaled) {
    auto bits = static_cast<UInt128>(unscaled) ^ (UInt128(1) << 127);
    std::string bytes(16, '\0');
    for (std::size_t index = 16; index > 0; --index, bits >>= 8)
        bytes[index - 1] = static_cast<char>(bits & 0xFF);
    return bytes;
}

Int128 LongDecimalOfBytes(std::string_view bytes) {
    UInt128 bits = 0;
    for (const char byte : bytes)
        bits = (bits << 8) | static_cast<unsigned char>(byte);
    return static_cast<Int128>(bits ^ (UInt128(1) << 127));
}

std::string BytesOfGuid(const Guid& guid) {
    std::string bytes;
    for (const std::size_t index : guidOrder)
        bytes.push_back(static_cast<char>(guid.bytes[index]));
    return bytes;
}

Guid GuidOfBytes(std::string_view bytes) {
    Guid guid;
    for (std::size_t at = 0; at < 16 && at < bytes.size(); ++at)
        guid.bytes[guidOrder[at]] = static_cast<std::uint8_t>(bytes[at]);
    return guid;
}

std::int64_t IntegerOfMoment(const Moment& moment, TypeId id) {
    switch (id) {
    case TypeId::DateTime:
    case TypeId::SmallDateTime: return (moment.day - day1900) * stepsPerDay + DateTimeSteps(moment.ticks);
    case TypeId::Date: return moment.day;
    case TypeId::Time: return moment.ticks;
    default: return moment.TotalTicks();
    }
}

Moment MomentOfInteger(std::int64_t number, TypeId id) {
    switch (id) {
    case TypeId::DateTime:
    case TypeId::SmallDateTime: {
        const std::int64_t day =
            number >= 0 ? number / stepsPerDay : -((-number + stepsPerDay - 1) / stepsPerDay);
        return {static_cast<std::int32_t>(day) + day1900, TicksFromSteps(number - day * stepsPerDay), 0};
    }
    case TypeId::Date: return {static_cast<std::int32_t>(number), 0, 0};
    case TypeId::Time: return {day1900, number, 0};
    default: return Moment::FromTotalTicks(number);
    }
}

std::string TextOfOffsetMoment(const Moment& moment) {
    char buffer[48];
    std::snprintf(buffer, sizeof buffer, "%020lld%+05d", static_cast<long long>(moment.TotalTicks()),
                  static_cast<int>(moment.offsetMinutes));
    return buffer;
}

Moment OffsetMomentOfText(const std::string& text) {
    const auto offset = text.size() > 20 ? std::stoi(text.substr(20)) : 0;
    return Moment::FromTotalTicks(std::stoll(text.substr(0, 20)), static_cast<std::int16_t>(offset));
}

std::int64_t StoredInteger(const Datum& value) {
    const SqlType& type = value.Type();
    if (type.IsInteger())
        return value.Integer();
    if (type.IsMoment())
        return IntegerOfMoment(value.When(), type.id);
    return static_cast<std::int64_t>(value.Number().unscaled);
}

// For the classes Text and Blob. A reference into the value where it is stored as it stands.
std::string StoredString(const Datum& value, const SqlType& type) {
    if (type.id == TypeId::SqlVariant)
        return EncodeVariant(value);
    if (type.IsDecimal())
        return BytesOfLongDecimal(value.Number().unscaled);
    if (type.id == TypeId::UniqueIdentifier)
        return BytesOfGuid(value.Identifier());
    return TextOfOffsetMoment(value.When());
}

bool IsStoredAsItStands(const SqlType& type) {
    return type.IsCharacter() || type.IsBinary() || type.id == TypeId::Xml;
}

Datum DatumOfInteger(std::int64_t number, const SqlType& type) {
    if (type.IsMoney())
        return Datum::Money(number, type.id);
    if (type.IsDecimal())
        return Datum::Number(type, number);
    if (type.IsMoment())
        return Datum::When(type, MomentOfInteger(number, type.id));
    return Datum::Integer(type.id == TypeId::Null ? TypeId::Int : type.id, number);
}

Datum DatumOfBytes(std::string bytes, const SqlType& type) {
    if (type.IsBinary())
        return Datum::Bytes(type, std::move(bytes));
    if (type.id == TypeId::SqlVariant)
        return DecodeVariant(bytes);
    if (type.IsDecimal())
        return Datum::Number(type, LongDecimalOfBytes(bytes));
    if (type.id == TypeId::UniqueIdentifier)
        return Datum::Identifier(GuidOfBytes(bytes));
    if (type.id == TypeId::DateTimeOffset)
        return Datum::When(type, OffsetMomentOfText(bytes));
    return Datum::Text(type, std::move(bytes));
}

// The stored form of what is not null, by class, into whichever of the three sinks the class calls for.
template <typename IntegerSink, typename RealSink, typename StringSink>
void Store(const Datum& value, const SqlType& type, IntegerSink integer, RealSink real, StringSink string) {
    switch (StorageClassOf(type)) {
    case StorageClass::Integer: integer(StoredInteger(value)); return;
    case StorageClass::Real: real(value.Float()); return;
    case StorageClass::Text:
    case StorageClass::Blob: {
        const bool isText = StorageClassOf(type) == StorageClass::Text;
        if (IsStoredAsItStands(type))
            string(value.Text(), isText);
        else
            string(StoredString(value, type), isText);
        return;
    }
    }
}

bool HoldsNul(const std::string& text) {
    return text.find('\0') != std::string::npos;
}

std::string QuotedString(const std::string& text, bool isText) {
    if (!isText || HoldsNul(text)) {
        const std::string bytes = "x'" + ToHex(text, false) + "'";
        return isText ? "CAST(" + bytes + " AS TEXT)" : bytes;
    }
    std::string quoted = "'";
    for (const char c : text) {
        quoted.push_back(c);
        if (c == '\'')
            quoted.push_back(c);
    }
    return quoted + "'";
}

int CompareByCollation(void* collation, int leftSize, const void* left, int rightSize, const void* right) {
    return static_cast<const Collation*>(collation)->Compare(
        {static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
        {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
}

int CompareOffsetMoments(void*, int, const void* left, int, const void* right) {
    return std::memcmp(left, right, 20);
}

int CompareStoredVariants(void*, int leftSize, const void* left, int rightSize, const void* right) {
    return CompareVariants(
        DecodeVariant({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)}),
        DecodeVariant({static_cast<const char*>(right), static_cast<std::size_t>(rightSize)}));
}

} // namespace

void RegisterCollations(sqlite3* connection) {
    for (const char* name : {"Latin1_General_CI_AS", "Latin1_General_CS_AS", "Latin1_General_CI_AI",
                             "Latin1_General_CS_AI", "Latin1_General_BIN2"}) {
        const Collation* collation = FindCollation(name);
        sqlite3_create_collation_v2(connection, collation->SqliteName(), SQLITE_UTF8,
                                    const_cast<Collation*>(collation), CompareByCollation, nullptr);
    }
    sqlite3_create_collation_v2(connection, "DATETIMEOFFSET", SQLITE_UTF8, nullptr, CompareOffsetMoments,
                                nullptr);
    sqlite3_create_collation_v2(connection, "SQL_VARIANT", SQLITE_UTF8, nullptr, CompareStoredVariants,
                                nullptr);
}

StorageClass StorageClassOf(const SqlType& type) {
    if (type.IsDecimal())
        return type.precision <= shortDecimal ? StorageClass::Integer : StorageClass::Blob;
    if (type.IsFloat())
        return StorageClass::Real;
    if (type.IsBinary() || type.id == TypeId::UniqueIdentifier)
        return StorageClass::Blob;
    if (type.IsCharacter() || type.id == TypeId::DateTimeOffset || type.id == TypeId::SqlVariant ||
        type.id == TypeId::Xml)
        return StorageClass::Text;
    return StorageClass::Integer;
}

std::string SqliteColumnType(const SqlType& type) {
    switch (StorageClassOf(type)) {
    case StorageClass::Integer: return "INTEGER";
    case StorageClass::Real: return "REAL";
    case StorageClass::Blob: return "BLOB";
    default: {
        const std::string collation = SqliteCollation(type);
        return collation.empty() ? "TEXT" : "TEXT COLLATE " + collation;
    }
    }
}

std::string SqliteCollation(const SqlType& type) {
    if (type.IsCharacter())
        return (type.collation != nullptr ? type.collation : DefaultCollation())->SqliteName();
    if (type.id == TypeId::DateTimeOffset)
        return "DATETIMEOFFSET";
    return type.id == TypeId::SqlVariant ? "SQL_VARIANT" : "";
}

Datum LoadValue(sqlite3_value* value, const SqlType& type) {
    if (sqlite3_value_type(value) == SQLITE_NULL)
        return Datum::Null(type);
    switch (StorageClassOf(type)) {
    case StorageClass::Integer: return DatumOfInteger(sqlite3_value_int64(value), type);
    case StorageClass::Real: return Datum::Float(sqlite3_value_double(value), type.id);
    default: break;
    }
    const void* bytes =
        StorageClassOf(type) == StorageClass::Text ? sqlite3_value_text(value) : sqlite3_value_blob(value);
    const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
    return DatumOfBytes(bytes == nullptr ? std::string() : std::string(static_cast<const char*>(bytes), size),
                        type);
}

Datum LoadColumn(sqlite3_stmt* statement, int column, const SqlType& type) {
    return LoadValue(sqlite3_column_value(statement, column), type);
}

void BindDatum(sqlite3_stmt* statement, int index, const Datum& value, const SqlType& type) {
    if (value.IsNull()) {
        sqlite3_bind_null(statement, index);
        return;
    }
    Store(
        value, type, [&](std::int64_t number) { sqlite3_bind_int64(statement, index, number); },
        [&](double number) { sqlite3_bind_double(statement, index, number); },
        [&](const std::string& text, bool isText) {
            if (isText)
                sqlite3_bind_text64(statement, index, text.data(), text.size(), SQLITE_TRANSIENT,
                                    SQLITE_UTF8);
            else
                sqlite3_bind_blob64(statement, index, text.data(), text.size(), SQLITE_TRANSIENT);
        });
}

void ResultDatum(sqlite3_context* context, const Datum& value, const SqlType& type) {
    if (value.IsNull()) {
        sqlite3_result_null(context);
        return;
    }
    Store(
        value, type, [&](std::int64_t number) { sqlite3_result_int64(context, number); },
        [&](double number) { sqlite3_result_double(context, number); },
        [&](const std::string& text, bool isText) {
            if (isText)
                sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
            else
                sqlite3_result_blob64(context, text.data(), text.size(), SQLITE_TRANSIENT);
        });
}

std::string SqliteLiteral(const Datum& value, const SqlType& type) {
    if (value.IsNull())
        return "NULL";
    std::string literal;
    Store(
        value, type, [&](std::int64_t number) { literal = std::to_string(number); },
        [&](double number) {
            char buffer[40];
            std::snprintf(buffer, sizeof buffer, "%.17e", number);
            literal = buffer;
        },
        [&](const std::string& text, bool isText) { literal = QuotedString(text, isText); });
    return literal;
}

} // namespace quillon::practice
