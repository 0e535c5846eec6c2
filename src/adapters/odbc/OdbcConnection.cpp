#include "adapters/odbc/OdbcConnection.h"

#include "adapters/odbc/ConnectionText.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::adapters {
namespace {

constexpr int LoginTimeout = 15; // seconds, the data access library's default

} // namespace

void OdbcConnection::Open(const std::string& connectionString, const std::string& user,
                          const std::string& password, std::int32_t /*options*/) {
    if (m_link)
        throw Failure(numbers::ObjectOpen);
    if (!connectionString.empty())
        m_connectionString = connectionString;
    auto parts = ConnectionParts::Read(m_connectionString);
    if (!user.empty()) {
        parts.user = user;
        parts.password = password;
        parts.integrated = false;
    }
    m_link = std::make_shared<Link>(parts.DriverText(), LoginTimeout, m_errors);
}

void OdbcConnection::Close() {
    if (!m_link)
        throw Failure(numbers::ObjectClosed);
    m_link.reset();
}

data::ObjectState OdbcConnection::State() const {
    return m_link ? data::ObjectState::Open : data::ObjectState::Closed;
}

std::string OdbcConnection::DefaultDatabase() const {
    return link()->Database();
}

const std::shared_ptr<Link>& OdbcConnection::link() const {
    if (!m_link)
        throw Failure(numbers::ObjectClosed);
    return m_link;
}

} // namespace quillon::adapters
