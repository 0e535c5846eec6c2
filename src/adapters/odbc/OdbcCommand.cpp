#include "adapters/odbc/OdbcCommand.h"

#include <strings.h>

#include <algorithm>
#include <cstring>

#include "adapters/odbc/OdbcRecordset.h"
#include "platform/Conversion.h"
#include "platform/FailureNumbers.h"

namespace quillon::adapters {
namespace {

constexpr int CommandTimeout = 30; // seconds, the data access library's default
constexpr std::size_t BytesPerCharacter = 4;

struct Types {
    SQLSMALLINT c, sql;
};

Types TypesOf(data::DataType type) {
    switch (type) {
    case data::DataType::Integer: return {SQL_C_SLONG, SQL_INTEGER};
    case data::DataType::Double: return {SQL_C_DOUBLE, SQL_DOUBLE};
    case data::DataType::Boolean: return {SQL_C_BIT, SQL_BIT};
    case data::DataType::DateTime:
    case data::DataType::VarChar:
    case data::DataType::VarWChar: break;
    }
    return {SQL_C_CHAR, SQL_WVARCHAR};
}

SQLSMALLINT DirectionOf(data::ParameterDirection direction) {
    switch (direction) {
    case data::ParameterDirection::Input: return SQL_PARAM_INPUT;
    case data::ParameterDirection::InputOutput: return SQL_PARAM_INPUT_OUTPUT;
    case data::ParameterDirection::Output:
    case data::ParameterDirection::ReturnValue: break;
    }
    return SQL_PARAM_OUTPUT;
}

template <class T>
std::vector<char> Bytes(T value) {
    std::vector<char> bytes(sizeof value);
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}

// The value in the C type's form; text with room for what may come back.
std::vector<char> BufferOf(const data::Parameter& parameter) {
    const Value& value = parameter.Value;
    const bool isSet = !value.IsNull() && !value.IsEmpty();
    switch (TypesOf(parameter.Type).c) {
    case SQL_C_SLONG: return Bytes(SQLINTEGER{isSet ? conversion::ToLong(value) : 0});
    case SQL_C_DOUBLE: return Bytes(isSet ? conversion::ToDouble(value) : 0.0);
    case SQL_C_BIT: return Bytes(static_cast<SQLCHAR>(isSet && conversion::ToBoolean(value)));
    default: break;
    }
    const std::string text = isSet ? conversion::ToText(value) : std::string();
    std::vector<char> bytes(text.begin(), text.end());
    const auto room = static_cast<std::size_t>(std::max(parameter.Size, 1)) * BytesPerCharacter;
    bytes.resize(std::max(bytes.size(), room) + 1);
    return bytes;
}

Value ReadValue(data::DataType type, const std::vector<char>& buffer, SQLLEN length) {
    if (length == SQL_NULL_DATA)
        return NullValue{};
    const auto as = [&buffer]<class T>(T value) {
        std::memcpy(&value, buffer.data(), sizeof value);
        return value;
    };
    switch (TypesOf(type).c) {
    case SQL_C_SLONG: return Value(std::int32_t{as(SQLINTEGER{})});
    case SQL_C_DOUBLE: return Value(as(0.0));
    case SQL_C_BIT: return Value(as(SQLCHAR{}) != 0);
    default: break;
    }
    return Value(std::string(buffer.data(), std::min(static_cast<std::size_t>(length), buffer.size() - 1)));
}

} // namespace

void OdbcCommand::SetActiveConnection(const data::ConnectionRef& connection) {
    m_connection = std::dynamic_pointer_cast<OdbcConnection>(connection);
    if (!m_connection)
        throw Failure(numbers::ObjectNotSet);
}

void OdbcCommand::AppendParameter(const data::Parameter& parameter) {
    m_parameters.push_back(parameter);
}

const data::Parameter& OdbcCommand::ParameterNamed(const std::string& name) const {
    const auto found = std::ranges::find_if(m_parameters, [&name](const data::Parameter& parameter) {
        return strcasecmp(parameter.Name.c_str(), name.c_str()) == 0;
    });
    if (found == m_parameters.end())
        throw Failure(numbers::ItemNotFound);
    return *found;
}

bool OdbcCommand::HasOutput() const {
    return std::ranges::any_of(m_parameters, [](const data::Parameter& parameter) {
        return parameter.Direction != data::ParameterDirection::Input;
    });
}

// The call escape of ODBC: {?=call name(?,?)}.
std::string OdbcCommand::CallText() const {
    if (m_type != data::CommandType::StoredProcedure)
        return m_text;
    const bool returns =
        !m_parameters.empty() && m_parameters.front().Direction == data::ParameterDirection::ReturnValue;
    std::string marks;
    for (auto left = m_parameters.size() - (returns ? 1 : 0); left > 0; --left)
        marks += marks.empty() ? "?" : ",?";
    return std::string(returns ? "{?=call " : "{call ") + m_text + (marks.empty() ? "" : "(" + marks + ")") +
           "}";
}

void OdbcCommand::Bind(const Handle& statement, std::deque<Bound>& bound) const {
    for (const auto& parameter : m_parameters) {
        Bound& memory = bound.emplace_back();
        memory.buffer = BufferOf(parameter);
        const auto [cType, sqlType] = TypesOf(parameter.Type);
        const bool isText = cType == SQL_C_CHAR;
        if (!parameter.Value.IsNull() && !parameter.Value.IsEmpty())
            memory.length = isText ? static_cast<SQLLEN>(std::strlen(memory.buffer.data()))
                                   : static_cast<SQLLEN>(memory.buffer.size());
        const auto size = isText ? memory.buffer.size() - 1 : memory.buffer.size();
        const auto result =
            SQLBindParameter(statement.get(), static_cast<SQLUSMALLINT>(bound.size()),
                             DirectionOf(parameter.Direction), cType, sqlType, size, 0, memory.buffer.data(),
                             static_cast<SQLLEN>(memory.buffer.size()), &memory.length);
        if (!SQL_SUCCEEDED(result))
            RaiseDiagnostics(Diagnostics(statement));
    }
}

void OdbcCommand::ReadBack(const std::deque<Bound>& bound) {
    for (std::size_t index = 0; index < m_parameters.size(); ++index)
        if (m_parameters[index].Direction != data::ParameterDirection::Input)
            m_parameters[index].Value =
                ReadValue(m_parameters[index].Type, bound[index].buffer, bound[index].length);
}

data::RecordsetRef OdbcCommand::Execute(std::int32_t /*options*/) {
    if (!m_connection)
        throw Failure(numbers::ObjectNotSet);
    auto stream = std::make_shared<ResultStream>(m_connection->link());
    std::deque<Bound> bound;
    Bind(stream->statement(), bound);
    stream->Execute(CallText(), CommandTimeout);
    if (m_type == data::CommandType::StoredProcedure) {
        while (stream->IsMessage() && stream->MoreResults())
            ;
        if (!bound.empty())
            stream->BringIn(); // the parameters' memory ends with this call
    }
    ReadBack(bound);
    return std::make_shared<OdbcRecordset>(std::move(stream));
}

} // namespace quillon::adapters
