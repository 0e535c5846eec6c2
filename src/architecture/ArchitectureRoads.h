// Opens the roads of the session's spine that end in the architecture profiles.
#pragma once

namespace quillon {

// Once, by the composition root, before basMain::Main.
void OpenArchitectureRoads();

} // namespace quillon
