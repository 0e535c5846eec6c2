// What the Executor is told of the session, and the calls it makes back into it.
#pragma once

#include "practice/statements/ExecutionContext.h"

namespace quillon::practice {

struct SessionState;

class SessionContext : public ExecutionContext {
  public:
    explicit SessionContext(SessionState& session)
        : m_session(session) {}

    FunctionContext& Functions() override;
    SessionOptions& Options() override;
    bool NullByDefault() override;
    ResultSink& Sink() override;
    DatabaseId CurrentDatabase() override;
    void ChangeDatabase(DatabaseId database) override;
    bool IsUsedElsewhere(const std::string& database) override;
    bool KeepsWhatItReads() override;
    std::string_view SourceText() override;
    ObjectId CurrentModule() override;
    SchemaId DefaultSchema() override;
    int TemporaryScope() override;
    Variable* FindVariable(std::string_view name) override;
    Datum GlobalVariable(std::string_view name) override;
    const TriggerFrame* CurrentTrigger() override;
    int TriggerDepth(ObjectId trigger) override;
    void RunTrigger(const Trigger& trigger, const TriggerFrame& frame) override;
    Datum CallScalarFunction(const Module& function, std::span<const Datum> arguments) override;
    void RunTableFunction(const Module& function, std::span<const Datum> arguments,
                          const std::shared_ptr<const Table>& result) override;
    void RunForInsert(const tsql::ExecuteStatement& call, ResultSink& rows) override;
    bool HasBulkRows() override;
    bool NextBulkRow(std::vector<Datum>& row) override;
    void NoteIdentity(const Datum& value) override;
    CursorRow CursorPosition(const tsql::CurrentOf& cursor) override;
    void Inform(int messageNumber, std::string text) override;
    void RunLoginStatement(const tsql::Statement& statement) override;

  private:
    SessionState& m_session;
};

} // namespace quillon::practice
