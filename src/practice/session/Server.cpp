// The engine as a whole: the store, and the sessions on it.
#include "practice/catalogue/SampleDatabase.h"
#include "practice/session/Requests.h"
#include "practice/session/StartupProcedures.h"
#include "practice/values/SqlError.h"

#include <set>

namespace quillon::practice {

namespace {

/// Takes what the making of the sample answers; an error there is a fault of ours, told at the console.
class ScriptSink : public ResultSink {
  public:
    void Columns(const std::vector<ResultColumn>&) override {}
    void Row(std::span<const Datum>) override {}
    void Done(const StatementEnd&) override {}
    void Message(const ServerMessage& message) override {
        if (message.severity > 10)
            throw std::runtime_error("the sample database: error " + std::to_string(message.number) +
                                     ", line " + std::to_string(message.line) + ": " + message.text);
    }
    void ReturnStatus(std::int32_t) override {}
    void OutputParameter(std::size_t, const std::string&, const SqlType&, const Datum&) override {}
    void Environment(const EnvironmentChange&) override {}
};

class Server;

/// A session that the server knows of for as long as it lives.
class KnownSession : public SessionOfRequests {
  public:
    KnownSession(Server& server, ServerParts& parts, const LoginFacts& facts);
    ~KnownSession() override;

  private:
    Server& m_server;
};

class Server : public SqlServer {
  public:
    explicit Server(const ServerOptions& options)
        : m_store(StoreOptions{options.dataFolder, options.ephemeral})
        , m_parts{m_store, *options.accounts, "PRACTICE", {}, {}} {
        m_parts.sources.serverName = m_parts.name;
        m_parts.sources.logins = [this] { return Logins(); };
        m_parts.kill = [this](int spid) { return Kill(spid); };
        m_parts.sources.sessions = [this] { return Sessions(); };
        m_parts.sources.locks = [this] { return m_store.AllLocks().List(); };
        if (options.createSample && m_store.Committed()->FindDatabase(sampleDatabaseName) == nullptr)
            MakeSample();
        m_startup = std::make_unique<StartupProcedures>(*this, *m_store.Committed(), options.log);
    }

    std::unique_ptr<SqlSession> OpenSession(const LoginFacts& facts, ResultSink& sink) override {
        auto session = std::make_unique<KnownSession>(*this, m_parts, facts);
        session->LogIn(sink);
        return session;
    }

    void Enter(const SessionOfRequests& session) {
        const std::lock_guard lock(m_mutex);
        m_sessions.insert(&session);
    }

    void Leave(const SessionOfRequests& session) {
        const std::lock_guard lock(m_mutex);
        m_sessions.erase(&session);
    }

  private:
    std::vector<LoginRow> Logins() const {
        std::vector<LoginRow> rows;
        for (const Account& account : m_parts.accounts.List()) {
            LoginRow row;
            row.name = account.name;
            row.principalId = account.principalId;
            row.sid = account.sid;
            row.defaultDatabase = account.defaultDatabase;
            row.defaultLanguage = account.defaultLanguage;
            row.disabled = account.disabled;
            row.administrator = account.administrator;
            row.created = MomentOf(account.created);
            row.modified = MomentOf(account.modified);
            rows.push_back(std::move(row));
        }
        return rows;
    }

    static Moment MomentOf(const std::string& text) {
        const auto parsed = ParseMoment(text, {});
        return parsed ? parsed->moment : Moment{};
    }

    std::vector<SessionRow> Sessions() const {
        const std::lock_guard lock(m_mutex);
        std::vector<SessionRow> rows;
        for (const SessionOfRequests* session : m_sessions) {
            SessionRow& row = rows.emplace_back(session->Row());
            row.blockedBy = m_store.AllLocks().BlockerOf(row.sessionId);
            if (row.blockedBy != 0)
                row.status = "suspended";
        }
        return rows;
    }

    bool Kill(int spid) const {
        const std::lock_guard lock(m_mutex);
        const auto session =
            std::find_if(m_sessions.begin(), m_sessions.end(),
                         [&](const SessionOfRequests* one) { return one->Row().sessionId == spid; });
        if (session == m_sessions.end())
            return false;
        (*session)->End();
        return true;
    }

    void MakeSample() {
        LoginFacts facts;
        facts.login = "sa";
        facts.database = "master";
        ScriptSink sink;
        const std::unique_ptr<SqlSession> session = OpenSession(facts, sink);
        for (const std::string& batch : SampleDatabaseBatches())
            session->ExecuteBatch(batch, sink);
    }

    Store m_store;
    ServerParts m_parts;
    mutable std::mutex m_mutex;
    std::set<const SessionOfRequests*> m_sessions;
    std::unique_ptr<StartupProcedures> m_startup; // its session goes first
};

KnownSession::KnownSession(Server& server, ServerParts& parts, const LoginFacts& facts)
    : SessionOfRequests(parts, facts)
    , m_server(server) {
    m_server.Enter(*this);
}

KnownSession::~KnownSession() {
    m_server.Leave(*this);
}

} // namespace

std::unique_ptr<SqlServer> OpenSqlServer(const ServerOptions& options) {
    return std::make_unique<Server>(options);
}

} // namespace quillon::practice
