#include "adapters/odbc/Columns.h"

#include <array>
#include <cmath>
#include <cstring>

#include "adapters/odbc/WideText.h"
#include "platform/Conversion.h"

namespace quillon::adapters {
namespace {

constexpr SQLSMALLINT SqlVariant = -150; // SQL_SS_VARIANT of the server's drivers

template <class T>
T As(const std::vector<char>& buffer) {
    T value;
    std::memcpy(&value, buffer.data(), sizeof value);
    return value;
}

// `day` and `days` keep the last day: rows that follow each other mostly share theirs.
DateValue DateOf(const SQL_TIMESTAMP_STRUCT& moment, SQL_DATE_STRUCT& day, double& days) {
    if (moment.year != day.year || moment.month != day.month || moment.day != day.day) {
        days = conversion::DateOf(moment.year, moment.month, moment.day, 0, 0, 0).days;
        day = {moment.year, moment.month, moment.day};
    }
    const double time = (moment.hour * 3600 + moment.minute * 60 + moment.second) / 86400.0;
    const double whole = days < 0 ? days - time : days + time;
    // A fraction of a second has no place in the date's text, but it counts when dates are compared.
    constexpr double nanosecondsOfDay = 86400e9;
    return {whole + std::copysign(moment.fraction / nanosecondsOfDay, whole)};
}

// "12.300" as "12.3", "5.00" as "5", ".5" as "0.5".
void SetDigits(std::string_view digits, std::string& plain) {
    if (digits.find('.') != digits.npos) {
        digits.remove_suffix(digits.size() - digits.find_last_not_of('0') - 1);
        if (digits.ends_with('.'))
            digits.remove_suffix(1);
    }
    plain.clear();
    if (digits.starts_with('-')) {
        plain = '-';
        digits.remove_prefix(1);
    }
    if (digits.empty() || digits.front() == '.')
        plain += '0';
    plain.append(digits);
}

// A value of this sub-type in place: the former row's, with its memory, if it was one.
template <class T>
T& InPlace(Value& value) {
    if (!value.Is<T>())
        value = Value(T());
    return const_cast<T&>(value.As<T>()); // the value around it is ours to change
}

std::string Uppered(std::string digits) {
    for (char& c : digits)
        c = c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c;
    return digits;
}

CurrencyValue CurrencyOf(std::string_view digits) {
    const bool negative = digits.starts_with('-');
    std::int64_t whole = 0;
    int decimals = -1;
    for (const char c : digits) {
        if (c == '.')
            decimals = 0;
        else if (c >= '0' && c <= '9' && decimals < 4) {
            whole = whole * 10 + (c - '0');
            decimals += decimals >= 0 ? 1 : 0;
        }
    }
    for (decimals = std::max(decimals, 0); decimals < 4; ++decimals)
        whole *= 10;
    return {negative ? -whole : whole};
}

} // namespace

Columns::Columns(const Handle& statement)
    : m_statement(statement) {
    SQLSMALLINT count = 0;
    SQLNumResultCols(statement.get(), &count);
    m_columns.resize(static_cast<std::size_t>(count));
    for (std::size_t index = 0; index < m_columns.size(); ++index) {
        Column& column = m_columns[index];
        const auto number = static_cast<SQLUSMALLINT>(index + 1);
        Describe(column, number);
        if (column.isBound)
            SQLBindCol(statement.get(), number, column.cType, column.buffer.data(),
                       static_cast<SQLLEN>(column.buffer.size()), &column.length);
    }
}

Columns::~Columns() {
    SQLFreeStmt(m_statement.get(), SQL_UNBIND);
}

void Columns::Describe(Column& column, SQLUSMALLINT number) {
    std::array<SQLWCHAR, 256> name{};
    SQLSMALLINT nameLength = 0, type = 0, digits = 0, nullable = 0;
    SQLULEN size = 0;
    SQLDescribeColW(m_statement.get(), number, name.data(), static_cast<SQLSMALLINT>(name.size()),
                    &nameLength, &type, &size, &digits, &nullable);
    column.name = PlainText(name.data());

    std::array<SQLCHAR, 64> typeName{};
    SQLColAttribute(m_statement.get(), number, SQL_DESC_TYPE_NAME, typeName.data(),
                    static_cast<SQLSMALLINT>(typeName.size()), nullptr, nullptr);
    const std::string_view named = reinterpret_cast<const char*>(typeName.data());

    const auto fixed = [&column](Form form, SQLSMALLINT cType, std::size_t bytes) {
        column.form = form;
        column.cType = cType;
        column.buffer.resize(bytes);
    };
    switch (type) {
    case SQL_INTEGER: return fixed(Form::Long, SQL_C_SLONG, sizeof(SQLINTEGER));
    case SQL_SMALLINT: return fixed(Form::Integer, SQL_C_SSHORT, sizeof(SQLSMALLINT));
    case SQL_TINYINT: return fixed(Form::Byte, SQL_C_UTINYINT, sizeof(SQLCHAR));
    case SQL_BIT: return fixed(Form::Boolean, SQL_C_BIT, sizeof(SQLCHAR));
    case SQL_FLOAT:
    case SQL_DOUBLE: return fixed(Form::Double, SQL_C_DOUBLE, sizeof(double));
    case SQL_REAL: return fixed(Form::Single, SQL_C_FLOAT, sizeof(float));
    case SQL_BIGINT: return fixed(Form::Digits, SQL_C_CHAR, 32);
    case SQL_DECIMAL:
    case SQL_NUMERIC:
        return fixed(named.find("money") != named.npos ? Form::Currency : Form::Digits, SQL_C_CHAR, 64);
    case SQL_GUID: return fixed(Form::Guid, SQL_C_CHAR, 64);
    case SQL_TYPE_TIMESTAMP:
        if (named.find("datetime2") == named.npos && named.find("offset") == named.npos)
            return fixed(Form::Date, SQL_C_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT));
        return fixed(Form::Text, SQL_C_CHAR, 64);
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY: column.form = Form::Binary; break;
    case SqlVariant: return fixed(Form::Text, SQL_C_CHAR, 32004);
    default: break;
    }
    // Four bytes a character at most. What has no sensible bound is read piece by piece.
    constexpr SQLULEN longest = 8000;
    column.isBound = size > 0 && size <= longest;
    column.buffer.resize(column.isBound ? size * 4 + 1 : 16384);
}

