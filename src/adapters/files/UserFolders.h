// Where this user's and this program's files belong, by the XDG Base Directory Specification.
//
// Used by: the composition roots, to place the files and settings adapters. Native paths without a trailing
// separator. Nothing is made here.
#pragma once

#include <string>

namespace quillon::adapters {

std::string UserConfigFolder(); // $XDG_CONFIG_HOME/quillon, else ~/.config/quillon
std::string UserDataFolder();   // $XDG_DATA_HOME/quillon, else ~/.local/share/quillon
// $QUILLON_HOME: the application folder that this user wants for this run; empty for none. Runs that work at
// the same time want one each.
std::string WantedApplicationFolder();
// The folder of the running executable.
std::string ExecutableFolder();

} // namespace quillon::adapters
