// sp_prepare, sp_execute, sp_prepexec and sp_unprepare: statements that a client names by a number. They
// belong to the connection, not to the engine: executing one is a call of sp_executesql with its text, whose
// parsed form the session keeps.
#pragma once

#include "practice/session/SqlSession.h"

#include <cstdint>
#include <map>
#include <string>

namespace quillon::practice::tds {

class PreparedStatements {
  public:
    // Runs the call if it is one of the four; otherwise returns false and leaves it to the session.
    bool TryExecute(const ProcedureCall& call, SqlSession& session, ResultSink& sink);
    void Clear() { m_statements.clear(); }
    std::size_t Count() const { return m_statements.size(); }

  private:
    struct Statement {
        std::string text;
        std::string parameters; // declarations, as sp_executesql takes them
    };

    void Prepare(const ProcedureCall& call, SqlSession& session, ResultSink& sink);
    void Execute(const ProcedureCall& call, SqlSession& session, ResultSink& sink);
    void PrepareAndExecute(const ProcedureCall& call, SqlSession& session, ResultSink& sink);
    void Unprepare(const ProcedureCall& call, SqlSession& session, ResultSink& sink);
    std::int32_t Keep(Statement statement);

    std::map<std::int32_t, Statement> m_statements;
    std::int32_t m_lastHandle = 0;
};

} // namespace quillon::practice::tds
