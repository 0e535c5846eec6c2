// What the wire asks of the engine: a server that checks logins and opens sessions, and sessions that run
// requests. `tds/` drives these two interfaces and knows nothing else of the engine.
//
// Threads: an SqlServer may be called from any thread. An SqlSession belongs to one thread, save Cancel.
// Failures of a request are told through its sink (Message, then Done with `failed`) and never thrown. What
// passes out of a request is `ClientGone`, thrown by the sink, `ConnectionEnded`, and failures of the engine
// itself, after which the session must be discarded.
#pragma once

#include "practice/session/ResultSink.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::practice {

class Accounts;

// An error of severity 20 or above: the connection must end, its client has been told why.
class ConnectionEnded : public std::runtime_error {
  public:
    ConnectionEnded()
        : std::runtime_error("an error of severity 20 or above ended the connection") {}
};

// What a client says of itself when it logs in, and what the listener knows of it.
struct LoginFacts {
    std::string login;
    std::string hostName;        // HOST_NAME()
    std::string applicationName; // APP_NAME()
    std::string libraryName;
    std::string serverName; // the name by which the client called this server
    std::string database;   // empty: the login's default
    std::string language;   // empty: the login's default
    std::string address;    // of the client's end
    std::uint32_t processId = 0;
    std::uint16_t spid = 0; // @@SPID, unique among the open sessions
    std::uint32_t tdsVersion = 0;
    std::uint32_t packetSize = 4096;
    std::function<void()> endConnection; // from any thread; empty where nobody is connected
    bool odbcDefaults = true;            // the ANSI settings that ODBC and later drivers ask for at login
    bool databaseRequired = true; // or else the login's default serves where `database` cannot be opened
};

// The rows that a client gives for a parameter of a table type.
struct TableArgument {
    std::string type;          // its name without database and schema; empty where the client leaves it open
    std::vector<bool> leftOut; // of each column of the type: whether the client leaves it to its default
    std::vector<std::vector<Datum>> rows; // a value for each column that is not left out
};

// One argument of a remote procedure call.
struct CallParameter {
    std::string name; // with its @; empty for an argument by position
    SqlType type;
    Datum value;
    bool output = false;
    bool useDefault = false;                    // the client asks for the parameter's declared default
    std::shared_ptr<const TableArgument> table; // for a table type; `type` and `value` mean nothing then
};

struct ProcedureCall {
    std::string
        name; // as the client wrote it: may have several parts and brackets; system procedures by name
    std::vector<CallParameter> parameters;
    bool noMetadata = false;
};

// A request to the transaction manager ([MS-TDS] 2.2.6.9).
struct TransactionRequest {
    enum class Kind { Begin, Commit, Rollback, Save };
    enum class Isolation : std::uint8_t {
        Current,
        ReadUncommitted,
        ReadCommitted,
        RepeatableRead,
        Serializable,
        Snapshot
    };
    Kind kind = Kind::Begin;
    std::string name;
    Isolation isolation = Isolation::Current;
    // After a commit or rollback, begin the next one at once.
    bool beginNext = false;
    std::string nextName;
    Isolation nextIsolation = Isolation::Current;
};

// Puts the next row of a bulk load into its argument; false behind the last one. May throw, which undoes the
// load.
using RowReader = std::function<bool(std::vector<Datum>&)>;

class SqlSession {
  public:
    // Rolls back what is open and gives up every lock and temporary object.
    virtual ~SqlSession() = default;

    // Runs a batch of T-SQL text (UTF-8).
    virtual void ExecuteBatch(std::string_view text, ResultSink& sink) = 0;
    // Calls a procedure, user's or system's. Statements end InProcedure; then come ReturnStatus,
    // OutputParameter for each output argument, and Done with scope Procedure.
    virtual void ExecuteProcedure(const ProcedureCall& call, ResultSink& sink) = 0;
    // Whether the batch before has announced rows by INSERT BULK; and these rows, one value a column of it.
    virtual bool AwaitsRows() const = 0;
    virtual void LoadRows(const RowReader& rows, ResultSink& sink) = 0;
    // Tells the columns that `statement` would answer first, without running it (Columns, then Done), or only
    // Done when it answers none or they cannot be told beforehand. `parameters` is a declaration list as
    // sp_executesql takes it.
    virtual void Describe(std::string_view statement, std::string_view parameters, ResultSink& sink) = 0;
    // Ends with Done, scope Batch.
    virtual void RunTransactionRequest(const TransactionRequest& request, ResultSink& sink) = 0;

    // Returns when all that has been committed is on the disk; before that no client may be told of it. From
    // any thread. Throws std::runtime_error when the disk fails.
    virtual void MakeDurable() = 0;

    // From any thread: the running request, if there is one, ends as soon as it can, its running statement
    // undone, without a message. The mark stays until PrepareRequest, so that a Cancel at the very start of a
    // request is not lost.
    virtual void Cancel() noexcept = 0;
    // Forgets a Cancel that came too late for the request before. Called before each request, under the lock
    // that the caller also holds while it calls Cancel.
    virtual void PrepareRequest() noexcept = 0;

    // Makes the session as new for the next user of a pooled connection; `keepTransaction` leaves the open
    // transaction.
    virtual void Reset(bool keepTransaction, ResultSink& sink) = 0;
};

// The login is refused: the message that the client is told, e.g. 18456.
class LoginRefused : public std::exception {
  public:
    explicit LoginRefused(ServerMessage message)
        : m_message(std::move(message)) {}
    const ServerMessage& Refusal() const { return m_message; }
    const char* what() const noexcept override { return m_message.text.c_str(); }

  private:
    ServerMessage m_message;
};

class SqlServer {
  public:
    virtual ~SqlServer() = default; // every session must be gone

    // Opens a session for a login whose password has been checked. The sink receives what the login itself
    // answers: the change to the database with message 5701, to the language with 5703. Throws LoginRefused
    // when the database cannot be opened (4060 the one asked for, 4064 the default) or the login may not
    // enter.
    virtual std::unique_ptr<SqlSession> OpenSession(const LoginFacts& facts, ResultSink& sink) = 0;
};

struct ServerOptions {
    std::filesystem::path dataFolder; // exists, writable
    bool ephemeral = false;           // nothing need outlive the server: no waiting for the disk
    bool createSample = false;        // make the sample database where it is missing
    Accounts* accounts = nullptr;     // outlives the server
    // Errors of what the server runs by itself; called on any thread.
    std::function<void(const std::string&)> log = [](const std::string&) {};
};

// Opens the data folder, recovering what a killed server left committed there. Throws std::runtime_error with
// a text for the person at the console when it cannot.
std::unique_ptr<SqlServer> OpenSqlServer(const ServerOptions& options);

} // namespace quillon::practice
