// Opens what a command works on, in the session's own way: a database is picked on the main screen, or a
// catalogue snapshot takes a server's place.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace quillon {
class frmMain;
}

namespace quillon::console {

// Logs in and picks the database as a person would, with its stored selection restored. `profile`: the
// architecture profile's file as the operating system names it, or empty for the default one. None when that
// failed; it has been reported then. Raises 5 for options that are missing.
frmMain* OpenDatabase(const CLI::App& app, const std::string& profile);

// The model of a snapshot file, with the profile; there is no server to execute anything on.
frmMain* OpenSnapshot(const std::string& snapshot, const std::string& profile);

// The session's form of a path that was given at the command line, made whole; empty stays empty. To be asked
// before anything is opened: a profile changes the current folder.
std::string PathGiven(const std::string& path);

} // namespace quillon::console
