#include "support/FakeDataAccess.h"

#include "platform/FailureNumbers.h"
#include "support/FakeRecordset.h"
#include "support/SameText.h"

namespace quillon::tests {
namespace {

std::string ElementOf(const std::string& connectionString, std::string_view key) {
    std::size_t begin = 0;
    while (begin < connectionString.size()) {
        const std::size_t end = std::min(connectionString.find(';', begin), connectionString.size());
        const std::string element = connectionString.substr(begin, end - begin);
        const std::size_t sign = element.find('=');
        if (sign != std::string::npos && SameText(element.substr(0, sign), key))
            return element.substr(sign + 1);
        begin = end + 1;
    }
    return {};
}

} // namespace

FakeAnswer FakeDataState::Run(const std::string& statement) {
    Statements.push_back(statement);
    const auto found = Answers.find(statement);
    if (found == Answers.end() || found->second.empty())
        throw Failure(numbers::DataAccess, "no answer was prepared for: " + statement);
    const FakeAnswer answer = found->second.front();
    if (found->second.size() > 1)
        found->second.erase(found->second.begin());
    return answer;
}

void FakeConnection::Open(const std::string& connectionString, const std::string&, const std::string&,
                          std::int32_t) {
    if (m_state == data::ObjectState::Open)
        throw Failure(numbers::ObjectOpen);
    if (!connectionString.empty())
        m_string = connectionString;
    m_data->Opened.push_back(m_string);
    m_state = data::ObjectState::Open;
}

void FakeConnection::Close() {
    if (m_state == data::ObjectState::Closed)
        throw Failure(numbers::ObjectClosed);
    m_state = data::ObjectState::Closed;
}

std::string FakeConnection::DefaultDatabase() const {
    const std::string catalogue = ElementOf(m_string, "Initial Catalog");
    return catalogue.empty() ? ElementOf(m_string, "Database") : catalogue;
}

FakeAnswer FakeConnection::Run(const std::string& statement) {
    if (m_state == data::ObjectState::Closed)
        throw Failure(numbers::ObjectClosed);
    const FakeAnswer answer = m_data->Run(statement);
    m_errors = answer.Messages;
    if (answer.Trouble)
        throw *answer.Trouble;
    return answer;
}

data::ConnectionRef FakeDataAccess::NewConnection() {
    return std::make_shared<FakeConnection>(m_data);
}

data::RecordsetRef FakeDataAccess::NewRecordset() {
    return std::make_shared<FakeRecordset>();
}

std::shared_ptr<data::Command> FakeDataAccess::NewCommand() {
    return std::make_shared<FakeCommand>();
}

} // namespace quillon::tests
