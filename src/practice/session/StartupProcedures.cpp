#include "practice/session/StartupProcedures.h"

#include <chrono>
#include <future>

namespace quillon::practice {

namespace {

class ErrorLog : public ResultSink {
  public:
    ErrorLog(std::string procedure, const StartupProcedures::Log& log)
        : m_procedure(std::move(procedure))
        , m_log(log) {}
    void Columns(const std::vector<ResultColumn>&) override {}
    void Row(std::span<const Datum>) override {}
    void Done(const StatementEnd&) override {}
    void Message(const ServerMessage& message) override {
        constexpr int leastError = 11;
        if (message.severity >= leastError)
            m_log("startup procedure " + m_procedure + ": error " + std::to_string(message.number) +
                  ", line " + std::to_string(message.line) + ": " + message.text);
    }
    void ReturnStatus(std::int32_t) override {}
    void OutputParameter(std::size_t, const std::string&, const SqlType&, const Datum&) override {}
    void Environment(const EnvironmentChange&) override {}

  private:
    std::string m_procedure;
    const StartupProcedures::Log& m_log;
};

std::vector<std::string> MarkedProcedures(const Catalogue& catalogue) {
    std::vector<std::string> names;
    for (const auto& [id, object] : catalogue.FindDatabase(masterDatabase)->objects)
        if (const auto module = std::dynamic_pointer_cast<const Module>(object); module && module->startup)
            names.push_back(module->name);
    return names;
}

std::string InBrackets(const std::string& name) {
    std::string quoted = "[";
    for (const char c : name)
        quoted += c == ']' ? "]]" : std::string(1, c);
    return quoted + "]";
}

} // namespace

StartupProcedures::StartupProcedures(SqlServer& server, const Catalogue& catalogue, Log log) {
    std::vector<std::string> names = MarkedProcedures(catalogue);
    if (names.empty())
        return;
    LoginFacts facts;
    facts.login = "sa";
    facts.database = "master";
    ErrorLog greeting("login", log);
    m_session = server.OpenSession(facts, greeting);
    std::promise<void> ended;
    std::future<void> end = ended.get_future();
    m_thread = std::thread(
        [this, names = std::move(names), log = std::move(log), ended = std::move(ended)]() mutable {
            try {
                Run(names, log);
            } catch (const std::exception& failure) {
                log(std::string("startup procedures: ") + failure.what());
            }
            ended.set_value();
        });
    constexpr std::chrono::seconds patience{5};
    end.wait_for(patience);
}

void StartupProcedures::Run(const std::vector<std::string>& names, const Log& log) {
    for (const std::string& name : names) {
        if (m_ending)
            return;
        ErrorLog sink(name, log);
        m_session->ExecuteBatch("EXEC dbo." + InBrackets(name), sink);
    }
}

StartupProcedures::~StartupProcedures() {
    if (!m_thread.joinable())
        return;
    m_ending = true;
    m_session->Cancel();
    m_thread.join();
}

} // namespace quillon::practice
