// Any bytes from a client: whatever they are, the server neither crashes nor answers anything but whole
// packets, messages do not depend on how the bytes were cut on their way, and values that were understood go
// back out in every version of the protocol.
#include "practice/tds/Dialogue.h"
#include "practice/tds/Login.h"

#include <cstdlib>
#include <iostream>

namespace {

using namespace quillon::practice;

void Require(bool holds, const char* property) {
    if (!holds) {
        std::cerr << "violated: " << property << "\n";
        std::abort();
    }
}

// Answers every call with its own arguments, as a row and as output parameters.
class EchoSession : public SqlSession {
  public:
    void ExecuteBatch(std::string_view text, ResultSink& sink) override {
        ServerMessage message;
        message.text = text;
        sink.Message(message);
        sink.Done({});
    }
    void ExecuteProcedure(const ProcedureCall& call, ResultSink& sink) override {
        std::vector<ResultColumn> columns;
        std::vector<Datum> row;
        for (const CallParameter& parameter : call.parameters) {
            columns.emplace_back().name = parameter.name;
            columns.back().type = parameter.type;
            row.push_back(parameter.value);
        }
        sink.Columns(columns);
        sink.Row(row);
        sink.Done({EndScope::InProcedure, StatementKind::Select, 1, false});
        sink.ReturnStatus(0);
        for (std::size_t index = 0; index < call.parameters.size(); ++index) {
            sink.OutputParameter(index, call.parameters[index].name, call.parameters[index].type, row[index]);
        }
        sink.Done({EndScope::Procedure, StatementKind::Execute, std::nullopt, false});
    }
    bool AwaitsRows() const override { return true; }
    void LoadRows(const RowReader& rows, ResultSink& sink) override {
        for (std::vector<Datum> row; rows(row);) {
            Require(!row.empty(), "a row has a value for each of its columns");
        }
        sink.Done({});
    }
    void Describe(std::string_view, std::string_view, ResultSink& sink) override { sink.Done({}); }
    void RunTransactionRequest(const TransactionRequest&, ResultSink& sink) override { sink.Done({}); }
    void MakeDurable() override {}
    void Cancel() noexcept override {}
    void PrepareRequest() noexcept override {}
    void Reset(bool, ResultSink&) override {}
};

class EchoServer : public SqlServer {
  public:
    std::unique_ptr<SqlSession> OpenSession(const LoginFacts&, ResultSink&) override {
        return std::make_unique<EchoSession>();
    }
};

std::string LoginBody(std::uint32_t version) {
    tds::ByteWriter body;
    body.U32(94);
    body.U32(version);
    body.Bytes(std::string(86, '\0'));
    return body.Content();
}

std::vector<tds::ClientMessage> Assemble(std::string_view bytes, std::size_t piece, bool& refused) {
    tds::PacketAssembler assembler;
    std::vector<tds::ClientMessage> messages;
    refused = false;
    try {
        for (std::size_t start = 0; start < bytes.size(); start += piece) {
            assembler.Feed(bytes.substr(start, piece));
            while (auto message = assembler.Next()) {
                messages.push_back(std::move(*message));
            }
        }
    } catch (const tds::ProtocolError&) {
        refused = true;
    }
    return messages;
}

void CheckPackets(std::string_view sent) {
    while (!sent.empty()) {
        Require(sent.size() >= tds::packetHeaderSize && sent[0] == 4, "answers are packets");
        std::size_t length = static_cast<std::size_t>(static_cast<std::uint8_t>(sent[2])) << 8 |
                             static_cast<std::uint8_t>(sent[3]);
        Require(length >= tds::packetHeaderSize && length <= sent.size(), "a packet has its length");
        sent.remove_prefix(length);
    }
}

void Converse(const std::vector<tds::ClientMessage>& messages, std::uint32_t version) {
    EchoServer server;
    tds::Surroundings surroundings{server, [](const auto&, const auto&, const auto*) { return true; },
                                   "FUZZ"};
    tds::Inbox inbox;
    std::string sent;
    tds::Dialogue dialogue(
        surroundings, inbox, [&](std::string_view packet) { sent.append(packet); }, LoginFacts{});
    if (version != 0) {
        Require(dialogue.Serve({tds::PacketType::Login7, 0, false, LoginBody(version)}),
                "a plain login enters");
    }
    for (const tds::ClientMessage& message : messages) {
        bool known = dialogue.LoggedIn() || message.type != tds::PacketType::Attention;
        if (known && !dialogue.Serve(message)) {
            break;
        }
    }
    CheckPackets(sent);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    bool refusedWhole = false;
    bool refusedPieces = false;
    std::vector<tds::ClientMessage> whole = Assemble(bytes, size + 1, refusedWhole);
    std::vector<tds::ClientMessage> pieces = Assemble(bytes, 3, refusedPieces);
    Require(refusedWhole == refusedPieces && whole.size() == pieces.size(), "cutting changes no message");
    for (std::size_t index = 0; index < whole.size(); ++index) {
        Require(whole[index].body == pieces[index].body, "cutting changes no message");
    }
    for (std::uint32_t version : {0U, tds::version::tds71, tds::version::tds72, tds::version::tds74}) {
        Converse(whole, version);
    }
    return 0;
}
