#include "practice/storage/Store.h"

#include "practice/storage/DefinitionTables.h"
#include "practice/storage/Sqlite.h"
#include "practice/storage/SystemDatabases.h"
#include "practice/storage/TableStorage.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <random>

namespace quillon::practice {

namespace {

constexpr std::int64_t formatNumber = 1;

std::filesystem::path MakeTemporaryFolder() {
    std::random_device chance;
    for (int attempt = 0; attempt < 100; ++attempt) {
        const auto folder =
            std::filesystem::temp_directory_path() / ("quillon-practice-" + std::to_string(chance()));
        if (std::filesystem::create_directory(folder)) {
            std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
            return folder;
        }
    }
    throw std::runtime_error("no temporary folder can be made in " +
                             std::filesystem::temp_directory_path().string());
}

} // namespace

void CloseConnection::operator()(sqlite3* connection) const {
    sqlite3_close_v2(connection);
}

OwnConnection Store::Connect() const {
    sqlite3* opened = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
    const int code = sqlite3_open_v2(m_file.string().c_str(), &opened, flags, nullptr);
    OwnConnection connection(opened);
    if (code != SQLITE_OK)
        throw std::runtime_error("cannot open " + m_file.string() + ": " + sqlite3_errmsg(opened));
    sqlite3_extended_result_codes(opened, 1);
    sqlite3_busy_timeout(opened, 10'000); // for checkpoints; writers wait for the write lock
    RegisterCollations(opened);
    Prepared(opened, "PRAGMA journal_mode = WAL").Run();
    // NORMAL: checkpoints wait for the disk, commits do not. MakeDurable does.
    Prepared(opened, m_ephemeral ? "PRAGMA synchronous = OFF" : "PRAGMA synchronous = NORMAL").Run();
    Prepared(opened, "PRAGMA cache_size = -8000").Run();
    return connection;
}

void Store::MakeDurable() {
    const std::uint64_t wanted = m_commits;
    if (m_durable >= wanted || m_ephemeral)
        return;
    const std::lock_guard guard(m_durableMutex);
    if (m_durable >= wanted)
        return;
    const std::uint64_t now = m_commits;
    SyncLog();
    m_durable = now;
}

// After a failure nobody knows what is on the disk: a second try may well say that all is.
void Store::SyncLog() {
    if (m_log < 0)
        m_log = open((m_file.string() + "-wal").c_str(), O_RDONLY | O_CLOEXEC);
    if (m_diskFailed || m_log < 0 || fdatasync(m_log) != 0) {
        m_diskFailed = true;
        throw std::runtime_error("cannot write " + m_file.string() + "-wal to the disk");
    }
}

Store::Store(const StoreOptions& options)
    : m_folder(options.ephemeral ? MakeTemporaryFolder() : options.folder)
    , m_file(m_folder / "practice.db")
    , m_ephemeral(options.ephemeral) {
    try {
        m_keeper = Connect();
        CreateOrLoad(m_keeper.get());
    } catch (const StoreFailure& failure) {
        throw std::runtime_error("cannot use " + m_file.string() + ": " + failure.what());
    }
}

Store::~Store() {
    m_keeper.reset();
    if (m_log >= 0)
        close(m_log);
    if (m_ephemeral) {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
}

void Store::CreateOrLoad(sqlite3* connection) {
    Prepared(connection, "BEGIN IMMEDIATE").Run();
    CreateDefinitionTables(connection);
    const std::int64_t format = LoadSetting(connection, "format", formatNumber);
    if (format != formatNumber)
        throw std::runtime_error(m_file.string() + " was written by a newer server (format " +
                                 std::to_string(format) + ")");
    SaveSetting(connection, "format", formatNumber);
    m_committed = LoadCatalogue(connection, NextVersion());
    CatalogueEditor editor(m_committed, NextVersion());
    if (m_committed->FindDatabase(masterDatabase) == nullptr)
        AddSystemDatabases(editor);
    else {
        DropTables(connection, *m_committed->FindDatabase(tempDatabase));
        RemakeTempdb(editor);
    }
    DefinitionSaver(connection).Save(editor);
    m_committed = editor.Finish();
    Prepared last(connection, "SELECT max(object_id) FROM q_object");
    last.Step();
    m_lastObjectId = std::max<ObjectId>(firstUserObject, static_cast<ObjectId>(last.Integer(0)));
    last.Reset();
    m_rowVersion = static_cast<std::uint64_t>(
        LoadSetting(connection, "rowversion", static_cast<std::int64_t>(m_rowVersion.load())));
    Prepared identities(connection, "SELECT object_id, last_value FROM q_identity");
    while (identities.Step())
        m_identities.Set(static_cast<ObjectId>(identities.Integer(0)), identities.Integer(1));
    identities.Reset();
    Prepared(connection, "COMMIT").Run();
}

std::shared_ptr<const Catalogue> Store::Committed() const {
    const std::lock_guard guard(m_mutex);
    return m_committed;
}

void Store::Publish(std::shared_ptr<const Catalogue> catalogue) {
    const std::lock_guard guard(m_mutex);
    m_committed = std::move(catalogue);
}

} // namespace quillon::practice
