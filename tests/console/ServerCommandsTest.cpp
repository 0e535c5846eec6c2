// The main job at the command line: each command on a practice server, what it prints, how it refuses, and
// what it leaves behind.
#include "Console.h"

#include <csignal>
#include <pty.h>
#include <unistd.h>

#include <nlohmann/json.hpp>

#include "practice/support/ServerProcess.h"

namespace quillon::tests {
namespace {

using Json = nlohmann::json;
using Lines = std::vector<std::string>;

class ServerCommands : public Console {
  protected:
    ServerCommands() { folder.Write("password", server.Password()); }

    std::string Login(const std::string& database = "Sales") const {
        return "--server 127.0.0.1," + std::to_string(server.Port()) +
               " --user sa --password-file password --database " + database + " ";
    }
    std::string On(const std::string& command) { return Run(Login() + command); }
    Json JsonOf(const std::string& command) { return Json::parse(On(command), nullptr, false); }
    bool Exists(const char* file) const { return std::filesystem::exists(folder.path() / file); }
    void WriteProfile(const std::string& text) {
        folder.Write("own.qlnx",
                     "<template><header><name>n</name><scriptlanguage>VBScript</scriptlanguage></header>"
                     "<includes></includes><templatecode><![CDATA[" +
                         text + "]]></templatecode></template>");
    }

