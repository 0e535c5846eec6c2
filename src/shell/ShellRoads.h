// Opens the roads of the session's spine that end in the main screen and the stored selection.
#pragma once

namespace quillon {

// Once, by the composition root, before basMain::Main.
void OpenShellRoads();

} // namespace quillon
