#include "practice/tds/Dialogue.h"

#include "practice/tds/BulkRows.h"
#include "practice/tds/Login.h"
#include "practice/tds/Refusals.h"
#include "practice/tds/Requests.h"
#include "practice/tds/WireSink.h"

namespace quillon::practice::tds {
namespace {

constexpr std::int32_t protocolIncorrect = 4002;
constexpr std::int32_t notAssociated = 18452;
constexpr std::int32_t engineFailed = 49998; // our own, below the users' numbers

ServerMessage MakeMessage(std::int32_t number, std::uint8_t severity, std::string text) {
    ServerMessage message;
    message.number = number;
    message.severity = severity;
    message.text = std::move(text);
    return message;
}

} // namespace

Dialogue::Dialogue(const Surroundings& surroundings, Inbox& inbox, PacketWriter::Send send, LoginFacts facts)
    : m_surroundings(surroundings)
    , m_inbox(inbox)
    , m_packets(
          [this, send = std::move(send)](std::string_view packet) {
              if (LoggedIn()) {
                  m_session->MakeDurable();
              }
              send(packet);
          },
          facts.spid)
    , m_facts(std::move(facts)) {}

bool Dialogue::Serve(const ClientMessage& message) {
    try {
        if (LoggedIn()) {
            ServeRequest(message);
            return true;
        }
        if (message.type == PacketType::Prelogin) {
            ServePrelogin(message);
            return true;
        }
        return ServeLogin(message);
    } catch (const ClientGone&) {
        throw;
    } catch (const ConnectionEnded&) { // the client has been told why
        m_tokens->Done({EndScope::Batch, StatementKind::Other, std::nullopt, true}, 0);
        m_tokens->EndMessage();
    } catch (const ProtocolError& error) {
        EndWithFailure(protocolIncorrect,
                       std::string("The incoming tabular data stream (TDS) protocol stream is incorrect. ") +
                           error.what());
    } catch (const std::exception& error) {
        EndWithFailure(engineFailed, std::string("The practice server failed: ") + error.what());
    }
    return false;
}

void Dialogue::EndWithFailure(std::int32_t number, const std::string& text) {
    constexpr std::uint8_t endsTheConnection = 20;
    m_surroundings.log("connection " + std::to_string(m_facts.spid) + ": " + text);
    if (m_tokens != nullptr) {
        m_tokens->Message(MakeMessage(number, endsTheConnection, text));
        m_tokens->Done({EndScope::Batch, StatementKind::Other, std::nullopt, true}, 0);
        m_tokens->EndMessage();
    }
}

void Dialogue::ServePrelogin(const ClientMessage& message) {
    m_packets.Write(AnswerPrelogin(message.body));
    m_packets.EndMessage();
}

bool Dialogue::ServeLogin(const ClientMessage& message) {
    if (message.type != PacketType::Login7) {
        throw ProtocolError("A connection begins with a login.");
    }
    Login7 login = ReadLogin7(message.body);
    login.facts.address = m_facts.address;
    login.facts.spid = m_facts.spid;
    login.facts.endConnection = m_facts.endConnection;
    m_facts = login.facts;
    m_tokens = std::make_unique<TokenWriter>(m_packets, m_facts.tdsVersion, m_surroundings.serverName);
    if (login.integratedSecurity) {
        RefuseLogin(*m_tokens,
                    {MakeMessage(notAssociated, 14,
                                 "Login failed. The login is from an untrusted domain and cannot be used "
                                 "with Integrated authentication.")});
        return false;
    }
    const std::string* newPassword = login.changePassword ? &login.newPassword : nullptr;
    if (!m_surroundings.authenticate(m_facts.login, login.password, newPassword)) {
        RefuseLogin(*m_tokens, {TableMessage(18456, {m_facts.login})});
        return false;
    }
    return OpenSession(*m_tokens);
}

bool Dialogue::OpenSession(TokenWriter& tokens) {
    WireSink sink(tokens);
    try {
        m_session = m_surroundings.server.OpenSession(m_facts, sink);
    } catch (const LoginRefused& refusal) {
        RefuseLogin(tokens, {refusal.Refusal(), TableMessage(18456, {m_facts.login})});
        return false;
    }
    tokens.CollationChange();
    tokens.LoginAcknowledge();
    tokens.PacketSizeChange(m_facts.packetSize, defaultPacketSize);
    m_packets.SetPacketSize(m_facts.packetSize);
    sink.Finish();
    return true;
}

void Dialogue::RefuseLogin(TokenWriter& tokens, const std::vector<ServerMessage>& messages) {
    for (const ServerMessage& message : messages) {
        tokens.Message(message);
    }
    tokens.Done({EndScope::Batch, StatementKind::Other, std::nullopt, true}, 0);
    tokens.EndMessage();
}

void Dialogue::ServeRequest(const ClientMessage& message) {
    WireSink sink(*m_tokens);
    if (message.type == PacketType::Attention) {
        sink.AcknowledgeAttention();
        return;
    }
    if (message.ignored || !m_inbox.BeginRequest(*m_session)) {
        sink.Done({EndScope::Batch, StatementKind::Other, std::nullopt, true});
        sink.Finish();
        return;
    }
    try {
        ResetSession(message, sink);
        RunRequest(message, sink);
    } catch (...) {
        m_inbox.EndRequest();
        throw;
    }
    if (m_inbox.EndRequest()) {
        sink.FinishCancelled();
    } else {
        sink.Finish();
    }
}

void Dialogue::ResetSession(const ClientMessage& message, ResultSink& sink) {
    if (message.resetFlags == 0) {
        return;
    }
    m_prepared.Clear();
    m_session->Reset((message.resetFlags & status::resetKeepTransaction) != 0, sink);
    m_tokens->ResetAcknowledge();
}

void Dialogue::RunRequest(const ClientMessage& message, ResultSink& sink) {
    switch (message.type) {
    case PacketType::SqlBatch:
        m_session->ExecuteBatch(ReadBatch(message.body, m_facts.tdsVersion), sink);
        return;
    case PacketType::Rpc: RunCalls(message, sink); return;
    case PacketType::TransactionManager: RunManagerRequest(message, sink); return;
    case PacketType::BulkLoad: LoadRows(message, sink); return;
    default: throw ProtocolError("A message has no place after the login.");
    }
}

void Dialogue::LoadRows(const ClientMessage& message, ResultSink& sink) {
    if (!m_session->AwaitsRows()) {
        throw ProtocolError("Rows arrived that no INSERT BULK announced.");
    }
    BulkRows rows(message.body, m_facts.tdsVersion);
    m_session->LoadRows([&](std::vector<Datum>& row) { return rows.Next(row); }, sink);
}

void Dialogue::RunCalls(const ClientMessage& message, ResultSink& sink) {
    std::vector<ProcedureCall> calls;
    try {
        calls = ReadCalls(message.body, m_facts.tdsVersion);
    } catch (const SqlError& refused) {
        FailCall(MessageOf(refused), sink);
    }
    for (const ProcedureCall& call : calls) {
        RunCall(call, sink);
    }
}

void Dialogue::RunCall(const ProcedureCall& call, ResultSink& sink) {
    constexpr std::string_view serverCursors = "sp_cursor";
    if (call.name.compare(0, serverCursors.size(), serverCursors) == 0) {
        RefuseFeature(call.name, EndScope::Procedure, sink);
    } else if (!m_prepared.TryExecute(call, *m_session, sink)) {
        m_session->ExecuteProcedure(call, sink);
    }
}

void Dialogue::RunManagerRequest(const ClientMessage& message, ResultSink& sink) {
    ManagerRequest manager = ReadManagerRequest(message.body, m_facts.tdsVersion);
    if (manager.distributed) {
        RefuseFeature("distributed transactions", EndScope::Batch, sink);
    } else {
        m_session->RunTransactionRequest(manager.request, sink);
    }
}

} // namespace quillon::practice::tds
