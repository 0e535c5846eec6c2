// The system views that tools read: sysobjects, sys.tables, INFORMATION_SCHEMA and their kin, as SELECTs over
// the definition tables. What is not in the data file (logins, sessions) comes through two SQL functions that
// each connection must have.
#pragma once

#include "practice/statements/SystemViews.h"
#include "practice/storage/Locks.h"
#include "practice/values/Convert.h"

#include <functional>
#include <string>
#include <vector>

struct sqlite3;

namespace quillon::practice {

const SystemViews& CatalogueViews();
std::vector<const SystemView*> AllCatalogueViews();

struct LoginRow {
    std::string name;
    int principalId = 0;
    std::string sid; // bytes
    std::string defaultDatabase, defaultLanguage;
    bool disabled = false, administrator = false;
    Moment created, modified;
};

// What a session has set.
struct SessionSettings {
    int options = 0; // the bits of @@OPTIONS
    int textSize = 0;
    int dateFirst = 7;
    DateOrder dateOrder = DateOrder::Mdy;
    bool british = false;
    int isolation = 2; // 1 READ UNCOMMITTED to 5 SNAPSHOT
    int lockTimeout = -1;
    int deadlockPriority = 0;
    bool operator==(const SessionSettings&) const = default;
};

struct SessionRow {
    int sessionId = 0;
    std::string login, hostName, programName, status, database;
    int hostProcessId = 0;
    Moment loginTime;
    int openTransactions = 0;
    int blockedBy = 0; // the session it waits for
    SessionSettings settings;
};

// What the views need and only the server knows. Called on the thread that runs the query.
struct CatalogueSources {
    std::function<std::vector<LoginRow>()> logins;
    std::function<std::vector<SessionRow>()> sessions;
    std::function<std::vector<LockRow>()> locks;
    std::string serverName;
};
// To be done on every connection before a system view is read; `sources` must outlive the connection.
void RegisterCatalogueSources(sqlite3* connection, const CatalogueSources& sources);

} // namespace quillon::practice
