// The dependency rules of tools/dependencies.txt.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quillon::tests {

struct Rule {
    std::vector<std::string> rooms;
    std::vector<std::string> libraries;
};

struct Rules {
    std::map<std::string, Rule> rooms;
    std::set<std::pair<std::string, std::string>> exceptions; // file, header

    static Rules Read(const std::filesystem::path& file);

    // The name of the rule for a file: the deepest folder on its path that has one.
    std::optional<std::string> RoomOf(const std::string& file) const;
    // Whether a file of one room may include a header of another.
    bool MayInclude(const std::string& room, const std::string& other) const;
    // Whether a room may include a header in angle brackets.
    bool MayUse(const std::string& room, const std::string& header) const;
};

} // namespace quillon::tests
