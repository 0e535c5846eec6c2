// Whether the session has a usable profile, and choosing one.
#pragma once

namespace quillon::basArchitectureUtils {

// True when the session's profile can be used, loading it from g_strArchFile if need be; asks for a file when
// none is selected.
bool CheckForArch();

// Lets the user choose a profile file and loads it into g_objArch; true when one was chosen.
bool OpenArchProfile();

} // namespace quillon::basArchitectureUtils
