#include "adapters/odbc/Link.h"

#include <array>

#include "adapters/odbc/ResultStream.h"
#include "adapters/odbc/WideText.h"
#include "platform/FailureNumbers.h"
#include "platform/Platform.h"

namespace quillon::adapters {
Link::Link(const std::string& driverText, int loginTimeout, std::shared_ptr<std::vector<data::Error>> errors)
    : m_handle(SQL_HANDLE_DBC, TheEnvironment())
    , m_errors(std::move(errors)) {
    SQLSetConnectAttr(m_handle.get(), SQL_ATTR_LOGIN_TIMEOUT,
                      reinterpret_cast<SQLPOINTER>(static_cast<std::intptr_t>(loginTimeout)), 0);
    auto text = WideText(driverText);
    SQLRETURN result = SQL_ERROR;
    WaitFor([&] {
        result = SQLDriverConnectW(m_handle.get(), nullptr, text.data(), SQL_NTS, nullptr, 0, nullptr,
                                   SQL_DRIVER_NOPROMPT);
    });
    m_errors->clear();
    Collect(m_handle);
    if (!SQL_SUCCEEDED(result))
        RaiseDiagnostics(*m_errors);
    std::array<char, 64> version{};
    SQLGetInfo(m_handle.get(), SQL_DBMS_VER, version.data(), static_cast<SQLSMALLINT>(version.size()),
               nullptr);
    m_serverVersion = version.data();
}

Link::~Link() {
    SQLDisconnect(m_handle.get());
}

std::string Link::Database() const {
    std::array<SQLWCHAR, 256> name{}; // names have 128 characters at most
    SQLINTEGER length = 0;
    if (!SQL_SUCCEEDED(
            SQLGetConnectAttrW(m_handle.get(), SQL_ATTR_CURRENT_CATALOG, name.data(), sizeof name, &length)))
        RaiseDiagnostics(Diagnostics(m_handle));
    return PlainText(name.data());
}

bool Link::IsBroken() const {
    SQLUINTEGER isDead = SQL_CD_FALSE;
    return !SQL_SUCCEEDED(SQLGetConnectAttr(m_handle.get(), SQL_ATTR_CONNECTION_DEAD, &isDead, 0, nullptr)) ||
           isDead == SQL_CD_TRUE;
}

void Link::Raise() const {
    try {
        RaiseDiagnostics(*m_errors);
    } catch (const Failure& failure) {
        if (failure.number() == numbers::LinkBroken || !IsBroken())
            throw;
        throw Failure(numbers::LinkBroken, failure.description(), failure.source());
    }
}

bool Link::Collect(const Handle& handle) {
    auto left = Diagnostics(handle);
    if (left.empty())
        return false;
    *m_errors = std::move(left);
    return true;
}

void Link::Begin(ResultStream& stream) {
    if (m_active != nullptr && m_active != &stream)
        m_active->BringIn();
    m_active = &stream;
}

void Link::End(const ResultStream& stream) noexcept {
    if (m_active == &stream)
        m_active = nullptr;
}

} // namespace quillon::adapters
