// The main job on a database of 2,000 ticked tables: where the time goes, what the memory does, how soon a
// stop is heeded. The command line is measured as it is delivered, against the practice server.
//
// The parts are told by difference, since each command does what the former does and one thing more: log in
// and load the model; run the template for every table; send the script and load the new triggers.
#include "practice/support/OdbcClient.h"
#include "practice/support/ServerProcess.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <functional>
#include <stdexcept>

namespace quillon::bench {
namespace {

using practice::testing::OdbcClient;
using practice::testing::ServerProcess;
using Clock = std::chrono::steady_clock;

constexpr int TableCount = 2000;

double Since(Clock::time_point begin) {
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

struct Usage {
    double seconds = 0;
    long peakKilobytes = 0;
    int exitCode = 0;
};

class Console {
  public:
    Console(const ServerProcess& server, std::filesystem::path bin)
        : m_program((bin / "quillon-console").string())
        , m_login{"--server",        "127.0.0.1," + std::to_string(server.Port()), "--user",     "sa",
                  "--password-file", (m_home.Path() / "password").string(),        "--database", "Sales"} {
        std::ofstream(m_home.Path() / "password") << server.Password();
    }

    Usage Run(const std::vector<std::string>& command,
              const std::function<void(pid_t)>& meanwhile = {}) const {
        const auto begin = Clock::now();
        const pid_t child = fork();
        if (child == 0)
            Become(command);
        if (meanwhile)
            meanwhile(child);
        int status = 0;
        rusage used{};
        wait4(child, &status, 0, &used);
        return {Since(begin), used.ru_maxrss, WIFEXITED(status) ? WEXITSTATUS(status) : -1};
    }

    std::filesystem::path Script() const { return m_home.Path() / "triggers.sql"; }

  private:
    [[noreturn]] void Become(const std::vector<std::string>& command) const {
        setenv("QUILLON_HOME", m_home.Path().c_str(), 1);
        setenv("XDG_CONFIG_HOME", m_home.Path().c_str(), 1);
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDOUT_FILENO);
        std::vector<char*> arguments{const_cast<char*>(m_program.c_str())};
        for (const auto* part : {&m_login, &command})
            for (const std::string& argument : *part)
                arguments.push_back(const_cast<char*>(argument.c_str()));
        arguments.push_back(nullptr);
        execv(m_program.c_str(), arguments.data());
        _exit(127);
    }

    practice::testing::TemporaryFolder m_home;
    std::string m_program;
    std::vector<std::string> m_login;
};

Usage Expect(const char* what, const Usage& usage) {
    if (usage.exitCode != 0)
        throw std::runtime_error(std::string(what) + " failed with " + std::to_string(usage.exitCode));
    return usage;
}

std::vector<std::string> Generate(const std::vector<std::string>& end) {
    std::vector<std::string> command{"generate", "--all", "--operations", "insert,update,delete"};
    command.insert(command.end(), end.begin(), end.end());
    return command;
}

void Print(const char* what, double seconds, long kilobytes) {
    std::printf("%-34s %8.2f s %8.2f ms a table %8ld kB at most\n", what, seconds,
                seconds * 1000 / TableCount, kilobytes);
}

long SizeOf(const std::filesystem::path& file) {
    std::error_code none;
    const auto size = std::filesystem::file_size(file, none);
    return none ? 0 : static_cast<long>(size);
}

// Asks the run to stop once it has made some tables, and tells for how many more it went on.
void MeasureStop(const Console& console, long bytesOfATable) {
    double heeded = 0;
    long after = 0;
    const Usage usage = console.Run(Generate({"--output", "/dev/null"}), [&](pid_t child) {
        while (SizeOf(console.Script()) < bytesOfATable * 20 ||
               SizeOf(console.Script()) > bytesOfATable * TableCount / 2)
            usleep(500);
        const long before = SizeOf(console.Script());
        const auto asked = Clock::now();
        kill(child, SIGINT);
        siginfo_t ended{};
        waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOWAIT);
        heeded = Since(asked);
        after = (SizeOf(console.Script()) - before + bytesOfATable / 2) / bytesOfATable;
    });
    std::printf("%-34s %8.2f ms until the process had ended, %ld table(s) later, exit code %d\n",
                "a stop in the middle", heeded * 1000, after, usage.exitCode);
}

int Main() {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const std::filesystem::path bin = std::filesystem::canonical("/proc/self/exe").parent_path();
    const ServerProcess server(bin, {}, {"--sample"});
    OdbcClient client(server.Port(), "7.4", server.Password());
    client.Run("USE Sales SET NOCOUNT ON DECLARE @n int, @s nvarchar(1000) SET @n = 1 WHILE @n <= " +
               std::to_string(TableCount) +
               " BEGIN SET @s = N'CREATE TABLE dbo.Many' + CONVERT(nvarchar(9), @n) + N' (ID int NOT NULL "
               "PRIMARY KEY, A int, "
               "B nvarchar(40), C datetime, D money, E varchar(20), F bit, G decimal(9, 2), H float, I "
               "nvarchar(max))' "
               "EXEC (@s) SET @n = @n + 1 END");
    const Console console(server, bin);
    Expect("install", console.Run({"install"}));
    const Usage load = Expect("analyze", console.Run({"analyze"}));
    Print("log in, load the model", load.seconds, load.peakKilobytes);
    const Usage generate = Expect("generate --output", console.Run(Generate({"--output", "/dev/null"})));
    Print("run the template", generate.seconds - load.seconds, generate.peakKilobytes);
    const long bytesOfATable = SizeOf(console.Script()) / TableCount;
    MeasureStop(console, bytesOfATable);
    const Usage execute = Expect("generate --execute", console.Run(Generate({"--execute"})));
    Print("execute, load the new triggers", execute.seconds - generate.seconds, execute.peakKilobytes);
    const Usage again = Expect("generate --execute", console.Run(Generate({"--execute"})));
    Print("the whole run over its triggers", again.seconds, again.peakKilobytes);
    return 0;
}

} // namespace
} // namespace quillon::bench

int main() {
    return quillon::bench::Main();
}
