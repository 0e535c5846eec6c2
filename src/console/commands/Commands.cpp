#include "console/commands/Commands.h"

namespace quillon::console {

std::span<const AddCommand> Commands() {
    static constexpr AddCommand commands[] = {AddDatabases, AddTables,    AddExecute,
                                              AddSnapshot,  AddTranslate, AddScript};
    return commands;
}

} // namespace quillon::console
