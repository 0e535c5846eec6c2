#include "practice/tds/WireSink.h"

#include <utility>

namespace quillon::practice::tds {

void WireSink::Release(std::uint16_t flags) {
    if (m_held) {
        m_tokens.Done(*std::exchange(m_held, std::nullopt), flags);
    }
}

void WireSink::Columns(const std::vector<ResultColumn>& columns) {
    Release(done::more);
    m_tokens.Columns(columns);
}

void WireSink::Row(std::span<const Datum> values) {
    m_tokens.Row(values);
}

void WireSink::Done(const StatementEnd& end) {
    Release(done::more);
    m_held = end;
}

void WireSink::Message(const ServerMessage& message) {
    Release(done::more);
    m_tokens.Message(message);
}

void WireSink::ReturnStatus(std::int32_t status) {
    Release(done::more);
    m_tokens.ReturnStatus(status);
}

void WireSink::OutputParameter(std::size_t ordinal, const std::string& name, const SqlType& type,
                               const Datum& value) {
    Release(done::more);
    m_tokens.ReturnValue(ordinal, name, type, value);
}

void WireSink::Environment(const EnvironmentChange& change) {
    Release(done::more);
    m_tokens.Environment(change);
}

void WireSink::Flush() {
    m_tokens.Flush();
}

void WireSink::Finish() {
    if (!m_held) {
        m_held = StatementEnd{};
    }
    Release(0);
    m_tokens.EndMessage();
}

void WireSink::FinishCancelled() {
    if (!m_held) {
        m_held = StatementEnd{};
        m_held->failed = true;
    }
    Finish();
    AcknowledgeAttention();
}

void WireSink::AcknowledgeAttention() {
    m_held = StatementEnd{};
    Release(done::attention);
    m_tokens.EndMessage();
}

} // namespace quillon::practice::tds
