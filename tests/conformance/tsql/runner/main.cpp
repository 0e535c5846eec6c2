// quillon-sql-conformance: runs scripts of T-SQL over ODBC and compares what the server answers with what the
// scripts expect.
//
//     quillon-sql-conformance CONNECTION-STRING FOLDER-OR-SCRIPT ...
//     quillon-sql-conformance --practice FOLDER-OF-PROGRAMS FOLDER-OR-SCRIPT ...   starts a practice server
//     of its own
//
// A script (*.test) is T-SQL in batches. Each script runs in a new, empty database and on connections of its
// own. A batch ends at a line GO or at the lines that say what it must answer:
//
//     --> row 1|abc|NULL             one row, values joined by |
//     --> columns ID|Name            names of a result's columns; compared only where a script names some
//     --> count 3                    rows affected, of a statement without rows; compared only where a script
//     names some
//     --> message 0: text            PRINT and messages of severity 10 or below
//     --> error 208 line 2: text     line and text may be left out; * in a text stands for anything
//     --> nothing                    no rows, messages or errors
//
// All rows, messages and errors of the batch must be named, in their order; but ODBC tells errors before the
// messages that came with them, so among answers that no row parts the errors are taken first. Message 3621
// (statement terminated) counts only where a script names it. A batch without expectations must only not
// fail. The line `--@ name` sends what follows over another connection, `--@ first` over the first one again.
// `--@ name &` sends the next batch and does not wait: its answers are looked at before the next batch of
// that connection, or at the end.
#include "practice/support/ServerProcess.h"
#include "runner/Client.h"
#include "runner/Script.h"

#include <algorithm>
#include <future>
#include <iostream>
#include <map>
#include <memory>

namespace quillon::conformance {
namespace {

constexpr const char* databaseName = "quillon_conformance";
constexpr int terminated = 3621; // "The statement has been terminated."

bool Names(const std::vector<Answer>& answers, Answer::Kind kind) {
    return std::any_of(answers.begin(), answers.end(),
                       [&](const Answer& answer) { return answer.kind == kind; });
}

bool NamesTermination(const std::vector<Answer>& answers) {
    return std::any_of(answers.begin(), answers.end(),
                       [](const Answer& answer) { return answer.number == terminated; });
}

bool IsTold(const Answer& answer) {
    return answer.kind == Answer::Kind::Message || answer.kind == Answer::Kind::Error;
}

std::vector<Answer> ErrorsFirst(std::vector<Answer> answers) {
    for (auto at = answers.begin(); at != answers.end();) {
        const auto first = std::find_if(at, answers.end(), IsTold);
        at = std::find_if_not(first, answers.end(), IsTold);
        std::stable_partition(first, at,
                              [](const Answer& answer) { return answer.kind == Answer::Kind::Error; });
    }
    return answers;
}

// The answers that the batch's expectations are about.
std::vector<Answer> Relevant(const std::vector<Answer>& answers, const ScriptBatch& batch) {
    std::vector<Answer> relevant;
    for (const Answer& answer : answers) {
        const bool isOptional = answer.kind == Answer::Kind::Columns || answer.kind == Answer::Kind::Count;
        const bool isFailure = answer.kind == Answer::Kind::Error;
        if (answer.number == terminated && !NamesTermination(batch.expected))
            continue;
        if (batch.isChecked ? !isOptional || Names(batch.expected, answer.kind) : isFailure)
            relevant.push_back(answer);
    }
    return relevant;
}

void Show(const char* title, const std::vector<Answer>& answers) {
    std::cout << "    " << title << "\n";
    for (const Answer& answer : answers)
        std::cout << "        " << Written(answer) << "\n";
}

class ScriptRun {
  public:
    ScriptRun(const std::string& connectionString, const std::filesystem::path& file)
        : m_connectionString(connectionString)
        , m_file(file) {}

    // Whether everything was as expected; tells what was not.
    bool Run() {
        Clean();
        Client creator(m_connectionString);
        creator.Run(std::string("CREATE DATABASE ") + databaseName);
        bool isGood = true;
        for (const ScriptBatch& batch : ReadScript(m_file))
            isGood = Send(batch) && isGood;
        for (auto& [name, sent] : m_sent)
            isGood = Await(name) && isGood;
        m_clients.clear();
        Clean();
        return isGood;
    }

