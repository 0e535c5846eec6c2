#include "practice/session/Messages.h"

#include "practice/session/Ends.h"
#include "practice/session/SessionState.h"
#include "practice/storage/UserMessages.h"
#include "practice/values/Languages.h"

namespace quillon::practice {

namespace {

constexpr int kLongestUnicode = 4000;
constexpr int kLongestText = 8000;
constexpr int kFirstUserNumber = 50000;
constexpr int kFirstRaisable = 13000;
constexpr int kOwnSeverity = -1;
constexpr int kLastNumber = 2147483647;

int IntegerOf(SessionState& session, const tsql::Expression& expression) {
    const Datum value = session.Statements().Evaluate(expression, SimpleType(TypeId::Int));
    return value.IsNull() ? 0 : static_cast<int>(value.Integer());
}

/// A message of the table with the arguments in place of its %1 to %9.
std::string FillMessage(std::string_view text, std::span<const Datum> arguments) {
    std::string filled;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool place =
            text[at] == '%' && at + 1 < text.size() && text[at + 1] >= '1' && text[at + 1] <= '9';
        if (!place) {
            filled += text[at];
            continue;
        }
        const auto index = static_cast<std::size_t>(text[++at] - '1');
        const bool given = index < arguments.size() && !arguments[index].IsNull();
        filled += given ? ToText(arguments[index]) : std::string("(null)");
    }
    return filled;
}

/// A message of sys.messages with its arguments in place: one of the system's, or one that users added.
struct Numbered {
    int severity = 0;
    std::string text;
};

std::optional<Numbered> NumberedMessage(SessionState& session, int number, std::span<const Datum> arguments) {
    if (number < kFirstUserNumber) {
        const MessageRow* row = FindMessage(number);
        return row == nullptr ? std::nullopt
                              : std::optional(Numbered{row->severity, FillMessage(row->text, arguments)});
    }
    const auto message = FindUserMessage(session.store.Connection(), number, usEnglishMessages);
    return message ? std::optional(Numbered{message->severity, FormatMessage(message->text, arguments)})
                   : std::nullopt;
}

/// The severity -1 stands for the message's own.
SqlError NumberedError(SessionState& session, int number, int severity, int state,
                       std::span<const Datum> arguments) {
    if (number < kFirstRaisable || number == kFirstUserNumber)
        throw SqlError(2732,
                       {std::to_string(number), std::to_string(kFirstRaisable), std::to_string(kLastNumber)});
    const auto message = NumberedMessage(session, number, arguments);
    if (!message)
        throw SqlError(18054, {std::to_string(number), std::to_string(severity), std::to_string(state)});
    return SqlError::Custom(number, severity == kOwnSeverity ? message->severity : severity, state,
                            message->text);
}

SqlError ErrorOf(SessionState& session, const tsql::RaiseErrorStatement& statement, int severity, int state) {
    std::vector<Datum> arguments;
    for (const tsql::ExpressionPtr& argument : statement.arguments)
        arguments.push_back(session.Statements().Evaluate(*argument));
    const Datum message = session.Statements().Evaluate(*statement.message);
    if (message.Type().IsInteger() && !message.IsNull())
        return NumberedError(session, static_cast<int>(message.Integer()), severity, state, arguments);
    const std::string format = message.IsNull() ? std::string() : ToText(message);
    return SqlError::Custom(kFirstUserNumber, std::max(severity, 0), state, FormatMessage(format, arguments));
}

void RequireLog(SessionState& session, const tsql::RaiseErrorStatement& statement, int severity) {
    if (severity > 18 && (!statement.log || !session.IsAdministrator()))
        throw SqlError(2754, {"18"});
}

/// THROW alone: the error that the CATCH block holds, as it was.
[[noreturn]] void Rethrow(SessionState& session) {
    const auto& caught = session.Top().caught;
    if (caught.empty())
        throw SqlError(10704);
    const CaughtError& held = caught.back();
    SqlError error = SqlError::Custom(held.number, held.severity, held.state, held.text);
    error.line = held.line;
    error.procedure = held.procedure;
    throw RaisedError(std::move(error), ErrorOrigin::Throw);
}

} // namespace

Datum FormattedMessage(SessionState& session, std::span<const Datum> arguments) {
    const Datum& message = arguments.front();
    const SqlType type = NVarChar(2048);
    if (message.IsNull())
        return Datum::Null(type);
    if (!message.Type().IsInteger())
        return Datum::Text(type, FormatMessage(ToText(message), arguments.subspan(1)));
    const auto number = static_cast<int>(message.Integer());
    const auto filled =
        number < kFirstRaisable ? std::nullopt : NumberedMessage(session, number, arguments.subspan(1));
    return filled ? Datum::Text(type, filled->text) : Datum::Null(type);
}

void RunPrint(SessionState& session, const tsql::PrintStatement& statement) {
    const Datum value = session.Statements().Evaluate(*statement.value);
    std::string text = value.IsNull() ? std::string() : ToText(value);
    if (text.empty())
        text.push_back(' '); // a message is never empty
    const int longest = value.Type().IsUnicode() ? kLongestUnicode : kLongestText;
    text.resize(FirstCharacters(text, longest).size());
    session.Inform(0, std::move(text));
}

void RunRaiseError(SessionState& session, const tsql::RaiseErrorStatement& statement) {
    const int severity = IntegerOf(session, *statement.severity);
    RequireLog(session, statement, severity);
    const int given = IntegerOf(session, *statement.state);
    SqlError error =
        ErrorOf(session, statement, severity == kOwnSeverity ? severity : std::clamp(severity, 0, 25),
                given < 0 ? 1 : std::min(given, 255));
    RequireLog(session, statement, error.severity);
    error.line = session.Top().line;
    error.procedure = session.Top().name;
    if (error.severity > 10)
        throw RaisedError(std::move(error), ErrorOrigin::RaiseError);
    session.Tell(error);
    session.error = statement.setError ? error.number : 0;
}

void RunThrow(SessionState& session, const tsql::ThrowStatement& statement) {
    if (!statement.number)
        Rethrow(session);
    const int number = IntegerOf(session, *statement.number);
    if (number < kFirstUserNumber)
        throw SqlError(35100, {std::to_string(number)});
    const Datum message = session.Statements().Evaluate(*statement.message);
    const int state = IntegerOf(session, *statement.state);
    std::string text = message.IsNull() ? std::string() : ToText(message);
    text.resize(FirstCharacters(text, 2048).size());
    SqlError error = SqlError::Custom(number, 16, std::clamp(state, 0, 255), std::move(text));
    throw RaisedError(std::move(error), ErrorOrigin::Throw);
}

} // namespace quillon::practice
