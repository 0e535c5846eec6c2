#include "practice/storage/UserMessages.h"

#include "practice/storage/Sqlite.h"

namespace quillon::practice {

std::optional<UserMessage> FindUserMessage(sqlite3* connection, int number, int language) {
    Prepared find(connection, "SELECT severity, is_event_logged, text FROM main.q_message"
                              " WHERE message_id = ? AND language_id = ?");
    if (!find.Bind(1, number).Bind(2, language).Step())
        return std::nullopt;
    return UserMessage{number, language, static_cast<int>(find.Integer(0)), find.Integer(1) != 0,
                       find.Text(2)};
}

int CountUserMessages(sqlite3* connection, int number) {
    Prepared count(connection, "SELECT count(*) FROM main.q_message WHERE message_id = ?");
    count.Bind(1, number).Step();
    return static_cast<int>(count.Integer(0));
}

void PutUserMessage(sqlite3* connection, const UserMessage& message) {
    Prepared(connection, "INSERT OR REPLACE INTO main.q_message VALUES(?,?,?,?,?)")
        .Bind(1, message.number)
        .Bind(2, message.language)
        .Bind(3, message.severity)
        .Bind(4, static_cast<std::int64_t>(message.logged))
        .Bind(5, std::string_view(message.text))
        .Run();
    Prepared(connection, "UPDATE main.q_message SET severity = ?, is_event_logged = ? WHERE message_id = ?")
        .Bind(1, message.severity)
        .Bind(2, static_cast<std::int64_t>(message.logged))
        .Bind(3, message.number)
        .Run();
}

void EraseUserMessage(sqlite3* connection, int number, int language) {
    Prepared(connection, "DELETE FROM main.q_message WHERE message_id = ? AND language_id = ?")
        .Bind(1, number)
        .Bind(2, language)
        .Run();
}

void EraseUserMessages(sqlite3* connection, int number) {
    Prepared(connection, "DELETE FROM main.q_message WHERE message_id = ?").Bind(1, number).Run();
}

} // namespace quillon::practice
