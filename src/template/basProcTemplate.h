// Makes a script that the host can run out of a translated body.
#pragma once

#include <string>

namespace quillon::basProcTemplate {

// Puts the body into the function ReturnThis, which returns what was appended to strVar. In the form that
// g_bolJScript selects; all line ends are CR LF, the last line has none.
void WrapCodeForExec(std::string& body);

} // namespace quillon::basProcTemplate
