// The options that say what is to be audited, and their way into the model's ticks.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace quillon::console {

struct SelectionOptions {
    bool all = false;
    std::vector<std::string> tables;     // OWNER.NAME or NAME
    std::vector<std::string> columns;    // names; none: every column that can be audited
    std::vector<std::string> operations; // insert, update, delete

    bool IsGiven() const { return all || !tables.empty() || !columns.empty() || !operations.empty(); }
};

std::shared_ptr<SelectionOptions> AddSelectionOptions(CLI::App& command);

// Replaces the ticks by what the options name; without options the ticks stay as they are. Raises 5 for a
// table or a column that nobody has and for a half-told selection, before anything is changed.
void ApplySelection(const SelectionOptions& options);

} // namespace quillon::console
