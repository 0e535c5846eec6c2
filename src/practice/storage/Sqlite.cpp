#include "practice/storage/Sqlite.h"

#include <sqlite3.h>

namespace quillon::practice {

void ThrowStoreFailure(sqlite3* connection) {
    const int code = sqlite3_extended_errcode(connection);
    if ((code & 0xFF) == SQLITE_INTERRUPT)
        throw Interrupted();
    throw StoreFailure(code, sqlite3_errmsg(connection));
}

Prepared::Prepared(sqlite3* connection, std::string_view sql, bool lasting)
    : m_connection(connection) {
    const unsigned flags = lasting ? SQLITE_PREPARE_PERSISTENT : 0;
    if (sqlite3_prepare_v3(connection, sql.data(), static_cast<int>(sql.size()), flags, &m_statement,
                           nullptr) != SQLITE_OK)
        ThrowStoreFailure(connection);
}

Prepared::~Prepared() {
    sqlite3_finalize(m_statement);
}

Prepared::Prepared(Prepared&& other) noexcept
    : m_connection(other.m_connection)
    , m_statement(std::exchange(other.m_statement, nullptr)) {}

Prepared& Prepared::operator=(Prepared&& other) noexcept {
    std::swap(m_connection, other.m_connection);
    std::swap(m_statement, other.m_statement);
    return *this;
}

Prepared& Prepared::Bind(int index, std::int64_t value) {
    sqlite3_bind_int64(m_statement, index, value);
    return *this;
}

Prepared& Prepared::Bind(int index, std::string_view text) {
    // An empty view may have no address, and SQLite takes a null address for NULL.
    sqlite3_bind_text(m_statement, index, text.empty() ? "" : text.data(), static_cast<int>(text.size()),
                      SQLITE_TRANSIENT);
    return *this;
}

Prepared& Prepared::BindBlob(int index, std::string_view bytes) {
    sqlite3_bind_blob(m_statement, index, bytes.empty() ? "" : bytes.data(), static_cast<int>(bytes.size()),
                      SQLITE_TRANSIENT);
    return *this;
}

Prepared& Prepared::BindNull(int index) {
    sqlite3_bind_null(m_statement, index);
    return *this;
}

Prepared& Prepared::BindValue(int index, const sqlite3_value* value) {
    sqlite3_bind_value(m_statement, index, value);
    return *this;
}

bool Prepared::Step() {
    const int code = sqlite3_step(m_statement);
    if (code == SQLITE_ROW)
        return true;
    if (code == SQLITE_DONE)
        return false;
    ThrowStoreFailure(m_connection);
}

void Prepared::Run() {
    const ResetGuard guard(*this);
    while (Step()) {
    }
}

void Prepared::Reset() noexcept {
    sqlite3_reset(m_statement);
}

int Prepared::ColumnCount() const {
    return sqlite3_column_count(m_statement);
}

std::int64_t Prepared::Integer(int column) const {
    return sqlite3_column_int64(m_statement, column);
}

std::string Prepared::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    return text == nullptr
               ? std::string()
               : std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(m_statement, column)));
}

std::string Prepared::Blob(int column) const {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(m_statement, column));
    return bytes == nullptr
               ? std::string()
               : std::string(bytes, static_cast<std::size_t>(sqlite3_column_bytes(m_statement, column)));
}

bool Prepared::IsNull(int column) const {
    return sqlite3_column_type(m_statement, column) == SQLITE_NULL;
}

sqlite3_value* Prepared::Value(int column) const {
    return sqlite3_column_value(m_statement, column);
}

} // namespace quillon::practice
