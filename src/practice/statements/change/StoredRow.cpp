#include "practice/statements/change/StoredRow.h"

#include <sqlite3.h>

namespace quillon::practice {

StoredValue StoredValue::Of(sqlite3_value* value) {
    StoredValue result;
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER: result.m_value = static_cast<std::int64_t>(sqlite3_value_int64(value)); break;
    case SQLITE_FLOAT: result.m_value = sqlite3_value_double(value); break;
    case SQLITE_TEXT: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
        result.m_value = std::string(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
        break;
    }
    case SQLITE_BLOB: {
        const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
        const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
        result.m_value = Bytes{size == 0 ? std::string() : std::string(bytes, size)};
        break;
    }
    default: break;
    }
    return result;
}

void StoredValue::Bind(Prepared& statement, int index) const {
    if (const auto* integer = std::get_if<std::int64_t>(&m_value))
        statement.Bind(index, *integer);
    else if (const auto* real = std::get_if<double>(&m_value))
        sqlite3_bind_double(statement.Handle(), index, *real);
    else if (const auto* text = std::get_if<std::string>(&m_value))
        statement.Bind(index, std::string_view(*text));
    else if (const auto* bytes = std::get_if<Bytes>(&m_value))
        statement.BindBlob(index, bytes->bytes);
    else
        statement.BindNull(index);
}

StoredRow RowOf(const Prepared& statement, int first) {
    StoredRow row;
    const int count = statement.ColumnCount();
    row.reserve(static_cast<std::size_t>(count - first));
    for (int i = first; i < count; ++i)
        row.push_back(StoredValue::Column(statement, i));
    return row;
}

void BindRow(Prepared& statement, const StoredRow& row, int firstIndex) {
    for (std::size_t i = 0; i < row.size(); ++i)
        row[i].Bind(statement, firstIndex + static_cast<int>(i));
}

} // namespace quillon::practice
