// The program as a person starts it.
#include "practice/support/CommandOutput.h"
#include "practice/support/OdbcClient.h"
#include "practice/support/ServerProcess.h"

#include <csignal>
#include <fstream>
#include <iomanip>
#include <sstream>

namespace quillon::practice {
namespace {

using namespace quillon::practice::testing;
using Answers = std::vector<std::string>;

const std::filesystem::path binFolder = QUILLON_BIN_DIR;

OdbcClient Connect(const ServerProcess& server) {
    return OdbcClient(server.Port(), "7.4", server.Password());
}

// What the program says when it does not come to serve.
std::string Say(const std::string& options) {
    return OutputOf("timeout 20 " + (binFolder / "quillon-practice").string() + " --port 0 " + options +
                    " 2>&1");
}

TEST(Program, EndsCleanlyOnEitherSignalWhateverRuns) {
    for (int signal : {SIGTERM, SIGINT}) {
        ServerProcess server(binFolder);
        OdbcClient client = Connect(server);
        EXPECT_EQ(client.Run("SELECT 1"), Answers{"row 1"});
        EXPECT_EQ(server.End(signal), 0);
    }
}

TEST(Program, ListensOnTheLoopbackOnly) {
    ServerProcess server(binFolder);
    std::ifstream table("/proc/net/tcp");
    std::ostringstream port;
    port << ':' << std::uppercase << std::hex << std::setw(4) << std::setfill('0') << server.Port();
    std::string line;
    int listeners = 0;
    while (std::getline(table, line)) {
        std::size_t at = line.find(port.str() + " 00000000:0000 0A");
        if (at != std::string::npos) {
            ++listeners;
            EXPECT_EQ(line.substr(at - 8, 8), "0100007F");
        }
    }
    EXPECT_EQ(listeners, 1);
}

TEST(Program, KeepsWhatWasCommittedWhenItIsKilled) {
    TemporaryFolder data;
    {
        ServerProcess server(binFolder, data.Path());
        OdbcClient client = Connect(server);
        EXPECT_EQ(client.Run("CREATE TABLE kept (id int PRIMARY KEY, name nvarchar(20))"), Answers{});
        EXPECT_EQ(client.Run("INSERT kept VALUES (1, N'Zoë'), (2, N'家')"), Answers{"count 2"});
        client.Run("BEGIN TRANSACTION INSERT kept VALUES (3, N'lost')");
        EXPECT_EQ(server.End(SIGKILL), -SIGKILL);
    }
    ServerProcess server(binFolder, data.Path());
    OdbcClient client = Connect(server);
    EXPECT_EQ(client.Run("SELECT id, name FROM kept ORDER BY id"), (Answers{"row 1|Zoë", "row 2|家"}));
}

TEST(Program, StartsWithAnEmptyTempdbAndItsStartupProcedures) {
    TemporaryFolder data;
    {
        ServerProcess server(binFolder, data.Path());
        OdbcClient client = Connect(server);
        client.Run("CREATE TABLE tempdb.dbo.old (a int) CREATE TABLE begun (a int)");
        client.Run("CREATE PROCEDURE begin_it AS INSERT begun VALUES (1)");
        EXPECT_EQ(client.Run("EXEC sp_procoption 'begin_it', 'startup', 'on'"), Answers{});
    }
    ServerProcess server(binFolder, data.Path());
    OdbcClient client = Connect(server);
    EXPECT_EQ(client.Run("SELECT a, OBJECT_ID('tempdb.dbo.old') FROM begun"), Answers{"row 1|-"});
}

TEST(Program, RefusesADataFolderThatAnotherServerUses) {
    TemporaryFolder data;
    ServerProcess server(binFolder, data.Path());
    std::string said = Say("--data " + data.Path().string());
    EXPECT_NE(said.find("another server uses " + data.Path().string()), std::string::npos) << said;
}

TEST(Program, RefusesAPasswordFileThatOthersMayReadOrThatIsEmpty) {
    TemporaryFolder folder;
    const std::filesystem::path file = folder.Path() / "password";
    std::ofstream(file) << "open secret\n";
    std::filesystem::permissions(file, std::filesystem::perms(0644));
    std::string said = Say("--ephemeral --password-file " + file.string());
    EXPECT_NE(said.find("others than its user may use it"), std::string::npos) << said;
    std::ofstream(file) << "\n";
    std::filesystem::permissions(file, std::filesystem::perms(0600));
    said = Say("--ephemeral --password-file " + file.string());
    EXPECT_NE(said.find("is empty"), std::string::npos) << said;
}

TEST(Program, LoginsMadeByOneClientLetOthersIn) {
    ServerProcess server(binFolder);
    OdbcClient administrator = Connect(server);
    EXPECT_EQ(administrator.Run("CREATE LOGIN ann WITH PASSWORD = 'First-1st'"), Answers{});
    OdbcClient ann(server.Port(), "7.4", "First-1st", "ann");
    EXPECT_EQ(ann.Run("SELECT SUSER_SNAME()"), Answers{"row ann"});
    EXPECT_EQ(administrator.Run("ALTER LOGIN ann DISABLE"), Answers{});
    EXPECT_THROW(OdbcClient(server.Port(), "7.4", "First-1st", "ann"), std::runtime_error);
}

} // namespace
} // namespace quillon::practice
