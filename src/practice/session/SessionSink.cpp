#include "practice/session/SessionSink.h"

#include "practice/values/Convert.h"

namespace quillon::practice {

namespace {

bool IsLong(const SqlType& type) {
    return type.id == TypeId::Text || type.id == TypeId::NText || type.id == TypeId::Image ||
           (type.IsMax() && (type.IsCharacter() || type.IsBinary()));
}

/// No less than a client would count; the text is UTF-8 here.
std::size_t BytesOf(const Datum& value) {
    return value.Type().IsCharacter() ? value.Text().size() * (value.Type().IsUnicode() ? 2 : 1)
                                      : value.Bytes().size();
}

Datum FirstBytes(const Datum& value, int bytes) {
    if (!value.Type().IsCharacter())
        return Datum::Bytes(value.Type(), value.Bytes().substr(0, static_cast<std::size_t>(bytes)));
    const int characters = value.Type().IsUnicode() ? bytes / 2 : bytes;
    return Datum::Text(value.Type(), std::string(FirstCharacters(value.Text(), characters)));
}

} // namespace

void SessionSink::Columns(const std::vector<ResultColumn>& columns) {
    m_resultOpen = true;
    if (m_rows != nullptr) {
        m_rows->Columns(columns);
        return;
    }
    m_wantsDone = true;
    m_longColumns.clear();
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (IsLong(columns[i].type))
            m_longColumns.push_back(i);
    m_target->Columns(columns);
}

void SessionSink::Row(std::span<const Datum> values) {
    if (m_rows != nullptr)
        m_rows->Row(values);
    else if (m_longColumns.empty() || m_textSize == nullptr || *m_textSize < 0)
        m_target->Row(values);
    else
        SendCut(values);
}

void SessionSink::SendCut(std::span<const Datum> values) {
    std::vector<Datum> cut;
    const auto most = static_cast<std::size_t>(*m_textSize);
    for (const std::size_t place : m_longColumns) {
        const Datum& value = values[place];
        if (value.IsNull() || BytesOf(value) <= most)
            continue;
        if (cut.empty())
            cut.assign(values.begin(), values.end());
        cut[place] = FirstBytes(value, *m_textSize);
    }
    m_target->Row(cut.empty() ? values : std::span<const Datum>(cut));
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
