#include "console/commands/Commands.h"

namespace quillon::console {

std::span<const AddCommand> Commands() {
    static constexpr AddCommand commands[] = {
        AddDatabases, AddTables,   AddAnalyze,  AddInstall, AddSelect,    AddGenerate, AddTriggers,
        AddExecute,   AddSnapshot, AddTemplate, AddProfile, AddTranslate, AddScript};
    return commands;
}

} // namespace quillon::console
