// What built-in functions are told of the session.
#pragma once

#include "practice/functions/FunctionContext.h"

namespace quillon::practice {

struct SessionState;

class SessionFunctions : public FunctionContext {
  public:
    explicit SessionFunctions(SessionState& session)
        : m_session(session) {}

    Moment UtcNow() override;
    int ZoneOffsetMinutes() override;
    ConvertOptions Options() override;
    int DateFirst() override;
    int SessionId() override;
    std::string HostName() override;
    std::string ApplicationName() override;
    std::string LoginName() override;
    std::string OriginalLogin() override;
    std::string UserName() override;
    std::string DatabaseName() override;
    std::string ServerName() override;
    const CaughtError* Caught() override;
    std::string ContextInfo() override;
    Datum SessionContext(std::string_view key) override;
    int TransactionState() override;
    Datum ScopeIdentity() override;
    int TriggerNestLevel() override;
    int CursorStatus(std::string_view scope, std::string_view name) override;
    Datum IsColumnUpdated(int columnId) override;
    Datum AskCatalogue(std::string_view function, const Datum* arguments, int count) override;
    double NextRandom() override;
    void SeedRandom(int seed) override;

  private:
    SessionState& m_session;
};

/// The present instant, UTC.
Moment PresentMoment();

} // namespace quillon::practice
