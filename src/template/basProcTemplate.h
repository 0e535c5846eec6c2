// Makes a script that the host can run out of a translated body.
#pragma once

#include <string>
#include <string_view>

namespace quillon::basProcTemplate {

// Puts the body into the function ReturnThis, which returns what was appended to strVar. In the form that
// g_bolJScript selects; all line ends are CR LF, the last line has none.
void WrapCodeForExec(std::string& body);

// What it puts before and behind the body.
std::string_view BeforeBody() noexcept;
std::string_view BehindBody() noexcept;

} // namespace quillon::basProcTemplate
