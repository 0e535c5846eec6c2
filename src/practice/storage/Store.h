// Store: the data folder, opened. All databases lie in one SQLite file, practice.db, so that a transaction
// over several of them is one transaction of the file. The store holds what all sessions share: the committed
// catalogue, the locks, the identity counters, the number of the last rowversion.
//
// Threads: any. It outlives its sessions (StoreSession).
#pragma once

#include "practice/storage/Catalogue.h"
#include "practice/storage/IdentityCounters.h"
#include "practice/storage/Locks.h"

#include <atomic>
#include <filesystem>
#include <memory>
#include <mutex>

struct sqlite3;

namespace quillon::practice {

// Ids below belong to the server's own objects.
constexpr ObjectId firstUserObject = 100'000;

struct CloseConnection {
    void operator()(sqlite3* connection) const;
};
using OwnConnection = std::unique_ptr<sqlite3, CloseConnection>;

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
    // By the holder of the file's lock alone, once its transaction is in the file.
    void Publish(std::shared_ptr<const Catalogue> catalogue);

    Locks& AllLocks() { return m_locks; }
    const Locks& AllLocks() const { return m_locks; }
    IdentityCounters& Identities() { return m_identities; }
    // Grows. What a committed row bears is not given again, not even by a server started anew.
    std::uint64_t NextRowVersion() { return ++m_rowVersion; }
    std::uint64_t LastRowVersion() const { return m_rowVersion; }
    ObjectId NextObjectId() { return ++m_lastObjectId; }
    std::uint64_t NextVersion() { return ++m_lastVersion; }

    const std::filesystem::path& File() const { return m_file; }
    const std::filesystem::path& Folder() const { return m_folder; }
    // A connection to the file, for one thread at a time, collations registered.
    OwnConnection Connect() const;

    // A commit is in the file when it returns, so that it outlives a killed server, but on the disk only
    // after MakeDurable. Whoever tells a client of anything calls that first: what ran in one request, and
    // requests of several clients, then wait for the disk together. Both are called from any thread.
    void NoteCommit() { ++m_commits; }
    void MakeDurable(); // throws std::runtime_error for ever after the disk has failed once

  private:
    void CreateOrLoad(sqlite3* connection);
    void SyncLog();

    std::filesystem::path m_folder;
    std::filesystem::path m_file;
    bool m_ephemeral = false;
    OwnConnection m_keeper; // while it is open SQLite keeps its write-ahead log, however sessions come and go
    int m_log = -1;         // that log
    std::atomic<std::uint64_t> m_commits{0};
    std::atomic<std::uint64_t> m_durable{0}; // how many of them are on the disk
    std::mutex m_durableMutex;
    bool m_diskFailed = false;
    mutable std::mutex m_mutex;
    std::shared_ptr<const Catalogue> m_committed;
    Locks m_locks;
    IdentityCounters m_identities;
    std::atomic<std::uint64_t> m_rowVersion{2000};
    std::atomic<ObjectId> m_lastObjectId{0};
    std::atomic<std::uint64_t> m_lastVersion{1};
};

} // namespace quillon::practice
