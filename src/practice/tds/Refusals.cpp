#include "practice/tds/Refusals.h"

#include "practice/values/SqlError.h"

namespace quillon::practice::tds {
ServerMessage MessageOf(const SqlError& error) {
    ServerMessage message;
    message.number = error.number;
    message.severity = static_cast<std::uint8_t>(error.severity);
    message.state = static_cast<std::uint8_t>(error.state);
    message.text = error.text;
    return message;
}

ServerMessage TableMessage(int number, std::initializer_list<std::string_view> parameters) {
    return MessageOf(SqlError(number, parameters));
}

void RefuseFeature(std::string_view feature, EndScope scope, ResultSink& sink) {
    sink.Message(MessageOf(SqlError::NotSupported(feature)));
    sink.Done({scope, StatementKind::Other, std::nullopt, true});
}

void FailCall(const ServerMessage& message, ResultSink& sink) {
    sink.Message(message);
    sink.Done({EndScope::Procedure, StatementKind::Execute, std::nullopt, true});
}

} // namespace quillon::practice::tds
