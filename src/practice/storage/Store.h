// Store: the data folder, opened. All databases lie in one SQLite file, practice.db, so that a transaction
// over several of them is one transaction of the file. The store holds what all sessions share: the committed
// catalogue, the write lock, the identity counters, the number of the last rowversion.
//
// Threads: any. It outlives its sessions (StoreSession).
#pragma once

#include "practice/storage/Catalogue.h"
#include "practice/storage/IdentityCounters.h"
#include "practice/storage/WriteLock.h"

#include <atomic>
#include <filesystem>
#include <mutex>

struct sqlite3;

namespace quillon::practice {

// Ids below belong to the server's own objects.
constexpr ObjectId firstUserObject = 100'000;

struct StoreOptions {
    std::filesystem::path folder; // exists; ignored when ephemeral
    bool ephemeral = false;       // a temporary folder that goes away with the store
};

class Store {
  public:
    // Opens or creates practice.db, recovering what a killed server left committed. master, tempdb, model and
    // msdb exist afterwards. Throws std::runtime_error with a text for the person at the console.
    explicit Store(const StoreOptions& options);
    ~Store();
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    // The last committed definitions.
    std::shared_ptr<const Catalogue> Committed() const;
    // By the holder of the write lock alone, once its transaction is in the file.
    void Publish(std::shared_ptr<const Catalogue> catalogue);

    WriteLock& Lock() { return m_lock; }
    IdentityCounters& Identities() { return m_identities; }
    // Grows. What a committed row bears is not given again, not even by a server started anew.
    std::uint64_t NextRowVersion() { return ++m_rowVersion; }
    std::uint64_t LastRowVersion() const { return m_rowVersion; }
    ObjectId NextObjectId() { return ++m_lastObjectId; }
    std::uint64_t NextVersion() { return ++m_lastVersion; }

    const std::filesystem::path& File() const { return m_file; }
    const std::filesystem::path& Folder() const { return m_folder; }
    // A connection to the file, for one thread at a time, collations registered: WAL, and a commit is on the
    // disk when it returns (not so in an ephemeral store). The caller closes it.
    sqlite3* Connect() const;

  private:
    void CreateOrLoad(sqlite3* connection);

    std::filesystem::path m_folder;
    std::filesystem::path m_file;
    bool m_ephemeral = false;
    mutable std::mutex m_mutex;
    std::shared_ptr<const Catalogue> m_committed;
    WriteLock m_lock;
    IdentityCounters m_identities;
    std::atomic<std::uint64_t> m_rowVersion{2000};
    std::atomic<ObjectId> m_lastObjectId{0};
    std::atomic<std::uint64_t> m_lastVersion{1};
};

} // namespace quillon::practice
