#include "support/FakeRecordset.h"

#include <stdexcept>

#include "platform/FailureNumbers.h"
#include "support/SameText.h"

namespace quillon::tests {
namespace {

// Statements run on a double only; a wrapped connection hands its double out through the Faulty wrappers.
FakeConnection& DoubleOf(const data::ConnectionRef& connection) {
    auto* fake = dynamic_cast<FakeConnection*>(connection.get());
    if (fake == nullptr)
        throw std::logic_error("a statement was given a connection that is no double");
    return *fake;
}

} // namespace

FakeRecordset::FakeRecordset(std::vector<FakeResult> results)
    : m_results(std::make_move_iterator(results.begin()), std::make_move_iterator(results.end())) {}

void FakeRecordset::Open(const std::string& source, const data::ConnectionRef& connection,
                         data::CursorType cursor, data::LockType, data::CommandType) {
    if (State() == data::ObjectState::Open)
        throw Failure(numbers::ObjectOpen);
    FakeAnswer answer = DoubleOf(connection).Run(source);
    m_results.assign(std::make_move_iterator(answer.Results.begin()),
                     std::make_move_iterator(answer.Results.end()));
    m_row = 0;
    m_cursor = cursor;
}

void FakeRecordset::Close() {
    RequireOpen();
    m_results.clear();
}

data::ObjectState FakeRecordset::State() const {
    return m_results.empty() || Current().Columns.empty() ? data::ObjectState::Closed
                                                          : data::ObjectState::Open;
}

void FakeRecordset::RequireOpen() const {
    if (State() == data::ObjectState::Closed)
        throw Failure(numbers::ObjectClosed);
}

bool FakeRecordset::Bof() const {
    RequireOpen();
    return Current().Rows.empty();
}

bool FakeRecordset::Eof() const {
    RequireOpen();
    return m_row >= Current().Rows.size();
}

void FakeRecordset::MoveFirst() {
    RequireOpen();
    if (Current().Rows.empty() || (m_cursor == data::CursorType::ForwardOnly && m_row > 0))
        throw Failure(numbers::NoCurrentRecord);
    m_row = 0;
}

void FakeRecordset::MoveNext() {
    if (Eof())
        throw Failure(numbers::NoCurrentRecord);
    ++m_row;
}

data::Field FakeRecordset::FieldAt(std::size_t index) const {
    RequireOpen();
    if (index >= Current().Columns.size())
        throw Failure(numbers::ItemNotFound);
    static const Value none;
    return {Current().Columns[index], Eof() ? none : Current().Rows[m_row].at(index)};
}

data::Field FakeRecordset::FieldNamed(const std::string& name) const {
    RequireOpen();
    const auto& columns = Current().Columns;
    const auto found =
        std::ranges::find_if(columns, [&](const std::string& column) { return SameText(column, name); });
    return FieldAt(static_cast<std::size_t>(found - columns.begin()));
}

std::vector<std::vector<Value>> FakeRecordset::GetRows() {
    if (Eof())
        throw Failure(numbers::NoCurrentRecord);
    const auto& rows = Current().Rows;
    std::vector<std::vector<Value>> rest(rows.begin() + static_cast<std::ptrdiff_t>(m_row), rows.end());
    m_row = rows.size();
    return rest;
}

data::RecordsetRef FakeRecordset::NextRecordset() {
    if (m_results.size() <= 1) {
        m_results.clear();
        return nullptr;
    }
    m_results.pop_front();
    auto next = std::make_shared<FakeRecordset>();
    next->m_results = std::exchange(m_results, {});
    return next;
}

const data::Parameter& FakeCommand::ParameterNamed(const std::string& name) const {
    const auto found = std::ranges::find(m_parameters, name, &data::Parameter::Name);
    if (found == m_parameters.end())
        throw Failure(numbers::ItemNotFound);
    return *found;
}

data::RecordsetRef FakeCommand::Execute(std::int32_t) {
    FakeAnswer answer = DoubleOf(m_connection).Run(m_text);
    for (data::Parameter& parameter : m_parameters)
        if (const auto given = answer.Parameters.find(parameter.Name); given != answer.Parameters.end())
            parameter.Value = given->second;
    return std::make_shared<FakeRecordset>(std::move(answer.Results));
}

} // namespace quillon::tests
