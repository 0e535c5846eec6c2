// The connection strings of the system, as the driver gets them.
#include "adapters/odbc/ConnectionText.h"
#include "adapters/odbc/OldStatements.h"

#include <gtest/gtest.h>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::tests {
namespace {

using adapters::ConnectionParts;

TEST(ConnectionTextTest, ReadsEveryForm) {
    const struct {
        const char* what;
        const char* text;
        ConnectionParts parts; // server, database, user, password, integrated
    } cases[] = {
        {"provider",
         "Provider=sqloledb;Data Source=S;Initial Catalog=db;User ID=ann;Password=pw;",
         {"S", "db", "ann", "pw", false}},
        {"provider, integrated",
         "Provider=sqloledb;Data Source=S;Initial Catalog=db;;Integrated Security=SSPI;",
         {"S", "db", "", "", true}},
        {"driver",
         "Driver={SQL Server};Server=S;Database=db;Uid=ann;Pwd=pw;",
         {"S", "db", "ann", "pw", false}},
        {"driver without a user",
         "Driver={SQL Server};Server=S;Database=db;Uid=;Pwd=;",
         {"S", "db", "", "", true}},
        {"a password behind an empty one", "Server=S;Uid=ann;Pwd=;secret", {"S", "", "ann", "secret", false}},
        {"signs in the password",
         "Server=S;Uid=ann;Pwd=a=b;{c};;Server=T;",
         {"S", "", "ann", "a=b;{c};;Server=T", false}},
        {"signs behind an empty password", "Server=S;Uid=ann;Pwd=;a=b;c", {"S", "", "ann", "a=b;c", false}},
        {"semicolons in names",
         "Server=S;Initial Catalog=a;b;;Uid=x;y;Pwd=pw",
         {"S", "a;b", "x;y", "pw", false}},
        {"unknown elements",
         "stray;Server=S;Connect Timeout=5;stray;Uid=ann;Pwd=",
         {"S", "", "ann", "", false}},
        {"any case, blanks", " SERVER = S ;UID=ann;pwd= p w ;", {"S", "", "ann", " p w ", false}},
        {"not trusted", "Server=S;Trusted_Connection=no;Uid=ann;Pwd=", {"S", "", "ann", "", false}},
        {"a password that is left over", "Server=S;Uid=;Pwd=old;", {"S", "", "", "old", true}},
        {"nothing", "", {"", "", "", "", true}},
        {"separators alone", ";;=;;", {"", "", "", "", true}},
    };
    for (const auto& [what, text, expected] : cases) {
        const auto parts = ConnectionParts::Read(text);
        EXPECT_EQ(parts.server, expected.server) << what;
        EXPECT_EQ(parts.database, expected.database) << what;
        EXPECT_EQ(parts.user, expected.user) << what;
        EXPECT_EQ(parts.password, expected.password) << what;
        EXPECT_EQ(parts.integrated, expected.integrated) << what;
    }
}

TEST(ConnectionTextTest, TheDriverGetsHostPortAndQuotedValues) {
    const struct {
        ConnectionParts parts;
        const char* part;
    } cases[] = {
        {{"host,1500", "", "a", "b", false}, "Server=host;Port=1500"},
        {{" host , 1500 ", "", "a", "b", false}, "Server=host;Port=1500"},
        {{"host\\inst", "", "a", "b", false}, "Server=host\\inst"},
        {{".", "", "a", "b", false}, "Server=localhost"},
        {{"(LOCAL)", "", "a", "b", false}, "Server=localhost"},
        {{"h", "my db", "a", "b", false}, "Database=my db"},
        {{"tcp:h,1500", "", "a", "b", false}, "Server=h;Port=1500"},
        {{"h,1;UID=eve", "", "a", "b", false}, ";Port={1;UID=eve};"},
        {{"h", "", "a", "p}w{d}", false}, ";PWD=p}w{d};"},
        {{"h", "", "a", "p;w}d", false}, ";PWD={p;w}d};"},
        {{"h", "", "a", "{p", false}, ";PWD={{p};"},
        {{"h", "", "a", " p ", false}, ";PWD={ p };"},
        {{"h", "", "", "", true}, "Trusted_Connection=Yes;"},
    };
    for (const auto& [parts, part] : cases)
        EXPECT_NE(parts.DriverText().find(part), std::string::npos)
            << parts.DriverText() << " has no " << part;
}

TEST(ConnectionTextTest, WhatTheDriverCannotBeGivenIsRefusedWithoutTellingIt) {
    try {
        ConnectionParts{"h", "", "a", "secret};x", false}.DriverText();
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number(), numbers::InvalidCall);
        EXPECT_EQ(failure.description().find("secret"), std::string::npos);
    }
}

TEST(OldStatementsTest, ListedStatementsAreSentToModernServersInTheirForm) {
    const std::string users = "SELECT name, uid FROM sysusers WHERE status = 2";
    EXPECT_EQ(adapters::ForServer(users, "08.00.2039"), users);
    for (const std::string& text : {users, " " + users + "\r\n"})
        EXPECT_NE(adapters::ForServer(text, "16.00.1000").find("hasdbaccess = 1"), std::string::npos) << text;
    const std::string other = users + " ORDER BY name";
    EXPECT_EQ(adapters::ForServer(other, "16.00.1000"), other);
}

} // namespace
} // namespace quillon::tests
