// Tables for people: columns as wide as their longest text, a line below the captions.
#pragma once

#include <string>
#include <vector>

namespace quillon::console {

using Row = std::vector<std::string>;

// Every row has as many cells as there are captions. Without rows, the captions alone.
std::string TextTable(const Row& captions, const std::vector<Row>& rows);

} // namespace quillon::console
