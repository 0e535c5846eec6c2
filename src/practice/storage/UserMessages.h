// The messages that users add (sp_addmessage), for the whole server. They lie in the data file alone, in
// q_message, and belong to the transaction that changes them as rows do.
#pragma once

#include <optional>
#include <string>

struct sqlite3;

namespace quillon::practice {

struct UserMessage {
    int number = 0;
    int language = 0; // Language::messages
    int severity = 0;
    bool logged = false;
    std::string text;
};

std::optional<UserMessage> FindUserMessage(sqlite3* connection, int number, int language);
// How many languages have the message.
int CountUserMessages(sqlite3* connection, int number);
// Adds it or puts it in the place of the one with its number and language. Severity and log are the same in
// all languages: all versions take them over.
void PutUserMessage(sqlite3* connection, const UserMessage& message);
void EraseUserMessage(sqlite3* connection, int number, int language);
void EraseUserMessages(sqlite3* connection, int number);

} // namespace quillon::practice
