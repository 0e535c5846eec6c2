// Rows of the client's own on their way into a table: of a bulk load, of a table-valued parameter.
#pragma once

#include "practice/session/SessionState.h"

namespace quillon::practice {

/// The rows are what an INSERT BULK of the session reads, for as long as this lives.
class BulkScope {
  public:
    BulkScope(SessionState& session, const RowReader& rows)
        : m_session(session) {
        m_session.bulkRows = &rows;
    }
    ~BulkScope() { m_session.bulkRows = nullptr; }
    BulkScope(const BulkScope&) = delete;
    BulkScope& operator=(const BulkScope&) = delete;

  private:
    SessionState& m_session;
};

} // namespace quillon::practice
