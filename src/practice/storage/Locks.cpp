#include "practice/storage/Locks.h"

#include <algorithm>

namespace quillon::practice {

namespace {

constexpr bool T = true;
constexpr bool F = false;
constexpr bool compatible[5][5] = {
    // IS S U IX X
    {T, T, T, T, F}, // IntentShared
    {T, T, T, F, F}, // Shared
    {T, T, F, F, F}, // Update
    {T, F, F, T, F}, // IntentExclusive
    {F, F, F, F, F}, // Exclusive
};
constexpr bool covering[5][5] = {
    {T, F, F, F, F}, {T, T, F, F, F}, {T, T, T, F, F}, {T, F, F, T, F}, {T, T, T, T, T},
};

bool Are(const bool (&table)[5][5], LockMode held, LockMode wanted) {
    return table[static_cast<std::size_t>(held)][static_cast<std::size_t>(wanted)];
}

} // namespace

LockName ObjectLock(ObjectId object) {
    return {LockName::Kind::Object, 0, object, {}};
}

Locks::Outcome Locks::Take(Holder& holder, std::span<const WantedLock> wanted, Timeout timeout) {
    return Take(Waiter{&holder, {wanted.begin(), wanted.end()}}, timeout);
}

Locks::Outcome Locks::TakeApplication(Holder& holder, const WantedLock& wanted, bool forSession,
                                      Timeout timeout) {
    return Take(Waiter{&holder, {wanted}, forSession, true}, timeout);
}

Locks::Outcome Locks::Take(Waiter waiter, Timeout timeout) {
    std::unique_lock guard(m_mutex);
    if (BlockersOf(waiter).empty()) {
        Grant(waiter);
        return Outcome::Taken;
    }
    if (timeout && timeout->count() == 0)
        return Outcome::TimedOut;
    m_waiting.push_back(&waiter);
    BreakCircles(waiter);
    const auto done = [&] { return waiter.granted || waiter.victim || waiter.holder->interrupted.load(); };
    if (timeout)
        m_changed.wait_for(guard, *timeout, done);
    else
        m_changed.wait(guard, done);
    std::erase(m_waiting, &waiter);
    if (waiter.granted)
        return Outcome::TakenAfterWaiting;
    if (waiter.victim)
        return Outcome::Victim;
    return waiter.holder->interrupted ? Outcome::Interrupted : Outcome::TimedOut;
}

bool Locks::Holds(const Holder& holder, const WantedLock& lock) const {
    const std::lock_guard guard(m_mutex);
    return Has(holder, lock);
}

bool Locks::Has(const Holder& holder, const WantedLock& wanted) const {
    const auto [first, last] = m_held.equal_range(wanted.name);
    return std::any_of(first, last, [&](const auto& entry) {
        return entry.second.holder == &holder && Are(covering, entry.second.mode, wanted.mode);
    });
}

std::vector<const Locks::Holder*> Locks::BlockersOf(const Waiter& waiter) const {
    std::vector<const Holder*> blockers;
    for (const WantedLock& wanted : waiter.wanted) {
        const auto [first, last] = m_held.equal_range(wanted.name);
        for (auto entry = first; entry != last; ++entry)
            if (entry->second.holder != waiter.holder && !Are(compatible, entry->second.mode, wanted.mode))
                blockers.push_back(entry->second.holder);
    }
    return blockers;
}

void Locks::Grant(Waiter& waiter) {
    waiter.granted = true;
    for (const WantedLock& wanted : waiter.wanted) {
        if (!waiter.counted) {
            if (!Has(*waiter.holder, wanted))
                m_held.emplace(wanted.name, Held{waiter.holder, wanted.mode, false, 1});
            continue;
        }
        const auto [first, last] = m_held.equal_range(wanted.name);
        const auto same = std::find_if(first, last, [&](const auto& entry) {
            return entry.second.holder == waiter.holder && entry.second.mode == wanted.mode &&
                   entry.second.forSession == waiter.forSession;
        });
        if (same != last)
            ++same->second.count;
        else
            m_held.emplace(wanted.name, Held{waiter.holder, wanted.mode, waiter.forSession, 1});
    }
}

void Locks::GrantWaiters() {
    for (Waiter* waiter : m_waiting)
        if (!waiter->granted && !waiter->victim && BlockersOf(*waiter).empty())
            Grant(*waiter);
    m_changed.notify_all();
}

Locks::Waiter* Locks::WaiterOf(const Holder* holder) const {
    const auto found = std::find_if(m_waiting.begin(), m_waiting.end(), [&](const Waiter* waiter) {
        return waiter->holder == holder && !waiter->granted && !waiter->victim;
    });
    return found == m_waiting.end() ? nullptr : *found;
}

// Whether `from` waits, by however many others, for the holder of `start`; then the circle is its waiters.
bool Locks::FindCircle(Waiter& from, const Waiter& start, std::vector<Waiter*>& circle,
                       std::vector<const Waiter*>& seen) const {
    if (std::find(seen.begin(), seen.end(), &from) != seen.end())
        return false;
    seen.push_back(&from);
    circle.push_back(&from);
    for (const Holder* blocker : BlockersOf(from)) {
        Waiter* next = WaiterOf(blocker);
        if (next == &start || (next != nullptr && FindCircle(*next, start, circle, seen)))
            return true;
    }
    circle.pop_back();
    return false;
}

// Only a new waiter can close a circle. The victim is the one with the lowest priority, then with the least
// work to undo; the newest where they are alike.
void Locks::BreakCircles(Waiter& newest) {
    while (!newest.victim) {
        std::vector<Waiter*> circle;
        std::vector<const Waiter*> seen;
        if (!FindCircle(newest, newest, circle, seen))
            return;
        const auto worth = [](const Waiter* waiter) {
            return std::pair(waiter->holder->priority, waiter->holder->work);
        };
        Waiter* victim = *std::min_element(circle.begin(), circle.end(), [&](Waiter* left, Waiter* right) {
            return worth(left) < worth(right);
        });
        victim->victim = true;
        m_changed.notify_all();
    }
}

template <class IsMeant>
void Locks::Erase(IsMeant isMeant) {
    const std::lock_guard guard(m_mutex);
    if (std::erase_if(m_held, isMeant) > 0)
        GrantWaiters();
}

bool Locks::ReleaseApplication(const Holder& holder, const LockName& name, bool forSession) {
    const std::lock_guard guard(m_mutex);
    const auto [first, last] = m_held.equal_range(name);
    const auto found = std::find_if(first, last, [&](const auto& entry) {
        return entry.second.holder == &holder && entry.second.forSession == forSession;
    });
    if (found == last)
        return false;
    if (--found->second.count == 0) {
        m_held.erase(found);
        GrantWaiters();
    }
    return true;
}

void Locks::Release(const Holder& holder, const WantedLock& lock) {
    Erase([&](const auto& entry) {
        return entry.first == lock.name && entry.second.holder == &holder && entry.second.mode == lock.mode &&
               !entry.second.forSession;
    });
}

void Locks::ReleaseTransaction(const Holder& holder) {
    Erase([&](const auto& entry) { return entry.second.holder == &holder && !entry.second.forSession; });
}

void Locks::ReleaseAll(const Holder& holder) {
    Erase([&](const auto& entry) { return entry.second.holder == &holder; });
}

void Locks::Wake() {
    // The mutex makes sure that a waiter is either asleep or yet to look.
    { const std::lock_guard guard(m_mutex); }
    m_changed.notify_all();
}

std::vector<LockRow> Locks::List() const {
    const std::lock_guard guard(m_mutex);
    std::vector<LockRow> rows;
    for (const auto& [name, held] : m_held)
        rows.push_back({held.holder->session, {name, held.mode}, true, held.forSession, held.count});
    for (const Waiter* waiter : m_waiting)
        for (const WantedLock& wanted : waiter->wanted)
            rows.push_back({waiter->holder->session, wanted, false, waiter->forSession, 1});
    return rows;
}

int Locks::BlockerOf(int session) const {
    const std::lock_guard guard(m_mutex);
    for (const Waiter* waiter : m_waiting)
        if (waiter->holder->session == session)
            if (const auto blockers = BlockersOf(*waiter); !blockers.empty())
                return blockers.front()->session;
    return 0;
}

} // namespace quillon::practice
