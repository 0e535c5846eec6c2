// How running statements end out of turn, and how an error passes from a frame to the one that called it.
#pragma once

#include "practice/values/SqlError.h"

#include <exception>

namespace quillon::practice {

/// Who made an error: it decides what the error does besides being told.
enum class ErrorOrigin { Statement, RaiseError, Throw };

/// An error on its way to a TRY block of an outer frame, or out of a function; its line and procedure are
/// known.
class PassedError : public SqlError {
  public:
    PassedError(SqlError error, ErrorOrigin from)
        : SqlError(std::move(error))
        , origin(from) {}
    ErrorOrigin origin;
};

/// RAISERROR and THROW.
class RaisedError : public SqlError {
  public:
    RaisedError(SqlError error, ErrorOrigin from)
        : SqlError(std::move(error))
        , origin(from) {}
    ErrorOrigin origin;
};

/// The whole batch ends; the error that did it has been told. No TRY block sees it.
class BatchAborted : public std::exception {
  public:
    const char* what() const noexcept override { return "the batch has been aborted"; }
};

/// What an error outside of any TRY block does.
enum class ErrorEffect {
    Statement, // the next statement runs
    Scope,     // the batch or module ends; its caller goes on
    Batch,     // everything ends and the open transaction is rolled back
    Connection,
};

/// The documented effect of an error of the system's own.
ErrorEffect EffectOf(int number, int severity);

/// The error that says what could not be done because of the one before it: 1750 after faults of a constraint
/// or index, 3727 after a constraint that cannot be dropped. A TRY block sees it alone. 0 for most.
int FollowUpOf(int number);

/// Whether the error comes from looking up names when a statement is about to run: a TRY block of the same
/// batch or module does not catch it.
bool IsBindingError(int number);

} // namespace quillon::practice
