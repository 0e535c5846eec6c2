// Opens the roads of the session's spine that end in the object model.
#pragma once

namespace quillon {

// Once, by the composition root, before basMain::Main.
void OpenModelRoads();

} // namespace quillon
