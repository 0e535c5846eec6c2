// Locks: who may write, which tables are to stay as they are, and the locks that applications name
// themselves.
//
// SQLite has one writer at a time, and its own waiting is a poll. So the first of all locks is the one on the
// file. A statement that writes asks for it and for its table in one go and holds neither while it waits:
// who waits to write keeps nobody from writing. Tables are locked as a whole.
//
// Waiters come in the order of their asking, can be interrupted, and give up after a time. A circle of
// waiters is broken at the moment it would close: the one of them that is worth least is the victim.
//
// Threads: any.
#pragma once

#include "practice/storage/Definitions.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <span>

namespace quillon::practice {

struct LockName {
    enum class Kind : std::uint8_t { File, Object, Application };
    Kind kind = Kind::File;
    DatabaseId database = 0; // of Application
    ObjectId object = 0;
    std::string resource; // of Application; compared byte by byte
    auto operator<=>(const LockName&) const = default;
};

enum class LockMode : std::uint8_t { IntentShared, Shared, Update, IntentExclusive, Exclusive };

LockName ObjectLock(ObjectId object);

struct WantedLock {
    LockName name;
    LockMode mode = LockMode::Exclusive;
};

// A lock as sys.dm_tran_locks shows it.
struct LockRow {
    int session = 0;
    WantedLock lock;
    bool granted = false;
    bool forSession = false;
    int count = 1;
};

class Locks {
  public:
    enum class Outcome : std::uint8_t { Taken, TakenAfterWaiting, TimedOut, Interrupted, Victim };
    using Timeout = std::optional<std::chrono::milliseconds>; // nothing: without end

    // One for each session.
    struct Holder {
        int session;
        const std::atomic<bool>& interrupted; // looked at whenever Wake was called
        int priority = 0;                     // SET DEADLOCK_PRIORITY
        std::uint64_t work = 0;               // rows changed by the open transaction
    };

    // All of them or none. What the holder has already in that mode or a stronger one counts as taken.
    Outcome Take(Holder& holder, std::span<const WantedLock> wanted, Timeout timeout);
    // One more hold on a lock of the application's; each is released by itself. Those `forSession` outlive
    // the transaction.
    Outcome TakeApplication(Holder& holder, const WantedLock& wanted, bool forSession, Timeout timeout);
    // False when the holder has none of that name.
    bool ReleaseApplication(const Holder& holder, const LockName& name, bool forSession);
    bool Holds(const Holder& holder, const WantedLock& lock) const; // in that mode or a stronger one
    void Release(const Holder& holder, const WantedLock& lock);
    void ReleaseTransaction(const Holder& holder);
    void ReleaseAll(const Holder& holder);
    // After setting an `interrupted`.
    void Wake();

    std::vector<LockRow> List() const;
    // The session for which that one waits, 0 when it does not wait.
    int BlockerOf(int session) const;

  private:
    struct Held {
        const Holder* holder;
        LockMode mode;
        bool forSession;
        int count;
    };
    struct Waiter {
        Holder* holder;
        std::vector<WantedLock> wanted;
        bool forSession = false;
        bool counted = false; // another hold, though the holder may have one
        bool granted = false;
        bool victim = false;
    };
    using AllHeld = std::multimap<LockName, Held>;

    Outcome Take(Waiter waiter, Timeout timeout);
    bool Has(const Holder& holder, const WantedLock& wanted) const;
    std::vector<const Holder*> BlockersOf(const Waiter& waiter) const;
    void Grant(Waiter& waiter);
    void GrantWaiters();
    Waiter* WaiterOf(const Holder* holder) const;
    bool FindCircle(Waiter& from, const Waiter& start, std::vector<Waiter*>& circle,
                    std::vector<const Waiter*>& seen) const;
    void BreakCircles(Waiter& newest);
    template <class IsMeant>
    void Erase(IsMeant isMeant);

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    AllHeld m_held;
    std::vector<Waiter*> m_waiting; // in the order of their asking
};

} // namespace quillon::practice
