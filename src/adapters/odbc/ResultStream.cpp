#include "adapters/odbc/ResultStream.h"

#include "adapters/odbc/OldStatements.h"
#include "adapters/odbc/WideText.h"
#include "platform/FailureNumbers.h"
#include "platform/Platform.h"

namespace quillon::adapters {

ResultStream::ResultStream(std::shared_ptr<Link> link)
    : m_link(std::move(link))
    , m_statement(SQL_HANDLE_STMT, m_link->handle().get()) {}

ResultStream::~ResultStream() {
    m_link->End(*this);
}

void ResultStream::Execute(const std::string& text, int timeoutSeconds) {
    m_link->Begin(*this);
    SQLSetStmtAttr(m_statement.get(), SQL_ATTR_QUERY_TIMEOUT,
                   reinterpret_cast<SQLPOINTER>(static_cast<std::intptr_t>(timeoutSeconds)), 0);
    auto statement = WideText(ForServer(text, m_link->ServerVersion()));
    SQLRETURN result = SQL_ERROR;
    WaitFor([&] {
        result = SQLExecDirectW(m_statement.get(), statement.data(),
                                static_cast<SQLINTEGER>(statement.size() - 1));
    });
    const bool hasMessages = m_link->Collect(m_statement);
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) {
        SQLFreeStmt(m_statement.get(), SQL_CLOSE);
        m_ended = true;
        m_link->End(*this);
        m_link->Raise();
    }
    Enter(hasMessages);
}

SQLRETURN ResultStream::NextResult() {
    SQLRETURN result = SQL_ERROR;
    WaitFor([&] { result = SQLMoreResults(m_statement.get()); });
    return result;
}

void ResultStream::Enter(bool hasMessages) {
    m_columns.reset();
    m_columns = std::make_unique<Columns>(m_statement);
    m_rowsWait = m_columns->size() > 0 && hasMessages;
    m_hasRows = m_columns->size() > 0 && !hasMessages;
    m_names.clear();
    for (std::size_t index = 0; index < m_columns->size(); ++index)
        m_names.push_back(m_columns->NameOf(index));
    m_rowCount = -1;
    if (m_columns->size() == 0)
        SQLRowCount(m_statement.get(), &m_rowCount);
}

bool ResultStream::Fetch(std::vector<Value>& row) {
    if (!m_hasRows)
        return false;
    if (!m_isKept) {
        const auto result = SQLFetch(m_statement.get());
        if (result == SQL_NO_DATA)
            return false;
        if (!SQL_SUCCEEDED(result)) {
            m_hasRows = false; // what the result still had is lost
            m_link->Collect(m_statement);
            RaiseRowFailure();
        }
        m_columns->ReadRow(row);
        return true;
    }
    if (m_keptRows.empty()) {
        if (m_keptRowFailure)
            throw Failure(*std::exchange(m_keptRowFailure, std::nullopt));
        return false;
    }
    row = std::move(m_keptRows.front());
    m_keptRows.pop_front();
    return true;
}

bool ResultStream::MoreResults() {
    if (m_isKept)
        return EnterKept();
    if (m_ended)
        return false;
    if (std::exchange(m_rowsWait, false)) {
        m_hasRows = true;
        return true;
    }
    if (m_rowFailure) {
        m_ended = m_link->IsBroken();
        m_link->errors() = std::move(m_rowErrors);
        throw Failure(*std::exchange(m_rowFailure, std::nullopt));
    }
    m_columns.reset();
    const auto result = NextResult();
    const bool hasMessages = m_link->Collect(m_statement);
    if (result == SQL_NO_DATA) {
        m_ended = true;
        m_hasRows = false;
        m_link->End(*this);
        return false;
    }
    if (!SQL_SUCCEEDED(result)) {
        m_hasRows = false;
        m_ended = m_link->errors().empty() || m_link->IsBroken();
        m_link->Raise();
    }
    Enter(hasMessages);
    return true;
}

void ResultStream::RaiseRowFailure() {
    m_rowErrors = m_link->errors();
    try {
        m_link->Raise();
    } catch (const Failure& failure) {
        m_rowFailure = failure;
        throw;
    }
}

ResultStream::Result ResultStream::ReadResult() {
    Result result;
    result.hasRows = m_hasRows;
    result.rowCount = m_rowCount;
    result.names = m_names;
    result.errors = m_link->errors();
    try {
        for (std::vector<Value> row; Fetch(row);)
            result.rows.push_back(std::move(row));
    } catch (const Failure& failure) {
        result.rowFailure = failure;
    }
    return result;
}

void ResultStream::BringIn() {
    if (m_isKept || m_ended) {
        m_link->End(*this);
        return;
    }
    Result current = ReadResult();
    std::deque<Result> rest;
    while (!m_ended) {
        try {
            if (MoreResults())
                rest.push_back(ReadResult());
        } catch (const Failure& failure) {
            Result failed;
            failed.errors = m_link->errors();
            failed.failure = failure;
            rest.push_back(std::move(failed));
        }
    }
    m_isKept = true;
    m_hasRows = current.hasRows;
    m_rowCount = current.rowCount;
    m_names = std::move(current.names);
    m_keptRows = std::move(current.rows);
    m_keptRowFailure = std::move(current.rowFailure);
    m_keptResults = std::move(rest);
    m_link->errors() = std::move(current.errors);
    m_link->End(*this);
}

bool ResultStream::EnterKept() {
    m_hasRows = false;
    m_keptRows.clear();
    if (m_keptResults.empty())
        return false;
    Result next = std::move(m_keptResults.front());
    m_keptResults.pop_front();
    m_link->errors() = std::move(next.errors);
    if (next.failure)
        throw Failure(*next.failure);
    m_hasRows = next.hasRows;
    m_rowCount = next.rowCount;
    m_names = std::move(next.names);
    m_keptRows = std::move(next.rows);
    m_keptRowFailure = std::move(next.rowFailure);
    return true;
}

} // namespace quillon::adapters
