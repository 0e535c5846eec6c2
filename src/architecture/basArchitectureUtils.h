// Whether the session has a usable profile, and choosing one.
#pragma once

#include <string>

namespace quillon {
class clsQlnTemplate;
}

namespace quillon::basArchitectureUtils {

// The session's profile, g_objArch, which is made at its first use.
clsQlnTemplate& TheProfile();

// True when the session's profile can be used, loading it from g_strArchFile if need be; asks for a file when
// none is selected.
bool CheckForArch();

// Loads a file into it. True; raises what Load raises.
bool LoadProfile(const std::string& path);

// Lets the user choose a profile file and loads it into g_objArch; true when one was chosen.
bool OpenArchProfile();

} // namespace quillon::basArchitectureUtils
