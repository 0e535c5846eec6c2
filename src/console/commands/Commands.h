// The commands of the command line. Each is one file of this folder with one function, and one line in
// Commands.cpp.
#pragma once

#include <functional>
#include <span>
#include <string>

namespace CLI {
class App;
}

namespace quillon::console {

class ConsoleFrontEnd;

// What the arguments asked for. The action runs in a session, where its failures are reported.
struct ChosenCommand {
    std::string procedure; // as failure reports name it
    std::function<void(ConsoleFrontEnd&)> action;
};

// Declares a command and its options, and writes `chosen` when the arguments name it; `chosen` outlives the
// parsing.
using AddCommand = void (*)(CLI::App& app, ChosenCommand& chosen);

void AddDatabases(CLI::App& app, ChosenCommand& chosen);
void AddTables(CLI::App& app, ChosenCommand& chosen);
void AddExecute(CLI::App& app, ChosenCommand& chosen);
void AddAnalyze(CLI::App& app, ChosenCommand& chosen);
void AddInstall(CLI::App& app, ChosenCommand& chosen);
void AddSelect(CLI::App& app, ChosenCommand& chosen);
void AddGenerate(CLI::App& app, ChosenCommand& chosen);
void AddTriggers(CLI::App& app, ChosenCommand& chosen);
void AddSnapshot(CLI::App& app, ChosenCommand& chosen);
void AddTemplate(CLI::App& app, ChosenCommand& chosen);
void AddProfile(CLI::App& app, ChosenCommand& chosen);
void AddTranslate(CLI::App& app, ChosenCommand& chosen);
void AddScript(CLI::App& app, ChosenCommand& chosen);

// In the order in which the help lists them.
std::span<const AddCommand> Commands();

} // namespace quillon::console
