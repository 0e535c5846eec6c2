// Runs a SQL script batch by batch and keeps what the server answers as lines of text.
//
// A failing batch never stops the run, and no success comes back: the only report is Results. The class never
// closes its connection; one that it opened itself ends with the object.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "execution/RunLog.h"
#include "platform/DataAccess.h"

namespace quillon {

class clsExecuteSQLScript {
  public:
    void SetConnection(data::ConnectionRef connection) { m_connection = std::move(connection); }
    // A new, closed one if none was set.
    const data::ConnectionRef& Connection();

    // Opens the class's own connection. True when it is open; raises what Open raises.
    bool CreateODBCConnection(const std::string& server, const std::string& database, const std::string& user,
                              const std::string& password);

    void SetScript(std::string script) { m_script = std::move(script); }
    const std::string& Script() const noexcept { return m_script; }
    const RunLog& Results() const noexcept { return m_results; }

    // Splits the script, then runs its batches. The event loop turns while it splits.
    void Execute();

  private:
    void RunBatch(data::Command& command, std::string_view batch);
    void WalkResults(data::RecordsetRef results);
    // One go over the results from the one given on; `results` then stands where it stopped.
    void WalkOnce(data::RecordsetRef& results);
    void AddErrors();
    void AddHeader(const data::Recordset& results);
    void AddRows(data::Recordset& results);

    data::ConnectionRef m_connection;
    std::string m_script;
    RunLog m_results;
};

} // namespace quillon
