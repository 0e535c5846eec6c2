#include "adapters/odbc/OdbcRecordset.h"

#include <strings.h>

#include "adapters/odbc/OdbcConnection.h"
#include "platform/FailureNumbers.h"

namespace quillon::adapters {
namespace {

constexpr int CommandTimeout = 30; // seconds, the data access library's default
const Value NoValue;

} // namespace

OdbcRecordset::OdbcRecordset(std::shared_ptr<ResultStream> stream)
    : m_stream(std::move(stream)) {
    Start(false);
}

void OdbcRecordset::SetCursorLocation(data::CursorLocation location) {
    m_location = location;
}

void OdbcRecordset::Open(const std::string& source, const data::ConnectionRef& connection,
                         data::CursorType cursor, data::LockType /*lock*/, data::CommandType type) {
    if (m_open)
        throw Failure(numbers::ObjectOpen);
    auto* odbc = dynamic_cast<OdbcConnection*>(connection.get());
    if (odbc == nullptr)
        throw Failure(numbers::ObjectNotSet);
    m_stream = std::make_shared<ResultStream>(odbc->link());
    const bool isProcedure = type == data::CommandType::StoredProcedure;
    m_stream->Execute(isProcedure ? "{call " + source + "}" : source, CommandTimeout);
    // Messages ahead of the rows are no result of a query; they stand among the connection's errors.
    while (m_stream->IsMessage() && m_stream->MoreResults())
        ;
    Start(cursor != data::CursorType::ForwardOnly || m_location == data::CursorLocation::Client);
    if (m_open)
        RequireFirstRow();
}

void OdbcRecordset::Start(bool keepsRows) {
    m_open = m_stream->HasRows();
    m_names = m_stream->Names();
    m_keepsRows = keepsRows;
    m_isStarted = false;
    m_rows.clear();
    m_position = 0;
    m_bof = m_eof = true;
}

void OdbcRecordset::RequireFirstRow() {
    try {
        RequireRow();
    } catch (const Failure&) {
        m_open = false;
        throw;
    }
}

void OdbcRecordset::Look() const {
    RequireOpen();
    auto& self = const_cast<OdbcRecordset&>(*this); // what is read late counts as read
    self.m_isStarted = true;
    self.ReadRow();
    self.m_bof = m_eof;
}

void OdbcRecordset::ReadRow() {
    m_eof = true; // and stays so when the row cannot be had: what comes after it is lost
    m_eof = !m_stream->Fetch(m_row);
    if (m_keepsRows && !m_eof)
        m_rows.push_back(m_row);
}

void OdbcRecordset::RequireOpen() const {
    if (!m_open)
        throw Failure(numbers::ObjectClosed);
}

void OdbcRecordset::Close() {
    RequireOpen();
    m_open = false;
    m_stream.reset();
    m_rows.clear();
}

data::ObjectState OdbcRecordset::State() const {
    return m_open ? data::ObjectState::Open : data::ObjectState::Closed;
}

bool OdbcRecordset::Bof() const {
    RequireRow();
    return m_bof;
}

bool OdbcRecordset::Eof() const {
    RequireRow();
    return m_eof;
}

void OdbcRecordset::MoveFirst() {
    RequireRow();
    if (!m_keepsRows)
        throw Failure(numbers::DataAccess, "Rowset does not support fetching backward.");
    if (m_rows.empty())
        throw Failure(numbers::NoCurrentRecord);
    m_position = 0;
    m_row = m_rows.front();
    m_eof = false;
}

void OdbcRecordset::MoveNext() {
    RequireRow();
    if (m_eof)
        throw Failure(numbers::NoCurrentRecord);
    if (!m_keepsRows) {
        ReadRow();
        return;
    }
    if (++m_position < m_rows.size())
        m_row = m_rows[m_position];
    else
        ReadRow();
}

std::size_t OdbcRecordset::FieldCount() const {
    return m_names.size();
}

data::Field OdbcRecordset::FieldAt(std::size_t index) const {
    if (index >= m_names.size())
        throw Failure(numbers::ItemNotFound);
    if (m_open)
        RequireRow();
    // Names can be had without a row, values cannot.
    return {m_names[index], m_open && !m_eof ? m_row[index] : NoValue};
}

data::Field OdbcRecordset::FieldNamed(const std::string& name) const {
    for (std::size_t index = 0; index < m_names.size(); ++index)
        if (strcasecmp(m_names[index].c_str(), name.c_str()) == 0)
            return FieldAt(index);
    throw Failure(numbers::ItemNotFound);
}

std::vector<std::vector<Value>> OdbcRecordset::GetRows() {
    RequireRow();
    if (m_eof)
        throw Failure(numbers::NoCurrentRecord);
    std::vector<std::vector<Value>> rows;
    for (; !m_eof; MoveNext())
        rows.push_back(m_row);
    return rows;
}

// The rows of this recordset end before the next result is asked for. A failed call leaves it closed and can
// be repeated: the stream then goes on behind the failure.
data::RecordsetRef OdbcRecordset::NextRecordset() {
    if (!m_stream)
        return nullptr;
    m_open = false;
    m_rows.clear();
    if (!m_stream->MoreResults())
        return nullptr;
    return std::make_shared<OdbcRecordset>(m_stream);
}

} // namespace quillon::adapters
