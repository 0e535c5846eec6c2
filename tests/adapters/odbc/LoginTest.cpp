// Names and passwords of every kind reach a running server whole, by either road: the catalogue's parts and
// the connection strings of the system, which quote nothing.
#include <gtest/gtest.h>

#include "adapters/odbc/ConnectionText.h"
#include "adapters/odbc/Link.h"
#include "adapters/odbc/OdbcDataAccess.h"
#include "adapters/odbc/WideText.h"
#include "platform/Object.h"
#include "practice/support/ServerProcess.h"

namespace quillon::tests {
namespace {

std::string Doubled(const std::string& text, char mark) {
    std::string doubled;
    for (const char c : text)
        doubled.append(c == mark ? 2 : 1, c);
    return doubled;
}

class LoginTest : public testing::Test {
  protected:
    LoginTest() { administrator->Open(Text("sa", process.Password(), "master")); }

    std::string Server() const { return "127.0.0.1," + std::to_string(process.Port()); }
    std::string Text(const std::string& user, const std::string& password,
                     const std::string& database) const {
        return "Driver={SQL Server};Server=" + Server() + ";Database=" + database + ";Uid=" + user +
               ";Pwd=" + password + ";";
    }
    void Run(const std::string& statement) {
        const auto command = access.NewCommand();
        command->SetActiveConnection(administrator);
        command->SetCommandText(statement);
        command->Execute();
    }
    std::string DatabaseOf(const std::string& connectionString) {
        const auto connection = access.NewConnection();
        connection->Open(connectionString);
        return connection->DefaultDatabase();
    }

    practice::testing::ServerProcess process{QUILLON_BIN_DIR};
    adapters::OdbcDataAccess access;
    data::ConnectionRef administrator = access.NewConnection();
};

TEST_F(LoginTest, PasswordsOfEveryKind) {
    int number = 0;
    for (const std::string password : {"a;b", ";", "{", "}", "{}", "{ab}", "a}}b", "a;b}", "a=b;c", " ab ",
                                       "a'\"b", "é€家😀", "a%b#", "Pwd=x;Server=elsewhere"}) {
        SCOPED_TRACE(password);
        const std::string user = "user" + std::to_string(++number);
        Run("CREATE LOGIN " + user + " WITH PASSWORD = N'" + Doubled(password, '\'') +
            "', CHECK_POLICY = OFF");
        EXPECT_NO_THROW(DatabaseOf(Text(user, password, "master")));
        const adapters::ConnectionParts parts{Server(), "", user, password, false};
        EXPECT_NO_THROW(adapters::Link(parts.DriverText(), 15, std::make_shared<std::vector<data::Error>>()));
    }
}

TEST_F(LoginTest, NamesOfEveryKind) {
    std::string longest;
    for (int index = 0; index < 32; ++index)
        longest += "é家x]";
    for (const std::string& name :
         {longest, std::string("a;b}c"), std::string("{x}"), std::string("Дом 'q' \"")}) {
        SCOPED_TRACE(name);
        const std::string quoted = "[" + Doubled(name, ']') + "]";
        Run("CREATE DATABASE " + quoted);
        Run("CREATE LOGIN " + quoted + " WITH PASSWORD = N'x', CHECK_POLICY = OFF");
        EXPECT_EQ(DatabaseOf(Text("sa", process.Password(), name)), name);
        EXPECT_NO_THROW(DatabaseOf(Text(name, "x", "master")));
    }
}

TEST(WideTextTest, WhatIsNoTextIsReplaced) {
    const auto there = [](std::string_view text) {
        return adapters::PlainText(adapters::WideText(text).data());
    };
    EXPECT_EQ(there("aé家😀"), "aé家😀");
    for (const char* broken : {"\xFF", "\xC3", "\xE5\xAE", "\xED\xA0\x80", "\xF4\x90\x80\x80"})
        EXPECT_EQ(there(broken), "\xEF\xBF\xBD") << broken;
}

} // namespace
} // namespace quillon::tests
