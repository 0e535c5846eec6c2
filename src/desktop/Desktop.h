// The program with a window: the application, its front end, the session.
#pragma once

namespace quillon::desktop {

// Runs until the person leaves; the process's exit code.
int Main(int& argc, char** argv);

} // namespace quillon::desktop
