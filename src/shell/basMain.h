// The start of the process.
#pragma once

namespace quillon::basMain {

// Brings the session up and shows the main screen. The composition root has set the platform and opened the
// session's roads before; it turns the event loop afterwards. ProcessEnded leaves this call when the user
// cancels the first login.
void Main();

// Where users send failure reports: a placeholder that reaches nobody, until there is an address.
inline constexpr const char* BugReportAddress = "bugs@quillon.example";

} // namespace quillon::basMain
