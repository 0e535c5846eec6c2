// The last identity value of every table. Numbers once given are not given back by a rollback, so the
// counters live outside the transactions; what a transaction used is written to the file with its commit.
// Safe on all threads.
#pragma once

#include "practice/storage/Definitions.h"

#include <mutex>
#include <unordered_map>

namespace quillon::practice {

class IdentityCounters {
  public:
    // The next number. Nothing when it would leave the range of 64 bits.
    std::optional<std::int64_t> Next(ObjectId table, const Identity& identity);
    // A value that was inserted under IDENTITY_INSERT: the counter follows where it lies beyond.
    void Follow(ObjectId table, const Identity& identity, std::int64_t value);
    // The last number given, or nothing for a table whose counter was never used.
    std::optional<std::int64_t> Last(ObjectId table) const;
    // DBCC CHECKIDENT and loading: the next number is value + increment; nothing makes it the seed again.
    void Set(ObjectId table, std::optional<std::int64_t> last);

  private:
    mutable std::mutex m_mutex;
    std::unordered_map<ObjectId, std::int64_t> m_last;
};

} // namespace quillon::practice
