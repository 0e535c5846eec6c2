// The definitions of a session's #tables and #procedures as system views of tempdb read them: tables k_... of
// the connection's TEMP schema, with the columns of the definition tables q_..., filled anew when one of them
// has come, changed or gone since.
//
// It is known there by its name, filled up with underscores and a number, so that those of two sessions
// differ. A session sees its own.
#pragma once

#include "practice/storage/DefinitionTables.h"
#include "practice/storage/TemporaryTables.h"

namespace quillon::practice {

class TemporaryCatalogue {
  public:
    explicit TemporaryCatalogue(sqlite3* connection); // which outlives it
    // The SELECT of a system view, over the session's tables too.
    std::string Over(std::string select, const TemporaryTables& tables);

  private:
    void Fill(const TemporaryTables& tables);

    sqlite3* m_connection;
    DefinitionSaver m_saver;
    std::uint64_t m_filled = 0; // the version of the tables that it was filled from
};

} // namespace quillon::practice
