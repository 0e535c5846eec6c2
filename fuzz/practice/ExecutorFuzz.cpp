// Any batch runs in a session of its own against a small database: whatever it answers is well formed and
// comes to an end, and the session can be closed. Batches that would not end are cancelled.
//
// The database drifts with what the batches do to it, and is made anew after some hundred of them.
#include "TokenMutator.h"

#include "practice/DataFolder.h"
#include "practice/session/Accounts.h"
#include "practice/session/SqlSession.h"

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <thread>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

using namespace quillon::practice;

constexpr int batchesBetweenDatabases = 300;
constexpr std::chrono::milliseconds patience{200};

const char* const schema[] = {
    "CREATE TABLE t (a int IDENTITY PRIMARY KEY, b varchar(20) NULL, c decimal(10, 2) DEFAULT 1, d datetime "
    "NULL)",
    "CREATE TABLE u (a int NULL REFERENCES t (a) ON DELETE CASCADE, b nvarchar(max) NULL, c float, v AS a + "
    "1)",
    "CREATE VIEW v AS SELECT t.a, t.b, u.c FROM t JOIN u ON u.a = t.a",
    "INSERT t (b, d) VALUES ('x', '2020-01-01'), (NULL, NULL), ('y', GETDATE()); INSERT u VALUES (1, N'b', "
    "2.5)",
    "CREATE PROCEDURE p @i int = 1, @o int OUTPUT AS SET @o = @i; SELECT * FROM t WHERE a = @i; RETURN @i",
    "CREATE FUNCTION f (@i int) RETURNS int AS BEGIN RETURN @i * 2 END",
    "CREATE TRIGGER tr ON t AFTER UPDATE AS INSERT u (b) SELECT b FROM deleted",
};

void Require(bool holds) {
    if (!holds)
        std::abort();
}

/// Holds each answer against what the wire would need of it.
class CheckingSink : public ResultSink {
  public:
    void Columns(const std::vector<ResultColumn>& columns) override { m_columns = columns.size(); }
    void Row(std::span<const Datum> values) override { Require(values.size() == m_columns); }
    void Done(const StatementEnd&) override { m_columns = 0; }
    void Message(const ServerMessage& message) override { Require(message.line >= 0); }
    void ReturnStatus(std::int32_t) override {}
    void OutputParameter(std::size_t, const std::string&, const SqlType&, const Datum&) override {}
    void Environment(const EnvironmentChange&) override {}

  private:
    std::size_t m_columns = 0;
};

LoginFacts Administrator() {
    LoginFacts facts;
    facts.login = "sa";
    facts.database = "master";
    facts.spid = 51;
    return facts;
}

/// A server in a folder of its own with the small database in it.
class World {
  public:
    World()
        : m_folder(DataFolder::Temporary())
        , m_accounts(m_folder.Path() / "logins")
        , m_server(Open()) {
        CheckingSink sink;
        const auto session = m_server->OpenSession(Administrator(), sink);
        for (const char* batch : schema)
            session->ExecuteBatch(batch, sink);
    }

    std::unique_ptr<SqlSession> Session(ResultSink& sink) {
        return m_server->OpenSession(Administrator(), sink);
    }

  private:
    std::unique_ptr<SqlServer> Open() {
        m_accounts.Create("sa", "Secret1!", true);
        ServerOptions options;
        options.dataFolder = m_folder.Path();
        options.ephemeral = true;
        options.accounts = &m_accounts;
        return OpenSqlServer(options);
    }

    DataFolder m_folder;
    Accounts m_accounts;
    std::unique_ptr<SqlServer> m_server;
};

/// Cancels the session's request when it lasts longer than our patience.
class Watch {
  public:
    explicit Watch(SqlSession& session)
        : m_thread([this, &session] {
            std::unique_lock lock(m_mutex);
            while (!m_over.wait_for(lock, patience, [this] { return m_done; }))
                session.Cancel();
        }) {}
    ~Watch() {
        {
            const std::lock_guard lock(m_mutex);
            m_done = true;
        }
        m_over.notify_one();
        m_thread.join();
    }

  private:
    std::mutex m_mutex;
    std::condition_variable m_over;
    bool m_done = false;
    std::thread m_thread;
};

World& CurrentWorld() {
    static std::unique_ptr<World> world;
    static int batches = 0;
    if (!world || ++batches % batchesBetweenDatabases == 0) {
        world.reset();
        world = std::make_unique<World>();
    }
    return *world;
}

std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

std::size_t Give(const std::string& text, std::uint8_t* data, std::size_t maxSize) {
    const std::size_t size = std::min(text.size(), maxSize);
    std::memcpy(data, text.data(), size);
    return size;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CheckingSink sink;
    const std::unique_ptr<SqlSession> session = CurrentWorld().Session(sink);
    session->PrepareRequest();
    const Watch watch(*session);
    session->ExecuteBatch(TextOf(data, size), sink);
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned int seed) {
    std::minstd_rand random(seed);
    if (random() % 16 == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    return Give(fuzz::ChangeOneWord(TextOf(data, size), TextOf(data, size), random), data, maxSize);
}

extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* first, std::size_t firstSize,
                                                 const std::uint8_t* second, std::size_t secondSize,
                                                 std::uint8_t* out, std::size_t outSize, unsigned int seed) {
    std::minstd_rand random(seed);
    const std::string_view text = TextOf(first, firstSize);
    const std::string_view other = TextOf(second, secondSize);
    const bool whole = random() % 2 == 0;
    return Give(whole ? fuzz::Splice(text, other, random) : fuzz::ChangeOneWord(text, other, random), out,
                outSize);
}
