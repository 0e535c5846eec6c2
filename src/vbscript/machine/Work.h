// Work inside a single instruction, intrinsic function or member whose amount a script's data decide: copying
// and comparing long texts, searching, matching.
//
// Who does such work says how much of it was done, and now and then the run on this thread is asked whether
// it was told to stop; what it then throws leaves from here. Outside a run nothing happens.
#pragma once

#include <cstddef>
#include <utility>

namespace quillon::vbscript {

class Work {
  public:
    // The run that is asked.
    class Watcher {
      public:
        // To be called now and then in long work: ends the script by an exception if it was told to stop.
        virtual void Poll() = 0;

      protected:
        ~Watcher() = default;
    };

    // `steps` of a nanosecond or so each: bytes copied, characters compared.
    static void Done(std::size_t steps) {
        if ((s_done += steps) >= BetweenPolls) [[unlikely]]
            Poll();
    }

    // Gives the run that there was before.
    static Watcher* SetWatcher(Watcher* run) noexcept { return std::exchange(s_watcher, run); }

    // While it lives the run is not asked: what is under way must reach its end.
    class Unasked {
      public:
        Unasked() noexcept
            : m_run(SetWatcher(nullptr)) {}
        ~Unasked() { SetWatcher(m_run); }
        Unasked(const Unasked&) = delete;
        Unasked& operator=(const Unasked&) = delete;

      private:
        Watcher* m_run;
    };

  private:
    static constexpr std::size_t BetweenPolls = std::size_t{4} << 20;

    static void Poll();

    static inline thread_local constinit std::size_t s_done = 0;
    static inline thread_local constinit Watcher* s_watcher = nullptr;
};

} // namespace quillon::vbscript
