#include "practice/session/SessionContext.h"

#include "practice/session/Calls.h"
#include "practice/session/CursorStatements.h"
#include "practice/session/LoginStatements.h"
#include "practice/session/SessionState.h"
#include "practice/session/SettingValues.h"
#include "practice/session/Variables.h"
#include "practice/values/SqlError.h"

#include <algorithm>

namespace quillon::practice {

FunctionContext& SessionContext::Functions() {
    return m_session.Functions();
}
SessionOptions& SessionContext::Options() {
    return m_session.options;
}
bool SessionContext::NullByDefault() {
    const SessionOptions& options = m_session.options;
    const Database* database = m_session.store.View()->FindDatabase(m_session.database);
    return options.ansiNullDefault ||
           (!options.ansiNullDefaultOff && database != nullptr && database->Option("ANSI_NULL_DEFAULT"));
}
ResultSink& SessionContext::Sink() {
    return m_session.sink;
}
DatabaseId SessionContext::CurrentDatabase() {
    return m_session.database;
}

void SessionContext::ChangeDatabase(DatabaseId database) {
    m_session.database = database;
    m_session.TellDatabase();
    m_session.Inform(5701, MessageText(5701, {m_session.DatabaseName()}));
}

bool SessionContext::IsUsedElsewhere(const std::string& database) {
    return m_session.AnotherStays([&](const SessionRow& row) { return SameName(row.database, database); });
}

bool SessionContext::KeepsWhatItReads() {
    return m_session.isolation == "REPEATABLE READ" || m_session.isolation == "SERIALIZABLE" ||
           m_session.isolation == "SNAPSHOT";
}

std::string_view SessionContext::SourceText() {
    if (m_session.frames.empty() || !m_session.Top().tree)
        return {};
    return m_session.Top().tree->source;
}

ObjectId SessionContext::CurrentModule() {
    return !m_session.frames.empty() && m_session.Top().module ? m_session.Top().module->id : 0;
}

SchemaId SessionContext::DefaultSchema() {
    const Database* database = m_session.store.View()->FindDatabase(m_session.database);
    if (database == nullptr)
        return dboSchema;
    const Principal* user = database->FindPrincipal(m_session.UserName());
    const Schema* schema = user == nullptr ? nullptr : database->FindSchema(user->defaultSchema);
    return schema == nullptr ? dboSchema : schema->id;
}

int SessionContext::TemporaryScope() {
    return m_session.frames.empty() ? 0 : m_session.Top().nestLevel;
}

Variable* SessionContext::FindVariable(std::string_view name) {
    return m_session.frames.empty() ? nullptr : practice::FindVariable(m_session, name);
}

Datum SessionContext::GlobalVariable(std::string_view name) {
    return GlobalValue(m_session, name);
}

const TriggerFrame* SessionContext::CurrentTrigger() {
    // Functions and dynamic texts see the trigger's frame no more than procedures do.
    return m_session.frames.empty() ? nullptr : m_session.Top().trigger;
}

int SessionContext::TriggerDepth(ObjectId trigger) {
    return static_cast<int>(
        std::count_if(m_session.frames.begin(), m_session.frames.end(), [&](const auto& frame) {
            return frame->kind == FrameKind::Trigger && frame->module && frame->module->id == trigger;
        }));
}

void SessionContext::RunTrigger(const Trigger& trigger, const TriggerFrame& frame) {
    practice::RunTrigger(m_session, trigger, frame);
}

Datum SessionContext::CallScalarFunction(const Module& function, std::span<const Datum> arguments) {
    return practice::CallScalarFunction(m_session, function, arguments);
}

void SessionContext::RunTableFunction(const Module& function, std::span<const Datum> arguments,
                                      const std::shared_ptr<const Table>& result) {
    practice::RunTableFunction(m_session, function, arguments, result);
}

void SessionContext::RunForInsert(const tsql::ExecuteStatement& call, ResultSink& rows) {
    if (m_session.sink.Diverted())
        throw SqlError(8164);
    const Diversion diversion(m_session.sink, rows);
    RunExecute(m_session, call);
}

bool SessionContext::HasBulkRows() {
    return m_session.bulkRows != nullptr;
}

bool SessionContext::NextBulkRow(std::vector<Datum>& row) {
    return m_session.bulkRows != nullptr && (*m_session.bulkRows)(row);
}

void SessionContext::NoteIdentity(const Datum& value) {
    m_session.identity = value;
    if (!m_session.frames.empty())
        m_session.Top().scopeIdentity = value;
}

CursorRow SessionContext::CursorPosition(const tsql::CurrentOf& cursor) {
    tsql::CursorName name;
    name.name = cursor.cursor;
    name.global = cursor.global;
    name.variable = cursor.variable;
    return RequireCursor(m_session, name).Position();
}

void SessionContext::Inform(int messageNumber, std::string text) {
    // The client hears nothing of what runs inside of an expression.
    if (std::ranges::any_of(m_session.frames,
                            [](const auto& frame) { return frame->kind == FrameKind::Function; }))
        return;
    m_session.Inform(messageNumber, std::move(text));
}

void SessionContext::RunLoginStatement(const tsql::Statement& statement) {
    practice::RunLoginStatement(m_session, statement);
}

} // namespace quillon::practice
