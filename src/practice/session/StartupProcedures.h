// The procedures of master that sp_procoption marks to run when the server starts.
#pragma once

#include "practice/session/SqlSession.h"
#include "practice/storage/Catalogue.h"

#include <atomic>
#include <functional>
#include <string>
#include <thread>

namespace quillon::practice {

// Runs them one after the other as sa, on a thread of its own, so that one that never ends keeps nobody out.
// What they answer goes nowhere; their errors go to `log`. Destroying it cancels what still runs.
class StartupProcedures {
  public:
    using Log = std::function<void(const std::string&)>;
    // Returns when all have ended, or after a few seconds.
    StartupProcedures(SqlServer& server, const Catalogue& catalogue, Log log);
    ~StartupProcedures();
    StartupProcedures(const StartupProcedures&) = delete;
    StartupProcedures& operator=(const StartupProcedures&) = delete;

  private:
    void Run(const std::vector<std::string>& names, const Log& log);

    std::unique_ptr<SqlSession> m_session;
    std::atomic<bool> m_ending = false;
    std::thread m_thread;
};

} // namespace quillon::practice
