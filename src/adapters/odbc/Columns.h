// The columns of a result: how each is fetched and what value it becomes.
//
// Values have the default forms of the data access library: whole numbers up to 32 bits as such, larger ones
// and decimals as exact digits without trailing zeros, money as Currency, datetime and smalldatetime as Date;
// the newer date types, GUIDs (in braces), binary ("0x...") and all else as text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/odbc/Handles.h"

namespace quillon::adapters {

class Columns {
  public:
    // Describes the result on which the statement stands and binds its columns; none when it has no rows.
    explicit Columns(const Handle& statement);
    Columns(const Columns&) = delete;
    Columns& operator=(const Columns&) = delete;
    // Ends the binding.
    ~Columns();

    std::size_t size() const noexcept { return m_columns.size(); }
    const std::string& NameOf(std::size_t column) const { return m_columns[column].name; }

    // The values of the row just fetched, in place of what `values` held. Raises the driver's failure for one
    // that cannot be read.
    void ReadRow(std::vector<Value>& values);

  private:
    enum class Form {
        Long,
        Integer,
        Byte,
        Boolean,
        Double,
        Single,
        Currency,
        Date,
        Digits,
        Guid,
        Binary,
        Text
    };
    struct Column {
        std::string name;
        Form form = Form::Text;
        SQLSMALLINT cType = SQL_C_CHAR;
        bool isBound = true;
        SQLLEN length = 0; // of the value fetched, SQL_NULL_DATA for null
        std::vector<char> buffer;
        SQL_DATE_STRUCT day{}; // of the last moment read, with its number
        double days = 0;
    };

    void Describe(Column& column, SQLUSMALLINT number);
    static void SetText(Column& column, std::string_view text, Value& value);
    static void SetBound(Column& column, Value& value);
    // A value of any length, read piece by piece.
    std::string ReadLong(Column& column, SQLUSMALLINT number, bool& isNull);

    const Handle& m_statement;
    std::vector<Column> m_columns;
};

} // namespace quillon::adapters
