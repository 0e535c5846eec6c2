// The commands that talk to a server: what they print, what they say when something is wrong, and that no
// password shows up anywhere.
#include "Console.h"

#include <filesystem>

#include "practice/support/ServerProcess.h"

namespace quillon::tests {
namespace {

class ServerCommand : public Console {
  protected:
    ServerCommand() { folder.Write("password", process.Password() + "\r\n"); }

    std::string Server() const { return "127.0.0.1," + std::to_string(process.Port()); }
    std::string Ask(const std::string& arguments, const std::string& password = "password") {
        return Run("--server " + Server() + " --user sa --password-file " + password + " " + arguments);
    }
    // All that the run has written into the folder.
    std::string Written() const {
        std::string all;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path()))
            if (entry.is_regular_file() && !entry.path().filename().string().starts_with("password"))
                all += folder.Read(std::filesystem::relative(entry.path(), folder.path()).string());
        return all;
    }

    practice::testing::ServerProcess process{QUILLON_BIN_DIR, {}, {"--sample"}};
};

TEST_F(ServerCommand, ListsDatabasesAndTables) {
    EXPECT_NE(Ask("databases").find("\nSales\n"), std::string::npos);
    EXPECT_EQ(exitCode, 0);
    const std::string tables = Ask("--database Sales tables");
    EXPECT_NE(tables.find("\n    OrderID bigint not null identity primary key\n"), std::string::npos)
        << tables;
    const std::string json = Ask("--database sales tables --json");
    EXPECT_NE(json.find("\"database\": \"Sales\""), std::string::npos) << json;
    EXPECT_NE(json.find("\"declaration\": \"decimal("), std::string::npos);
    EXPECT_EQ(Errors(), "");
}

TEST_F(ServerCommand, ExecutePrintsTheRunLog) {
    folder.Write("s.sql", "\xEF\xBB\xBFPRINT 'begun'\nSELECT 1 a, 'x' b\nSELECT 1/0\nSELECT N'é' c\nGO\n"
                          "SELECT * FROM nowhere\nGO\nUSE master\nGO\nSELECT DB_NAME() d");
    const std::string dashes(61, '-');
    const auto wide = [](const std::string& text, std::size_t characters) {
        return text + std::string(30 - characters, ' ');
    };
    EXPECT_EQ(
        Ask("--database Sales execute s.sql --name First"),
        "Running 'First' script...\n"
        "begun\n" +
            wide("a", 1) + " " + wide("b", 1) + "\n" + dashes + "\n" + wide("1", 1) + " " + wide("x", 1) +
            " \n(1 row(s) affected)\n"
            "Server: Msg 8134\nDivide by zero error encountered.\n" +
            wide("c", 1) + "\n" + std::string(30, '-') + "\n" + wide("é", 1) + " \n(1 row(s) affected)\n" +
            "Server: Msg 208\nInvalid object name 'nowhere'.\n"
            "Server: Msg 5701\nChanged database context to 'master'.\n" +
            wide("d", 1) + "\n" + std::string(30, '-') + "\n" + wide("master", 6) +
            " \n(1 row(s) affected)\n"
            "Server: Msg 5701\nChanged database context to 'Sales'.\n\n");
    EXPECT_EQ(exitCode, 1);
    EXPECT_NE(Errors().find("The server refused 2 batches"), std::string::npos) << Errors();
    EXPECT_TRUE(Ask("--database Sales execute s.sql - < password").empty()); // a word too many
    EXPECT_EQ(exitCode, 2);
}

TEST_F(ServerCommand, ThePasswordMayComeFromTheStandardInput) {
    EXPECT_NE(Ask("databases < password", "-").find("Sales\n"), std::string::npos);
    EXPECT_EQ(exitCode, 0);
    Ask("databases < /dev/null", "-");
    EXPECT_EQ(exitCode, 1);
}

TEST_F(ServerCommand, FailuresAreTold) {
    folder.Write("password.wrong", "wr0ng-secret\n");
    folder.Write("s.sql", "PRINT 1");
    const struct {
        std::string arguments, password;
        const char* told;
    } cases[] = {
        {"databases", "password.wrong", "Login failed for user 'sa'."},
        {"--database Sales execute s.sql", "password.wrong", "Login failed for user 'sa'."},
        {"databases", "password.none", "File not found"},
        {"--database nowhere tables", "password", "The server has no database nowhere"},
        {"tables", "password", "This command needs --database"},
        {"--database Sales execute none.sql", "password", "File not found"},
        {"--database Sales snapshot nowhere/s.json", "password", "Path not found"},
    };
    for (const auto& [arguments, password, told] : cases) {
        EXPECT_EQ(Ask(arguments, password), "") << arguments;
        EXPECT_EQ(exitCode, 1) << arguments;
        EXPECT_TRUE(ErrorsTell(told)) << Errors();
    }
    Run("--server 127.0.0.1,9 --user sa --password-file password databases");
    EXPECT_EQ(exitCode, 1);
    EXPECT_TRUE(ErrorsTell("SQL Server does not exist or access denied.")) << Errors();
}

TEST_F(ServerCommand, NoPasswordIsWrittenAnywhere) {
    folder.Write("password.wrong", "wr0ng-secret\n");
    folder.Write("s.sql", "SELECT * FROM nowhere");
    Ask("--database Sales execute s.sql", "password.wrong");
    std::string seen = Errors();
    Ask("--database Sales execute s.sql");
    seen += Errors();
    Ask("--database Sales snapshot out.json");
    seen += Errors() + Written();
    EXPECT_EQ(seen.find("wr0ng-secret"), std::string::npos) << seen;
    EXPECT_EQ(seen.find(process.Password()), std::string::npos) << seen;
}

} // namespace
} // namespace quillon::tests
