// quillon-practice: a server on the loopback to try the system with, when no other is at hand.
#include "practice/DataFolder.h"
#include "practice/session/Accounts.h"
#include "practice/session/PasswordHash.h"
#include "practice/session/PrivateFile.h"
#include "practice/session/SqlSession.h"
#include "practice/tds/Listener.h"

#include <CLI/CLI.hpp>
#include <asio/io_context.hpp>
#include <asio/signal_set.hpp>

#include <csignal>
#include <filesystem>
#include <iostream>
#include <mutex>
#include <string>

namespace quillon::practice {
namespace {

struct Options {
    std::uint16_t port = 14330;
    std::string data;
    std::string passwordFile;
    bool sample = false;
    bool ephemeral = false;
};

void Log(const std::string& line) {
    static std::mutex mutex;
    std::lock_guard lock(mutex);
    std::cerr << line << std::endl;
}

DataFolder OpenFolder(const Options& options) {
    return options.ephemeral ? DataFolder::Temporary() : DataFolder(options.data);
}

std::string FirstLine(const std::string& text) {
    return text.substr(0, text.find_first_of("\r\n"));
}

// The password of sa: what the password file says, or one of our own making, told through a file as well, so
// that it is on no screen and in no log.
void SettleAdministrator(Accounts& accounts, const Options& options, const std::filesystem::path& folder) {
    const bool known = accounts.Find("sa").has_value();
    if (known && options.passwordFile.empty()) {
        return;
    }
    std::filesystem::path file = options.passwordFile;
    if (file.empty()) {
        file = folder / "sa-password";
    }
    if (!std::filesystem::exists(file)) {
        WritePrivateFile(file, RandomPassword() + "\n");
        Log("the password of sa is in " + file.string());
    }
    const std::string password = FirstLine(ReadPrivateFile(file));
    if (password.empty()) {
        throw std::runtime_error("the password file " + file.string() + " is empty");
    }
    if (!known) {
        accounts.Create("sa", password, true);
    } else if (!accounts.Verify("sa", password)) {
        accounts.ChangePassword("sa", password);
    }
}

tds::Authenticate Authentication(Accounts& accounts) {
    return
        [&accounts](const std::string& login, const std::string& password, const std::string* newPassword) {
            const bool emptied = newPassword != nullptr && newPassword->empty();
            if (emptied || !accounts.Verify(login, password)) {
                return false;
            }
            if (newPassword != nullptr) {
                accounts.ChangePassword(login, *newPassword);
            }
            return true;
        };
}

void Run(const Options& options) {
    DataFolder folder = OpenFolder(options);
    Accounts accounts(folder.Path() / "logins");
    SettleAdministrator(accounts, options, folder.Path());
    std::unique_ptr<SqlServer> server = OpenSqlServer({.dataFolder = folder.Path(),
                                                       .ephemeral = options.ephemeral,
                                                       .createSample = options.sample,
                                                       .accounts = &accounts,
                                                       .log = Log});

    asio::io_context context;
    asio::signal_set signals(context, SIGTERM, SIGINT);
    tds::Surroundings surroundings{*server, Authentication(accounts), "PRACTICE", Log};
    tds::Listener listener(context, options.port, surroundings);
    signals.async_wait([&](const asio::error_code&, int) { context.stop(); });
    std::cout << "listening on 127.0.0.1:" << listener.Port() << std::endl;
    context.run();
    listener.Stop();
}

int Main(int argumentCount, char** arguments) {
    Options options;
    CLI::App program("A server on the loopback that speaks TDS and Transact-SQL, to practise with.");
    program.add_option("--port", options.port, "port on 127.0.0.1; 0 lets the system choose")
        ->capture_default_str();
    auto* data =
        program.add_option("--data", options.data, "folder for databases and logins; made where missing");
    program.add_flag("--sample", options.sample, "make the sample database Sales where it is missing");
    auto* ephemeral =
        program.add_flag("--ephemeral", options.ephemeral, "keep nothing: data lives as long as the server");
    program.add_option(
        "--password-file", options.passwordFile,
        "file with the password of sa, readable by its user alone; made with a random one where missing");
    data->excludes(ephemeral);
    CLI11_PARSE(program, argumentCount, arguments);
    if (options.data.empty() && !options.ephemeral) {
        std::cerr << "quillon-practice: give --data or --ephemeral\n";
        return 2;
    }
    try {
        Run(options);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "quillon-practice: " << error.what() << "\n";
        return 1;
    }
}

} // namespace
} // namespace quillon::practice

int main(int argumentCount, char** arguments) {
    return quillon::practice::Main(argumentCount, arguments);
}