  private:
    void Clean() {
        Client(m_connectionString)
            .Run(std::string("IF DB_ID('") + databaseName + "') IS NOT NULL DROP DATABASE " + databaseName);
    }

    Client& On(const std::string& name) {
        std::unique_ptr<Client>& client = m_clients[name];
        if (!client) {
            client = std::make_unique<Client>(m_connectionString);
            client->Run(std::string("USE ") + databaseName);
        }
        return *client;
    }

    struct Sent {
        ScriptBatch batch;
        std::future<std::vector<Answer>> answers;
    };

    bool Send(const ScriptBatch& batch) {
        const bool isGood = Await(batch.connection);
        Client& client = On(batch.connection);
        if (!batch.goesOn)
            return Check(batch, client.Run(batch.text)) && isGood;
        m_sent[batch.connection] = {
            batch, std::async(std::launch::async, [&client, text = batch.text] { return client.Run(text); })};
        return isGood;
    }

    bool Await(const std::string& connection) {
        const auto sent = m_sent.find(connection);
        if (sent == m_sent.end() || !sent->second.answers.valid())
            return true;
        return Check(sent->second.batch, sent->second.answers.get());
    }

    bool Check(const ScriptBatch& batch, const std::vector<Answer>& answers) {
        const std::vector<Answer> actual = ErrorsFirst(Relevant(answers, batch));
        const std::vector<Answer> wanted = ErrorsFirst(batch.expected);
        const bool isGood =
            actual.size() == wanted.size() &&
            std::equal(actual.begin(), actual.end(), wanted.begin(),
                       [](const Answer& is, const Answer& expected) { return Fits(expected, is); });
        if (!isGood) {
            std::cout << m_file.string() << ":" << batch.firstLine << ": other answers than expected\n";
            Show("expected", batch.expected);
            Show("answered", actual);
        }
        return isGood;
    }

    std::string m_connectionString;
    std::filesystem::path m_file;
    std::map<std::string, std::unique_ptr<Client>> m_clients;
    std::map<std::string, Sent> m_sent; // goes first: it uses the clients
};

std::vector<std::filesystem::path> FindScripts(const std::vector<std::string>& paths) {
    std::vector<std::filesystem::path> scripts;
    for (const std::filesystem::path path : paths) {
        if (!std::filesystem::is_directory(path)) {
            scripts.push_back(path);
            continue;
        }
        for (const auto& entry : std::filesystem::recursive_directory_iterator(path))
            if (entry.path().extension() == ".test")
                scripts.push_back(entry.path());
    }
    std::sort(scripts.begin(), scripts.end());
    return scripts;
}

int RunAll(const std::string& connectionString, const std::vector<std::string>& paths) {
    const std::vector<std::filesystem::path> scripts = FindScripts(paths);
    int failed = 0;
    for (const std::filesystem::path& script : scripts)
        try {
            failed += !ScriptRun(connectionString, script).Run();
        } catch (const std::exception& failure) {
            std::cout << script.string() << ": " << failure.what() << "\n";
            ++failed;
        }
    std::cout << scripts.size() - static_cast<std::size_t>(failed) << " of " << scripts.size()
              << " scripts as expected\n";
    return scripts.empty() || failed > 0 ? 1 : 0;
}

int Run(std::vector<std::string> arguments) {
    if (arguments.size() < 2 || (arguments[0] == "--practice" && arguments.size() < 3)) {
        std::cerr << "usage: quillon-sql-conformance CONNECTION-STRING | --practice FOLDER   SCRIPTS ...\n";
        return 2;
    }
    if (arguments[0] != "--practice")
        return RunAll(arguments[0], {arguments.begin() + 1, arguments.end()});
    const practice::testing::ServerProcess server(arguments[1]);
    const std::string connection =
        "Driver=/usr/lib/x86_64-linux-gnu/odbc/libtdsodbc.so;Server=127.0.0.1;Port=" +
        std::to_string(server.Port()) + ";UID=sa;PWD=" + server.Password() +
        ";TDS_Version=7.4;ClientCharset=UTF-8";
    return RunAll(connection, {arguments.begin() + 2, arguments.end()});
}

} // namespace
} // namespace quillon::conformance

int main(int count, char** values) {
    std::cout << std::unitbuf; // so that a script which hangs can be told from the last line
    try {
        return quillon::conformance::Run({values + 1, values + count});
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << "\n";
        return 2;
    }
}
