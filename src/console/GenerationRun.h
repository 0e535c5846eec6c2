// The main screen's generation run at the command line: the same run, with its end taken over.
#pragma once

#include <string>

#include "execution/RunLog.h"

namespace quillon {
class frmMain;
}

namespace quillon::console {

class ConsoleFrontEnd;

// The script that the run hands on. Raises 5 when it handed none on: the run was stopped, refused or failed,
// and has said why.
std::string GenerateScript(frmMain& main, ConsoleFrontEnd& frontEnd);

// Runs the script on the database and gives the run log; raises as above.
RunLog GenerateAndExecute(frmMain& main, ConsoleFrontEnd& frontEnd);

// Writes the script to a file, named as the session names it, or to the standard output for an empty name.
void WriteScript(const std::string& script, const std::string& file);

} // namespace quillon::console
