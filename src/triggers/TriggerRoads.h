// Opens the roads of the session's spine that end in the screens of triggers.
#pragma once

namespace quillon {

// Once, by the composition root, before basMain::Main.
void OpenTriggerRoads();

} // namespace quillon