    practice::testing::ServerProcess server{QUILLON_BIN_DIR, {}, {"--sample"}};
};

constexpr const char* Country = " --table dbo.Country --operations insert,update,delete";

TEST_F(ServerCommands, ALoginThatFailsSaysWhy) {
    EXPECT_EQ(On("databases"), "master\nmodel\nmsdb\nSales\ntempdb\n");
    EXPECT_EQ(exitCode, 0) << Errors();
    folder.Write("wrong", "no such password\n");
    const std::string address = "--server 127.0.0.1," + std::to_string(server.Port());
    const std::pair<std::string, const char*> cases[] = {
        {"databases", "This command needs --server"},
        {address + " --user sa --password-file password tables", "This command needs --database"},
        {address + " --user sa --password-file wrong databases", "Login failed for user 'sa'"},
        {address + " --user sa --password-file nowhere databases", "Failure 53"},
        {Login("Nowhere") + "tables", "Nowhere"},
    };
    for (const auto& [arguments, reason] : cases) {
        EXPECT_EQ(Run(arguments), "") << arguments;
        EXPECT_EQ(exitCode, 1) << arguments;
        EXPECT_TRUE(ErrorsTell(reason)) << arguments << ": " << Errors();
        EXPECT_FALSE(ErrorsTell("no such password")) << arguments;
    }
}

TEST_F(ServerCommands, InstallsPartsAndAnalyzes) {
    Json flags = JsonOf("analyze --json");
    EXPECT_EQ(exitCode, 1) << "without its procedure the database gives no answer";
    EXPECT_TRUE(ErrorsTell("Could not find stored procedure 'AUDIT_prc_Analyze'")) << Errors();
    EXPECT_EQ(flags["ddl"], false);

    EXPECT_NE(On("install --parts ddl,analyze").find("Running 'Analyze' script..."), std::string::npos);
    EXPECT_EQ(exitCode, 0) << Errors();
    flags = JsonOf("analyze --json");
    EXPECT_EQ(flags["ddl"], true);
    EXPECT_EQ(flags["undo"], false);

    On("install");
    EXPECT_EQ(exitCode, 0) << Errors();
    flags = JsonOf("analyze --json");
    EXPECT_EQ(flags.size(), 9u);
    for (const auto& [name, isThere] : flags.items())
        EXPECT_EQ(isThere, name != "identity") << name << ": server-level objects come by their name alone";

    On("install --parts everything");
    EXPECT_EQ(exitCode, 2);
    On("install --profile nowhere.qlnx");
    EXPECT_EQ(exitCode, 1);
    EXPECT_TRUE(ErrorsTell("File not found: nowhere.qlnx")) << Errors();
}

TEST_F(ServerCommands, AScriptThatTheServerRefusesFailsTheInstallation) {
    const std::string log = On("install --parts views");
    EXPECT_NE(log.find("Invalid object name 'dbo.AUDIT_LOG_TRANSACTIONS'"), std::string::npos) << log;
    EXPECT_EQ(exitCode, 1);
    EXPECT_TRUE(ErrorsTell("The server refused 1 batch")) << Errors();
}

TEST_F(ServerCommands, SelectionsAreStoredAndShown) {
    EXPECT_EQ(On("select show"), "Table  Operations  Columns\n-----  ----------  -------\n");
    On("select save --table country --table dbo.Customer --columns CountryCode,Notes --operations update");
    EXPECT_EQ(exitCode, 0) << Errors();
    const Json shown = JsonOf("select show --json");
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(shown[0], Json::parse(R"({"owner":"dbo","table":"Country","operations":["update"],
                                        "columns":["CountryCode"],"selected":true})"));
    EXPECT_EQ(shown[1]["columns"], Json({"CountryCode"})) << "a column of type ntext refuses its tick";
    EXPECT_EQ(JsonOf("select restore --json"), shown);
    const std::pair<const char*, const char*> cases[] = {
        {"--operations insert", "Which tables? Give --all or --table OWNER.NAME"},
        {"--all", "Which operations? Give --operations"},
        {"--table dbo.Nobody --operations insert", "There is no table dbo.Nobody in Sales"},
        {"--all --columns Nothing --operations insert", "None of the chosen tables has a column Nothing"},
    };
    for (const auto& [options, reason] : cases) {
        On(std::string("select save ") + options);
        EXPECT_EQ(exitCode, 1) << options;
        EXPECT_TRUE(ErrorsTell(reason)) << options << ": " << Errors();
    }
    EXPECT_EQ(JsonOf("select show --json"), shown) << "a refusal loses nothing";
}

TEST_F(ServerCommands, ADryRunTellsWhatWouldBecomeOfEachTrigger) {
    On("install");
    const auto changes = [&](const std::string& options) {
        Lines lines;
        for (const Json& trigger : JsonOf("generate --dry-run --json " + options))
            lines.push_back(trigger["trigger"].get<std::string>() + " " +
                            trigger["change"].get<std::string>());
        return lines;
    };
    const auto all = [](const std::string& change) {
        return Lines{"dbo.AUDIT_Insert_Country " + change, "dbo.AUDIT_Update_Country " + change,
                     "dbo.AUDIT_Delete_Country " + change};
    };
    EXPECT_EQ(changes(Country), all("create"));
    EXPECT_EQ(On("triggers"),
              "Table  Trigger  Operations  State  Created\n-----  -------  ----------  -----  -------\n")
        << "a dry run changes nothing";
    On(std::string("generate --execute") + Country);
    EXPECT_EQ(exitCode, 0) << Errors();
    EXPECT_EQ(JsonOf("triggers --json").size(), 3u);
    EXPECT_EQ(changes(Country), all("up to date"));
    EXPECT_EQ(changes(" --table dbo.Country --columns Currency --operations insert,update,delete"),
              all("replace"));
    EXPECT_EQ(changes(" --table dbo.Country --operations insert"),
              (Lines{"dbo.AUDIT_Insert_Country up to date", "dbo.AUDIT_Update_Country drop",
                     "dbo.AUDIT_Delete_Country drop"}));
}

TEST_F(ServerCommands, AScriptGoesWhereItWasAskedFor) {
    EXPECT_EQ(On(std::string("generate --output out.sql") + Country), "");
    EXPECT_EQ(exitCode, 0) << Errors();
    EXPECT_EQ(Errors(), "") << "no progress outside a terminal";
    EXPECT_EQ(On(std::string("generate") + Country), folder.Read("out.sql"));
    EXPECT_NE(folder.Read("out.sql").find("CREATE TRIGGER [dbo].[AUDIT_Insert_Country]"), std::string::npos);
}

TEST_F(ServerCommands, WhatCannotBeGeneratedIsRefusedAndWritesNothing) {
    WriteProfile("{% x = 1 / 0 %}");
    const std::pair<std::string, const char*> cases[] = {
        {"--output out.sql", "At least one field must be selected for Auditing"},
        {"--output out.sql --profile own.qlnx" + std::string(Country), "Division by zero"},
        {"--output nowhere/out.sql" + std::string(Country), "Failure 76"},
        {"--execute" + std::string(Country), "The server refused 1 batch"}, // nothing is installed
    };
    for (const auto& [options, reason] : cases) {
        On("generate " + options);
        EXPECT_EQ(exitCode, 1) << options;
        EXPECT_TRUE(ErrorsTell(reason)) << options << ": " << Errors();
        EXPECT_FALSE(Exists("out.sql")) << options;
    }
    EXPECT_EQ(On("triggers --json"), "[]\n");
    for (const char* unclear :
         {"--execute --output out.sql", "--execute --dry-run", "--json", "--all --table dbo.Country"}) {
        On(std::string("generate ") + unclear);
        EXPECT_EQ(exitCode, 2) << unclear;
    }
}

TEST_F(ServerCommands, ExecutePrintsWhatTheServerSays) {
    folder.Write("s.sql", "PRINT 'one'\nGO\nSELECT * FROM nowhere\nGO\nPRINT 'three'\nGO\n");
    const std::string log = On("execute s.sql --name Mine");
    EXPECT_EQ(exitCode, 1);
    EXPECT_TRUE(ErrorsTell("The server refused 1 batch")) << Errors();
    EXPECT_TRUE(log.starts_with("Running 'Mine' script...\n")) << log;
    EXPECT_LT(log.find("one"), log.find("Server: Msg 208\nInvalid object name 'nowhere'."));
    EXPECT_LT(log.find("Server: Msg 208"), log.find("three"));
    On("execute nowhere.sql");
    EXPECT_EQ(exitCode, 1);
    EXPECT_TRUE(ErrorsTell("Failure 53")) << Errors();
}

// The program at a terminal: what it shows there, and what becomes of Ctrl+C, typed when `text` appears.
class AtATerminal : public ServerCommands {
  protected:
    std::string RunUntil(const std::string& arguments, const std::string& text) {
        int terminal = -1;
        const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
        if (child == 0) {
            const std::string command = "cd '" + folder.path().string() +
                                        "' && exec env HOME=. QUILLON_HOME=$PWD/app '" +
                                        QUILLON_BIN_DIR "/quillon-console' " + arguments;
            execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
            _exit(127);
        }
        std::string shown;
        bool isTyped = text.empty();
        char buffer[512];
        for (ssize_t count; (count = read(terminal, buffer, sizeof buffer)) > 0;) {
            shown.append(buffer, static_cast<std::size_t>(count));
            if (!isTyped && shown.find(text) != std::string::npos)
                isTyped = write(terminal, "\x03", 1) == 1;
        }
        int status = 0;
        waitpid(child, &status, 0);
        close(terminal);
        exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return shown;
    }
};

TEST_F(AtATerminal, ProgressIsShownAndTakenBack) {
    const std::string shown = RunUntil(Login() + "generate --output out.sql" + Country, "");
    EXPECT_EQ(exitCode, 0) << shown;
    EXPECT_NE(shown.find("Creating Trigger(s) for dbo.Country"), std::string::npos) << shown;
    EXPECT_TRUE(shown.ends_with("\r\x1b[K")) << shown;
}

TEST_F(AtATerminal, ControlCStopsBetweenTablesAndHandsNothingOn) {
    WriteProfile(
        "{% For i = 1 To 30000 : Next %}-- {% objAudit.Print objAudit.Database.ActiveTable.Name %}\nGO\n");
    const std::string shown =
        RunUntil(Login() + "generate --profile own.qlnx --all --operations insert --output out.sql",
                 "Creating Trigger(s) for");
    EXPECT_EQ(exitCode, 1) << shown;
    EXPECT_NE(shown.find("The run has handed no script on"), std::string::npos) << shown;
    EXPECT_FALSE(Exists("out.sql"));
    EXPECT_TRUE(folder.Read("app/triggers.sql").starts_with("-- "))
        << "what was made so far stays in the session's file";
}

} // namespace
} // namespace quillon::tests
