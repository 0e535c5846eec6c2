// SessionSink: what the statements of a session write to. It passes everything on to the sink of the request
// that runs, save where INSERT ... EXEC takes the rows for itself, and knows whether a result still wants its
// Done.
#pragma once

#include "practice/session/ResultSink.h"

namespace quillon::practice {

class SessionSink : public ResultSink {
  public:
    void Columns(const std::vector<ResultColumn>& columns) override;
    void Row(std::span<const Datum> values) override;
    void Done(const StatementEnd& end) override;
    void Message(const ServerMessage& message) override;
    void ReturnStatus(std::int32_t status) override;
    void OutputParameter(std::size_t ordinal, const std::string& name, const SqlType& type,
                         const Datum& value) override;
    void Environment(const EnvironmentChange& change) override;

    /// Between Columns and Done.
    bool ResultOpen() const { return m_resultOpen; }
    /// Whether anything was sent since the last Done, or nothing at all.
    bool WantsDone() const { return m_wantsDone; }
    bool Diverted() const { return m_rows != nullptr; }
    /// SET TEXTSIZE: the most bytes of a value of a long type that the client is sent; the number outlives
    /// it.
    void LimitTexts(const int& bytes) { m_textSize = &bytes; }

  private:
    void SendCut(std::span<const Datum> values);

    friend class RequestScope;
    friend class Diversion;

    ResultSink* m_target = nullptr;
    ResultSink* m_rows = nullptr;
    bool m_resultOpen = false;
    bool m_wantsDone = true;
    const int* m_textSize = nullptr;
    std::vector<std::size_t> m_longColumns; // places of the long types in the open result
};

/// The sink's target for the length of one request.
class RequestScope {
  public:
    RequestScope(SessionSink& sink, ResultSink& target);
    ~RequestScope();
    RequestScope(const RequestScope&) = delete;
    RequestScope& operator=(const RequestScope&) = delete;

  private:
    SessionSink& m_sink;
    ResultSink* m_outer;
};

/// Sends rows and columns to `rows` and drops every Done, for as long as it lives.
class Diversion {
  public:
    Diversion(SessionSink& sink, ResultSink& rows);
    ~Diversion();
    Diversion(const Diversion&) = delete;
    Diversion& operator=(const Diversion&) = delete;

  private:
    SessionSink& m_sink;
    ResultSink* m_outer;
};

} // namespace quillon::practice
