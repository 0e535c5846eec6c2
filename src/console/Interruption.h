// Ctrl+C at the command line: the first one asks the running operation to stop, as the stop button does; the
// second ends the process.
#pragma once

namespace quillon::console {

class ConsoleFrontEnd;

class Interruption {
  public:
    // Listens while it lives; one at a time. The request is passed on at the next event-loop turn.
    explicit Interruption(ConsoleFrontEnd& frontEnd);
    ~Interruption();
    // For work without turns: from here on the first Ctrl+C ends the process. The server rolls back what was
    // open.
    static void EndAtOnce();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;
};

} // namespace quillon::console
