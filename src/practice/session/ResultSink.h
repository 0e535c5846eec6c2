// The one way by which what a session answers leaves it: rows, counts, messages, return values and changes of
// the environment, in the order in which the client is to see them.
//
// The session calls a sink only from the thread that runs the request, and only while that request runs. A
// sink may block (the client reads slowly: that is the back-pressure that keeps a large result in flat
// memory). When the client has gone, a sink throws `ClientGone`; a session lets it pass after it has undone
// the running statement.
#pragma once

#include "practice/values/Datum.h"
#include "practice/values/SqlType.h"

#include <cstdint>
#include <exception>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quillon::practice {

// What a client is told of one column before its first row.
struct ResultColumn {
    std::string name; // empty for an expression without a name
    SqlType type;
    bool nullable = true;
    bool identity = false;
    bool readOnly = false; // computed columns and expressions
    bool caseSensitive = false;
    std::string tableName; // base table, which text, ntext and image columns carry on the wire
};

// A message that is not a row: severity up to 10 informs, 11 and above is an error.
struct ServerMessage {
    std::int32_t number = 0;
    std::uint8_t state = 1;
    std::uint8_t severity = 0;
    std::string text;
    std::string procedure; // empty outside of procedures and triggers
    std::int32_t line = 1; // first line is 1, counted in the batch or in the module's text
};

// The kinds of statement that the end of a statement names on the wire ([MS-TDS] 2.2.7.6, CurCmd).
enum class StatementKind : std::uint16_t {
    Other = 0xFD,
    Select = 0xC1,
    SelectInto = 0xC2,
    Insert = 0xC3,
    Delete = 0xC4,
    Update = 0xC5,
    Merge = 0x117,
    Execute = 0xE0,
};

// Where the statement that ended stood: it decides which of the three DONE tokens tells of it.
enum class EndScope {
    Batch,       // a statement of the batch itself
    InProcedure, // a statement inside a procedure, trigger, EXEC ('text') or sp_executesql
    Procedure,   // the procedure call itself; preceded by ReturnStatus where it has one
};

struct StatementEnd {
    EndScope scope = EndScope::Batch;
    StatementKind kind = StatementKind::Other;
    std::optional<std::uint64_t> count; // absent for statements without a count and under SET NOCOUNT ON
    bool failed = false;
};

// Something of the session that drivers keep a copy of.
struct EnvironmentChange {
    enum class Kind { Database, Language, BeginTransaction, CommitTransaction, RollbackTransaction };
    Kind kind = Kind::Database;
    std::string newValue; // Database and Language
    std::string oldValue;
    std::uint64_t transaction = 0; // the transactions' descriptor, never 0 for the transaction kinds
};

// Thrown by a sink whose client can no longer be reached.
class ClientGone : public std::exception {
  public:
    const char* what() const noexcept override { return "the client has closed its connection"; }
};

class ResultSink {
  public:
    virtual ~ResultSink() = default;

    // Opens a result; rows follow until the next Done.
    virtual void Columns(const std::vector<ResultColumn>& columns) = 0;
    // One row of the open result, one value a column, each NULL or of its column's type.
    virtual void Row(std::span<const Datum> values) = 0;
    // A statement or procedure call has ended. Whether more follows is the sink's own knowledge.
    virtual void Done(const StatementEnd& end) = 0;
    virtual void Message(const ServerMessage& message) = 0;
    // The value of RETURN of the procedure that the client itself called, before its Done.
    virtual void ReturnStatus(std::int32_t status) = 0;
    // The final value of an OUTPUT parameter of a remote procedure call. `ordinal` counts the call's
    // parameters from 0.
    virtual void OutputParameter(std::size_t ordinal, const std::string& name, const SqlType& type,
                                 const Datum& value) = 0;
    virtual void Environment(const EnvironmentChange& change) = 0;
    // Sends what has been told so far at once (RAISERROR ... WITH NOWAIT). Sinks that hold nothing back need
    // not care.
    virtual void Flush() {}
};

} // namespace quillon::practice
