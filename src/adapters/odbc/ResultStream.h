// The results of one statement or batch, in the server's order: rows, or messages and counts without rows.
//
// Read as they arrive, with memory for one row, unless another statement needs the connection (Link.h): then
// what is left is brought in, messages and failures in their places.
#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "adapters/odbc/Columns.h"
#include "adapters/odbc/Link.h"
#include "platform/Failure.h"

namespace quillon::adapters {

class ResultStream {
  public:
    explicit ResultStream(std::shared_ptr<Link> link);
    ~ResultStream();
    ResultStream(const ResultStream&) = delete;
    ResultStream& operator=(const ResultStream&) = delete;

    // The statement's handle, for binding parameters before Execute.
    const Handle& statement() const noexcept { return m_statement; }

    // Runs the text; the stream then stands on its first result. Raises the server's failure: the driver
    // manager then gives no result of the rest of the batch, which the server runs all the same.
    void Execute(const std::string& text, int timeoutSeconds);

    // --- the result on which the stream stands ---
    bool HasRows() const noexcept { return m_hasRows; }
    // A message of the server or a driver's note, which is a result of its own: no rows and no count.
    bool IsMessage() const noexcept { return !m_hasRows && m_rowCount < 0; }
    const std::vector<std::string>& Names() const noexcept { return m_names; }
    // The next row; false behind the last. Raises the failure of a row that cannot be had.
    bool Fetch(std::vector<Value>& row);

    // Moves to the next result; false behind the last. Raises the failure of a statement of the batch; the
    // call may then be repeated for the results behind it.
    bool MoreResults();

    // Reads all that is left into memory and frees the connection.
    void BringIn();

  private:
    struct Result {
        bool hasRows = false;
        SQLLEN rowCount = -1;
        std::vector<std::string> names;
        std::deque<std::vector<Value>> rows;
        std::optional<Failure> rowFailure; // behind the rows
        std::vector<data::Error> errors;
        std::optional<Failure> failure; // in place of the result
    };

    // Takes up the result on which the driver stands. Messages that the driver gives together with rows come
    // before them, as a result of their own.
    void Enter(bool hasMessages);
    SQLRETURN NextResult();
    [[noreturn]] void RaiseRowFailure();
    Result ReadResult();
    bool EnterKept();

    std::shared_ptr<Link> m_link;
    Handle m_statement;
    std::unique_ptr<Columns> m_columns;
    std::vector<std::string> m_names;
    SQLLEN m_rowCount = -1;
    bool m_hasRows = false;
    bool m_rowsWait = false; // behind the messages on which the stream stands
    // What ended the rows early: told again by the step to the next result, which is where errors behind rows
    // are looked for.
    std::optional<Failure> m_rowFailure;
    std::vector<data::Error> m_rowErrors;
    bool m_ended = false;
    bool m_isKept = false; // rows and results come from memory
    std::deque<std::vector<Value>> m_keptRows;
    std::optional<Failure> m_keptRowFailure;
    std::deque<Result> m_keptResults;
};

} // namespace quillon::adapters
