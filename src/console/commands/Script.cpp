// script FILE [--language VBScript|JScript] [--timeout SECONDS]: runs a script and prints what its function
// ReturnThis returns; a script without one has run when it was loaded.
#include <CLI/CLI.hpp>

#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>

#include "adapters/files/NativePath.h"
#include "adapters/script/ScriptControl.h"
#include "console/Interruption.h"
#include "console/ScriptFile.h"
#include "console/StandardOutput.h"
#include "console/commands/Commands.h"
#include "platform/Conversion.h"
#include "platform/Failure.h"
#include "platform/Files.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "program/ScriptBoxes.h"
#include "template/frmTemplate.h"

namespace quillon::console {
namespace {

struct Options {
    std::string file;
    std::string language = "VBScript";
    double timeout = 0; // seconds; 0: none
};

// Boxes of a script become lines of the front end; what nobody can type is empty.
class ConsoleSite : public ScriptSite {
  public:
    std::int32_t ScriptMessage(const std::string& prompt, std::int32_t buttons,
                               const std::string& title) override {
        return TheScriptBoxes().ScriptMessage(prompt, buttons, title);
    }
    std::string ScriptInput(const std::string&, const std::string&, const std::string& defaultText) override {
        return defaultText;
    }
};

// Stops a script that runs for too long. Should an engine not heed that, it ends with the process.
class Deadline {
  public:
    Deadline(ScriptHost& host, double seconds)
        : m_watch([this, &host, seconds] { Watch(host, seconds); }) {}
    bool HasPassed() const noexcept { return m_passed; }
    ~Deadline() {
        {
            const std::lock_guard lock(m_mutex);
            m_done = true;
        }
        m_ended.notify_one();
        m_watch.join();
    }
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;

  private:
    void Watch(ScriptHost& host, double seconds) {
        using std::chrono::duration;
        std::unique_lock lock(m_mutex);
        if (m_ended.wait_for(lock, duration<double>(seconds), [this] { return m_done; }))
            return;
        std::fprintf(stderr, "The script was stopped after %g seconds.\n", seconds);
        m_passed = true;
        host.Stop();
        if (!m_ended.wait_for(lock, duration<double>(2), [this] { return m_done; }))
            std::_Exit(EXIT_FAILURE);
    }

    std::mutex m_mutex;
    std::condition_variable m_ended;
    bool m_done = false;
    std::atomic<bool> m_passed = false;
    std::thread m_watch;
};

void Report(const ScriptError& error) {
    std::string report = frmTemplate::ProcessError(error);
    std::erase(report, '\r');
    std::fprintf(stderr, "%s\n", report.c_str());
}

// Empty when the script has no function of that name: the host then fails the call and holds no error.
Value ReturnThis(ScriptHost& host) {
    try {
        return host.Run("ReturnThis");
    } catch (const Failure&) {
        if (host.Error().Number != 0)
            throw;
        return {};
    }
}

// Whether the script ran without an error; one that it met, or that its result has no text, is reported.
bool Succeeds(ScriptHost& host, const std::string& script) {
    ScriptError error;
    try {
        host.AddCode(script);
        const Value result = ReturnThis(host);
        if (!result.IsEmpty())
            WriteStandardOutput(conversion::ToText(result) + "\n");
        FlushStandardOutput();
        return true;
    } catch (const Failure& failure) {
        error = host.Error();
        if (error.Number == 0) {
            error.Number = failure.number();
            error.Description = failure.description();
        }
    }
    Report(error);
    return false;
}

void RunScript(const Options& options) {
    Interruption::EndAtOnce();
    ConsoleSite site;
    adapters::ScriptControl host(&site);
    host.SetLanguage(options.language);
    const std::string script =
        ScriptText(ThePlatform().files().ReadAll(adapters::FromNative(options.file)), options.file);
    std::optional<Deadline> deadline;
    if (options.timeout > 0)
        deadline.emplace(host, options.timeout);
    const bool succeeds = Succeeds(host, script);
    host.Reset(); // what objects do when they are let go of is the script's work too
    if (!succeeds || (deadline && deadline->HasPassed()))
        throw ProcessEnded{};
}

} // namespace

void AddScript(CLI::App& app, ChosenCommand& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("script", "Run a script and print what ReturnThis returns");
    command->add_option("FILE", options->file, "The script")->required();
    command->add_option("--language", options->language, "VBScript or JScript")
        ->check(CLI::IsMember({"VBScript", "JScript"}, CLI::ignore_case))
        ->capture_default_str();
    command->add_option("--timeout", options->timeout, "Seconds after which the script is stopped")
        ->check(CLI::Validator(
            [](std::string& text) {
                return std::isnan(std::strtod(text.c_str(), nullptr)) ? "It is no number" : std::string();
            },
            ""))
        ->check(CLI::Range(0.001, 1e6));
    command->callback([&chosen, options] {
        chosen = {"quillon-console.script", [options](ConsoleFrontEnd&) { RunScript(*options); }};
    });
}

} // namespace quillon::console
