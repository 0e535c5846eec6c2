// Opens the roads of the session's spine that end in the template engine, and tells the model's languages
// what a change of the script language asks for.
#pragma once

namespace quillon {

// Once, by the composition root, before basMain::Main.
void OpenTemplateRoads();

} // namespace quillon
