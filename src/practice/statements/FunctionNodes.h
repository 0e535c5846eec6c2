// Our operators and functions as functions of SQLite. Each distinct use (an operation with the types of its
// arguments and of its result) is one SQLite function of the session's connection, made when it is first
// needed, so that nothing has to be looked up per row: the types are those found while binding.
//
// A failure inside such a function is kept and thrown again by TakeFailure, since SQLite carries only texts.
#pragma once

#include "practice/functions/Aggregates.h"
#include "practice/functions/FunctionTable.h"
#include "practice/statements/Warnings.h"

#include <exception>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

struct sqlite3;

namespace quillon::practice {

struct ScalarNode {
    std::vector<SqlType> arguments;
    SqlType result;
    Evaluation evaluation = Evaluation::Pure;
    std::function<Datum(std::span<const Datum>)> evaluate;
};

struct AggregateNode {
    SqlType argument;
    SqlType result;
    std::function<std::unique_ptr<Accumulator>()> start;
};

// An aggregate over whole rows, such as FOR XML: gets the values of all its arguments.
struct RowAggregateNode {
    class State {
      public:
        virtual ~State() = default;
        virtual void Step(std::span<const Datum> row) = 0;
        virtual Datum Result() = 0; // also asked when there were no rows
    };
    std::vector<SqlType> arguments;
    SqlType result;
    std::function<std::unique_ptr<State>()> start;
};

class FunctionNodes {
  public:
    FunctionNodes(sqlite3* connection, Warnings& warnings)
        : m_connection(connection)
        , m_warnings(warnings) {}

    // The SQLite name of the function for `key`; `make` is called when there is none yet. The key must tell
    // everything that the node depends on.
    std::string Scalar(const std::string& key, const std::function<ScalarNode()>& make);
    std::string Aggregate(const std::string& key, const std::function<AggregateNode()>& make);
    std::string RowAggregate(const std::string& key, const std::function<RowAggregateNode()>& make);

    // The SQLite name of the function that gives its argument back and notes a NULL for the warning.
    std::string NullNoting();
    Warnings& Noted() { return m_warnings; }

    // Throws what a function of ours threw while the statement ran, if one did.
    void TakeFailure();
    void KeepFailure() noexcept { m_failure = std::current_exception(); }

  private:
    struct Registered;

    template <class Node, class Register>
    std::string Intern(const char* prefix, const std::string& key, const std::function<Node()>& make,
                       Register registerNode);

    sqlite3* m_connection;
    Warnings& m_warnings;
    std::unordered_map<std::string, std::string> m_names;
    std::exception_ptr m_failure;
};

// What a key says of a type.
std::string TypeKey(const SqlType& type);

} // namespace quillon::practice
