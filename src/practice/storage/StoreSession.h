// StoreSession: one session's way into the store: an SQLite connection of its own, the transactions as T-SQL
// counts them, and the catalogue as this session sees it.
//
// A transaction of T-SQL opens a write transaction of SQLite at its first write, not before; reads outside of
// one see the last committed state. A statement that writes runs between BeginStatement and EndStatement: its
// changes are undone as a whole when it fails, and without an open transaction it is one by itself.
//
// Threads: the session's own, save Interrupt.
#pragma once

#include "practice/storage/DefinitionTables.h"
#include "practice/storage/Sqlite.h"
#include "practice/storage/Store.h"
#include "practice/storage/StoreFailure.h"
#include "practice/storage/TableStorage.h"
#include "practice/storage/TemporaryCatalogue.h"
#include "practice/storage/TemporaryTables.h"

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

struct sqlite3;

namespace quillon::practice {

class StoreSession {
  public:
    StoreSession(Store& store, int sessionId);
    ~StoreSession(); // rolls back; temporary tables go
    StoreSession(const StoreSession&) = delete;
    StoreSession& operator=(const StoreSession&) = delete;

    sqlite3* Connection() const { return m_connection.get(); }
    Store& Shared() const { return m_store; }

    // --- Definitions -----------------------------------------------------------------------------------
    // What this session sees now: its own uncommitted definitions, or the last committed ones.
    const std::shared_ptr<const Catalogue>& View();
    // Changes definitions, in the file and for this session's eyes; within BeginStatement and EndStatement.
    void Change(const std::function<void(CatalogueEditor&)>& change);
    TemporaryTables& Temporary() { return m_temporary; }
    // The SELECT of a system view, over tempdb as this session sees it.
    std::string OverTempdb(std::string select);
    // ##tables and ##procedures that this session has made: they go when it ends.
    void NoteShared(ObjectId object) { m_shared.push_back(object); }
    std::vector<ObjectId> TakeShared() { return std::exchange(m_shared, {}); }

    // --- Transactions (as @@TRANCOUNT counts) ------------------------------------------------------------
    int TransactionCount() const { return m_count; }
    // Tells one outermost transaction of this session from the next; 0 while there is none.
    std::uint64_t TransactionNumber() const { return m_count > 0 ? m_number : 0; }
    bool Doomed() const { return m_doomed; }
    // XACT_STATE() -1: nothing but a full rollback is possible. Does nothing outside of a transaction.
    void Doom();
    void Begin(std::string_view name = {});
    void Commit(); // 3902 without a transaction, 3930 when doomed
    // Everything, or to the savepoint of that name; the name of the outermost transaction means everything.
    // 3903 without a transaction, 6401 for an unknown name, 3931 when doomed and a savepoint is asked for.
    void Rollback(std::string_view name = {});
    void Save(std::string_view name); // 628 without a transaction

    // --- Statements --------------------------------------------------------------------------------------
    enum class Writes : std::uint8_t {
        Data,      // the file: takes its lock, waiting for it (1222 after the lock timeout)
        Temporary, // temporary tables alone
        Variables, // table variables alone: no rollback undoes what they hold
    };
    // What is written, and the table that is, where one is known: it is locked with the file.
    struct Written {
        Written(Writes kind, WantedLock target = {}) // NOLINT(google-explicit-constructor)
            : what(kind)
            , table(std::move(target)) {}
        Writes what;
        WantedLock table; // of the kind File: none
    };
    // Returns a mark to end the statement with. In autocommit the count of transactions becomes 1 until then,
    // so that a trigger sees itself inside a transaction.
    struct StatementMark {
        std::uint64_t transaction = 0;
        int savepoint = 0;
        bool own = false;   // it is a transaction by itself
        bool aside = false; // it stands outside of the open transaction: table variables alone
    };
    StatementMark BeginStatement(const Written& written);
    // Keeps what the statement did (and commits when it was a transaction by itself). Returns false when the
    // transaction in which it began is gone: a trigger has rolled it back.
    bool EndStatement(const StatementMark& mark);
    // Locks what is about to be read: until the end of the open transaction, or, where it is not to be kept
    // (or none is open), for as long as others write it. 1222, 1205 like all that wait.
    void LockReads(std::span<const WantedLock> kept, std::span<const WantedLock> passing, bool noWait);
    // Locks tables that the statement which runs comes to write.
    void LockWritten(std::span<const WantedLock> wanted);
    // Undoes what the statement did; quiet when the transaction is gone already.
    void UndoStatement(const StatementMark& mark) noexcept;

