// What stands between the thread that reads a connection and the thread that serves it: the requests that
// have arrived, and whether the client has asked to stop (attention) or has gone. It is also what makes a
// running request stop, at most once a request and never a request later than the one meant.
#pragma once

#include "practice/session/SqlSession.h"
#include "practice/tds/Packets.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>

namespace quillon::practice::tds {

class Inbox {
  public:
    // The reader's side. Put waits while a request is waiting already: a client without MARS has no reason to
    // send two.
    void Put(ClientMessage message);
    // Stops the running request and marks those that wait as not to be run.
    void PutAttention();
    // No more will come; stops the running request.
    void Close();

    // The server's side. Waits for the next request, or an attention that came between two requests (a
    // message of that type), which comes after what the client had sent before it. Nothing: the client has
    // gone and nothing is left to serve.
    std::optional<ClientMessage> Take();
    // Brackets every request. Begin says no when the client has already asked to stop or has gone. End says
    // whether the client asked to stop this request, which then must be acknowledged.
    bool BeginRequest(SqlSession& session);
    bool EndRequest();

  private:
    void CancelRunning();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<ClientMessage> m_waiting;
    SqlSession* m_running = nullptr;
    bool m_attention = false;
    bool m_closed = false;
};

} // namespace quillon::practice::tds
