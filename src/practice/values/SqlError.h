// SqlError: a failure that the client gets to see, with the documented number, severity, state and text. The
// texts are in one table (SqlError.cpp); a number that is not there cannot be thrown. Line and procedure are
// filled in by the session when it knows the statement.
#pragma once

#include <exception>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::practice {

class SqlError : public std::exception {
  public:
    // The message of the table with its parameters in place: throw SqlError(207, {columnName}). Those that
    // are documented with one state other than 1 come with that one unless another is given.
    explicit SqlError(int messageNumber, std::initializer_list<std::string_view> parameters = {},
                      int errorState = 1);
    // A message of the user's own: RAISERROR, THROW.
    static SqlError Custom(int number, int severity, int state, std::string text);
    // 49999: what this server does not do, by its name: "Feature 'x' is not supported by the practice
    // server."
    static SqlError NotSupported(std::string_view feature);

    const char* what() const noexcept override { return text.c_str(); }

    int number = 50000;
    int severity = 16;
    int state = 1;
    int line = 0;          // 1-based within the batch or module; 0 while unknown
    std::string procedure; // module in which it happened; empty in a batch
    std::string text;

  private:
    SqlError() = default;
};

/// Overflow, division by zero, a function outside of its domain: what such an error does is a setting.
bool IsArithmeticError(int number);

/// What could not be done, because of the errors that are told before it. A TRY block sees it alone.
class ConsequentError : public SqlError {
  public:
    ConsequentError(SqlError error, std::vector<SqlError> reasons)
        : SqlError(std::move(error))
        , causes(std::move(reasons)) {}
    std::vector<SqlError> causes;
};

constexpr int notSupportedNumber = 49999;

struct MessageRow {
    int number;
    int severity;
    const char* text; // parameters are %1 .. %9
};
// The whole table, in order of number.
const MessageRow* AllMessages(int& count);
const MessageRow* FindMessage(int number); // nullptr when unknown
// The text of a message with its parameters in place; also for warnings and information (severity 10 and
// below).
std::string MessageText(int number, std::initializer_list<std::string_view> parameters = {});

} // namespace quillon::practice
