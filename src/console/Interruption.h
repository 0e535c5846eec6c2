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
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;
};

} // namespace quillon::console
