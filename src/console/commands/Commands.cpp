#include "console/commands/Commands.h"

namespace quillon::console {

std::span<const AddCommand> Commands() {
    static constexpr AddCommand commands[] = {AddDatabases, AddTables, AddExecute, AddSnapshot, AddTranslate};
    return commands;
}

} // namespace quillon::console
