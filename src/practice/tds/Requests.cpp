#include "practice/tds/Requests.h"

#include "practice/tds/Bytes.h"
#include "practice/tds/Login.h"
#include "practice/tds/ReadTable.h"
#include "practice/tds/Unicode.h"
#include "practice/tds/Values.h"
#include "practice/values/SqlError.h"

#include <array>

namespace quillon::practice::tds {
namespace {

constexpr std::size_t mostParameters = 2100;

// The headers before each request since 7.2: notifications, transaction descriptor, trace activity. None
// changes what we do, as a connection has one transaction.
void SkipHeaders(ByteReader& reader, std::uint32_t tdsVersion) {
    if (tdsVersion < version::tds72) {
        return;
    }
    std::uint32_t total = reader.U32();
    if (total < 4) {
        throw ProtocolError("The headers of a request are shorter than their length.");
    }
    ByteReader headers(reader.Bytes(total - 4));
    while (!headers.AtEnd()) {
        std::uint32_t length = headers.U32();
        if (length < 6) {
            throw ProtocolError("A header of a request is shorter than its length.");
        }
        headers.Bytes(length - 4);
    }
}

std::string ProcedureByNumber(std::uint16_t number) {
    static constexpr std::array<const char*, 16> names{nullptr,
                                                       "sp_cursor",
                                                       "sp_cursoropen",
                                                       "sp_cursorprepare",
                                                       "sp_cursorexecute",
                                                       "sp_cursorprepexec",
                                                       "sp_cursorunprepare",
                                                       "sp_cursorfetch",
                                                       "sp_cursoroption",
                                                       "sp_cursorclose",
                                                       "sp_executesql",
                                                       "sp_prepare",
                                                       "sp_execute",
                                                       "sp_prepexec",
                                                       "sp_prepexecrpc",
                                                       "sp_unprepare"};
    if (number == 0 || number >= names.size()) {
        throw ProtocolError("A procedure is called by a number that names none.");
    }
    return names[number];
}

std::string ReadProcedureName(ByteReader& reader) {
    constexpr std::uint16_t byNumber = 0xFFFF;
    std::uint16_t length = reader.U16();
    return length == byNumber ? ProcedureByNumber(reader.U16()) : reader.Utf16(length);
}

CallParameter ReadParameter(ByteReader& reader, std::uint32_t tdsVersion) {
    constexpr std::uint8_t byReference = 0x01;
    constexpr std::uint8_t asDefault = 0x02;
    constexpr std::uint8_t encrypted = 0x08;
    CallParameter parameter;
    parameter.name = reader.ShortText();
    std::uint8_t flags = reader.U8();
    if ((flags & encrypted) != 0) {
        throw ProtocolError("Encrypted parameters are not supported.");
    }
    parameter.output = (flags & byReference) != 0;
    parameter.useDefault = (flags & asDefault) != 0;
    if (tdsVersion >= version::tds73 && static_cast<Token>(reader.Peek()) == Token::TableValued) {
        reader.U8();
        parameter.table = std::make_shared<TableArgument>(ReadTable(reader, tdsVersion));
        return parameter;
    }
    WireType type = ReadTypeInfo(reader, tdsVersion);
    parameter.type = type.type;
    parameter.value = ReadValue(type, reader);
    return parameter;
}

// Whether the next byte ends a call rather than begin a parameter.
bool IsSeparator(std::uint8_t byte, std::uint32_t tdsVersion) {
    return tdsVersion < version::tds72 ? byte == 0x80 : byte == 0xFF || byte == 0xFE;
}

ProcedureCall ReadCall(ByteReader& reader, std::uint32_t tdsVersion) {
    constexpr std::uint16_t withoutMetadata = 0x02;
    ProcedureCall call;
    call.name = ReadProcedureName(reader);
    call.noMetadata = (reader.U16() & withoutMetadata) != 0;
    while (!reader.AtEnd() && !IsSeparator(reader.Peek(), tdsVersion)) {
        if (call.parameters.size() == mostParameters) {
            throw SqlError(8003, {std::to_string(mostParameters)});
        }
        call.parameters.push_back(ReadParameter(reader, tdsVersion));
    }
    return call;
}

TransactionRequest::Isolation ReadIsolation(ByteReader& reader) {
    std::uint8_t level = reader.U8();
    if (level > static_cast<std::uint8_t>(TransactionRequest::Isolation::Snapshot)) {
        throw ProtocolError("A transaction asks for an isolation level that does not exist.");
    }
    return static_cast<TransactionRequest::Isolation>(level);
}

// Names have a length in bytes here.
std::string ReadTransactionName(ByteReader& reader) {
    return FromUtf16(reader.Bytes(reader.U8()));
}

void ReadNextTransaction(ByteReader& reader, TransactionRequest& request) {
    constexpr std::uint8_t beginAnother = 0x01;
    request.name = ReadTransactionName(reader);
    if (reader.AtEnd()) {
        return;
    }
    request.beginNext = (reader.U8() & beginAnother) != 0;
    if (request.beginNext) {
        request.nextIsolation = ReadIsolation(reader);
        request.nextName = ReadTransactionName(reader);
    }
}

} // namespace

std::string ReadBatch(std::string_view body, std::uint32_t tdsVersion) {
    ByteReader reader(body);
    SkipHeaders(reader, tdsVersion);
    if (reader.Remaining() % 2 != 0) {
        throw ProtocolError("A batch ends in half a character.");
    }
    return FromUtf16(reader.Rest());
}

std::vector<ProcedureCall> ReadCalls(std::string_view body, std::uint32_t tdsVersion) {
    ByteReader reader(body);
    SkipHeaders(reader, tdsVersion);
    std::vector<ProcedureCall> calls;
    while (!reader.AtEnd()) {
        calls.push_back(ReadCall(reader, tdsVersion));
        if (!reader.AtEnd()) {
            reader.U8(); // the separator
        }
    }
    if (calls.empty()) {
        throw ProtocolError("A procedure call names no procedure.");
    }
    return calls;
}

ManagerRequest ReadManagerRequest(std::string_view body, std::uint32_t tdsVersion) {
    enum : std::uint16_t { begin = 5, commit = 7, rollback = 8, save = 9 };
    ByteReader reader(body);
    SkipHeaders(reader, tdsVersion);
    ManagerRequest result;
    TransactionRequest& request = result.request;
    switch (reader.U16()) {
    case begin:
        request.kind = TransactionRequest::Kind::Begin;
        request.isolation = ReadIsolation(reader);
        request.name = ReadTransactionName(reader);
        break;
    case commit:
        request.kind = TransactionRequest::Kind::Commit;
        ReadNextTransaction(reader, request);
        break;
    case rollback:
        request.kind = TransactionRequest::Kind::Rollback;
        ReadNextTransaction(reader, request);
        break;
    case save:
        request.kind = TransactionRequest::Kind::Save;
        request.name = ReadTransactionName(reader);
        break;
    default: result.distributed = true;
    }
    return result;
}

} // namespace quillon::practice::tds
