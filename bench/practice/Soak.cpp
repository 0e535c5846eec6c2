// soak_practice: clients that write, read, roll back, cancel and are killed at random, and, where asked for,
// the server as well. Afterwards every promised row is there, no other is, locks are free, and the server's
// memory has not grown.
#include "bench/practice/SoakClient.h"
#include "practice/support/OdbcClient.h"
#include "practice/support/ServerProcess.h"

#include <CLI/CLI.hpp>

#include <csignal>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <random>
#include <thread>

namespace quillon::practice::bench {
namespace {

constexpr int mostClients = 100000; // that come one after the other

class Soak {
  public:
    Soak(const std::filesystem::path& binFolder, int clients)
        : m_server(binFolder, m_folder.Path())
        , m_processes(static_cast<std::size_t>(clients)) {
        void* memory = mmap(nullptr, sizeof(Promise) * mostClients, PROT_READ | PROT_WRITE,
                            MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        m_promises = static_cast<Promise*>(memory);
        testing::OdbcClient(m_server.Port(), "7.4", m_server.Password()).Run(soakTables);
    }

    // `lives` is how long the server lives before it is killed; zero for ever.
    bool Run(std::chrono::seconds length, std::chrono::seconds lives) {
        const auto start = std::chrono::steady_clock::now();
        for (pid_t& process : m_processes) {
            process = StartClient();
        }
        long early = 0;
        long late = 0;
        auto born = start;
        while (std::chrono::steady_clock::now() - start < length) {
            std::this_thread::sleep_for(std::chrono::milliseconds(m_random() % 400));
            pid_t& victim = m_processes[m_random() % m_processes.size()];
            EndClient(victim);
            victim = StartClient();
            if (lives.count() > 0 && std::chrono::steady_clock::now() - born > lives) {
                m_server.KillAndRestart();
                ++m_kills;
                born = std::chrono::steady_clock::now();
            }
            long now = m_server.ResidentKilobytes();
            (std::chrono::steady_clock::now() - start < length / 3 ? early : late) = now;
        }
        for (pid_t process : m_processes) {
            EndClient(process);
        }
        std::printf(
            "%d clients came and went, %d servers were killed; resident after a third %ld KB, at the end "
            "%ld KB\n",
            m_started, m_kills, early, late);
        return Check() && CheckMemory(early, late);
    }

  private:
    pid_t StartClient() {
        const int number = m_started++;
        pid_t process = fork();
        if (process == 0) {
            RunSoakClient(m_server.Port(), m_server.Password(), number, m_promises[number]);
        }
        return process;
    }

    static void EndClient(pid_t process) {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }

    // The sessions of killed clients end by themselves; the lock time-out says how long that may take.
    bool Check() {
        testing::OdbcClient client(m_server.Port(), "7.4", m_server.Password());
        std::vector<std::string> freed =
            client.Run("SET LOCK_TIMEOUT 10000 UPDATE total SET rowsWritten = rowsWritten WHERE id = 1");
        if (freed != std::vector<std::string>{"count 1"}) {
            std::printf("locks are still held: %s\n", freed.empty() ? "" : freed[0].c_str());
            return false;
        }
        bool right = client.Run("SELECT (SELECT COUNT(*) FROM soak) - rowsWritten FROM total") ==
                     std::vector<std::string>{"row 0"};
        std::printf("%s\n", right ? "rows and their total agree" : "rows and their total DISAGREE");
        for (int number = 0; number < m_started; ++number) {
            right = CheckClient(client, number) && right;
        }
        return right;
    }

    bool CheckClient(testing::OdbcClient& client, int number) {
        const Promise& promise = m_promises[number];
        std::vector<std::string> answer = client.Run(
            "SELECT COUNT(*), ISNULL(MAX(number), 0) FROM soak WHERE client = " + std::to_string(number));
        auto rows = [](std::int64_t count) {
            return "row " + std::to_string(count) + "|" + std::to_string(count);
        };
        m_promised += promise.promised;
        bool right =
            promise.failures == 0 && answer.size() == 1 &&
            (answer[0] == rows(promise.promised) || answer[0] == rows(promise.promised + promise.pending));
        if (!right) {
            std::printf("client %d: promised %ld, pending %ld, failures %ld, found %s\n", number,
                        static_cast<long>(promise.promised), static_cast<long>(promise.pending),
                        static_cast<long>(promise.failures), answer.empty() ? "nothing" : answer[0].c_str());
        }
        return right;
    }

    bool CheckMemory(long early, long late) {
        std::printf("%ld rows promised\n", static_cast<long>(m_promised));
        constexpr long allowance = 32 * 1024; // caches fill
        bool flat = late - early < allowance;
        std::printf("%s\n", flat ? "memory is flat" : "memory GROWS");
        return flat && m_server.End(SIGTERM) == 0;
    }

    testing::TemporaryFolder m_folder;
    testing::ServerProcess m_server;
    std::vector<pid_t> m_processes;
    Promise* m_promises = nullptr;
    int m_started = 0;
    int m_kills = 0;
    std::int64_t m_promised = 0;
    std::mt19937 m_random{42};
};

int Main(int argumentCount, char** arguments) {
    int seconds = 300;
    int clients = 8;
    int lives = 0;
    CLI::App program("Lets clients write, read, cancel and die at random, and checks what is left.");
    program.add_option("--seconds", seconds, "how long")->capture_default_str();
    program.add_option("--clients", clients, "how many at once")->capture_default_str();
    program
        .add_option("--kill-server-after", lives, "seconds that a server lives before it is killed; 0: never")
        ->capture_default_str();
    CLI11_PARSE(program, argumentCount, arguments);
    Soak soak(std::filesystem::canonical("/proc/self/exe").parent_path(), clients);
    return soak.Run(std::chrono::seconds(seconds), std::chrono::seconds(lives)) ? 0 : 1;
}

} // namespace
} // namespace quillon::practice::bench

int main(int argumentCount, char** arguments) {
    return quillon::practice::bench::Main(argumentCount, arguments);
}
