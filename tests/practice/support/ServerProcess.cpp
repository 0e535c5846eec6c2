#include "practice/support/ServerProcess.h"

#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace quillon::practice::testing {

TemporaryFolder::TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "practice-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    m_path = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

ServerProcess::ServerProcess(const std::filesystem::path& binFolder, const std::filesystem::path& data,
                             std::vector<std::string> moreOptions) {
    const std::filesystem::path passwordFile = m_folder.Path() / "password";
    std::ofstream(passwordFile) << m_password << "\n";
    std::filesystem::permissions(passwordFile,
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    m_command = {(binFolder / "quillon-practice").string(), "--port", "0", "--password-file",
                 passwordFile.string()};
    if (data.empty()) {
        m_command.push_back("--ephemeral");
    } else {
        m_command.insert(m_command.end(), {"--data", data.string()});
    }
    m_command.insert(m_command.end(), moreOptions.begin(), moreOptions.end());
    Start();
}

ServerProcess::~ServerProcess() {
    if (m_process > 0) {
        End(SIGKILL);
    }
}

void ServerProcess::KillAndRestart() {
    End(SIGKILL);
    m_command[2] = std::to_string(m_port);
    Start();
}

void ServerProcess::Start() {
    std::vector<char*> arguments;
    for (std::string& word : m_command) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    m_process = fork();
    if (m_process == 0) {
        dup2(ends[1], STDOUT_FILENO);
        execv(arguments[0], arguments.data());
        _exit(127);
    }
    close(ends[1]);
    AwaitListening(ends[0]);
    close(ends[0]);
}

void ServerProcess::AwaitListening(int output) {
    std::string said;
    char character = 0;
    while (said.find('\n') == std::string::npos && read(output, &character, 1) == 1) {
        said += character;
    }
    constexpr std::string_view ready = "listening on 127.0.0.1:";
    if (said.compare(0, ready.size(), ready) != 0) {
        int code = End(SIGKILL);
        throw std::runtime_error("the server did not start (" + std::to_string(code) + "): " + said);
    }
    m_port = static_cast<std::uint16_t>(std::stoi(said.substr(ready.size())));
}

int ServerProcess::End(int signal) {
    int status = 0;
    kill(m_process, signal);
    waitpid(m_process, &status, 0);
    m_process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

long ServerProcess::ResidentKilobytes() const {
    std::ifstream file("/proc/" + std::to_string(m_process) + "/statm");
    long total = 0;
    long resident = 0;
    file >> total >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

double ServerProcess::ProcessorSeconds() const {
    std::ifstream file("/proc/" + std::to_string(m_process) + "/stat");
    std::string line;
    std::getline(file, line);
    std::istringstream fields(line.substr(line.rfind(')') + 2));
    std::string skipped;
    for (int field = 3; field < 14; ++field) {
        fields >> skipped;
    }
    double user = 0;
    double system = 0;
    fields >> user >> system;
    return (user + system) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

} // namespace quillon::practice::testing
