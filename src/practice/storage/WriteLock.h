// The one write lock of the store. SQLite has one writer at a time, and its own waiting is a poll; here
// writers wait in order, can be interrupted, and can give up after the session's lock timeout.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>

namespace quillon::practice {

class WriteLock {
  public:
    enum class Outcome { Taken, TimedOut, Interrupted };

    // Waits for its turn; `interrupted` is looked at whenever Wake was called. `timeout` in milliseconds,
    // nothing for no end. `owner` tells the holders apart; a holder must not take it again.
    Outcome Take(const void* owner, int session, std::optional<std::chrono::milliseconds> timeout,
                 const std::atomic<bool>& interrupted);
    void Release(const void* owner);
    // After setting an `interrupted`.
    void Wake();
    // The session that holds it now, 0 when none does; for sp_who and its like.
    int Holder() const;

  private:
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    const void* m_owner = nullptr;
    int m_session = 0;
    std::deque<const void*> m_waiting;
};

} // namespace quillon::practice
