// The procedures of the system that tools call: sp_columns, sp_helptext, sp_rename ... Most are written in
// Transact-SQL, as procedures of master, and run like any procedure, but in the caller's current database.
// What Transact-SQL cannot say they do by `EXEC sys.q_name`: a native procedure, which only they may call,
// with arguments by position.
//
// Not here, because only the session can do them: sp_executesql, sp_prepare and its kin, the cursor
// procedures, sp_reset_connection, sp_set_session_context.
#pragma once

#include "practice/storage/StoreSession.h"
#include "practice/values/Datum.h"

#include <span>
#include <string>
#include <string_view>

namespace quillon::practice {

struct SystemProcedure {
    std::string_view name; // lower case
    std::string_view text; // CREATE PROCEDURE sys.name ...
};
// Without regard to case, bare name; nullptr when there is none.
const SystemProcedure* FindSystemProcedure(std::string_view name);
std::span<const SystemProcedure> AllSystemProcedures();

// What a native procedure asks of the session that calls it.
class NativeHost {
  public:
    virtual ~NativeHost() = default;
    virtual StoreSession& Store() = 0;
    virtual DatabaseId CurrentDatabase() = 0;
    virtual SchemaId DefaultSchema() = 0;
    // A message of severity 10 or below.
    virtual void Inform(int messageNumber, std::string text) = 0;
};
// Returns the return status; throws SqlError.
using NativeProcedure = int (*)(NativeHost& host, std::span<const Datum> arguments);
struct Native {
    std::string_view name; // behind `sys.`: q_rename, q_settriggerorder, q_bind ...
    NativeProcedure run;
    bool writes = true;             // it runs inside of a statement that writes
    bool forAdministrators = false; // who changes a database may not
};
// nullptr when there is none.
const Native* FindNativeProcedure(std::string_view name);

} // namespace quillon::practice
