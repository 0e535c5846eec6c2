// Which server and database a command works on, and how it logs in there.
//
// The options stand before the command: --server, --user, --password-file, --database. Without a user the
// login is the operating system's own. A password comes from a file or the standard input, never from the
// command line, where every user of the machine could read it.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace quillon::console {

// Declares the options, once, for all commands.
void AddServerOptions(CLI::App& app);

// Connects the catalogue and writes the session's server, user and password. Raises 5 with what is missing,
// 53 for a password file that is not there, and what the catalogue raises.
void LogIn(const CLI::App& app);

// LogIn, and the session's database as the server spells it. Raises 3265 for one that it does not have.
void LogInToDatabase(const CLI::App& app);

} // namespace quillon::console
