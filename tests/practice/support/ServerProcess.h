// The practice server as a child process, on a port of the system's choice, with a password of its own for
// sa. Killed at the end if it still runs.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace quillon::practice::testing {

// A folder among the temporary files that goes with the object.
class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    const std::filesystem::path& Path() const { return m_path; }

  private:
    std::filesystem::path m_path;
};

class ServerProcess {
  public:
    // `binFolder` holds the program; `data` is its data folder, an ephemeral one when empty. Throws
    // std::runtime_error with what the program said when it does not come to listen.
    explicit ServerProcess(const std::filesystem::path& binFolder, const std::filesystem::path& data = {},
                           std::vector<std::string> moreOptions = {});
    ~ServerProcess();
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    std::uint16_t Port() const { return m_port; }
    const std::string& Password() const { return m_password; }

    // Sends the signal and waits for the end: the exit code, or minus the signal that ended it.
    int End(int signal);
    // Kills the server as a power cut would and starts it again on its data and port.
    void KillAndRestart();
    // Of the running process.
    long ResidentKilobytes() const;
    double ProcessorSeconds() const;

  private:
    void Start();
    void AwaitListening(int output);

    TemporaryFolder m_folder; // for the password file
    std::vector<std::string> m_command;
    std::string m_password = "Pr4ctice-Test";
    pid_t m_process = -1;
    std::uint16_t m_port = 0;
};

} // namespace quillon::practice::testing
