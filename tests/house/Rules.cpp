#include "house/Rules.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "house/SourceTree.h"

namespace quillon::tests {
namespace {

Rule RuleOf(std::istream& words) {
    Rule rule;
    auto* list = &rule.rooms;
    for (std::string word; words >> word;) {
        if (word == "|")
            list = &rule.libraries;
        else
            list->push_back(word);
    }
    return rule;
}

// Standard headers have no dot; the C ones that we use are spelled <cstdint>.
bool IsStandard(const std::string& header) {
    return header.find('.') == std::string::npos && header.find('/') == std::string::npos;
}

} // namespace

Rules Rules::Read(const std::filesystem::path& path) {
    Rules rules;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line);
        std::string kind, name, arrow, header;
        if (!(words >> kind) || kind[0] == '#')
            continue;
        if (kind == "room" && words >> name && name.ends_with(':'))
            rules.rooms[name.substr(0, name.size() - 1)] = RuleOf(words);
        else if (kind == "except" && words >> name >> arrow >> header && arrow == "->")
            rules.exceptions.emplace(name, header);
        else
            throw std::runtime_error("not a rule: " + line);
    }
    return rules;
}

std::optional<std::string> Rules::RoomOf(const std::string& file) const {
    for (auto folder = FolderOf(file); !folder.empty(); folder = FolderOf(folder)) {
        if (rooms.contains(folder))
            return folder;
        if (FolderOf(folder) == "adapters" && rooms.contains("adapters/*"))
            return folder;
    }
    return {};
}

bool Rules::MayInclude(const std::string& room, const std::string& other) const {
    if (room == other)
        return true;
    const auto found = rooms.find(room);
    const Rule& rule = found != rooms.end() ? found->second : rooms.at("adapters/*");
    return std::ranges::any_of(rule.rooms, [&](const std::string& allowed) {
        return other == allowed || (allowed == "adapters" && other.starts_with("adapters/"));
    });
}

bool Rules::MayUse(const std::string& room, const std::string& header) const {
    const auto found = rooms.find(room);
    const Rule& rule = found != rooms.end() ? found->second : rooms.at("adapters/*");
    const bool listed = std::ranges::any_of(
        rule.libraries, [&](const std::string& library) { return header.starts_with(library); });
    return listed || IsStandard(header);
}

} // namespace quillon::tests
