// One connection to a server, and the rule that its results share it.
//
// A connection carries one open result at a time. Whoever starts a statement while another one's rows are
// still unread first has those brought into memory, so that neither disturbs the other.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "adapters/odbc/Handles.h"

namespace quillon::adapters {

class ResultStream;

class Link {
  public:
    // Connects; `loginTimeout` in seconds. `errors` receives the messages of this connection from now on,
    // those of a failed attempt included. Raises the driver's failure.
    Link(const std::string& driverText, int loginTimeout, std::shared_ptr<std::vector<data::Error>> errors);
    ~Link();
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    const Handle& handle() const noexcept { return m_handle; }
    std::string Database() const;
    // "11.00.2100", as the server said at login.
    const std::string& ServerVersion() const noexcept { return m_serverVersion; }
    // The server is gone: nothing more comes over this connection.
    bool IsBroken() const;

    // The messages of the last call that left any.
    std::vector<data::Error>& errors() noexcept { return *m_errors; }
    // Reads what a call on a handle left; keeps the former messages when it left none, and is false then.
    bool Collect(const Handle& handle);

    // Raises the failure that the messages stand for, LinkBroken when the link is.
    [[noreturn]] void Raise() const;

    // The statement whose results are being read; none when the connection is free.
    void Begin(ResultStream& stream);
    void End(const ResultStream& stream) noexcept;

  private:
    Handle m_handle;
    std::shared_ptr<std::vector<data::Error>> m_errors;
    std::string m_serverVersion;
    ResultStream* m_active = nullptr;
};

} // namespace quillon::adapters
