// The hand-off of a generation run: what becomes of triggers.sql is the user's choice (setting Editor).
#pragma once

namespace quillon::basDbaseFunctions {

// 0 opens the script in the Query Analyzer, or in the program that the setting QueryProgram names; 1 shows it
// in the script editor; any other value runs it at once, shows the results and reads the triggers anew.
void CreateOutput();

} // namespace quillon::basDbaseFunctions
