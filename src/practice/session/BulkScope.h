#pragma once

#include "practice/session/SessionState.h"

namespace quillon::practice {

/// The rows that INSERT BULK loads, for as long as it lives.
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
