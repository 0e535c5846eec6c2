// Any batch runs in a session of its own against a small database: whatever it answers is well formed and
// comes to an end, and the session can be closed. Batches that would not end are cancelled.
//
// The database drifts with what the batches do to it, and is made anew after some hundred of them.
#include "practice/DataFolder.h"
#include "practice/session/Accounts.h"
#include "practice/session/SqlSession.h"
#include "support/WordMutator.h"

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <thread>

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
    "CREATE TRIGGER tr ON t AFTER UPDATE AS INSERT u (b) SELECT b FROM deleted"};

// clang-format off
constexpr std::string_view language[] = {
    "SELECT", "FROM", "WHERE", "GROUP BY", "HAVING", "ORDER BY", "TOP 3", "DISTINCT", "JOIN",
    "LEFT JOIN", "ON", "CROSS APPLY", "UNION ALL", "EXCEPT", "INTERSECT", "OVER ()", "PARTITION BY",
    "INSERT", "VALUES", "DEFAULT VALUES", "UPDATE", "SET", "DELETE", "MERGE", "USING",
    "WHEN MATCHED THEN", "OUTPUT inserted.*", "INTO", "TRUNCATE TABLE", "CREATE", "ALTER", "DROP",
    "TABLE", "VIEW", "PROCEDURE", "FUNCTION", "TRIGGER", "INDEX", "SCHEMA", "DATABASE",
    "AFTER INSERT", "INSTEAD OF DELETE", "AS", "BEGIN", "END", "IF", "ELSE", "WHILE", "BREAK",
    "CONTINUE", "RETURN", "GOTO a", "a:", "DECLARE", "@i", "@t", "@@ROWCOUNT", "@@TRANCOUNT", "int",
    "varchar(max)", "nvarchar(10)", "decimal(38, 10)", "datetime", "datetimeoffset", "money",
    "float", "uniqueidentifier", "sql_variant", "varbinary(8)", "text", "bit", "xml", "NULL", "NOT",
    "IN", "EXISTS", "BETWEEN", "LIKE", "IS", "CASE WHEN", "THEN", "CAST(", "CONVERT(", "COUNT(*)",
    "SUM(", "ROW_NUMBER()", "t", "u", "v", "a", "b", "c", "dbo.", "#t", "sys.objects", "inserted",
    "deleted", "(", ")", ",", ";", "=", "<", "+", "-", "*", "/", "%", "0", "1", "-1", "2147483648",
    "1e308", "'x'", "N'ж'", "''", "0xFF", "'2020-02-30'", "EXEC", "sp_executesql", "PRINT",
    "RAISERROR", "THROW", "TRY", "CATCH", "BEGIN TRAN",
};
// clang-format on

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

} // namespace

const std::span<const std::string_view> quillon::fuzz::words{language};

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CheckingSink sink;
    const std::unique_ptr<SqlSession> session = CurrentWorld().Session(sink);
    session->PrepareRequest();
    const Watch watch(*session);
    session->ExecuteBatch({reinterpret_cast<const char*>(data), size}, sink);
    return 0;
}
