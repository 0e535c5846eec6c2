// FunctionContext: what built-in functions ask of the session and the catalogue. The session implements it;
// tests have a small one of their own. Every call is made on the session's own thread.
#pragma once

#include "practice/values/Convert.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillon::practice {

// What ERROR_NUMBER() and its kin answer inside a CATCH block.
struct CaughtError {
    int number = 0, severity = 0, state = 0, line = 0;
    std::string procedure; // empty: NULL
    std::string text;
};

class FunctionContext {
  public:
    virtual ~FunctionContext() = default;

    // Clock: one instant per statement, UTC, and the offset of the server's zone from it.
    virtual Moment UtcNow() = 0;
    virtual int ZoneOffsetMinutes() = 0;
    virtual ConvertOptions Options() = 0;
    virtual int DateFirst() = 0; // 1 Monday .. 7 Sunday (the default)

    // The session
    virtual int SessionId() = 0;
    virtual std::string HostName() = 0;
    virtual std::string ApplicationName() = 0;
    virtual std::string LoginName() = 0;
    // Who logged in, whoever is impersonated now.
    virtual std::string OriginalLogin() = 0;
    virtual std::string UserName() = 0; // in the current database
    virtual std::string DatabaseName() = 0;
    virtual std::string ServerName() = 0;
    virtual const CaughtError* Caught() = 0; // nullptr outside CATCH
    virtual std::string ContextInfo() = 0;   // 128 bytes or empty
    virtual Datum SessionContext(std::string_view key) = 0;
    virtual int TransactionState() = 0; // XACT_STATE(): 1, 0, -1
    virtual Datum ScopeIdentity() = 0;  // numeric(38, 0) or null
    virtual int TriggerNestLevel() = 0;
    virtual int CursorStatus(std::string_view scope, std::string_view name) = 0; // CURSOR_STATUS
    virtual Datum IsColumnUpdated(int columnId) = 0; // UPDATE(column) by 1-based number

    // Whatever is asked by name about the catalogue: OBJECT_ID, OBJECTPROPERTY, COL_LENGTH, IDENT_CURRENT,
    // DB_ID, TYPE_ID, SUSER_ID, HAS_PERMS_BY_NAME, SERVERPROPERTY, ... `function` is upper case; arguments
    // are as given. Returns the value of the type that the table in FunctionTable gives the function.
    virtual Datum AskCatalogue(std::string_view function, const Datum* arguments, int count) = 0;

    // Source of chance: RAND() without seed, NEWID. RAND(seed) seeds it.
    virtual double NextRandom() = 0;
    virtual void SeedRandom(int seed) = 0;
};

} // namespace quillon::practice