    // --- Waiting and interruption ------------------------------------------------------------------------
    void SetLockTimeout(int milliseconds) { m_lockTimeout = milliseconds; } // -1: without end
    int LockTimeout() const { return m_lockTimeout; }
    // From -10 to 10; of those that block each other in a circle the lowest is rolled back.
    void SetDeadlockPriority(int priority) { m_holder.priority = priority; }
    int DeadlockPriority() const { return m_holder.priority; }
    // Locks of the application's own; see Locks. The timeout is that of the call.
    Locks::Outcome LockApplication(const WantedLock& wanted, bool forSession, int timeout);
    bool UnlockApplication(const LockName& name, bool forSession);
    void UnlockAllApplication(); // of a session that begins anew
    // From any thread: a running or waiting statement ends as soon as it can, with Interrupted.
    void Interrupt() noexcept;
    void ClearInterrupt() { m_interrupted = false; }
    bool IsInterrupted() const { return m_interrupted; }

    // Identity values used by the open transaction; written to the file when it commits.
    void NoteIdentity(ObjectId table) { m_usedIdentities.insert(table); }
    std::uint64_t NextRowVersion();
    // Runs SQL for SQLite that has no result. Throws StoreFailure.
    void Run(const std::string& sql);

  private:
    struct Savepoint {
        int serial = 0;
        std::string name; // of SAVE TRANSACTION; empty for a statement's own
        std::shared_ptr<const Catalogue> own;
        TemporaryTables::State temporary;
    };

    Prepared& Kept(const std::string& sql);
    void TakeLocks(std::span<const WantedLock> wanted, Locks::Timeout timeout);
    Locks::Timeout Patience() const;
    void OpenWrite(const WantedLock& table = {});
    void CommitAll();
    void RollBackAll() noexcept;
    int PushSavepoint(std::string name);
    void RollbackToSavepoint(std::size_t index);
    std::vector<KeptRows> KeepVariables();
    void SaveCounters();
    void StartNew();
    void Forget();

    Store& m_store;
    OwnConnection m_connection;
    std::unordered_map<std::string, Prepared> m_kept; // few texts, used all the time
    std::unique_ptr<DefinitionSaver> m_saver;         // from the first definition on
    std::shared_ptr<const Catalogue> m_view;          // committed, or own
    bool m_ownView = false;
    TemporaryTables m_temporary;
    std::unique_ptr<TemporaryCatalogue> m_temporaryCatalogue; // once asked for
    std::vector<ObjectId> m_shared;
    TemporaryTables::State m_temporaryAtBegin;

    int m_count = 0;
    std::uint64_t m_number = 0;
    bool m_doomed = false;
    bool m_open = false;   // an SQLite transaction is open
    bool m_locked = false; // and it holds the file's lock
    std::string m_outerName;
    std::vector<Savepoint> m_savepoints;
    int m_lastSerial = 0;
    std::uint64_t m_lastNumber = 0;
    std::set<ObjectId> m_usedIdentities;
    bool m_usedRowVersion = false;

    int m_lockTimeout = -1;
    std::atomic<bool> m_interrupted{false};
    Locks::Holder m_holder;
    int m_changesAtBegin = 0;
};

} // namespace quillon::practice
