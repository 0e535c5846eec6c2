// The answers to the functions about definitions: OBJECT_ID, OBJECTPROPERTY, COL_LENGTH, IDENT_CURRENT,
// DB_NAME, SERVERPROPERTY and so on. The session's FunctionContext::AskCatalogue passes them on to here.
#pragma once

#include "practice/storage/StoreSession.h"
#include "practice/values/Datum.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillon::practice {

struct MetadataSurroundings {
    StoreSession& store;
    DatabaseId database = masterDatabase; // the current one
    SchemaId defaultSchema = dboSchema;
    PrincipalId user = dboPrincipal; // in the current database
    std::string login;               // of the session
    bool administrator = true;       // member of sysadmin
    std::string serverName;
    // The session's user in a database; nothing where it may not enter. Left out: `user` in every one.
    std::function<std::optional<PrincipalId>(const Database&)> userIn = nullptr;
};

// `function` is upper case. Nothing for the functions that only the session itself can answer: ROWCOUNT_BIG,
// COLUMNS_UPDATED, TRIGGER_NESTLEVEL with arguments, SESSIONPROPERTY, CONNECTIONPROPERTY,
// CURRENT_TRANSACTION_ID, HOST_ID, GETANSINULL. Null where the documentation says NULL: unknown objects,
// unknown properties.
std::optional<Datum> AnswerMetadata(std::string_view function, std::span<const Datum> arguments,
                                    const MetadataSurroundings& surroundings);

// @@VERSION, and SERVERPROPERTY('ProductVersion').
std::string_view ServerVersionText();
std::string_view ProductVersion();

} // namespace quillon::practice
