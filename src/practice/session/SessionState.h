// SessionState: what one session knows: who it is, what it has set, where it stands. The parts of the session
// (the flow of control, calls, cursors, messages ...) are functions and small classes over it; it decides
// nothing itself.
#pragma once

#include "practice/catalogue/CatalogueViews.h"
#include "practice/session/Accounts.h"
#include "practice/session/Frame.h"
#include "practice/session/SessionSink.h"
#include "practice/session/SqlSession.h"
#include "practice/statements/Executor.h"
#include "practice/values/SqlError.h"

#include <condition_variable>
#include <random>

namespace quillon::practice {

class FlowProgram;

/// What the sessions of a server share; outlives them.
struct ServerParts {
    Store& store;
    Accounts& accounts;
    std::string name; // @@SERVERNAME
    CatalogueSources sources;
    std::function<bool(int spid)> kill; // ends that session's connection; false when there is none
};

/// A text that was parsed once and may be run again.
struct KeptText {
    std::shared_ptr<const tsql::Batch> tree;
    std::shared_ptr<const FlowProgram> program; // dies before the tree
    std::shared_ptr<const std::vector<tsql::Parameter>> parameters;
    std::string parameterSource;
};

struct SessionState {
    SessionState(ServerParts& server, LoginFacts login);
    ~SessionState();
    SessionState(const SessionState&) = delete;
    SessionState& operator=(const SessionState&) = delete;

    ServerParts& server;
    LoginFacts facts;
    StoreSession store;
    SessionSink sink;

    // Set by statements
    SessionOptions options;
    DatabaseId database = masterDatabase;
    DatabaseId toldDatabase = 0; // the one of which the client knows
    std::string language = "us_english";
    std::string isolation = "READ COMMITTED";
    bool noExecute = false;  // SET NOEXEC ON: statements are looked at and not run
    bool formatOnly = false; // SET FMTONLY ON: of queries only the columns are told
    std::string contextInfo;
    std::map<std::string, std::pair<Datum, bool>> sessionContext; // by key; whether it is read only
    std::vector<Impersonation> impersonations;

    // Told by @@ names
    int error = 0;
    std::int64_t rowCount = 0;
    Datum identity;
    int fetchStatus = 0;
    std::int64_t cursorRows = 0;
    std::uint64_t announcedTransaction = 0; // of which the client knows; 0 for none

    Moment now; // one instant for a whole statement, UTC
    std::mt19937_64 chance;

    std::vector<std::unique_ptr<Frame>> frames;
    std::unordered_map<std::string, std::shared_ptr<Cursor>> globalCursors;
    std::unordered_map<std::string, KeptText> keptTexts;

    // INSERT BULK announces rows, which come with the next request: it runs again then.
    std::shared_ptr<const tsql::Batch> bulkTree; // its batch while the rows are awaited
    const RowReader* bulkRows = nullptr;         // while it loads them

    // For WAITFOR, which Cancel ends
    std::mutex waitMutex;
    std::condition_variable waitChanged;

    /// Lets the views of other sessions, and of this one, see what is set now.
    void ShowSettings();
    SessionSettings ShownSettings() const;

    Frame& Top() { return *frames.back(); }
    Executor& Statements() { return *m_executor; }
    FunctionContext& Functions() { return *m_functions; }
    ExecutionContext& Context() { return *m_context; }

    /// Throws Interrupted when the request has been cancelled.
    void CheckInterrupt() const;
    /// The current database's name.
    std::string DatabaseName();
    /// Goes to master when another session has dropped the current database.
    void LeaveLostDatabase();
    /// Tells the client of the current database where it knows of another one.
    void TellDatabase();
    /// Who counts now: after EXECUTE AS, whoever that named.
    std::string LoginName() const;
    bool IsAdministrator() const;
    /// Whether it is a user of one database alone, and so nobody beyond it.
    bool ActsAsUser() const;
    /// Its user in that database; nothing where it may not enter.
    std::optional<PrincipalId> UserIn(const Database& database) const;
    /// In the current database; guest where it may not be there any more.
    PrincipalId UserId();
    std::string UserName();

    /// Whether another session is like that and does not end soon: a connection that was closed a moment ago
    /// takes a while.
    bool AnotherStays(const std::function<bool(const SessionRow&)>& isLikeThat);

    /// A message of severity 10 or below, of the statement that runs.
    void Inform(int number, std::string text, int severity = 0, int messageState = 1);
    /// The error as the client sees it.
    void Tell(const SqlError& error);
    /// Ends a statement: Done in the scope in which it stands.
    void Finish(StatementKind kind, std::optional<std::uint64_t> count, bool failed = false);

  private:
    mutable std::mutex m_shownMutex;
    SessionSettings m_shown;
    std::unique_ptr<FunctionContext> m_functions;
    std::unique_ptr<ExecutionContext> m_context;
    std::unique_ptr<Executor> m_executor;
};

} // namespace quillon::practice
