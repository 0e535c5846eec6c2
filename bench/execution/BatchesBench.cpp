// Executing a file of 5,000 small batches, beside FreeTDS's bsqldb with the same file on the same server,
// whole programs both: time on the clock, the lesser of three goes each, in one run. Promised: at most 1.2
// times. Exit 1 when it is more.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "practice/support/ServerProcess.h"
#include "template/ChildProcess.h"

namespace {

using namespace quillon;

constexpr double MostTimes = 1.2;
constexpr int Goes = 3, Batches = 5000;

void WriteScript(const std::filesystem::path& file) {
    std::ofstream out(file);
    out << "IF OBJECT_ID('t') IS NULL CREATE TABLE t (id int NOT NULL, name varchar(40))\nGO\n";
    for (int batch = 1; batch < Batches; ++batch) {
        const std::string number = std::to_string(batch);
        if (batch % 10 == 0)
            out << "SELECT id, name FROM t WHERE id = " << number << "\nGO\n";
        else
            out << "UPDATE t SET name = 'row number " << number << "' WHERE id = " << number << "\nGO\n";
    }
}

double SecondsOf(const std::vector<std::string>& arguments, const std::filesystem::path& output) {
    const auto start = std::chrono::steady_clock::now();
    const auto run = bench::RunChild(arguments, output.string());
    if (run.exitCode != 0)
        throw std::runtime_error(arguments[0] + " failed");
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

} // namespace

int main() {
    const auto binFolder = std::filesystem::canonical("/proc/self/exe").parent_path();
    const practice::testing::ServerProcess process(binFolder);
    const practice::testing::TemporaryFolder folder;
    const std::filesystem::path script = folder.Path() / "batches.sql", password = folder.Path() / "password";
    WriteScript(script);
    std::ofstream(password) << process.Password() << "\n";
    setenv("QUILLON_HOME", folder.Path().c_str(), 1);
    setenv("TDSVER", "7.4", 1);
    const std::string port = std::to_string(process.Port());
    const std::vector<std::string> ours{(binFolder / "quillon-console").string(),
                                        "--server",
                                        "127.0.0.1," + port,
                                        "--user",
                                        "sa",
                                        "--password-file",
                                        password.string(),
                                        "--database",
                                        "master",
                                        "execute",
                                        script.string()};
    // Its counts go to the error output, line by line.
    const std::vector<std::string> theirs{"sh",
                                          "-c",
                                          "exec bsqldb \"$@\" 2>/dev/null",
                                          "bsqldb",
                                          "-S",
                                          "127.0.0.1:" + port,
                                          "-U",
                                          "sa",
                                          "-P",
                                          process.Password(),
                                          "-D",
                                          "master",
                                          "-i",
                                          script.string()};
    double console = 1e9, bsqldb = 1e9;
    for (int go = 0; go < Goes; ++go) {
        bsqldb = std::min(bsqldb, SecondsOf(theirs, folder.Path() / "theirs.txt"));
        console = std::min(console, SecondsOf(ours, folder.Path() / "ours.txt"));
    }
    std::printf("%d batches: bsqldb %.2f s, quillon-console execute %.2f s; %.2f times\n", Batches, bsqldb,
                console, console / bsqldb);
    return console <= MostTimes * bsqldb ? 0 : 1;
}
