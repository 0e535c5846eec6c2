#include "adapters/odbc/Handles.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "adapters/odbc/MessageOrder.h"
#include "adapters/odbc/WideText.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::adapters {
namespace {

// The installed parts' prefixes, and what users of the system's own driver read there.
constexpr std::pair<std::string_view, std::string_view> Prefixes[] = {
    {"[FreeTDS][SQL Server]", "[Microsoft][ODBC SQL Server Driver][SQL Server]"},
    {"[unixODBC][FreeTDS][SQL Server]", "[Microsoft][ODBC SQL Server Driver][SQL Server]"},
    {"[unixODBC][Driver Manager]", "[Microsoft][ODBC Driver Manager] "},
    {"[unixODBC]", "[Microsoft][ODBC SQL Server Driver]"},
};

// What the installed driver says of its own accord, in its own words, and what users know instead.
constexpr std::pair<std::int32_t, std::string_view> DriverTexts[] = {
    {0, "SQL Server does not exist or access denied."},
    {20002, "The server broke off the login."},
    {20003, "Timeout expired"},
    {20004, "General network error. The connection to the server was broken while reading."},
    {20006, "General network error. The connection to the server was broken while writing."},
    {20009, "SQL Server does not exist or access denied."},
    {20012, "SQL Server does not exist or access denied."},
    {20013, "SQL Server does not exist or access denied."},
    {20017, "General network error. The server closed the connection."},
    {20020, "General network error. The server sent something that is no answer."},
    {20047, "The connection to the server is broken."},
};
constexpr std::string_view DriverPrefix = "[Microsoft][ODBC SQL Server Driver]";

std::string WithKnownPrefix(std::string_view text) {
    for (const auto& [installed, known] : Prefixes)
        if (text.starts_with(installed))
            return std::string(known) + std::string(text.substr(installed.size()));
    return std::string(text);
}

// The text for a message of the driver itself; empty for the server's, which may bear the same numbers.
std::string OwnText(std::int32_t native, std::string_view sqlState) {
    if (native == 0 && sqlState != "08001")
        return {};
    const bool isOwn = sqlState.starts_with("08") || sqlState.starts_with("HY") || sqlState == "01000";
    if (!isOwn)
        return {};
    for (const auto& [number, text] : DriverTexts)
        if (number == native)
            return std::string(DriverPrefix) + std::string(text);
    return {};
}

// Where the server says that a message comes from; 0 when it does not.
int LineOf(const Handle& handle, SQLSMALLINT record) {
    constexpr SQLSMALLINT lineField = -1154; // SQL_DIAG_SS_LINE of the server's drivers
    SQLUSMALLINT line[2] = {};               // the driver writes the first half alone
    SQLGetDiagField(handle.type(), handle.get(), record, lineField, line, sizeof line, nullptr);
    return line[0];
}

// SQLSTATEs that mean a number of their own; everything else is the server refusing a statement.
std::int32_t NumberOf(const data::Error& error) {
    static constexpr std::pair<std::string_view, std::int32_t> states[] = {
        {"08S01", numbers::LinkBroken},     {"08003", numbers::LinkBroken},
        {"08007", numbers::LinkBroken},     {"01002", numbers::LinkBroken},
        {"28000", numbers::LoginFailed},    {"HYT00", numbers::CommandTimeout},
        {"HYT01", numbers::CommandTimeout}, {"08001", numbers::Unspecified},
        {"IM002", numbers::Unspecified},
    };
    static constexpr std::int32_t refusedLogins[] = {4060, 18452, 18456, 18470, 18486, 18487, 18488};
    if (std::ranges::find(refusedLogins, error.NativeError) != std::end(refusedLogins))
        return numbers::LoginFailed;
    for (const auto& [state, number] : states)
        if (error.SqlState == state)
            return number;
    return numbers::DataAccess;
}

// Warnings come before the error they accompany.
const data::Error* FirstError(const std::vector<data::Error>& errors) {
    for (const auto& error : errors)
        if (!error.SqlState.starts_with("01"))
            return &error;
    return errors.empty() ? nullptr : &errors.front();
}

} // namespace

Handle::Handle(SQLSMALLINT type, SQLHANDLE parent)
    : m_type(type) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(type, parent, &m_handle)))
        throw Failure(numbers::OutOfMemory);
}

Handle::~Handle() {
    SQLFreeHandle(m_type, m_handle);
}

SQLHANDLE TheEnvironment() {
    static const Handle environment(SQL_HANDLE_ENV, SQL_NULL_HANDLE);
    static const bool isOdbc3 = SQL_SUCCEEDED(SQLSetEnvAttr(environment.get(), SQL_ATTR_ODBC_VERSION,
                                                            reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0));
    if (!isOdbc3)
        throw Failure(numbers::CannotCreateObject);
    return environment.get();
}

std::vector<data::Error> Diagnostics(const Handle& handle) {
    std::vector<LocatedMessage> messages;
    std::array<SQLWCHAR, 8192> text;
    std::array<SQLWCHAR, 6> state;
    for (SQLSMALLINT record = 1;; ++record) {
        SQLINTEGER native = 0;
        SQLSMALLINT length = 0;
        const auto result = SQLGetDiagRecW(handle.type(), handle.get(), record, state.data(), &native,
                                           text.data(), static_cast<SQLSMALLINT>(text.size()), &length);
        if (!SQL_SUCCEEDED(result))
            return InServerOrder(std::move(messages));
        const std::string sqlState = PlainText(state.data());
        const auto own = OwnText(native, sqlState);
        messages.push_back({{native, own.empty() ? WithKnownPrefix(PlainText(text.data())) : own, sqlState},
                            LineOf(handle, record)});
    }
}

void RaiseDiagnostics(const std::vector<data::Error>& errors) {
    const data::Error* error = FirstError(errors);
    if (error == nullptr)
        throw Failure(numbers::Unspecified);
    throw Failure(NumberOf(*error), error->Description, "Microsoft OLE DB Provider for ODBC Drivers");
}

} // namespace quillon::adapters