std::string Columns::ReadLong(Column& column, SQLUSMALLINT number, bool& isNull) {
    std::string text;
    while (true) {
        SQLLEN left = 0;
        const auto result = SQLGetData(m_statement.get(), number, SQL_C_CHAR, column.buffer.data(),
                                       static_cast<SQLLEN>(column.buffer.size()), &left);
        if (result == SQL_NO_DATA)
            return text;
        if (!SQL_SUCCEEDED(result))
            RaiseDiagnostics(Diagnostics(m_statement));
        isNull = left == SQL_NULL_DATA;
        if (isNull)
            return text;
        text += column.buffer.data();
        if (result == SQL_SUCCESS)
            return text;
    }
}

void Columns::SetText(Column& column, std::string_view text, Value& value) {
    switch (column.form) {
    case Form::Currency: value = Value(CurrencyOf(text)); return;
    case Form::Digits: SetDigits(text, InPlace<DecimalValue>(value).digits); return;
    case Form::Guid: value = Value("{" + std::string(text) + "}"); return;
    case Form::Binary: value = Value("0x" + Uppered(std::string(text))); return;
    default: InPlace<std::string>(value).assign(text);
    }
}

void Columns::SetBound(Column& column, Value& value) {
    switch (column.form) {
    case Form::Long: value = Value(std::int32_t{As<SQLINTEGER>(column.buffer)}); return;
    case Form::Integer: value = Value(std::int16_t{As<SQLSMALLINT>(column.buffer)}); return;
    case Form::Byte: value = Value(std::uint8_t{As<SQLCHAR>(column.buffer)}); return;
    case Form::Boolean: value = Value(As<SQLCHAR>(column.buffer) != 0); return;
    case Form::Double: value = Value(As<double>(column.buffer)); return;
    case Form::Single: value = Value(As<float>(column.buffer)); return;
    case Form::Date:
        value = Value(DateOf(As<SQL_TIMESTAMP_STRUCT>(column.buffer), column.day, column.days));
        return;
    default: break;
    }
    const auto length = std::min(static_cast<std::size_t>(column.length), column.buffer.size() - 1);
    SetText(column, {column.buffer.data(), length}, value);
}

void Columns::ReadRow(std::vector<Value>& values) {
    values.resize(m_columns.size());
    for (std::size_t index = 0; index < m_columns.size(); ++index) {
        Column& column = m_columns[index];
        if (!column.isBound) {
            bool isNull = false;
            const std::string text = ReadLong(column, static_cast<SQLUSMALLINT>(index + 1), isNull);
            column.length = isNull ? SQL_NULL_DATA : 0;
            if (!isNull)
                SetText(column, text, values[index]);
        } else if (column.length != SQL_NULL_DATA) {
            SetBound(column, values[index]);
        }
        if (column.length == SQL_NULL_DATA)
            values[index] = NullValue{};
    }
}

} // namespace quillon::adapters
