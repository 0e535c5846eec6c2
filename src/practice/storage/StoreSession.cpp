#include "practice/storage/StoreSession.h"

#include "practice/storage/DefinitionTables.h"
#include "practice/storage/Sqlite.h"
#include "practice/values/SqlError.h"

#include <sqlite3.h>

namespace quillon::practice {

namespace {

// By its place among the open ones, so that the same few statements serve all.
std::string SavepointName(std::size_t place) {
    return "s" + std::to_string(place);
}

} // namespace

StoreSession::StoreSession(Store& store, int sessionId)
    : m_store(store)
    , m_connection(store.Connect())
    , m_holder{sessionId, m_interrupted} {}

StoreSession::~StoreSession() {
    RollBackAll();
    m_store.AllLocks().ReleaseAll(m_holder);
}

void StoreSession::Run(const std::string& sql) {
    Prepared(Connection(), sql).Run();
}

Prepared& StoreSession::Kept(const std::string& sql) {
    Prepared& statement = m_kept[sql];
    if (!statement)
        statement = Prepared(Connection(), sql, true);
    return statement;
}

void StoreSession::Interrupt() noexcept {
    m_interrupted = true;
    sqlite3_interrupt(Connection());
    m_store.AllLocks().Wake();
}

std::uint64_t StoreSession::NextRowVersion() {
    m_usedRowVersion = true;
    return m_store.NextRowVersion();
}

const std::shared_ptr<const Catalogue>& StoreSession::View() {
    if (!m_ownView)
        m_view = m_store.Committed();
    return m_view;
}

void StoreSession::Change(const std::function<void(CatalogueEditor&)>& change) {
    CatalogueEditor editor(View(), m_store.NextVersion());
    change(editor);
    std::vector<WantedLock> wanted;
    for (const auto& [id, wasThere] : editor.ChangedObjects())
        if (wasThere)
            wanted.push_back({ObjectLock(id), LockMode::Exclusive});
    LockWritten(wanted);
    if (!m_saver)
        m_saver = std::make_unique<DefinitionSaver>(Connection());
    m_saver->Save(editor);
    m_view = editor.Finish();
    m_ownView = true;
}

std::string StoreSession::OverTempdb(std::string select) {
    if (m_temporary.All().tables.empty() && m_temporary.All().procedures.empty())
        return select;
    if (!m_temporaryCatalogue)
        m_temporaryCatalogue = std::make_unique<TemporaryCatalogue>(Connection());
    return m_temporaryCatalogue->Over(std::move(select), m_temporary);
}

// --- Transactions --------------------------------------------------------------------------------------

void StoreSession::StartNew() {
    m_number = ++m_lastNumber;
    m_changesAtBegin = sqlite3_total_changes(Connection());
    m_temporaryAtBegin = m_temporary.All();
}

void StoreSession::Begin(std::string_view name) {
    if (m_count == 0) {
        StartNew();
        m_outerName = name;
    }
    ++m_count;
}

void StoreSession::Commit() {
    if (m_count == 0)
        throw SqlError(3902);
    if (m_doomed)
        throw SqlError(3930);
    if (m_count == 1)
        CommitAll();
    else
        --m_count;
}

void StoreSession::Rollback(std::string_view name) {
    if (m_count == 0)
        throw SqlError(3903);
    if (name.empty() || SameName(name, m_outerName)) {
        const std::vector<KeptRows> variables = KeepVariables();
        RollBackAll();
        for (const KeptRows& rows : variables)
            rows.Restore();
        return;
    }
    const auto found = std::find_if(m_savepoints.rbegin(), m_savepoints.rend(), [&](const Savepoint& point) {
        return !point.name.empty() && SameName(point.name, name);
    });
    if (found == m_savepoints.rend())
        throw SqlError(6401, {name});
    if (m_doomed)
        throw SqlError(3931);
    RollbackToSavepoint(static_cast<std::size_t>(m_savepoints.rend() - found) - 1);
}

void StoreSession::Save(std::string_view name) {
    if (m_count == 0)
        throw SqlError(628);
    if (m_doomed)
        throw SqlError(3930);
    PushSavepoint(std::string(name));
}

void StoreSession::Doom() {
    if (m_count > 0)
        m_doomed = true;
}

// --- Locks ---------------------------------------------------------------------------------------------

Locks::Timeout StoreSession::Patience() const {
    return m_lockTimeout < 0 ? std::nullopt : std::optional(std::chrono::milliseconds(m_lockTimeout));
}

void StoreSession::TakeLocks(std::span<const WantedLock> wanted, Locks::Timeout timeout) {
    if (wanted.empty())
        return;
    m_holder.work = static_cast<std::uint64_t>(sqlite3_total_changes(Connection()) - m_changesAtBegin);
    switch (m_store.AllLocks().Take(m_holder, wanted, timeout)) {
    case Locks::Outcome::Taken:
    case Locks::Outcome::TakenAfterWaiting: return;
    case Locks::Outcome::TimedOut: throw SqlError(1222);
    case Locks::Outcome::Interrupted: throw Interrupted();
    case Locks::Outcome::Victim: throw SqlError(1205, {std::to_string(m_holder.session), "lock"}, 51);
    }
}

void StoreSession::LockWritten(std::span<const WantedLock> wanted) {
    TakeLocks(wanted, Patience());
}

void StoreSession::LockReads(std::span<const WantedLock> kept, std::span<const WantedLock> passing,
                             bool noWait) {
    const Locks::Timeout timeout = noWait ? std::chrono::milliseconds(0) : Patience();
    std::vector<WantedLock> released(passing.begin(), passing.end());
    if (m_count == 0)
        released.insert(released.end(), kept.begin(), kept.end());
    else
        TakeLocks(kept, timeout);
    std::erase_if(released, [&](const WantedLock& lock) { return m_store.AllLocks().Holds(m_holder, lock); });
    TakeLocks(released, timeout);
    for (const WantedLock& lock : released)
        m_store.AllLocks().Release(m_holder, lock);
}

Locks::Outcome StoreSession::LockApplication(const WantedLock& wanted, bool forSession, int timeout) {
    m_holder.work = static_cast<std::uint64_t>(sqlite3_total_changes(Connection()) - m_changesAtBegin);
    return m_store.AllLocks().TakeApplication(
        m_holder, wanted, forSession,
        timeout < 0 ? std::nullopt : std::optional(std::chrono::milliseconds(timeout)));
}

bool StoreSession::UnlockApplication(const LockName& name, bool forSession) {
    return m_store.AllLocks().ReleaseApplication(m_holder, name, forSession);
}

void StoreSession::UnlockAllApplication() {
    m_store.AllLocks().ReleaseAll(m_holder);
}

// A transaction of T-SQL that has only read so far becomes one of SQLite, with the savepoints it has by now.
void StoreSession::OpenWrite(const WantedLock& table) {
    std::vector<WantedLock> wanted;
    if (!m_locked)
        wanted.push_back({});
    if (table.name.kind != LockName::Kind::File)
        wanted.push_back(table);
    TakeLocks(wanted, Patience());
    m_locked = true;
    if (m_open)
        return;
    Kept("BEGIN IMMEDIATE").Run();
    m_open = true;
    for (std::size_t place = 0; place < m_savepoints.size(); ++place)
        Kept("SAVEPOINT " + SavepointName(place)).Run();
}

void StoreSession::SaveCounters() {
    for (const ObjectId table : m_usedIdentities)
        if (const auto last = m_store.Identities().Last(table); last)
            Kept("INSERT OR REPLACE INTO q_identity VALUES(?, ?)").Bind(1, table).Bind(2, *last).Run();
        else
            Kept("DELETE FROM q_identity WHERE object_id = ?").Bind(1, table).Run();
    if (m_usedRowVersion)
        SaveSetting(Connection(), "rowversion", static_cast<std::int64_t>(m_store.LastRowVersion()));
}

void StoreSession::CommitAll() {
    if (m_open) {
        try {
            if (m_locked)
                SaveCounters();
            Kept("COMMIT").Run();
            m_store.NoteCommit();
        } catch (...) {
            RollBackAll();
            throw;
        }
        if (m_ownView)
            m_store.Publish(m_view);
    }
    Forget();
}

void StoreSession::RollBackAll() noexcept {
    // SQLite may have rolled back by itself (a full disk); then there is nothing left to do.
    if (m_open && sqlite3_get_autocommit(Connection()) == 0)
        sqlite3_exec(Connection(), "ROLLBACK", nullptr, nullptr, nullptr);
    if (m_count > 0)
        m_temporary.Restore(m_temporaryAtBegin);
    Forget();
}

void StoreSession::Forget() {
    m_count = 0;
    m_doomed = false;
    m_open = false;
    m_ownView = false;
    m_outerName.clear();
    m_savepoints.clear();
    m_usedIdentities.clear();
    m_usedRowVersion = false;
    m_temporaryAtBegin = {};
    m_store.AllLocks().ReleaseTransaction(m_holder);
    m_locked = false;
}

int StoreSession::PushSavepoint(std::string name) {
    const int serial = ++m_lastSerial;
    if (m_open)
        Kept("SAVEPOINT " + SavepointName(m_savepoints.size())).Run();
    m_savepoints.push_back({serial, std::move(name), m_ownView ? m_view : nullptr, m_temporary.All()});
    return serial;
}

void StoreSession::RollbackToSavepoint(std::size_t index) {
    const std::vector<KeptRows> variables = KeepVariables();
    const Savepoint& point = m_savepoints[index];
    if (m_open)
        Kept("ROLLBACK TO " + SavepointName(index)).Run();
    m_ownView = point.own != nullptr;
    if (m_ownView)
        m_view = point.own;
    m_temporary.Restore(point.temporary);
    m_savepoints.resize(index + 1);
    for (const KeptRows& rows : variables)
        rows.Restore();
}

std::vector<KeptRows> StoreSession::KeepVariables() {
    std::vector<KeptRows> kept;
    if (!m_open)
        return kept;
    for (const TemporaryTables::Entry& entry : m_temporary.All().tables)
        if (entry.table->variable)
            kept.emplace_back(Connection(), entry.table);
    return kept;
}

// --- Statements ----------------------------------------------------------------------------------------

StoreSession::StatementMark StoreSession::BeginStatement(const Written& written) {
    const Writes writes = written.what;
    if (m_interrupted)
        throw Interrupted();
    if (m_doomed)
        throw SqlError(3930);
    StatementMark mark;
    if (m_count == 0) {
        // Of the lock first: what others commit while we wait must be seen.
        if (writes == Writes::Data)
            OpenWrite(written.table);
        else {
            Kept("BEGIN").Run();
            m_open = true;
        }
        StartNew();
        m_count = 1;
        mark.own = true;
    } else if (writes == Writes::Variables && !m_open) {
        Kept("SAVEPOINT aside").Run();
        mark.aside = true;
    } else {
        OpenWrite(written.table);
        mark.savepoint = PushSavepoint({});
    }
    mark.transaction = m_number;
    return mark;
}

bool StoreSession::EndStatement(const StatementMark& mark) {
    if (mark.aside) {
        Kept("RELEASE aside").Run();
        return true;
    }
    if (m_count == 0 || m_number != mark.transaction)
        return false;
    if (mark.own) {
        // A transaction that was begun inside (in a trigger) and left open goes on.
        if (m_count > 1)
            --m_count;
        else
            CommitAll();
        return true;
    }
    const auto found = std::find_if(m_savepoints.begin(), m_savepoints.end(),
                                    [&](const Savepoint& point) { return point.serial == mark.savepoint; });
    if (found != m_savepoints.end()) {
        Kept("RELEASE " + SavepointName(static_cast<std::size_t>(found - m_savepoints.begin()))).Run();
        m_savepoints.erase(found, m_savepoints.end());
    }
    return true;
}

void StoreSession::UndoStatement(const StatementMark& mark) noexcept {
    if (mark.aside) {
        sqlite3_exec(Connection(), "ROLLBACK TO aside; RELEASE aside", nullptr, nullptr, nullptr);
        return;
    }
    if (m_count == 0 || m_number != mark.transaction)
        return;
    if (mark.own || sqlite3_get_autocommit(Connection()) != 0) {
        RollBackAll();
        return;
    }
    const auto found = std::find_if(m_savepoints.begin(), m_savepoints.end(),
                                    [&](const Savepoint& point) { return point.serial == mark.savepoint; });
    if (found == m_savepoints.end())
        return;
    const std::string name = SavepointName(static_cast<std::size_t>(found - m_savepoints.begin()));
    sqlite3_exec(Connection(), ("ROLLBACK TO " + name + "; RELEASE " + name).c_str(), nullptr, nullptr,
                 nullptr);
    m_ownView = found->own != nullptr;
    if (m_ownView)
        m_view = found->own;
    m_temporary.Restore(found->temporary);
    m_savepoints.erase(found, m_savepoints.end());
}

} // namespace quillon::practice
