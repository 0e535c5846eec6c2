#include "practice/storage/IdentityCounters.h"

namespace quillon::practice {

std::optional<std::int64_t> IdentityCounters::Next(ObjectId table, const Identity& identity) {
    const std::lock_guard guard(m_mutex);
    const auto found = m_last.find(table);
    std::int64_t next = identity.seed;
    if (found != m_last.end() && __builtin_add_overflow(found->second, identity.increment, &next))
        return std::nullopt;
    m_last[table] = next;
    return next;
}

void IdentityCounters::Follow(ObjectId table, const Identity& identity, std::int64_t value) {
    const std::lock_guard guard(m_mutex);
    const auto found = m_last.find(table);
    const bool beyond =
        found == m_last.end() || (identity.increment > 0 ? value > found->second : value < found->second);
    if (beyond)
        m_last[table] = value;
}

std::optional<std::int64_t> IdentityCounters::Last(ObjectId table) const {
    const std::lock_guard guard(m_mutex);
    const auto found = m_last.find(table);
    return found == m_last.end() ? std::nullopt : std::optional(found->second);
}

void IdentityCounters::Set(ObjectId table, std::optional<std::int64_t> last) {
    const std::lock_guard guard(m_mutex);
    if (last)
        m_last[table] = *last;
    else
        m_last.erase(table);
}

} // namespace quillon::practice
