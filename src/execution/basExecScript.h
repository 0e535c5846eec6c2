// Named script runs: each on a connection of its own, all into one run log.
#pragma once

#include <string>

#include "execution/RunLog.h"

namespace quillon {

class clsExecuteSQLScript;

namespace basExecScript {

// Runs a named script on the session's server and database. The log says what came of it, and nothing else
// does. The script comes back in the wrapped form in which it was run.
void ProcScript(std::string& script, const std::string& name, RunLog& log);

void AddScriptRunHeader(RunLog& log, const std::string& text);
void AddScriptRunFooter(RunLog& log);

// Ends the script in a separator and the way back to the session's database, runs it, and adds the results to
// the log.
void RunScript(clsExecuteSQLScript& executor, std::string& script, RunLog& log);

void AppendCollection(RunLog& target, const RunLog& source);

} // namespace basExecScript
} // namespace quillon
