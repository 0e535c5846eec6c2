#include "practice/tds/Tokens.h"

#include "practice/tds/Login.h"
#include "practice/tds/Values.h"

#include <algorithm>

namespace quillon::practice::tds {
namespace {

namespace token {
constexpr std::uint8_t returnStatus = 0x79;
constexpr std::uint8_t columnMetadata = 0x81;
constexpr std::uint8_t error = 0xAA;
constexpr std::uint8_t info = 0xAB;
constexpr std::uint8_t returnValue = 0xAC;
constexpr std::uint8_t loginAcknowledge = 0xAD;
constexpr std::uint8_t row = 0xD1;
constexpr std::uint8_t nullBitmapRow = 0xD2;
constexpr std::uint8_t environmentChange = 0xE3;
constexpr std::uint8_t done = 0xFD;
constexpr std::uint8_t doneProcedure = 0xFE;
constexpr std::uint8_t doneInProcedure = 0xFF;
} // namespace token

// The kinds of ENVCHANGE.
namespace change {
constexpr std::uint8_t database = 1;
constexpr std::uint8_t language = 2;
constexpr std::uint8_t packetSize = 4;
constexpr std::uint8_t collation = 7;
constexpr std::uint8_t beginTransaction = 8;
constexpr std::uint8_t commitTransaction = 9;
constexpr std::uint8_t rollbackTransaction = 10;
constexpr std::uint8_t reset = 18;
} // namespace change

std::uint16_t ColumnFlags(const ResultColumn& column) {
    constexpr std::uint16_t nullable = 0x01;
    constexpr std::uint16_t caseSensitive = 0x02;
    constexpr std::uint16_t maybeUpdateable = 0x08;
    constexpr std::uint16_t identity = 0x10;
    constexpr std::uint16_t computed = 0x20;
    unsigned flags = 0;
    flags |= column.nullable ? nullable : 0U;
    flags |= column.caseSensitive ? caseSensitive : 0U;
    flags |= column.identity ? identity : 0U;
    flags |= column.readOnly ? computed : maybeUpdateable;
    return static_cast<std::uint16_t>(flags);
}

std::string NullBitmap(std::span<const Datum> values) {
    std::string bitmap((values.size() + 7) / 8, '\0');
    for (std::size_t index = 0; index < values.size(); ++index) {
        if (values[index].IsNull()) {
            bitmap[index / 8] = static_cast<char>(bitmap[index / 8] | (1 << (index % 8)));
        }
    }
    return bitmap;
}

} // namespace

TokenWriter::TokenWriter(PacketWriter& packets, std::uint32_t tdsVersion, std::string serverName)
    : m_packets(packets)
    , m_version(tdsVersion)
    , m_serverName(std::move(serverName)) {}

void TokenWriter::Send() {
    m_packets.Write(m_buffer.Content());
    m_buffer.Clear();
}

void TokenWriter::SendWithLength(std::uint8_t tokenId, const ByteWriter& fields) {
    m_buffer.U8(tokenId);
    m_buffer.U16(static_cast<std::uint16_t>(fields.Size()));
    m_buffer.Bytes(fields.Content());
    Send();
}

void TokenWriter::LoginAcknowledge() {
    constexpr std::uint8_t transactSql = 1;
    ByteWriter fields;
    fields.U8(transactSql);
    fields.BigEndian32(m_version);
    fields.ShortText(productName);
    fields.BigEndian32(productVersion);
    SendWithLength(token::loginAcknowledge, fields);
}

void TokenWriter::Message(const ServerMessage& message) {
    ByteWriter fields;
    fields.I32(message.number);
    fields.U8(message.state);
    fields.U8(message.severity);
    fields.LongText(message.text);
    fields.ShortText(m_serverName);
    fields.ShortText(message.procedure);
    if (m_version >= version::tds72) {
        fields.I32(message.line);
    } else {
        fields.U16(static_cast<std::uint16_t>(std::clamp(message.line, 0, 0xFFFF)));
    }
    constexpr std::uint8_t leastError = 11;
    SendWithLength(message.severity >= leastError ? token::error : token::info, fields);
}

void TokenWriter::WriteUserType(const SqlType& type) {
    if (m_version >= version::tds72) {
        m_buffer.U32(UserTypeOf(type));
    } else {
        m_buffer.U16(static_cast<std::uint16_t>(UserTypeOf(type)));
    }
}

void TokenWriter::WriteTableName(const std::string& name) {
    if (m_version >= version::tds72) {
        m_buffer.U8(1); // parts
    }
    m_buffer.LongText(name);
}

void TokenWriter::WriteColumn(const ResultColumn& column, const WireType& type) {
    WriteUserType(column.type);
    m_buffer.U16(ColumnFlags(column));
    WriteTypeInfo(type, m_buffer);
    if (type.form == LengthForm::Pointer) {
        WriteTableName(column.tableName);
    }
    m_buffer.ShortText(column.name);
}

void TokenWriter::Columns(const std::vector<ResultColumn>& columns) {
    m_types.clear();
    m_buffer.U8(token::columnMetadata);
    m_buffer.U16(static_cast<std::uint16_t>(columns.size()));
    for (const ResultColumn& column : columns) {
        m_types.push_back(WireTypeFor(column.type, m_version));
        WriteColumn(column, m_types.back());
    }
    Send();
}

void TokenWriter::Row(std::span<const Datum> values) {
    if (values.size() != m_types.size()) {
        throw std::logic_error("a row has another count of values than its result has columns");
    }
    // The bitmap saves more than it costs as soon as a few nulls are there; without any the plain form is
    // shorter.
    bool anyNull =
        std::any_of(values.begin(), values.end(), [](const Datum& value) { return value.IsNull(); });
    bool withBitmap = anyNull && m_version >= version::tds73B;
    m_buffer.U8(withBitmap ? token::nullBitmapRow : token::row);
    if (withBitmap) {
        m_buffer.Bytes(NullBitmap(values));
    }
    for (std::size_t index = 0; index < values.size(); ++index) {
        if (!withBitmap || !values[index].IsNull()) {
            WriteValue(values[index], m_types[index], m_buffer);
        }
    }
    Send();
}

void TokenWriter::Done(const StatementEnd& end, std::uint16_t flags) {
    unsigned all = flags;
    all |= end.failed ? done::error : 0U;
    all |= end.count ? done::count : 0U;
    m_buffer.U8(end.scope == EndScope::Batch         ? token::done
                : end.scope == EndScope::InProcedure ? token::doneInProcedure
                                                     : token::doneProcedure);
    m_buffer.U16(static_cast<std::uint16_t>(all));
    m_buffer.U16(static_cast<std::uint16_t>(end.kind));
    m_buffer.Fixed(end.count.value_or(0), m_version >= version::tds72 ? 8 : 4);
    Send();
}

void TokenWriter::ReturnStatus(std::int32_t status) {
    m_buffer.U8(token::returnStatus);
    m_buffer.I32(status);
    Send();
}

void TokenWriter::ReturnValue(std::size_t ordinal, std::string_view name, const SqlType& type,
                              const Datum& value) {
    constexpr std::uint8_t outputParameter = 1;
    m_buffer.U8(token::returnValue);
    m_buffer.U16(static_cast<std::uint16_t>(ordinal));
    m_buffer.ShortText(name);
    m_buffer.U8(outputParameter);
    WriteUserType(type);
    m_buffer.U16(1); // nullable
    WireType wireType = WireTypeFor(type, m_version);
    WriteTypeInfo(wireType, m_buffer);
    WriteValue(value, wireType, m_buffer);
    Send();
}

void TokenWriter::TextChange(std::uint8_t kind, std::string_view newValue, std::string_view oldValue) {
    ByteWriter fields;
    fields.U8(kind);
    fields.ShortText(newValue);
    fields.ShortText(oldValue);
    SendWithLength(token::environmentChange, fields);
}

void TokenWriter::TransactionChange(std::uint8_t kind, std::uint64_t newValue, std::uint64_t oldValue) {
    if (m_version < version::tds72) {
        return; // such clients have no transaction descriptors
    }
    ByteWriter fields;
    fields.U8(kind);
    for (std::uint64_t value : {newValue, oldValue}) {
        fields.U8(value == 0 ? 0 : 8);
        fields.Fixed(value, value == 0 ? 0 : 8);
    }
    SendWithLength(token::environmentChange, fields);
}

void TokenWriter::Environment(const EnvironmentChange& environment) {
    switch (environment.kind) {
    case EnvironmentChange::Kind::Database:
        TextChange(change::database, environment.newValue, environment.oldValue);
        return;
    case EnvironmentChange::Kind::Language:
        TextChange(change::language, environment.newValue, environment.oldValue);
        return;
    case EnvironmentChange::Kind::BeginTransaction:
        TransactionChange(change::beginTransaction, environment.transaction, 0);
        return;
    case EnvironmentChange::Kind::CommitTransaction:
        TransactionChange(change::commitTransaction, 0, environment.transaction);
        return;
    case EnvironmentChange::Kind::RollbackTransaction:
        TransactionChange(change::rollbackTransaction, 0, environment.transaction);
        return;
    }
}

void TokenWriter::PacketSizeChange(std::size_t newSize, std::size_t oldSize) {
    TextChange(change::packetSize, std::to_string(newSize), std::to_string(oldSize));
}

void TokenWriter::CollationChange() {
    ByteWriter fields;
    fields.U8(change::collation);
    fields.U8(5);
    fields.U32(DefaultCollation()->LocaleAndFlags());
    fields.U8(DefaultCollation()->SortId());
    fields.U8(0);
    SendWithLength(token::environmentChange, fields);
}

void TokenWriter::ResetAcknowledge() {
    ByteWriter fields;
    fields.U8(change::reset);
    fields.U8(0);
    fields.U8(0);
    SendWithLength(token::environmentChange, fields);
}

} // namespace quillon::practice::tds
