#include "console/commands/Commands.h"

namespace quillon::console {

std::span<const AddCommand> Commands() {
    static constexpr AddCommand commands[] = {AddTranslate};
    return commands;
}

} // namespace quillon::console
