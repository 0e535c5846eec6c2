#include "console/TextTable.h"

#include <algorithm>

#include "template/TextCase.h"

namespace quillon::console {
namespace {

constexpr const char* Gap = "  ";

std::string Line(const Row& cells, const std::vector<std::size_t>& widths) {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i)
        line += cells[i] + std::string(widths[i] - CharacterCount(cells[i]), ' ') + Gap;
    line.erase(line.find_last_not_of(' ') + 1);
    return line + "\n";
}

} // namespace

std::string TextTable(const Row& captions, const std::vector<Row>& rows) {
    std::vector<std::size_t> widths;
    for (const auto& caption : captions)
        widths.push_back(CharacterCount(caption));
    for (const Row& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], CharacterCount(row[i]));
    Row rule;
    for (const std::size_t width : widths)
        rule.emplace_back(width, '-');
    std::string text = Line(captions, widths) + Line(rule, widths);
    for (const Row& row : rows)
        text += Line(row, widths);
    return text;
}

} // namespace quillon::console
