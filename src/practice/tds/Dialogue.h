// One connection's talk, from its first packet to its last: PRELOGIN, login, requests and their answers. It
// knows messages and the engine, neither sockets nor threads, so that tests and fuzzing drive it with bytes
// alone.
#pragma once

#include "practice/session/SqlSession.h"
#include "practice/tds/Inbox.h"
#include "practice/tds/Packets.h"
#include "practice/tds/PreparedStatements.h"
#include "practice/tds/Tokens.h"

#include <functional>
#include <memory>
#include <string>

namespace quillon::practice::tds {

// Whether a login has this password; with `newPassword` it is changed as well.
using Authenticate = std::function<bool(const std::string& login, const std::string& password,
                                        const std::string* newPassword)>;

struct Surroundings {
    SqlServer& server;
    Authenticate authenticate;
    std::string serverName; // what messages and clients call the server
    std::function<void(const std::string&)> log = [](const std::string&) {};
};

class Dialogue {
  public:
    // `send` takes whole packets and may throw ClientGone. `facts` holds what the listener knows: address and
    // spid.
    Dialogue(const Surroundings& surroundings, Inbox& inbox, PacketWriter::Send send, LoginFacts facts);

    // Serves one message. False: the connection is to be closed. Throws ClientGone only.
    bool Serve(const ClientMessage& message);
    bool LoggedIn() const { return m_session != nullptr; }

  private:
    void ServePrelogin(const ClientMessage& message);
    bool ServeLogin(const ClientMessage& message);
    bool OpenSession(TokenWriter& tokens);
    void RefuseLogin(TokenWriter& tokens, const std::vector<ServerMessage>& messages);
    void ServeRequest(const ClientMessage& message);
    void RunRequest(const ClientMessage& message, ResultSink& sink);
    void LoadRows(const ClientMessage& message, ResultSink& sink);
    void RunCalls(const ClientMessage& message, ResultSink& sink);
    void RunCall(const ProcedureCall& call, ResultSink& sink);
    void RunManagerRequest(const ClientMessage& message, ResultSink& sink);
    void ResetSession(const ClientMessage& message, ResultSink& sink);
    void EndWithFailure(std::int32_t number, const std::string& text);

    const Surroundings& m_surroundings;
    Inbox& m_inbox;
    PacketWriter m_packets;
    LoginFacts m_facts;
    std::unique_ptr<TokenWriter> m_tokens;
    std::unique_ptr<SqlSession> m_session;
    PreparedStatements m_prepared;
};

} // namespace quillon::practice::tds
