#include "practice/session/SessionSink.h"

namespace quillon::practice {

void SessionSink::Columns(const std::vector<ResultColumn>& columns) {
    m_resultOpen = true;
    if (m_rows != nullptr) {
        m_rows->Columns(columns);
        return;
    }
    m_wantsDone = true;
    m_target->Columns(columns);
}

void SessionSink::Row(std::span<const Datum> values) {
    (m_rows != nullptr ? m_rows : m_target)->Row(values);
}

void SessionSink::Done(const StatementEnd& end) {
    m_resultOpen = false;
    if (m_rows != nullptr)
        return;
    m_wantsDone = false;
    m_target->Done(end);
}

void SessionSink::Message(const ServerMessage& message) {
    m_wantsDone = true;
    m_target->Message(message);
}

void SessionSink::ReturnStatus(std::int32_t status) {
    m_wantsDone = true;
    m_target->ReturnStatus(status);
}

void SessionSink::OutputParameter(std::size_t ordinal, const std::string& name, const SqlType& type,
                                  const Datum& value) {
    m_wantsDone = true;
    m_target->OutputParameter(ordinal, name, type, value);
}

void SessionSink::Environment(const EnvironmentChange& change) {
    m_wantsDone = true;
    m_target->Environment(change);
}

RequestScope::RequestScope(SessionSink& sink, ResultSink& target)
    : m_sink(sink)
    , m_outer(sink.m_target) {
    m_sink.m_target = &target;
    m_sink.m_resultOpen = false;
    m_sink.m_wantsDone = true;
}

RequestScope::~RequestScope() {
    m_sink.m_target = m_outer;
}

Diversion::Diversion(SessionSink& sink, ResultSink& rows)
    : m_sink(sink)
    , m_outer(sink.m_rows) {
    m_sink.m_rows = &rows;
}

Diversion::~Diversion() {
    m_sink.m_rows = m_outer;
    m_sink.m_resultOpen = false;
}

} // namespace quillon::practice
