#include "practice/storage/WriteLock.h"

#include <algorithm>

namespace quillon::practice {

WriteLock::Outcome WriteLock::Take(const void* owner, int session,
                                   std::optional<std::chrono::milliseconds> timeout,
                                   const std::atomic<bool>& interrupted) {
    std::unique_lock guard(m_mutex);
    m_waiting.push_back(owner);
    const auto ready = [&] {
        return interrupted.load() || (m_owner == nullptr && m_waiting.front() == owner);
    };
    bool inTime = true;
    if (timeout)
        inTime = m_changed.wait_for(guard, *timeout, ready);
    else
        m_changed.wait(guard, ready);
    m_waiting.erase(std::find(m_waiting.begin(), m_waiting.end(), owner));
    if (interrupted || !inTime) {
        m_changed.notify_all(); // the next in the row may have waited for us
        return interrupted ? Outcome::Interrupted : Outcome::TimedOut;
    }
    m_owner = owner;
    m_session = session;
    return Outcome::Taken;
}

void WriteLock::Release(const void* owner) {
    {
        const std::lock_guard guard(m_mutex);
        if (m_owner != owner)
            return;
        m_owner = nullptr;
        m_session = 0;
    }
    m_changed.notify_all();
}

void WriteLock::Wake() {
    // The lock makes sure that a waiter is either asleep or yet to look.
    { const std::lock_guard guard(m_mutex); }
    m_changed.notify_all();
}

int WriteLock::Holder() const {
    const std::lock_guard guard(m_mutex);
    return m_session;
}

} // namespace quillon::practice
