// The boxes that script code of a profile shows, brought to the front end.
#pragma once

namespace quillon {

class ScriptSite;

// Buttons and icons as the script language numbers them (MsgBox): 0 to 5 buttons, 16 to 64 icon.
ScriptSite& TheScriptBoxes();

} // namespace quillon
