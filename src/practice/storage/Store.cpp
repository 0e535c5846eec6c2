#include "practice/storage/Store.h"

#include "practice/storage/DefinitionTables.h"
#include "practice/storage/Sqlite.h"
#include "practice/storage/SystemDatabases.h"

#include <sqlite3.h>

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

struct Close {
    void operator()(sqlite3* connection) const { sqlite3_close(connection); }
};

} // namespace

sqlite3* Store::Connect() const {
    sqlite3* connection = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(m_file.string().c_str(), &connection, flags, nullptr) != SQLITE_OK) {
        const std::string text = sqlite3_errmsg(connection);
        sqlite3_close(connection);
        throw std::runtime_error("cannot open " + m_file.string() + ": " + text);
    }
    std::unique_ptr<sqlite3, Close> guard(connection);
    sqlite3_extended_result_codes(connection, 1);
    sqlite3_busy_timeout(connection, 10'000); // for checkpoints; writers wait for the write lock
    RegisterCollations(connection);
    Prepared(connection, "PRAGMA journal_mode = WAL").Run();
    Prepared(connection, m_ephemeral ? "PRAGMA synchronous = OFF" : "PRAGMA synchronous = FULL").Run();
    Prepared(connection, "PRAGMA cache_size = -8000").Run();
    return guard.release();
}

Store::Store(const StoreOptions& options)
    : m_folder(options.ephemeral ? MakeTemporaryFolder() : options.folder)
    , m_file(m_folder / "practice.db")
    , m_ephemeral(options.ephemeral) {
    try {
        const std::unique_ptr<sqlite3, Close> connection(Connect());
        CreateOrLoad(connection.get());
    } catch (const StoreFailure& failure) {
        throw std::runtime_error("cannot use " + m_file.string() + ": " + failure.what());
    }
}

Store::~Store() {
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
    if (m_committed->FindDatabase(masterDatabase) == nullptr) {
        CatalogueEditor editor(m_committed, NextVersion());
        AddSystemDatabases(editor);
        SaveChanges(connection, editor);
        m_committed = editor.Finish();
    }
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
